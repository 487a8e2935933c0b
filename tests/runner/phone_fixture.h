// A virtual phone of a test's own: a fresh folder, the program in it, its two ports. Everything goes with it,
// also when the test is killed.
#pragma once

#include <string>
#include <string_view>

struct phone_fixture {
    std::string dir;
    int port = -1;
    int control = -1;
    int guard = -1;     // a process that ends the phone should this one be killed
    int guard_end = -1; // what it waits at

    phone_fixture();
    ~phone_fixture();
    phone_fixture(const phone_fixture&) = delete;
    phone_fixture& operator=(const phone_fixture&) = delete;

    // Starts the program and takes its greeting, which a phone with the cable in sends; the result is empty,
    // or why it can't. The station's port stays open until down.
    std::string up();

    // Ends it; the result is empty, or what it had to complain of (a sanitizer's report, a crash).
    std::string down();

    bool runs() const;

    // One control request. True on "ok"; `answer` as control_ask gives it.
    bool ask(std::string_view line, std::string& answer);

    // Takes up the control port again after the program has restarted by itself.
    bool reconnect();

    // Reads the greeting of a program that has just started, if it sends one; the result is as for up.
    std::string take_greeting() const;

    // Reads until `got` holds at least `size` bytes, the port is gone, or 30 s are over.
    void receive(std::string& got, std::size_t size) const;
};

// Where hvt-virtual lies; the runner's main sets it.
extern std::string hvt_virtual;
