#include "unit.h"

#include "tmr/tmr.h"
#include "tunerx/tuner_reg.h"
#include "tunerx/tunerx.h"

int unit_write(std::span<const unit_bits> group)
{
    const auto entries = create_tuner_data_rw(group.size());
    for (std::size_t i = 0; i < group.size(); i++)
        tuner_set_rw_data(&entries[i], tunerx_slave(group[i].unit), group[i].reg, TUNER_BY_MASK,
                          TUNER_BY_MASK, group[i].value, group[i].mask);
    return tuner_write_reg(entries.get(), group.size());
}

int unit_put(unsigned unit, unsigned reg, unsigned mask, unsigned value)
{
    const unit_bits one[] = {{static_cast<std::uint8_t>(unit), static_cast<std::uint8_t>(reg),
                              static_cast<std::uint8_t>(mask), static_cast<std::uint8_t>(value)}};
    return unit_write(one);
}

int unit_get(unsigned unit, unsigned reg, std::uint8_t& value)
{
    tuner_data_rw entry = {tunerx_slave(unit), static_cast<std::uint16_t>(reg), 0, 7, 0, 0};
    if (tuner_read_reg(&entry, 1) != 0)
        return -1;
    value = static_cast<std::uint8_t>(entry.param);
    return 0;
}

int unit_get_number(unsigned unit, unsigned reg, unsigned bytes, std::uint32_t& value)
{
    value = 0;
    for (unsigned i = 0; i < bytes; i++) {
        std::uint8_t byte;
        if (unit_get(unit, reg + i, byte) != 0)
            return -1;
        value = value << 8 | byte;
    }
    return 0;
}

bool unit_poll_goes_on(std::uint64_t start_ms, unsigned period_ms, unsigned limit_ms)
{
    if (tuner_get_time() - start_ms >= limit_ms)
        return false;
    if (tunXParams.wait != 0)
        tmr_msleep(period_ms);
    return true;
}

int unit_poll(unsigned unit, unsigned reg, unsigned wanted, unsigned period_ms, unsigned limit_ms,
              std::uint8_t& value)
{
    const std::uint64_t start_ms = tuner_get_time();
    do {
        if (unit_get(unit, reg, value) != 0)
            return -1;
        if ((value & wanted) == wanted)
            return 0;
    } while (unit_poll_goes_on(start_ms, period_ms, limit_ms));
    return UNIT_TIME_OVER;
}
