// What the files of this module share.
#pragma once

#include "dcp/dcp.h"

extern bool wlan_started; // wlpu had a driver start
extern bool in_tx;        // a transmission was started and not stopped

// Stops a transmission that runs. False when that fails: it still runs then.
bool f_wlan_stop_tx();

// The status that goes with a result of an operation.
int f_wlan_status(int result);

int do_wlan_wtxg(int id, int action, int argc, const dcp_word* argv);
int do_wlan_wsrx(int id, int action, int argc, const dcp_word* argv);
int do_wlan_wlrx(int id, int action, int argc, const dcp_word* argv);
int do_wlan_wstx(int id, int action, int argc, const dcp_word* argv);
int do_wlan_wbtx(int id, int action, int argc, const dcp_word* argv);
int do_wlan_widl(int id, int action, int argc, const dcp_word* argv);
int do_wlan_wbcx(int id, int action, int argc, const dcp_word* argv);
int do_wlan_wlst(int id, int action, int argc, const dcp_word* argv);
