#include "f_hdmi/f_hdmi.h"

#include <iterator>

#include "dcp/dcp.h"
#include "edid.h"
#include "hdmi/hdmi.h"

namespace {

constexpr const char* TONE_ERROR = "HDMI set output 1kHz sine tone error";

bool hdmi_started;

// What stands behind the function's number; a value that is left out counts as 0.
struct hdmi_values {
    int count; // with the function's number
    std::uint32_t a;
    std::uint32_t b;
};

using hdmi_function = int (*)(int id, const hdmi_values& v);

int answer_done(int id, int result, const char* error)
{
    return result >= 0 ? dcp_answer(id, "hdmi", " ", DCP_OK) : dcp_answer(id, "hdmi", error, DCP_ERROR);
}

int turn_off(int id, const hdmi_values&)
{
    const int result = hdmi_stop();
    hdmi_started = hdmi_started && result < 0;
    return answer_done(id, result, "Turn off hdmi error");
}

int turn_on(int id, const hdmi_values&)
{
    if (hdmi_started)
        return dcp_answer(id, "hdmi", "HDMI is already turn on", DCP_OK);
    const int result = hdmi_start();
    hdmi_started = result >= 0;
    return answer_done(id, result, "Turn on hdmi error");
}

int set_video(int id, const hdmi_values& v)
{
    return answer_done(id, hdmi_set_output_video(v.a, v.b), "HDMI set output video error");
}

int set_tone(int id, const hdmi_values& v)
{
    return answer_done(id, hdmi_set_output_sine_tone(v.a), TONE_ERROR);
}

int read_hdcp(int id, const hdmi_values&)
{
    std::uint8_t b[HDMI_HDCP_BYTES] = {};
    if (hdmi_read_hdcp(b) < 0)
        return dcp_answer(id, "hdmi", " ", DCP_ERROR);
    dcp_printf(id, "hdmi", "0x%X,0x%02X,0x%02X,0x%02X,0x%02X,0x%02X", b[0] + 0u, b[1] + 0u, b[2] + 0u,
               b[3] + 0u, b[4] + 0u, b[5] + 0u);
    return DCP_OK;
}

int detect_sink(int id, const hdmi_values& v)
{
    const int found = hdmi_sink_detection(v.count, v.a);
    if (found < 0)
        return dcp_answer(id, "hdmi", "HDMI sink service detection error", DCP_ERROR);
    dcp_printf(id, "hdmi", "0x%X", static_cast<unsigned>(found));
    return DCP_OK;
}

int read_edid(int id, const hdmi_values& v)
{
    return f_hdmi_edid(id, v.count > 1, v.a);
}

int send_cec(int id, const hdmi_values& v)
{
    const int sent = hdmi_send_cec(v.a);
    if (sent < 0)
        return dcp_answer(id, "hdmi", "HDMI set CEC identifier error", DCP_ERROR);
    dcp_printf(id, "hdmi", "%d", sent + 1);
    return DCP_OK;
}

// Stations know this failure by the tone's text.
int test_tmds(int id, const hdmi_values& v)
{
    return answer_done(id, hdmi_tmds_test(v.a), TONE_ERROR);
}

int download_firmware(int id, const hdmi_values&)
{
    return answer_done(id, hdmi_firmware_download(), "Download hdmi firmware error");
}

struct function_row {
    hdmi_function fn;
    int most_values; // the function's number included
    std::uint32_t most_a;
};

constexpr std::uint32_t ANY = UINT32_MAX;
constexpr std::size_t TURN_ON = 1; // the one function for an output that is off

// clang-format off
constexpr function_row functions[] = {
    { turn_off,          3, ANY },
    { turn_on,           3, ANY },
    { set_video,         3, ANY },
    { set_tone,          3, ANY },
    { read_hdcp,         3, ANY },
    { detect_sink,       2, ANY },
    { read_edid,         2, 1   },
    { send_cec,          3, ANY },
    { test_tmds,         3, ANY },
    { download_firmware, 3, ANY },
};
// clang-format on

int do_hdmi(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET)
        return dcp_answer(id, "hdmi", "hdmi Test", DCP_OK);
    if (argc == 0)
        return DCP_ERROR;
    const std::uint32_t number = dcp_uint(argv[0]);
    const hdmi_values v = {argc, argc > 1 ? dcp_uint(argv[1]) : 0, argc > 2 ? dcp_uint(argv[2]) : 0};
    if (number >= std::size(functions) || argc > functions[number].most_values ||
        v.a > functions[number].most_a)
        return dcp_answer(id, "hdmi", " ", DCP_SYNTAX);
    if (number != TURN_ON && !hdmi_started)
        return dcp_answer(id, "hdmi", "HDMI is not turn on", DCP_ERROR);
    return functions[number].fn(id, v);
}

// clang-format off
constexpr dcp_cmd f_hdmi_cmd_tab[] = {
    { "hdmi", "(0-9)[,(0-255)[,(B)]]", "%v,%v,%v", "hdmi()", do_hdmi, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_hdmi_link;

} // namespace

void f_hdmi_init()
{
    dcp_cmd_add(f_hdmi_cmd_tab, &f_hdmi_link);
}
