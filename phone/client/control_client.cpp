#include "client/control_client.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "core/script.h"

namespace {

// The last line of what has come so far, if it is complete.
std::string_view last_line(std::string_view text)
{
    if (!text.ends_with('\n'))
        return {};
    text.remove_suffix(1);
    const std::size_t at = text.rfind('\n');
    return at == text.npos ? text : text.substr(at + 1);
}

bool is_end(std::string_view line)
{
    return line == "ok" || line.starts_with("error: ");
}

} // namespace

int control_connect(const std::string& dir)
{
    // By way of the folder's descriptor, since a socket's path is short and DIR may be long.
    const int folder = open(dir.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return -1;
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    std::snprintf(addr.sun_path, sizeof addr.sun_path, "/proc/self/fd/%d/control", folder);
    int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd >= 0 && connect(fd, reinterpret_cast<const sockaddr*>(&addr), sizeof addr) != 0) {
        const int error = errno;
        close(fd);
        errno = error;
        fd = -1;
    }
    close(folder);
    return fd;
}

void control_say_why(const char* dir)
{
    if (errno == ENOENT || errno == ENOTDIR || errno == ECONNREFUSED)
        std::fprintf(stderr, "hvt: no phone is running in %s; \"%s up %s\" starts one\n", dir,
                     phone::script().c_str(), dir);
    else
        std::fprintf(stderr, "hvt: the phone in %s can't be reached: %s\n", dir, std::strerror(errno));
}

bool control_ask(int fd, std::string_view line, std::string& answer, int timeout_ms)
{
    const std::string request = std::string(line) + "\n";
    answer.clear();
    if (send(fd, request.data(), request.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(request.size())) {
        answer = errno == EPIPE ? "the phone went off"
                                : std::string("no request gets through: ") + std::strerror(errno);
        return false;
    }
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
    while (!is_end(last_line(answer))) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        pollfd p{fd, POLLIN, 0};
        char part[4096];
        const int ready = left.count() > 0 ? poll(&p, 1, static_cast<int>(left.count())) : 0;
        if (ready < 0 && errno == EINTR)
            continue;
        const ssize_t n = ready > 0 ? recv(fd, part, sizeof part, 0) : 0;
        if (n <= 0) {
            answer = ready > 0 ? "the phone went off" : "no answer in time";
            return false;
        }
        answer.append(part, static_cast<std::size_t>(n));
    }
    const std::string_view last = last_line(answer);
    if (last == "ok") {
        answer.erase(answer.size() - std::min(answer.size(), std::size_t{4})); // "ok" between its line ends
        return true;
    }
    answer = std::string(last.substr(7));
    return false;
}

bool control_tell_folder(int fd)
{
    std::error_code error;
    const std::string folder = std::filesystem::current_path(error).string();
    std::string answer;
    return error || folder.find('\n') != folder.npos || control_ask(fd, "from " + folder, answer);
}
