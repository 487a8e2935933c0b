// Register files: "label, device, register, value".
#include <cstdlib>
#include <cstring>

#include "line_reader.h"
#include "tunerx/tunerx_files.h"

namespace {

constexpr int NO_BYTE = -1;

int digit_of(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

// A byte behind "&H", "0x" or nothing, up to the first character that is no digit; NO_BYTE without a digit or
// above 255.
int tuner_hex2int(const char* text)
{
    if (std::strncmp(text, "&H", 2) == 0 || std::strncmp(text, "0x", 2) == 0)
        text += 2;
    int value = digit_of(*text);
    for (text++; value >= 0 && value <= 255 && digit_of(*text) >= 0; text++)
        value = value * 16 + digit_of(*text);
    return value <= 255 ? value : NO_BYTE;
}

bool parse(const char* line, tunerx_reg_line& out)
{
    char label[line_reader::ROOM], device[line_reader::ROOM], reg[line_reader::ROOM],
        value[line_reader::ROOM];
    if (std::sscanf(line, "%127[^,] , %127[^,] , %127[^,] , %127[^,]", label, device, reg, value) != 4)
        return false;
    const unsigned long unit = std::strtoul(device, nullptr, 10);
    const int adr = tuner_hex2int(reg);
    const int byte = tuner_hex2int(value);
    if (unit < TUNER_A || unit > TUNER_C || adr == NO_BYTE || byte == NO_BYTE)
        return false;
    out = {static_cast<std::uint8_t>(unit), static_cast<std::uint8_t>(adr), static_cast<std::uint8_t>(byte)};
    return true;
}

} // namespace

bool tunerx_read_reg_file(const char* path, std::vector<tunerx_reg_line>& lines)
{
    lines.clear();
    line_reader reader(path);
    while (const char* const line = reader.next()) {
        tunerx_reg_line found;
        if (!parse(line, found))
            continue;
        if (lines.size() == TUNERX_MOST_REG_LINES)
            return false;
        lines.push_back(found);
    }
    return !reader.failed();
}
