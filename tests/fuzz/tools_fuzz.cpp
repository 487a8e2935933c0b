// What the radio's tools may print, or leave in their result file: any bytes, in whatever pieces. The drivers
// read them; each output is a block of exactly the room that was promised.
#include <memory>

#include "bt/bt.h"
#include "fm/fm.h"
#include "fuzz_input.h"
#include "wcn3680_linux/wcn3680_linux.h"
#include "wlan/wlan.h"

namespace {

ssize_t give_piece(void* buf, std::size_t size)
{
    return static_cast<ssize_t>(give(buf, size, 1 + position % 97));
}

FILE* fuzz_popen(const char*, const char*)
{
    position = 0;
    const cookie_io_functions_t functions = {
        .read = [](void*, char* buf, std::size_t size) { return give_piece(buf, size); },
        .write = nullptr,
        .seek = nullptr,
        .close = nullptr};
    return fopencookie(nullptr, "r", functions);
}

void attach()
{
    static plat_callouts co = file_callouts();
    co.system = [](const char*) { return 0; };
    co.popen = fuzz_popen;
    co.pclose = [](FILE* stream) { return std::fclose(stream); };
    co.read = [](int, void* buf, std::size_t size) { return give_piece(buf, size); };
    co.socket = [](int, int, int) { return the_fd; };
    co.ioctl = [](int, unsigned long, void* arg) {
        std::memset(static_cast<char*>(arg) + 16, 0xFF, 4); // the device's flags
        return 0;
    };
    co.hci_open_dev = [](int) { return the_fd; };
    co.setsockopt = [](int, int, int, const void*, socklen_t) { return 0; };
    co.hci_send_cmd = [](int, std::uint16_t, std::uint16_t, std::uint8_t, const void*) { return 0; };
    co.poll = [](pollfd*, nfds_t, int) { return 0; };
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

void read_printed()
{
    const auto found = std::make_unique<char[]>(BT_SCAN_ROOM);
    require(bt_scan(BT_SCAN_MOST, found.get()) == BT_OK);
    require(std::strlen(found.get()) < BT_SCAN_ROOM);
    const auto text = std::make_unique<char[]>(WLAN_TEXT_ROOM);
    if (wlan_scan(text.get()) == WLAN_OK)
        require(std::strlen(text.get()) < WLAN_TEXT_ROOM &&
                std::strpbrk(text.get(), " \t\n\v\f\r") == nullptr);
}

void read_left()
{
    const auto text = std::make_unique<char[]>(WLAN_TEXT_ROOM);
    if (wlan_chip_id(text.get()) == WLAN_OK)
        require(std::strlen(text.get()) <= sizeof "-2147483648" - 1);
    wlan_rx_stats stats{.expected = 1000, .received = 0, .spare = {}, .percent = 0, .spare_percent = 0};
    wlan_rx_static_stat(&stats);
    require(stats.percent <= 100);
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
    take_input(data, size);
    read_printed();
    read_left();
    return 0;
}
