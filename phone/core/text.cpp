#include "core/text.h"

#include <charconv>
#include <cstdio>

namespace phone {

namespace {

template <typename T>
std::optional<T> whole(std::string_view digits, int base)
{
    T value{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (error != std::errc{} || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

bool has_0x(std::string_view text)
{
    return text.starts_with("0x") || text.starts_with("0X");
}

} // namespace

std::optional<std::int64_t> number(std::string_view text)
{
    const bool negative = text.starts_with('-');
    std::string_view digits = negative ? text.substr(1) : text;
    const int base = has_0x(digits) ? 16 : 10;
    digits.remove_prefix(base == 16 ? 2 : 0);
    if (digits.starts_with('-')) // a second sign, or one behind 0x
        return std::nullopt;
    const auto value = whole<std::int64_t>(digits, base);
    return value && negative ? -*value : value;
}

std::optional<std::uint64_t> hex_number(std::string_view text)
{
    return whole<std::uint64_t>(has_0x(text) ? text.substr(2) : text, 16);
}

std::optional<std::vector<std::uint8_t>> hex_bytes(std::string_view text)
{
    if (has_0x(text))
        text.remove_prefix(2);
    if (text.size() % 2 != 0)
        return std::nullopt;
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const auto value = whole<std::uint8_t>(text.substr(i, 2), 16);
        if (!value)
            return std::nullopt;
        bytes.push_back(*value);
    }
    return bytes;
}

std::string to_hex(const void* p_data, std::size_t size)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    const auto* p = static_cast<const std::uint8_t*>(p_data);
    std::string text;
    for (std::size_t i = 0; i < size; i++) {
        text += digits[p[i] >> 4];
        text += digits[p[i] & 15];
    }
    return text;
}

std::vector<std::string> words(std::string_view line)
{
    std::vector<std::string> found;
    std::size_t at = 0;
    while ((at = line.find_first_not_of(" \t", at)) != line.npos) {
        const std::size_t end = std::min(line.find_first_of(" \t", at), line.size());
        found.emplace_back(line.substr(at, end - at));
        at = end;
    }
    return found;
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t at = text.find(separator);
        parts.push_back(text.substr(0, at));
        if (at == text.npos)
            return parts;
        text.remove_prefix(at + 1);
    }
}

std::string escaped(std::string_view bytes)
{
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        char hex[8];
        switch (c) {
        case '\r':
            text += "\\r";
            break;
        case '\n':
            text += "\\n";
            break;
        case '\t':
            text += "\\t";
            break;
        case '\\':
            text += "\\\\";
            break;
        default:
            if (byte >= 0x20 && byte < 0x7F) {
                text += c;
            } else {
                std::snprintf(hex, sizeof hex, "\\x%02X", byte);
                text += hex;
            }
        }
    }
    return text;
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t from = text.find_first_not_of(" \t\r\n");
    if (from == text.npos)
        return {};
    return text.substr(from, text.find_last_not_of(" \t\r\n") - from + 1);
}

} // namespace phone
