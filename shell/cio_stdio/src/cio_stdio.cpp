#include "cio_stdio/cio_stdio.h"

#include "cio_v2/cio.h"
#include "core/core.h"
#include "plat/plat.h"

#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <cctype>
#include <cstdio>
#include <memory>

namespace {

constexpr int STDIN = 0;

struct cio_stdio {
    cio_dev_obj obj;
    bool open;
    termios saved;
    core_rd_cb_client rd_client;
};

bool cio_stdio_used;

cio_stdio* self(cio_dev_obj* p_obj)
{
    return reinterpret_cast<cio_stdio*>(p_obj);
}

int stdio_open(cio_dev_obj* p_obj)
{
    cio_stdio* p_me = self(p_obj);
    if (p_me->open || cio_stdio_used)
        return -1;
    // Where standard input is no terminal there is nothing to set.
    if (plat_ioctl(STDIN, TCGETS, &p_me->saved) == 0) {
        termios tio = p_me->saved;
        tio.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
        tio.c_cc[VMIN] = 0;
        tio.c_cc[VTIME] = 0;
        plat_ioctl(STDIN, TCSETS, &tio);
    }
    p_me->open = cio_stdio_used = true;
    p_me->rd_client.fd = STDIN;
    p_me->rd_client.fn = p_obj->rd_cb;
    p_me->rd_client.p1 = p_obj->p_owner;
    p_me->rd_client.p2 = nullptr;
    core_add_rd_cb_client(&p_me->rd_client);
    return 0;
}

// Writes a text up to its NUL, whatever `len` says.
int stdio_wr(cio_dev_obj*, const void* buf, std::size_t len)
{
    for (const char* p = static_cast<const char*>(buf); *p; p++)
        std::putchar(*p);
    return static_cast<int>(len);
}

int stdio_rd(cio_dev_obj* p_obj, void* buf, std::size_t len)
{
    const ssize_t got = plat_read(STDIN, buf, len);
    if (got <= 0) {
        // Input that can be read but gives nothing has ended, and would keep the loop busy for good.
        core_rm_rd_cb_client(&self(p_obj)->rd_client);
        return 0;
    }
    const auto* p_in = static_cast<const unsigned char*>(buf);
    for (ssize_t i = 0; i < got; i++)
        if (std::isgraph(p_in[i]))
            std::putchar(p_in[i]);
    return static_cast<int>(got);
}

void stdio_close(cio_dev_obj*) {}

// The console keeps its device for the life of the process.
cio_dev_obj* cio_stdio_create(const void*)
{
    auto p_me = std::make_unique<cio_stdio>();
    p_me->obj = {stdio_open, stdio_wr, stdio_rd, stdio_close, nullptr, nullptr};
    return &p_me.release()->obj;
}

cio_dev cio_stdio_dev = {{nullptr}, "stdio", cio_stdio_create};

} // namespace

void cio_stdio_init()
{
    cio_dev_reg(&cio_stdio_dev);
}
