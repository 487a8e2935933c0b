#include "luigi/luigi.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

#include "cfg/cfg.h"
#include "input_linux/codes.h"
#include "kbd/kbd.h"
#include "luigi_report.h"
#include "luigi_state.h"
#include "queue/queue.h"
#include "tmr/tmr.h"
#include "touch_v2/touch.h"

namespace {

constexpr int MOST_MESSAGES = 50;
constexpr int MOST_EVENTS = MOST_MESSAGES - 1; // so that a stop finds room behind keys and touches
constexpr std::uint32_t STALE_US = 5'000'000;
constexpr std::uint32_t FULL_RETRY_MS = 1;

// The thread waits at the queue until the process has ended, so the queue outlives every destructor.
union lasting_queue {
    queue q;
    lasting_queue() : q{} {}
    ~lasting_queue() {}
};
lasting_queue luigi_message_queue;
std::atomic<bool> luigi_default_running;
kbd_observer luigi_kybrd;

std::atomic<int> messages_waiting;
std::atomic<std::uint64_t> busy_since; // with a message, from tmr_get64; 0 while there is none

bool stuck()
{
    const std::uint64_t since = busy_since;
    return since != 0 && tmr_get64() - since > STALE_US;
}

bool has_path(const luigi_message& msg)
{
    const auto* const path = reinterpret_cast<const char*>(msg.a);
    return path != nullptr && path[0] != '\0';
}

void luigi_keyboard_interface(int key, int action)
{
    if (key == INPUT_KEY_POWER && action == KBD_PRESSED) {
        luigi_toggle_default(-1);
        return;
    }
    luigi_message msg{};
    msg.type = LUIGI_MSG_KEY;
    msg.a = static_cast<std::uintptr_t>(key);
    msg.b = action == KBD_PRESSED ? LUIGI_KEY_PRESSED : action == KBD_RELEASED ? LUIGI_KEY_RELEASED : 0;
    luigi_send_message(&msg);
}

std::uint32_t touch_action(const touch_event& event)
{
    if (event.value == 1)
        return LUIGI_TOUCH_PRESSED;
    if (event.value == 0)
        return LUIGI_TOUCH_RELEASED;
    return event.code == INPUT_ABS_PRESSURE ? LUIGI_TOUCH_MOVED : 0;
}

void luigi_touch_interface(const touch_event* p_event)
{
    luigi_message msg{};
    msg.type = LUIGI_MSG_TOUCH;
    msg.a = p_event->x;
    msg.b = p_event->y;
    msg.c = touch_action(*p_event);
    luigi_send_message(&msg);
}

// Time stamps have 32 bits; one that isn't below the present time is never stale.
bool is_stale(const luigi_message& msg)
{
    const std::uint32_t now = tmr_get();
    return msg.timestamp < now && now - msg.timestamp > STALE_US;
}

// A script of a running menu failed: the next press of the power key starts anew. One that was ended for a
// stop leaves the menu to that, which is on the queue.
void end_failed_menu(const std::string& error)
{
    luigi_report_log(error);
    if (luigi_state_awaits_stop())
        return;
    luigi_state_close();
    luigi_default_running = false;
    luigi_report_page(error, "The power key starts it again.");
}

void draw_menu()
{
    std::string error;
    if (luigi_state_exists() && !luigi_state_update(error))
        end_failed_menu(error);
}

// A start that fails changes nothing on the panel, and neither does a stop.
void start_menu(const char* path)
{
    std::string error;
    if (luigi_state_exists())
        return;
    if (!luigi_state_start(path, error))
        return luigi_report_log(error);
    touch_evt_attach(luigi_touch_interface);
    draw_menu();
}

void stop_menu(const char* path)
{
    std::string error;
    if (!luigi_state_exists())
        return;
    if (!luigi_state_stop(path, error))
        return luigi_report_log(error);
    if (!luigi_state_update(error))
        luigi_report_log(error);
    luigi_state_close();
}

void pass_to_menu(const luigi_message& msg)
{
    std::string error;
    if (is_stale(msg) || !luigi_state_exists() || luigi_state_awaits_stop())
        return;
    const int taken = luigi_state_event(msg, error);
    if (taken < 0)
        end_failed_menu(error);
    else if (taken == 1)
        draw_menu();
}

void serve(const luigi_message& msg)
{
    auto* const path = reinterpret_cast<char*>(msg.a);
    switch (msg.type) {
    case LUIGI_MSG_START:
        start_menu(path);
        std::free(path);
        break;
    case LUIGI_MSG_STOP:
        luigi_stops_wanted--;
        stop_menu(path);
        std::free(path);
        break;
    case LUIGI_MSG_TOUCH:
    case LUIGI_MSG_KEY:
        pass_to_menu(msg);
        break;
    default:
        break;
    }
}

void luigi_thread()
{
    for (;;) {
        luigi_message msg;
        queue_get(&luigi_message_queue.q, &msg, sizeof msg);
        messages_waiting--;
        busy_since = tmr_get64();
        serve(msg);
        busy_since = 0;
    }
}

} // namespace

void luigi_init()
{
    if (queue_start(&luigi_message_queue.q, MOST_MESSAGES, sizeof(luigi_message)) != 1)
        return;
    std::thread(luigi_thread).detach();
    kbd_evt_attach(&luigi_kybrd, luigi_keyboard_interface);
}

int luigi_send_message(luigi_message* p_msg)
{
    if (p_msg == nullptr || (p_msg->type <= LUIGI_MSG_STOP && !has_path(*p_msg)))
        return -1;
    const int room = p_msg->type <= LUIGI_MSG_STOP ? MOST_MESSAGES : MOST_EVENTS;
    while (messages_waiting >= room) {
        if (stuck())
            return -1;
        tmr_msleep(FULL_RETRY_MS);
    }
    p_msg->timestamp = tmr_get();
    messages_waiting++;
    if (p_msg->type == LUIGI_MSG_STOP)
        luigi_stops_wanted++;
    queue_put(&luigi_message_queue.q, p_msg, sizeof *p_msg);
    return 1;
}

int luigi_toggle_default(int mode)
{
    const bool start = mode == 1 || (mode != 0 && !luigi_default_running);
    const char* const path = cfg_get_str("luigi", start ? "start_key" : "stop_key", nullptr);
    if (path == nullptr)
        return 0;
    luigi_message msg{};
    msg.type = start ? LUIGI_MSG_START : LUIGI_MSG_STOP;
    char* const copy = strdup(path);
    msg.a = reinterpret_cast<std::uintptr_t>(copy);
    if (luigi_send_message(&msg) != 1) {
        std::free(copy);
        return -1;
    }
    luigi_default_running = start;
    return 1;
}
