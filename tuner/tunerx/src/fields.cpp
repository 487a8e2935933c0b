#include "fields.h"

#include "tunerx/tunerx.h"

#include "unit.h"

namespace {

int read_fields(std::span<const field_row> rows, tunerx_field_record& record)
{
    tunerx_field_record found = {0, 0};
    for (const field_row& row : rows) {
        std::uint8_t value;
        if (unit_get(row.unit, row.reg, value) != 0)
            return -1;
        const std::uint32_t ones = field_ones(row.width);
        found.value |= (value >> row.bit & ones) << row.first;
        found.mask |= ones << row.first;
    }
    record = found;
    return TUNERX_OK;
}

int write_fields(std::span<const field_row> rows, const tunerx_field_record& record)
{
    for (const field_row& row : rows) {
        if (row.read_only || (record.mask >> row.first & 1) == 0)
            continue;
        const std::uint32_t ones = field_ones(row.width);
        if (unit_put(row.unit, row.reg, ones << row.bit, (record.value >> row.first & ones) << row.bit) != 0)
            return -1;
    }
    return TUNERX_OK;
}

} // namespace

int fields_access(std::span<const field_row> rows, tunerx_field_record& record)
{
    return record.mask == 0 ? read_fields(rows, record) : write_fields(rows, record);
}
