#include "audio/mixer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace phone {

namespace {

struct control_row {
    std::uint16_t numid;
    card_kind kind;
    int most;
    int reset;
};

// clang-format off
// Those that do something; all others are integers up to 127 at 0.
constexpr control_row rows[] = {
    {  16, card_enumerated,  6,  1 }, // amplifier of the ear
    {  17, card_integer,    20, 20 }, // volume of left, of right
    {  18, card_integer,    20, 20 },
    {  25, card_integer,    19,  0 }, // gain before decimator 5, 3, 2, 7
    {  27, card_integer,    19,  0 },
    {  28, card_integer,    19,  0 },
    {  29, card_integer,    19,  0 },
    {  30, card_integer,   124, 84 }, // volume of line 1, 2, 7
    {  31, card_integer,   124, 84 },
    {  36, card_integer,   124, 84 },
    {  38, card_integer,   124, 84 }, // volume of decimator 2, 3, 5, 7
    {  39, card_integer,   124, 84 },
    {  41, card_integer,   124, 84 },
    {  43, card_integer,   124, 84 },
    { 130, card_boolean,     1,  0 }, // with 295 and 367: the radio into the capture
    { 291, card_boolean,     1,  0 }, // with 413: a decimator into the capture
    { 295, card_boolean,     1,  0 },
    { 337, card_boolean,     1,  0 }, // with 462: the stream to the lines
    { 367, card_boolean,     1,  0 },
    { 375, card_enumerated, 10,  0 }, // the decimator of sidetone B, A
    { 376, card_enumerated, 10,  0 },
    { 380, card_enumerated, 17,  0 }, // the decimator of the capture, plus 7
    { 413, card_boolean,     1,  0 },
    { 424, card_enumerated,  6,  0 }, // input of decimator 7, 5, 3, 2
    { 426, card_enumerated,  6,  0 },
    { 428, card_enumerated,  6,  0 },
    { 429, card_enumerated,  6,  0 },
    { 431, card_enumerated,  1,  0 }, // kept, no effect
    { 441, card_enumerated, 12,  0 }, // what line 7, 2, 1 carries
    { 451, card_enumerated, 12,  0 },
    { 454, card_enumerated, 12,  0 },
    { 455, card_boolean,     1,  0 }, // line 1 to left
    { 462, card_boolean,     1,  0 },
    { 463, card_boolean,     1,  0 }, // line 1 to the ear
    { 556, card_enumerated,  1,  0 }, // kept, no effect
    { 557, card_enumerated,  7,  0 },
};

struct decimator_row {
    int number;
    unsigned input_control;
    int item; // the one of its input
    mixer_input input;
    unsigned gain_control;
    unsigned volume_control;
};

constexpr decimator_row decimators[] = {
    { 2, 429, 2, in_mic2,  28, 38 },
    { 3, 428, 2, in_mic1,  27, 39 },
    { 5, 426, 2, in_hsmic, 25, 41 },
    { 7, 424, 4, in_line,  29, 43 },
};

constexpr double ear_db[] = {6, 4.5, 3, 1.5, 0, -2.5, -12};
// clang-format on

constexpr int decimator_count = std::size(decimators);
constexpr int full_volume = 84; // 0 dB, and 1 dB a step
constexpr int full_plug = 20;   // 0 dB, and 1.5 dB a step
constexpr double step_db = 1.5;
constexpr double most_sample = 32767;
constexpr double least_sample = -32768;

std::array<int, mixer_controls + 1> values = [] {
    std::array<int, mixer_controls + 1> v{};
    for (const control_row& row : rows)
        v[row.numid] = row.reset;
    return v;
}();

const control_row* row_of(unsigned numid)
{
    for (const control_row& row : rows)
        if (row.numid == numid)
            return &row;
    return nullptr;
}

double factor(double db)
{
    return std::pow(10.0, db / 20);
}

double limited(double x)
{
    return std::clamp(x, least_sample, most_sample);
}

std::int16_t rounded(double x)
{
    return static_cast<std::int16_t>(limited(x < 0 ? x - 0.5 : x + 0.5));
}

enum line_source { line_silent, line_stream, line_side_a, line_side_b };

struct line_plan {
    line_source source;
    double volume;
};

struct arriving {
    int output;
    double gain;
    double clip;
};

struct input_plan {
    mixer_input input;
    double gain;
    double volume;
    int arrivals;
    std::array<arriving, mixer_outputs> arrival;
};

// What the controls and the air come to, made anew when one of them has changed.
struct {
    bool made;
    bool stream_on;
    line_plan line7, line1, line2;
    double ear, left, right; // 0: off
    int side[2];             // the place in `used` of the decimator of sidetone A, B; -1: none
    int captured;            // the same of a capture
    bool radio;              // a capture has the radio instead
    int used_count;
    std::array<input_plan, decimator_count> used;
} plan;

std::array<double, 2> side_samples; // what the sidetones carry: the sample before

std::uint32_t noise_state = 0x2545F491;

struct history {
    std::vector<std::int16_t> samples; // empty until something moved for the first time
    std::size_t at;
};
std::array<history, mixer_outputs + 1> histories; // the last is that of the captures

double uniform()
{
    noise_state ^= noise_state << 13;
    noise_state ^= noise_state >> 17;
    noise_state ^= noise_state << 5;
    return static_cast<std::int32_t>(noise_state) * (1.0 / 2147483648.0);
}

double fed(mixer_feed& feed, unsigned rate)
{
    const std::uint64_t at = feed.at++;
    if (!feed.file.empty()) {
        const std::uint64_t i = feed.file_rate == rate ? at : at * feed.file_rate / rate;
        return feed.file[i % feed.file.size()];
    }
    if (feed.frequency == 0)
        return 0;
    return feed.peak * std::sin(2 * std::numbers::pi * feed.frequency * static_cast<double>(at) / rate);
}

line_plan plan_line(unsigned source_control, unsigned volume_control)
{
    const int source = values[source_control];
    return {source == 5   ? line_stream
            : source == 3 ? line_side_a
            : source == 4 ? line_side_b
                          : line_silent,
            factor(values[volume_control] - full_volume)};
}

void plan_arrivals(input_plan& p)
{
    for (int output = 0; output < mixer_outputs; output++) {
        const mixer_loop& loop = mixer_air.loops[static_cast<std::size_t>(output)][p.input];
        if (loop.on)
            p.arrival[static_cast<std::size_t>(p.arrivals++)] = {output, factor(loop.db), loop.clip};
    }
}

// The place of a decimator among those that are used; -1 when there is none of that number or it hears
// nothing.
int plan_decimator(int number)
{
    for (const decimator_row& row : decimators) {
        if (row.number != number || values[row.input_control] != row.item)
            continue;
        for (int i = 0; i < plan.used_count; i++)
            if (plan.used[static_cast<std::size_t>(i)].input == row.input)
                return i;
        input_plan p{row.input,
                     factor(step_db * values[row.gain_control]),
                     factor(values[row.volume_control] - full_volume),
                     0,
                     {}};
        plan_arrivals(p);
        plan.used[static_cast<std::size_t>(plan.used_count)] = p;
        return plan.used_count++;
    }
    return -1;
}

bool carries(line_source source)
{
    return plan.line7.source == source || plan.line1.source == source || plan.line2.source == source;
}

void make_plan()
{
    plan = {};
    plan.made = true;
    plan.stream_on = values[337] != 0 && values[462] != 0;
    plan.line7 = plan_line(441, 36);
    plan.line1 = plan_line(454, 30);
    plan.line2 = plan_line(451, 31);
    plan.ear = values[463] != 0 ? factor(ear_db[values[16]]) : 0;
    plan.left = values[455] != 0 ? factor(step_db * (values[17] - full_plug)) : 0;
    plan.right = factor(step_db * (values[18] - full_plug));
    plan.side[0] = carries(line_side_a) ? plan_decimator(values[376]) : -1;
    plan.side[1] = carries(line_side_b) ? plan_decimator(values[375]) : -1;
    plan.radio = values[130] != 0 && values[295] != 0 && values[367] != 0;
    plan.captured =
        !plan.radio && values[291] != 0 && values[413] != 0 ? plan_decimator(values[380] - 7) : -1;
}

double line_sample(const line_plan& line, double stream)
{
    switch (line.source) {
    case line_stream:
        return stream * line.volume;
    case line_side_a:
        return side_samples[0] * line.volume;
    case line_side_b:
        return side_samples[1] * line.volume;
    default:
        return 0;
    }
}

double input_sample(mixer_input input, unsigned rate)
{
    return fed(mixer_air.feeds[input], rate) + mixer_air.noise[input] * uniform();
}

double decimated(const input_plan& p, const double* outputs, unsigned rate)
{
    double x = input_sample(p.input, rate);
    for (int i = 0; i < p.arrivals; i++) {
        const arriving& a = p.arrival[static_cast<std::size_t>(i)];
        const double y = outputs[a.output];
        x += a.gain * (a.clip > 0 ? std::clamp(y, -a.clip, a.clip) : y);
    }
    return limited(x * p.gain) * p.volume;
}

// One frame; the result is what a capture gets of it.
double carry_frame(double stream, double* outputs, unsigned rate)
{
    const double line1 = line_sample(plan.line1, stream);
    outputs[out_speaker] = limited(line_sample(plan.line7, stream));
    outputs[out_ear] = limited(line1 * plan.ear);
    outputs[out_left] = limited(line1 * plan.left);
    outputs[out_right] = limited(line_sample(plan.line2, stream) * plan.right);
    std::array<double, decimator_count> heard;
    for (int i = 0; i < plan.used_count; i++)
        heard[static_cast<std::size_t>(i)] = decimated(plan.used[static_cast<std::size_t>(i)], outputs, rate);
    for (std::size_t i = 0; i < side_samples.size(); i++)
        side_samples[i] = plan.side[i] >= 0 ? heard[static_cast<std::size_t>(plan.side[i])] : 0;
    if (plan.radio)
        return input_sample(in_fm, rate);
    return plan.captured >= 0 ? heard[static_cast<std::size_t>(plan.captured)] : 0;
}

double stream_frame(const mixer_block& block, unsigned i)
{
    if (block.p_playback == nullptr || !plan.stream_on)
        return 0;
    double sum = 0;
    for (unsigned c = 0; c < block.playback_channels; c++)
        sum += block.p_playback[i * block.playback_channels + c];
    return sum;
}

void keep(history& h, std::int16_t sample)
{
    h.samples[h.at] = sample;
    h.at = h.at + 1 == h.samples.size() ? 0 : h.at + 1;
}

// Nothing moves: what was kept moves on.
void keep_silence(unsigned frames)
{
    for (history& h : histories) {
        if (h.samples.empty())
            continue;
        const auto begin = h.samples.begin() + static_cast<std::ptrdiff_t>(h.at);
        const std::size_t n = std::min<std::size_t>(frames, mixer_history);
        const std::size_t first = std::min(n, h.samples.size() - h.at);
        std::fill_n(begin, first, 0);
        std::fill_n(h.samples.begin(), n - first, 0);
        h.at = (h.at + n) % h.samples.size();
    }
}

std::vector<std::int16_t> newest(const history& h, std::size_t count)
{
    count = std::min(count, mixer_history);
    std::vector<std::int16_t> found(count);
    for (std::size_t i = 0; i < count && !h.samples.empty(); i++)
        found[count - 1 - i] = h.samples[(h.at + h.samples.size() - 1 - i) % h.samples.size()];
    return found;
}

} // namespace

