#include "core/toolbox.h"

#include <cerrno>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <unistd.h>

#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/log.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr int exit_unknown = 127;
constexpr int exit_syntax = 2;

constexpr std::string_view tool_folder = "/system/bin/";

struct tool {
    tool_fn fn;
    std::string result_file;
};
std::map<std::string, tool, std::less<>> tools; // written before the program runs

// What the bench has a tool give when its first argument is this one.
struct tool_answer {
    std::string name;
    std::string argument;
    std::optional<std::string> text; // nothing at all
};
std::mutex answers_mutex;
std::vector<tool_answer> answers;

// A word of a line, or an operator: one of ; && || | & > >> < 2> 2>> 2>&1 >&2
struct token {
    std::string text;
    bool is_operator;
};

constexpr std::string_view operators[] = {"2>&1", ">&2", "2>>", "2>", "&&", "||",
                                          ">>",   ";",   "|",   "&",  ">",  "<"};

std::string_view operator_at(std::string_view line)
{
    for (const std::string_view op : operators)
        if (line.starts_with(op))
            return op;
    return {};
}

// Takes one word with its quotes off `line`; false when a quote isn't closed.
bool take_word(std::string_view& line, std::string& word)
{
    char quote = 0;
    while (!line.empty()) {
        const char c = line.front();
        if (quote == 0 && (c == ' ' || c == '\t' || c == '\n' || std::strchr(";|&><", c) != nullptr))
            break;
        line.remove_prefix(1);
        if (quote != 0 && c == quote) {
            quote = 0;
        } else if (quote == 0 && (c == '"' || c == '\'')) {
            quote = c;
        } else if (c == '\\' && quote != '\'' && !line.empty() &&
                   (quote == 0 || std::strchr("\\\"$`", line.front()) != nullptr)) {
            word += line.front();
            line.remove_prefix(1);
        } else {
            word += c;
        }
    }
    return quote == 0;
}

std::optional<std::vector<token>> tokens(std::string_view line)
{
    std::vector<token> found;
    for (;;) {
        const std::size_t at = line.find_first_not_of(" \t\n");
        if (at == line.npos)
            return found;
        line.remove_prefix(at);
        if (const std::string_view op = operator_at(line); !op.empty()) {
            found.push_back({std::string(op), true});
            line.remove_prefix(op.size());
            continue;
        }
        std::string word;
        if (!take_word(line, word))
            return std::nullopt;
        found.push_back({std::move(word), false});
    }
}

struct redirection {
    std::string op;
    std::string path;
};

// One tool with its words and redirections.
struct command {
    std::vector<std::string> args;
    std::vector<redirection> redirections;
};

// Opens what a redirection names before the tool runs, as a shell does.
bool prepare(const command& c, std::string& in)
{
    for (const redirection& r : c.redirections) {
        if (r.path.empty())
            continue;
        if (r.op == "<" ? !file_read(r.path, in) : !file_write(r.path, "", r.op.ends_with(">>")))
            return false;
    }
    return true;
}

// Sends the output where the redirections say; what stays goes on in `call.out`.
int deliver(const command& c, tool_call& call)
{
    for (const redirection& r : c.redirections) {
        if (r.op == "<")
            continue;
        if (r.op == "2>&1") {
            call.out += call.err;
            call.err.clear();
            continue;
        }
        if (r.op == ">&2") {
            call.err += call.out;
            call.out.clear();
            continue;
        }
        std::string& text = r.op.starts_with('2') ? call.err : call.out;
        if (!text.empty() && !file_write(r.path, text, true))
            return 1;
        text.clear();
    }
    return 0;
}

// The tool that is called so, by name or by path.
const tool* find_tool(std::string_view called)
{
    if (called.starts_with(tool_folder))
        called.remove_prefix(tool_folder.size());
    const auto found = tools.find(called);
    return found != tools.end() ? &found->second : nullptr;
}

std::string_view bare_name(std::string_view called)
{
    return called.starts_with(tool_folder) ? called.substr(tool_folder.size()) : called;
}

std::optional<tool_answer> find_answer(const tool_call& call)
{
    const std::lock_guard lock(answers_mutex);
    for (const tool_answer& a : answers)
        if (call.args.size() > 1 && a.name == bare_name(call.args[0]) && a.argument == call.args[1])
            return a;
    return std::nullopt;
}

// Gives what the bench wants; the tool itself doesn't run.
int give_answer(const tool& t, const tool_answer& answer, tool_call& call)
{
    if (t.result_file.empty())
        call.out = answer.text.value_or("");
    else if (answer.text)
        file_write(t.result_file, *answer.text);
    else
        unlink(host_path(t.result_file).c_str());
    return 0;
}

int run_tool(tool_call& call)
{
    const tool* const p_tool = find_tool(call.args[0]);
    if (path_is_lacking(std::string(tool_folder) + std::string(bare_name(call.args[0]))))
        return exit_unknown;
    if (p_tool == nullptr) {
        strange("tool " + call.args[0]);
        return exit_unknown;
    }
    const auto answer = find_answer(call);
    return answer ? give_answer(*p_tool, *answer, call) : p_tool->fn(call);
}

int run_command(const command& c, const std::string& in, std::string& out)
{
    tool_call call{c.args, in, {}, {}};
    if (!prepare(c, call.in))
        return exit_syntax;
    int status = 0;
    if (!c.args.empty())
        status = run_tool(call);
    const int delivered = deliver(c, call);
    out = std::move(call.out);
    return delivered != 0 ? delivered : status;
}

bool is_redirection(const std::string& op)
{
    return op.find_first_of("<>") != op.npos;
}

