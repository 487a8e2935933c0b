// The command `bact`: charging of the backup capacitor.
#pragma once

void f_backcap_init(); // tier entry
