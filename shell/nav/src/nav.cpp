#include "nav/nav.h"

#include "check/check.h"
#include "scf/scf.h"

#include <algorithm>
#include <cstring>

std::uint32_t nav_ireg[NAV_REGISTERS];

namespace {

constexpr std::int32_t FIXEDPOINT_SCALE = 1000;
constexpr std::size_t REPEAT_BACK = 3; // how much of a used-up format is read again: ",%v"

std::uint32_t get_number(char** pp, unsigned radix)
{
    const char* s = *pp;
    const std::int32_t value = scf_ascii_to_bin(&s, radix);
    *pp += s - *pp;
    return static_cast<std::uint32_t>(value);
}

std::uint32_t get_fixedpoint(char** pp)
{
    const char* s = *pp;
    const std::int32_t value = scf_ascii_to_fixedpoint(&s, FIXEDPOINT_SCALE);
    *pp += s - *pp;
    return static_cast<std::uint32_t>(value);
}

// Each `&` raises the level, each `*` lowers it.
int get_level(char** pp)
{
    int level = 0;
    char* s = *pp;
    for (; *s == '&' || *s == '*'; s++)
        level += *s == '&' ? 1 : -1;
    *pp = s;
    return level;
}

// The index behind an R, which no number of digits brings back below the end of the registers.
unsigned get_register_index(char** pp)
{
    unsigned index = 0;
    char* s = *pp;
    for (; *s >= '0' && *s <= '9'; s++)
        index = std::min(index * 10 + static_cast<unsigned>(*s - '0'), NAV_REGISTERS);
    *pp = s;
    return index;
}

// A number or a register, or with `&` the address of either. What would read memory at an address that the
// line gives is refused.
bool get_value(nav_values* p_dst, int i, char** pp, int level)
{
    const std::uint32_t* p_value = &p_dst->held[i];
    if (**pp == 'R' || **pp == 'r') {
        ++*pp;
        const unsigned index = get_register_index(pp);
        if (index >= NAV_REGISTERS)
            return false;
        p_value = &nav_ireg[index];
    } else {
        const char* s = *pp;
        const bool hex = s[0] && (s[1] == 'x' || s[1] == 'X');
        p_dst->held[i] = get_number(pp, hex ? 16 : 10);
    }
    if (level == 0)
        p_dst->word[i] = *p_value;
    else
        p_dst->word[i] = reinterpret_cast<std::uintptr_t>(p_value);
    return level == 0 || level == 1;
}

// A text in quotes, which the closing one ends in place; without an opening quote a null word.
bool get_string(nav_values* p_dst, int i, char** pp, int level)
{
    char* s = *pp;
    p_dst->word[i] = 0;
    if (level != 0 || *s != '"')
        return level == 0;
    p_dst->word[i] = reinterpret_cast<std::uintptr_t>(++s);
    while (*s && *s != '"')
        s += s[0] == '\\' && s[1] ? 2 : 1;
    if (*s)
        *s++ = 0;
    *pp = s;
    return true;
}

// The usual value of a line, one that begins with a digit: true when such a one stands at the position.
// Otherwise nothing is done.
inline bool get_plain_number(std::uintptr_t* p_word, char** pp)
{
    const auto digit_at = [](const char* s) { return static_cast<unsigned>(*s - '0'); };
    char* s = *pp;
    unsigned digit = digit_at(s);
    if (digit > 9)
        return false;
    std::uint32_t value = 0;
    do {
        value = value * 10 + digit;
        digit = digit_at(++s);
    } while (digit <= 9);
    if (*s == 'x' || *s == 'X') {
        *p_word = get_number(pp, 16);
        return true;
    }
    *p_word = value;
    *pp = s;
    return true;
}

// Most of a long line: a used-up ",%v" is read again and again. Takes plain numbers with `sep` between them,
// as values from `*p_n` on. True when that has brought the text to something else than `sep`; false when it
// stands where a value is due that isn't plain, or for which there is no room.
bool get_plain_run(nav_values* p_dst, int* p_n, char** pp, char sep)
{
    char* s = *pp;
    int n = *p_n;
    bool done = false;
    while (!done && n < NAV_MAX_VALUES && get_plain_number(&p_dst->word[n], &s)) {
        n++;
        done = *s != sep;
        s += done ? 0 : 1;
    }
    *pp = s;
    *p_n = n;
    return done;
}

// Converts value `i` by its directive; false for a syntax error.
bool get_directive(nav_values* p_dst, int i, char** pp, char directive)
{
    const int level = get_level(pp);
    std::uintptr_t& word = p_dst->word[i];
    switch (directive) {
    case 'v':
    case 'p':
        return get_value(p_dst, i, pp, level);
    case 'd':
        word = get_number(pp, 10);
        return true;
    case 'x':
        word = get_number(pp, 16);
        return true;
    case 'f':
        word = get_fixedpoint(pp);
        return true;
    case 'c':
        word = static_cast<unsigned char>(**pp);
        *pp += **pp ? 1 : 0;
        return true;
    case 's':
        return get_string(p_dst, i, pp, level);
    case 't':
        word = reinterpret_cast<std::uintptr_t>(*pp);
        *pp += std::strlen(*pp);
        return true;
    default:
        HVT_CHECK(!"directive");
        return false;
    }
}

inline bool get_item(nav_values* p_dst, int i, char** pp, char directive)
{
    if (i == NAV_MAX_VALUES)
        return false;
    return (directive == 'v' && get_plain_number(&p_dst->word[i], pp)) ||
           get_directive(p_dst, i, pp, directive);
}

// Characters before the first `=`, `?` or the end, for long texts. Kept out of the way of the short ones.
[[gnu::noinline]] std::size_t length_to_stop(const char* text)
{
    std::size_t len = std::strlen(text);
    for (const char stop : {'=', '?'})
        if (const void* p = std::memchr(text, stop, len))
            len = static_cast<std::size_t>(static_cast<const char*>(p) - text);
    return len;
}

} // namespace

