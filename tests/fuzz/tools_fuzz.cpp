// What the radio's tools may print, or leave in their result file: any bytes, in whatever pieces. The drivers
// read them; each output is a block of exactly the room that was promised.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "bt/bt.h"
#include "fm/fm.h"
#include "plat/plat.h"
#include "plat_linux/plat_linux.h"
#include "wcn3680_linux/wcn3680_linux.h"
#include "wlan/wlan.h"

namespace {

constexpr int the_fd = 1000;

const std::uint8_t* input;
std::size_t input_size;
std::size_t position;

ssize_t give(void* buf, std::size_t size)
{
    const std::size_t n = std::min({size, input_size - position, 1 + position % 97});
    std::memcpy(buf, input + position, n);
    position += n;
    return static_cast<ssize_t>(n);
}

FILE* fuzz_popen(const char*, const char*)
{
    position = 0;
    const cookie_io_functions_t functions = {
        .read = [](void*, char* buf, std::size_t size) { return give(buf, size); },
        .write = nullptr,
        .seek = nullptr,
        .close = nullptr};
    return fopencookie(nullptr, "r", functions);
}

int fuzz_open(const char*, int, mode_t)
{
    position = 0;
    return the_fd;
}

void attach()
{
    static plat_callouts co = plat_linux_co;
    co.system = [](const char*) { return 0; };
    co.popen = fuzz_popen;
    co.pclose = [](FILE* stream) { return std::fclose(stream); };
    co.open = fuzz_open;
    co.read = [](int, void* buf, std::size_t size) { return give(buf, size); };
    co.close = [](int) { return 0; };
    co.socket = [](int, int, int) { return the_fd; };
    co.ioctl = [](int, unsigned long, void* arg) {
        std::memset(static_cast<char*>(arg) + 16, 0xFF, 4); // the device's flags
        return 0;
    };
    co.hci_open_dev = [](int) { return the_fd; };
    co.setsockopt = [](int, int, int, const void*, socklen_t) { return 0; };
    co.hci_send_cmd = [](int, std::uint16_t, std::uint16_t, std::uint8_t, const void*) { return 0; };
    co.poll = [](pollfd*, nfds_t, int) { return 0; };
    co.nanosleep = [](const timespec*, timespec*) { return 0; };
    plat_attach(&co);
    bt_init();
    wlan_init();
    fm_init();
    wcn3680_linux_init();
    bt_start();
    wlan_start(WLAN_MODE_TEST);
    char text[BT_SCAN_ROOM];
    bt_scan(1, text); // ends the start, with its reset unanswered
}

void check(bool holds)
{
    if (!holds)
        std::abort();
}

void read_printed()
{
    const auto found = std::make_unique<char[]>(BT_SCAN_ROOM);
    check(bt_scan(BT_SCAN_MOST, found.get()) == BT_OK);
    check(std::strlen(found.get()) < BT_SCAN_ROOM);
    const auto text = std::make_unique<char[]>(WLAN_TEXT_ROOM);
    if (wlan_scan(text.get()) == WLAN_OK)
        check(std::strlen(text.get()) < WLAN_TEXT_ROOM && std::strpbrk(text.get(), " \t\n\v\f\r") == nullptr);
}

void read_left()
{
    const auto text = std::make_unique<char[]>(WLAN_TEXT_ROOM);
    if (wlan_chip_id(text.get()) == WLAN_OK)
        check(std::strlen(text.get()) <= sizeof "-2147483648" - 1);
    wlan_rx_stats stats{.expected = 1000, .received = 0, .spare = {}, .percent = 0, .spare_percent = 0};
    wlan_rx_static_stat(&stats);
    check(stats.percent <= 100);
    std::int16_t rssi;
    wlan_rx_cw_rssi_stop(&rssi);
    fm_rssi_get();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool attached = (attach(), true);
    if (!attached)
        return 0;
    input = data;
    input_size = size;
    read_printed();
    read_left();
    return 0;
}
