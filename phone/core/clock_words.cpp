// The clock's words of the control port.
#include <cstdio>
#include <cstdlib>

#include "core/clock.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/text.h"

namespace phone {

namespace {

constexpr nanoseconds ns_per_ms = 1'000'000;

std::string word_clock(request& rq)
{
    if (rq.args.empty()) {
        rq.answer = std::to_string(clock_now(CLOCK_MONOTONIC) / ns_per_ms);
        return {};
    }
    if (rq.args.size() == 1 && (rq.args[0] == "hold" || rq.args[0] == "run")) {
        clock_hold(rq.args[0] == "hold");
        if (rq.args[0] == "hold")
            clock_step(0); // what is due is done
        return {};
    }
    if (rq.args.size() == 1 && rq.args[0].starts_with('+')) {
        const auto ms = number(std::string_view(rq.args[0]).substr(1));
        if (ms && *ms >= 0 && *ms <= INT32_MAX) {
            clock_step(*ms * ns_per_ms);
            return {};
        }
    }
    return "hold, run or +MS with 0 to 2147483647 ms is wanted";
}

std::string word_speed(request& rq)
{
    if (rq.args.empty()) {
        char text[32];
        std::snprintf(text, sizeof text, "%g", clock_speed());
        rq.answer = text;
        return {};
    }
    char* p_end;
    const double factor = std::strtod(rq.args[0].c_str(), &p_end);
    if (*p_end != '\0' || rq.args.size() != 1 || !(factor >= 1 && factor <= 1000))
        return "a factor from 1 to 1000 is wanted";
    clock_set_speed(factor);
    return {};
}

std::string word_idle(request&)
{
    return clock_settle() ? "" : "the program has been at work for 60 s";
}

} // namespace

void clock_words_attach()
{
    word_add("clock", "[hold|run|+MS]", "tells the clock in ms, stops it, lets it run, moves it on",
             word_clock);
    word_add("speed", "[F]", "how many times as fast as real time the phone lives, 1 to 1000", word_speed);
    conf_add_word("speed");
    word_add("idle", "", "answers when the program's loop waits for input and has none", word_idle);
}

} // namespace phone
