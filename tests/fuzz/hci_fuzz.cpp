// What a Bluetooth controller may send: the real driver reads the input's packets from its socket, and every
// reader of an event takes them apart. A packet is two bytes and what they say: how many bytes it has, and
// whether the opcode of the last command, or the vendor's code, is put into it, which no guessing would find.
#include <bluetooth/bluetooth.h>
#include <bluetooth/hci.h>
#include <memory>

#include "bt/bt.h"
#include "bt/bt_hci.h"
#include "fuzz_input.h"
#include "wcn3680_linux/wcn3680_linux.h"

namespace {

constexpr std::uint8_t of_complete = 1;
constexpr std::uint8_t of_status = 2;
constexpr std::uint8_t vendor_code = 4;

std::uint16_t opcode;
std::int64_t now_ns;

ssize_t fuzz_read(int, void* buf, std::size_t size)
{
    std::uint8_t head[2];
    if (input_size - position < 2)
        return -1;
    give(head, 2, 2);
    const std::uint8_t how = head[0];
    auto* const p = static_cast<std::uint8_t*>(buf);
    const std::size_t n = give(p, size, head[1] + (how & 8 ? 16u : 0u));
    for (const std::size_t at : {4, 5})
        if ((how & (at == 4 ? of_complete : of_status)) != 0 && n >= at + 2) {
            p[at] = static_cast<std::uint8_t>(opcode);
            p[at + 1] = static_cast<std::uint8_t>(opcode >> 8);
        }
    if ((how & vendor_code) != 0 && n > 1)
        p[1] = 0xFF;
    return static_cast<ssize_t>(n);
}

int fuzz_send(int, std::uint16_t ogf, std::uint16_t ocf, std::uint8_t, const void*)
{
    opcode = static_cast<std::uint16_t>(ogf << 10 | ocf);
    return 0;
}

// Before a command the socket is empty; afterwards there is what is left of the input.
int fuzz_poll(pollfd*, nfds_t, int timeout_ms)
{
    now_ns += 1'000'000;
    return timeout_ms > 0 && input_size - position >= 2 ? 1 : 0;
}

int fuzz_ioctl(int, unsigned long, void* arg)
{
    static_cast<hci_dev_info*>(arg)->flags = 1u << HCI_UP;
    return 0;
}

void attach()
{
    static plat_callouts co = file_callouts();
    co.system = [](const char*) { return 0; };
    co.socket = [](int, int, int) { return the_fd; };
    co.hci_open_dev = [](int) { return the_fd; };
    co.hci_send_cmd = fuzz_send;
    co.setsockopt = [](int, int, int, const void*, socklen_t) { return 0; };
    co.ioctl = fuzz_ioctl;
    co.poll = fuzz_poll;
    co.read = fuzz_read;
    co.clock_gettime = [](clockid_t, timespec* p_out) {
        *p_out = {now_ns / 1'000'000'000, now_ns % 1'000'000'000};
        return 0;
    };
    plat_attach(&co);
    bt_init();
    wcn3680_linux_init();
    bt_start();
    bt_hci_reset();
}

// A block of its own for each output, so that one byte too many is seen.
void read_texts()
{
    const auto text = std::make_unique<char[]>(BT_HCI_PAR_MOST + 1);
    if (bt_hci_rev_txt(text.get()) != 0)
        require(std::strlen(text.get()) <= BT_HCI_PAR_MOST);
    const auto bytes = std::make_unique<std::uint8_t[]>(BT_HCI_PAR_MOST);
    require(bt_hci_rd_dyn_cfg(bytes.get()) <= BT_HCI_PAR_MOST);
}

void run_any(std::uint8_t how)
{
    const bt_hci_row row = {0, 0x04, 0x0009, how};
    const auto bytes = std::make_unique<std::uint8_t[]>(BT_HCI_EVENT_MOST);
    bool answered = false;
    const std::size_t count = bt_hci_usr_cmd(&row, bytes.get(), how & 1, &answered);
    require(count <= BT_HCI_EVENT_MOST && (answered || count == 0));
}

void read_all(std::uint8_t how)
{
    bt_hci_version version;
    std::uint8_t addr[BT_ADDR_SIZE];
    std::uint16_t packets;
    bt_rx_stats stats;
    std::uint8_t pins[3];
    // clang-format off
    switch (how % 8) {
    case 0: return read_texts();
    case 1: return run_any(how);
    case 2: bt_hci_loc_ver(&version); return;
    case 3: bt_addr_rd(addr); return;
    case 4: bt_le_test_end(&packets); return;
    case 5: bt_tst_rx_static(0, how, 0, &stats); return;
    case 6: bt_pin_test(&pins[0], &pins[1], &pins[2]); return;
    default: bt_hci_dut_en();
    }
    // clang-format on
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool attached = (attach(), true);
    if (!attached || size == 0)
        return 0;
    const auto copy = std::make_unique<std::uint8_t[]>(size);
    std::memcpy(copy.get(), data, size);
    for (std::uint8_t reader = 0; reader < 8; reader++) {
        take_input(copy.get() + 1, size - 1);
        read_all(static_cast<std::uint8_t>(data[0] * 8 + reader));
    }
    return 0;
}
