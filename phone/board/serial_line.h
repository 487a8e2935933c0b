// A serial line of the phone that is no terminal of the host's: what stands at its other end is a device of
// the phone. It keeps the settings that the program makes (TCGETS, TCSETS), sends its bytes at the speed that
// was set, ten bits a byte, and gives what has come for it; a reading of an empty line does what VMIN and
// VTIME say. It has no line discipline: bytes go through as they are, whatever the other flags say.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "core/clock.h"

namespace phone {

// Bytes that have left the phone, one right behind the other.
struct serial_burst {
    std::span<const std::uint8_t> bytes;
    nanoseconds end;  // when the last bit of the last byte was out
    nanoseconds byte; // how long each of them took
    int speed;        // bits a second
};

struct serial_model {
    // Takes what has left the phone, in order and with no lock held but the one that keeps the order; it may
    // call serial_receive. At the latest it is called when the last byte of a write of the program's is out.
    void (*sent)(const serial_burst& burst);
    bool (*present)(std::string_view path) = nullptr; // as for a node
    // Called before a reading, with no lock held: a device that says something in time brings itself up to
    // date, since its timer may come late.
    void (*before_read)() = nullptr;
};

// Claims the path. The record must live as long as the process. Only while devices attach.
void serial_add(std::string_view path, const serial_model* p_model);

// Bytes from the other end, which are there at once. What the line has no room for is lost.
void serial_receive(std::string_view path, std::span<const std::uint8_t> bytes);

// Has `sent` called for all bytes that have left the phone until now: to be called, without a lock that
// `sent` takes, before a device changes what becomes of them.
void serial_update(std::string_view path);

// Whether bits are still going out.
bool serial_sending(std::string_view path);

// Bits a second that are set now.
int serial_speed(std::string_view path);

} // namespace phone
