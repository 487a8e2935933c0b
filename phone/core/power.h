// The phone's life: start, restart, end. A restart runs the program anew in the same process, on the same
// DIR, with the station's port kept open; a power-off ends the process with status 0.
#pragma once

#include <string>
#include <vector>

namespace phone {

struct start_options {
    std::string dir;
    double speed = 1;
    bool background = false; // the caller gets its terminal back when the program serves its console
};

// Boots the phone in DIR up to where the program can start. The result is empty, or what is wrong.
std::string power_on(const start_options& options, char** argv);

// The program ends itself at a check of its own, without a word: the phone's kernel log tells which, and who
// waits for a start in the background is told.
void power_program_stopped(const char* expr, const char* file, int line);

// Never return.
[[noreturn]] void power_off();
[[noreturn]] void power_restart();

} // namespace phone
