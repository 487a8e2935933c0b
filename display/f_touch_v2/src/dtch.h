// The live touch test: reports touches to the client that asked for them.
#pragma once

#include "dcp/dcp.h"
#include "touch_v2/touch.h"

int do_touch_dtch(int id, int action, int argc, const dcp_word* argv);

// The callback of the touch interface, on the main loop.
void touch_cb(const touch_event* p_event);
