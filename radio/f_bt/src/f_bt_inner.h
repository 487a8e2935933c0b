// What the files of this module share.
#pragma once

#include "dcp/dcp.h"

// Starts the controller unless that was done. False when it can't be started.
bool f_bt_start();

// Forgets that the controller was started: the next command starts it anew.
void f_bt_forget_start();

int do_bt_bstx(int id, int action, int argc, const dcp_word* argv);
int do_bt_bwtx(int id, int action, int argc, const dcp_word* argv);
int do_bt_bsrx(int id, int action, int argc, const dcp_word* argv);
int do_bt_blrx(int id, int action, int argc, const dcp_word* argv);
int do_bt_blet(int id, int action, int argc, const dcp_word* argv);
int do_bt_bler(int id, int action, int argc, const dcp_word* argv);
int do_bt_bles(int id, int action, int argc, const dcp_word* argv);
int do_bt_pint(int id, int action, int argc, const dcp_word* argv);

int do_bt_rwbt(int id, int action, int argc, const dcp_word* argv);
int do_bt_bhwr(int id, int action, int argc, const dcp_word* argv);
int do_bt_bwcx(int id, int action, int argc, const dcp_word* argv);
