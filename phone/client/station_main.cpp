// hvt-station: a station for one person. With a terminal it is a prompt with line editing that shows what the
// phone sends whenever it comes; with any other input it sends each line, waits for its reply, prints it, and
// ends with the input.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <string>
#include <unistd.h>

#include <readline/history.h>
#include <readline/readline.h>

#include "client/control_client.h"
#include "client/port_client.h"

namespace {

constexpr int reply_ms = 120'000;

int port = -1;
int control = -1;
bool over;

// Prints what came, with line ends as the terminal likes them.
void show(std::string& got)
{
    std::string text;
    for (const char c : got)
        if (c != '\r')
            text += c;
    got.clear();
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

// Reads until the program's loop waits for input again: then the reply is whole, whatever its terminators.
bool take_reply(std::string& got)
{
    // The request for "idle" is answered in a thread of its own, while the reply is read here.
    const char request[] = "idle\n";
    if (write(control, request, sizeof request - 1) < 0)
        return false;
    std::string answer;
    for (int waited = 0; waited < reply_ms;) {
        pollfd fds[2] = {{port, POLLIN, 0}, {control, POLLIN, 0}};
        const int n = poll(fds, 2, 100);
        if (n == 0)
            waited += 100;
        if (!port_take(port, got))
            return false;
        show(got);
        if ((fds[1].revents & (POLLIN | POLLHUP)) == 0)
            continue;
        char part[256];
        const ssize_t count = read(control, part, sizeof part);
        if (count <= 0)
            return false;
        answer.append(part, static_cast<std::size_t>(count));
        if (!answer.ends_with('\n'))
            continue;
        const bool there = port_take(port, got);
        show(got);
        return there;
    }
    return true;
}

bool exchange(const std::string& line)
{
    std::string got;
    return port_send(port, line + "\r", got, reply_ms) && take_reply(got);
}

int run_input()
{
    std::string got;
    take_reply(got); // what the phone says by itself at its start
    char* line = nullptr;
    std::size_t size = 0;
    ssize_t n;
    bool there = true;
    while (there && (n = getline(&line, &size, stdin)) >= 0) {
        std::string text(line, static_cast<std::size_t>(n));
        while (text.ends_with('\n') || text.ends_with('\r'))
            text.pop_back();
        there = exchange(text);
    }
    std::free(line);
    return 0;
}

void typed(char* line)
{
    if (line == nullptr) {
        over = true;
        rl_callback_handler_remove();
        return;
    }
    if (*line != '\0')
        add_history(line);
    rl_callback_handler_remove();
    over = !exchange(line);
    std::free(line);
    if (!over)
        rl_callback_handler_install("hvt> ", typed);
}

int run_prompt()
{
    std::puts("The phone is on. Type a command (help, case?, ...); Ctrl-D ends.");
    rl_bind_key('\t', rl_insert);
    rl_callback_handler_install("hvt> ", typed);
    std::string got;
    while (!over) {
        pollfd fds[2] = {{STDIN_FILENO, POLLIN, 0}, {port, POLLIN, 0}};
        if (poll(fds, 2, -1) < 0 && errno != EINTR)
            break;
        if (fds[1].revents != 0) {
            if (!port_take(port, got))
                break;
            std::fputs("\r\x1b[K", stdout);
            show(got);
            rl_forced_update_display();
        }
        if (fds[0].revents != 0)
            rl_callback_read_char();
    }
    rl_callback_handler_remove();
    std::puts(over ? "" : "\nThe phone is off.");
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: hvt-station DIR\n", stderr);
        return 2;
    }
    const std::string dir = argv[1];
    port = port_open_raw(dir + "/ttyGS0");
    control = control_connect(dir);
    if (port < 0 || control < 0) {
        std::fprintf(stderr, "hvt: no phone is running in %s; \"./hvt up %s\" starts one\n", argv[1],
                     argv[1]);
        return 1;
    }
    return isatty(STDIN_FILENO) ? run_prompt() : run_input();
}
