// The clock of all tests of the process: it can be attached once only.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

#include "core/clock.h"

inline void clock_attach_once()
{
    static const bool attached = [] {
        phone::clock_attach();
        phone::clock_words_attach();
        return true;
    }();
    (void)attached;
}

// Runs `work` on a thread that the clock knows and moves the held clock on by milliseconds until it has
// ended. The result is how many of those it took; -1 if it never ends.
inline int step_until_done(std::function<void()> work)
{
    constexpr phone::nanoseconds ns_per_ms = 1'000'000;
    const auto done = std::make_shared<std::atomic<bool>>(false);
    const phone::nanoseconds start = phone::clock_now(CLOCK_MONOTONIC);
    const auto end = std::make_shared<std::atomic<phone::nanoseconds>>(0);
    phone::clock_thread([work = std::move(work), done, end] {
        work();
        *end = phone::clock_now(CLOCK_MONOTONIC);
        *done = true;
    });
    for (int turn = 0; turn < 20000 && !*done; turn++)
        phone::clock_step(ns_per_ms);
    return *done ? static_cast<int>((*end - start) / ns_per_ms) : -1;
}
