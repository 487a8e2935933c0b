#include "f_audio_v2/f_audio.h"

#include <cstdio>
#include <string>

#include "audio_v2/audio.h"
#include "dcp/dcp.h"

namespace {

// Values of a path word's lower half.
constexpr std::uint32_t STOP = 0;
constexpr std::uint32_t START = 1;

int f_audio_resp_conv(int result)
{
    switch (result) {
    case 0:
        return DCP_OK;
    case -9:
        return DCP_SYNTAX;
    case -8:
        return DCP_NOT_FOUND;
    case -7:
        return DCP_BLOCKED;
    default:
        return DCP_ERROR;
    }
}

int empty(int id, const char* name, int status)
{
    return dcp_answer(id, name, "", status);
}

// `value` in the `bits` from `shift` on.
audio_path put(audio_path path, dcp_word value, int shift, std::uint32_t mask)
{
    return (path & ~(mask << shift)) | (dcp_uint(value) & mask) << shift;
}

// Mode, route and 16 bits of value; 0 without a value.
audio_path f_audio_get_aloop_path(int argc, const dcp_word* argv)
{
    if (argc < 1 || argc > 3)
        return 0;
    audio_path path = put(0xFFFFFFFF, argv[0], 24, 0xFF);
    if (argc > 1)
        path = put(path, argv[1], 16, 0xFF);
    return argc > 2 ? put(path, argv[2], 0, 0xFFFF) : path;
}

// Four bytes from the top; 0 without a value.
audio_path f_audio_get_gain_path(int argc, const dcp_word* argv)
{
    if (argc < 1 || argc > 4)
        return 0;
    audio_path path = 0xFFFFFFFF;
    for (int i = 0; i < argc; i++)
        path = put(path, argv[i], 24 - 8 * i, 0xFF);
    return path;
}

audio_path f_audio_set_gain_path(unsigned mode, unsigned route, unsigned step, unsigned second)
{
    return mode << 24 | route << 16 | step << 8 | second;
}

unsigned mode_of(audio_path path)
{
    return path >> 24;
}

int f_audio_tgen(audio_path path)
{
    if ((path & 0x0F0F0000) == 0x01000000)
        return audio_tgen_init(path);
    switch (path & 0xFFFF) {
    case STOP:
        return audio_tgen_stop(path);
    case START:
        return audio_tgen_start(path);
    default:
        return AUDIO_WRONG_PATH;
    }
}

int f_audio_auan(audio_path path, audio_result* p_result)
{
    switch (path & 0xFFFF) {
    case STOP:
        return audio_auan_stop(path, p_result);
    case START:
        return audio_auan_start(path);
    case AUDIO_NO_VALUE:
        return audio_auan_init(path);
    default:
        return AUDIO_WRONG_PATH;
    }
}

int f_audio_tgen_auan(audio_path path, audio_result* p_result)
{
    switch (path & 0xFFFF) {
    case STOP:
        return audio_tgen_auan_stop(path, p_result);
    case START:
        return audio_tgen_auan_start(path);
    case AUDIO_NO_VALUE:
        return audio_tgen_auan_init(path);
    default:
        return AUDIO_WRONG_PATH;
    }
}

int aloop(audio_path path, audio_result* p_result)
{
    switch (mode_of(path)) {
    case 1:
        return f_audio_tgen(path);
    case 2:
        return f_audio_auan(path, p_result);
    case 3:
        return f_audio_tgen_auan(path, p_result);
    case 5:
    case 6:
    case 7:
        return audio_loopback(path);
    default:
        return AUDIO_WRONG_PATH;
    }
}

int do_aloop(int id, int action, int argc, const dcp_word* argv)
{
    const audio_path path = f_audio_get_aloop_path(argc, argv);
    if (path == 0)
        return empty(id, "aloop", DCP_ERROR);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "aloop", "Audio loop control", DCP_OK);
    if (action == DCP_ACTION_READ)
        return DCP_ERROR;
    audio_result result = {-1, -1, -1};
    const int status = f_audio_resp_conv(aloop(path, &result));
    if (result.frequency == -1)
        return empty(id, "aloop", status);
    dcp_printf(id, "aloop", "%d,%d,%d", result.frequency, result.level, result.power);
    return status;
}

