#include "container.h"

#include <algorithm>

namespace pn65_dnld {

namespace {

constexpr std::size_t WORD = 4;
constexpr std::uint8_t MARK = '_';
constexpr std::size_t MARK_AT = 3;
constexpr std::size_t VERSIONS_AT = 5;
constexpr std::size_t HEAD_SIZE = 12;
constexpr std::size_t VERSION_SIZE = 8;
constexpr std::size_t SECTION_SIZE = 12;
constexpr std::size_t RAW_SIZE = 8;
constexpr std::size_t FRAME_HEAD = 3;
constexpr unsigned MOST_SECTIONS = 254;
constexpr std::uint32_t ADDRESS_END = 0x1000000;

std::uint32_t word_at(bytes_view bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < WORD; i++)
        value |= static_cast<std::uint32_t>(bytes[at + i]) << 8 * i;
    return value;
}

// The header at `at`, whose first byte tells its length in words; empty when it is shorter than `least`.
bytes_view header_at(bytes_view bytes, std::size_t at, std::size_t least)
{
    if (at >= bytes.size())
        return {};
    const std::size_t size = bytes[at] * WORD;
    if (size < least || size > bytes.size() - at)
        return {};
    return bytes.subspan(at, size);
}

// A section, its header at `*p_at`, which moves behind its trailer.
std::optional<section> section_at(bytes_view bytes, std::size_t* p_at)
{
    constexpr std::size_t FLAGS_AT = 1, TRAILER_AT = 2, ADDRESS_AT = 4, LENGTH_AT = 8, KEEP_AT = 12;
    const bytes_view header = header_at(bytes, *p_at, SECTION_SIZE);
    if (header.empty())
        return {};
    section s = {header[FLAGS_AT], word_at(header, ADDRESS_AT), {}, {}};
    const std::uint32_t length = word_at(header, LENGTH_AT);
    const std::size_t left = bytes.size() - *p_at - header.size();
    if (length > left || header[TRAILER_AT] > left - length || s.address >= ADDRESS_END ||
        length > ADDRESS_END - s.address)
        return {};
    if ((s.flags & SECTION_KEEP) != 0) {
        if (header.size() <= KEEP_AT || header[KEEP_AT] > header.size() - KEEP_AT - 1)
            return {};
        s.keep = header.subspan(KEEP_AT + 1, header[KEEP_AT]);
    }
    s.data = bytes.subspan(*p_at + header.size(), length);
    *p_at += header.size() + length + header[TRAILER_AT];
    return s;
}

} // namespace

std::optional<container> container_read(bytes_view bytes)
{
    constexpr std::size_t SECTIONS_AT = 1;
    container c;
    c.all = bytes;
    if (bytes.size() < HEAD_SIZE)
        return {};
    c.writes_with_12 = bytes[MARK_AT] == MARK;
    std::size_t at = HEAD_SIZE;
    bytes_view last;
    for (int left = bytes[VERSIONS_AT]; left > 0; left--) {
        last = header_at(bytes, at, VERSION_SIZE);
        if (last.empty())
            return {};
        at += last.size();
    }
    const unsigned sections = last.empty() ? MOST_SECTIONS + 1 : last[SECTIONS_AT];
    if (sections == 0 && last[MARK_AT] == MARK) {
        c.raw = true;
        c.raw_at = at;
        return c;
    }
    if (sections == 0 || sections > MOST_SECTIONS)
        return {};
    for (unsigned i = 0; i < sections; i++) {
        const auto s = section_at(bytes, &at);
        if (!s)
            return {};
        c.sections.push_back(*s);
    }
    return c;
}

std::optional<raw_record> container_raw(bytes_view bytes, std::size_t* p_at)
{
    constexpr std::size_t SELECTOR_AT = 6, TYPE_AT = 7;
    const bytes_view header = header_at(bytes, *p_at, RAW_SIZE);
    if (header.empty())
        return {};
    const bytes_view behind = bytes.subspan(*p_at + header.size());
    if (behind.size() < FRAME_HEAD)
        return {};
    const std::size_t size = FRAME_HEAD + static_cast<std::size_t>(behind[1] << 8 | behind[2]);
    if (size > behind.size())
        return {};
    *p_at += header.size() + size;
    return raw_record{header[SELECTOR_AT], header[TYPE_AT], behind.first(size)};
}

bytes_view container_check_value(const container& c, std::uint32_t address)
{
    const std::size_t size = address == CHECKED_8200 ? 2 : 4;
    const auto found = std::ranges::find(c.sections, address, &section::address);
    if (found == c.sections.end() || found->data.size() < size)
        return {};
    return found->data.last(size);
}

} // namespace pn65_dnld
