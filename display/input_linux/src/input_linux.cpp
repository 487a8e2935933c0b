#include "input_linux/input_linux.h"

#include <cstdio>
#include <span>

namespace {

constexpr unsigned long EVIOCGBIT_TYPES = 0x80044520;  // EVIOCGBIT(0, 4)
constexpr unsigned long EVIOCGABS_AXIS_0 = 0x80144540; // EVIOCGABS(0)

struct axis_state {
    std::int32_t value;
    std::int32_t rest[4];
};
static_assert(sizeof(axis_state) == 20);

} // namespace

int input_open(unsigned number)
{
    char path[32];
    std::snprintf(path, sizeof path, "/dev/input/event%u", number);
    return plat_open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
}

bool input_read(int fd, input_event16* p_event)
{
    return plat_read(fd, p_event, sizeof *p_event) == sizeof *p_event;
}

bool input_types(int fd, std::uint32_t* p_types)
{
    *p_types = 0;
    return plat_ioctl(fd, EVIOCGBIT_TYPES, p_types) >= 0;
}

bool input_axis(int fd, int axis, std::int32_t* p_value)
{
    axis_state state;
    if (plat_ioctl(fd, EVIOCGABS_AXIS_0 + static_cast<unsigned long>(axis), &state) < 0)
        return false;
    *p_value = state.value;
    return true;
}

void input_set_open(input_set* p_set)
{
    while (p_set->count < INPUT_MOST_NODES) {
        const int fd = input_open(p_set->count);
        if (fd < 0)
            return;
        p_set->nodes[p_set->count++] = {fd, POLLIN, 0};
    }
}

void input_set_poll(input_set* p_set, void (*fn)(const input_event16& event))
{
    if (p_set->count == 0 || plat_poll(p_set->nodes, p_set->count, 0) <= 0)
        return;
    for (const pollfd& node : std::span(p_set->nodes, p_set->count)) {
        input_event16 event;
        if ((node.revents & POLLIN) != 0 && input_read(node.fd, &event))
            fn(event);
    }
}
