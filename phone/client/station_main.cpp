// hvt-station: a station for one person. With a terminal it is a prompt with line editing that shows what the
// phone sends whenever it comes; with any other input it sends each line, waits for its reply, prints it, and
// ends with the input. A phone that restarts is waited for, one that goes off ends the session.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <string>
#include <unistd.h>
#include <vector>

#include <readline/history.h>
#include <readline/readline.h>

#include "client/complete.h"
#include "client/control_client.h"
#include "client/pages.h"
#include "client/session.h"

namespace {

constexpr const char* prompt = "hvt> ";
constexpr int history_lines = 1000;

constexpr const char* prompt_help =
    "name=values    does something or sets it       name?    reads       name=?    tells what it takes\n"
    "list, help     all commands of the phone, help=\"name\" one of them\n"
    "!WORDS         a request to the control port: !battery 3812 -200, !fail i2c 5 18 0F, !help lists the "
    "words\n"
    "Tab            completes commands, and behind ! the words of the control port\n"
    "Up, Down       former lines, also those of other days; Ctrl-R searches them\n"
    "Ctrl-C         drops the line, or gives the prompt back while a command takes its time\n"
    "?              this; exit or Ctrl-D ends\n"
    "What the phone says by itself is shown above the line that you type.\n";

constexpr const char* hung_up_text =
    "The station's port has been hung up, as by an adapter that is pulled; \"!usb on\" plugs it in again.";

session s;
bool over;      // the session has ended
bool phone_off; // and the phone with it
std::vector<std::string> commands;
std::vector<control_word> control_words;

// The status of a reply: what stands last in it.
bool is_ok(std::string_view reply)
{
    const auto is_word = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    while (!reply.empty() && !is_word(reply.back()))
        reply.remove_suffix(1);
    return reply.ends_with("OK") && (reply.size() == 2 || !is_word(reply[reply.size() - 3]));
}

std::string last_line(std::string_view reply)
{
    while (reply.ends_with('\n'))
        reply.remove_suffix(1);
    return std::string(reply.substr(reply.rfind('\n') + 1));
}

// Carries out what stands behind "!"; false when it isn't carried out.
bool request(const std::string& line)
{
    std::string answer;
    const bool done = session_control(s, line.substr(1), answer);
    if (!answer.empty())
        std::printf("%s%s\n", done ? "" : "error: ", answer.c_str());
    std::fflush(stdout);
    return done;
}

// One line of a script; false, and what is wrong, when its status isn't OK.
bool run_line(const std::string& line, outcome& result, std::string& wrong)
{
    if (line.starts_with('!')) {
        wrong = "isn't carried out";
        const bool done = request(line);
        result = session_take_reply(s); // what the phone says to it
        return done;
    }
    result = session_exchange(s, line, false);
    wrong = s.reply.empty() ? "no answer" : last_line(s.reply);
    return line.empty() || is_ok(s.reply);
}

int run_input(bool check)
{
    char* buf = nullptr;
    std::size_t size = 0;
    ssize_t n = 0;
    int failed = 0;
    outcome result = session_take_reply(s); // what the phone says by itself at its start
    for (int number = 1; result == outcome::replied && (n = getline(&buf, &size, stdin)) >= 0; number++) {
        std::string line(buf, static_cast<std::size_t>(n));
        while (line.ends_with('\n') || line.ends_with('\r'))
            line.pop_back();
        std::string wrong;
        if (run_line(line, result, wrong) || !check || result != outcome::replied)
            continue;
        std::fprintf(stderr, "hvt: line %d, \"%s\": %s\n", number, line.c_str(), wrong.c_str());
        failed = 1;
    }
    std::free(buf);
    if (result == outcome::replied)
        return failed;
    // A line that puts the phone off may be the last one.
    if (getc(stdin) == EOF)
        return failed;
    std::fputs(result == outcome::hung_up
                   ? "hvt: the station's port has been hung up; the rest of the input wasn't sent\n"
                   : "hvt: the phone is off; the rest of the input wasn't sent\n",
               stderr);
    return 1;
}

void typed(char* line);

void show_prompt()
{
    if (s.in_line)
        std::puts("");
    s.in_line = false;
    rl_callback_handler_install(prompt, typed);
}

void remember(const char* line)
{
    const HIST_ENTRY* const last =
        history_length > 0 ? history_get(history_base + history_length - 1) : nullptr;
    if (*line != '\0' && (last == nullptr || std::strcmp(last->line, line) != 0))
        add_history(line);
}

// The commands of this phone, asked for once, when somebody wants them.
void learn_commands()
{
    if (!commands.empty() || s.unanswered > 0 || s.port < 0)
        return;
    if (session_exchange(s, "list", true) != outcome::replied)
        return;
    commands = names_of_list(s.reply);
    s.holding = false;
    // What came before the answer was said to somebody.
    const std::size_t late = s.reply.size() - std::min(s.reply.size(), last_line(s.reply).size() + 1);
    if (late > 0)
        std::printf("\r\x1b[K%s", s.reply.substr(0, late).c_str());
}

void show_answer(const std::string& line)
{
    if (!s.holding)
        return;
    const std::string answer = s.reply;
    s.holding = false;
    if (line == "help")
        learn_commands();
    const std::string text = laid_out(line, answer, terminal_width(), commands);
    s.in_line = !text.empty() && text.back() != '\n';
    std::string late;
    show_pages(text, [&late] {
        s.holding = true;
        session_show_unasked(s, false);
        s.holding = false;
        late += s.reply;
    });
    std::fwrite(late.data(), 1, late.size(), stdout);
}

// Sends a line; false when the session is over.
bool send_line(const std::string& line)
{
    const bool was_at_work = s.unanswered > 0;
    const outcome result = session_exchange(s, line, true);
    const bool answered = !s.reply.empty();
    show_answer(line);
    if (result == outcome::off)
        return false;
    if (result == outcome::hung_up)
        session_note(s, hung_up_text);
    else if (result == outcome::interrupted)
        session_note(s, was_at_work ? "\nThe program is still at work; the line wasn't sent."
                                    : "\nThe program is still at work; its answer is shown when it comes.");
    else if (!answered)
        session_note(s, "(no answer)");
    else if (line == "help")
        session_note(s, "\"?\" tells what this prompt can do.");
    return true;
}

void typed(char* text)
{
    rl_callback_handler_remove();
    const std::string line = text != nullptr ? text : "exit";
    if (text == nullptr)
        std::puts("");
    else
        remember(text);
    std::free(text);
    if (line == "exit") {
        over = true;
        return;
    }
    if (line == "?") {
        std::fputs(prompt_help, stdout);
    } else if (line.starts_with('!')) {
        request(line);
        session_reopen(s);
    } else {
        over = phone_off = !send_line(line);
    }
    if (!over)
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
    const outcome result = session_show_unasked(s, control_moved);
    if (result == outcome::hung_up)
        session_note(s, hung_up_text);
    over = phone_off = result == outcome::off;
    if (!over)
        rl_forced_update_display();
}

char** complete(const char* part, int start, int end)
{
    rl_attempted_completion_over = 1; // no file names
    const std::string before(rl_line_buffer, static_cast<std::size_t>(end));
    std::string help;
    if (before.starts_with('!')) {
        if (control_words.empty() && session_control(s, "help", help))
            control_words = words_of_help(help);
    } else {
        learn_commands();
    }
    const auto found = completions(before, part, commands, control_words);
    rl_completion_append_character = start == 0 && before[0] != '!' ? '\0' : ' ';
    if (found.empty())
        return nullptr;
    static std::vector<std::string> offered;
    offered = found;
    return rl_completion_matches(part, [](const char*, int turn) -> char* {
        static std::size_t at;
        at = turn == 0 ? 0 : at + 1;
        return at < offered.size() ? strdup(offered[at].c_str()) : nullptr;
    });
}

// What one may have forgotten on a phone that one comes to.
void greet(bool joined)
{
    std::printf("The phone is on%s. Type a command (help, case?, ...); ? tells more, Ctrl-D ends.\n",
                joined ? " and stays on" : "");
    std::string answer;
    if (session_control(s, "fail", answer)) {
        std::string armed;
        for (std::size_t at = 0; at < answer.size();) {
            const std::size_t end = std::min(answer.find('\n', at), answer.size());
            const std::string line = answer.substr(at, end - at);
            if (line != "nothing is armed" && line.find(", none left, ") == line.npos)
                armed += "  " + line + "\n";
            at = end + 1;
        }
        if (!armed.empty())
            std::printf("Faults are armed (\"!fail off\" clears them):\n%s", armed.c_str());
    }
    if (session_control(s, "strange", answer) && !answer.empty())
        std::printf(
            "The program has asked for what the phone doesn't know (\"!strange off\" forgets it):\n%s\n",
            answer.c_str());
}

int run_prompt(bool joined)
{
    const std::string history = s.dir + "/history";
    s.at_prompt = true;
    rl_catch_signals = 0;
    session_catch_interrupts();
    read_history(history.c_str());
    stifle_history(history_lines);
    rl_readline_name = "hvt";
    rl_attempted_completion_function = complete;
    rl_completer_word_break_characters = const_cast<char*>(" \"=?!");
    rl_variable_bind("enable-bracketed-paste", "off"); // lines that are pasted are lines, one after the other
    greet(joined);
    show_prompt();
    while (!over) {
        pollfd fds[3] = {{STDIN_FILENO, POLLIN, 0}, {s.port, POLLIN, 0}, {s.control, POLLIN, 0}};
        poll(fds, 3, -1);
        if (session_take_interrupt()) {
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
        session_note(s, ("The phone is off; its last words are in " + s.dir + "/log/kmsg.").c_str());
    write_history(history.c_str());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    bool check = false;
    bool joined = false;
    const char* dir = nullptr;
    for (int i = 1; i < argc; i++) {
        if (std::strcmp(argv[i], "--check") == 0)
            check = true;
        else if (std::strcmp(argv[i], "--joined") == 0)
            joined = true;
        else if (dir == nullptr)
            dir = argv[i];
        else
            dir = "";
    }
    if (dir == nullptr || *dir == '\0') {
        std::fputs("usage: hvt-station [--check] [--joined] DIR\n", stderr);
        return 2;
    }
    if (!session_open(s, dir)) {
        control_say_why(dir);
        return 1;
    }
    if (!isatty(STDIN_FILENO))
        return run_input(check);
    if (check) {
        std::fputs("hvt: --check is for lines from a file or a pipe\n", stderr);
        return 2;
    }
    return run_prompt(joined);
}
