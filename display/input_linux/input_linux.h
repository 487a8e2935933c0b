// The kernel's input devices, /dev/input/event0 and up: opens them, reads their events, asks what they have
// and where their axes are. Each reader has descriptors of its own and gets every event. Not for what an
// event means: that is known by `kbd` and the touch driver, which stand on this. Keeps no state.
#pragma once

#include <cstdint>

#include "input_linux/codes.h"
#include "plat/plat.h"

constexpr unsigned INPUT_MOST_NODES = 16;

// An event as the phone's kernel writes it.
struct input_event16 {
    std::uint32_t sec;
    std::uint32_t usec;
    std::uint16_t type;
    std::uint16_t code;
    std::int32_t value;
};
static_assert(sizeof(input_event16) == 16);

// Device `number`, opened for reading without waiting; -1 when there is none.
int input_open(unsigned number);

// The next event of a device; false when there is none.
bool input_read(int fd, input_event16* p_event);

// Which types of events a device has: a bit for each, 1 << INPUT_KEY and so on. False when it doesn't tell.
bool input_types(int fd, std::uint32_t* p_types);

// Where an axis is now. False when the device doesn't tell.
bool input_axis(int fd, int axis, std::int32_t* p_value);

// All devices of the phone, in the order of their numbers. Static storage of the reader; one thread.
struct input_set {
    pollfd nodes[INPUT_MOST_NODES];
    unsigned count;
};

// Takes in the devices that aren't in the set yet, up to the first that isn't there: those that turn up later
// are taken in by a later call.
void input_set_open(input_set* p_set);

// Hands one event of each device that has some to `fn`. Doesn't wait.
void input_set_poll(input_set* p_set, void (*fn)(const input_event16& event));
