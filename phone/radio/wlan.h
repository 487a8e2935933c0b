// WLAN and FM: the tools that the program runs, each of which wants what a real one wants, and the radio's
// processor behind /dev/wcnss_wlan.
#pragma once

namespace phone {

void wlan_attach();
void wlan_seed();

} // namespace phone
