#include "tests.h"

#include <algorithm>
#include <span>

#include "nfc/nfc.h"

namespace pn65 {

namespace {

constexpr std::uint64_t POLL_ROUND_US = 2000;

// A step of a sequence: a row, and the pipe that takes the place of its own unless it is 0.
struct step {
    int row;
    unsigned pipe = 0;
};

bool send_steps(std::span<const step> steps)
{
    answer a;
    return std::ranges::all_of(steps, [&a](const step& s) { return send_row(s.row, s.pipe, a); });
}

// A write on the pattern of `row`, to another register than the row's.
bool write_like(int row, std::uint16_t reg, std::uint8_t value)
{
    frame f = frame_of_row(row);
    f.bytes[4] = static_cast<std::uint8_t>(reg >> 8);
    f.bytes[5] = static_cast<std::uint8_t>(reg);
    f.bytes[6] = value;
    answer a;
    return send_frame(f, a);
}

bool write_row(int row, std::uint8_t value)
{
    frame f = frame_of_row(row);
    f.bytes[6] = value;
    answer a;
    return send_frame(f, a);
}

struct reg_value {
    std::uint16_t reg;
    std::uint8_t value;
};

// clang-format off
constexpr reg_value antenna_setup[] = {
    { 0x9CA0, 0x10 },
    { 0x9CA1, 0x10 },
    { 0x9CA2, 0x10 },
    { 0x9CA3, 0x10 },
    { 0x9CA4, 0x10 },
    { 0x9CA5, 0x10 },
    { 0x9CA6, 0x10 },
    { 0x9CA7, 0x07 },
    { 0x9CA8, 0x01 },
};

constexpr step detect_steps[] = {
    { 25 }, { ROW_OPEN_PIPE, 2 },
    { 26 }, { ROW_OPEN_PIPE, 3 },
    { 27 }, { ROW_OPEN_PIPE, 4 },
    { 28 }, { ROW_OPEN_PIPE, 5 },
    { 29 },
    { 30 }, { ROW_OPEN_PIPE, 6 },
    { 31 }, { ROW_OPEN_PIPE, 7 },
    { 32 }, { ROW_OPEN_PIPE, 8 },
    { 33 }, { 34 }, { 35 },
};

constexpr step polling_setup[] = { { 44 }, { 45 }, { 44 }, { 46 }, { 44 }, { 47 }, { 48 }, { 50 }, { 51 } };
constexpr step polling_a[] = { { 52 }, { ROW_OPEN_POLLED, 3 }, { 53 } };
constexpr step polling_b[] = { { 54 }, { ROW_OPEN_POLLED, 3 }, { 55 } };
constexpr step polling_f[] = { { 56 }, { ROW_OPEN_POLLED, 3 } };
constexpr step polling_end[] = { { 58 }, { 59 }, { 60 }, { 61 }, { 3 }, { 4 } };
// clang-format on

std::span<const step> polling_of(std::uint32_t mode)
{
    switch (mode) {
    case 0:
        return polling_a;
    case 1:
        return polling_b;
    case 2:
        return polling_f;
    default:
        return {};
    }
}

// The parameters of the self test in their order.
struct antenna_params {
    std::array<std::uint8_t, 3> test = {3, 5, 14};
    std::array<std::uint8_t, 3> levels = {17, 17, 3}; // registers 9BF5 to 9BF7
    std::uint8_t reg_989f = 45;
    std::uint8_t reg_989d = 39;
};

constexpr std::size_t ANTENNA_PARAMS = 8;

antenna_params params_of(const std::uint8_t* in, std::size_t count)
{
    antenna_params p;
    std::uint8_t* const places[ANTENNA_PARAMS] = {&p.test[0],   &p.test[1],   &p.test[2],  &p.levels[0],
                                                  &p.levels[1], &p.levels[2], &p.reg_989f, &p.reg_989d};
    for (std::size_t i = 0; i < count; i++)
        *places[i] = in[i];
    return p;
}

bool set_up_antenna(const antenna_params& p)
{
    for (const reg_value& r : antenna_setup)
        if (!write_like(ROW_ANTENNA_REGISTER, r.reg, r.value))
            return false;
    answer a;
    return write_row(ROW_ANTENNA_989F, p.reg_989f) && write_row(ROW_ANTENNA_989D, p.reg_989d) &&
           send_row(ROW_ANTENNA_989E, 0, a) && write_like(ROW_ANTENNA_LEVELS, 0x9BF5, p.levels[0]) &&
           write_like(ROW_ANTENNA_LEVELS, 0x9BF6, p.levels[1]) &&
           write_like(ROW_ANTENNA_LEVELS, 0x9BF7, p.levels[2]);
}

} // namespace

// The station judges what was measured.
int nfc_pn65_selftest(const std::uint8_t* in, std::size_t count, std::uint8_t* out, std::uint8_t* p_outlen)
{
    constexpr std::uint8_t MORE_THAN = 8;
    constexpr std::size_t FIRST = 4, MEASURED = 4;
    if (count > ANTENNA_PARAMS)
        return NFC_BAD_ARGUMENT;
    const antenna_params p = params_of(in, count);
    if (!set_up_antenna(p))
        return NFC_FAILED;
    frame f = frame_of_row(ROW_SELF_TEST);
    std::ranges::copy(p.test, f.bytes.begin() + 3);
    answer a;
    if (!send_frame(f, a) || a.length <= MORE_THAN)
        return NFC_FAILED;
    std::copy_n(a.bytes.begin() + FIRST, MEASURED, out);
    *p_outlen = MEASURED;
    return NFC_OK;
}

// The pipes are named as if none had existed before; what the chip says of them isn't looked at. No card is
// no answer.
int nfc_pn65_detect_tag(int* p_result)
{
    if (!send_steps(detect_steps))
        return NFC_FAILED;
    answer a;
    if (!send_row(ROW_DETECT, 0, a))
        *p_result = 0;
    else
        *p_result = a.at(4) != 0 ? 2 : 1;
    return NFC_OK;
}

int nfc_pn65_swptest(int* p_result)
{
    constexpr std::uint8_t MORE_THAN = 3;
    answer a;
    if (!send_row(ROW_SWP_TEST, 0, a) || a.length <= MORE_THAN)
        return NFC_FAILED;
    *p_result = a.at(4) == 0 ? 1 : 0;
    return NFC_OK;
}

int nfc_pn65_polling(std::uint32_t mode, std::uint64_t microseconds, int* p_result)
{
    if (!send_steps(polling_setup) || !send_steps(polling_of(mode)))
        return NFC_FAILED;
    link_set_poll_rounds(microseconds / POLL_ROUND_US);
    answer a;
    if (!send_row(ROW_POLL, 0, a))
        return NFC_FAILED;
    *p_result = a.at(2) == 0x83 && a.at(3) == 0x50 && a.at(4) == 0 ? 1 : 0;
    return send_steps(polling_end) ? NFC_OK : NFC_FAILED;
}

} // namespace pn65
