#include "view/screens.h"

#include <algorithm>
#include <cstdio>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace view {

namespace {

constexpr std::size_t message_limit = 192
                                      << 10; // small enough that a page unpacks one while the next is sent
constexpr const char* names[display_count] = {"screen0", "screen2"};
constexpr const char* slots[display_count] = {"0", "2"};

struct display {
    tiles cut{};
    bool stale = true;
    bool asked = false;
    // The phone's memory, mapped to be read.
    const std::uint8_t* memory = nullptr;
    std::size_t size = 0;
    ino_t inode = 0;
};

display displays[display_count];
std::unique_ptr<link> phone;
const std::vector<page_ref>* p_pages;

void unmap(display& d)
{
    if (d.memory != nullptr)
        munmap(const_cast<std::uint8_t*>(d.memory), d.size);
    d.memory = nullptr;
    d.size = 0;
    d.inode = 0;
}

// Maps the memory that came, unless it is mapped already.
bool map(display& d, int fd)
{
    struct stat st {};
    if (fd < 0 || fstat(fd, &st) != 0)
        return false;
    if (d.memory != nullptr && st.st_ino == d.inode && static_cast<std::size_t>(st.st_size) == d.size)
        return true;
    unmap(d);
    void* const p = mmap(nullptr, static_cast<std::size_t>(st.st_size), PROT_READ, MAP_SHARED, fd, 0);
    if (p == MAP_FAILED)
        return false;
    d.memory = static_cast<const std::uint8_t*>(p);
    d.size = static_cast<std::size_t>(st.st_size);
    d.inode = st.st_ino;
    return true;
}

// "1080x1920x32 line 4320 from 0 unblanked", checked against the memory.
bool read_shape(const display& d, const std::string& text, picture& now)
{
    unsigned line, from;
    char state[16];
    if (std::sscanf(text.c_str(), "%ux%ux%u line %u from %u %15s", &now.width, &now.height, &now.bits, &line,
                    &from, state) != 6)
        return false;
    if (now.width == 0 || now.height == 0 || now.width > 8192 || now.height > 8192 ||
        (now.bits != 16 && now.bits != 24 && now.bits != 32) ||
        line < std::size_t{now.width} * now.bits / 8 || from + std::size_t{line} * now.height > d.size)
        return false;
    now.line = line;
    now.p = std::string_view(state) == "blanked" ? nullptr : d.memory + from;
    return true;
}

bool is_free(const page& p, int i)
{
    return p.wants.contains(names[i]) && !p.unseen[i];
}

void take(int i, const link_answer& answer)
{
    display& d = displays[i];
    d.asked = false;
    picture now;
    if (!answer.done || !map(d, answer.fd) || !read_shape(d, answer.text, now))
        return;
    if (!tiles_take(d.cut, now))
        return;
    for (const page_ref& p : *p_pages)
        if (is_free(*p, i) && tiles_lacks(d.cut, p->seen[i]))
            p->wake();
}

} // namespace

void screens_open(const std::string& dir, const std::vector<page_ref>& pages)
{
    phone = std::make_unique<link>(dir, "");
    p_pages = &pages;
}

void screens_changed(std::string_view slot)
{
    for (int i = 0; i < display_count; i++)
        if (slot == slots[i])
            displays[i].stale = true;
    screens_look();
}

void screens_look_anew()
{
    for (display& d : displays)
        d.stale = true;
    screens_look();
}

void screens_renew()
{
    for (display& d : displays)
        unmap(d);
    screens_look_anew();
}

void screens_look()
{
    for (int i = 0; i < display_count; i++) {
        display& d = displays[i];
        const bool wanted = std::ranges::any_of(*p_pages, [i](const page_ref& p) { return is_free(*p, i); });
        if (!d.stale || d.asked || !wanted)
            continue;
        d.stale = false;
        d.asked = true;
        link_ask(*phone, std::string("screen share ") + slots[i], [i](link_answer& answer) {
            take(i, answer);
            screens_look();
        });
    }
}

bool screens_next(page& p, std::vector<std::uint8_t>& out)
{
    for (int i = 0; i < display_count; i++) {
        const tiles& cut = displays[i].cut;
        if (cut.number == 0 || !is_free(p, i) || !tiles_lacks(cut, p.seen[i]))
            continue;
        p.unseen[i] = tiles_next(cut, p.seen[i], static_cast<unsigned>(i), message_limit, out);
        return true;
    }
    return false;
}

} // namespace view
