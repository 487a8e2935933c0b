#include "luigi_report.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "plat/plat.h"
#include "screen/screen.h"

namespace {

constexpr std::size_t MOST_LOGGED = 200;

constexpr std::uint32_t WHITE = 0xFFFFFF;
constexpr std::uint32_t RED = 0xC00000;
constexpr std::uint32_t BLACK = 0x000000;

// The first line of a text, of at most `room` characters: it ends at a blank, or behind a slash, if one is
// near.
std::string_view first_line(std::string_view text, std::size_t room)
{
    if (text.size() <= room)
        return text;
    const std::string_view line = text.substr(0, room);
    const std::size_t at = text.substr(0, room + 1).find_last_of(" /");
    if (at == line.npos || at <= room / 2)
        return line;
    return text[at] == '/' ? text.substr(0, std::min(at + 1, room)) : text.substr(0, at);
}

// Prints a text in lines from `y` on, with dots for what has no room; the place below it.
std::uint32_t print_wrapped(std::string_view text, std::uint32_t y, std::uint32_t colour)
{
    const std::uint32_t margin = screen_char_width() / 2;
    const std::uint32_t row = screen_char_height() * 5 / 4;
    const std::size_t room =
        std::max<std::size_t>((screen_width() - 2 * margin) / std::max(screen_char_width(), 1u), 1);
    while (!text.empty() && y + row <= screen_height()) {
        const std::string_view line = first_line(text, room);
        const bool last = y + 2 * row > screen_height() && line.size() < text.size();
        screen_print(last ? "..." : std::string(line).c_str(), margin, y, colour);
        text.remove_prefix(line.size());
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        y += row;
    }
    return y;
}

} // namespace

void luigi_report_log(const std::string& message)
{
    std::string text = message.substr(0, MOST_LOGGED);
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ' || c == '"' || c == '\\' || c == '$' || c == '`' || c == 0x7F)
            c = c == '"' || c == '`' ? '\'' : ' ';
    plat_system(("echo \"QAT: luigi: " + text + "\" > /dev/kmsg").c_str());
}

void luigi_report_page(const std::string& message, const char* hint)
{
    if (screen_get_active() == SCREEN_NONE && screen_start(0, 0) != 1)
        return;
    screen_clear(WHITE);
    std::uint32_t y = screen_char_height();
    y = print_wrapped("The menu has ended: its script failed.", y, RED);
    y = print_wrapped(hint, y, RED) + screen_char_height();
    print_wrapped(message, y, BLACK);
    screen_invalidate();
}
