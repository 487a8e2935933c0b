#include "core/uevents.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <string>
#include <unistd.h>

#include "core/control.h"
#include "core/text.h"

namespace phone {

namespace {

struct envelope {
    std::uint32_t sender;
    ucred cred;
};

// Port, then process, user and group.
constexpr envelope kernel = {0, {0, 0, 0}};
constexpr envelope forgers[] = {
    {4711, {4711, 0, 0}},    // a process of root's
    {0, {4711, 2000, 2000}}, // another's, under the kernel's port
};

std::mutex listeners_mutex;
std::vector<int> listeners; // the phone's ends

void send_to_all(const envelope& head, const std::string& text)
{
    const std::string packet = std::string(reinterpret_cast<const char*>(&head), sizeof head) + text;
    const std::lock_guard lock(listeners_mutex);
    std::erase_if(listeners, [&](int fd) {
        if (send(fd, packet.data(), packet.size(), MSG_NOSIGNAL | MSG_DONTWAIT) >= 0 || errno == EAGAIN)
            return false;
        close(fd);
        return true;
    });
}

std::string word_uevent(request& rq)
{
    if (rq.args.size() < 2 || (rq.args[0] != "kernel" && rq.args[0] != "forged"))
        return "kernel or forged, and the strings, separated by ;, are wanted";
    const std::string_view text = trimmed(std::string_view(rq.rest).substr(rq.args[0].size()));
    uevents_send(rq.args[0] == "kernel", split(text, ';'));
    return {};
}

} // namespace

int uevents_open()
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        return -1;
    const std::lock_guard lock(listeners_mutex);
    listeners.push_back(ends[1]);
    return ends[0];
}

ssize_t uevents_receive(int fd, void* buf, std::size_t size, std::uint32_t* p_sender, ucred* p_cred)
{
    envelope head{};
    iovec parts[2] = {{&head, sizeof head}, {buf, size}};
    msghdr msg{};
    msg.msg_iov = parts;
    msg.msg_iovlen = 2;
    const ssize_t n = recvmsg(fd, &msg, 0);
    if (n < static_cast<ssize_t>(sizeof head))
        return n < 0 ? n : 0;
    *p_sender = head.sender;
    *p_cred = head.cred;
    return n - static_cast<ssize_t>(sizeof head);
}

void uevents_send(bool from_kernel, const std::vector<std::string_view>& lines)
{
    std::string text;
    for (const std::string_view line : lines)
        text.append(line).push_back('\0');
    if (from_kernel) {
        send_to_all(kernel, text);
        return;
    }
    for (const envelope& head : forgers)
        send_to_all(head, text);
}

void uevents_attach()
{
    word_add("uevent", "kernel|forged LINE;LINE...",
             "sends one uevent, from the kernel or from somebody else", word_uevent);
}

} // namespace phone
