#include "check/check.h"

#include <cstdlib>

namespace {
void (*p_watcher)(const char* expr, const char* file, int line);
} // namespace

void check_failed(const char* expr, const char* file, int line)
{
    if (p_watcher != nullptr)
        p_watcher(expr, file, line);
    // No exit handlers: other threads may still be at work on what those would tear down.
    std::_Exit(1);
}

void check_watch(void (*fn)(const char* expr, const char* file, int line))
{
    p_watcher = fn;
}
