// What is on the air: broadcasts by their carriers, and the word `broadcast`. A broadcast says of itself what
// a receiver would find; the receiver (mn88552.h) turns that into registers. To be looked at with the bus
// locked.
#pragma once

#include <array>
#include <cstdint>

namespace phone {

struct broadcast_layer {
    std::uint8_t modulation;
    std::uint8_t rate;
    std::uint8_t length; // of its interleaving
    std::uint8_t segments;
};

struct broadcast {
    double mhz;
    std::array<double, 2> level_dbm;      // at the first and at the second antenna
    std::array<std::uint32_t, 2> noise;   // as the wide and the narrow half count it
    std::array<std::uint32_t, 3> errors;  // of bits in one measurement, by layer
    std::array<std::uint32_t, 3> packets; // of packets
    std::uint32_t period;
    std::array<std::uint32_t, 2> state; // of the locked wide and narrow half
    std::array<broadcast_layer, 3> layers;
    std::uint32_t system;
    std::uint32_t emergency;
    std::uint32_t partial;
};

// The broadcast next to a frequency, within 1 MHz; null when there is none.
const broadcast* air_at(double mhz);

// Adds the word.
void air_attach();

} // namespace phone
