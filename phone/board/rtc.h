// /dev/rtc0: a clock that runs with the phone's time and can be set. What it was set to holds over a restart.
#pragma once

namespace phone {

void rtc_attach();
void rtc_start();

} // namespace phone
