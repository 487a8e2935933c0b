// What a closed library of the virtual phone gets from the phone that it is loaded into. A library that wants
// it has the function phone_library_attach, which is called once, before anything else.
#pragma once

#include <atomic>
#include <cstdint>

extern "C" {

struct phone_library_host {
    // Where the persistent units lie on the host.
    const char* units_dir;
    // Counts up with every unit that is set from outside.
    const std::atomic<std::uint32_t>* p_units_changed;
    // Watches a call of the library as a platform call; true: it has to fail.
    bool (*call)(const char* operation, std::uint32_t number);
};

typedef void (*phone_library_attach_fn)(const phone_library_host* p_host);
}