const std::array<std::string_view, mixer_outputs> mixer_output_names = {"speaker", "ear", "left", "right"};
const std::array<std::string_view, mixer_inputs> mixer_input_names = {"mic1", "mic2", "hsmic", "line", "fm"};

mixer_world mixer_air = [] {
    mixer_world w{};
    w.noise.fill(2);
    w.loops[out_speaker][in_mic1] = {true, -20, 0};
    w.loops[out_speaker][in_mic2] = {true, -31, 0};
    w.loops[out_ear][in_mic1] = {true, -44, 0};
    w.loops[out_ear][in_mic2] = {true, -27, 0};
    return w;
}();

card_kind mixer_kind(unsigned numid)
{
    const control_row* const p = row_of(numid);
    return p != nullptr ? p->kind : card_integer;
}

int mixer_most(unsigned numid)
{
    const control_row* const p = row_of(numid);
    return p != nullptr ? p->most : 127;
}

int mixer_value(unsigned numid)
{
    return values[numid];
}

bool mixer_set(unsigned numid, long value)
{
    if (value < 0 || value > mixer_most(numid))
        return false;
    values[numid] = static_cast<int>(value);
    mixer_changed();
    return true;
}

std::optional<mixer_output> mixer_output_of(std::string_view name)
{
    const auto found = std::find(mixer_output_names.begin(), mixer_output_names.end(), name);
    if (found == mixer_output_names.end())
        return std::nullopt;
    return static_cast<mixer_output>(found - mixer_output_names.begin());
}

