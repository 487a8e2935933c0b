// The camera module itself: its firmware, white balance, its memory.
#include <cstdint>
#include <iterator>

#include "camera/camera.h"
#include "cio_v2/cio.h"
#include "f_camera_inner.h"
#include "ta/ta.h"
#include "trim/items.h"
#include "trim/trim.h"

namespace {

constexpr const char* FIRMWARE_PATH = "/system/ifs/settings/camera/firmware.bin";
constexpr const char* MEMORY_HEADING = "[EEPROM   ]  0  1  2  3  4  5  6  7  8  9  A  B  C  D  E  F";

constexpr std::uint32_t MODULE_AT = 0; // what the module's memory says of the module
constexpr std::uint32_t DATE_AT = 64;  // and of its making

std::uint32_t wb_reading[4]; // red, green, blue, luminance

int answer_version(int id, std::uint32_t version)
{
    if (version == 0)
        return DCP_ERROR;
    dcp_printf(id, "ispd", "0x%X", version);
    return DCP_OK;
}

using cwbc_fn = int (*)(int id, int argc, const dcp_word* argv);

int cwbc_clear(int id, int, const dcp_word*)
{
    for (std::uint32_t& word : wb_reading)
        word = 0;
    return f_camera_answer(id, "cwbc", 1);
}

int cwbc_store(int id, int, const dcp_word*)
{
    dcp_printf(id, "cwbc", "%s", "");
    return ta_if_get_status() == 1 && trim_wr(TRIM_WHITE_BALANCE, wb_reading, sizeof wb_reading) == 1
               ? DCP_OK
               : DCP_ERROR;
}

int cwbc_show(int id, int, const dcp_word*)
{
    const std::uint32_t* w = wb_reading;
    dcp_printf(id, "cwbc", "%d,%d,%d,%d", w[0], w[1], w[2], w[3]);
    return DCP_OK;
}

int cwbc_read(int id, int, const dcp_word*)
{
    return f_camera_answer(id, "cwbc", camera_read_rgby(wb_reading));
}

int cwbc_luminance(int id, int argc, const dcp_word* argv)
{
    std::uint32_t value = UINT32_MAX;
    const auto channel = static_cast<std::uint8_t>(argc > 1 ? dcp_uint(argv[1]) : 1);
    const int result = camera_read_luminance(channel, &value);
    dcp_printf(id, "cwbc", "0x%05X", value);
    return result == 1 ? DCP_OK : DCP_ERROR;
}

int cwbc_window(int id, int argc, const dcp_word* argv)
{
    if (argc != 5)
        return dcp_answer(id, "cwbc", "", DCP_ERROR);
    camera_set_ae_wb_window(dcp_uint(argv[1]), dcp_uint(argv[2]), dcp_uint(argv[3]), dcp_uint(argv[4]));
    return dcp_answer(id, "cwbc", "", DCP_OK);
}

constexpr cwbc_fn cwbc_functions[] = {
    nullptr, cwbc_clear, cwbc_store, cwbc_show, cwbc_read, nullptr, nullptr, cwbc_luminance, cwbc_window,
};

void list_memory(int id, const std::uint8_t* memory, std::uint32_t length)
{
    const cio_report_lines lines;
    dcp_resp_dspl(id, DCP_DSPL_LINE, 1, MEMORY_HEADING);
    dcp_hex_dspl(id, 0, memory, 1, length);
}

int crom_dump(int id)
{
    std::uint8_t memory[CAMERA_EEPROM_SIZE] = {};
    std::uint32_t length = 0;
    const int result = camera_read_eeprom(&length, memory);
    if (result == 1)
        list_memory(id, memory, length);
    return f_camera_answer(id, "crom", result);
}

void caid_module(int id, const std::uint8_t* p, bool as_text)
{
    if (as_text)
        dcp_printf(id, "caid", "%.3s", reinterpret_cast<const char*>(p));
    else
        dcp_printf(id, "caid", "0x%x,0x%x,0x%x", p[0], p[1], p[2]);
}

void caid_date(int id, const std::uint8_t* p, bool as_text)
{
    if (as_text)
        dcp_printf(id, "caid", "%02d/%02d/%02d %02d:%02d:%02d 0x%02X 0x%02X", p[0], p[1], p[2], p[3], p[4],
                   p[5], p[6], p[7]);
    else
        dcp_printf(id, "caid", "0x%x,0x%x,0x%x,0x%x,0x%x,0x%x,0x%x,0x%x", p[0], p[1], p[2], p[3], p[4], p[5],
                   p[6], p[7]);
}

} // namespace

int do_ispd(int id, int action, int argc, const dcp_word* argv)
{
    if (argc < 1 || argc > 2)
        return DCP_SYNTAX;
    if (action != DCP_ACTION_SET)
        return DCP_OK;
    const char* path = argc == 2 ? dcp_text(argv[1]) : nullptr;
    switch (dcp_uint(argv[0])) {
    case 1:
        return f_camera_answer(id, "ispd", camera_load_firmware(path != nullptr ? path : FIRMWARE_PATH));
    case 2:
        return answer_version(id, camera_get_firmware_version());
    case 3:
        return answer_version(id, camera_get_isp_version());
    default:
        return DCP_SYNTAX;
    }
}

int do_cwbc(int id, int action, int argc, const dcp_word* argv)
{
    if (argc < 1 || argc > 5)
        return dcp_answer(id, "cwbc", "", DCP_SYNTAX);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "cwbc", "White balance calibration.", DCP_OK);
    const std::uint32_t sub = dcp_uint(argv[0]);
    const cwbc_fn fn = sub < std::size(cwbc_functions) ? cwbc_functions[sub] : nullptr;
    return fn != nullptr ? fn(id, argc, argv) : dcp_answer(id, "cwbc", "", DCP_SYNTAX);
}

int do_crom(int id, int action, int argc, const dcp_word* argv)
{
    if (argc > 1)
        return dcp_answer(id, "crom", "", DCP_SYNTAX);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "crom", "Dump and check eeprom in camera module.", DCP_OK);
    switch (argc == 1 ? dcp_uint(argv[0]) : 0) {
    case 0:
        return crom_dump(id);
    case 1:
        dcp_printf(id, "crom", "%d", camera_check_eeprom());
        return DCP_OK;
    default:
        return dcp_answer(id, "crom", "", DCP_SYNTAX);
    }
}

int do_caid(int id, int action, int argc, const dcp_word* argv)
{
    if (argc < 1 || argc > 2)
        return dcp_answer(id, "caid", "", DCP_SYNTAX);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "caid", "read camera module eeprom/sensor info", DCP_OK);
    const std::uint32_t kind = dcp_uint(argv[0]), style = argc == 2 ? dcp_uint(argv[1]) : 0;
    if (style > 1 || kind > 2)
        return dcp_answer(id, "caid", "", DCP_SYNTAX);
    std::uint8_t memory[CAMERA_EEPROM_SIZE] = {};
    std::uint32_t length = 0;
    if (camera_read_eeprom(&length, memory) != 1 || kind == 0)
        return DCP_ERROR;
    if (kind == 1)
        caid_module(id, memory + MODULE_AT, style == 1);
    else
        caid_date(id, memory + DATE_AT, style == 1);
    return DCP_OK;
}
