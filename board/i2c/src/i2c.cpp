#include "i2c/i2c.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>

#include "check/check.h"
#include "plat/plat.h"

namespace {

const i2c_cfg_row* i2c_tab;

const i2c_cfg_row* find(const char* name)
{
    HVT_CHECK(i2c_tab != nullptr);
    for (const i2c_cfg_row* p_row = i2c_tab; p_row->name != nullptr; p_row++)
        if (std::strcmp(p_row->name, name) == 0)
            return p_row;
    return nullptr;
}

i2c_msg message(const i2c_handle* p_hnd, unsigned flags, void* p_buf, std::size_t len)
{
    i2c_msg msg{};
    msg.addr = p_hnd->addr;
    msg.flags = static_cast<std::uint16_t>(flags);
    msg.len = static_cast<std::uint16_t>(len);
    msg.buf = static_cast<std::uint8_t*>(p_buf);
    return msg;
}

int transfer(const i2c_handle* p_hnd, i2c_msg* p_msgs, unsigned count)
{
    i2c_rdwr_ioctl_data data{p_msgs, count};
    return plat_ioctl(p_hnd->fd, I2C_RDWR, &data);
}

bool too_long(std::size_t len)
{
    if (len <= UINT16_MAX)
        return false;
    errno = EINVAL;
    return true;
}

} // namespace

void i2c_init()
{
    i2c_tab = nullptr;
}

void i2c_cfg(const i2c_cfg_row* p_tab)
{
    i2c_tab = p_tab;
}

int i2c_open(i2c_handle* p_hnd, const char* name, unsigned port, unsigned addr)
{
    p_hnd->fd = -1;
    if (name != nullptr) {
        const i2c_cfg_row* const p_row = find(name);
        if (p_row == nullptr)
            return -1;
        port = p_row->port;
        addr = addr != 0 ? addr : p_row->addr;
    }
    if (port > UINT8_MAX || addr > UINT16_MAX)
        return -1;
    char path[32];
    std::snprintf(path, sizeof path, "/dev/i2c-%u", port);
    const int fd = plat_open(path, O_RDWR | O_CLOEXEC);
    if (fd < 0)
        return -1;
    // A bus that doesn't know these two works with its own.
    plat_ioctl(fd, I2C_TIMEOUT, reinterpret_cast<void*>(2));
    plat_ioctl(fd, I2C_RETRIES, reinterpret_cast<void*>(1));
    *p_hnd = {static_cast<std::uint8_t>(port), static_cast<std::uint16_t>(addr), fd};
    return 0;
}

void i2c_close(i2c_handle* p_hnd)
{
    if (p_hnd->fd >= 0)
        plat_close(p_hnd->fd);
    p_hnd->fd = -1;
}

int i2c_write(const i2c_handle* p_hnd, const void* p_buf, std::size_t len)
{
    if (too_long(len))
        return -1;
    i2c_msg msg = message(p_hnd, 0, const_cast<void*>(p_buf), len);
    return transfer(p_hnd, &msg, 1);
}

int i2c_read(const i2c_handle* p_hnd, void* p_buf, std::size_t len)
{
    if (too_long(len))
        return -1;
    i2c_msg msg = message(p_hnd, I2C_M_RD, p_buf, len);
    return transfer(p_hnd, &msg, 1);
}

int i2c_write_reg8(const i2c_handle* p_hnd, std::uint8_t reg, std::uint8_t val)
{
    const std::uint8_t bytes[] = {reg, val};
    return i2c_write(p_hnd, bytes, sizeof bytes);
}

int i2c_read_reg8(const i2c_handle* p_hnd, std::uint8_t reg, std::uint8_t* p_val)
{
    return i2c_read_regs(p_hnd, reg, p_val, 1);
}

int i2c_read_regs(const i2c_handle* p_hnd, std::uint8_t reg, void* p_buf, std::size_t len)
{
    if (too_long(len))
        return -1;
    i2c_msg msgs[] = {message(p_hnd, 0, &reg, 1), message(p_hnd, I2C_M_RD, p_buf, len)};
    return transfer(p_hnd, msgs, 2);
}
