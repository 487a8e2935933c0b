// A browser's side of HTTP and WebSocket, as little of it as the tests of hvt-view need; and hvt-view itself
// as a process of the test.
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

// hvt-view on a phone's folder, until the end of its life.
struct view_process {
    pid_t pid = -1;
    int port = 0;
    std::string token;

    // Starts it and reads the address that it prints; `first_port` is the first that it tries.
    explicit view_process(const std::string& dir, int first_port = 0);
    ~view_process();
    view_process(const view_process&) = delete;
    view_process& operator=(const view_process&) = delete;

    std::string host() const { return "127.0.0.1:" + std::to_string(port); }
};

// One request, its head lines as given, each with CR LF; the whole answer.
std::string web_request(int port, const std::string& head, const char* address = "127.0.0.1");

// A GET with the right Host; `file` stands behind the token.
std::string web_get(const view_process& v, const std::string& file, const std::string& more = "");

// A page's connection.
struct web_page {
    int fd = -1;
    std::string got{};

    explicit web_page(const view_process& v);
    ~web_page();
    web_page(const web_page&) = delete;
    web_page& operator=(const web_page&) = delete;

    void send(std::string_view text, bool binary = false) const;

    // The next message: false when none comes in time or the connection ends.
    bool next(std::string& message, bool& binary, int timeout_ms = 10'000);

    // The next text that begins so, others left out; empty when none comes in time.
    std::string text(std::string_view begin, int timeout_ms = 10'000);

    // Asks the control port: "ok\n" or "error\n" and the answer.
    std::string ask(std::string_view request);

    // Takes one picture of display 0 and says that it is seen: the number of its tiles, -1 when none comes.
    int picture(int timeout_ms = 10'000);
};
