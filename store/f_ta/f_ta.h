// The station's command for the persistent units: tact. No operation of its own: what it does it does by
// ta_if.
#pragma once

// Adds the command table.
void f_ta_init();
