#include "dtst.h"

#include <array>
#include <cstring>
#include <iterator>

#include "cio_v2/cio.h"
#include "touch_v2/touch.h"

namespace {

// Actions of the command.
constexpr int ACTION_SELFTEST = 1;
constexpr int ACTION_SELFTEST_KIND_2 = 2;
constexpr int ACTION_SELFTEST_KIND_1 = 3;
constexpr int ACTION_TEST_MODE = 4;
constexpr int ACTION_SELFTEST_BY_MODE = 5;
constexpr int ACTION_DRIVER_TEST = 6;
constexpr int ACTION_SECONDARY = 7;

constexpr std::uint32_t MOST_MODE = 12;
constexpr std::uint32_t MOST_DRIVER_MODE = 6;
constexpr std::uint32_t MOST_SECONDARY_MODE = 10;
constexpr std::int32_t MOST_FRAMES = 255;
constexpr std::int32_t FRAMES_DEFAULT = -1; // the driver's own number
constexpr std::uint32_t kinds_by_mode[] = {7, 3, 4, 5, 6};

constexpr std::size_t MATRIX_SIZE = 8192;
using matrix_text = std::array<char, MATRIX_SIZE>;

struct dtst_values {
    int action = 0;
    std::uint32_t mode = 0;
    std::uint32_t min = 0;
    std::uint32_t max = 0;
    bool limits = false;                  // they were given
    std::int32_t frames = FRAMES_DEFAULT; // of the secondary tests, in the place of the lower limit
};

// The text is of any length, so it goes out as it is.
int answer_text(int id, const matrix_text& matrix)
{
    const cio_hold hold;
    dcp_bin_tx(id, "DTST:", 5, nullptr, nullptr);
    dcp_bin_tx(id, matrix.data(), strnlen(matrix.data(), matrix.size()), nullptr, nullptr);
    return DCP_OK;
}

int answer_result(int id, std::uint32_t result)
{
    dcp_printf(id, "dtst", "0x%02x", result);
    return DCP_OK;
}

int run_selftest(int id, std::uint32_t kind)
{
    if (touch_start() == 0)
        return DCP_ERROR;
    touch_selftest_rec rec{kind, {}};
    return touch_selftest(&rec) != 0 ? answer_result(id, rec.result[0])
                                     : dcp_answer(id, "dtst", " ", DCP_ERROR);
}

int answer_test_mode(int id, const dtst_values& v, const touch_test_mode_rec& rec, const matrix_text& matrix)
{
    if (v.mode == 0)
        return answer_result(id, rec.result);
    if (v.action == ACTION_DRIVER_TEST || (!v.limits && v.mode % 2 == 0))
        return answer_text(id, matrix);
    const auto min = static_cast<int>(rec.min);
    const auto max = static_cast<int>(rec.max);
    if (v.limits)
        dcp_printf(id, "dtst", "0x%02x,%d,%d", rec.result, min, max);
    else
        dcp_printf(id, "dtst", "%d,%d", min, max);
    return DCP_OK;
}

int run_test_mode(int id, const dtst_values& v)
{
    if (touch_start() == 0)
        return DCP_ERROR;
    matrix_text matrix{};
    touch_test_mode_rec rec{};
    rec.mode = v.mode;
    rec.action = static_cast<std::uint32_t>(v.action);
    rec.min = v.min;
    rec.max = v.max;
    rec.buffer = reinterpret_cast<std::uintptr_t>(matrix.data());
    rec.size = matrix.size();
    rec.iterations = static_cast<std::uint32_t>(v.frames);
    const bool secondary = v.action == ACTION_SECONDARY;
    if ((secondary ? touch_test_mode_secondary(&rec) : touch_test_mode(&rec)) == 0)
        return dcp_answer(id, "dtst", " ", DCP_ERROR);
    return secondary ? answer_text(id, matrix) : answer_test_mode(id, v, rec, matrix);
}

int run(int id, const dtst_values& v)
{
    switch (v.action) {
    case ACTION_SELFTEST:
        return run_selftest(id, 0);
    case ACTION_SELFTEST_KIND_2:
        return run_selftest(id, 2);
    case ACTION_SELFTEST_KIND_1:
        return run_selftest(id, 1);
    case ACTION_TEST_MODE:
        return run_test_mode(id, v);
    case ACTION_SELFTEST_BY_MODE:
        return v.mode < std::size(kinds_by_mode) ? run_selftest(id, kinds_by_mode[v.mode])
                                                 : dcp_answer(id, "dtst", " ", DCP_SYNTAX);
    case ACTION_DRIVER_TEST:
        return v.mode <= MOST_DRIVER_MODE ? run_test_mode(id, v) : dcp_answer(id, "dtst", " ", DCP_SYNTAX);
    case ACTION_SECONDARY:
        return v.mode <= MOST_SECONDARY_MODE && v.frames <= MOST_FRAMES
                   ? run_test_mode(id, v)
                   : dcp_answer(id, "dtst", " ", DCP_SYNTAX);
    default:
        return dcp_answer(id, "dtst", " ", DCP_SYNTAX);
    }
}

} // namespace

int do_touch_dtst(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "dtst", "Touch Screen Self Test", DCP_OK);
    if (argc < 1 || argc > 4)
        return dcp_answer(id, "dtst", " ", DCP_SYNTAX);
    const auto value = [=](int i) { return i < argc ? dcp_uint(argv[i]) : 0; };
    dtst_values v{dcp_int(argv[0]), value(1), value(2), value(3), argc == 4};
    if (argc > 2)
        v.frames = dcp_int(argv[2]);
    if (v.mode > MOST_MODE || v.min > v.max)
        v.action = 0;
    return run(id, v);
}
