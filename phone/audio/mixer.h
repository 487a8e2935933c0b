// The codec's mixer: its controls, and the way of the samples through it, from the program's stream to the
// outputs, from there through the air into the microphones, and back into a capture. It knows no time: the
// card (card.h) tells it how many frames to carry, and guards it by its lock; so do all who set something
// here.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "audio/card_calls.h"

namespace phone {

constexpr unsigned mixer_controls = 600;

card_kind mixer_kind(unsigned numid);
int mixer_most(unsigned numid);
int mixer_value(unsigned numid);
bool mixer_set(unsigned numid, long value); // false when it is out of range; nothing changes then

enum mixer_output { out_speaker, out_ear, out_left, out_right, mixer_outputs };
enum mixer_input { in_mic1, in_mic2, in_hsmic, in_line, in_fm, mixer_inputs };
std::optional<mixer_output> mixer_output_of(std::string_view name);
std::optional<mixer_input> mixer_input_of(std::string_view name);
extern const std::array<std::string_view, mixer_outputs> mixer_output_names;
extern const std::array<std::string_view, mixer_inputs> mixer_input_names;

// What somebody feeds into an input.
struct mixer_feed {
    double frequency = 0;           // Hz; 0: no sine
    double peak = 0;                // 16-bit units
    std::vector<std::int16_t> file; // or one channel of a file, repeated
    unsigned file_rate = 0;
    std::uint64_t at = 0; // frames since it was set
};

// How an output arrives at an input.
struct mixer_loop {
    bool on = false;
    double db = 0;
    double clip = 0; // 16-bit units; 0: it isn't cut
};

// To be set under the card's lock, with mixer_changed behind it.
struct mixer_world {
    std::array<mixer_feed, mixer_inputs> feeds;
    std::array<double, mixer_inputs> noise;
    std::array<std::array<mixer_loop, mixer_inputs>, mixer_outputs> loops;
    std::optional<mixer_feed> stream; // what a capture delivers instead of all this
};
extern mixer_world mixer_air;
void mixer_changed();

// Whether samples move without a stream: something feeds a line from an input.
bool mixer_has_sidetone();

// Carries `frames` frames. The streams are interleaved; null for one that doesn't run. `captured` are the
// frames that the capture has had since its start.
struct mixer_block {
    unsigned rate;
    unsigned frames;
    const std::int16_t* p_playback;
    unsigned playback_channels;
    std::int16_t* p_capture;
    unsigned capture_channels;
    std::uint64_t captured;
};
void mixer_carry(const mixer_block& block);

// The newest `count` samples of an output, or of the captures' first channel; at most 10 s at 48000 Hz are
// kept.
constexpr std::size_t mixer_history = 480'000;
std::vector<std::int16_t> mixer_left(mixer_output output, std::size_t count);
std::vector<std::int16_t> mixer_captured(std::size_t count);

} // namespace phone
