// MN88552, the broadcast demodulator: three register files at three addresses of bus 4, the word `tuner`, and
// what the demultiplexer and the air have to do with it.
#pragma once

#include <optional>

namespace phone {

// What the chip sends to the demultiplexer.
struct stream_source {
    enum { nothing, broadcast, pattern } kind;
    int code; // of the pattern: 0 to 3
};

// To be called with the bus locked.
stream_source mn88552_stream();

// A carrier, or all, may have changed: the receiver shows that at once where it stands on it. With the bus
// locked.
void mn88552_air_changed(std::optional<double> mhz);

// The antenna that the receiver listens to: 0, 1, or 2 for the better one; 100 ms from now.
void mn88552_antenna(int antenna);

// Adds the word.
void mn88552_attach();

} // namespace phone
