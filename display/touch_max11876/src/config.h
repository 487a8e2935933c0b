// The controller's configuration for the three panels of this phone.
#pragma once

#include <array>
#include <cstdint>

// A command of a configuration; one without an id ends a set.
struct max11876_row {
    const char* id;
    const std::uint16_t* p_words;
    unsigned count;
};

struct max11876_set {
    const char* chip; // where the words come from
    const char* project;
    const char* date;
    const char* tool;
    std::array<max11876_row, 6> rows;
};

// The set of the panel that has this configuration id.
const max11876_set& max11876_set_of(std::uint16_t config_id);

// Sends a set to a controller that sleeps. False when that fails.
bool config_panel(const max11876_set& set);
