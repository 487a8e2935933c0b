// Access to the demodulator's registers: lists of entries, each a register of one of the chip's three
// addresses and the bits of it that are meant. Every access opens the bus, does one transfer and closes it.
// Nothing here knows what a register means. Not for two threads at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

// The entry names all bits of `enabit` instead of those from `sbit` to `ebit`.
constexpr std::uint16_t TUNER_BY_MASK = 255;

struct tuner_data_rw {
    std::uint16_t slave;
    std::uint16_t adr;
    std::uint16_t sbit;   // lowest bit touched
    std::uint16_t ebit;   // highest bit touched
    std::uint16_t param;  // what is written, at the bits' own places; or what was read, the whole register
    std::uint16_t enabit; // the bits touched, when `sbit` and `ebit` are both TUNER_BY_MASK
};

// `n` entries of zeros.
std::unique_ptr<tuner_data_rw[]> create_tuner_data_rw(std::size_t n);

void tuner_set_rw_data(tuner_data_rw* p_entry, std::uint16_t slave, std::uint16_t adr, std::uint16_t sbit,
                       std::uint16_t ebit, std::uint16_t param, std::uint16_t enabit);

// Entry by entry; the first that fails ends it. 0, or -1 when the chip doesn't answer. An entry for some bits
// of a register reads it first.
int tuner_write_reg(const tuner_data_rw* p_entries, std::size_t n);
int tuner_read_reg(tuner_data_rw* p_entries, std::size_t n);

// The call of the driver that this library was once in: `kind` 0 reads, 3 writes, 6, 8 and 9 do nothing and
// succeed; any other is 258. Otherwise 0 or -1.
int tuner_device_ioctl(int kind, tuner_data_rw* p_entry);

// `n` bytes from register `reg` on, in pieces of at most 2048. Register numbers step on with the bytes and
// wrap at 255, but at the first two addresses they stop at 246, which takes the patches. 0 or -1.
int tuner_device_write(std::uint16_t slave, std::uint8_t reg, const std::uint8_t* p_data, std::size_t n);

// One piece: up to 4 bytes are a transfer each, more are one message. 0 or -1.
int tunerx_hwl_write(std::uint16_t slave, std::uint8_t reg, const std::uint8_t* p_data, std::size_t n);
