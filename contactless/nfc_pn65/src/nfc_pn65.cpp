#include "nfc_pn65/nfc_pn65.h"

#include <algorithm>

#include "nfc/nfc.h"
#include "nfc_pn65_fw_dnld/nfc_pn65_fw_dnld.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "tests.h"
#include "tmr/tmr.h"

namespace pn65 {

namespace {

constexpr std::uint32_t ENABLE_US = 5000;
constexpr std::uint32_t DISABLE_US = 10000;
constexpr std::uint32_t MODE_US = 5000; // until the chip has the mode
constexpr std::uint32_t BETWEEN_ROWS_US = 100;
constexpr std::uint32_t REG_MODE = 0x9EAA;
constexpr std::size_t VALUE_AT = 6; // the value in a frame that writes a register

constexpr int start_rows[] = {0, 2, 1, 2, 3, 4, 13, 14, 15, 16, 17, 42, 43};

nfc_pn65_cfg nfc_cfg = {0xBC, 0x00, 0x00, 0x00};
unsigned id_mgnt_pipe_id; // 0: none

frame row_with_settings(int row)
{
    frame f = frame_of_row(row);
    const int setting = row - ROW_FIRST_SETTING;
    if (setting >= 0 && static_cast<std::size_t>(setting) < nfc_cfg.size())
        f.bytes[VALUE_AT] = nfc_cfg[static_cast<std::size_t>(setting)];
    return f;
}

frame register_frame(int row, std::uint32_t reg)
{
    frame f = frame_of_row(row);
    f.bytes[4] = static_cast<std::uint8_t>(reg >> 8);
    f.bytes[5] = static_cast<std::uint8_t>(reg);
    return f;
}

bool enable(bool on, std::uint32_t wait_us)
{
    const bool set = pin_out_set(PIN_OUT_NFC_ENABLE, on ? PIN_ACTIVE : PIN_INACTIVE) != 0;
    tmr_usleep(wait_us);
    return set;
}

// Sees the chip into a mode: whether it tells it back.
bool set_mode(std::uint8_t mode, bool* p_exchanged)
{
    std::uint8_t told = 0;
    const bool written = write_register(REG_MODE, mode);
    tmr_usleep(MODE_US);
    const bool read = read_register(REG_MODE, &told);
    *p_exchanged = written && read;
    return read && told == mode;
}

bool switch_off()
{
    if (pin_out_set(PIN_OUT_NFC_ENABLE, PIN_INACTIVE) == 0)
        return false;
    link_close();
    id_mgnt_pipe_id = 0;
    return true;
}

// All rows are sent whatever becomes of them. A failed start leaves chip and bus on.
int nfc_pn65_start(std::uint32_t)
{
    if (link_started())
        return NFC_FAILED;
    bool good = enable(true, ENABLE_US);
    good = enable(false, DISABLE_US) && good;
    good = enable(true, ENABLE_US) && good;
    id_mgnt_pipe_id = 0;
    if (!link_open())
        return NFC_FAILED;
    answer a;
    for (const int row : start_rows)
        good = send_row(row, 0, a) && good;
    link_set_started(good);
    return good ? NFC_OK : NFC_FAILED;
}

int nfc_pn65_stop()
{
    bool exchanged;
    if (!link_started() || !set_mode(1, &exchanged) || !exchanged || !switch_off())
        return NFC_FAILED;
    link_set_started(false);
    return NFC_OK;
}

// A chip that tells another mode stays on, as does its bus, and that is no failure.
int nfc_pn65_mode_switch(std::uint32_t mode)
{
    if (link_started())
        return NFC_FAILED;
    bool exchanged = false;
    bool off = true;
    nfc_pn65_start(0);
    if (set_mode(mode == 0 ? 1 : 0, &exchanged))
        off = switch_off();
    link_set_started(false);
    return exchanged && off ? NFC_OK : NFC_FAILED;
}

int nfc_pn65_send(const std::uint8_t* in, std::size_t len, std::uint8_t* out, std::uint8_t* p_outlen)
{
    answer a;
    const bool good = link_send(in, len, a);
    std::ranges::copy(a.bytes, out);
    *p_outlen = a.length;
    return good ? NFC_OK : NFC_FAILED;
}

int nfc_pn65_get_register(std::uint32_t reg, std::uint8_t* p_value)
{
    return read_register(reg, p_value) ? NFC_OK : NFC_FAILED;
}

int nfc_pn65_set_register(std::uint32_t reg, std::uint32_t value)
{
    return write_register(reg, value) ? NFC_OK : NFC_FAILED;
}

// The pipe to the identity gate, made by who wants it first. One that couldn't be opened is forgotten.
bool need_identity_pipe()
{
    constexpr std::size_t PIPE_AT = 8;
    if (id_mgnt_pipe_id != 0)
        return true;
    answer a;
    if (!send_row(ROW_CREATE_IDENTITY, 0, a))
        return false;
    id_mgnt_pipe_id = a.at(PIPE_AT);
    if (send_row(ROW_OPEN_IDENTITY, id_mgnt_pipe_id, a))
        return true;
    id_mgnt_pipe_id = 0;
    return false;
}

int nfc_pn65_getid(std::uint32_t type, std::uint8_t* out, std::uint8_t* p_outlen)
{
    constexpr std::uint32_t MOST = 6;
    if (!link_started() || !need_identity_pipe() || type < 1 || type > MOST)
        return NFC_FAILED;
    answer a;
    if (!send_row(ROW_IDENTITY_FIRST + static_cast<int>(type) - 1, id_mgnt_pipe_id, a))
        return NFC_FAILED;
    std::ranges::copy(a.bytes, out);
    *p_outlen = a.length;
    return NFC_OK;
}

int nfc_pn65_fw_dl(std::uint32_t gap_us, std::uint32_t* p_status)
{
    return nfc_pn65_fw_dnld(gap_us, p_status);
}

// clang-format off
constexpr nfc_co nfc_pn65_co = {
    .chip          = NFC_CHIP_PN65,
    .start         = nfc_pn65_start,
    .stop          = nfc_pn65_stop,
    .send          = nfc_pn65_send,
    .getid         = nfc_pn65_getid,
    .power_ctrl    = [](std::uint32_t, std::uint32_t) { return NFC_FAILED; },
    .rf_func       = [](const std::uint16_t*, std::size_t, std::uint8_t*, std::uint8_t*) { return NFC_FAILED; },
    .getreg        = nfc_pn65_get_register,
    .setreg        = nfc_pn65_set_register,
    .getparam      = [](std::uint32_t, std::uint8_t*) { return NFC_FAILED; },
    .setparam      = [](std::uint32_t, std::uint32_t) { return NFC_FAILED; },
    .change_baud   = [](std::uint32_t) { return NFC_FAILED; },
    .selftest      = nfc_pn65_selftest,
    .detect_tag    = nfc_pn65_detect_tag,
    .se_conn_test  = nfc_pn65_swptest,
    .mode_switch   = nfc_pn65_mode_switch,
    .polling       = nfc_pn65_polling,
    .lock_toggle   = nullptr,
    .gpio_read     = nullptr,
    .variant_chk   = nullptr,
    .simvdd_chk    = nullptr,
    .int_stat_func = nullptr,
    .fw_dnld_func  = nfc_pn65_fw_dl,
};
// clang-format on

} // namespace

bool send_frame(const frame& f, answer& a)
{
    const bool good = link_send(f.bytes.data(), f.size, a);
    tmr_usleep(BETWEEN_ROWS_US);
    return good;
}

bool send_row(int row, unsigned pipe, answer& a)
{
    frame f = row_with_settings(row);
    if (pipe != 0)
        f.bytes[1] = static_cast<std::uint8_t>(0x80 | pipe);
    return send_frame(f, a);
}

bool write_register(std::uint32_t reg, std::uint32_t value)
{
    frame f = register_frame(ROW_WRITE_REGISTER, reg);
    f.bytes[VALUE_AT] = static_cast<std::uint8_t>(value);
    answer a;
    return send_frame(f, a);
}

bool read_register(std::uint32_t reg, std::uint8_t* p_value)
{
    constexpr std::size_t TOLD_AT = 4;
    constexpr std::uint8_t MORE_THAN = 5;
    answer a;
    if (!send_frame(register_frame(ROW_READ_REGISTER, reg), a) || a.length <= MORE_THAN)
        return false;
    *p_value = a.at(TOLD_AT);
    return true;
}

} // namespace pn65

void nfc_pn65_init()
{
    pn65::id_mgnt_pipe_id = 0;
    pn65::link_set_started(false);
    nfc_co_attach(&pn65::nfc_pn65_co);
}

void nfc_pn65_conf(const nfc_pn65_cfg& cfg)
{
    pn65::nfc_cfg = cfg;
}
