#include "client/pages.h"

#include <algorithm>
#include <cstdio>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr std::size_t few_lines = 3;   // an answer of so many is shown as it came
constexpr std::size_t name_width = 10; // of an entry of list and help

winsize terminal_size()
{
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 || size.ws_row == 0)
        size = {.ws_row = 24, .ws_col = 80, .ws_xpixel = 0, .ws_ypixel = 0};
    return size;
}

std::string_view without_end(std::string_view text, std::string_view ends)
{
    const std::size_t last = text.find_last_not_of(ends);
    return text.substr(0, last == text.npos ? 0 : last + 1);
}

bool is_name(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_") == text.npos;
}

// The entries of an answer of list or help: each begins with a name, padded, behind a line term; the last
// part is the status.
std::string help_lines(std::string_view answer, const std::vector<std::string>& names)
{
    std::vector<std::size_t> starts = {0};
    for (const std::string& name : names) {
        std::string mark = "," + name;
        mark.resize(std::max(name_width + 1, mark.size()), ' ');
        for (std::size_t at = 0; (at = answer.find(mark, at)) != answer.npos; at++)
            starts.push_back(at + 1);
    }
    std::sort(starts.begin(), starts.end());
    starts.push_back(answer.size() + 1);
    std::string text;
    for (std::size_t i = 0; i + 1 < starts.size(); i++) {
        std::string_view entry = answer.substr(starts[i], starts[i + 1] - 1 - starts[i]);
        text.append(without_end(entry, " \n")).push_back('\n');
    }
    return text;
}

std::string in_columns(const std::vector<std::string>& names, std::size_t width)
{
    std::size_t longest = 0;
    for (const std::string& name : names)
        longest = std::max(longest, name.size());
    const std::size_t columns = std::max<std::size_t>(1, width / (longest + 2));
    const std::size_t rows = (names.size() + columns - 1) / columns;
    std::string text;
    for (std::size_t row = 0; row < rows; row++) {
        std::string line;
        for (std::size_t at = row; at < names.size(); at += rows) {
            line.resize((at / rows) * (longest + 2), ' ');
            line += names[at];
        }
        text += line + "\n";
    }
    return text;
}

// Breaks a line behind commas so that it fits.
std::string broken(std::string_view line, std::size_t width)
{
    std::string text;
    while (line.size() > width) {
        std::size_t at = line.rfind(',', width - 1);
        if (at == line.npos || at == 0)
            at = width - 1;
        text.append(line.substr(0, at + 1)).append("\n  ");
        line.remove_prefix(at + 1);
        if (width > 4 && text.size() < 2 * width)
            width -= 2; // for what the lines below are moved in
    }
    return text.append(line).append("\n");
}

// A key, with the terminal giving single ones; 'q' when there is none to come.
char read_key(const std::function<void()>& meanwhile)
{
    termios before{};
    tcgetattr(STDIN_FILENO, &before);
    termios single = before;
    single.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | ISIG);
    tcsetattr(STDIN_FILENO, TCSANOW, &single);
    char key = 'q';
    for (;;) {
        pollfd p{STDIN_FILENO, POLLIN, 0};
        if (poll(&p, 1, 50) > 0) {
            if (read(STDIN_FILENO, &key, 1) != 1)
                key = 'q';
            break;
        }
        meanwhile();
    }
    tcsetattr(STDIN_FILENO, TCSANOW, &before);
    return key;
}

} // namespace

std::size_t terminal_width()
{
    return terminal_size().ws_col;
}

std::vector<std::string> names_of_list(std::string_view answer)
{
    std::vector<std::string> names;
    answer = without_end(answer, "\n ");
    answer = answer.substr(answer.rfind('\n') + 1); // late reports may stand before it
    while (!answer.empty()) {
        const std::size_t end = std::min(answer.find(','), answer.size());
        const std::string_view name = without_end(answer.substr(0, end), " ");
        answer.remove_prefix(std::min(end + 1, answer.size()));
        if (is_name(name))
            names.emplace_back(name);
        else if (!answer.empty())
            return {};
    }
    return names;
}

std::string laid_out(std::string_view command, std::string_view answer, std::size_t width,
                     const std::vector<std::string>& names)
{
    if (answer.size() <= few_lines * width)
        return std::string(answer);
    if (command == "help" && !names.empty())
        return help_lines(answer, names);
    if (const auto listed = command == "list" ? names_of_list(answer) : names;
        command == "list" && !listed.empty()) {
        const std::size_t status = answer.rfind(',') + 1;
        return in_columns(listed, width) + std::string(without_end(answer.substr(status), "\n")) + "\n";
    }
    std::string text;
    while (!answer.empty()) {
        const std::size_t end = std::min(answer.find('\n'), answer.size());
        text += broken(answer.substr(0, end), width);
        answer.remove_prefix(std::min(end + 1, answer.size()));
    }
    return text;
}

void show_pages(std::string_view text, const std::function<void()>& meanwhile)
{
    const winsize size = terminal_size();
    const std::size_t most = std::max<std::size_t>(size.ws_row, 3) - 1;
    std::size_t shown = 0;
    std::size_t may = most;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1);
        const std::size_t rows = std::max<std::size_t>(1, (end + size.ws_col - 1) / size.ws_col);
        if (shown > 0 && shown + rows > may) {
            std::fputs("-- more: blank, return for a line, q to leave --", stdout);
            std::fflush(stdout);
            const char key = read_key(meanwhile);
            std::fputs("\r\x1b[K", stdout);
            if (key == 'q' || key == 'Q' || key == 3 || key == 4)
                return;
            shown = 0;
            may = key == '\r' || key == '\n' ? rows : most;
        }
        std::fwrite(text.data(), 1, end + 1, stdout);
        shown += rows;
        text.remove_prefix(end + 1);
    }
    std::fflush(stdout);
}
