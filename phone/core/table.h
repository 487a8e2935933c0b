// The virtual phone's platform table: the program's every touch of the outside world comes through it.
#pragma once

#include "plat/plat.h"

namespace phone {

extern const plat_callouts phone_co;

} // namespace phone
