#include "rf.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "commands.h"
#include "line.h"
#include "nfc/nfc.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

namespace qxr5170jvk {

namespace {

constexpr std::uint32_t REG_RF = 4;
constexpr std::uint32_t REG_20 = 20;
constexpr std::uint32_t NATIVE_ROUND_US = 10000;
constexpr std::uint32_t HCI_ROUND_US = 1000;
constexpr int LED_GOOD = 20;
constexpr int LED_END = 255;

constexpr int ROW_CREATE_POLLING = 4;
constexpr int ROW_DELETE = 5;
constexpr int ROW_OPEN_POLLING = 6;
constexpr int ROW_CLOSE_POLLING = 7;
constexpr int ROW_POLL = 8;
constexpr int ROW_POLL_END = 9;
constexpr int ROW_RF_ON = 20;
constexpr int ROW_RF_OFF = 21;
constexpr unsigned RF_PIPE = 2;

int result_of(bool good)
{
    return good ? NFC_OK : NFC_FAILED;
}

// Two LEDs, open for a series; what they show is for who looks on, so a level that can't be set is no matter.
class leds {
public:
    leds()
        : green(plat_open("/sys/class/leds/green/brightness", O_RDWR | O_CLOEXEC)),
          red(green >= 0 ? plat_open("/sys/class/leds/red/brightness", O_RDWR | O_CLOEXEC) : -1)
    {
    }
    leds(const leds&) = delete;
    leds& operator=(const leds&) = delete;
    ~leds()
    {
        for (const int fd : {green, red})
            if (fd >= 0)
                plat_close(fd);
    }

    bool open() const { return red >= 0; }

    void show(bool found) const
    {
        set(found ? red : green, 0);
        set(found ? green : red, LED_GOOD);
    }

    void end() const
    {
        set(green, LED_END);
        set(red, 0);
    }

private:
    static void set(int fd, int level)
    {
        char text[16];
        const int n = std::snprintf(text, sizeof text, "%d", level);
        plat_write(fd, text, static_cast<std::size_t>(n));
    }