// Runs the tokens from the left; && and || look at the status so far.
int run_tokens(const std::vector<token>& line, std::string in, std::string& out)
{
    int status = 0;
    bool wanted = true;
    std::size_t at = 0;
    while (at < line.size()) {
        command c;
        for (; at < line.size() && (!line[at].is_operator || is_redirection(line[at].text)); at++) {
            if (!line[at].is_operator) {
                c.args.push_back(line[at].text);
            } else if (line[at].text.find('&') != std::string::npos) {
                c.redirections.push_back({line[at].text, ""});
            } else {
                if (at + 1 >= line.size() || line[at + 1].is_operator)
                    return exit_syntax;
                c.redirections.push_back({line[at].text, line[at + 1].text});
                at++;
            }
        }
        const std::string op = at < line.size() ? line[at++].text : "";
        if (c.args.empty() && c.redirections.empty())
            return exit_syntax;
        std::string made;
        if (wanted)
            status = run_command(c, in, made);
        if (op == "|") {
            in = std::move(made);
            continue;
        }
        in.clear();
        out += made;
        wanted = op == "&&" ? status == 0 : op == "||" ? status != 0 : true;
    }
    return status;
}

int run(std::string_view line, std::string in, std::string& out)
{
    const auto parsed = tokens(line);
    const int status = parsed ? run_tokens(*parsed, std::move(in), out) : exit_syntax;
    log_line(log_shell, std::to_string(status) + " " + std::string(line));
    return status;
}

// Streams of toolbox_popen: for writing, the line runs when the stream is closed.
struct piped {
    std::string line;
    std::string text;
    std::size_t at = 0;
    bool to_line = false;
    int status = 0;
};

std::mutex pipes_mutex;
std::map<FILE*, std::shared_ptr<piped>> pipes;

ssize_t piped_read(void* cookie, char* buf, std::size_t size)
{
    auto* p = static_cast<piped*>(cookie);
    const std::size_t n = std::min(size, p->text.size() - p->at);
    std::memcpy(buf, p->text.data() + p->at, n);
    p->at += n;
    return static_cast<ssize_t>(n);
}

ssize_t piped_write(void* cookie, const char* buf, std::size_t size)
{
    static_cast<piped*>(cookie)->text.append(buf, size);
    return static_cast<ssize_t>(size);
}

// TEXT as the word takes it: \n and \t stand for line end and tab.
std::string tool_text(std::string_view text)
{
    std::string made;
    for (std::size_t i = 0; i < text.size(); i++) {
        const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (next == 'n' || next == 't')
            i++;
        made += next == 'n' ? '\n' : next == 't' ? '\t' : text[i];
    }
    return made;
}

std::string told_answers()
{
    const std::lock_guard lock(answers_mutex);
    std::string told;
    for (const tool_answer& a : answers)
        told += (told.empty() ? "" : "\n") + a.name + " " + a.argument + " " +
                (a.text ? escaped(*a.text) : "none");
    return told;
}

std::string word_tool(request& rq)
{
    if (rq.args.empty()) {
        rq.answer = told_answers();
        return {};
    }
    const std::lock_guard lock(answers_mutex);
    if (rq.args.size() == 1 && rq.args[0] == "off") {
        answers.clear();
        return {};
    }
    if (rq.args.size() < 3)
        return "NAME ARG TEXT, NAME ARG none, or off is wanted";
    if (!tools.contains(rq.args[0]))
        return "no tool has the name " + rq.args[0];
    std::erase_if(answers,
                  [&](const tool_answer& a) { return a.name == rq.args[0] && a.argument == rq.args[1]; });
    const std::string_view behind_name = trimmed(std::string_view(rq.rest).substr(rq.args[0].size()));
    const std::string_view text = trimmed(behind_name.substr(rq.args[1].size()));
    const bool none = text == "none";
    answers.push_back({rq.args[0], rq.args[1], none ? std::nullopt : std::optional(tool_text(text))});
    return {};
}

} // namespace

void tool_add(std::string_view name, tool_fn fn, std::string_view result_file)
{
    tools.emplace(name, tool{fn, std::string(result_file)});
}

bool toolbox_has(std::string_view name)
{
    return tools.contains(name);
}

void toolbox_attach()
{
    word_add(
        "tool", "[NAME ARG TEXT|none | off]",
        "what a tool gives from now on when ARG is its first argument, \\n and \\t for line end and tab; it "
        "then ends well and does nothing else; off gives all tools their own answers back",
        word_tool);
    conf_add_word("tool");
}

int toolbox_run(std::string_view line)
{
    std::string out;
    return run(line, {}, out) << 8;
}

FILE* toolbox_popen(const char* line, const char* mode)
{
    auto p = std::make_shared<piped>();
    p->line = line;
    p->to_line = mode[0] == 'w';
    if (!p->to_line)
        p->status = run(line, {}, p->text) << 8;
    FILE* stream = fopencookie(p.get(), p->to_line ? "w" : "r", {piped_read, piped_write, nullptr, nullptr});
    if (stream != nullptr) {
        const std::lock_guard lock(pipes_mutex);
        pipes.emplace(stream, p);
    }
    return stream;
}

int toolbox_pclose(FILE* stream)
{
    std::shared_ptr<piped> p;
    {
        const std::lock_guard lock(pipes_mutex);
        const auto found = pipes.find(stream);
        if (found == pipes.end()) {
            errno = EINVAL;
            return -1;
        }
        p = found->second;
        pipes.erase(found);
    }
    std::fclose(stream);
    std::string out;
    return p->to_line ? run(p->line, p->text, out) << 8 : p->status;
}

} // namespace phone
