#include "attr_num/attr_num.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "attr/attr.h"
#include "plat/plat.h"

namespace {

constexpr const char* BLANKS = " \t\r";
constexpr int DECIMAL = 10;
constexpr int HEXADECIMAL = 16;

// The last line of a text that comes in pieces; of a long line the beginning.
struct last_line {
    char text[ATTR_NUM_LINE] = "";
    std::size_t len = 0;
    bool ended = false;

    void take(std::string_view piece)
    {
        for (const char c : piece) {
            len = ended ? 0 : len;
            ended = c == '\n';
            if (!ended && len + 1 < sizeof text)
                text[len++] = c;
            text[len] = '\0';
        }
    }
};

// The number that `text` begins with; `*p_end` is behind it. False when there is none, or it is no int.
bool scan(const char* text, int* p_value, char** p_end)
{
    const char* p = text + std::strspn(text, BLANKS);
    const char* const p_digits = *p == '-' ? p + 1 : p;
    const bool hex = p_digits[0] == '0' && (p_digits[1] == 'x' || p_digits[1] == 'X');
    errno = 0;
    const long value = std::strtol(p, p_end, hex ? HEXADECIMAL : DECIMAL);
    if (*p_end == p || errno != 0 || value < INT_MIN || value > INT_MAX)
        return false;
    *p_value = static_cast<int>(value);
    return true;
}

// The same for a number that stands alone between blanks.
bool scan_whole(char** pp, int* p_value)
{
    char* p_end;
    if (!scan(*pp, p_value, &p_end) || std::strchr(" \t\r\n", *p_end) == nullptr)
        return false;
    *pp = p_end;
    return true;
}

// Whether the line ends at `p`.
bool at_end(const char* p)
{
    p += std::strspn(p, BLANKS);
    return *p == '\0' || *p == '\n';
}

// Takes away the number in which a line that is too long was cut.
void cut_last(char* text)
{
    std::size_t len = std::strlen(text);
    while (len > 0 && std::strchr(BLANKS, text[len - 1]) == nullptr)
        len--;
    text[len] = '\0';
}

} // namespace

int attr_num_bytes(const char* path, std::uint8_t* p_bytes, std::size_t size)
{
    char text[ATTR_NUM_LINE + 2];
    if (attr_read(path, text, sizeof text) != ATTR_OK)
        return -1;
    const bool cut = std::strcspn(text, "\n") > ATTR_NUM_LINE;
    if (cut)
        cut_last(text);
    char* p = text;
    int value;
    if (!scan_whole(&p, &value) || value < 0)
        return -1;
    std::size_t i = 0;
    for (; i < size && !at_end(p); i++) {
        if (!scan_whole(&p, &value) || value < 0 || value > UINT8_MAX)
            return -1;
        p_bytes[i] = static_cast<std::uint8_t>(value);
    }
    return cut && i < size ? -1 : 0;
}

bool attr_num_last(const char* path, int* p_value)
{
    const int fd = plat_open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    last_line line;
    char piece[256];
    ssize_t n;
    while ((n = plat_read(fd, piece, sizeof piece)) > 0)
        line.take({piece, static_cast<std::size_t>(n)});
    plat_close(fd);
    char* p_end;
    return n == 0 && scan(line.text, p_value, &p_end);
}
