#include "check/check.h"
#include "scf/scf.h"

#include <cstring>

namespace {

constexpr char BACKSPACE = 0x08;

} // namespace

std::size_t scf_clean(char* str, const char* chars)
{
    bool unwanted[256] = {};
    for (const char* p = chars; *p; p++)
        unwanted[static_cast<unsigned char>(*p)] = true;
    char* p_to = str;
    for (const char* p = str; *p; p++) {
        if (unwanted[static_cast<unsigned char>(*p)])
            continue;
        if (*p != BACKSPACE)
            *p_to++ = *p;
        else if (p_to > str)
            p_to--;
    }
    *p_to = 0;
    return static_cast<std::size_t>(p_to - str);
}

int scf_split(char* str, char** p_ptrs, int max, char sep)
{
    HVT_CHECK(str != nullptr);
    int count = 0;
    while (count < max) {
        while (sep && *str == sep)
            str++;
        if (!*str)
            break;
        p_ptrs[count++] = str;
        char* p_end = std::strchr(str, sep);
        if (!sep || !p_end)
            break;
        *p_end = 0;
        str = p_end + 1;
    }
    return count;
}

void scf_case_to_upper(char* p, std::size_t count)
{
    for (std::size_t i = 0; i < count; i++)
        p[i] = static_cast<char>(p[i] >= 'a' && p[i] <= 'z' ? p[i] - 'a' + 'A' : p[i]);
}

void scf_case_to_lower(char* p, std::size_t count)
{
    for (std::size_t i = 0; i < count; i++)
        p[i] = static_cast<char>(p[i] >= 'A' && p[i] <= 'Z' ? p[i] - 'A' + 'a' : p[i]);
}

int scf_t_to_c(char* p_dst, const std::uint16_t* p_src, int max)
{
    int count = 0;
    for (; count < max && p_src[count]; count++)
        p_dst[count] = static_cast<char>(p_src[count]);
    return count;
}

int scf_c_to_t(std::uint16_t* p_dst, const char* p_src, int max)
{
    int count = 0;
    while (count < max) {
        const auto c = static_cast<unsigned char>(p_src[count]);
        p_dst[count++] = c;
        if (!c)
            break;
    }
    return count;
}
