// What the contactless chips may say: frames of the PN65's link and of its firmware download, native answers
// and envelopes of the second chip. The first byte chooses; the rest is given in whatever is read, and
// nothing may be read or written beyond a buffer.
#include <linux/i2c-dev.h>
#include <linux/i2c.h>

#include "cfg/cfg.h"
#include "fuzz_input.h"
#include "gpio_linux/gpio_linux.h"
#include "i2c/i2c.h"
#include "nfc/nfc.h"
#include "nfc_pn65/nfc_pn65.h"
#include "nfc_tamiro_qxr5170jvk_brenk/nfc_tamiro_qxr5170jvk_brenk.h"
#include "pin/pin.h"
#include "pin_brenk/pin_brenk.h"
#include "tmr/tmr.h"

namespace {

constexpr i2c_cfg_row chips[] = {{"pn65", 2, 0x28}, {"", 0, 0}};

// As many bytes as there are, behind them FF.
std::size_t take(void* buf, std::size_t size)
{
    std::memset(buf, 0xFF, size);
    return give(buf, size, size);
}

int fuzz_ioctl(int, unsigned long request, void* arg)
{
    if (request != I2C_RDWR)
        return 0;
    const auto* const p_data = static_cast<const i2c_rdwr_ioctl_data*>(arg);
    for (unsigned i = 0; i < p_data->nmsgs; i++)
        if ((p_data->msgs[i].flags & I2C_M_RD) != 0 && take(p_data->msgs[i].buf, p_data->msgs[i].len) == 0)
            return -1;
    return static_cast<int>(p_data->nmsgs);
}

// A pin is high while there is input; the serial line gives what is left in pieces of a length that it says.
ssize_t fuzz_read(int, void* buf, std::size_t size)
{
    if (size <= 2) {
        std::memset(buf, position < input_size ? '1' : '0', size);
        return static_cast<ssize_t>(size);
    }
    const std::size_t want = position < input_size ? input[position++] % 80 : 0;
    return static_cast<ssize_t>(take(buf, std::min(size, want)));
}

void attach()
{
    static plat_callouts co = file_callouts();
    co.open = [](const char*, int, mode_t) { return the_fd; }; // all are one stream
    co.read = fuzz_read;
    co.lseek = [](int, off_t, int) { return off_t{0}; };
    co.ioctl = fuzz_ioctl;
    plat_attach(&co);
    pin_init();
    pin_map_set(pin_brenk_co_get, 1);
    gpio_linux_init(PIN_GRP_GPIO);
    i2c_init();
    i2c_cfg(chips);
    nfc_init();
    nfc_tamiro_qxr5170jvk_brenk_init();
    nfc_pn65_init();
    std::freopen("/dev/null", "w", stdout); // the second chip's bytes are told there
}

// Nobody may be told of more bytes than there is room for.
void require_length(std::uint8_t length)
{
    require(length <= NFC_ROOM);
}

void ask_chip(std::uint8_t what)
{
    std::uint8_t out[NFC_ROOM], length = 0, value;
    const std::uint8_t bytes[] = {static_cast<std::uint8_t>(what & 1), 0xF8, 0x02};
    const std::uint16_t series[] = {static_cast<std::uint16_t>(what >> 4 & 7), 2, 1};
    int result;
    nfc_send(bytes, sizeof bytes, out, &length);
    require_length(length);
    nfc_getid(what % 10, out, &length);
    require_length(length);
    nfc_rf_func(series, 3, out, &length);
    require_length(length);
    nfc_getreg(what, &value);
    nfc_setparam(what, 1);
    nfc_getparam(what, &value);
    nfc_se_conn_test(&result);
    nfc_variant_chk(&result);
    nfc_selftest(bytes, sizeof bytes, out, &length);
    nfc_detect_tag(&result);
    nfc_polling(what % 4, 10000, &result);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool attached = (attach(), true);
    if (!attached || size < 2)
        return 0;
    take_input(data + 2, size - 2);
    nfc_select(data[0] % 2 + 1u);
    nfc_start(0);
    nfc_power_ctrl(1, 1);
    ask_chip(data[1]);
    nfc_stop();
    return 0;
}
