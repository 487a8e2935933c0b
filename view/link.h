// One connection to the control port of DIR. Requests are sent one after the other, each when the one before
// it has its answer; a phone that isn't there, or goes off meanwhile, is an answer too.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace view {

struct link_answer {
    bool done;        // "ok"; otherwise `text` says why not
    std::string text; // its lines, without a line end behind the last
    int fd = -1;      // a descriptor that came with it; whoever takes it sets this to -1
};
using link_fn = std::function<void(link_answer& answer)>;

struct link {
    std::string dir;
    std::string greeting;       // a request that each new connection begins with
    std::function<void()> lost; // the phone has closed the connection

    link(std::string d, std::string first) : dir(std::move(d)), greeting(std::move(first)) {}
    ~link();
    link(const link&) = delete;
    link& operator=(const link&) = delete;

    struct request {
        std::string line;
        link_fn told;
    };
    std::deque<request> waiting{}; // the first is on its way
    int fd = -1;
    bool closing = false;
    std::string got{};
    int got_fd = -1;
};

// Connects unless that is done; false when no phone is there.
bool link_up(link& l);

// `told` is called once, later or at once.
void link_ask(link& l, std::string_view line, link_fn told);

// Ends the connection: what waits is told so.
void link_down(link& l, const char* why);

} // namespace view
