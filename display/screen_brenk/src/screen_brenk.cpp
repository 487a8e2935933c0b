#include "screen_brenk/screen_brenk.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "cfg/cfg.h"
#include "file_linux/file_linux.h"
#include "scf/scf.h"
#include "screen/screen.h"
#include "screen_linux/screen_linux.h"

namespace {

using std::uint8_t;

constexpr char ID_REQUEST[] = "dcs 8 a1 00"; // read 8 bytes of DCS register 0xA1
constexpr int ID_BYTES = 8;
constexpr int LINE_BYTES = 32;
constexpr uint8_t MODE_DECODED = 3;

// One line of the answer, "data[0]=56". It counts if it is the next byte.
void parse_line(const char* line, uint8_t* p_bytes, int* p_count)
{
    int index;
    unsigned value;
    if (std::strncmp(line, "data[", 5) != 0 || std::sscanf(line, "data[%d]=%x", &index, &value) != 2)
        return;
    if (*p_count < ID_BYTES && index == *p_count)
        p_bytes[(*p_count)++] = static_cast<uint8_t>(value);
}

int parse_res(const char* path, uint8_t* p_bytes)
{
    file_hnd* p_hnd = file_open(path, "rt");
    if (p_hnd == nullptr)
        return 0;
    int count = 0;
    char line[LINE_BYTES];
    while (file_gets(line, sizeof line, p_hnd) != nullptr)
        parse_line(line, p_bytes, &count);
    return file_close(p_hnd) && count == ID_BYTES;
}

const char* vendor(uint8_t b0)
{
    constexpr const char* vendors[] = {"UNKNOWN", "JDI", "SHARP", "UNKNOWN"};
    return vendors[b0 >> 6];
}

// One field of the identity. Bits 7 to 6 of the first byte are the vendor, bits 5 to 2 and bit 1 fields of
// its own, bit 0 the high bit of the year; the date runs over the next 11 bits, and 4 more bits follow.
void decode(const uint8_t* b, uint8_t sub_mode, char* text)
{
    const int year = ((b[0] & 1) * 8 | b[1] >> 5) + 2010;
    const int month = b[1] >> 1 & 15;
    const int day = (b[1] & 1) << 4 | b[2] >> 4;
    switch (sub_mode) {
    case 1:
        std::snprintf(text, SCREEN_LCDID_SIZE, "%s", vendor(b[0]));
        break;
    case 2:
        std::snprintf(text, SCREEN_LCDID_SIZE, "0x%X", b[0] >> 2 & 15u);
        break;
    case 3:
        std::snprintf(text, SCREEN_LCDID_SIZE, "%04d", year);
        break;
    case 4:
        std::snprintf(text, SCREEN_LCDID_SIZE, "%04d%02d%02d", year, month, day);
        break;
    case 5:
        std::snprintf(text, SCREEN_LCDID_SIZE, "0x%X", b[2] & 15u);
        break;
    case 6:
        std::snprintf(text, SCREEN_LCDID_SIZE, "0x%X", b[0] >> 1 & 1u);
        break;
    default:
        std::snprintf(text, SCREEN_LCDID_SIZE, "0x%06X",
                      static_cast<unsigned>(b[0] << 16 | b[1] << 8 | b[2]));
        break;
    }
}

int screen_brenk_get_lcd_id(uint8_t mode, uint8_t sub_mode, char* text)
{
    const char* folder = cfg_get_str("screen_brenk", "panel_debugfs", nullptr);
    if (folder == nullptr)
        return 0;
    const std::string request = std::string(folder) + "/read", result = std::string(folder) + "/result";
    file_item item;
    uint8_t bytes[ID_BYTES];
    if (!file_exist(request.c_str(), &item) || !file_exist(result.c_str(), &item) ||
        !file_write_string(request.c_str(), ID_REQUEST) || !parse_res(result.c_str(), bytes))
        return 0;
    if (mode == MODE_DECODED)
        decode(bytes, sub_mode, text);
    else
        scf_bin_to_hexstr(text, SCREEN_LCDID_SIZE, bytes, ID_BYTES, 1, ',');
    return 1;
}

} // namespace

void screen_brenk_init()
{
    screen_linux_attach_lcd_id_co(screen_brenk_get_lcd_id);
}
