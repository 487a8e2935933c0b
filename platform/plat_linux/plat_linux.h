// The pass-through table: every callout is the system call or library function of its name. Nothing else
// belongs here; what needs logic belongs into a module or into the virtual phone.
#pragma once

#include "plat/plat.h"

extern const plat_callouts plat_linux_co;
