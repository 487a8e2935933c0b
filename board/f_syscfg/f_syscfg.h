// The station's commands for the system modes: sysmode, syscfg, ipcfg.
#pragma once

// Adds the command table.
void f_syscfg_init();
