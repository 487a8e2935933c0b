// Who is let in. The server listens on the loopback address alone; that doesn't keep out other users of this
// machine, pages of other sites in the same browser, and names that resolve to the loopback address. So each
// address begins with a token that only the owner of DIR knows, and the Host and Origin of each request must
// be the server's own.
#pragma once

#include <string>
#include <string_view>

namespace view {

// 32 letters and digits of the kernel's randomness; empty when there is none.
std::string gate_make_token();

struct gate {
    std::string token;
    int port = 0;
};

// What is asked for, "" or "style.css", when a request may pass; "/TOKEN" alone isn't an address of anything.
// `origin` is empty where a browser sent none, which only a plain GET may; `needs_origin` for the others.
struct gate_verdict {
    bool passes = false;
    std::string_view file;
};
gate_verdict gate_check(const gate& g, std::string_view path, std::string_view host, std::string_view origin,
                        bool needs_origin);

} // namespace view
