// Commands to another instance. Its console answers "NAME:value,OK" and a line feed; what this side takes of
// it is bounded in size, and in time for each piece.
#include "luigi_parcel.h"

#include <cstdio>
#include <cstring>
#include <netdb.h>
#include <string_view>

#include "luigi_state.h"
#include "plat/plat.h"

namespace {

constexpr std::size_t RESPONSE_SIZE = 1024;
constexpr std::size_t DRAIN_PIECE = 100;
constexpr int DRAIN_PIECES = 10'000; // a peer that never stops talking is not waited for
constexpr int TIMEOUT_US = 100'000;

// Results of luigi_parcel_net_recv_cmd.
constexpr int RECV_DONE = 0;
constexpr int RECV_FAILED = 1;
constexpr int RECV_TIMEOUT = 2;

int luigi_sock = -1;

// A late answer to an earlier command isn't to be taken for this one's.
void drain()
{
    char piece[DRAIN_PIECE];
    plat_fcntl(luigi_sock, F_SETFL, O_NONBLOCK);
    for (int i = 0; i < DRAIN_PIECES && plat_read(luigi_sock, piece, sizeof piece) > 0; i++) {
    }
    plat_fcntl(luigi_sock, F_SETFL, 0);
}

bool send_whole(const char* p, std::size_t len)
{
    while (len > 0) {
        const ssize_t n = plat_send(luigi_sock, p, len);
        if (n <= 0)
            return false;
        p += n;
        len -= static_cast<std::size_t>(n);
    }
    return true;
}

int wait_readable()
{
    if (luigi_sock >= FD_SETSIZE)
        return -1;
    fd_set rd;
    FD_ZERO(&rd);
    FD_SET(luigi_sock, &rd);
    timeval timeout{0, TIMEOUT_US};
    return plat_select(luigi_sock + 1, &rd, nullptr, nullptr, &timeout);
}

int luigi_parcel_net_recv_cmd(char* buffer, std::size_t limit)
{
    for (std::size_t len = 0; len < limit;) {
        const int ready = wait_readable();
        if (ready <= 0)
            return ready < 0 ? RECV_FAILED : RECV_TIMEOUT;
        const ssize_t n = plat_read(luigi_sock, buffer + len, limit - len);
        if (n <= 0)
            return RECV_FAILED;
        const bool last = std::memchr(buffer + len, '\n', static_cast<std::size_t>(n)) != nullptr;
        len += static_cast<std::size_t>(n);
        if (last)
            return RECV_DONE;
    }
    return RECV_DONE;
}

// The text stands before the separator in front of the status word.
int push_answer(lua_State* L, std::string_view response)
{
    for (const char* word : {"OK", "ERROR"}) {
        const std::size_t at = response.find(word);
        if (at == response.npos)
            continue;
        lua_pushstring(L, word);
        lua_pushlstring(L, response.data(), at > 0 ? at - 1 : 0);
        return 2;
    }
    const char* status = "UNKNOWN";
    for (const char* word : {"NOT FOUND", "SYNTAX", "BLOCKED"}) {
        if (response.find(word) == response.npos)
            continue;
        status = word;
        break;
    }
    lua_pushstring(L, status);
    lua_pushnil(L);
    return 2;
}

int luigi_parcel_net_cmd_execute(lua_State* L)
{
    std::size_t len;
    const char* const line = luaL_checklstring(L, 1, &len);
    char response[RESPONSE_SIZE] = {};
    bool done = luigi_sock >= 0;
    if (done) {
        drain();
        done = send_whole(line, len) && send_whole("\n", 1) &&
               luigi_parcel_net_recv_cmd(response, sizeof response - 1) == RECV_DONE;
    }
    luigi_state_command_done();
    if (done)
        return push_answer(L, response);
    lua_pushnil(L);
    return 1;
}

} // namespace

int luigi_parcel_net_connect(const char* ip, int port)
{
    char service[16];
    std::snprintf(service, sizeof service, "%d", port);
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* p_found = nullptr;
    if (luigi_sock >= 0)
        plat_close(luigi_sock); // of an earlier menu
    luigi_sock = -1;
    if (plat_getaddrinfo(ip, service, &hints, &p_found) != 0)
        return 0;
    const int fd = plat_socket(p_found->ai_family, p_found->ai_socktype, p_found->ai_protocol);
    const bool connected = fd >= 0 && plat_connect(fd, p_found->ai_addr, p_found->ai_addrlen) == 0;
    freeaddrinfo(p_found);
    if (connected)
        luigi_sock = fd;
    else if (fd >= 0)
        plat_close(fd);
    return connected ? 0 : 1;
}

void luigi_parcel_net_cmd_register(lua_State* L)
{
    lua_register(L, "qat", luigi_parcel_net_cmd_execute);
}
