#include "cio_tty/cio_tty.h"

#include "cio_v2/cio.h"
#include "core/core.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <memory>
#include <mutex>

namespace {

constexpr int OPEN_FLAGS = O_RDWR | O_NOCTTY | O_NONBLOCK;
constexpr std::uint32_t SPEED_BITS = CBAUD;
constexpr std::uint32_t REOPEN_PAUSE_US = 1000;

struct cio_tty {
    cio_dev_obj obj;
    const cio_tty_config* p_cfg;
    std::mutex fd_mutex; // the loop's thread alone changes fd; other threads write
    int fd;              // -1 when closed
    termios tio;
    core_rd_cb_client rd_client;
};

cio_tty* self(cio_dev_obj* p_obj)
{
    return reinterpret_cast<cio_tty*>(p_obj);
}

void set_fd(cio_tty* p_me, int fd)
{
    const std::lock_guard lock(p_me->fd_mutex);
    p_me->fd = fd;
}

int set_up(cio_tty* p_me)
{
    if (plat_ioctl(p_me->fd, TCGETS, &p_me->tio) < 0)
        return -1;
    if (p_me->p_cfg->speed)
        p_me->tio.c_cflag = (p_me->tio.c_cflag & ~SPEED_BITS) | (p_me->p_cfg->speed & SPEED_BITS);
    p_me->tio.c_iflag &= ~static_cast<tcflag_t>(ICRNL | IXON | IXOFF);
    p_me->tio.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    p_me->tio.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | ISIG);
    return plat_ioctl(p_me->fd, TCSETSW, &p_me->tio) < 0 ? -1 : 0;
}

void listen(cio_tty* p_me)
{
    p_me->rd_client.fd = p_me->fd;
    p_me->rd_client.fn = p_me->obj.rd_cb;
    p_me->rd_client.p1 = p_me->obj.p_owner;
    p_me->rd_client.p2 = nullptr;
    core_add_rd_cb_client(&p_me->rd_client);
}

int tty_open(cio_dev_obj* p_obj)
{
    cio_tty* p_me = self(p_obj);
    if (p_me->fd >= 0)
        return -1;
    p_me->fd = plat_open(p_me->p_cfg->path, OPEN_FLAGS);
    if (p_me->fd < 0)
        return -1;
    if (set_up(p_me) < 0) {
        plat_close(p_me->fd);
        p_me->fd = -1;
        return -1;
    }
    listen(p_me);
    return 0;
}

int tty_wr(cio_dev_obj* p_obj, const void* buf, std::size_t len)
{
    cio_tty* p_me = self(p_obj);
    const std::lock_guard lock(p_me->fd_mutex);
    const ssize_t taken = plat_write(p_me->fd, buf, len);
    return taken < 0 ? 0 : static_cast<int>(taken);
}

// The cable is out. Nothing else can reach the console, so the loop waits here until the port is back.
void reopen(cio_tty* p_me)
{
    const int closed = p_me->fd;
    set_fd(p_me, -1);
    plat_close(closed);
    core_rm_rd_cb_client(&p_me->rd_client);
    int fd;
    while ((fd = plat_open(p_me->p_cfg->path, OPEN_FLAGS)) <= 0)
        tmr_usleep(REOPEN_PAUSE_US);
    set_fd(p_me, fd);
    listen(p_me);
    plat_ioctl(p_me->fd, TCSETSW, &p_me->tio);
}

int tty_rd(cio_dev_obj* p_obj, void* buf, std::size_t len)
{
    cio_tty* p_me = self(p_obj);
    const ssize_t got = plat_read(p_me->fd, buf, len);
    if (got > 0)
        return static_cast<int>(got);
    reopen(p_me);
    return 0;
}

void tty_close(cio_dev_obj* p_obj)
{
    cio_tty* p_me = self(p_obj);
    if (p_me->fd > 0)
        plat_close(p_me->fd);
    p_me->fd = -1;
}

// The console keeps its device for the life of the process.
cio_dev_obj* cio_tty_create(const void* p_cfg)
{
    auto p_me = std::make_unique<cio_tty>();
    p_me->obj = {tty_open, tty_wr, tty_rd, tty_close, nullptr, nullptr};
    p_me->p_cfg = static_cast<const cio_tty_config*>(p_cfg);
    p_me->fd = -1;
    return &p_me.release()->obj;
}

cio_dev cio_tty_dev = {{nullptr}, "tty", cio_tty_create};

} // namespace

void cio_tty_init()
{
    cio_dev_reg(&cio_tty_dev);
}
