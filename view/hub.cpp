#include "view/hub.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "view/lamps.h"
#include "view/logs.h"
#include "view/loop.h"
#include "view/screens.h"
#include "view/station.h"

namespace view {

namespace {

constexpr int retry_ms = 250;
constexpr std::size_t texts_limit = 4 << 20; // bytes that wait for a page that doesn't keep up
constexpr std::size_t request_limit = 64 << 10;

hub_options options;
std::vector<page_ref> pages;
std::unique_ptr<link> watching; // the phone's word of every change
std::unique_ptr<link> hands;    // touches and keys of all pages
std::unique_ptr<loop_timer> p_retry;
std::string state; // what pages are told of the phone; empty until it is known
pid_t starting = -1;

std::string files_folder()
{
    return options.dir + "/view/files";
}

bool is_name(std::string_view name)
{
    return !name.empty() && name.size() <= 64 && name[0] != '.' && std::ranges::all_of(name, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
               c == '-' || c == '_';
    });
}

void tell_all(const std::string& text)
{
    for (const page_ref& p : pages)
        page_tell(*p, text);
}

void set_state(const char* now)
{
    if (state == now)
        return;
    state = now;
    tell_all(state);
}

bool make_folders()
{
    const std::string above = options.dir + "/view";
    return (mkdir(above.c_str(), 0700) == 0 || errno == EEXIST) &&
           (mkdir(files_folder().c_str(), 0700) == 0 || errno == EEXIST);
}

void take_changes(std::string_view lines)
{
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(std::min(lines.size(), line.size() + 1));
        if (line.starts_with("screen "))
            screens_changed(line.substr(7));
        else if (line.starts_with("log "))
            logs_changed(line.substr(4));
        else if (line == "lost") // more changes than are kept
            screens_look_anew();
        else
            for (const page_ref& p : pages)
                page_tell_some(*p, std::string(line));
    }
}

void watch()
{
    link_ask(*watching, "watch", [](link_answer& answer) {
        if (!answer.done)
            return;
        take_changes(answer.text);
        watch();
    });
}

bool folder_is_there()
{
    return access(options.dir.c_str(), F_OK) == 0;
}

// Looks whether a phone has come on.
void retry()
{
    if (starting > 0 && waitpid(starting, nullptr, WNOHANG) != 0)
        starting = -1;
    if (!folder_is_there() || !link_up(*watching)) {
        set_state(folder_is_there() ? "phone off" : "phone gone");
        loop_timer_set(*p_retry, retry_ms);
        return;
    }
    make_folders();
    // Answered at once: from then on the phone keeps changes for this connection, so a page that has heard
    // "phone on" misses none.
    link_ask(*watching, "watch 0", [](const link_answer& answer) {
        if (!answer.done) {
            loop_timer_set(*p_retry, retry_ms);
            return;
        }
        set_state("phone on");
        watch();
        lamps_renew();
        screens_renew();
    });
}

void went_off()
{
    station_close();
    link_down(*watching, "the phone is off");
    link_down(*hands, "the phone is off");
    for (const page_ref& p : pages)
        link_down(*p->requests, "the phone is off");
    set_state(folder_is_there() ? "phone off" : "phone gone");
    loop_timer_set(*p_retry, retry_ms);
}

void start_phone(page& p)
{
    if (state == "phone on" || starting > 0)
        return;
    const char* const argv[] = {options.starter.c_str(), "--background", options.dir.c_str(), nullptr};
    if (posix_spawn(&starting, argv[0], nullptr, nullptr, const_cast<char* const*>(argv), environ) != 0) {
        starting = -1;
        page_tell(p, "said The phone can't be started: " + std::string(std::strerror(errno)));
    }
}

void want(const page_ref& p, std::string_view list)
{
    std::set<std::string, std::less<>> now;
    while (!list.empty()) {
        const std::string_view wish = list.substr(0, list.find(','));
        list.remove_prefix(std::min(list.size(), wish.size() + 1));
        now.emplace(wish);
    }
    std::swap(p->wants, now);
    for (const std::string& wish : p->wants) {
        if (now.contains(wish))
            continue;
        if (wish.starts_with("log "))
            logs_show(*p, std::string_view(wish).substr(4));
        else if (wish == "lamps")
            lamps_show(*p);
    }
    screens_look();
    p->wake();
}

