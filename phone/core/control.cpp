#include "core/control.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

#include "core/home.h"
#include "core/record.h"
#include "core/text.h"

namespace phone {

namespace {

struct word {
    std::string usage;
    std::string help;
    word_fn fn;
};

constexpr std::size_t request_limit = 1 << 20;
constexpr int connection_limit = 32;

std::map<std::string, word, std::less<>> control_words;
std::atomic<int> connections;

bool send_all(int fd, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t n = send(fd, text.data(), text.size(), MSG_NOSIGNAL);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

// Sends an answer, and with its first bytes the descriptor that it hands out.
bool send_answer(connection& c, std::string_view answer)
{
    if (c.handed_out < 0)
        return send_all(c.fd, answer);
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
    iovec part{const_cast<char*>(answer.data()), answer.size()};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    cmsghdr* const p_head = CMSG_FIRSTHDR(&message);
    p_head->cmsg_level = SOL_SOCKET;
    p_head->cmsg_type = SCM_RIGHTS;
    p_head->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(p_head), &c.handed_out, sizeof(int));
    ssize_t n;
    while ((n = sendmsg(c.fd, &message, MSG_NOSIGNAL)) < 0 && errno == EINTR) {
    }
    close(c.handed_out);
    c.handed_out = -1;
    return n > 0 && send_all(c.fd, answer.substr(static_cast<std::size_t>(n)));
}

void serve(int fd)
{
    std::string pending;
    connection own{.fd = fd};
    char part[4096];
    ssize_t n;
    while ((n = recv(fd, part, sizeof part, 0)) > 0) {
        pending.append(part, static_cast<std::size_t>(n));
        std::size_t end;
        while ((end = pending.find('\n')) != pending.npos) {
            const std::string answer = control_request(std::string_view(pending).substr(0, end), &own);
            pending.erase(0, end + 1);
            if (!send_answer(own, answer))
                break;
        }
        if (pending.size() > request_limit) {
            send_all(fd, "error: the request is too long\n");
            break;
        }
    }
    close(fd);
    connections--;
}

void accept_loop(int listener)
{
    for (;;) {
        const int fd = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (fd < 0) {
            if (errno == EMFILE || errno == ENFILE)
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            continue;
        }
        if (connections >= connection_limit) {
            send_all(fd, "error: too many connections\n");
            close(fd);
            continue;
        }
        connections++;
        std::thread(serve, fd).detach();
    }
}

std::string no_word(std::string_view name)
{
    return "no word \"" + escaped(name) + "\"; \"help\" lists them";
}

std::string list_words(request& rq)
{
    if (rq.args.size() > 1)
        return "one word at most is wanted";
    for (const auto& [name, w] : control_words) {
        if (!rq.args.empty() && name != rq.args[0])
            continue;
        std::string line = name + (w.usage.empty() ? "" : " " + w.usage);
        line.resize(std::max(line.size(), std::size_t{39}), ' ');
        rq.answer += (rq.answer.empty() ? "" : "\n") + line + "  " + w.help; // two blanks end the usage
    }
    return rq.answer.empty() ? no_word(rq.args[0]) : "";
}

std::string word_from(request& rq)
{
    if (!rq.rest.starts_with('/'))
        return "the whole path of a folder is wanted";
    if (rq.p_connection == nullptr)
        return "only a connection has a folder";
    if (rq.p_connection->within)
        return "this connection stays within its folder";
    rq.p_connection->from = rq.rest;
    rq.p_connection->within = rq.word == "within";
    return {};
}

// A path below the connection's folder: one that climbs ends at that folder.
std::string path_within(const connection& c, std::string_view file)
{
    std::vector<std::string_view> steps;
    while (!file.empty()) {
        const std::string_view step = file.substr(0, file.find('/'));
        file.remove_prefix(std::min(file.size(), step.size() + 1));
        if (step == ".." && !steps.empty())
            steps.pop_back();
        else if (!step.empty() && step != "." && step != "..")
            steps.push_back(step);
    }
    std::string path = c.from;
    for (const std::string_view step : steps)
        path.append("/").append(step);
    return path;
}

// Whether others are told of a request: one that may have changed something.
bool is_noticed(const request& rq)
{
    return !rq.args.empty() && !rq.only_looks && rq.word != "help" && rq.word != "watch" &&
           rq.word != "from" && rq.word != "within";
}

} // namespace

void word_add(std::string_view name, std::string_view usage, std::string_view help, word_fn fn)
{
    control_words.emplace(name, word{std::string(usage), std::string(help), fn});
}

std::string request_file(const request& rq, std::string_view file)
{
    const connection* const p = rq.p_connection;
    if (p != nullptr && p->within)
        return path_within(*p, file);
    if (file.starts_with('/'))
        return std::string(file);
    return (p != nullptr && !p->from.empty() ? p->from + "/" : home_path("")) + std::string(file);
}

std::string request_text(const request& rq, std::size_t before, std::size_t behind)
{
    std::string_view text = rq.rest;
    for (; before > 0; before--)
        text = trimmed(text.substr(std::min(text.find_first_of(" \t"), text.size())));
    for (; behind > 0; behind--)
        text = trimmed(text.substr(0, text.find_last_of(" \t") + 1));
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        text = text.substr(1, text.size() - 2);
    return std::string(text);
}

std::string control_request(std::string_view line, connection* p_connection)
{
    line = trimmed(line);
    const std::string_view name = line.substr(0, line.find_first_of(" \t"));
    const auto found = control_words.find(name);
    if (found == control_words.end())
        return "error: " + no_word(name) + "\n";
    request rq;
    rq.word = name;
    rq.p_connection = p_connection;
    rq.rest = std::string(trimmed(line.substr(name.size())));
    rq.args = words(rq.rest);
    const int recorded = record_request(line);
    const std::string wrong = found->second.usage.empty() && !rq.args.empty()
                                  ? std::string(name) + " takes nothing behind it"
                                  : found->second.fn(rq);
    record_answer(recorded, wrong, rq.answer);
    if (!wrong.empty())
        return "error: " + wrong + "\n";
    if (is_noticed(rq))
        notice("word " + std::string(line));
    return (rq.answer.empty() ? "" : rq.answer + "\n") + "ok\n";
}

void control_attach()
{
    word_add("help", "[WORD]", "lists the words of this build, or tells of one", list_words);
    word_add("from", "FOLDER", "relative files of this connection's requests count from here, not from DIR",
             word_from);
    word_add("within", "FOLDER",
             "the same, and no file outside can be named: the folder is the root of all paths from here on",
             word_from);
}

std::string control_start()
{
    const std::string path = home_path("control");
    const int dir = open(home_path("").c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    // By way of the folder's descriptor, since a socket's path is short and DIR may be long.
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    std::snprintf(addr.sun_path, sizeof addr.sun_path, "/proc/self/fd/%d/control", dir);
    unlink(path.c_str());
    // Nobody can connect before the listening begins, and so nobody but the owner ever.
    const bool bound = dir >= 0 && listener >= 0 &&
                       bind(listener, reinterpret_cast<const sockaddr*>(&addr), sizeof addr) == 0 &&
                       chmod(path.c_str(), 0600) == 0 && listen(listener, 8) == 0;
    std::string wrong = bound ? "" : path + ": can't be opened: " + std::strerror(errno);
    if (dir >= 0)
        close(dir);
    if (bound)
        std::thread(accept_loop, listener).detach();
    return wrong;
}

} // namespace phone
