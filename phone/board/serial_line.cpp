#include "board/serial_line.h"

#include <algorithm>
#include <array>
#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <cerrno>
#include <cstring>
#include <deque>
#include <fcntl.h>
#include <iterator>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <sys/eventfd.h>
#include <unistd.h>
#include <vector>

#include "core/files.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr nanoseconds ns_per_s = 1'000'000'000;
constexpr int bits_a_byte = 10;
constexpr std::size_t room = 4096; // each way
constexpr int all_are_out = 1;     // the line status of TIOCSERGETLSR

static_assert(sizeof(struct termios) == 36); // what crosses the request, not the C library's

struct speed_row {
    unsigned code;
    int speed;
};

// clang-format off
constexpr speed_row speeds[] = {
    { B50,      50 },      { B75,      75 },      { B110,     110 },     { B134,     134 },
    { B150,     150 },     { B200,     200 },     { B300,     300 },     { B600,     600 },
    { B1200,    1200 },    { B1800,    1800 },    { B2400,    2400 },    { B4800,    4800 },
    { B9600,    9600 },    { B19200,   19200 },   { B38400,   38400 },   { B57600,   57600 },
    { B115200,  115200 },  { B230400,  230400 },  { B460800,  460800 },  { B500000,  500000 },
    { B576000,  576000 },  { B921600,  921600 },  { B1000000, 1000000 }, { B1152000, 1152000 },
    { B1500000, 1500000 }, { B2000000, 2000000 }, { B2500000, 2500000 }, { B3000000, 3000000 },
    { B3500000, 3500000 }, { B4000000, 4000000 },
};
// clang-format on

// What a driver makes of a port that nobody has set up.
constexpr struct termios settings_at_start = {
    .c_iflag = ICRNL | IXON,
    .c_oflag = OPOST | ONLCR,
    .c_cflag = B9600 | CS8 | CREAD | HUPCL,
    .c_lflag = ISIG | ICANON | ECHO | ECHOE | ECHOK | ECHOCTL | ECHOKE | IEXTEN,
    .c_line = 0,
    .c_cc = {3, 28, 127, 21, 4, 0, 1, 0, 17, 19, 26, 0, 18, 15, 23, 22, 0, 0, 0},
};

// Bytes of one write that aren't out yet.
struct write_part {
    std::vector<std::uint8_t> bytes;
    std::size_t out;   // so many of them are
    nanoseconds start; // of the first byte
    nanoseconds byte;
    int speed;

    nanoseconds end() const { return start + byte * static_cast<nanoseconds>(bytes.size()); }
};

struct serial_line {
    const serial_model* p_model;
    std::recursive_mutex order; // held while `sent` is told, so that bytes stay in their order
    std::mutex mutex;           // guards all below
    struct termios settings = settings_at_start;
    std::deque<write_part> to_send;
    std::deque<std::uint8_t> received;
    std::vector<int> readers; // the open descriptors: eventfds, which can be read while bytes are there
    int timer = 0;
};

std::map<std::string, std::unique_ptr<serial_line>, std::less<>> lines; // written before the program runs

serial_line& line_of(std::string_view path)
{
    return *lines.find(path)->second;
}

int speed_of(const struct termios& settings)
{
    const auto found = std::ranges::find(speeds, settings.c_cflag & CBAUD, &speed_row::code);
    return found != std::end(speeds) ? found->speed : 9600; // also a line that was hung up has a clock
}

std::size_t waiting_locked(const serial_line& line)
{
    std::size_t n = 0;
    for (const write_part& part : line.to_send)
        n += part.bytes.size() - part.out;
    return n;
}

// So many bytes a reading, or a look for input, waits for. Those with VMIN and a VTIME take what there is:
// the line has no time between two bytes.
std::size_t least_locked(const serial_line& line)
{
    const bool counted = line.settings.c_cc[VMIN] > 0 && line.settings.c_cc[VTIME] == 0;
    return counted ? line.settings.c_cc[VMIN] : 1;
}

// Makes each descriptor readable, or not.
void show_locked(const serial_line& line)
{
    const bool readable = line.received.size() >= least_locked(line);
    for (const int fd : line.readers) {
        std::uint64_t count = 1;
        [[maybe_unused]] const ssize_t n =
            readable ? ::write(fd, &count, sizeof count) : ::read(fd, &count, sizeof count);
    }
}

