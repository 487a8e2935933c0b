// One run of a menu: the interpreter's state from the start script to the end. Every entry of a script's code
// is protected here: an error, whatever it is, comes back as a message that says what and where. Only the Lua
// thread comes here.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "luigi/luigi.h"

// Stops that were asked for and whose turn hasn't come: a script that runs on for two seconds meanwhile is
// ended by an error.
extern std::atomic<int> luigi_stops_wanted;

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
