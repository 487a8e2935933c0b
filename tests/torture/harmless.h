// The platform calls that may fail without the station hearing of it, each with the reason.
#pragma once

struct harmless_row {
    const char* call; // what the call's text begins with, "operation path"
    const char* reason;
};

// clang-format off
constexpr harmless_row harmless[] = {
    { "system echo \"",       "a line for the kernel log is for the record only" },
    { "close ",               "the descriptor is closed all the same" },
};
// clang-format on
