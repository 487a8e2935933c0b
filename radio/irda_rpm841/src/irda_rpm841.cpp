// The tests: parameters, sending once or again and again, and who begins a loop back. Receiving stands in
// irda_rx.cpp, the devices in irda_port.cpp.
#include "irda_rpm841/irda_rpm841.h"

#include <algorithm>
#include <numeric>

#include "core/core.h"
#include "irda_inner.h"
#include "irda_port.h"
#include "tmr/tmr.h"

namespace {

constexpr std::uint32_t WRITE_DELAY_US = 20000;
constexpr std::uint32_t WRITE_PAUSE_US = 10000;
constexpr std::uint32_t US_PER_MS = 1000;

constexpr std::uint8_t even_bytes[] = {0x00, 0xFF, 0x55, 0xAA}; // formats 0 to 3
constexpr std::uint32_t FORMAT_COUNTING = 4;
constexpr std::uint8_t short_packet[] = {0x55, 0xAA, 0x00, 0xFF}; // format 5

bool poll_writing;         // a chain of writes keeps itself going
std::uintptr_t write_turn; // a scheduled write of another turn is void

void schedule_write();

void irda_rpm841_wr()
{
    irda_port_write(irda_data_packet, irda_tx_size);
}

void irda_rpm841_poll_write(void* p_turn, void*)
{
    if (reinterpret_cast<std::uintptr_t>(p_turn) != write_turn || !irda_port_is_open())
        return;
    irda_rpm841_wr();
    if (irda_rpm841_rx_status == IRDA_RX_LOOP_ONCE || irda_rpm841_rx_status == IRDA_RX_LOOP_ON) {
        irda_rpm841_wait_rcv();
        irda_rpm841_rxd_en(true);
        return;
    }
    tmr_usleep(WRITE_PAUSE_US);
    if (poll_writing)
        schedule_write();
}

void schedule_write()
{
    core_dfc(irda_rpm841_poll_write, reinterpret_cast<void*>(write_turn), nullptr, WRITE_DELAY_US);
}

// The bytes behind a short packet stay what they were.
void fill_packet(std::uint32_t format)
{
    irda_tx_size = IRDA_PACKET_MOST;
    if (format < sizeof even_bytes) {
        std::fill_n(irda_data_packet, IRDA_PACKET_MOST, even_bytes[format]);
    } else if (format == FORMAT_COUNTING) {
        std::iota(irda_data_packet, irda_data_packet + IRDA_PACKET_MOST, std::uint8_t{0});
    } else {
        irda_tx_size = sizeof short_packet;
        std::copy_n(short_packet, sizeof short_packet, irda_data_packet);
    }
}

int irda_rpm841_start()
{
    return irda_port_open(irda_rpm841_rd_cb);
}

int irda_rpm841_stop()
{
    irda_rpm841_end_writes();
    irda_rpm841_disarm();
    return irda_port_close();
}

int irda_rpm841_set_para(const irda_para& para)
{
    irda_rpm841_disarm();
    if (irda_rpm841_set_msmbaudrate(para.baud) == 0 || irda_rpm841_irda_mode_en(para.mode != 0) == 0)
        return 0;
    fill_packet(para.format);
    if (irda_rpm841_rxd_en(false) == 0)
        return 0;
    irda_rpm841_rx_status = IRDA_RX_IDLE;
    return 1;
}

int irda_rpm841_tx(std::uint32_t mode)
{
    if (!irda_port_is_open())
        return 0;
    irda_rpm841_disarm();
    irda_rpm841_rx_status = IRDA_RX_IDLE;
    if (irda_rpm841_rxd_en(false) == 0)
        return 0;
    if (mode == IRDA_TX_ONCE) {
        irda_rpm841_end_writes();
        return irda_port_write(irda_data_packet, irda_tx_size);
    }
    if (!poll_writing) {
        irda_rpm841_end_writes();
        poll_writing = true;
        schedule_write();
    }
    return 1;
}

int irda_rpm841_rx(bool on)
{
    irda_rpm841_disarm();
    if (irda_rpm841_rxd_en(on) == 0)
        return 0;
    irda_rpm841_rx_status = on ? IRDA_RX_STATIC : IRDA_RX_IDLE;
    if (on)
        irda_rpm841_arm(IRDA_STATIC_TIME_US);
    return 1;
}

int irda_rpm841_loop(std::uint32_t mode, std::uint32_t time_ms)
{
    if (!irda_port_is_open())
        return 0;
    irda_rpm841_end_writes();
    irda_rpm841_disarm();
    if (irda_rpm841_rxd_en(mode == IRDA_LOOP_ANSWER) == 0)
        return 0;
    irda_rpm841_rx_status = mode;
    if (mode == IRDA_LOOP_ANSWER)
        return 1;
    schedule_write();
    irda_rpm841_arm(time_ms < UINT32_MAX / US_PER_MS ? time_ms * US_PER_MS : UINT32_MAX);
    return 1;
}

// clang-format off
irda_co irda_rpm841_co = {
    .start    = irda_rpm841_start,
    .stop     = irda_rpm841_stop,
    .set_para = irda_rpm841_set_para,
    .tx       = irda_rpm841_tx,
    .rx       = irda_rpm841_rx,
    .loop     = irda_rpm841_loop,
    .report   = nullptr,
};
// clang-format on

} // namespace

std::uint32_t irda_rpm841_rx_status = IRDA_RX_IDLE;
std::uint8_t irda_data_packet[IRDA_PACKET_MOST];
std::size_t irda_tx_size = IRDA_PACKET_MOST;

void irda_rpm841_end_writes()
{
    poll_writing = false;
    write_turn++;
}

void irda_rpm841_end_loop_write()
{
    if (!poll_writing)
        write_turn++;
}

void irda_rpm841_report(std::uint32_t count, const char* text)
{
    if (irda_rpm841_co.report != nullptr)
        irda_rpm841_co.report({count, text});
}

void irda_rpm841_init()
{
    irda_co_attach(&irda_rpm841_co);
}

void irda_rpm841_conf(const char* control, const char* line)
{
    irda_port_conf(control, line);
}