int set_gain(audio_path path)
{
    switch (mode_of(path)) {
    case 1:
        return audio_tgen_gain(path);
    case 2:
        return audio_auan_gain(path);
    case 3:
        return audio_tgen_auan_gain(path);
    case 5:
        return audio_lb_sp_gain(path);
    case 6:
        return audio_lb_mic_gain(path);
    default:
        return AUDIO_WRONG_PATH;
    }
}

int do_gain(int id, int action, int argc, const dcp_word* argv)
{
    if (argc < 3 || action == DCP_ACTION_READ)
        return empty(id, "gain", DCP_ERROR);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "gain", "Configure audio gains both input and output", DCP_OK);
    return empty(id, "gain", f_audio_resp_conv(set_gain(f_audio_get_gain_path(argc, argv))));
}

// One of a set of gains: the route of a mode, its step (one of a, b, c, or 1) and the second step.
struct again_row {
    int (*set)(audio_path path);
    unsigned mode;
    unsigned route;
    char step;
    char second;
};

// clang-format off
constexpr again_row again_output[] = {
    { audio_tgen_gain,      1, 3, 'a', '1' },
    { audio_tgen_gain,      1, 1, 'b', '1' },
    { audio_tgen_gain,      1, 2, 'b', '1' },
    { audio_tgen_gain,      1, 4, 'c', '1' },
    { audio_tgen_gain,      1, 5, 'c', '1' },
    { audio_tgen_auan_gain, 3, 1, 'c', '1' },
    { audio_tgen_auan_gain, 3, 2, 'c', '1' },
};

constexpr again_row again_input[] = {
    { audio_auan_gain,      2, 1, 'a', '1' },
    { audio_tgen_auan_gain, 3, 1, '1', 'b' },
    { audio_tgen_auan_gain, 3, 2, '1', 'b' },
    { audio_auan_gain,      2, 2, 'c', '1' },
};
// clang-format on

// Up to the first failure. `steps` are a, b and c.
template <std::size_t size>
bool set_gains(const again_row (&rows)[size], const dcp_word* steps)
{
    const auto value = [steps](char which) {
        return which == '1' ? 1u : dcp_uint(steps[which - 'a']) & 0xFF;
    };
    for (const again_row& row : rows)
        if (row.set(f_audio_set_gain_path(row.mode, row.route, value(row.step), value(row.second))) != 0)
            return false;
    return true;
}

int do_again(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_READ)
        return empty(id, "again", DCP_ERROR);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "again", "Configure audio gains both input and output", DCP_OK);
    if (argc != 5)
        return empty(id, "again", DCP_SYNTAX);
    const std::uint32_t side = dcp_uint(argv[0]);
    const bool done = side == 1   ? set_gains(again_output, argv + 1)
                      : side == 0 ? set_gains(again_input, argv + 1)
                                  : false;
    return done ? empty(id, "again", DCP_OK) : DCP_ERROR;
}

int do_aurst(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_READ)
        return empty(id, "aurst", DCP_ERROR);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "aurst", "Audio Reset", DCP_OK);
    if (argc != 1 || (dcp_uint(argv[0]) != 0 && dcp_uint(argv[0]) != 3))
        return empty(id, "aurst", DCP_SYNTAX);
    return empty(id, "aurst", audio_reset(dcp_uint(argv[0])) != 0 ? DCP_OK : DCP_ERROR);
}

int do_ajdt(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "ajdt", "Audio Jack connectivity test", DCP_OK);
    if (action == DCP_ACTION_READ || argc != 1 || dcp_uint(argv[0]) != 0)
        return empty(id, "ajdt", DCP_SYNTAX);
    dcp_printf(id, "ajdt", "0x%01x", static_cast<unsigned>(ajdt_detect()));
    return DCP_OK;
}

// Tones run through aloop.
int do_tgen(int id, int, int, const dcp_word*)
{
    return empty(id, "tgen", DCP_ERROR);
}

int do_aupth(int, int, int, const dcp_word*)
{
    return DCP_ERROR;
}

