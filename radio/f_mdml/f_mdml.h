// The station's command for the modem's log: mdml.
#pragma once

// Adds the command table.
void f_mdml_init();
