// Tests of the chip's own, which take bytes and give bytes.
#include "bytes_test/bytes_test.h"
#include "f_wlan_inner.h"
#include "wlan/wlan.h"

namespace {

// clang-format off
constexpr bytes_test coex = {
    .name              = "wbcx",
    .hexadecimal       = true,
    .most              = 10,
    .failed            = "",
    .refused_is_syntax = true,
    .run               = wlan_test_coex,
};

constexpr bytes_test selftest = {
    .name              = "wlst",
    .hexadecimal       = false,
    .most              = 20,
    .failed            = " ",
    .refused_is_syntax = false,
    .run               = wlan_selftest,
};
// clang-format on

const char* text_of(int argc, const dcp_word* argv)
{
    return argc > 0 ? dcp_text(argv[0]) : nullptr;
}

} // namespace

int do_wlan_wbcx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wbcx", "Wlan Coexistence test", DCP_OK);
    bytes_test_input input;
    if (!bytes_test_read(coex, id, text_of(argc, argv), input))
        return DCP_ERROR;
    if (!wlan_started)
        return dcp_answer(id, "wbcx", "", DCP_ERROR);
    if (!f_wlan_stop_tx())
        return dcp_answer(id, "wbcx", " ", DCP_ERROR);
    return bytes_test_run(coex, id, input);
}

int do_wlan_wlst(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wlst", "WLAN Selftest", DCP_OK);
    bytes_test_input input;
    if (!bytes_test_read(selftest, id, text_of(argc, argv), input))
        return DCP_ERROR;
    if (!f_wlan_stop_tx())
        return dcp_answer(id, "wlst", " ", DCP_ERROR);
    return bytes_test_run(selftest, id, input);
}
