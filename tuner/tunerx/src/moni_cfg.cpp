// Configuration and control of the monitors: the tables of their fields.
#include "fields.h"
#include "tunerx/tunerx.h"
#include "tunerx/tunerx_moni.h"
#include "unit.h"

namespace {

constexpr std::uint8_t B = TUNER_B;
constexpr std::uint8_t C = TUNER_C;
constexpr bool read_only = true;

// clang-format off
// Error rates, configuration: path 0 (wide), kind 0 (bits).
constexpr field_row cfg_wide_bits[] = {
    // first width unit  reg  bit
    {  0,    2,    B,    139,  6 },
    {  2,    4,    B,    140,  4 },
    {  6,    1,    B,    139,  5 },
    {  7,    1,    B,    139,  4 },
    {  8,    4,    B,    139,  0 },
    { 13,    4,    B,    140,  0 },
    { 17,    4,    B,    141,  4 },
    { 21,    4,    B,    141,  0 },
    { 25,    2,    B,    144,  2 },
};
constexpr field_row cfg_wide_packets[] = {
    {  6,    1,    B,    145,  5 },
    {  7,    1,    B,    145,  4 },
    {  8,    4,    B,    145,  0 },
    { 13,    4,    B,    140,  0 },
    { 17,    4,    B,    141,  4 },
    { 21,    4,    B,    141,  0 },
    { 25,    2,    B,    147,  2, read_only },
};
constexpr field_row cfg_narrow_bits[] = {
    {  6,    1,    C,    128,  5 },
    {  7,    1,    C,    128,  4 },
    {  8,    4,    C,    128,  0 },
    { 12,    1,    C,    168,  5 },
    { 13,    4,    C,    129,  0 },
};
constexpr field_row cfg_narrow_packets[] = {
    {  6,    1,    C,    130,  5 },
    {  7,    1,    C,    130,  4 },
    {  8,    4,    C,    130,  0 },
    { 12,    1,    C,    168,  6 },
    { 13,    4,    C,    129,  4 },
};

// Error rates, control.
constexpr field_row ctl_wide_bits[] = {
    {  0,    1,    B,    142,  0 },
    {  1,    1,    B,    142,  1 },
    {  2,    1,    B,    142,  2 },
    {  3,    1,    B,    142,  3 },
    {  4,    1,    B,    142,  4 },
    {  5,    1,    B,    142,  5 },
    {  6,    1,    B,    142,  6 },
};
constexpr field_row ctl_wide_packets[] = {
    {  0,    1,    B,    146,  0 },
    {  2,    1,    B,    146,  2 },
    {  3,    1,    B,    146,  3 },
    {  4,    1,    B,    146,  4 },
    {  5,    1,    B,    146,  5 },
};
constexpr field_row ctl_narrow_bits[] = {
    {  0,    1,    C,    131,  0 },
    {  2,    1,    C,    131,  3 },
    {  5,    1,    C,    131,  4 },
};
constexpr field_row ctl_narrow_packets[] = {
    {  0,    1,    C,    131,  1 },
    {  2,    1,    C,    131,  6 },
    {  5,    1,    C,    131,  7 },
};

// C/N, configuration and control.
constexpr field_row cfg_cn_wide[] = {
    {  0,    3,    B,    135,  2 },
};
constexpr field_row cfg_cn_narrow[] = {
    {  3,    4,    C,    125,  1 },
    {  7,    1,    C,    125,  0 },
    {  8,    1,    C,    125,  7 },
    {  9,    2,    C,    125,  5 },
};
constexpr field_row ctl_cn_wide[] = {
    {  0,    1,    B,    135,  0 },
    {  1,    1,    B,    135,  1 },
};
constexpr field_row ctl_cn_narrow[] = {
    {  0,    1,    C,    126,  0 },
    {  1,    1,    C,    126,  1 },
};
// clang-format on

using field_table = std::span<const field_row>;

constexpr field_table cfg_berper_tables[2][2] = {{cfg_wide_bits, cfg_wide_packets},
                                                 {cfg_narrow_bits, cfg_narrow_packets}};
constexpr field_table ctl_berper_tables[2][2] = {{ctl_wide_bits, ctl_wide_packets},
                                                 {ctl_narrow_bits, ctl_narrow_packets}};
constexpr field_table cfg_cn_tables[2] = {cfg_cn_wide, cfg_cn_narrow};
constexpr field_table ctl_cn_tables[2] = {ctl_cn_wide, ctl_cn_narrow};

bool is_one_of_two(int number)
{
    return number == 0 || number == 1;
}

// AC data: bit 6 of one register is the inverse of the value, of the other the value.
int read_ac(tunerx_field_record& record)
{
    const bool narrow = tunXParams.state == TUNER_NARROW;
    if (!narrow && tunXParams.state != TUNER_WIDE && tunXParams.state != TUNER_WIDE_THIRD)
        return TUNERX_WRONG_STATE;
    std::uint8_t reg;
    if (unit_get(narrow ? C : B, narrow ? 120 : 128, reg) != 0)
        return -1;
    const std::uint32_t bit = reg >> 6 & 1;
    record = {narrow ? bit : bit ^ 1, 1};
    return TUNERX_OK;
}

} // namespace

int tunerx_cfg_berper(int path, int kind, tunerx_field_record& record)
{
    if (!is_one_of_two(path) || !is_one_of_two(kind))
        return TUNERX_BAD_ARGUMENT;
    if (!tunerx_is_initialised())
        return TUNERX_WRONG_STATE;
    return fields_access(cfg_berper_tables[path][kind], record);
}

int tunerx_ctl_berper(int path, int kind, tunerx_field_record& record)
{
    if (!is_one_of_two(path) || !is_one_of_two(kind))
        return TUNERX_BAD_ARGUMENT;
    return fields_access(ctl_berper_tables[path][kind], record);
}

int tunerx_cfg_cn(int path, tunerx_field_record& record)
{
    return is_one_of_two(path) ? fields_access(cfg_cn_tables[path], record) : TUNERX_BAD_ARGUMENT;
}

int tunerx_ctl_cn(int path, tunerx_field_record& record)
{
    return is_one_of_two(path) ? fields_access(ctl_cn_tables[path], record) : TUNERX_BAD_ARGUMENT;
}

int tunerx_cfg_ac(tunerx_field_record& record)
{
    if (record.mask == 0)
        return read_ac(record);
    if ((record.mask & 1) == 0)
        return TUNERX_OK;
    const unsigned bit = record.value & 1;
    const unit_bits both[] = {{B, 128, 0x40, static_cast<std::uint8_t>((bit ^ 1) << 6)},
                              {C, 120, 0x40, static_cast<std::uint8_t>(bit << 6)}};
    return unit_write(both);
}
