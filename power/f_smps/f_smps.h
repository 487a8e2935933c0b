// The command `smps`: switching of the processor's supply rails.
#pragma once

void f_smps_init(); // tier entry