void answer_page(const std::weak_ptr<page>& to, const std::string& id, const link_answer& answer)
{
    if (const page_ref p = to.lock())
        page_tell(*p, "answer " + id + (answer.done ? " ok\n" : " error\n") + answer.text);
}

void ask(const page_ref& p, std::string_view text)
{
    const std::string id(text.substr(0, text.find(' ')));
    const std::string_view request = text.substr(std::min(text.size(), id.size() + 1));
    if (request.size() > request_limit || request.find_first_of("\r\n") != request.npos) {
        answer_page(p, id, {false, "a request is one line of at most 65536 bytes"});
        return;
    }
    link_ask(*p->requests, request,
             [to = std::weak_ptr(p), id](link_answer& answer) { answer_page(to, id, answer); });
}

void hand(const page_ref& p, std::string_view request)
{
    const bool allowed = request.starts_with("touch ") || request.starts_with("key ");
    if (!allowed || request.size() > 100 || request.find_first_of("\r\n") != request.npos) {
        page_tell(*p, "said Only a touch or a key goes this way");
        return;
    }
    link_ask(*hands, request, [to = std::weak_ptr(p)](const link_answer& answer) {
        const page_ref q = to.lock();
        if (q && !answer.done)
            page_tell(*q, "said " + answer.text);
    });
}

void type(page& p, std::string_view line)
{
    const std::string wrong = state == "phone on" ? station_send(line) : "the phone is off";
    if (!wrong.empty())
        page_tell(p, "said " + wrong);
}

} // namespace

bool hub_open(const hub_options& o)
{
    options = o;
    if (!make_folders())
        return false;
    watching = std::make_unique<link>(options.dir, "");
    hands = std::make_unique<link>(options.dir, "");
    watching->lost = went_off;
    p_retry = std::make_unique<loop_timer>(retry);
    logs_open(options.dir, pages);
    lamps_open(options.dir, pages, went_off);
    screens_open(options.dir, pages);
    station_open(options.dir);
    retry();
    return true;
}

void hub_join(const page_ref& p)
{
    p->requests = std::make_unique<link>(options.dir, "within " + files_folder());
    pages.push_back(p);
    if (!state.empty())
        page_tell(*p, state);
}

void hub_leave(const page_ref& p)
{
    std::erase(pages, p);
    p->requests.reset();
}

void hub_text(const page_ref& p, std::string_view message)
{
    const std::string_view what = message.substr(0, message.find(' '));
    const std::string_view rest = message.substr(std::min(message.size(), what.size() + 1));
    if (what == "seen" && (rest == "0" || rest == "1")) {
        p->unseen[rest[0] - '0'] = false;
        screens_look();
        p->wake();
    } else if (what == "want") {
        want(p, rest);
    } else if (what == "ask") {
        ask(p, rest);
    } else if (what == "hand") {
        hand(p, rest);
    } else if (what == "type") {
        type(*p, rest);
    } else if (what == "keep" && is_name(rest)) {
        p->keeps_as = rest;
    } else if (what == "start") {
        start_phone(*p);
    } else {
        page_tell(*p, "said The server doesn't know this message");
    }
}

void hub_binary(const page_ref& p, std::string_view content)
{
    const std::string path = hub_file(p->keeps_as);
    p->keeps_as.clear();
    if (path.empty()) {
        page_tell(*p, "said A file needs a name first");
        return;
    }
    make_folders();
    unlink(path.c_str());
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    const bool whole =
        fd >= 0 && write(fd, content.data(), content.size()) == static_cast<ssize_t>(content.size());
    if (!whole)
        page_tell(*p, std::string("said The file can't be kept: ") + std::strerror(errno));
    if (fd >= 0)
        close(fd);
}

bool hub_next(page& p, std::vector<std::uint8_t>& out, bool& is_text)
{
    is_text = !p.texts.empty();
    if (!is_text)
        return screens_next(p, out);
    const std::string& text = p.texts.front();
    out.insert(out.end(), text.begin(), text.end());
    p.text_bytes -= text.size();
    p.texts.pop_front();
    return true;
}

std::string hub_file(std::string_view name)
{
    return is_name(name) ? files_folder() + "/" + std::string(name) : "";
}

void page_tell(page& p, std::string text)
{
    p.text_bytes += text.size();
    p.texts.push_back(std::move(text));
    p.wake();
}

void page_tell_some(page& p, std::string text)
{
    if (p.text_bytes < texts_limit)
        page_tell(p, std::move(text));
}

} // namespace view
