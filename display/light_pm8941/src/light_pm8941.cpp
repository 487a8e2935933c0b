#include "light_pm8941/light_pm8941.h"

#include <cstdint>

#include "light/light.h"
#include "spmi/spmi.h"
#include "tmr/tmr.h"

namespace {

constexpr unsigned BUS = 0;
constexpr int LEDS = 3;
constexpr std::uint32_t SETTLE_MS = 5;

// PM8941, white LED block.
constexpr std::uint32_t INT_CLEAR = 0x1D814;
constexpr std::uint32_t INT_ENABLE = 0x1D815;
constexpr std::uint32_t INT_STATUS = 0x1D818;
constexpr std::uint32_t TEST_SELECT = 0x1D848; // the LED under test, 0 for none
constexpr std::uint32_t TEST_MODE = 0x1D84D;
constexpr std::uint8_t FAULT = 0x02;

int write_reg(std::uint32_t addr, std::uint8_t value)
{
    return spmi_write(BUS, addr, &value, 1);
}

int pm8941_lsot_start()
{
    return write_reg(TEST_MODE, 2) != 0 && write_reg(INT_ENABLE, FAULT) != 0 ? 1 : 0;
}

int pm8941_lsot_check_status(int n)
{
    if (n > LEDS)
        return LIGHT_LSOT_NONE;
    if (write_reg(TEST_SELECT, static_cast<std::uint8_t>(n)) == 0)
        return LIGHT_LSOT_FAILED;
    tmr_msleep(SETTLE_MS);
    std::uint8_t status;
    if (write_reg(INT_CLEAR, FAULT) == 0 || spmi_read(BUS, INT_STATUS, &status, 1) == 0)
        return LIGHT_LSOT_FAILED;
    return (status & FAULT) != 0 ? LIGHT_LSOT_FAULT : LIGHT_LSOT_GOOD;
}

// Whatever fails, the rest is put back.
int pm8941_lsot_finish()
{
    int done = write_reg(TEST_SELECT, 0);
    done &= write_reg(INT_CLEAR, FAULT);
    done &= write_reg(INT_ENABLE, 0);
    return done;
}

constexpr light_co light_pm8941_co = {
    .lsot_start = pm8941_lsot_start,
    .lsot_check_status = pm8941_lsot_check_status,
    .lsot_finish = pm8941_lsot_finish,
};

} // namespace

void light_pm8941_init()
{
    light_cmd_co_attach(&light_pm8941_co);
}
