// The command `kill`: restarts the phone, with or without a marker in its persistent unit.
#pragma once

void f_kill_init(); // tier entry