// Takes what is out of the first write into `bytes`; false when that is nothing.
bool take_out_locked(serial_line& line, nanoseconds now, std::vector<std::uint8_t>& bytes,
                     serial_burst& burst)
{
    if (line.to_send.empty())
        return false;
    write_part& part = line.to_send.front();
    const std::size_t out =
        now <= part.start
            ? 0
            : std::min(static_cast<std::size_t>((now - part.start) / part.byte), part.bytes.size());
    if (out == part.out)
        return false;
    bytes.assign(part.bytes.begin() + static_cast<std::ptrdiff_t>(part.out),
                 part.bytes.begin() + static_cast<std::ptrdiff_t>(out));
    burst = {bytes, part.start + part.byte * static_cast<nanoseconds>(out), part.byte, part.speed};
    part.out = out;
    if (part.out == part.bytes.size())
        line.to_send.pop_front();
    return true;
}

void update(serial_line& line)
{
    const std::lock_guard order(line.order);
    const nanoseconds now = clock_now(CLOCK_MONOTONIC);
    for (;;) {
        std::vector<std::uint8_t> bytes;
        serial_burst burst{};
        {
            const std::lock_guard lock(line.mutex);
            if (!take_out_locked(line, now, bytes, burst)) {
                if (!line.to_send.empty())
                    clock_timer_set(line.timer, std::max<nanoseconds>(line.to_send.front().end() - now, 1),
                                    0);
                return;
            }
        }
        line.p_model->sent(burst);
    }
}

// Blocks until no more than `most` bytes are to be sent.
void wait_for_room(serial_line& line, std::size_t most)
{
    for (;;) {
        update(line);
        nanoseconds end;
        {
            const std::lock_guard lock(line.mutex);
            if (waiting_locked(line) <= most)
                return;
            end = line.to_send.front().end();
        }
        clock_sleep_until(end);
    }
}

void hold_output(serial_line& line, std::span<const std::uint8_t> bytes)
{
    const std::lock_guard lock(line.mutex);
    const int speed = speed_of(line.settings);
    const nanoseconds now = clock_now(CLOCK_MONOTONIC);
    const nanoseconds start = line.to_send.empty() ? now : std::max(now, line.to_send.back().end());
    line.to_send.push_back({{bytes.begin(), bytes.end()}, 0, start, ns_per_s * bits_a_byte / speed, speed});
    if (line.timer == 0)
        line.timer = clock_timer_create([&line] { update(line); });
    if (line.to_send.size() == 1)
        clock_timer_set(line.timer, line.to_send.front().end() - now, 0);
}

bool may_block(const open_file& file)
{
    return (*static_cast<int*>(file.data.get()) & O_NONBLOCK) == 0;
}

int serial_open(open_file& file, int flags)
{
    serial_line& line = line_of(file.path);
    const int fd = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (fd < 0)
        return -1;
    file.data = std::make_shared<int>(flags);
    const std::lock_guard lock(line.mutex);
    line.readers.push_back(fd);
    show_locked(line);
    return fd;
}

void serial_close(open_file& file)
{
    serial_line& line = line_of(file.path);
    const std::lock_guard lock(line.mutex);
    std::erase(line.readers, file.fd);
}

// Bytes that are there, at most `size`, if there are at least `least`.
std::size_t take_received(serial_line& line, std::uint8_t* p, std::size_t size, std::size_t least)
{
    const std::lock_guard lock(line.mutex);
    if (line.received.size() < least)
        return 0;
    const std::size_t n = std::min(size, line.received.size());
    std::copy_n(line.received.begin(), n, p);
    line.received.erase(line.received.begin(), line.received.begin() + static_cast<std::ptrdiff_t>(n));
    show_locked(line);
    return n;
}

// Until when a reading of the line waits that begins at `now`.
nanoseconds wait_end_locked(const serial_line& line, nanoseconds now)
{
    return line.settings.c_cc[VMIN] > 0 ? forever : now + line.settings.c_cc[VTIME] * (ns_per_s / 10);
}

ssize_t serial_read(open_file& file, void* buf, std::size_t size)
{
    serial_line& line = line_of(file.path);
    update(line);
    if (line.p_model->before_read != nullptr)
        line.p_model->before_read();
    if (size == 0)
        return 0;
    nanoseconds now = clock_now(CLOCK_MONOTONIC);
    nanoseconds end;
    std::size_t least;
    {
        const std::lock_guard lock(line.mutex);
        end = wait_end_locked(line, now);
        least = may_block(file) ? std::min(least_locked(line), size) : 1;
    }
    const bool at_once = end == now;
    for (;; now = clock_now(CLOCK_MONOTONIC)) {
        const std::size_t n = take_received(line, static_cast<std::uint8_t*>(buf), size, least);
        if (n > 0 || at_once || (may_block(file) && now >= end))
            return static_cast<ssize_t>(n);
        if (!may_block(file)) {
            errno = EAGAIN;
            return -1;
        }
        pollfd p{file.fd, POLLIN, 0};
        clock_poll(&p, 1, end == forever ? forever : end - now);
    }
}

