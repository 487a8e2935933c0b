#include "tunerx/tunerx_hwl.h"

#include <cstdio>
#include <cstring>

#include "plat/plat.h"
#include "tunerx/ant_swt.h"
#include "tunerx/tunerx.h"

namespace {

enum { POWER_CTRL, ANT_CTRL, TUNER_IRQ, BUS, TUNER_IRQ_CTRL, NODES };

struct node_row {
    const char* path;
    int flags;
};

// clang-format off
constexpr node_row nodes[NODES] = {
    { "/sys/devices/platform/mmtuner_pdev.0/power_ctrl",     O_WRONLY },
    { "/sys/devices/platform/mmtuner_pdev.0/ant_ctrl",       O_WRONLY },
    { "/sys/devices/platform/mmtuner_pdev.0/tuner_irq",      O_RDWR   },
    { "/dev/i2c-4",                                          O_RDWR   },
    { "/sys/devices/platform/mmtuner_pdev.0/tuner_irq_ctrl", O_WRONLY },
};
// clang-format on

constexpr int WRITE_TRIES = 10;

int device_fd = -1;
int node_fd[NODES] = {-1, -1, -1, -1, -1};

void close_fd(int& fd)
{
    if (fd >= 0)
        plat_close(fd);
    fd = -1;
}

void close_nodes()
{
    for (int& fd : node_fd)
        close_fd(fd);
}

int tuner_hal_attrretry(int fd, long value)
{
    char text[16];
    std::snprintf(text, sizeof text, "%ld", value);
    for (int turn = 0; turn < WRITE_TRIES; turn++)
        if (plat_write(fd, text, std::strlen(text)) != -1)
            return TUNERX_OK;
    return TUNERX_DEVICE;
}

int put_attribute(int which, long value)
{
    const int rc = tunerx_hwl_if_init();
    return rc == TUNERX_OK ? tuner_hal_attrretry(node_fd[which], value) : rc;
}

} // namespace

int tunerx_hwl_device_open()
{
    if ((tunXParams.state & TUNER_POWERED) == 0)
        return TUNERX_WRONG_STATE;
    if (device_fd < 0)
        device_fd = plat_open("/dev/mmtuner", O_RDWR | O_CLOEXEC);
    if (device_fd < 0)
        return TUNERX_DEVICE;
    tunXParams.state = TUNER_OPEN;
    return TUNERX_OK;
}

void tunerx_hwl_device_close()
{
    close_fd(device_fd);
    close_nodes();
    tunXParams.state = TUNER_POWERED;
}

int tunerx_hwl_if_init()
{
    for (int i = 0; i < NODES; i++) {
        if (node_fd[i] < 0)
            node_fd[i] = plat_open(nodes[i].path, nodes[i].flags | O_CLOEXEC);
        if (node_fd[i] < 0) {
            close_nodes();
            return TUNERX_DEVICE;
        }
    }
    return TUNERX_OK;
}

int tunerx_hwl_terminate()
{
    ant_switch_thread_destroythread();
    const int rc = put_attribute(POWER_CTRL, 1);
    tunXParams.state = TUNER_OPEN;
    return rc;
}

int tunerx_hwl_ctl_power(int action)
{
    if (action != 0)
        return TUNERX_BAD_ARGUMENT;
    tunerx_hwl_device_close();
    tunXParams.state = TUNER_OFF;
    return TUNERX_OK;
}

int tunerx_hwl_put_antenna(long ant)
{
    return put_attribute(ANT_CTRL, ant);
}
