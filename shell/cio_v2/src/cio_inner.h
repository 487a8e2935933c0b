// What the files of cio_v2 share.
#pragma once

#include "cio_v2/cio.h"

// Reads what the port has and, when a line is complete, runs it and answers it. `p_me` is a cio.
void cio_cmd_fn(void* p_me, void* p2);
