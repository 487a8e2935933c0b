// The Bluetooth driver: starting and stopping, and packets to and from the controller through a raw HCI
// socket. The chip's own tests stand in wcn3680_bt_tests.cpp.
#include <algorithm>
#include <bluetooth/bluetooth.h>
#include <bluetooth/hci.h>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <pthread.h>
#include <string>
#include <sys/ioctl.h>

#include "plat/plat.h"
#include "tmr/tmr.h"
#include "wcn3680_bt.h"
#include "wcn3680_inner.h"
#include "wcn3680_scan.h"

namespace {

constexpr const char* LOAD_MODULE = "insmod /system/modules/hci_smd.ko";
constexpr const char* SWITCH_ON = "echo 1 > /sys/module/hci_smd/parameters/hcismd_set";
constexpr const char* BRING_UP = "hciconfig hci0 up";
constexpr const char* RESET_DEVICE = "hciconfig hci0 reset";
constexpr const char* INQUIRE = "hcitool inq --numrsp=%d";

constexpr int THE_DEVICE = 0;
constexpr int UP_ROUNDS = 300;
constexpr std::uint32_t UP_PAUSE_US = 10000;

constexpr std::int64_t EVENT_TIME_MS = 2000; // for one that is waited for, whatever else comes
constexpr int MOST_UNREAD = 64;              // events that are thrown away before a command

constexpr std::size_t MOST_READ = 260;
constexpr std::size_t EVENT_HEAD = 3; // packet type, code, length

constexpr int OGF_SHIFT = 10;
constexpr unsigned OCF_MASK = 0x3FF;

static_assert(sizeof(hci_filter) == 16);
static_assert(HCIGETDEVINFO == 0x800448D3);

enum class state { ready, stopped, starting };

state bt_state = state::stopped;
pthread_t bt_thread;
bool loaded_module; // the thread's: the module stays loaded

// The thread's while it runs, the main loop's before and after.
std::uint8_t started; // users of the controller
int hci_sock = -1;

std::uint16_t opcode; // of the last command
std::uint8_t readbuffer[MOST_READ];
std::size_t readbufferlength;

void close_socket()
{
    if (hci_sock >= 0)
        plat_close(hci_sock);
    hci_sock = -1;
}

void count_user()
{
    if (started < UINT8_MAX)
        started++;
}

bool device_is_up()
{
    hci_dev_info info{};
    info.dev_id = THE_DEVICE;
    return plat_ioctl(hci_sock, HCIGETDEVINFO, &info) >= 0 && (info.flags & 1u << HCI_UP) != 0;
}

bool wait_until_up()
{
    for (int i = 0; i < UP_ROUNDS; i++) {
        hci_sock = plat_socket(AF_BLUETOOTH, SOCK_RAW, BTPROTO_HCI);
        if (hci_sock < 0)
            return false;
        const bool up = device_is_up();
        close_socket();
        if (up)
            return true;
        tmr_usleep(UP_PAUSE_US);
    }
    return false;
}

// All packet types and all events.
bool hear_all()
{
    hci_filter filter;
    std::memset(&filter, 0xFF, sizeof filter);
    filter.opcode = 0;
    return plat_setsockopt(hci_sock, SOL_HCI, HCI_FILTER, &filter, sizeof filter) == 0;
}

bool bring_controller_up()
{
    if (!loaded_module && wcn3680_run(LOAD_MODULE) == 0)
        return false;
    loaded_module = true;
    plat_system(SWITCH_ON);
    if (wcn3680_run(BRING_UP) == 0 || !wait_until_up())
        return false;
    hci_sock = plat_hci_open_dev(THE_DEVICE);
    return hci_sock >= 0 && hear_all();
}

// The slow part of a start, beside the main loop. BT_OK when all of it went well.
void* wcn3680_bt_linux_execute_thread(void*)
{
    const bool up = bring_controller_up();
    if (up)
        count_user();
    else
        close_socket();
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(up ? BT_OK : BT_FAILED));
}

int begin_start()
{
    if (pthread_create(&bt_thread, nullptr, wcn3680_bt_linux_execute_thread, nullptr) != 0)
        return BT_FAILED;
    bt_state = state::starting;
    return BT_OK;
}

int wcn3680_bt_linux_start()
{
    if (bt_state == state::stopped)
        return begin_start();
    const int result = wcn3680_bt_linux_pending_startup();
    if (result == BT_OK)
        count_user();
    return result;
}

// Finishes a start before it counts down, or the thread would count up behind it.
int wcn3680_bt_linux_stop()
{
    wcn3680_bt_linux_pending_startup();
    if (started > 0)
        started--;
    if (started > 0)
        return BT_OK;
    return bt_hci_reset() != 0 ? BT_OK : BT_FAILED;
}

// Whether the controller can be talked to; a start that is under way is finished first.
bool is_ready()
{
    return wcn3680_bt_linux_pending_startup() == BT_OK && bt_state == state::ready && hci_sock >= 0;
}

