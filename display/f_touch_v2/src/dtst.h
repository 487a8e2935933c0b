// The self tests of the touch controller.
#pragma once

#include "dcp/dcp.h"

int do_touch_dtst(int id, int action, int argc, const dcp_word* argv);
