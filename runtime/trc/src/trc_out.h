// Where a line of trace goes. All under the caller's lock.
#pragma once

#include <cstddef>
#include <cstdint>

#include "trc/trc.h"

// Empties the memory buffer, which is `size` bytes at `p_buf`, and puts back the default print callout.
void trc_out_reset(char* p_buf, std::size_t size);

void trc_out_buf_sz(std::size_t* p_used, std::size_t* p_free);
void trc_out_buf_clear();

// Opens a mode's destination in place of the old one: see trc_mode_set.
void trc_out_mode_set(unsigned mode);
unsigned trc_out_mode();

// Hands `len` characters, which a NUL follows, to the mode's destination.
void trc_out(const char* text, int len);

// The same, but to the kernel log if `mask` says so and it can be opened.
void trc_out_line(std::uint32_t mask, const char* text, int len);
