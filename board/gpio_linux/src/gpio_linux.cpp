#include "gpio_linux/gpio_linux.h"

#include <cstdint>
#include <cstdio>

#include "pin/pin.h"
#include "plat/plat.h"

namespace {

constexpr unsigned PIN_RES_SIZE = 512;
constexpr std::size_t CFG_WRITE = 9;
constexpr std::size_t CFG_READ = 6;

std::uint8_t pin_res[PIN_RES_SIZE];
pin_driver gpio_hnd;

// Opens the node of line `n` at its beginning: a descriptor, or -1.
int gpio_open(unsigned n)
{
    char path[32];
    std::snprintf(path, sizeof path, "/dev/gpio%u", n);
    const int fd = plat_open(path, O_RDWR | O_CLOEXEC);
    if (fd >= 0)
        plat_lseek(fd, 0, SEEK_SET);
    return fd;
}

bool gpio_write(unsigned n, const char* buf, std::size_t size)
{
    const int fd = gpio_open(n);
    if (fd < 0)
        return false;
    const ssize_t done = plat_write(fd, buf, size);
    plat_close(fd);
    return done == static_cast<ssize_t>(size);
}

bool gpio_read(unsigned n, char* buf, std::size_t size)
{
    const int fd = gpio_open(n);
    if (fd < 0)
        return false;
    const ssize_t done = plat_read(fd, buf, size);
    plat_close(fd);
    return done == static_cast<ssize_t>(size);
}

int gpio_chg_fn(pin_driver*, unsigned pin, int op, unsigned)
{
    if (op == 2 || op == 3)
        return gpio_linux_rd(pin);
    return gpio_linux_set(pin, op) != 0 ? op : -1;
}

std::uint8_t* gpio_res_fn(pin_driver*)
{
    return pin_res;
}

constexpr pin_fn gpio_pin_fn = {
    .chg = gpio_chg_fn,
    .evt = nullptr, // the lines can be asked and don't report
    .res = gpio_res_fn,
};

} // namespace

void gpio_linux_init(int grp)
{
    pin_install(&gpio_hnd, grp, &gpio_pin_fn, PIN_RES_SIZE);
}

int gpio_linux_rd(unsigned n)
{
    char level;
    if (!gpio_read(n, &level, 1))
        return PIN_LEVEL_FAILED;
    return level == '0' ? 0 : level == '1' ? 1 : PIN_LEVEL_UNKNOWN;
}

int gpio_linux_set(unsigned n, int level)
{
    if (level != 0 && level != 1)
        return 1;
    return gpio_write(n, level == 0 ? "0" : "1", 1) ? 1 : 0;
}

int gpio_linux_dir(unsigned n, int dir)
{
    return gpio_write(n, dir == 0 ? "I" : "O", 1) ? 1 : 0;
}

int gpio_linux_cfg(unsigned n, const char* buf)
{
    return gpio_write(n, buf, CFG_WRITE) ? 1 : 0;
}

int gpio_linux_cfgr(unsigned n, char* buf)
{
    return gpio_read(n, buf, CFG_READ) ? 0 : 1;
}