ssize_t serial_write(open_file& file, const void* buf, std::size_t size)
{
    serial_line& line = line_of(file.path);
    const std::span<const std::uint8_t> all(static_cast<const std::uint8_t*>(buf), size);
    std::size_t done = 0;
    update(line);
    while (done < size) {
        std::size_t free;
        {
            const std::lock_guard lock(line.mutex);
            free = room - waiting_locked(line);
        }
        const std::size_t n = std::min(free, size - done);
        if (n > 0)
            hold_output(line, all.subspan(done, n));
        done += n;
        if (done < size && !may_block(file))
            break;
        if (done < size)
            wait_for_room(line, room - 1);
    }
    if (done > 0 || size == 0)
        return static_cast<ssize_t>(done);
    errno = EAGAIN;
    return -1;
}

void drop_received(serial_line& line)
{
    const std::lock_guard lock(line.mutex);
    line.received.clear();
    show_locked(line);
}

void drop_output(serial_line& line)
{
    update(line);
    const std::lock_guard lock(line.mutex);
    line.to_send.clear();
}

int set_settings(serial_line& line, unsigned long request, const void* arg)
{
    if (request != TCSETS)
        wait_for_room(line, 0);
    if (request == TCSETSF)
        drop_received(line);
    const std::lock_guard lock(line.mutex);
    std::memcpy(&line.settings, arg, sizeof line.settings);
    show_locked(line);
    return 0;
}

int flush(serial_line& line, const void* arg)
{
    const auto what = reinterpret_cast<std::intptr_t>(arg);
    if (what == TCIFLUSH || what == TCIOFLUSH)
        drop_received(line);
    if (what == TCOFLUSH || what == TCIOFLUSH)
        drop_output(line);
    if (what >= TCIFLUSH && what <= TCIOFLUSH)
        return 0;
    errno = EINVAL;
    return -1;
}

int serial_ioctl(open_file& file, unsigned long request, void* arg)
{
    serial_line& line = line_of(file.path);
    update(line);
    switch (request) {
    case TCSETS:
    case TCSETSW:
    case TCSETSF:
        return set_settings(line, request, arg);
    case TCFLSH:
        return flush(line, arg);
    case TCSBRK:
        wait_for_room(line, 0); // a break itself, without an argument, means nothing to the far ends
        return 0;
    default:
        break;
    }
    const std::lock_guard lock(line.mutex);
    switch (request) {
    case TCGETS:
        std::memcpy(arg, &line.settings, sizeof line.settings);
        return 0;
    case TIOCINQ:
        *static_cast<int*>(arg) = static_cast<int>(line.received.size());
        return 0;
    case TIOCOUTQ:
        *static_cast<int*>(arg) = static_cast<int>(waiting_locked(line));
        return 0;
    case TIOCSERGETLSR:
        *static_cast<int*>(arg) = line.to_send.empty() ? all_are_out : 0;
        return 0;
    default:
        strange("ioctl " + file.path + " request " + std::to_string(request));
        errno = ENOTTY;
        return -1;
    }
}

bool serial_readable(open_file& file)
{
    serial_line& line = line_of(file.path);
    update(line);
    const std::lock_guard lock(line.mutex);
    return line.received.size() >= least_locked(line);
}

bool serial_present(std::string_view path)
{
    const serial_model* const p_model = line_of(path).p_model;
    return p_model->present == nullptr || p_model->present(path);
}

constexpr node serial_node = {.present = serial_present,
                              .open = serial_open,
                              .read = serial_read,
                              .write = serial_write,
                              .ioctl = serial_ioctl,
                              .close = serial_close,
                              .readable = serial_readable};

} // namespace

void serial_add(std::string_view path, const serial_model* p_model)
{
    auto line = std::make_unique<serial_line>();
    line->p_model = p_model;
    lines[std::string(path)] = std::move(line);
    node_add(path, &serial_node);
}

void serial_receive(std::string_view path, std::span<const std::uint8_t> bytes)
{
    serial_line& line = line_of(path);
    const std::lock_guard lock(line.mutex);
    const std::size_t n = std::min(bytes.size(), room - line.received.size());
    line.received.insert(line.received.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(n));
    if (n > 0)
        show_locked(line);
}

void serial_update(std::string_view path)
{
    update(line_of(path));
}

bool serial_sending(std::string_view path)
{
    serial_line& line = line_of(path);
    update(line);
    const std::lock_guard lock(line.mutex);
    return !line.to_send.empty();
}

int serial_speed(std::string_view path)
{
    serial_line& line = line_of(path);
    const std::lock_guard lock(line.mutex);
    return speed_of(line.settings);
}

} // namespace phone
