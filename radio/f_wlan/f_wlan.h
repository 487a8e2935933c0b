// The station's commands for the WLAN radio: wlpu, wlpd, wtfd, wlid, wtxg, wsrx, wlrx, wstx, wbtx, widl,
// wbcx, wlst, wlscan, wlcg.
#pragma once

// Adds the command table.
void f_wlan_init();
