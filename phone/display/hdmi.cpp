#include "display/hdmi.h"

#include <array>
#include <cstdint>
#include <numeric>
#include <span>
#include <string>

#include "core/files.h"
#include "core/home.h"
#include "core/text.h"
#include "display/sink.h"

namespace phone {

namespace {

constexpr char hpd_path[] = "/sys/class/graphics/fb1/hpd";
constexpr char connected_path[] = "/sys/class/graphics/fb1/connected";

constexpr std::size_t block = 128;
using edid_bytes = std::array<std::uint8_t, 2 * block>;

// A monitor of 1920 x 1080 with 52 by 29 cm. The last byte of each block makes the sum of its bytes 0.
// clang-format off
constexpr std::uint8_t first_block[] = {
    0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00,
    0x5A, 0x08, 0x80, 0x10, 0x67, 0x12, 0x00, 0x00, // maker VPH, product 1080, serial number 4711
    30, 23, 1, 3,                                   // week and year (from 1990) of making, version 1.3
    0x80, 52, 29, 120, 0x0A,                        // digital, cm, gamma 2.2, first timing preferred
    0xEE, 0x91, 0xA3, 0x54, 0x4C, 0x99, 0x26, 0x0F, 0x50, 0x54, // colours of sRGB
    0x21, 0x08, 0x00,                               // 640 x 480, 800 x 600, 1024 x 768, all at 60 Hz
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,
    0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 0x2C, 0x45, 0x00, 0x08, 0x22, 0x21, 0x00, 0x00, 0x1E,
    0, 0, 0, 0xFD, 0, 50, 75, 30, 81, 17, 0, '\n', ' ', ' ', ' ', ' ', ' ', ' ', // 50 to 75 Hz, 170 MHz
    0, 0, 0, 0xFC, 0, 'H', 'V', 'T', ' ', 'm', 'o', 'n', 'i', 't', 'o', 'r', '\n', ' ',
    0, 0, 0, 0x10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
    1,                                              // one more block
};
constexpr std::uint8_t second_block[] = {
    2, 3, 23, 0xC1,                                 // extension of version 3, its timings from byte 23 on; sound
    0x44, 0x90, 4, 3, 34,                           // video modes 16 (its own), 4, 3 and 34
    0x23, 0x09, 0x07, 0x07,                         // plain samples, two channels, 32 to 48 kHz, 16 to 24 bits
    0x83, 0x01, 0x00, 0x00,                         // a loudspeaker left and right
    0x65, 0x03, 0x0C, 0x00, 0x10, 0x00,             // HDMI, address 1.0.0.0
    0x01, 0x1D, 0x00, 0x72, 0x51, 0xD0, 0x1E, 0x20, 0x6E, 0x28, 0x55, 0x00, 0x08, 0x22, 0x21, 0x00, 0x00, 0x1E,
};
// clang-format on
static_assert(sizeof first_block == block - 1 && sizeof second_block < block);

constexpr std::uint8_t key_selection[] = {19, 164, 57, 8, 230, 113};

edid_bytes edid()
{
    edid_bytes bytes{};
    std::ranges::copy(first_block, bytes.begin());
    std::ranges::copy(second_block, bytes.begin() + block);
    for (const std::size_t at : {std::size_t{0}, block})
        bytes[at + block - 1] = static_cast<std::uint8_t>(
            -std::accumulate(bytes.begin() + at, bytes.begin() + at + block - 1, 0));
    return bytes;
}

// What the kernel's driver writes of a reading: its result, then the bytes.
std::string reading(std::span<const std::uint8_t> bytes)
{
    std::string text = "0";
    for (const std::uint8_t byte : bytes)
        text += " " + std::to_string(byte);
    return text + "\n";
}

void show_connected(bool on, bool in)
{
    file_write(connected_path, on && in ? "1\n" : "0\n");
}

void switched(std::string_view, std::string_view text)
{
    show_connected(trimmed(text) == "1", sink_is_in());
}

constexpr attribute hpd_attribute = {.after_write = switched};

} // namespace

void hdmi_show_sink(bool in)
{
    std::string hpd;
    file_read(hpd_path, hpd);
    show_connected(trimmed(hpd) == "1", in);
}

void hdmi_attach()
{
    attribute_add(hpd_path, &hpd_attribute);
}

void hdmi_seed()
{
    const edid_bytes bytes = edid();
    for (const char* name : {"/sys/class/graphics/fb1/cec", "/sys/hvt/hvt-hdmi/pwr", "/sys/hvt/hvt-hdmi/tmds",
                             hpd_path, connected_path})
        home_seed(name, "0\n");
    home_seed("/sys/class/graphics/fb1/cec_wr_frame", "");
    home_seed("/sys/hvt/hvt-hdmi/edid", reading(bytes));
    home_seed("/sys/hvt/hvt-hdmi/i2c_a0", reading(bytes)); // the memory that the monitor keeps them in
    home_seed("/sys/hvt/hvt-hdmi/hdcp", reading(key_selection));
}

} // namespace phone
