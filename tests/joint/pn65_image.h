// Containers of firmware for the first contactless chip: good ones, damaged ones and cut ones, byte by byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pn65_image {

using bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t prepare = 1;
constexpr std::uint8_t keep_list = 2;
constexpr std::uint8_t reset_behind = 4;
constexpr std::uint8_t read_back = 8;

struct section {
    std::uint8_t flags;
    std::uint32_t address;
    bytes data;
    bytes keep = {};         // offsets, for keep_list
    std::size_t trailer = 0; // bytes of it
};

struct raw_record {
    std::uint8_t selector, type;
    bytes frame;
};

inline void put_32(bytes& b, std::uint32_t value)
{
    for (int i = 0; i < 4; i++)
        b.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

// `count` bytes, each another one than its neighbour.
inline bytes pattern(std::size_t count, std::uint8_t first)
{
    bytes b;
    for (std::size_t i = 0; i < count; i++)
        b.push_back(static_cast<std::uint8_t>(first + 3 * i));
    return b;
}

// `data` with its check value behind it: CRC-16/X-25 in two bytes or CRC-32 in four, low byte first.
inline bytes checked(bytes data, std::size_t size)
{
    const std::uint32_t ones = size == 2 ? 0xFFFF : 0xFFFFFFFF;
    std::uint32_t crc = ones;
    for (const std::uint8_t byte : data)
        for (int bit = 0; bit < 8; bit++) {
            const bool carry = ((crc ^ byte >> bit) & 1) != 0;
            crc = crc >> 1 ^ (carry ? (size == 2 ? 0x8408u : 0xEDB88320u) : 0);
        }
    crc ^= ones;
    for (std::size_t i = 0; i < size; i++)
        data.push_back(static_cast<std::uint8_t>(crc >> 8 * i));
    return data;
}

// The head and the version records; the last of them tells `count`, and `mark` when it is raw.
inline bytes head(bool marked, std::uint8_t count, bool raw, std::uint8_t records = 1)
{
    bytes b(12);
    b[3] = marked ? '_' : 0;
    b[5] = records;
    for (int i = 1; i <= records; i++) {
        const bool last = i == records;
        const std::uint8_t mark = last && raw ? '_' : 0;
        b.insert(b.end(), {3, static_cast<std::uint8_t>(last ? count : 7), 0, mark});
        put_32(b, 0x00010203);
        put_32(b, 0); // a word that nobody looks at
    }
    return b;
}

inline void put_section(bytes& b, const section& s)
{
    bytes keep;
    if ((s.flags & keep_list) != 0) {
        keep.push_back(static_cast<std::uint8_t>(s.keep.size()));
        keep.insert(keep.end(), s.keep.begin(), s.keep.end());
        keep.resize((keep.size() + 3) / 4 * 4);
    }
    b.insert(b.end(), {static_cast<std::uint8_t>(3 + keep.size() / 4), s.flags,
                       static_cast<std::uint8_t>(s.trailer), 0});
    put_32(b, s.address);
    put_32(b, static_cast<std::uint32_t>(s.data.size()));
    b.insert(b.end(), keep.begin(), keep.end());
    b.insert(b.end(), s.data.begin(), s.data.end());
    b.insert(b.end(), s.trailer, 0xEE);
}

inline bytes image(const std::vector<section>& sections, bool marked = false, std::uint8_t records = 1)
{
    bytes b = head(marked, static_cast<std::uint8_t>(sections.size()), false, records);
    for (const section& s : sections)
        put_section(b, s);
    return b;
}

inline bytes raw_image(const std::vector<raw_record>& raw)
{
    bytes b = head(false, 0, true);
    for (const raw_record& r : raw) {
        b.insert(b.end(), {2, 0, 0, 0, 0, 0, r.selector, r.type});
        b.insert(b.end(), r.frame.begin(), r.frame.end());
    }
    return b;
}

// A frame: command, length, payload.
inline bytes frame(std::uint8_t command, const bytes& payload)
{
    bytes b = {command, static_cast<std::uint8_t>(payload.size() >> 8),
               static_cast<std::uint8_t>(payload.size())};
    b.resize(b.size() + payload.size());
    std::copy(payload.begin(), payload.end(), b.end() - static_cast<long>(payload.size()));
    return b;
}

// The payload of a writing, and the whole frame; of a reading.
inline bytes target(std::uint32_t address, std::size_t count)
{
    return {static_cast<std::uint8_t>(address >> 16), static_cast<std::uint8_t>(address >> 8),
            static_cast<std::uint8_t>(address), static_cast<std::uint8_t>(count >> 8),
            static_cast<std::uint8_t>(count)};
}

inline bytes write(std::uint32_t address, const bytes& data, std::uint8_t command = 8)
{
    bytes payload = target(address, data.size());
    payload.insert(payload.end(), data.begin(), data.end());
    return frame(command, payload);
}

inline bytes read(std::uint32_t address, std::size_t count)
{
    return frame(7, target(address, count));
}

inline std::string hex(const bytes& b)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : b) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

} // namespace pn65_image
