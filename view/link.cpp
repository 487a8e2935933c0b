#include "view/link.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

#include "client/control_client.h"
#include "view/loop.h"

namespace view {

namespace {

constexpr std::size_t waiting_limit = 200;
constexpr std::size_t answer_limit = 16 << 20;

void drop_fd(int& fd)
{
    if (fd >= 0)
        close(fd);
    fd = -1;
}

bool send_first(link& l)
{
    const std::string line = l.waiting.front().line + "\n";
    return send(l.fd, line.data(), line.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
           static_cast<ssize_t>(line.size());
}

// The phone's end is gone, as is found at a request or at its answer.
void lose(link& l, const char* why)
{
    link_down(l, why);
    if (l.lost)
        l.lost();
}

// The first request has its answer; the next is sent before the answer is told.
void finish(link& l, bool done, std::string text)
{
    link::request first = std::move(l.waiting.front());
    l.waiting.pop_front();
    link_answer answer{done, std::move(text), l.got_fd};
    l.got_fd = -1;
    l.got.clear();
    const bool sent = l.waiting.empty() || send_first(l);
    if (first.told)
        first.told(answer);
    drop_fd(answer.fd);
    if (!sent)
        lose(l, "the control port takes nothing");
}

// An answer is whole when its last line is "ok" or begins with "error: ".
void look_for_end(link& l)
{
    if (!l.got.ends_with('\n') || l.waiting.empty())
        return;
    const std::size_t end = l.got.size() - 1;
    const std::size_t before = end == 0 ? std::string::npos : l.got.rfind('\n', end - 1);
    const std::size_t start = before == std::string::npos ? 0 : before + 1;
    const std::string last = l.got.substr(start, end - start);
    if (last == "ok")
        finish(l, true, l.got.substr(0, start == 0 ? 0 : start - 1));
    else if (last.starts_with("error: "))
        finish(l, false, last.substr(7));
}

// Takes what has come, at most one descriptor with it; false at the end of the connection.
bool take(link& l)
{
    char part[65536];
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))];
    iovec room{part, sizeof part};
    msghdr message{};
    message.msg_iov = &room;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    const ssize_t n = recvmsg(l.fd, &message, MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
    if (n <= 0)
        return n < 0 && (errno == EAGAIN || errno == EINTR);
    for (cmsghdr* p = CMSG_FIRSTHDR(&message); p != nullptr; p = CMSG_NXTHDR(&message, p)) {
        if (p->cmsg_level != SOL_SOCKET || p->cmsg_type != SCM_RIGHTS)
            continue;
        drop_fd(l.got_fd);
        std::memcpy(&l.got_fd, CMSG_DATA(p), sizeof(int));
    }
    l.got.append(part, static_cast<std::size_t>(n));
    return l.got.size() < answer_limit;
}

void on_ready(link& l)
{
    if (!take(l))
        lose(l, "the phone went off");
    else
        look_for_end(l);
}

} // namespace

link::~link()
{
    lost = nullptr;
    link_down(*this, "the page has gone");
}

bool link_up(link& l)
{
    if (l.fd >= 0)
        return true;
    l.fd = control_connect(l.dir);
    if (l.fd < 0)
        return false;
    loop_add(l.fd, [&l] { on_ready(l); });
    if (!l.greeting.empty()) {
        l.waiting.push_front({l.greeting, nullptr});
        send_first(l);
    }
    return true;
}

void link_ask(link& l, std::string_view line, link_fn told)
{
    link_answer refused{false, {}};
    if (l.closing || !link_up(l))
        refused.text = "the phone is off";
    else if (l.waiting.size() >= waiting_limit)
        refused.text = "too many requests wait for their answers";
    if (!refused.text.empty()) {
        told(refused);
        return;
    }
    l.waiting.push_back({std::string(line), std::move(told)});
    if (l.waiting.size() == 1 && !send_first(l))
        lose(l, "the control port takes nothing");
}

void link_down(link& l, const char* why)
{
    if (l.closing)
        return;
    l.closing = true;
    if (l.fd >= 0) {
        loop_drop(l.fd);
        close(l.fd);
    }
    l.fd = -1;
    l.got.clear();
    drop_fd(l.got_fd);
    std::deque<link::request> left;
    left.swap(l.waiting);
    for (const link::request& r : left) {
        link_answer answer{false, why};
        if (r.told)
            r.told(answer);
    }
    l.closing = false;
}

} // namespace view
