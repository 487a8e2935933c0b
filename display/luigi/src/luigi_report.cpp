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

// Prints a text in lines from `y` on, broken behind a blank where one is near; the place below it.
std::uint32_t print_wrapped(std::string_view text, std::uint32_t y, std::uint32_t colour)
{
    const std::uint32_t margin = screen_char_width() / 2;
    const std::size_t room =
        std::max<std::size_t>((screen_width() - margin) / std::max(screen_char_width(), 1u), 1);
    while (!text.empty()) {
        std::size_t end = std::min(room, text.size());
        if (const std::size_t blank = text.substr(0, end).rfind(' ');
            end < text.size() && blank != text.npos && blank > room / 2)
            end = blank;
        screen_print(std::string(text.substr(0, end)).c_str(), margin, y, colour);
        text.remove_prefix(end);
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        y += screen_char_height() * 5 / 4;
    }
    return y;
}

} // namespace

void luigi_report_log(const std::string& message)
{
    std::string text = message.substr(0, MOST_LOGGED);
    for (char& c : text)
        if (c < ' ' || c == '"' || c == '\\' || c == '$' || c == '`' || c == 0x7F)
            c = c == '"' || c == '`' ? '\'' : ' ';
    plat_system(("echo \"QAT: luigi: " + text + "\" > /dev/kmsg").c_str());
}

void luigi_report_page(const std::string& message, const char* hint)
{
    if (screen_get_active() == SCREEN_NONE && screen_start(0, 0) != 1)
        return;
    screen_clear(WHITE);
    std::uint32_t y = screen_char_height();
    y = print_wrapped("The menu has ended: its script failed", y, RED) + screen_char_height();
    y = print_wrapped(message, y, BLACK) + screen_char_height();
    print_wrapped(hint, y, RED);
    screen_invalidate();
}
