// The board module: the program's entry, the three tiers of components, the board's configuration and the
// start-up sequence. It knows every other module; no other module knows it.
#pragma once

// The whole program: initialises the core modules, then s_entry. plat_attach must have been called. Returns
// 0 when the event loop couldn't start, and not at all otherwise.
int s_main(int argc, char** argv);
