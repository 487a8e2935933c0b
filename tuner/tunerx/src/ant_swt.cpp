#include "tunerx/ant_swt.h"

ant_swt_block ant_swt;
std::atomic<int> ant_search_mode;

void tuner_ant_search(int count)
{
    ant_swt.counter = count;
    ant_search_mode = ANT_MODE_SEARCH;
}

void ant_switch_thread_activequeue()
{
    ant_swt.run = 1;
}

void ant_switch_thread_destroythread()
{
    ant_swt.run = 0;
    ant_swt.counter = 0;
}
