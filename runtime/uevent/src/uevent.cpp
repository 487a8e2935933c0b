#include "uevent/uevent.h"

#include "core/core.h"
#include "plat/plat.h"

#include <cstring>

namespace {

constexpr std::size_t MAX_MESSAGE = 1024;
constexpr int MAX_FIELDS = 10;

slnk uevent_clients;
core_rd_cb_client uevent_rd;

// The next message: its size, 0 or less when there is none. `*p_believed` says whether it comes from the
// kernel and is whole.
ssize_t receive(char* buf, bool* p_believed)
{
    std::uint32_t sender = 0;
    ucred cred{};
    const ssize_t got = plat_uevent_recv(uevent_rd.fd, buf, MAX_MESSAGE, &sender, &cred);
    *p_believed = sender == 0 && cred.uid == 0 && got < static_cast<ssize_t>(MAX_MESSAGE);
    return got;
}

// Collects the strings behind the first one; empty ones don't count. `buf` ends with two NULs behind `size`.
int uevent_parse(const char* buf, std::size_t size, const char** fields)
{
    int count = 0;
    for (const char* p = buf + std::strlen(buf) + 1; p < buf + size && count < MAX_FIELDS;
         p += std::strlen(p) + 1)
        if (*p)
            fields[count++] = p;
    return count;
}

void uevent_callback(void*, void*)
{
    char buf[MAX_MESSAGE + 2];
    bool believed;
    for (ssize_t got; (got = receive(buf, &believed)) > 0;) {
        if (!believed)
            continue;
        const auto size = static_cast<std::size_t>(got);
        buf[size] = buf[size + 1] = 0;
        const char* fields[MAX_FIELDS];
        const int count = uevent_parse(buf, size, fields);
        for (slnk* p = slnk_next(&uevent_clients); p; p = slnk_next(p)) {
            const auto* p_client = reinterpret_cast<uevent_client*>(p);
            if (std::strstr(buf, p_client->match))
                p_client->cb(count, fields);
        }
    }
}

} // namespace

void uevent_init()
{
    slnk_init(&uevent_clients);
    const int fd = plat_uevent_open();
    if (fd < 0)
        return;
    const int flags = plat_fcntl(fd, F_GETFL);
    if (flags < 0 || plat_fcntl(fd, F_SETFL, flags | O_NONBLOCK) < 0) {
        plat_close(fd); // a socket that blocks would hold up the loop
        return;
    }
    uevent_rd = {{nullptr}, fd, uevent_callback, nullptr, nullptr};
    core_add_rd_cb_client(&uevent_rd);
}

void uevent_reg(uevent_client* p_client)
{
    slnk_add(&uevent_clients, &p_client->link);
}
