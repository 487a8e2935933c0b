// libpn65_fw.so of the virtual phone: the firmware of the first contactless chip. Each time it is opened its
// container is what stands in the phone's file, zeros behind it, or without one a small good image of its
// own.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <vector>

#include "core/library_host.h"

namespace {

constexpr const char* file_path = "/system/etc/firmware/pn65_fw.bin";
constexpr std::size_t container_size = 1 << 20;
constexpr std::size_t path_room = 4096;

using bytes_of = std::vector<std::uint8_t>;

void put_32(bytes_of& bytes, std::uint32_t value)
{
    for (int i = 0; i < 4; i++)
        bytes.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

// A reflected CRC whose start and last exclusive-or are all ones, as `size` bytes, low byte first.
void put_check_value(bytes_of& bytes, std::size_t size)
{
    const std::uint32_t ones = size == 2 ? 0xFFFF : 0xFFFFFFFF;
    const std::uint32_t polynomial = size == 2 ? 0x8408 : 0xEDB88320;
    std::uint32_t crc = ones;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; bit++)
            crc = (crc & 1) != 0 ? crc >> 1 ^ polynomial : crc >> 1;
    }
    crc ^= ones;
    for (std::size_t i = 0; i < size; i++)
        bytes.push_back(static_cast<std::uint8_t>(crc >> 8 * i));
}

struct section_row {
    std::uint8_t flags;
    std::uint32_t address;
    std::size_t size; // without the check value
    std::size_t check;
};

// clang-format off
constexpr section_row sections[] = {
    // flags                                  address   size  check value
    { 0x09 /* preparation, read back */,      0x800000, 1200, 4 },
    { 0x00,                                   0x018800,  700, 4 },
    { 0x06 /* keep list, reset behind it */,  0x020000,   64, 0 },
    { 0x08 /* read back */,                   0x008200,   40, 2 },
};
// clang-format on

void put_section(bytes_of& bytes, const section_row& row)
{
    const bool keeps = (row.flags & 0x02) != 0;
    bytes_of data;
    for (std::size_t i = 0; i < row.size; i++)
        data.push_back(static_cast<std::uint8_t>(i * 7 + row.address / 0x100));
    if (row.check > 0)
        put_check_value(data, row.check);
    bytes.insert(bytes.end(), {static_cast<std::uint8_t>(keeps ? 4 : 3), row.flags, 0, 0});
    put_32(bytes, row.address);
    put_32(bytes, static_cast<std::uint32_t>(data.size()));
    if (keeps)
        bytes.insert(bytes.end(), {2, 0x00, 0x3F, 0}); // two bytes, the first and the last
    bytes.insert(bytes.end(), data.begin(), data.end());
}

bytes_of own_image()
{
    bytes_of bytes = {'p', 'n', '6', '5', 0, 1, 0, 0, 0, 0, 0, 0}; // one version record
    bytes.insert(bytes.end(), {2, static_cast<std::uint8_t>(std::size(sections)), 0, 0});
    put_32(bytes, 0x00010203);
    for (const section_row& row : sections)
        put_section(bytes, row);
    return bytes;
}

struct file_close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace

extern "C" {

std::uint32_t nxp_nfc_full_version = 0x00010203;
std::uint8_t nxp_nfc_fw[container_size];

void phone_library_attach(const phone_library_host* p_host)
{
    char path[path_room];
    std::memset(nxp_nfc_fw, 0, sizeof nxp_nfc_fw);
    const std::unique_ptr<std::FILE, file_close> file(
        p_host->place(file_path, path, sizeof path) ? std::fopen(path, "rb") : nullptr);
    if (file != nullptr) {
        [[maybe_unused]] const std::size_t n = std::fread(nxp_nfc_fw, 1, sizeof nxp_nfc_fw, file.get());
        return;
    }
    std::ranges::copy(own_image(), nxp_nfc_fw);
}
}