char* nav_get_name(std::size_t* p_len, char** pp)
{
    // Names are short. Behind sixteen characters the line is none that anybody waits for, and may be long.
    constexpr std::size_t SHORT = 16;
    char* const name = *pp;
    std::size_t len = 0;
    while (len < SHORT && name[len] && name[len] != '=' && name[len] != '?')
        len++;
    if (len == SHORT)
        len += length_to_stop(name + SHORT);
    *p_len = len;
    *pp = name + len;
    return name;
}

int nav_get_action(char** pp)
{
    char* const s = *pp;
    if (s[0] == 0)
        return NAV_SET;
    if (s[0] == '?') {
        *pp = s + 1;
        return NAV_READ;
    }
    if (s[0] != '=')
        return NAV_SYNTAX;
    *pp = s + (s[1] == '?' ? 2 : 1);
    return s[1] == '?' ? NAV_TEST : NAV_SET;
}

int nav_get_val(nav_values* p_dst, char** pp, const char* p_fmt)
{
    char* s = *pp;
    const char* f = p_fmt;
    int n = 0;
    if (!*s)
        return 0;
    while (*f || *s) {
        if (*f == '%') {
            if (!get_item(p_dst, n, &s, f[1])) {
                n = -1;
                break;
            }
            f += 2;
            n++;
        } else if (*f == *s) {
            f++;
            s++;
        } else if (!*s) {
            break;
        } else if (!*f && static_cast<std::size_t>(f - p_fmt) >= REPEAT_BACK && *(f - REPEAT_BACK) == *s) {
            f -= REPEAT_BACK - 1;
            s++;
            if (f[0] == '%' && f[1] == 'v' && get_plain_run(p_dst, &n, &s, f[-1]))
                f += 2;
        } else {
            n = -1;
            break;
        }
    }
    *pp = s;
    return n;
}
