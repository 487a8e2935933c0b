#include "audio/sound_tools.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "audio/card.h"
#include "audio/wav.h"
#include "core/files.h"
#include "core/text.h"
#include "core/toolbox.h"

namespace phone {

namespace {

constexpr int exit_failed = 1;
constexpr unsigned long ring = 8192;
constexpr unsigned long period = 1024;

int fail(tool_call& call, const std::string& why)
{
    call.err = call.args[0] + ": " + why + "\n";
    return exit_failed;
}

// A stream of a tool's, closed on every way out.
class tool_stream {
public:
    tool_stream(card_stream which, unsigned channels, unsigned rate) : stream(which)
    {
        error = card_open_unwatched(stream);
        if (error != 0)
            return;
        const card_limits limits = card_here.limits(stream);
        setting = {std::clamp(rate, limits.rate_least, limits.rate_most), channels, ring, period};
        error = card_set_up_unwatched(stream, setting);
    }
    ~tool_stream()
    {
        if (error == 0)
            card_here.close(stream);
    }
    tool_stream(const tool_stream&) = delete;
    tool_stream& operator=(const tool_stream&) = delete;

    const card_stream stream;
    card_setting setting{};
    int error = 0;
};

struct record_options {
    unsigned channels = 1;
    unsigned rate = 8000;
    unsigned seconds = 0;
    std::string file;
};

bool read_options(const tool_call& call, record_options& options)
{
    for (std::size_t i = 1; i < call.args.size(); i++) {
        const std::string& arg = call.args[i];
        if (!arg.starts_with('-')) {
            options.file = arg;
            continue;
        }
        const std::int64_t value = i + 1 < call.args.size() ? number(call.args[i + 1]).value_or(-1) : -1;
        if (arg != "-D" && value < 1)
            return false;
        if (arg == "-C")
            options.channels = static_cast<unsigned>(std::min<std::int64_t>(value, 2));
        else if (arg == "-R")
            options.rate = static_cast<unsigned>(std::min<std::int64_t>(value, 384'000));
        else if (arg == "-T")
            options.seconds = static_cast<unsigned>(std::min<std::int64_t>(value, 3600));
        else if (arg != "-D")
            return false;
        i++;
    }
    return !options.file.empty() && options.seconds > 0;
}

int tool_arec(tool_call& call)
{
    record_options options;
    if (!read_options(call, options))
        return fail(call, "-D CARD -C CHANNELS -R RATE -T SECONDS FILE is wanted");
    tool_stream s(card_capture, options.channels, options.rate);
    if (s.error != 0)
        return fail(call, std::string("the card can't be used: ") + std::strerror(-s.error));
    wav w{options.channels, s.setting.rate, {}};
    w.samples.resize(std::size_t{options.seconds} * w.rate * w.channels);
    std::size_t got = 0;
    card_here.start(s.stream);
    while (got < w.samples.size()) {
        card_sleep(s.stream, std::min(got + std::size_t{period} * w.channels, w.samples.size()) / w.channels);
        const long n =
            card_transfer_unwatched(s.stream, &w.samples[got], (w.samples.size() - got) / w.channels);
        if (n < 0)
            return fail(call, std::string("read: ") + std::strerror(static_cast<int>(-n)));
        got += static_cast<std::size_t>(n) * w.channels;
    }
    return file_write(options.file, wav_bytes(w)) ? 0 : fail(call, options.file + ": it can't be written");
}

int tool_aplay(tool_call& call)
{
    std::string bytes;
    wav w;
    if (call.args.size() != 2)
        return fail(call, "FILE is wanted");
    if (!file_read(call.args[1], bytes))
        return fail(call, call.args[1] + ": it can't be read");
    if (const std::string wrong = wav_read(bytes, w); !wrong.empty())
        return fail(call, call.args[1] + ": " + wrong);
    tool_stream s(card_playback, w.channels, w.rate);
    if (s.error != 0)
        return fail(call, std::string("the card can't be used: ") + std::strerror(-s.error));
    const std::size_t frames = w.samples.size() / w.channels;
    std::size_t given = 0;
    for (;;) {
        const long n = card_transfer_unwatched(s.stream, &w.samples[given * w.channels], frames - given);
        if (n < 0)
            return fail(call, std::string("write: ") + std::strerror(static_cast<int>(-n)));
        if (given == 0)
            card_here.start(s.stream);
        given += static_cast<std::size_t>(n);
        card_sleep(s.stream, given < frames ? given - std::min<std::size_t>(given, ring - period) : given);
        if (given == frames)
            return card_here.place(s.stream).error == 0 ? 0 : fail(call, "the card has stopped");
    }
}

} // namespace

void sound_tools_attach()
{
    tool_add("arec", tool_arec);
    tool_add("aplay", tool_aplay);
}

} // namespace phone
