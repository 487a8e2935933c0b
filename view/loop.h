// What the server waits for beside its web connections: descriptors with a function each, and times. They lie
// behind one descriptor, which the web library waits for as for one more connection of its own.
#pragma once

#include <functional>

namespace view {

// To be called once, first. False, with errno, when there is none.
bool loop_open();

// Readable whenever loop_turn has something to do.
int loop_descriptor();

// `ready` is called in loop_turn while `fd` can be read or has hung up.
void loop_add(int fd, std::function<void()> ready);

// Forgets `fd`, which stays open. Allowed from within any such function.
void loop_drop(int fd);

// Calls what is ready; never waits.
void loop_turn();

// A time: `due` is called once, `ms` after loop_timer_set; setting it anew moves it.
struct loop_timer {
    int fd = -1;
    bool set = false;

    explicit loop_timer(std::function<void()> due);
    ~loop_timer();
    loop_timer(const loop_timer&) = delete;
    loop_timer& operator=(const loop_timer&) = delete;
};
void loop_timer_set(loop_timer& t, int ms);

// The same, unless it is set already: the first of many reasons counts.
void loop_timer_want(loop_timer& t, int ms);

} // namespace view
