#include "f_vibrator/f_vibrator.h"

#include <atomic>

#include "dcp/dcp.h"
#include "vibrator/vibrator.h"

namespace {

std::atomic<int> dcp_id; // the client of the last vibt, which gets the reports

int answer_done(int id)
{
    return dcp_answer(id, "vibc", " ", DCP_OK);
}

int vibc_off(int id)
{
    if (vibrator_stop() == 0)
        return answer_done(id);
    return dcp_answer(id, "vibc", "Turn off vibrator error", DCP_ERROR);
}

int vibc_on(int id)
{
    if (vibrator_start() == 0)
        return answer_done(id);
    return dcp_answer(id, "vibc", "Turn on vibrator error", DCP_ERROR);
}

int vibc_one(int id, int number)
{
    if (vibrator_start_with_level(number, VIBRATOR_DEFAULT_LEVEL) == 0)
        return answer_done(id);
    dcp_printf(id, "vibc", "Start singel vibrator number %d error", number);
    return DCP_ERROR;
}

int vibc_level(int id, int number, int level)
{
    if (vibrator_start_with_level(number, level) == 0)
        return answer_done(id);
    dcp_printf(id, "vibc", "Start singel vibrator number %d with level %d error", number, level);
    return DCP_ERROR;
}

int do_vibc(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET)
        return dcp_answer(id, "vibc", "Vibrator Test", DCP_OK);
    const auto number = [argv] { return static_cast<std::uint8_t>(argv[1]); };
    if (argc == 1 && dcp_uint(argv[0]) == 0)
        return vibc_off(id);
    if (argc < 1 || argc > 3 || dcp_uint(argv[0]) != 1)
        return DCP_SYNTAX;
    if (argc == 1)
        return vibc_on(id);
    return argc == 2 ? vibc_one(id, number()) : vibc_level(id, number(), dcp_int(argv[2]));
}

// On the test's thread, whatever command runs meanwhile.
void report(const char* text)
{
    dcp_printf(dcp_id, "vibt", "%s", text);
}

int test(int mode, int level)
{
    return vibr_test(mode, level, report) == 0 ? DCP_OK : DCP_ERROR;
}

int answer_result(int id)
{
    const vibr_result result = vibr_last_result();
    dcp_printf(id, "vibt", "freq=%3.6f      amplX=%1.6f       amplY=%1.6f       amplZ=%1.6f",
               result.frequency, result.amplitude[0], result.amplitude[1], result.amplitude[2]);
    return DCP_OK;
}

int do_vibt(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET)
        return dcp_answer(id, "vibt", "Test the amplitude & frequency of Vibrator", DCP_OK);
    dcp_id = id;
    if (argc < 1 || argc > 2)
        return DCP_ERROR;
    const int level = argc == 2 ? dcp_int(argv[1]) : VIBRATOR_DEFAULT_LEVEL;
    switch (dcp_uint(argv[0])) {
    case 1:
        return test(VIBR_ONCE, level);
    case 2:
        return test(VIBR_REPEAT, level);
    case 3:
        return test(VIBR_STOP, level);
    case 4:
        return answer_result(id);
    default:
        return DCP_ERROR;
    }
}

// clang-format off
constexpr dcp_cmd f_vibrator_cmd_tab[] = {
    // name    range                             format      label        handler  group
    { "vibc", "(0-1)[(1-2)[,(-6320-6320)]]",    "%v,%v,%v", "vibc()",    do_vibc, DCP_GRP_PRODUCTION },
    { "vibt", "(1-4)[,(0-65535)]",              "%d,%d",    "vibr test", do_vibt, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_vibrator_link;

} // namespace

void f_vibrator_init()
{
    dcp_cmd_add(f_vibrator_cmd_tab, &f_vibrator_link);
}
