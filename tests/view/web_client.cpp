#include "web_client.h"

#include <arpa/inet.h>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <netinet/in.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using steady = std::chrono::steady_clock;

int connect_to(int port, const char* address)
{
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in addr{};
    addr.sin_family = AF_INET;
    addr.sin_port = htons(static_cast<std::uint16_t>(port));
    inet_pton(AF_INET, address, &addr.sin_addr);
    if (connect(fd, reinterpret_cast<const sockaddr*>(&addr), sizeof addr) == 0)
        return fd;
    close(fd);
    return -1;
}

// More bytes; false at the end or when none come in time.
bool take(int fd, std::string& got, int timeout_ms)
{
    pollfd p{fd, POLLIN, 0};
    char part[65536];
    const ssize_t n = poll(&p, 1, timeout_ms) > 0 ? recv(fd, part, sizeof part, 0) : 0;
    if (n > 0)
        got.append(part, static_cast<std::size_t>(n));
    return n > 0;
}

int left_ms(steady::time_point end)
{
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - steady::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
}

// The length of the frame at the head of `got` with its head, 0 when it isn't whole.
std::size_t frame_size(const std::string& got, std::size_t& head)
{
    const auto byte = [&](std::size_t i) {
        return static_cast<std::uint64_t>(static_cast<unsigned char>(got[i]));
    };
    if (got.size() < 2)
        return 0;
    std::uint64_t size = byte(1) & 0x7F;
    const std::size_t more = size == 126 ? 2 : size == 127 ? 8 : 0;
    head = 2 + more;
    if (got.size() < head)
        return 0;
    if (more != 0)
        size = 0;
    for (std::size_t i = 0; i < more; i++)
        size = size << 8 | byte(2 + i);
    return got.size() < head + size ? 0 : head + size;
}

} // namespace

view_process::view_process(const std::string& dir, int first_port)
{
    int ends[2];
    if (pipe(ends) != 0)
        return;
    const std::string first = std::to_string(first_port != 0 ? first_port : 20000 + getpid() % 20000);
    pid = fork();
    if (pid == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(ends[1], 1);
        close(ends[0]);
        execl(HVT_VIEW, HVT_VIEW, "--no-browser", "--port", first.c_str(), dir.c_str(), nullptr);
        _exit(127);
    }
    close(ends[1]);
    std::string said;
    while (said.find("/\n") == said.npos && take(ends[0], said, 0)) {
    }
    char part[256];
    ssize_t n;
    while (said.find("/\n") == said.npos && (n = read(ends[0], part, sizeof part)) > 0)
        said.append(part, static_cast<std::size_t>(n));
    close(ends[0]);
    const std::size_t at = said.find("http://127.0.0.1:");
    if (at == said.npos)
        return;
    char* p_end;
    port = static_cast<int>(std::strtol(said.c_str() + at + 17, &p_end, 10));
    token.assign(p_end + 1, std::strcspn(p_end + 1, "/\n"));
}

view_process::~view_process()
{
    if (pid <= 0)
        return;
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
}

std::string web_request(int port, const std::string& head, const char* address)
{
    const int fd = connect_to(port, address);
    if (fd < 0)
        return "refused";
    const std::string text = head + "Connection: close\r\n\r\n";
    std::string got;
    send(fd, text.data(), text.size(), MSG_NOSIGNAL);
    while (take(fd, got, 5000)) {
    }
    close(fd);
    return got;
}

std::string web_get(const view_process& v, const std::string& file, const std::string& more)
{
    return web_request(v.port,
                       "GET /" + v.token + "/" + file + " HTTP/1.1\r\nHost: " + v.host() + "\r\n" + more);
}

web_page::web_page(const view_process& v) : fd(connect_to(v.port, "127.0.0.1"))
{
    const std::string head = "GET /" + v.token + "/link HTTP/1.1\r\nHost: " + v.host() +
                             "\r\nOrigin: http://" + v.host() +
                             "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
                             "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n";
    ::send(fd, head.data(), head.size(), MSG_NOSIGNAL);
    std::size_t end;
    while ((end = got.find("\r\n\r\n")) == got.npos && take(fd, got, 5000)) {
    }
    got.erase(0, end == got.npos ? got.size() : end + 4);
}

web_page::~web_page()
{
    if (fd >= 0)
        close(fd);
}

void web_page::send(std::string_view text, bool binary) const
{
    std::string frame(1, static_cast<char>(binary ? 0x82 : 0x81));
    const std::size_t more = text.size() < 126 ? 0 : text.size() < 65536 ? 2 : 8;
    frame += static_cast<char>(0x80 | (more == 0 ? text.size() : more == 2 ? 126 : 127));
    for (std::size_t i = more; i-- > 0;)
        frame += static_cast<char>(text.size() >> (8 * i));
    frame.append("\0\0\0\0", 4); // a mask that changes nothing
    frame.append(text);
    ::send(fd, frame.data(), frame.size(), MSG_NOSIGNAL);
}

bool web_page::next(std::string& message, bool& binary, int timeout_ms)
{
    const auto end = steady::now() + std::chrono::milliseconds(timeout_ms);
    std::size_t head = 0, size;
    while ((size = frame_size(got, head)) == 0)
        if (!take(fd, got, left_ms(end)))
            return false;
    binary = (got[0] & 0x0F) == 2;
    message = got.substr(head, size - head);
    got.erase(0, size);
    return true;
}

std::string web_page::text(std::string_view begin, int timeout_ms)
{
    const auto end = steady::now() + std::chrono::milliseconds(timeout_ms);
    std::string message;
    bool binary;
    while (next(message, binary, left_ms(end)))
        if (!binary && message.starts_with(begin))
            return message;
    return {};
}

std::string web_page::ask(std::string_view request)
{
    send("ask 7 " + std::string(request));
    const std::string answer = text("answer 7 ");
    return answer.substr(std::min(answer.size(), std::size_t{9}));
}

int web_page::picture(int timeout_ms)
{
    std::string message;
    bool binary;
    int count = 0;
    while (next(message, binary, timeout_ms)) {
        if (!binary)
            continue;
        std::uint16_t tiles;
        std::memcpy(&tiles, &message[2], sizeof tiles);
        count += tiles;
        if (message[1] == 0)
            continue;
        send("seen 0");
        return count;
    }
    return -1;
}
