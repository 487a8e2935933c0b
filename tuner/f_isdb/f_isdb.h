// The station's commands for the television receiver: issl selects the circuit and its path, isdb does the
// rest.
#pragma once

// Adds the command table; nothing is selected then.
void f_isdb_init();
