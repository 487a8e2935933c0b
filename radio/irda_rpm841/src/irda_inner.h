// What the two halves of the tests share: sending (irda_rpm841.cpp) and receiving (irda_rx.cpp). All of it on
// the main loop.
#pragma once

#include <cstddef>
#include <cstdint>

#include "irda/irda.h"

constexpr std::size_t IRDA_PACKET_MOST = 256;
constexpr std::uint32_t IRDA_STATIC_TIME_US = 5000000; // of a static reception

// What the test is about. The first three go with irda_loop's modes.
constexpr std::uint32_t IRDA_RX_LOOP_ANSWER = 0;
constexpr std::uint32_t IRDA_RX_LOOP_ONCE = 1;
constexpr std::uint32_t IRDA_RX_LOOP_ON = 2;
constexpr std::uint32_t IRDA_RX_STATIC = 3;
constexpr std::uint32_t IRDA_RX_IDLE = 4;

extern std::uint32_t irda_rpm841_rx_status;
extern std::uint8_t irda_data_packet[IRDA_PACKET_MOST]; // what is sent, and what comes is compared with
extern std::size_t irda_tx_size;                        // bytes of it

// Nothing that was scheduled goes out any more: all of it, or the packet of a loop back alone.
void irda_rpm841_end_writes();
void irda_rpm841_end_loop_write();

// Tells whoever listens.
void irda_rpm841_report(std::uint32_t count, const char* text);

// The read client of the serial line: takes one packet.
void irda_rpm841_rd_cb(void* p1, void* p2);

// When nothing has come for twice this time, that is reported and the test is over. A time-out that was armed
// before is void. 0: at once.
void irda_rpm841_arm(std::uint32_t time_us);

// Makes a time-out void, also one that is on its way.
void irda_rpm841_disarm();
