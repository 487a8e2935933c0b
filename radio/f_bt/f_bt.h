// The station's commands for the Bluetooth controller: btid, bthr, btfd, bttm, btse, bstx, bwtx, rwbt, bhwr,
// bsrx, blrx, blet, bler, bles, bwcx, pint, btscan. The first of them that needs the controller starts it.
#pragma once

// Adds the command table.
void f_bt_init();
