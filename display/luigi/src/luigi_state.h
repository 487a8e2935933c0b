// One run of a menu: the interpreter's state from the start script to the end. Every entry of a script's code
// is protected here: an error, whatever it is, comes back as a message that says what and where. Only the Lua
// thread comes here.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "luigi/luigi.h"

// Stops on the queue. They wait their turn; but a script that has neither come back nor finished a command
// for 60 seconds while one waits is ended by an error.
extern std::atomic<int> luigi_stops_wanted;

// True from such an end until the next entry of the script's code, which is to be the stop script.
bool luigi_state_awaits_stop();

// The script that runs has finished a command: its 60 seconds begin anew.
void luigi_state_command_done();

bool luigi_state_exists();

// Makes a state and runs the start script at `path`. On failure there is no state and `error` tells why.
bool luigi_state_start(const char* path, std::string& error);

// Runs the stop script. On failure the state stays, and so does what was drawn.
bool luigi_state_stop(const char* path, std::string& error);

void luigi_state_close();

// Passes a touch or key to the widgets: 1 when one took it, 0 when none did, -1 when that raised an error.
int luigi_state_event(const luigi_message& msg, std::string& error);

// Draws the menu: false when that raised an error.
bool luigi_state_update(std::string& error);