void send_bytes(int id, const std::string& text)
{
    dcp_bin_tx(id, text.data(), text.size(), nullptr, nullptr);
}

// The registers that a codec hands over go out as pairs, a line each, past the rules of responses.
struct register_lines {
    int id;
    bool begun;
};

void send_register(unsigned reg, unsigned value, void* arg)
{
    auto* const p_lines = static_cast<register_lines*>(arg);
    char line[32];
    std::snprintf(line, sizeof line, "0x%02x,0x%02x\r\n", reg, value);
    send_bytes(p_lines->id, std::string(p_lines->begun ? "" : "\r\n") + line);
    p_lines->begun = true;
}

int do_adump(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "adump", "Dump audio registers", DCP_OK);
    if (action == DCP_ACTION_READ || argc != 1 || dcp_uint(argv[0]) != 1)
        return DCP_SYNTAX;
    empty(id, "adump", DCP_OK);
    register_lines lines = {id, false};
    return f_audio_resp_conv(audio_dump(send_register, &lines));
}

// What arec and aplay have in common: a value of one byte, `least` to `most`, `least` when left out.
struct file_command {
    const char* name;
    unsigned least;
    unsigned most;
    const char* label;
    int (*run)(unsigned which);
    const char* failed;
};

int do_file(const file_command& c, int id, int action, int argc, const dcp_word* argv)
{
    const unsigned which = argc > 0 ? dcp_uint(argv[0]) & 0xFF : c.least;
    if (which < c.least || which > c.most)
        return DCP_SYNTAX;
    if (action == DCP_ACTION_READ)
        return empty(id, c.name, DCP_ERROR);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, c.name, c.label, DCP_OK);
    const int status = c.run(which) == 0 ? DCP_OK : dcp_answer(id, c.name, c.failed, DCP_ERROR);
    return empty(id, c.name, status);
}

int do_arec(int id, int action, int argc, const dcp_word* argv)
{
    constexpr file_command arec = {"arec", 1, 2, "Record audio to file", record_audio, "record() failed"};
    return do_file(arec, id, action, argc, argv);
}

int do_aplay(int id, int action, int argc, const dcp_word* argv)
{
    constexpr file_command aplay = {"aplay", 0, 1, "Play audio from file", play_audio, "play() failed"};
    return do_file(aplay, id, action, argc, argv);
}

// clang-format off
constexpr dcp_cmd f_audio_cmd_tab[] = {
    { "aloop", "[(0-8)[,(0-5)][,[(0,1)][(0x1-0xFFFF)]]]", "%v,%v,%v",    "aloop(set)", do_aloop, DCP_GRP_PRODUCTION },
    { "again", "",                                        "%v,%v,%v",    "again()",    do_again, DCP_GRP_PRODUCTION },
    { "gain",  "",                                        "%v,%v,%v,%v", "gain()",     do_gain,  DCP_GRP_PRODUCTION },
    { "aurst", "(0-2)",                                   "%v",          "aurst()",    do_aurst, DCP_GRP_PRODUCTION },
    { "ajdt",  "[(0)]",                                   "%v",          "ajdt()",     do_ajdt,  DCP_GRP_PRODUCTION },
    { "tgen",  "(0-1)[,(0x1-0xFFFF),[(0-5)]",             "%v,%v,%v",    "tgen()",     do_tgen,  DCP_GRP_PRODUCTION },
    { "adump", "",                                        "%v",          "adump()",    do_adump, DCP_GRP_PRODUCTION },
    { "aupth", "[(0-1),(0-4)[,(0-1)]]",                   "%v,%v",       "aupth()",    do_aupth, DCP_GRP_PRODUCTION },
    { "arec",  "(1-2)",                                   "%d",          "arec()",     do_arec,  DCP_GRP_PRODUCTION },
    { "aplay", "(0-1)",                                   "%d",          "aplay()",    do_aplay, DCP_GRP_PRODUCTION },
    { nullptr, nullptr, nullptr, nullptr, nullptr, 0 },
};
// clang-format on

dcp_cmd_link f_audio_link;

} // namespace

void f_audio_init()
{
    dcp_cmd_add(f_audio_cmd_tab, &f_audio_link);
}
