// The phone's life: start, restart, end. A restart runs the program anew in the same process, on the same
// DIR, with the station's port kept open; a power-off ends the process with status 0.
#pragma once

#include <string>
#include <vector>

namespace phone {

struct start_options {
    std::string dir;
    double speed = 1;
    bool background = false;      // the caller gets its terminal back when the program serves its console
    bool outlives_folder = false; // for who clears its folder away and goes on; other phones end with theirs
};

// What the phone's life needs of the station's port: it is opened last, and kept open over a restart.
struct life_port {
    std::string (*start)(); // the result is empty, or what is wrong
    void (*stop)();
    void (*hand_on)(int* p_master, int* p_slave); // the descriptors that an exec keeps
    void (*inherit)(int master, int slave);       // takes them up again, before `start`
};

// From an `attach`; there is one port.
void life_port_attach(const life_port& port);

// Boots the phone in DIR up to where the program can start. The result is empty, or what is wrong.
std::string life_on(const start_options& options, char** argv);

// The program ends itself at a check of its own, without a word: the phone's kernel log tells which, and who
// waits for a start in the background is told.
void life_program_stopped(const char* expr, const char* file, int line);

// Never return.
[[noreturn]] void life_off();
[[noreturn]] void life_restart();

} // namespace phone
