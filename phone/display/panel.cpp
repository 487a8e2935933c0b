#include "display/panel.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr char request_path[] = "/sys/kernel/debug/mdss_dsi_panel/read";
constexpr char result_path[] = "/sys/kernel/debug/mdss_dsi_panel/result";
constexpr char vsync_path[] = "/dev/vsync_measurement";

// Register 0xA1, the supplier's record of this panel: JDI, made on 2013-09-23.
constexpr std::uint8_t register_a1[] = {0x56, 0x73, 0x7B, 0x1C, 0x04, 0xA8, 0x39, 0xD2};

std::atomic<std::uint32_t> vsync_us = 16667; // a picture's time

// "dcs COUNT REGISTER 00": reads that many bytes, which then stand in the result file.
void read_register(std::string_view, std::string_view text)
{
    unsigned count, reg, zero;
    const std::string request(text);
    if (std::sscanf(request.c_str(), "dcs %u %x %x", &count, &reg, &zero) != 3 || reg != 0xA1 ||
        count > sizeof register_a1 || zero != 0) {
        strange("panel request \"" + escaped(trimmed(text)) + "\"");
        return;
    }
    std::string result = "dsi read of 0xa1, " + std::to_string(count) + " bytes\n";
    for (unsigned i = 0; i < count; i++) {
        char line[32];
        std::snprintf(line, sizeof line, "data[%u]=%02x\n", i, register_a1[i]);
        result += line;
    }
    file_write(result_path, result);
}

constexpr attribute request_attribute = {.after_write = read_register};

ssize_t vsync_read(open_file&, void* buf, std::size_t size)
{
    const std::uint32_t value = vsync_us;
    if (size < sizeof value) {
        errno = EINVAL;
        return -1;
    }
    std::memcpy(buf, &value, sizeof value);
    return sizeof value;
}

constexpr node vsync_node = {.read = vsync_read};

std::string word_vsync(request& rq)
{
    const auto value = rq.args.size() == 1 ? number(rq.args[0]) : std::nullopt;
    if (!value || *value < 0 || *value > 0xFFFFFFFF)
        return "a value of 32 bits is wanted";
    vsync_us = static_cast<std::uint32_t>(*value);
    return {};
}

} // namespace

void panel_attach()
{
    attribute_add(request_path, &request_attribute);
    node_add(vsync_path, &vsync_node);
    word_add("vsync", "VALUE", "what the VSYNC measurement gives", word_vsync);
}

void panel_seed()
{
    home_seed(request_path, "");
    home_seed(result_path, "");
}

} // namespace phone
