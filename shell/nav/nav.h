// The scanner of command lines: the name, the action and the values that a command's format names. It walks
// one position through a text that ends with NUL and may write into it; it knows no commands.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr int NAV_SET = 0;    // end of line, or `=`
constexpr int NAV_READ = 1;   // `?`
constexpr int NAV_TEST = 2;   // `=?`
constexpr int NAV_SYNTAX = 3; // anything else

constexpr int NAV_MAX_VALUES = 16;
constexpr unsigned NAV_REGISTERS = 33;

// The values of a line. `held` keeps the numbers whose address a line asked for with `&`, so that such an
// address is good for as long as the record is.
struct nav_values {
    std::uintptr_t word[NAV_MAX_VALUES];
    std::uint32_t held[NAV_MAX_VALUES];
};

// The internal registers R0 to R32. Nothing in this system writes them.
extern std::uint32_t nav_ireg[NAV_REGISTERS];

// The text up to the first `=`, `?` or the end: gives its start and, in `*p_len`, its length, and leaves the
// position at what stopped it.
char* nav_get_name(std::size_t* p_len, char** pp);

// The action at the position; passes over the characters that say it.
int nav_get_action(char** pp);

// Reads values by a format into `p_dst`: their number, or -1 when the text doesn't fit the format. The format
// is program text: an unknown directive stops the process.
int nav_get_val(nav_values* p_dst, char** pp, const char* p_fmt);
