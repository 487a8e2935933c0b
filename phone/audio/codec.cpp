#include "audio/codec.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <mutex>
#include <optional>
#include <sstream>
#include <string>

#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr char path[] = "/sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg";

struct register_row {
    unsigned first;
    const char* reset; // of sixteen registers
};

// clang-format off
constexpr register_row rows[] = {
    { 0x000, "03 50 02 01 20 65 10 65 20 00 00 7F 02 0C 50 80" },
    { 0x010, "0C 30 20 20 40 01 40 88 00 00 24 61 65 08 0C C0" },
    { 0x020, "20 65 3A 65 88 00 00 08 20 08 3A 40 30 30 00 80" },
    { 0x100, "61 50 80 40 40 C0 08 00 12 00 01 10 80 10 30 00" },
    { 0x110, "65 01 20 20 10 7F 61 88 08 20 20 10 0C 24 30 80" },
    { 0x120, "C0 24 C0 00 0C 24 10 10 24 3A 50 40 61 00 80 88" },
    { 0x130, "40 16 02 50 88 30 88 3A 08 0C 20 40 88 88 61 0C" },
    { 0x140, "65 00 00 20 80 24 00 01 61 08 30 65 00 61 24 30" },
    { 0x150, "00 30 50 30 10 00 02 00 00 00 20 20 01 80 02 00" },
    { 0x160, "7F 30 7F C0 88 61 01 10 C0 10 01 00 80 40 20 80" },
    { 0x170, "30 3A 65 50 C0 01 30 00 40 61 61 02 08 08 00 08" },
    { 0x180, "80 3A 88 08 88 C0 61 3A 00 30 3A 50 20 20 02 00" },
    { 0x190, "88 00 50 61 20 7F 65 C0 00 24 0C 00 61 30 20 08" },
    { 0x1A0, "7F 0C 02 20 7F 7F 80 80 10 00 61 3A 80 20 40 7F" },
    { 0x1B0, "20 7F 40 00 20 61 00 10 3A 40 7F 02 0C 00 0C 0C" },
    { 0x1C0, "10 02 88 00 88 7F 80 08 08 50 50 00 08 00 01 30" },
    { 0x1D0, "00 20 01 00 65 80 02 7F 00 C0 3A 30 C0 3A 40 00" },
    { 0x1E0, "02 88 02 08 50 02 88 40 24 3A 20 01 80 80 65 00" },
    { 0x1F0, "40 40 0C 01 24 08 20 08 88 10 00 40 50 80 50 3A" },
    { 0x300, "7F 08 3A 7F 0C 10 50 30 01 50 88 0C 01 00 7F 20" },
    { 0x310, "30 01 61 02 01 40 C0 0C 00 08 20 0C 80 02 7F 88" },
    { 0x320, "3A 3A 0C 0C 02 20 10 20 7F 3A 24 88 02 0C 01 0C" },
    { 0x330, "01 40 80 88 10 50 00 20 C0 00 0C 00 00 10 02 80" },
    { 0x340, "40 80 24 40 40 01 65 50 7F 40 7F 0C 01 30 01 7F" },
    { 0x350, "80 3A 3A 10 C0 00 02 00 00 08 88 80 20 20 24 65" },
    { 0x360, "88 50 7F 00 08 00 88 0C 61 50 61 00 20 50 0C 50" },
    { 0x370, "50 10 C0 01 0C 65 02 20 00 0C 0C C0 65 10 65 88" },
    { 0x3C0, "0C 3A 24 C0 50 10 61 00 00 C0 20 50 30 3A 80 7F" },
    { 0x3D0, "0C 10 30 00 02 3A 02 00 24 08 08 3A 02 61 65 80" },
    { 0x3E0, "65 01 02 20 24 88 20 02 00 00 C0 80 00 88 30 65" },
    { 0x3F0, "01 7F 02 20 88 01 80 61 00 88 20 10 7F 00 3A 0C" },
};
// clang-format on

constexpr unsigned register_end = 0x400;

std::mutex codec_mutex; // guards all below
std::array<std::optional<std::uint8_t>, register_end> registers;
std::string laid; // what the file holds by our will, or by the program's

void power_up()
{
    for (const register_row& row : rows) {
        unsigned reg = row.first;
        for (const std::string& value : words(row.reset))
            registers[reg++] = static_cast<std::uint8_t>(*hex_number(value));
    }
}

bool read_whole(const std::string& host, std::string& text)
{
    std::ifstream file(host, std::ios::binary);
    std::ostringstream all;
    all << file.rdbuf();
    text = all.str();
    return file.is_open();
}

std::string listing_locked()
{
    std::string text;
    for (unsigned reg = 0; reg < register_end; reg++) {
        if (!registers[reg])
            continue;
        char line[16];
        std::snprintf(line, sizeof line, "%04x: %02x\n", reg, *registers[reg]);
        text += line;
    }
    return text;
}

// What a bench has put there stays.
void before_read(std::string_view)
{
    const std::lock_guard lock(codec_mutex);
    const std::string host = host_path(path);
    std::string found;
    if (host.empty() || !read_whole(host, found) || found != laid)
        return;
    laid = listing_locked();
    if (laid != found)
        std::ofstream(host, std::ios::binary) << laid;
}

// "0x1b4 0x27"
void after_write(std::string_view, std::string_view text)
{
    const std::string line(trimmed(text));
    unsigned reg = 0;
    unsigned value = 0;
    char more;
    const bool read = std::sscanf(line.c_str(), "0x%4x 0x%4x%c", &reg, &value, &more) == 2;
    const std::lock_guard lock(codec_mutex);
    laid = text;
    if (!read || reg >= register_end || !registers[reg] || value > 0xFF) {
        strange("codec " + line);
        return;
    }
    char target[16];
    std::snprintf(target, sizeof target, "codec %X", reg);
    if (!watch_target(target))
        registers[reg] = static_cast<std::uint8_t>(value);
}

constexpr attribute codec_attribute = {.before_read = before_read, .after_write = after_write};

std::string word_codec(request& rq)
{
    const std::uint64_t none = UINT64_MAX;
    const std::uint64_t reg = rq.args.empty() ? none : hex_number(rq.args[0]).value_or(none);
    const std::uint64_t value = rq.args.size() > 1 ? hex_number(rq.args[1]).value_or(none) : 0;
    if (reg == none || value > 0xFF || rq.args.size() > 2)
        return "REG [VALUE] is wanted, both in hexadecimal";
    const std::lock_guard lock(codec_mutex);
    if (reg >= register_end || !registers[reg])
        return "the codec has no register " + rq.args[0];
    if (rq.args.size() == 2)
        registers[reg] = static_cast<std::uint8_t>(value);
    else
        rq.answer = to_hex(&*registers[reg], 1);
    return {};
}

} // namespace

void codec_attach()
{
    power_up();
    attribute_add(path, &codec_attribute);
    watch_target_add("codec", {target_number::hex});
    word_add("codec", "REG [VALUE]", "reads or sets a register of the sound codec, in hexadecimal",
             word_codec);
    conf_add_word("codec");
}

void codec_seed()
{
    const std::lock_guard lock(codec_mutex);
    laid = listing_locked(); // a codec has its reset values when the phone comes on
    home_seed(path, laid);
    std::string found;
    if (const std::string host = host_path(path);
        !host.empty() && read_whole(host, found) && found.size() > 0 && !home_is_first_start())
        laid = found;
}

} // namespace phone
