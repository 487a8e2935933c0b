// How a chip gives a value of two bytes that are read one after the other: a reading of the low one keeps the
// high one that belongs to it, until that is read.
#pragma once

#include <cstdint>

namespace phone {

// `low` and `high` give the byte that a reading finds, of a value that is true now; `keep` and `release` are
// told when the bus has read it.
class byte_latch {
public:
    std::uint8_t low(std::uint16_t now);
    std::uint8_t high(std::uint16_t now) const;
    void keep();
    void release();

private:
    std::uint16_t last = 0;
    std::uint16_t kept = 0;
    bool keeps = false;
};

} // namespace phone
