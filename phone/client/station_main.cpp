// hvt-station: a station for one person. With a terminal it is a prompt with line editing that shows what the
// phone sends whenever it comes; with any other input it sends each line, waits for its reply, prints it, and
// ends with the input. A phone that restarts is waited for, one that goes off ends the session.
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

#include <readline/history.h>
#include <readline/readline.h>

#include "client/control_client.h"
#include "client/port_client.h"

namespace {

constexpr const char* prompt = "hvt> ";
constexpr int send_ms = 120'000;
constexpr int restart_ms = 20'000;
constexpr int history_lines = 1000;

enum class outcome { replied, interrupted, off };

std::string dir;
int port = -1;
int control = -1;
int unanswered;  // requests for "idle": while there is one, the program is at work
bool at_prompt;  // somebody sits there
bool over;       // the session has ended
bool phone_off;  // and the phone with it
bool restarting; // the phone has, and has not answered since
bool answered;   // something came since the last line was sent
bool in_line;    // what was shown last had no line end
volatile std::sig_atomic_t interrupts;

void on_interrupt(int)
{
    interrupts = interrupts + 1;
}

bool take_interrupt()
{
    const bool there = interrupts != 0;
    interrupts = 0;
    return there;
}

// What only a person wants to know.
void note(const char* text)
{
    if (!at_prompt)
        return;
    std::printf("%s%s\n", in_line ? "\n" : "", text);
    in_line = false;
}

// Prints what has come from the port, with line ends as the terminal likes them; false when the port is gone.
bool show_port()
{
    std::string got;
    const bool there = port_take(port, got);
    std::erase(got, '\r');
    if (!got.empty()) {
        answered = true;
        in_line = got.back() != '\n';
        std::fwrite(got.data(), 1, got.size(), stdout);
    }
    std::fflush(stdout);
    return there;
}

bool send_idle()
{
    constexpr std::string_view request = "idle\n";
    unanswered++;
    return send(control, request.data(), request.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(request.size());
}

// The control port has closed. A phone that restarts keeps the station's port and opens the control port
// anew.
bool survives_restart()
{
    close(control);
    unanswered = 0;
    for (int waited = 0; waited < restart_ms; waited += 50) {
        if (!show_port())
            return false;
        if ((control = control_connect(dir)) >= 0) {
            if (!restarting)
                note("The phone has restarted.");
            restarting = true;
            return send_idle();
        }
        poll(nullptr, 0, 50);
    }
    return false;
}

bool ask_idle()
{
    return send_idle() || survives_restart();
}

// Takes the answers to "idle" that have come. One that says that the program is still at work is asked again.
bool take_idle()
{
    char part[256];
    const ssize_t count = recv(control, part, sizeof part, MSG_DONTWAIT);
    if (count <= 0)
        return (count < 0 && (errno == EAGAIN || errno == EINTR)) || survives_restart();
    const std::string_view text(part, static_cast<std::size_t>(count));
    unanswered -= static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    restarting = false;
    if (text.find("error") == text.npos)
        return true;
    note("The program is still at work; Ctrl-C gives the prompt back.");
    return ask_idle();
}

// Waits until the program's loop waits for input again: then the reply is whole, whatever its terminators.
outcome take_reply()
{
    if (unanswered == 0 && !ask_idle())
        return outcome::off;
    while (unanswered > 0) {
        pollfd fds[2] = {{port, POLLIN, 0}, {control, POLLIN, 0}};
        poll(fds, 2, -1);
        if (take_interrupt())
            return outcome::interrupted;
        if (!show_port() || (fds[1].revents != 0 && !take_idle()))
            return outcome::off;
    }
    return show_port() ? outcome::replied : outcome::off;
}

// A line that comes while the program is still at work waits, since two in one are none.
outcome exchange(const std::string& line)
{
    const outcome before = unanswered > 0 ? take_reply() : outcome::replied;
    if (before != outcome::replied)
        return before;
    answered = false;
    std::string got;
    return port_send(port, line + "\r", got, send_ms) ? take_reply() : outcome::off;
}

int run_input()
{
    char* line = nullptr;
    std::size_t size = 0;
    ssize_t n = 0;
    bool there = take_reply() != outcome::off; // what the phone says by itself at its start
    while ((n = getline(&line, &size, stdin)) >= 0 && there) {
        std::string text(line, static_cast<std::size_t>(n));
        while (text.ends_with('\n') || text.ends_with('\r'))
            text.pop_back();
        there = exchange(text) != outcome::off;
    }
    std::free(line);
    if (n < 0)
        return 0;
    std::fputs("hvt: the phone is off; the rest of the input wasn't sent\n", stderr);
    return 1;
}

void typed(char* line);

void show_prompt()
{
    if (in_line)
        std::puts("");
    in_line = false;
    rl_callback_handler_install(prompt, typed);
}

void remember(const char* line)
{
    const HIST_ENTRY* const last =
        history_length > 0 ? history_get(history_base + history_length - 1) : nullptr;
    if (*line != '\0' && (last == nullptr || std::strcmp(last->line, line) != 0))
        add_history(line);
}

void typed(char* line)
{
    rl_callback_handler_remove();
    over = line == nullptr;
    if (over) {
        std::puts("");
        return;
    }
    remember(line);
    const bool was_at_work = unanswered > 0;
    const outcome result = exchange(line);
    std::free(line);
    over = phone_off = result == outcome::off;
    if (over)
        return;
    if (result == outcome::interrupted)
        note(was_at_work ? "\nThe program is still at work; the line wasn't sent."
                         : "\nThe program is still at work; its answer is shown when it comes.");
    else if (!answered)
        note("(no answer)");
    show_prompt();
}

// Ctrl-C throws the line away that is being typed.
void drop_line()
{
    std::puts(rl_end > 0 ? "^C" : "^C (Ctrl-D ends)");
    rl_callback_sigcleanup();
    rl_free_line_state();
    rl_replace_line("", 0);
    rl_on_new_line();
    rl_redisplay();
}

void show_unasked(bool control_moved)
{
    std::fputs("\r\x1b[K", stdout);
    phone_off = !show_port() || (control_moved && !take_idle());
    over = phone_off;
    if (!over)
        rl_forced_update_display();
}

void catch_signals()
{
    rl_catch_signals = 0;
    struct sigaction action {};
    action.sa_handler = on_interrupt; // without a restart of what waits
    sigaction(SIGINT, &action, nullptr);
}

int run_prompt()
{
    const std::string history = dir + "/history";
    at_prompt = true;
    catch_signals();
    read_history(history.c_str());
    stifle_history(history_lines);
    std::puts("The phone is on. Type a command (help, case?, ...); Ctrl-D ends.");
    rl_bind_key('\t', rl_insert);
    rl_variable_bind("enable-bracketed-paste", "off"); // lines that are pasted are lines, one after the other
    show_prompt();
    while (!over) {
        pollfd fds[3] = {{STDIN_FILENO, POLLIN, 0}, {port, POLLIN, 0}, {control, POLLIN, 0}};
        poll(fds, 3, -1);
        if (take_interrupt()) {
            drop_line();
            continue;
        }
        if (fds[1].revents != 0 || fds[2].revents != 0)
            show_unasked(fds[2].revents != 0);
        if (!over && fds[0].revents != 0)
            rl_callback_read_char();
    }
    rl_callback_handler_remove();
    if (phone_off)
        note(("The phone is off; its last words are in " + dir + "/log/kmsg.").c_str());
    write_history(history.c_str());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: hvt-station DIR\n", stderr);
        return 2;
    }
    dir = argv[1];
    if ((control = control_connect(dir)) < 0 || (port = port_open_raw(dir + "/ttyGS0")) < 0) {
        control_say_why(argv[1]);
        return 1;
    }
    return isatty(STDIN_FILENO) ? run_prompt() : run_input();
}
