#include "nfc_tamiro_qxr5170jvk_brenk/nfc_tamiro_qxr5170jvk_brenk.h"

#include <algorithm>

#include "commands.h"
#include "line.h"
#include "nfc/nfc.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "rf.h"
#include "tmr/tmr.h"

namespace qxr5170jvk {

namespace {

constexpr std::uint32_t POWER_UP_US = 10000;
constexpr std::uint32_t ROUND_US = 1000;
constexpr std::uint32_t AFTER_HCI_US = 100;
constexpr std::uint32_t LOCK_US = 1000;
constexpr std::uint32_t SIM_SUPPLY_US = 100000;
constexpr std::uint32_t OFF_US = 1000;
constexpr int READY_ROUNDS = 100;

constexpr std::uint32_t REG_INTERRUPT = 9;
constexpr int VARIANT_UNKNOWN = 3;

constexpr int ROW_OPEN_ADMIN = 0;
constexpr int ROW_OPEN_LINK = 1;
constexpr int ROW_CREATE_IDENTITY = 2;
constexpr int ROW_OPEN_PIPE = 3;
constexpr int ROW_IDENTITY_FIRST = 10;
constexpr int ROW_IDENTITY_OF_2 = 16;
constexpr int ROW_SWP_TEST = 19;
constexpr std::uint32_t IDENTITY_LAST = 6;
constexpr std::uint32_t ID_OF_CARD = 7;
constexpr std::uint32_t ID_OF_PIPE_2 = 8;

unsigned id_mgnt_pipe_id; // 0: none

int result_of(bool good)
{
    return good ? NFC_OK : NFC_FAILED;
}

// Most operations want the chip powered by hand, `nfpc`, not only started.
bool powered()
{
    return state.started && state.pon;
}

int tamiro_start(std::uint32_t)
{
    if (state.started)
        return NFC_FAILED;
    id_mgnt_pipe_id = 0;
    bool good = Tamiro_open() && Tamiro_msmbaudrate(RATE_460800);
    good = Tamiro_set_cen(true) && good;
    good = Tamiro_set_pon(true) && good;
    tmr_usleep(POWER_UP_US);
    state.started = true;
    reply r;
    good = Tamiro_set_hsel(true) && good;
    good = qxr5170jvk_nfc_sf(ROW_OPEN_ADMIN, 0, r) && good;
    good = qxr5170jvk_nfc_sf(ROW_OPEN_LINK, 0, r) && good;
    good = Tamiro_set_hsel(false) && good;
    state.started = good;
    return result_of(good);
}

int tamiro_stop()
{
    if (!state.started)
        return NFC_FAILED;
    std::uint8_t dropped;
    Tamiro_read(&dropped, 1);
    Tamiro_set_pon(false);
    Tamiro_set_cen(false);
    Tamiro_set_tvdd(false);
    Tamiro_close();
    id_mgnt_pipe_id = 0;
    state = {};
    return NFC_OK;
}

bool send_hci(std::span<const std::uint8_t> bytes, reply& r)
{
    const bool hci = Tamiro_set_hsel(true);
    const bool sent = qxr5170jvk_nfc_send(bytes, r);
    tmr_usleep(AFTER_HCI_US);
    return Tamiro_set_hsel(false) && hci && sent;
}

int tamiro_send(const std::uint8_t* in, std::size_t len, std::uint8_t* out, std::uint8_t* p_outlen)
{
    constexpr std::uint8_t NATIVE = 0, HCI = 1;
    if (len == 0 || in[0] > HCI)
        return NFC_FAILED;
    reply r;
    const std::span bytes(in + 1, len - 1);
    const bool good = in[0] == NATIVE ? qxr5170jvk_tamiro_send(bytes, r) : send_hci(bytes, r);
    std::ranges::copy(r.bytes, out);
    *p_outlen = r.length;
    return result_of(good);
}

// The chip says so when it is ready; that it doesn't is no failure.
void await_ready()
{
    std::array<std::uint8_t, 4> buf{};
    tmr_usleep(POWER_UP_US);
    for (int i = 0; i < READY_ROUNDS && buf[1] != 0xF5 && buf[2] != 0x55; i++) {
        Tamiro_read(buf.data(), buf.size());
        tmr_usleep(ROUND_US);
    }
}

int tamiro_power_ctrl(std::uint32_t line, std::uint32_t on)
{
    if (!state.started)
        return NFC_FAILED;
    bool set = false;
    switch (line) {
    case 0:
        set = Tamiro_set_tvdd(on != 0);
        state.tvdd = on != 0;
        break;
    case 1:
        set = Tamiro_set_pon(on != 0);
        state.pon = on != 0;
        if (on != 0)
            await_ready();
        break;
    case 2:
        set = Tamiro_set_cen(on != 0);
        break;
    case 3:
        set = Tamiro_set_sim(on != 0);
        break;
    default:
        break;
    }
    return result_of(set);
}

int tamiro_rf_func(const std::uint16_t* values, std::size_t count, std::uint8_t* out, std::uint8_t* p_outlen)
{
    return powered() ? rf_func(values, count, &id_mgnt_pipe_id, out, p_outlen) : NFC_FAILED;
}

int tamiro_get_register(std::uint32_t reg, std::uint8_t* p_value)
{
    return result_of(powered() && read_register(reg, p_value));
}

int tamiro_set_register(std::uint32_t reg, std::uint32_t value)
{
    return result_of(powered() && write_register(reg, value));
}

int tamiro_get_parameter(std::uint32_t id, std::uint8_t* p_value)
{
    return result_of(powered() && get_parameter(id, p_value));
}

int tamiro_set_parameter(std::uint32_t id, std::uint32_t value)
{
    return result_of(powered() && set_parameter(id, value));
}

// The line ends at 460800 whatever becomes of it: a chip at another speed is deaf until it is called back.
int tamiro_change_baud(std::uint32_t rate)
{
    if (!powered() || (rate != RATE_460800 && rate != RATE_115200))
        return NFC_FAILED;
    bool good = Tamiro_msmbaudrate(rate == RATE_115200 ? RATE_460800 : RATE_115200);
    challenge_baud_rate(baud_code(rate));
    good = Tamiro_msmbaudrate(rate) && good;
    good = read_baud_rate() && commit_baud_rate() && good;
    good = Tamiro_msmbaudrate(RATE_460800) && good;
    return result_of(good);
}

bool need_identity_pipe()
{
    constexpr std::size_t PIPE_AT = 6;
    if (id_mgnt_pipe_id != 0)
        return true;
    reply r;
    if (!qxr5170jvk_nfc_sf(ROW_CREATE_IDENTITY, 0, r) || r.length <= PIPE_AT)
        return false;
    id_mgnt_pipe_id = r.at(PIPE_AT);
    if (qxr5170jvk_nfc_sf(ROW_OPEN_PIPE, id_mgnt_pipe_id, r))
        return true;
    id_mgnt_pipe_id = 0;
    return false;
}

bool read_identity(std::uint32_t type, reply& r)
{
    if (!need_identity_pipe())
        return false;
    if (type >= 1 && type <= IDENTITY_LAST)
        return qxr5170jvk_nfc_sf(ROW_IDENTITY_FIRST + static_cast<int>(type) - 1, id_mgnt_pipe_id, r);
    return type == ID_OF_PIPE_2 && qxr5170jvk_nfc_sf(ROW_IDENTITY_OF_2, 2, r);
}

int tamiro_getid(std::uint32_t type, std::uint8_t* out, std::uint8_t* p_outlen)
{
    *p_outlen = 0;
    if (!powered())
        return NFC_FAILED;
    if (type == ID_OF_CARD) {
        card_id id;
        if (!poll_own_card(id))
            return NFC_FAILED;
        std::ranges::copy(id, out);
        *p_outlen = CARD_ID_SIZE;
        return NFC_OK;
    }
    reply r;
    const bool hci = Tamiro_set_hsel(true);
    const bool good = read_identity(type, r);
    if (!Tamiro_set_hsel(false) || !hci || !good)
        return NFC_FAILED;
    std::ranges::copy(r.bytes, out);
    *p_outlen = r.length;
    return NFC_OK;
}

// An exchange that fails leaves the chip in its HCI personality.
int nfc_qxr5170jvk_swptest(int* p_result)
{
    constexpr std::uint8_t MORE_THAN = 5;
    constexpr std::uint8_t PRESENT[] = {0x09, 0x00, 0x01, 0x10, 0x00, 0x03};
    constexpr std::uint8_t ABSENT[] = {0x09, 0x00, 0x01, 0x01};
    reply r;
    if (!Tamiro_set_hsel(true) ||
        !qxr5170jvk_nfc_send(nfc_tamiro_qxr5170jvk_brenk_hci_cmd_get(ROW_SWP_TEST), r) ||
        r.length <= MORE_THAN || !Tamiro_set_hsel(false))
        return NFC_FAILED;
    const auto from_1 = r.bytes.begin() + 1;
    *p_result = std::ranges::equal(PRESENT, std::span(from_1, std::size(PRESENT))) ? 1 : 0;
    return result_of(*p_result == 1 || std::ranges::equal(ABSENT, std::span(from_1, std::size(ABSENT))));
}

int tamiro_lock_toggle()
{
    for (const int level : {PIN_INACTIVE, PIN_ACTIVE, PIN_INACTIVE}) {
        if (pin_out_set(PIN_OUT_LOCK_LINE, level) == 0)
            return NFC_FAILED;
        tmr_usleep(LOCK_US);
    }
    return NFC_OK;
}

int tamiro_gpio_read(std::uint32_t line, int* p_level)
{
    constexpr int lines[] = {PIN_IN_NFC2_STATUS1, PIN_IN_NFC2_STATUS2, PIN_IN_NFC_IRQ};
    if (line < 1 || line > std::size(lines))
        return NFC_FAILED;
    const int level = pin_in_get_lev(lines[line - 1]);
    if (level > 1)
        return NFC_FAILED;
    *p_level = level;
    return NFC_OK;
}

// The variant that the chip's card side tells; the phone's type says which it has to be.
int find_variant()
{
    card_id id;
    if (!poll_own_card(id))
        return VARIANT_UNKNOWN;
    const int variant = ask_variant(id);
    return variant != 0 ? variant : VARIANT_UNKNOWN;
}

// Keeps the variant in the chip, and sees whether it is still there behind a restart.
bool keep_variant(int variant, std::uint8_t old)
{
    const auto value = static_cast<std::uint32_t>(variant << 6 | (old & 0x3F));
    if (!set_parameter(PARAM_VARIANT, value) || !Tamiro_set_pon(false))
        return false;
    tmr_usleep(OFF_US);
    if (!Tamiro_set_pon(true))
        return false;
    tmr_usleep(POWER_UP_US);
    std::uint8_t kept = 0;
    return get_parameter(PARAM_VARIANT, &kept) && kept >> 6 == variant;
}

int tamiro_variant_chk(int* p_result)
{
    if (!powered())
        return NFC_FAILED;
    const int expected = pin_in_get_lev(PIN_IN_NFC2_VARIANT) == 1 ? 2 : 1;
    std::uint8_t old = 0;
    if (get_parameter(PARAM_VARIANT, &old) && old >> 6 != 0) {
        *p_result = old >> 6;
        return result_of(*p_result == expected);
    }
    *p_result = find_variant();
    return result_of(*p_result == expected && keep_variant(*p_result, old));
}

int tamiro_simvdd_chk(int* p_result)
{
    return result_of(Tamiro_check_sim_supply(SIM_SUPPLY_US, p_result));
}

int tamiro_int_stat_func(int set, std::uint32_t* p_value)
{
    if (set != 0)
        return tamiro_set_register(REG_INTERRUPT, *p_value);
    *p_value = pin_in_get_lev(PIN_IN_NFC_IRQ) == 1 ? 1 : 0;
    return NFC_OK;
}

// clang-format off
constexpr nfc_co nfc_tamiro_qxr5170jvk_brenk_co = {
    .chip          = NFC_CHIP_QXR5170JVK,
    .start         = tamiro_start,
    .stop          = tamiro_stop,
    .send          = tamiro_send,
    .getid         = tamiro_getid,
    .power_ctrl    = tamiro_power_ctrl,
    .rf_func       = tamiro_rf_func,
    .getreg        = tamiro_get_register,
    .setreg        = tamiro_set_register,
    .getparam      = tamiro_get_parameter,
    .setparam      = tamiro_set_parameter,
    .change_baud   = tamiro_change_baud,
    .selftest      = nullptr,
    .detect_tag    = nullptr,
    .se_conn_test  = nfc_qxr5170jvk_swptest,
    .mode_switch   = nullptr,
    .polling       = nullptr,
    .lock_toggle   = tamiro_lock_toggle,
    .gpio_read     = tamiro_gpio_read,
    .variant_chk   = tamiro_variant_chk,
    .simvdd_chk    = tamiro_simvdd_chk,
    .int_stat_func = tamiro_int_stat_func,
    .fw_dnld_func  = nullptr,
};
// clang-format on

} // namespace

} // namespace qxr5170jvk

void nfc_tamiro_qxr5170jvk_brenk_init()
{
    qxr5170jvk::state = {};
    nfc_co_attach(&qxr5170jvk::nfc_tamiro_qxr5170jvk_brenk_co);
}
