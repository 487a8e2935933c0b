// The process stop: the one answer to a programming fault (a table that isn't attached, a NULL that can't
// be). Not for input and not for hardware: those are answered to the station. It ends the process with
// status 1 and writes nothing; the three texts are there for a debugger and a core dump.
#pragma once

[[noreturn]] void check_failed(const char* expr, const char* file, int line);

// Calls `fn` with the three texts before the process ends. For who looks at the program from outside, as the
// virtual phone does; the program has nobody to tell.
void check_watch(void (*fn)(const char* expr, const char* file, int line));

#define HVT_CHECK(expr) ((expr) ? void(0) : check_failed(#expr, __FILE__, __LINE__))