std::int64_t now_ms()
{
    timespec now{};
    plat_clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

// Waits until the socket can be read: 1 when it can, 0 when it can't within the time, -1 for a failure.
int wait_for_input(std::int64_t time_ms)
{
    const std::int64_t end = now_ms() + time_ms;
    for (;;) {
        pollfd p = {hci_sock, POLLIN, 0};
        const int ready = plat_poll(&p, 1, static_cast<int>(std::max<std::int64_t>(end - now_ms(), 0)));
        if (ready >= 0 || errno != EINTR)
            return ready;
    }
}

// What nobody has read belongs to an earlier command. False when it can't be got rid of: it might be taken
// for the answer of the next.
bool drop_unread()
{
    int ready = 1;
    for (int i = 0; i < MOST_UNREAD && (ready = wait_for_input(0)) > 0; i++)
        if (plat_read(hci_sock, readbuffer, sizeof readbuffer) <= 0)
            return false;
    return ready == 0;
}

int wcn3680_bt_linux_wr(const void* p_data, std::size_t size)
{
    const auto* const p = static_cast<const std::uint8_t*>(p_data);
    if (!is_ready() || size < BT_HCI_HEAD || size < BT_HCI_HEAD + p[3])
        return BT_FAILED;
    if (!drop_unread())
        return BT_FAILED;
    opcode = static_cast<std::uint16_t>(p[1] | p[2] << 8);
    const auto ogf = static_cast<std::uint16_t>(opcode >> OGF_SHIFT);
    const auto ocf = static_cast<std::uint16_t>(opcode & OCF_MASK);
    return plat_hci_send_cmd(hci_sock, ogf, ocf, p[3], p + BT_HCI_HEAD) < 0 ? BT_FAILED : BT_OK;
}

bool opcode_stands_at(std::size_t at)
{
    return readbufferlength >= at + 2 && (readbuffer[at] | readbuffer[at + 1] << 8) == opcode;
}

// The place of the opcode in a Command Complete event, and in a Command Status event.
bool answers_command()
{
    return opcode_stands_at(4) || opcode_stands_at(5);
}

bool is_vendor_event()
{
    return readbufferlength >= EVENT_HEAD && readbuffer[BT_HCI_AT_CODE] == BT_HCI_EVENT_VENDOR;
}

// Reads events until one is wanted, the others being dropped. Its size, or 0.
std::size_t poll_event(bool (*is_wanted)())
{
    readbufferlength = 0;
    if (!is_ready())
        return 0;
    const std::int64_t end = now_ms() + EVENT_TIME_MS;
    for (std::int64_t left = EVENT_TIME_MS; left > 0; left = end - now_ms()) {
        if (wait_for_input(left) <= 0)
            return 0;
        const ssize_t n = plat_read(hci_sock, readbuffer, sizeof readbuffer);
        readbufferlength = n > 0 ? static_cast<std::size_t>(n) : 0;
        if (n <= 0 || is_wanted())
            return readbufferlength;
    }
    readbufferlength = 0;
    return 0;
}

std::size_t wcn3680_bt_linux_rd_poll()
{
    return poll_event(answers_command);
}

int wcn3680_bt_linux_scan(int count, char* p_text)
{
    if (!is_ready())
        return BT_FAILED;
    char line[64];
    std::snprintf(line, sizeof line, INQUIRE, count);
    std::string output;
    const bool read = wcn3680_output_get(line, output);
    wcn3680_scan_addresses(output, BT_SCAN_MOST, p_text, BT_SCAN_ROOM);
    const bool reset = wcn3680_run(RESET_DEVICE) != 0;
    return read && reset ? BT_OK : BT_FAILED;
}

// clang-format off
constexpr bt_co wcn3680_bt_co = {
    .start                 = wcn3680_bt_linux_start,
    .stop                  = wcn3680_bt_linux_stop,
    .dl                    = [](int) { return BT_OK; }, // nothing is downloaded
    .rd                    = wcn3680_bt_linux_rd,
    .rd_poll               = wcn3680_bt_linux_rd_poll,
    .wr                    = wcn3680_bt_linux_wr,
    .script_exec           = [](const char*) { return BT_FAILED; },
    .tst_tx_switched       = wcn3680_bt_linux_tst_tx_switched,
    .tst_tx_static         = wcn3680_bt_linux_tst_tx_static,
    .addr_wr               = [](const std::uint8_t*, std::size_t) { return BT_FAILED; },
    .addr_rd               = wcn3680_bt_linux_addr_rd,
    .tst_rx_static         = wcn3680_bt_linux_tst_rx_static,
    .reset                 = nullptr,
    .chip_reset            = [] { return BT_FAILED; },
    .getBDaddressFromFlash = [](std::uint8_t*) { return BT_FAILED; },
    .setBDaddressInFlash   = [](const std::uint8_t*) { return BT_FAILED; },
    .tst_rx_cw_rssi        = [](std::uint32_t, int*) { return BT_FAILED; },
    .get_default_params    = wcn3680_bt_linux_get_default_params,
    .test_coex             = nullptr,
    .pin_test              = wcn3680_bt_linux_pin_test,
    .scan                  = wcn3680_bt_linux_scan,
};
// clang-format on

} // namespace

// A start that failed leaves the controller stopped: the next one begins anew. One whose reset fails leaves
// it ready.
int wcn3680_bt_linux_pending_startup()
{
    if (bt_state != state::starting)
        return BT_OK;
    void* result = nullptr;
    if (pthread_join(bt_thread, &result) != 0 || reinterpret_cast<std::intptr_t>(result) != BT_OK) {
        bt_state = state::stopped;
        bt_start_failed();
        return BT_FAILED;
    }
    bt_state = state::ready;
    return bt_hci_reset() != 0 ? BT_OK : BT_FAILED;
}

std::size_t wcn3680_bt_linux_rd_poll_2()
{
    return poll_event(is_vendor_event);
}

int wcn3680_bt_linux_rd(void* p_data, std::size_t size)
{
    if (bt_state != state::ready)
        return BT_FAILED;
    std::memcpy(p_data, readbuffer, std::min(size, readbufferlength));
    return BT_OK;
}

void wcn3680_bt_linux_init()
{
    bt_attach(&wcn3680_bt_co);
}
