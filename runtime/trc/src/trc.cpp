#include "trc/trc.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <mutex>

#include "check/check.h"
#include "tmr/tmr.h"
#include "trc_out.h"

namespace {

constexpr std::uint32_t MASK_DEFAULT = 0x0B;
constexpr std::size_t LINE_BYTES = 1024;
constexpr int MOST_LINE = 1022; // an LF and a NUL still fit behind it

constexpr std::size_t ROW_BYTES = 16; // of a dump

dlnk trc_lnk = {&trc_lnk, &trc_lnk};
std::uint32_t trc_mask = MASK_DEFAULT;

std::mutex trc_mutex; // one line, and the destination
std::array<char, LINE_BYTES> trc_buf;

using locked = std::lock_guard<std::mutex>;

trc_node* node_of(dlnk* p_lnk)
{
    return reinterpret_cast<trc_node*>(p_lnk);
}

bool is_wanted(const trc_node* p_obj, std::uint32_t mask)
{
    HVT_CHECK(p_obj->p_client != nullptr);
    return (p_obj->p_client->mask & mask) != 0;
}

// `value` in at least `width` characters, `fill` in front; gives where it ends.
char* put_number(char* p, std::uint64_t value, int width, char fill)
{
    char digits[20];
    int n = 0;
    do
        digits[n++] = static_cast<char>('0' + value % 10);
    while ((value /= 10) != 0);
    for (; width > n; width--)
        *p++ = fill;
    while (n > 0)
        *p++ = digits[--n];
    return p;
}

// How much of a text of `len` characters, as printf counts it, stands in a buffer with `room` for it.
std::size_t kept(int len, std::size_t room)
{
    return std::min(static_cast<std::size_t>(std::max(len, 0)), room - 1);
}

// Nearly every line has this head, so it is put together by hand: "[   12.000345] name: ".
std::size_t put_time_head(std::uint64_t now_us, const char* name)
{
    char* p = trc_buf.data();
    *p++ = '[';
    p = put_number(p, now_us / 1'000'000, 5, ' ');
    *p++ = '.';
    p = put_number(p, now_us % 1'000'000, 6, '0');
    p = std::copy_n("] ", 2, p);
    const auto room = static_cast<std::size_t>(trc_buf.data() + LINE_BYTES - p) - sizeof ": ";
    p = std::copy_n(name, strnlen(name, room), p);
    p = std::copy_n(": ", 2, p);
    return static_cast<std::size_t>(p - trc_buf.data());
}

// Begins the line; gives its length.
std::size_t put_head(const trc_node& obj, std::uint32_t mask, std::uint64_t now_us, const char* file,
                     int line)
{
    if ((mask & TRC_ERROR) != 0)
        return kept(std::snprintf(trc_buf.data(), LINE_BYTES, "%s:%d: error ", file, line), LINE_BYTES);
    if ((mask & TRC_KMSG) != 0 || trc_out_mode() == TRC_MODE_KMSG)
        return kept(std::snprintf(trc_buf.data(), LINE_BYTES, "QAT: %s: ", obj.p_client->name), LINE_BYTES);
    return put_time_head(now_us, obj.p_client->name);
}

// Ends the line of `len` characters with an LF and a NUL; gives its length.
int end_line(int len)
{
    char* const p_end = trc_buf.data() + len;
    if (p_end > trc_buf.data() && p_end[-1] == '\n') {
        *p_end = '\0';
        return len;
    }
    p_end[0] = '\n';
    p_end[1] = '\0';
    return len + 1;
}

// Apart from trc_trace, so that a line which is kept back doesn't pay for its registers.
__attribute__((noinline, format(printf, 5, 0))) int
trace_line(const trc_node& obj, std::uint32_t mask, const char* file, int line, const char* fmt, va_list args)
{
    const std::uint64_t now_us = tmr_get64();
    const locked lock(trc_mutex);
    const std::size_t head = put_head(obj, mask, now_us, file, line);
    const std::size_t room = LINE_BYTES - head;
    const std::size_t text = kept(std::vsnprintf(trc_buf.data() + head, room, fmt, args), room);
    const int len = end_line(std::min(static_cast<int>(head + text), MOST_LINE));
    trc_out_line(mask, trc_buf.data(), len);
    return len;
}

// One row of a dump: the offset, the bytes, and those of them that are characters.
int put_row(std::size_t offset, const std::uint8_t* p_bytes, std::size_t count)
{
    char* p = trc_buf.data();
    p += std::sprintf(p, "0x%08x:", static_cast<unsigned>(offset));
    for (std::size_t i = 0; i < ROW_BYTES; i++)
        p += i < count ? std::sprintf(p, " %02x", p_bytes[i]) : std::sprintf(p, "   ");
    *p++ = ' ';
    for (std::size_t i = 0; i < count; i++)
        *p++ = p_bytes[i] > ' ' && p_bytes[i] <= '~' ? static_cast<char>(p_bytes[i]) : '.';
    return end_line(static_cast<int>(p - trc_buf.data()));
}

} // namespace

