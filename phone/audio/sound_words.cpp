#include "audio/sound_words.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "audio/card.h"
#include "audio/mixer.h"
#include "audio/wav.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/text.h"

namespace phone {

namespace {

constexpr std::string_view bad_input = "the inputs are mic1, mic2, hsmic, line and fm, not ";
constexpr std::string_view bad_output = "the outputs are speaker, ear, left and right, not ";

std::string quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

// A number with a fraction, within bounds.
std::optional<double> real(const std::string& text, double least, double most)
{
    char* p_end;
    const double value = std::strtod(text.c_str(), &p_end);
    if (text.empty() || *p_end != '\0' || !(value >= least && value <= most))
        return std::nullopt;
    return value;
}

std::string shown(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

std::string word_mixer(request& rq)
{
    const auto numid = rq.args.empty() ? std::nullopt : number(rq.args[0]);
    if (!numid || *numid < 1 || *numid > mixer_controls || rq.args.size() > 2)
        return "N [VALUE] is wanted, N from 1 to " + std::to_string(mixer_controls);
    const auto n = static_cast<unsigned>(*numid);
    const card_lock lock;
    if (rq.args.size() == 1) {
        rq.answer = std::to_string(mixer_value(n));
        return {};
    }
    const auto value = number(rq.args[1]);
    if (!value || !mixer_set(n, static_cast<long>(*value)))
        return "control " + std::to_string(n) + " takes 0 to " + std::to_string(mixer_most(n));
    return {};
}

struct heard {
    double frequency;
    int peak;
};

// Whole waves are counted from one rise through zero to the last; small crossings on the way, such as noise
// makes, don't count.
heard analyse(const std::vector<std::int16_t>& samples, unsigned rate)
{
    int peak = 0;
    for (const std::int16_t s : samples)
        peak = std::max(peak, std::abs(static_cast<int>(s)));
    const int threshold = peak / 2;
    bool low = false;
    int waves = -1;
    double rise = 0;
    double first = 0;
    double last = 0;
    for (std::size_t i = 1; i < samples.size(); i++) {
        const int before = samples[i - 1];
        const int now = samples[i];
        if (before < 0 && now >= 0)
            rise = static_cast<double>(i) - static_cast<double>(now) / (now - before);
        low = low || now < -threshold;
        if (!low || now <= threshold)
            continue;
        low = false;
        if (waves++ < 0)
            first = rise;
        last = rise;
    }
    return {waves > 0 ? waves * rate / (last - first) : 0, peak};
}

std::string write_wav(const std::string& path, unsigned rate, const std::vector<std::int16_t>& samples)
{
    std::ofstream file(path, std::ios::binary);
    file << wav_bytes({1, rate, samples});
    file.close();
    return file ? "" : path + ": it can't be written";
}

std::string word_listen(request& rq)
{
    constexpr std::int64_t usual_ms = 1000;
    constexpr std::int64_t most_ms = 10'000;
    const bool captured = !rq.args.empty() && rq.args[0] == "capture";
    const auto output = rq.args.empty() ? std::nullopt : mixer_output_of(rq.args[0]);
    if (!captured && !output)
        return "OUTPUT or capture, and perhaps FILE.wav and MS, are wanted; the outputs are speaker, ear, "
               "left "
               "and right";
    const auto ms = rq.args.size() > 2 ? number(rq.args[2]) : usual_ms;
    if (rq.args.size() > 3 || !ms || *ms < 1 || *ms > most_ms ||
        (rq.args.size() > 1 && !rq.args[1].ends_with(".wav")))
        return "FILE.wav and 1 to 10000 ms are wanted behind it";
    unsigned rate;
    std::vector<std::int16_t> samples;
    bool moves;
    {
        const card_lock lock;
        rate = card_rate();
        const std::size_t count = rq.args.size() > 1 ? static_cast<std::size_t>(*ms) * rate / 1000 : rate / 2;
        samples = captured ? mixer_captured(count) : mixer_left(*output, count);
        moves = captured ? card_runs(card_capture) : card_runs(card_playback) || mixer_has_sidetone();
    }
    if (rq.args.size() > 1)
        return write_wav(request_file(rq, rq.args[1]), rate, samples);
    const heard h = analyse(samples, rate);
    rq.answer = moves && h.peak > 0 ? std::to_string(std::lround(h.frequency)) + " " + std::to_string(h.peak)
                                    : "silent";
    return {};
}

std::string feed_file(const std::string& path, mixer_feed& feed)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (!file)
        return path + ": it can't be read";
    wav w;
    if (const std::string wrong = wav_read(bytes.view(), w); !wrong.empty())
        return path + ": " + wrong;
    feed.file = wav_channel(w);
    feed.file_rate = w.rate;
    return {};
}

std::string show_feed(const mixer_feed& feed)
{
    if (!feed.file.empty())
        return "file of " + std::to_string(feed.file.size()) + " frames at " + std::to_string(feed.file_rate);
    return feed.frequency != 0 ? shown(feed.frequency) + " " + shown(feed.peak) : "off";
}

std::string show_sources()
{
    std::string text;
    for (std::size_t i = 0; i < mixer_inputs; i++)
        text += std::string(mixer_input_names[i]) + " " + show_feed(mixer_air.feeds[i]) + " noise " +
                shown(mixer_air.noise[i]) + "\n";
    return text + "stream " + (mixer_air.stream ? show_feed(*mixer_air.stream) : "off");
}

// What stands behind the input: off, a file, or a sine.
std::string read_feed(const request& rq, std::optional<mixer_feed>& feed)
{
    const std::vector<std::string>& args = rq.args;
    feed.reset();
    if (args.size() == 2 && args[1] == "off")
        return {};
    mixer_feed made;
    if (args.size() == 2 && args[1].ends_with(".wav")) {
        if (std::string wrong = feed_file(request_file(rq, args[1]), made); !wrong.empty())
            return wrong;
    } else {
        const auto frequency = args.size() == 3 ? real(args[1], 0.001, 24'000) : std::nullopt;
        const auto peak = args.size() == 3 ? real(args[2], 0, 32'767) : std::nullopt;
        if (!frequency || !peak)
            return "FREQ up to 24000 and PEAK up to 32767, FILE.wav, noise PEAK or off is wanted";
        made.frequency = *frequency;
        made.peak = *peak;
    }
    feed = std::move(made);
    return {};
}

std::string word_source(request& rq)
{
    if (rq.args.empty()) {
        const card_lock lock;
        rq.answer = show_sources();
        return {};
    }
    const auto input = mixer_input_of(rq.args[0]);
    if (!input && rq.args[0] != "stream")
        return std::string(bad_input) + quoted(rq.args[0]);
    if (input && rq.args.size() == 3 && rq.args[1] == "noise") {
        const auto peak = real(rq.args[2], 0, 32'767);
        if (!peak)
            return "a noise of 0 to 32767 is wanted";
        const card_lock lock;
        mixer_air.noise[*input] = *peak;
        return {};
    }
    std::optional<mixer_feed> feed;
    if (std::string wrong = read_feed(rq, feed); !wrong.empty())
        return wrong;
    const card_lock lock;
    if (input)
        mixer_air.feeds[*input] = feed.value_or(mixer_feed{});
    else
        mixer_air.stream = std::move(feed);
    return {};
}

std::string show_loops()
{
    std::string text;
    for (std::size_t o = 0; o < mixer_outputs; o++)
        for (std::size_t i = 0; i < mixer_inputs; i++) {
            const mixer_loop& loop = mixer_air.loops[o][i];
            if (!loop.on)
                continue;
            text += (text.empty() ? "" : "\n") + std::string(mixer_output_names[o]) + " " +
                    std::string(mixer_input_names[i]) + " " + shown(loop.db);
            if (loop.clip > 0)
                text += " " + shown(loop.clip);
        }
    return text;
}

std::string word_loop(request& rq)
{
    if (rq.args.empty()) {
        const card_lock lock;
        rq.answer = show_loops();
        return {};
    }
    const auto output = mixer_output_of(rq.args[0]);
    if (!output)
        return std::string(bad_output) + quoted(rq.args[0]);
    const auto input = rq.args.size() > 1 ? mixer_input_of(rq.args[1]) : std::nullopt;
    if (rq.args.size() > 1 && !input)
        return std::string(bad_input) + quoted(rq.args[1]);
    mixer_loop loop;
    if (rq.args.size() == 3 || rq.args.size() == 4) {
        const auto db = real(rq.args[2], -200, 60);
        const auto clip = rq.args.size() == 4 ? real(rq.args[3], 0.001, 32'767) : 0;
        loop = {db.has_value(), db.value_or(0), clip.value_or(0)};
        if ((!db && (rq.args[2] != "off" || rq.args.size() == 4)) || !clip)
            return "-200 to 60 dB, perhaps with a limit of up to 32767, or off is wanted";
    } else {
        return "OUTPUT INPUT DB|off [CLIP] is wanted";
    }
    const card_lock lock;
    mixer_air.loops[*output][*input] = loop;
    mixer_changed();
    return {};
}

std::string show_pcm()
{
    if (card_is_gone())
        return "off";
    unsigned rate;
    unsigned ring;
    card_fixed(&rate, &ring);
    return rate != 0 ? std::to_string(rate) + " " + std::to_string(ring) : "on";
}

std::string disturb(const std::string& what, const std::string& name)
{
    if (name != "playback" && name != "capture")
        return "playback or capture is wanted, not " + quoted(name);
    const card_stream stream = name == "playback" ? card_playback : card_capture;
    if (!card_runs(stream))
        return "no " + name + " runs";
    if (what == "xrun")
        card_xrun(stream);
    else
        card_suspend(stream);
    return {};
}

std::string word_pcm(request& rq)
{
    const card_lock lock;
    const std::string first = rq.args.empty() ? "" : rq.args[0];
    if (rq.args.empty()) {
        rq.answer = show_pcm();
        return {};
    }
    if (rq.args.size() == 1 && (first == "on" || first == "off")) {
        if (first == "on" && !card_is_gone())
            card_fix(0, 0);
        card_set_gone(first == "off");
        return {};
    }
    if (rq.args.size() == 2 && (first == "xrun" || first == "suspend"))
        return disturb(first, rq.args[1]);
    const auto rate = number(first);
    const auto ring = rq.args.size() == 2 ? number(rq.args[1]) : std::nullopt;
    if (!rate || !ring || *rate < 1 || *rate > 384'000 || *ring < 64 || *ring > 1'000'000)
        return "off, on, a RATE up to 384000 with a RING from 64 to 1000000, or xrun or suspend with "
               "playback or "
               "capture is wanted";
    card_fix(static_cast<unsigned>(*rate), static_cast<unsigned>(*ring));
    return {};
}

} // namespace

void sound_words_attach()
{
    word_add("mixer", "N [VALUE]", "reads or sets control N of the sound card, past its interface",
             word_mixer);
    word_add("listen", "OUTPUT|capture [FILE.wav [MS]]",
             "what left speaker, ear, left or right, or was captured, in the last half second: frequency and "
             "peak; or "
             "the last MS (1000) as a file to play",
             word_listen);
    word_add("source", "[INPUT|stream FREQ PEAK|noise PEAK|FILE.wav|off]",
             "feeds mic1, mic2, hsmic, line or fm, or the capture itself; alone, tells what is fed",
             word_source);
    word_add("loop", "[OUTPUT INPUT DB|off [CLIP]]",
             "how loud an output arrives at an input, cut at CLIP; alone, lists the loops", word_loop);
    word_add(
        "pcm", "[off|on|RATE RING|xrun STREAM|suspend STREAM]",
        "takes the sound card away or gives it back, fixes what it grants, or disturbs playback or capture",
        word_pcm);
    for (const char* const word : {"mixer", "source", "loop", "pcm"})
        conf_add_word(word);
}

} // namespace phone
