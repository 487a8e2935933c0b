// One attribute or node of the kernel, opened, read or written whole, and closed again. For texts whose
// length is known; not for files of any size. A path that isn't there is never created.
#pragma once

#include <cstddef>

// Results, those of the regulator operations too.
constexpr int ATTR_OK = 0;
constexpr int ATTR_FAILED = 1;  // it opened, and the transfer failed
constexpr int ATTR_NO_FILE = 2; // it didn't open

// Reads at most `size` - 1 characters and puts a NUL behind them. On failure the text is empty.
int attr_read(const char* path, char* p_text, std::size_t size);

// Writes `text` in one call.
int attr_write(const char* path, const char* text);
