#include "client/session.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "client/control_client.h"
#include "client/port_client.h"

namespace {

constexpr int send_ms = 120'000;
constexpr int restart_ms = 20'000;
constexpr auto hold_time = std::chrono::milliseconds(400);

volatile std::sig_atomic_t interrupts;

void on_interrupt(int)
{
    interrupts = interrupts + 1;
}

void show(session& s, const std::string& text)
{
    if (text.empty())
        return;
    s.in_line = text.back() != '\n';
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

// What was held is shown after all.
void stop_holding(session& s)
{
    if (s.holding)
        show(s, s.reply);
    s.holding = false;
}

// Takes what has come from the port, with line ends as the terminal likes them; false when the port is gone.
bool take_port(session& s)
{
    std::string got;
    const bool there = port_take(s.port, got);
    std::erase(got, '\r');
    s.reply += got;
    if (!s.holding)
        show(s, got);
    return there;
}

bool send_idle(session& s)
{
    constexpr std::string_view request = "idle\n";
    s.unanswered++;
    return send(s.control, request.data(), request.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(request.size());
}

// The control port has closed. A phone that restarts keeps the station's port and opens the control port
// anew.
bool survives_restart(session& s)
{
    close(s.control);
    s.unanswered = 0;
    for (int waited = 0; waited < restart_ms; waited += 50) {
        if (!take_port(s))
            return false;
        if ((s.control = control_connect(s.dir)) >= 0) {
            if (!s.restarting)
                session_note(s, "The phone has restarted.");
            s.restarting = true;
            return send_idle(s);
        }
        poll(nullptr, 0, 50);
    }
    return false;
}

bool ask_idle(session& s)
{
    return send_idle(s) || survives_restart(s);
}

// Takes the answers to "idle" that have come. One that says that the program is still at work is asked again.
bool take_idle(session& s)
{
    char part[256];
    const ssize_t count = recv(s.control, part, sizeof part, MSG_DONTWAIT);
    if (count <= 0)
        return (count < 0 && (errno == EAGAIN || errno == EINTR)) || survives_restart(s);
    const std::string_view text(part, static_cast<std::size_t>(count));
    s.unanswered -= static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    s.restarting = false;
    if (text.find("error") == text.npos)
        return true;
    session_note(s, "The program is still at work; Ctrl-C gives the prompt back.");
    return ask_idle(s);
}

// The station's port is gone: with the phone, unless that still answers.
outcome lost_port(session& s)
{
    stop_holding(s);
    close(s.port);
    s.port = -1;
    const int probe = control_connect(s.dir);
    std::string answer;
    const bool answers = probe >= 0 && control_ask(probe, "clock", answer, 2000);
    if (probe >= 0)
        close(probe);
    return answers ? outcome::hung_up : outcome::off;
}

} // namespace

bool session_open(session& s, const std::string& dir)
{
    s.dir = dir;
    return (s.control = control_connect(dir)) >= 0 && (s.port = port_open_raw(dir + "/ttyGS0")) >= 0;
}

bool session_reopen(session& s)
{
    if (s.port < 0)
        s.port = port_open_raw(s.dir + "/ttyGS0");
    return s.port >= 0;
}

void session_catch_interrupts()
{
    struct sigaction action {};
    action.sa_handler = on_interrupt; // without a restart of what waits
    sigaction(SIGINT, &action, nullptr);
}

bool session_take_interrupt()
{
    const bool there = interrupts != 0;
    interrupts = 0;
    return there;
}

void session_note(session& s, const char* text)
{
    if (!s.at_prompt)
        return;
    stop_holding(s);
    std::printf("%s%s\n", s.in_line ? "\n" : "", text);
    s.in_line = false;
}

outcome session_show_unasked(session& s, bool control_moved)
{
    s.reply.clear();
    if (s.port >= 0 && !take_port(s))
        return lost_port(s);
    return control_moved && !take_idle(s) ? outcome::off : outcome::replied;
}

outcome session_take_reply(session& s)
{
    const auto hold_end = std::chrono::steady_clock::now() + hold_time;
    if (s.unanswered == 0 && !ask_idle(s))
        return outcome::off;
    while (s.unanswered > 0) {
        pollfd fds[2] = {{s.port, POLLIN, 0}, {s.control, POLLIN, 0}};
        poll(fds, 2, s.holding ? 50 : -1);
        if (s.holding && std::chrono::steady_clock::now() > hold_end)
            stop_holding(s);
        if (session_take_interrupt()) {
            stop_holding(s);
            return outcome::interrupted;
        }
        if (!take_port(s))
            return lost_port(s);
        if (fds[1].revents != 0 && !take_idle(s))
            return outcome::off;
    }
    return take_port(s) ? outcome::replied : lost_port(s);
}

outcome session_exchange(session& s, const std::string& line, bool hold)
{
    if (!session_reopen(s))
        return outcome::hung_up;
    const outcome before = s.unanswered > 0 ? session_take_reply(s) : outcome::replied;
    if (before != outcome::replied)
        return before;
    s.reply.clear();
    s.holding = hold;
    std::string got;
    if (!port_send(s.port, line + "\r", got, send_ms))
        return lost_port(s);
    return session_take_reply(s);
}

bool session_control(const session& s, const std::string& words, std::string& answer)
{
    const int fd = control_connect(s.dir);
    if (fd < 0) {
        answer = "the control port can't be reached";
        return false;
    }
    const bool done = control_tell_folder(fd) && control_ask(fd, words, answer);
    close(fd);
    return done;
}
