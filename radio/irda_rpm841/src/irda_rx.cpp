// Receiving: packets that come, and the time-out when none does.
#include <atomic>
#include <bit>
#include <cstdio>

#include "core/core.h"
#include "irda_inner.h"
#include "irda_port.h"
#include "tmr/tmr.h"

namespace {

constexpr int PACKET_LEAST = 4; // fewer bytes are noise

constexpr std::uint32_t LOOP_TIME_US = 2350000;
constexpr std::uint32_t ANSWER_PAUSE_US = 350000;
constexpr std::uint32_t FAILURE_PAUSE_US = 10000;

// One arming. Its callback, on the timer's thread, may still be under way when the next one is made, so the
// records take turns.
struct rx_timer {
    tmr_link lnk; // first: the timer gives its address
    std::atomic<std::uint32_t> turn;
    std::atomic<std::uint32_t> time_us;
};

rx_timer timers[4];
unsigned armed_timer;
bool armed;            // since the last disarming, expired or not
std::uint32_t rx_turn; // a time-out of another turn is void

std::uint32_t rx_size;
std::uint32_t err_num;
std::uint8_t rx_packet[IRDA_PACKET_MOST];

void irda_rpm841_rx_start_tmo_dfc(void* p_turn, void*)
{
    if (reinterpret_cast<std::uintptr_t>(p_turn) != rx_turn)
        return;
    irda_rpm841_end_loop_write();
    irda_rpm841_report(0, "-1");
    irda_rpm841_rxd_en(false);
    irda_rpm841_rx_status = IRDA_RX_IDLE;
}

// Gives the wait as long again.
void rx_tmr_cb(tmr_link* p_link, std::uint32_t)
{
    const auto* const p_timer = reinterpret_cast<const rx_timer*>(p_link);
    const std::uintptr_t turn = p_timer->turn;
    core_dfc(irda_rpm841_rx_start_tmo_dfc, reinterpret_cast<void*>(turn), nullptr, p_timer->time_us);
}

// Position by position, also behind the end of a short packet.
std::uint32_t count_bit_errors()
{
    int errors = 0;
    for (std::size_t i = 0; i < rx_size; i++)
        errors += std::popcount(static_cast<unsigned>(rx_packet[i] ^ irda_data_packet[i]));
    return static_cast<std::uint32_t>(errors);
}

void irda_rpm841_rx_report()
{
    char text[16];
    if (irda_rpm841_rx_status == IRDA_RX_STATIC) {
        std::snprintf(text, sizeof text, "0x%02x", static_cast<unsigned>(irda_tx_size));
        irda_rpm841_report(rx_size, text);
        irda_rpm841_arm(IRDA_STATIC_TIME_US);
        return;
    }
    err_num = count_bit_errors();
    std::snprintf(text, sizeof text, "0x%X", err_num);
    irda_rpm841_report(rx_size, text);
    if (irda_rpm841_rx_status == IRDA_RX_LOOP_ON)
        irda_rpm841_arm(LOOP_TIME_US);
}

} // namespace

void irda_rpm841_arm(std::uint32_t time_us)
{
    irda_rpm841_disarm();
    armed_timer = (armed_timer + 1) % (sizeof timers / sizeof timers[0]);
    rx_timer& t = timers[armed_timer];
    t.turn = rx_turn;
    t.time_us = time_us;
    armed = time_us != 0;
    if (armed)
        tmr_cb_add(&t.lnk, rx_tmr_cb, time_us);
    else
        rx_tmr_cb(&t.lnk, 0);
}

void irda_rpm841_disarm()
{
    if (armed)
        tmr_cb_rm(&timers[armed_timer].lnk);
    armed = false;
    rx_turn++;
}

void irda_rpm841_rd_cb(void*, void*)
{
    const int n = irda_port_read(rx_packet, sizeof rx_packet);
    if (n <= 0)
        tmr_usleep(FAILURE_PAUSE_US); // the line stays readable, and the loop comes back at once
    if (n < PACKET_LEAST || irda_rpm841_rx_status == IRDA_RX_IDLE)
        return;
    irda_rpm841_rxd_en(false);
    if (irda_rpm841_rx_status != IRDA_RX_LOOP_ANSWER)
        irda_rpm841_disarm();
    rx_size = static_cast<std::uint32_t>(n);
    irda_rpm841_rx_report();
    if (irda_rpm841_rx_status != IRDA_RX_STATIC) {
        tmr_usleep(ANSWER_PAUSE_US);
        irda_port_write(rx_packet, rx_size);
        irda_rpm841_wait_rcv();
    }
    if (irda_rpm841_rx_status != IRDA_RX_LOOP_ONCE)
        irda_rpm841_rxd_en(true);
}
