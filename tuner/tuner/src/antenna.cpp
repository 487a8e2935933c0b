#include "tuner/antenna.h"

#include <pthread.h>

#include "tmr/tmr.h"
#include "tuner/tuner.h"
#include "tunerx/tunerx_hwl.h"

namespace {

constexpr unsigned STEP_US = 600000;
constexpr unsigned SETTLE_US = 300000;
constexpr float WORST_RATIO = 0.01f;
constexpr float WORST_LEVEL = -100.0f;
constexpr int MOST_BAD = 4;
constexpr int MOST_FAILS = 9;

std::atomic<int> newest_thread; // the one that may run

bool runs()
{
    return ant_swt.run == 1;
}

float bit_errors()
{
    return tuner_get_bper(1, ant_swt.circuit, 2);
}

bool good_reception(int sync, float ratio)
{
    return sync == 1 && ratio <= WORST_RATIO;
}

// What the watch goes by, one round after the other.
struct watch {
    int good = 0;
    int bad = 0;
    bool over = false;

    void end(int status)
    {
        ant_swt.status = status;
        over = true;
    }
};

void watch_round(watch& w, int& fails)
{
    const int sync = tuner_get_sync(ant_swt.circuit);
    if (sync != 1)
        return w.end(ANT_CHECK_NEEDED);
    tmr_usleep(STEP_US);
    const float ratio = bit_errors();
    if (ratio < 0)
        return w.end(ANT_CHECK_NEEDED);
    const bool good = good_reception(sync, ratio);
    w.good = good ? w.good + 1 : 0;
    w.bad = good ? 0 : w.bad + 1;
    if (w.good > 0) {
        w.over = true;
        if (tuner_get_sync(ant_swt.circuit) == 1) {
            ant_swt.status = ANT_STABLE;
            fails = 0;
        }
        return;
    }
    if (w.bad > MOST_BAD || ++fails > MOST_FAILS) {
        fails = 0;
        w.end(ANT_CHECK_NEEDED);
    }
}

void watch_reception(int& fails)
{
    watch w;
    while (runs() && !w.over)
        watch_round(w, fails);
}

void search_and_watch(int& fails)
{
    const int status = ant_swt.status;
    const int counter = ant_swt.counter;
    if ((counter == 1 && status == ANT_CHECK_NEEDED) || status == ANT_SEARCH_NEEDED) {
        tuner_search_ant();
        tuner_stability();
    } else if (counter >= 2 && status == ANT_CHECK_NEEDED) {
        tuner_stability();
    }
    if (ant_swt.status == ANT_STABLE)
        watch_reception(fails);
}

void* ant_switch_thread(void* p_number)
{
    const int own = static_cast<int>(reinterpret_cast<std::intptr_t>(p_number));
    const int mode = ant_search_mode;
    tmr_usleep(STEP_US);
    int fails = 0;
    while (runs() && newest_thread == own && tunXParams.band != TUNER_BAND_US) {
        if (mode == ANT_MODE_SEARCH)
            search_and_watch(fails);
        tmr_usleep(STEP_US);
    }
    return nullptr;
}

} // namespace

int tuner_ant_switch(int ant)
{
    if (tunerx_hwl_put_antenna(ant) != TUNERX_OK)
        return TUNERX_DEVICE;
    ant_swt.current_ant = ant;
    return TUNERX_OK;
}

int tuner_auto_ant_search(int mode)
{
    ant_search_mode = mode;
    return tuner_ant_switch(mode == ANT_MODE_SEARCH ? 2 : 0);
}

int tuner_get_current_ant()
{
    return ant_swt.current_ant;
}

void tuner_put_circuit_info(int circuit)
{
    ant_swt.circuit = circuit;
}

float tuner_set_ant_get_drssi(int ant)
{
    tuner_ant_switch(ant);
    tmr_usleep(SETTLE_US);
    const float level = tuner_get_rssi();
    return level == -1.0f || (ant != 0 && ant != 1) ? -1.0f : level + 100;
}

void tuner_search_ant()
{
    for (int place = 0; place < 2; place++) {
        ant_swt.best_level[place] = 0;
        ant_swt.best_ant[place] = 0;
    }
    for (const int ant : {0, 1}) {
        const float level = tuner_set_ant_get_drssi(ant);
        const bool best = level >= ant_swt.best_level[0] && level > ant_swt.best_level[1];
        if (best) {
            ant_swt.best_level[1] = ant_swt.best_level[0].load();
            ant_swt.best_ant[1] = ant_swt.best_ant[0].load();
        }
        ant_swt.best_level[best ? 0 : 1] = level;
        ant_swt.best_ant[best ? 0 : 1] = ant;
    }
    tuner_ant_switch(ant_swt.best_ant[0]);
    tmr_usleep(STEP_US);
}

void tuner_stability()
{
    bool second = false;
    bool tried = false;
    while (runs()) {
        const int sync = tuner_get_sync(ant_swt.circuit);
        const float ratio = bit_errors();
        if (ratio < 0) {
            ant_swt.status = ANT_CHECK_NEEDED;
            return;
        }
        if (good_reception(sync, ratio)) {
            ant_swt.status = ANT_STABLE;
            return;
        }
        if (tried) {
            if (second || ant_swt.best_level[1] <= WORST_LEVEL) {
                ant_swt.status = ANT_SEARCH_NEEDED;
                return;
            }
            second = true;
            tuner_ant_switch(ant_swt.best_ant[1]);
        }
        tried = !tried;
        tmr_usleep(STEP_US);
    }
}

int ant_switch_thread_createthread()
{
    ant_swt.run = 0;
    const int number = ++newest_thread;
    pthread_t thread;
    void* const p_number = reinterpret_cast<void*>(static_cast<std::intptr_t>(number));
    if (pthread_create(&thread, nullptr, ant_switch_thread, p_number) != 0)
        return -1;
    pthread_detach(thread);
    return 0;
}
