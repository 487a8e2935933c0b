// The menu scripts that the phone ships with, in /system/scripts.
#pragma once

namespace phone {

void scripts_seed();

} // namespace phone