void trc_init(char* p_buf, std::size_t size)
{
    {
        const locked lock(trc_mutex);
        dlnk_init(&trc_lnk);
        trc_out_reset(p_buf, size);
    }
    trc_mode_set(TRC_MODE_FILE);
}

void trc_start() {}

void trc_cmd_init() {}

int trc_poll()
{
    return 0;
}

int trc_pref_get()
{
    return 0;
}

void trc_reg(trc_client* p_client, trc_node* p_obj)
{
    HVT_CHECK(p_obj->p_client == nullptr);
    dlnk_insert(&trc_lnk, &p_obj->link);
    p_obj->p_client = p_client;
    p_client->mask &= trc_mask;
}

void trc_dereg(trc_node* p_obj)
{
    dlnk_remove(&p_obj->link);
    p_obj->p_client = nullptr;
}

dlnk* trc_client_list()
{
    return &trc_lnk;
}

std::uint32_t trc_mask_filter(std::uint32_t mask)
{
    const std::uint32_t old = trc_mask;
    trc_mask = mask;
    return old;
}

std::uint32_t trc_mask_filter_all(std::uint32_t mask)
{
    for (char letter = 'a'; letter <= 'z'; letter++) {
        const char prefix[] = {letter, '\0'};
        trc_do_set(nullptr, &trc_lnk, prefix, mask);
    }
    return trc_mask_filter(mask);
}

void trc_do_set(void*, const dlnk* p_head, const char* name_prefix, std::uint32_t mask)
{
    for (dlnk* p = dlnk_next(p_head); p != p_head; p = dlnk_next(p))
        if (std::strncmp(node_of(p)->p_client->name, name_prefix, std::strlen(name_prefix)) == 0)
            node_of(p)->p_client->mask = mask;
}

void trc_mode_set(unsigned mode)
{
    HVT_CHECK(mode <= TRC_MODE_LAST);
    const locked lock(trc_mutex);
    trc_out_mode_set(mode);
}

unsigned trc_mode_get()
{
    const locked lock(trc_mutex);
    return trc_out_mode();
}

int trc_trace(trc_node* p_obj, std::uint32_t mask, const char* file, int line, const char* fmt, ...)
{
    if (!is_wanted(p_obj, mask)) [[likely]]
        return 0;
    va_list args;
    va_start(args, fmt);
    const int len = trace_line(*p_obj, mask, file, line, fmt, args);
    va_end(args);
    return len;
}

void trc_trace_binary(trc_node* p_obj, std::uint32_t mask, const void* p_data, std::size_t size)
{
    if (!is_wanted(p_obj, mask))
        return;
    const auto* const p_bytes = static_cast<const std::uint8_t*>(p_data);
    const locked lock(trc_mutex);
    for (std::size_t at = 0; at < size; at += ROW_BYTES)
        trc_out_line(mask, trc_buf.data(), put_row(at, p_bytes + at, std::min(size - at, ROW_BYTES)));
}

void trc_get_buf_sz(std::size_t* p_used, std::size_t* p_free)
{
    const locked lock(trc_mutex);
    trc_out_buf_sz(p_used, p_free);
}

void trc_clear_buf()
{
    const locked lock(trc_mutex);
    trc_out_buf_clear();
}