std::optional<mixer_input> mixer_input_of(std::string_view name)
{
    const auto found = std::find(mixer_input_names.begin(), mixer_input_names.end(), name);
    if (found == mixer_input_names.end())
        return std::nullopt;
    return static_cast<mixer_input>(found - mixer_input_names.begin());
}

void mixer_changed()
{
    plan.made = false;
}

bool mixer_has_sidetone()
{
    if (!plan.made)
        make_plan();
    return plan.side[0] >= 0 || plan.side[1] >= 0;
}

void mixer_carry(const mixer_block& block)
{
    const bool sidetone = mixer_has_sidetone();
    if (block.p_playback == nullptr && block.p_capture == nullptr && !sidetone) {
        side_samples.fill(0);
        keep_silence(block.frames);
        return;
    }
    for (history& h : histories)
        if (h.samples.empty())
            h = {std::vector<std::int16_t>(mixer_history), 0};
    std::array<double, mixer_outputs> outputs{};
    for (unsigned i = 0; i < block.frames; i++) {
        double captured = carry_frame(stream_frame(block, i), outputs.data(), block.rate);
        for (std::size_t o = 0; o < mixer_outputs; o++)
            keep(histories[o], rounded(outputs[o]));
        if (mixer_air.stream) {
            mixer_air.stream->at = block.captured + i;
            captured = fed(*mixer_air.stream, block.rate);
        }
        const std::int16_t sample = block.p_capture != nullptr ? rounded(captured) : 0;
        keep(histories.back(), sample);
        for (unsigned c = 0; block.p_capture != nullptr && c < block.capture_channels; c++)
            block.p_capture[i * block.capture_channels + c] = sample;
    }
}

std::vector<std::int16_t> mixer_left(mixer_output output, std::size_t count)
{
    return newest(histories[output], count);
}

std::vector<std::int16_t> mixer_captured(std::size_t count)
{
    return newest(histories.back(), count);
}

} // namespace phone
