// Runs the three tiers of components at start-up: interfaces, drivers, commands. The lists belong to the
// board module; their order is the order of the run, and it fixes the order of the command list.
#pragma once

#include <span>

using autoinit_entry = void (*)();

// Nothing to do: the tiers are constant tables.
void autoinit_init();

// Runs each tier from first to last.
void autoinit(std::span<const autoinit_entry> initcompif, std::span<const autoinit_entry> initcomp,
              std::span<const autoinit_entry> initcompcmd);
