// Drawing on a frame of 1080 by 1920 at 32 bits, as the commands do it, against memset and memcpy of a frame.
// The framebuffer of the rows has one page, so that a command is its drawing alone; the page copy has a row
// of its own.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

#include "bench_panel.h"
#include "dcp/dcp.h"
#include "f_screen/f_screen.h"
#include "row.h"
#include "screen/screen.h"
#include "screen_linux/screen_linux.h"
#include "screenconf/screenconf.h"

namespace {

constexpr int repetitions = 300;

// A panel with this many pages, started as the main screen.
void start_panel(unsigned pages)
{
    bench_panel(pages);
    if (screen_start(SCREEN_MAIN, 0) != 1)
        std::exit(1);
    std::memset(screen_linux_get_screen_info(SCREEN_MAIN)->map_base, 0, pages * frame_bytes);
}

double time_ns(const std::function<void()>& body)
{
    const auto from = std::chrono::steady_clock::now();
    body();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - from).count();
}

// A row of the subject against the yardstick, in turns, so that a busy machine slows both.
int compare(const char* name, double limit, const std::function<void()>& subject,
            const std::function<void()>& yardstick)
{
    double measured = 1e18, wanted = 1e18;
    for (int i = 0; i < repetitions; i++) {
        wanted = std::min(wanted, time_ns(yardstick));
        measured = std::min(measured, time_ns(subject));
    }
    return bench_row(name, measured, wanted, limit);
}

int client;

void discard(dcp_client*, int, int, const char*) {}
void no_rx(dcp_client*, void*, std::size_t, dcp_bin_cb, void*) {}
void no_tx(dcp_client*, const void*, std::size_t, dcp_bin_cb, void*) {}

void send(const std::string& text)
{
    std::string line = text;
    if (dcp_parse(client, line.data()) != DCP_OK) {
        std::fprintf(stderr, "%s failed\n", text.c_str());
        std::exit(1);
    }
}

struct drawing_row {
    const char* line;
    double limit;
};

constexpr drawing_row drawings[] = {
    {"dclr=0,18,52,86", 1.1},
    {"dbox=0,0,1080,1920,0,18,52,86", 1.1},
    {"dpat=3", 1.1},
    {"dpat=1", 1.15},
    {"dpat=18", 1.15},
    {"dpat=19", 1.15},
    {"dpat=22", 1.15},
    {"dpat=32", 1.3},
    {"dpat=36", 1.3},
    {"dpat=48", 1.3},
    {"dpat=40", 1.5},
    {"dpat=43", 1.5},
    {"dfig=2,0,0,1080,1920", 1.5},
};

// The memory that commands draw on.
std::uint8_t* frame()
{
    return screen_linux_get_screen_info(SCREEN_MAIN)->map_base;
}

void set_frame()
{
    static volatile int value = 0x5A;
    std::memset(frame(), value, frame_bytes);
}

int bench_drawing()
{
    start_panel(1);
    int over = 0;
    for (const drawing_row& row : drawings)
        over += compare(
            row.line, row.limit, [&] { send(row.line); }, set_frame);
    const auto print = [] { // 23 characters of 48 pixels fill a row
        for (unsigned y = 0; y + 48 < panel_height; y += 48)
            screen_print("The quick brown fox 123", 0, y, 0xFFFFFF);
    };
    return over + compare("a full screen of text", 1.4, print, set_frame);
}

int bench_invalidate()
{
    start_panel(2);
    return compare(
        "the page copy of the invalidate", 1.05, [] { screen_invalidate(); },
        [] { std::memcpy(frame() + frame_bytes, frame(), frame_bytes); });
}

// A full-size picture, 1080 by 1920, in a file of the working folder.
std::string write_picture()
{
    std::vector<std::uint8_t> file(54 + std::size_t{panel_width} * panel_height * 3);
    for (std::size_t i = 54; i < file.size(); i++)
        file[i] = static_cast<std::uint8_t>(i * 7 ^ i >> 11);
    const std::uint32_t head[] = {
        static_cast<std::uint32_t>(file.size()), 0, 54, 40, panel_width, panel_height};
    std::memcpy(file.data(), "BM", 2);
    std::memcpy(file.data() + 2, head, sizeof head);
    file[26] = 1;
    file[28] = 24;
    char path[] = "screen_bench_XXXXXX";
    const int fd = mkstemp(path);
    if (fd < 0 || write(fd, file.data(), file.size()) != static_cast<ssize_t>(file.size()))
        std::exit(1);
    close(fd);
    return path;
}

int bench_picture()
{
    start_panel(1);
    const std::string path = write_picture();
    std::vector<std::uint8_t> file(54 + std::size_t{panel_width} * panel_height * 3), copy(frame_bytes, 1);
    const auto read_and_copy = [&] {
        const int fd = open(path.c_str(), O_RDONLY);
        if (read(fd, file.data(), file.size()) != static_cast<ssize_t>(file.size()))
            std::exit(1);
        close(fd);
        std::memcpy(frame(), copy.data(), frame_bytes);
    };
    const std::string line = "dimg=\"" + path + "\"";
    const int over = compare(
        "dimg of a full-size picture", 1.2, [&] { send(line); }, read_and_copy);
    unlink(path.c_str());
    return over;
}

} // namespace

int main()
{
    dcp_init();
    f_screen_init();
    dcp_client discarding = {0, discard, no_rx, no_tx, "bench"};
    client = dcp_clnt_add(&discarding);
    int over = bench_drawing();
    over += bench_invalidate();
    over += bench_picture();
    return over != 0;
}
