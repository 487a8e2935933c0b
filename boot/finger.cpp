// hvt-finger: a finger on the panel, as an input device of the kernel's (uinput). Reads lines from the
// standard input: "down X Y", "move X Y", "up".
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int width = 720;
constexpr int height = 1280;
constexpr int pressure = 50;

int device;

bool add_axis(unsigned short code, int most)
{
    uinput_abs_setup axis{};
    axis.code = code;
    axis.absinfo.maximum = most;
    return ioctl(device, UI_ABS_SETUP, &axis) == 0;
}

bool create()
{
    device = open("/dev/uinput", O_WRONLY | O_CLOEXEC);
    uinput_setup setup{};
    setup.id.bustype = BUS_VIRTUAL;
    std::strcpy(setup.name, "finger");
    return device >= 0 && ioctl(device, UI_SET_EVBIT, EV_KEY) == 0 &&
           ioctl(device, UI_SET_KEYBIT, BTN_TOUCH) == 0 && ioctl(device, UI_SET_EVBIT, EV_ABS) == 0 &&
           add_axis(ABS_X, width - 1) && add_axis(ABS_Y, height - 1) && add_axis(ABS_PRESSURE, 255) &&
           ioctl(device, UI_DEV_SETUP, &setup) == 0 && ioctl(device, UI_DEV_CREATE) == 0;
}

void tell(unsigned short type, unsigned short code, int value)
{
    input_event event{};
    event.type = type;
    event.code = code;
    event.value = value;
    if (write(device, &event, sizeof event) != sizeof event)
        std::perror("finger");
}

void lay(int x, int y)
{
    tell(EV_ABS, ABS_X, x);
    tell(EV_ABS, ABS_Y, y);
    tell(EV_ABS, ABS_PRESSURE, pressure);
}

} // namespace

int main()
{
    if (!create()) {
        std::perror("finger");
        return 1;
    }
    char line[64];
    while (std::fgets(line, sizeof line, stdin) != nullptr) {
        int x;
        int y;
        if (std::sscanf(line, "down %d %d", &x, &y) == 2) {
            lay(x, y);
            tell(EV_KEY, BTN_TOUCH, 1);
        } else if (std::sscanf(line, "move %d %d", &x, &y) == 2) {
            lay(x, y);
        } else {
            tell(EV_ABS, ABS_PRESSURE, 0);
            tell(EV_KEY, BTN_TOUCH, 0);
        }
        tell(EV_SYN, SYN_REPORT, 0);
    }
}
