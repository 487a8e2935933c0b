// The station's commands for the voltage regulators: vregctl, vreglvl, vregmode.
#pragma once

// Adds the command table.
void t_vreg_init();
