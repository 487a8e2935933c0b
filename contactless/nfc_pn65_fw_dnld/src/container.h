// A firmware container: what it tells of itself, looked through once before anything is written. Its place in
// memory is known, its size isn't: nothing is looked at beyond 1 MiB behind its beginning, and lengths that
// can't be are refused.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace pn65_dnld {

constexpr std::size_t CONTAINER_ROOM = 1 << 20;

constexpr std::uint8_t SECTION_PREPARE = 0x01;
constexpr std::uint8_t SECTION_KEEP = 0x02;
constexpr std::uint8_t SECTION_RESET = 0x04;
constexpr std::uint8_t SECTION_READ_BACK = 0x08;

using bytes_view = std::span<const std::uint8_t>;

struct section {
    std::uint8_t flags;
    std::uint32_t address;
    bytes_view keep; // offsets into a chunk
    bytes_view data;
};

// A record of a raw container, and the frame behind it.
struct raw_record {
    std::uint8_t selector;
    std::uint8_t type; // high nibble: groups; low nibble 14: the last of them
    bytes_view frame;
};

struct container {
    bytes_view all;
    bool writes_with_12 = false;
    bool raw = false;
    std::vector<section> sections; // of one that isn't raw
    std::size_t raw_at = 0;        // where the raw records begin
};

// Looks a container through; nothing when it can't be one.
std::optional<container> container_read(bytes_view bytes);

// The raw record at `*p_at`, which moves behind its frame; nothing when there is none.
std::optional<raw_record> container_raw(bytes_view bytes, std::size_t* p_at);

// The check value that stands at the end of the section at `address`; empty when no section has one there.
constexpr std::uint32_t CHECKED_800000 = 0x800000;
constexpr std::uint32_t CHECKED_18800 = 0x18800;
constexpr std::uint32_t CHECKED_8200 = 0x8200;
bytes_view container_check_value(const container& c, std::uint32_t address);

} // namespace pn65_dnld
