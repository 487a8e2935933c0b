// The image tests.
#include <cstdint>

#include "camera/camera_tests.h"
#include "f_camera_inner.h"

namespace {

constexpr std::uint32_t BLEMISH_TYPE = 8; // of the tests that there have been, the one that is left
constexpr int BLEMISH_VALUES = 12;

constexpr std::uint32_t PARALLEL_LIMIT = 640;
constexpr std::uint32_t LAST_CONNECTION = 2;

constexpr std::uint32_t LAST_CHANNEL = 3;

// The configuration that a line gives, or the default one.
camera_blemish_config blemish_config(int argc, const dcp_word* argv)
{
    camera_blemish_config config;
    camera_initialize_blemish_config(&config);
    if (argc != BLEMISH_VALUES + 1)
        return config;
    std::uint32_t camera_blemish_config::*const words[BLEMISH_VALUES] = {
        &camera_blemish_config::inner_threshold, &camera_blemish_config::focused_threshold,
        &camera_blemish_config::block_size,      &camera_blemish_config::outer_threshold,
        &camera_blemish_config::edge_threshold,  &camera_blemish_config::corner_threshold,
        &camera_blemish_config::row_step,        &camera_blemish_config::col_step,
        &camera_blemish_config::kernel_length,   &camera_blemish_config::kernel_gap,
        &camera_blemish_config::outer_cols,      &camera_blemish_config::outer_rows,
    };
    for (int i = 0; i < BLEMISH_VALUES; i++)
        config.*words[i] = dcp_uint(argv[i + 1]);
    return config;
}

int camg_test(int id)
{
    camera_general_result r;
    if (camera_run_general_test(&r) != 1)
        return dcp_answer(id, "camg", "", DCP_ERROR);
    dcp_printf(id, "camg", "0x%x,0x%x,0x%x,0x%x,0x%x", r.edge, r.color, r.flare, r.solarization,
               r.resolution);
    return DCP_OK;
}

int camg_get(int id, std::uint32_t param)
{
    std::uint32_t value;
    if (camera_get_general_param(param, &value) != 1)
        return dcp_answer(id, "camg", "", DCP_ERROR);
    dcp_printf(id, "camg", "0x%x", value);
    return DCP_OK;
}

} // namespace

int do_camf(int id, int action, int argc, const dcp_word* argv)
{
    if (argc != 1 && argc != 5)
        return DCP_SYNTAX;
    if (action != DCP_ACTION_SET)
        return DCP_OK;
    const std::uint32_t kind = dcp_uint(argv[0]);
    if (kind != 5 && kind != 6)
        return DCP_SYNTAX;
    const auto value = [&](int i) { return argc == 5 ? dcp_uint(argv[i]) : 0; };
    camera_focus_result r;
    if (camera_run_focus_test(kind, value(1), value(2), value(3), value(4), &r) != 1)
        return DCP_ERROR;
    dcp_printf(id, "camf", "%u,%u,%u", r.max, r.min, r.measure);
    return DCP_OK;
}

int do_camb(int id, int action, int argc, const dcp_word* argv)
{
    const bool not_implemented = argc == 4 || argc == 16;
    if (argc != 1 && argc != BLEMISH_VALUES + 1 && !not_implemented)
        return DCP_SYNTAX;
    if (not_implemented)
        dcp_printf(id, "camb", " Not implemented!");
    if (action != DCP_ACTION_SET)
        return DCP_OK;
    if (dcp_uint(argv[0]) != BLEMISH_TYPE)
        return dcp_answer(id, "camb", "Old test type, not implemented!", DCP_ERROR);
    const camera_blemish_config config = blemish_config(argc, argv);
    camera_blemish_result r;
    if (not_implemented || camera_run_blemish_test(&config, &r) != 1)
        return DCP_ERROR;
    dcp_printf(id, "camb", "0x%02X,0x%02X,0x%02X,0x%02X,0x%02X,0x%02X", r.spots, r.specks, r.spot_col,
               r.spot_row, r.speck_col, r.speck_row);
    return DCP_OK;
}

int do_camc(int id, int action, int argc, const dcp_word* argv)
{
    const std::uint32_t kind = argc > 0 ? dcp_uint(argv[0]) : 0;
    if (argc > 2 || (argc == 1 && kind > LAST_CONNECTION))
        return DCP_SYNTAX;
    if (action != DCP_ACTION_SET)
        return DCP_OK;
    const std::uint32_t limit = argc == 2 ? dcp_uint(argv[1]) : kind == 0 ? PARALLEL_LIMIT : UINT32_MAX;
    std::uint32_t first = 0, second = 0;
    if (camera_run_connection_test(kind, limit, &first, &second) != 1)
        return DCP_ERROR;
    if (kind == 0)
        dcp_printf(id, "camc", "0x%02X,0x%02X", first, second);
    else
        dcp_printf(id, "camc", "0x%02X", first);
    return DCP_OK;
}

int do_caii(int id, int action, int argc, const dcp_word* argv)
{
    if (argc > 2)
        return DCP_SYNTAX;
    if (action != DCP_ACTION_SET)
        return action == DCP_ACTION_READ ? DCP_ERROR : DCP_OK;
    const std::uint32_t channel = argc > 0 ? dcp_uint(argv[0]) : 1;
    const std::uint32_t threshold = argc > 1 ? dcp_uint(argv[1]) : UINT8_MAX;
    if (channel > LAST_CHANNEL)
        return dcp_answer(id, "caii", " No valid channel", DCP_ERROR);
    std::uint32_t average, count;
    if (camera_get_average_image_intensity(threshold, channel, &average, &count) != 1)
        return DCP_ERROR;
    dcp_printf(id, "caii", " 0x%X", argc == 2 ? count : average);
    return DCP_OK;
}

int do_camg(int id, int action, int argc, const dcp_word* argv)
{
    if (argc > 2)
        return DCP_SYNTAX;
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "camg", "Camera general test.", DCP_OK);
    if (argc == 0)
        return camg_test(id);
    if (argc == 1)
        return camg_get(id, dcp_uint(argv[0]));
    return f_camera_answer(id, "camg", camera_set_general_param(dcp_uint(argv[0]), dcp_uint(argv[1])));
}

int do_cama(int id, int action, int argc, const dcp_word* argv)
{
    if (argc < 3)
        return DCP_SYNTAX;
    if (action != DCP_ACTION_SET)
        return action == DCP_ACTION_TEST ? dcp_answer(id, "cama", "Camera Alignment Test", DCP_OK) : DCP_OK;
    const camera_alignment_config config = {dcp_uint(argv[0]), dcp_uint(argv[1]),
                                            static_cast<std::uint8_t>(dcp_uint(argv[2]))};
    camera_alignment_result r;
    if (camera_run_alignment_test(config, &r) != 1)
        return DCP_ERROR;
    dcp_printf(id, "cama", "%.2f,%d,%d,%d,%d,%d,%d,%d,%d", r.angle, r.top_x, r.top_y, r.bottom_x, r.bottom_y,
               r.left_x, r.left_y, r.right_x, r.right_y);
    return DCP_OK;
}
