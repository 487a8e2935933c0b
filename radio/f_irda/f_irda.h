// The station's commands for the infrared port: irtx, irpa, irrx, ilop. What irrx and ilop wait for is told
// later, in lines of their own.
#pragma once

// Adds the command table, and itself to those whom irda tells.
void f_irda_init();
