// What the store of the persistent units offers to its closed libraries, under the name "units".
#pragma once

#include <atomic>
#include <cstdint>

struct phone_units_host {
    const char* dir;                             // where the units lie on the host
    const std::atomic<std::uint32_t>* p_changed; // counts up with every unit that is set from outside
};
