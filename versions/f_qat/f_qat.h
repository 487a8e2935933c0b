// The command `qatv`: the program's own version, in the short form that stations compare.
#pragma once

// Entry of the command tier.
void f_qat_init();
