#include "view/gate.h"

#include <cerrno>
#include <sys/random.h>

namespace view {

namespace {

constexpr std::size_t token_length = 32;
constexpr char token_digits[] = "abcdefghijklmnopqrstuvwxyz012345";

// Takes the same time wherever the first difference lies.
bool same(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    unsigned different = 0;
    for (std::size_t i = 0; i < a.size(); i++)
        different |= static_cast<unsigned char>(a[i]) ^ static_cast<unsigned char>(b[i]);
    return different == 0;
}

} // namespace

std::string gate_make_token()
{
    unsigned char random[token_length];
    ssize_t n;
    while ((n = getrandom(random, sizeof random, 0)) < 0 && errno == EINTR) {
    }
    if (n != static_cast<ssize_t>(sizeof random))
        return {};
    std::string token;
    for (const unsigned char byte : random)
        token += token_digits[byte % 32];
    return token;
}

gate_verdict gate_check(const gate& g, std::string_view path, std::string_view host, std::string_view origin,
                        bool needs_origin)
{
    const std::string port = ":" + std::to_string(g.port);
    if (host != "127.0.0.1" + port && host != "localhost" + port)
        return {};
    if (origin.empty() ? needs_origin : origin != "http://" + std::string(host))
        return {};
    if (g.token.empty() || path.size() < token_length + 2 || path[0] != '/' ||
        path[token_length + 1] != '/' || !same(path.substr(1, token_length), g.token))
        return {};
    return {true, path.substr(token_length + 2)};
}

} // namespace view