    int green;
    int red;
};

void give_count(std::uint16_t count, std::uint8_t* out, std::uint8_t* p_outlen)
{
    std::memcpy(out, &count, sizeof count);
    *p_outlen = sizeof count;
}

int set_params(std::uint32_t first, const std::uint16_t* values)
{
    param_block block;
    if (!read_block(block))
        return NFC_FAILED;
    block_set(block, first, values[1]);
    block_set(block, first + 1, values[2]);
    return result_of(write_block(block));
}

// The variant stays in its top bits.
int set_param_14(std::uint16_t value)
{
    std::uint8_t old = 0;
    return result_of(get_parameter(PARAM_VARIANT, &old) &&
                     set_parameter(PARAM_VARIANT, (value & 0x3Fu) | (old & 0xC0u)));
}

int set_single_bytes(const std::uint16_t* values)
{
    param_block block;
    if (!read_block(block))
        return NFC_FAILED;
    block[BLOCK_SINGLE_BYTES] = static_cast<std::uint8_t>(values[1]);
    block[BLOCK_SINGLE_BYTES + 1] = static_cast<std::uint8_t>(values[2]);
    return result_of(write_block(block));
}

int give_block(std::uint8_t* out, std::uint8_t* p_outlen)
{
    param_block block;
    if (!read_block(block))
        return NFC_FAILED;
    std::ranges::copy(block, out);
    *p_outlen = BLOCK_SIZE;
    return NFC_OK;
}

int switch_rf(std::uint16_t on)
{
    constexpr std::uint8_t BIT_3 = 0x08;
    std::uint8_t value;
    if (on > 1 || !read_register(REG_20, &value) || !write_register(REG_20, value | BIT_3))
        return NFC_FAILED;
    reply r;
    const bool hci = Tamiro_set_hsel(true);
    const bool sent = qxr5170jvk_nfc_sf(on != 0 ? ROW_RF_ON : ROW_RF_OFF, RF_PIPE, r);
    const bool native = Tamiro_set_hsel(false);
    return result_of(hci && sent && native);
}

int polling_series(std::uint16_t rounds, std::uint8_t* out, std::uint8_t* p_outlen)
{
    if (rounds == 0)
        return NFC_FAILED;
    const leds l;
    if (!l.open())
        return NFC_FAILED;
    std::uint16_t count = 0;
    for (std::uint16_t i = 0; i < rounds; i++) {
        const bool found = poll_through();
        l.show(found);
        count += found;
        tmr_usleep(NATIVE_ROUND_US);
    }
    l.end();
    give_count(count, out, p_outlen);
    return NFC_OK;
}

bool poll_round(unsigned pipe)
{
    constexpr std::size_t FOUND_AT = 4;
    constexpr std::uint8_t NOTHING = 0xFF;
    reply r;
    return qxr5170jvk_nfc_sf(ROW_POLL, pipe, r) && r.length > FOUND_AT && r.at(FOUND_AT) != NOTHING;
}

bool delete_pipe(unsigned pipe)
{
    const auto row = nfc_tamiro_qxr5170jvk_brenk_hci_cmd_get(ROW_DELETE);
    const std::uint8_t bytes[] = {row[0], row[1], static_cast<std::uint8_t>(pipe)};
    reply r;
    return qxr5170jvk_nfc_send(bytes, r);
}

// What counts of all that is sent is that the pipe could be deleted in the end.
int polling_series_by_hci(std::uint16_t rounds, bool handshake, unsigned* p_pipe, std::uint8_t* out,
                          std::uint8_t* p_outlen)
{
    constexpr std::size_t PIPE_AT = 6;
    if (rounds == 0)
        return NFC_FAILED;
    state.int_handshake = false;
    const leds l;
    if (!l.open())
        return NFC_FAILED;
    reply r;
    const bool hci = Tamiro_set_hsel(true);
    qxr5170jvk_nfc_sf(ROW_CREATE_POLLING, 0, r);
    const unsigned pipe = r.at(PIPE_AT);
    qxr5170jvk_nfc_sf(ROW_OPEN_POLLING, pipe, r);
    state.int_handshake = handshake;
    std::uint16_t count = 0;
    for (std::uint16_t i = 0; i < rounds; i++) {
        const bool found = poll_round(pipe);
        l.show(found);
        count += found;
        tmr_usleep(HCI_ROUND_US);
    }
    state.int_handshake = false;
    qxr5170jvk_nfc_sf(ROW_POLL_END, pipe, r);
    qxr5170jvk_nfc_sf(ROW_CLOSE_POLLING, pipe, r);
    const bool deleted = delete_pipe(pipe);
    *p_pipe = 0;
    l.end();
    give_count(count, out, p_outlen);
    const bool native = Tamiro_set_hsel(false);
    return result_of(hci && deleted && native);
}

} // namespace

int rf_func(const std::uint16_t* values, std::size_t count, unsigned* p_pipe, std::uint8_t* out,
            std::uint8_t* p_outlen)
{
    std::uint16_t v[3] = {};
    std::copy_n(values, std::min<std::size_t>(count, 3), v);
    *p_outlen = 0;
    switch (v[0]) {
    case 0:
        return set_params(15, v);
    case 1:
        return set_param_14(v[1]);
    case 2:
        return set_single_bytes(v);
    case 3:
        return result_of(v[1] <= 1 && write_register(REG_RF, v[1]));
    case 4:
        return set_params(5, v);
    case 5:
        return polling_series(v[1], out, p_outlen);
    case 6:
        return give_block(out, p_outlen);
    case 7:
        return polling_series_by_hci(v[1], v[2] == 1, p_pipe, out, p_outlen);
    case 8:
        return switch_rf(v[1]);
    default:
        return NFC_OK;
    }
}

} // namespace qxr5170jvk
