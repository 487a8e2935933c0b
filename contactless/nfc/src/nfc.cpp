#include "nfc/nfc.h"

#include <array>

#include "check/check.h"

namespace {

constexpr std::size_t CHIPS = 3; // by number, from 1

const nfc_co* p_nfc_co;
std::array<const nfc_co*, CHIPS> nfc_co_map;

// Calls the operation of the current driver, if it has it.
template <typename... Params, typename... Args>
int call(int (*nfc_co::*operation)(Params...), Args... args)
{
    HVT_CHECK(p_nfc_co != nullptr);
    const auto fn = p_nfc_co->*operation;
    return fn != nullptr ? fn(args...) : NFC_ABSENT;
}

} // namespace

void nfc_init()
{
    p_nfc_co = nullptr;
    nfc_co_map = {};
}

void nfc_co_attach(const nfc_co* p_co)
{
    HVT_CHECK(p_co != nullptr && p_co->chip > 0 && static_cast<std::size_t>(p_co->chip) < CHIPS);
    nfc_co_map[static_cast<std::size_t>(p_co->chip)] = p_co;
    p_nfc_co = p_co;
}

void nfc_select(std::uint32_t chip)
{
    if (chip < CHIPS && nfc_co_map[chip] != nullptr)
        p_nfc_co = nfc_co_map[chip];
}

int nfc_start(std::uint32_t mode)
{
    return call(&nfc_co::start, mode);
}

int nfc_stop()
{
    return call(&nfc_co::stop);
}

int nfc_send(const std::uint8_t* in, std::size_t len, std::uint8_t* out, std::uint8_t* p_outlen)
{
    return call(&nfc_co::send, in, len, out, p_outlen);
}

int nfc_getid(std::uint32_t type, std::uint8_t* out, std::uint8_t* p_outlen)
{
    return call(&nfc_co::getid, type, out, p_outlen);
}

int nfc_power_ctrl(std::uint32_t line, std::uint32_t on)
{
    return call(&nfc_co::power_ctrl, line, on);
}

int nfc_rf_func(const std::uint16_t* values, std::size_t count, std::uint8_t* out, std::uint8_t* p_outlen)
{
    return call(&nfc_co::rf_func, values, count, out, p_outlen);
}

int nfc_getreg(std::uint32_t reg, std::uint8_t* p_value)
{
    return call(&nfc_co::getreg, reg, p_value);
}

int nfc_setreg(std::uint32_t reg, std::uint32_t value)
{
    return call(&nfc_co::setreg, reg, value);
}

int nfc_getparam(std::uint32_t id, std::uint8_t* p_value)
{
    return call(&nfc_co::getparam, id, p_value);
}

int nfc_setparam(std::uint32_t id, std::uint32_t value)
{
    return call(&nfc_co::setparam, id, value);
}

int nfc_change_baud(std::uint32_t rate)
{
    return call(&nfc_co::change_baud, rate);
}

int nfc_selftest(const std::uint8_t* in, std::size_t count, std::uint8_t* out, std::uint8_t* p_outlen)
{
    return call(&nfc_co::selftest, in, count, out, p_outlen);
}

int nfc_detect_tag(int* p_result)
{
    return call(&nfc_co::detect_tag, p_result);
}

int nfc_se_conn_test(int* p_result)
{
    return call(&nfc_co::se_conn_test, p_result);
}

int nfc_mode_switch(std::uint32_t mode)
{
    return call(&nfc_co::mode_switch, mode);
}

int nfc_polling(std::uint32_t mode, std::uint64_t microseconds, int* p_result)
{
    return call(&nfc_co::polling, mode, microseconds, p_result);
}

int nfc_lock_toggle()
{
    return call(&nfc_co::lock_toggle);
}

int nfc_gpio_read(std::uint32_t line, int* p_level)
{
    return call(&nfc_co::gpio_read, line, p_level);
}

int nfc_variant_chk(int* p_result)
{
    return call(&nfc_co::variant_chk, p_result);
}

int nfc_simvdd_chk(int* p_result)
{
    return call(&nfc_co::simvdd_chk, p_result);
}

int nfc_int_stat_func(int set, std::uint32_t* p_value)
{
    return call(&nfc_co::int_stat_func, set, p_value);
}

int nfc_fw_dnld_func(std::uint32_t gap_us, std::uint32_t* p_status)
{
    return call(&nfc_co::fw_dnld_func, gap_us, p_status);
}
