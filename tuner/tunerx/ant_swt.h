// What the antenna thread and its callers share: the block, and the calls that only set words of it. The
// thread itself, and what measures and switches, is in the board's wrapper (tuner/antenna.h). The block has
// no lock: each word is read and written whole.
#pragma once

#include <atomic>

constexpr int ANT_STABLE = 0;
constexpr int ANT_CHECK_NEEDED = 1;
constexpr int ANT_SEARCH_NEEDED = 2;

constexpr int ANT_MODE_SEARCH = 1;

struct ant_swt_block {
    std::atomic<float> best_level[2]; // best first: dBm + 100, -1.0 when it couldn't be had
    std::atomic<int> best_ant[2];     // the antennas of these levels
    std::atomic<int> circuit;
    std::atomic<int> status;
    std::atomic<int> current_ant;
    std::atomic<int> counter; // of tunings
    std::atomic<int> run;     // 1 while the thread is to go on
};
extern ant_swt_block ant_swt;

// ANT_MODE_SEARCH: the thread searches. Read once, when the thread starts.
extern std::atomic<int> ant_search_mode;

// A tuning has happened: its number, and the mode becomes ANT_MODE_SEARCH.
void tuner_ant_search(int count);

// The run flag to 1.
void ant_switch_thread_activequeue();

// The run flag and the counter to 0: the thread ends within 600 ms at rest. A search or a sleep that has
// begun runs to its end first; nobody waits for it.
void ant_switch_thread_destroythread();
