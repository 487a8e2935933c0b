// The WCN3680, one chip for Bluetooth, WLAN and FM: three drivers that attach themselves to bt, wlan and fm,
// and what they have in common. Call those interfaces; only the board module calls here. WLAN and FM are
// reached through the platform's tools alone, Bluetooth through a raw HCI socket.
#pragma once

// Attaches the three drivers.
void wcn3680_linux_init();

// Puts the calibration file that "wlan_nv_file_path" of module "wcn3680_linux" names in its place, and wakes
// the radio's processor, which then loads it. Without that setting nothing is done. What fails is passed
// over: a radio without calibration can still be tested.
void wcn3680_linux_wake_up_wcnss();
