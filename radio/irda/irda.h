// The infrared port under test: it sends fixed packets, receives, and sends back what it hears. A driver does
// the work (irda_co_attach). What comes in is told later, by a callback on the main loop. Operations give 1
// on success and 0 on failure, or where the driver has no such operation.
#pragma once

#include <cstdint>

constexpr std::uint32_t IRDA_BAUD_LAST = 4;   // 0 to 4: 9600, 19200, 38400, 57600, 115200
constexpr std::uint32_t IRDA_FORMAT_LAST = 5; // 0 to 3: zeros, ones, 55, AA; 4: counting; 5: four bytes

struct irda_para {
    std::uint32_t baud;
    std::uint32_t format; // of what is sent
    std::uint32_t mode;   // 1: infrared pulses, 0: plain serial
};

// What irda_tx takes.
constexpr std::uint32_t IRDA_TX_ONCE = 1;
constexpr std::uint32_t IRDA_TX_ON = 2; // again and again until irda_stop

// What irda_loop takes.
constexpr std::uint32_t IRDA_LOOP_ANSWER = 0; // sends back what comes
constexpr std::uint32_t IRDA_LOOP_ONCE = 1;   // sends, and compares what comes back
constexpr std::uint32_t IRDA_LOOP_ON = 2;     // and goes on until nothing comes

// A packet has come, or nothing has (count 0 and the text "-1"). The text stays valid during the call.
struct irda_report {
    std::uint32_t count; // bytes
    const char* text;
};
using irda_rx_cb = void (*)(const irda_report& report);

// The last row is written by irda_co_attach.
struct irda_co {
    int (*start)();
    int (*stop)();
    int (*set_para)(const irda_para& para);
    int (*tx)(std::uint32_t mode);
    int (*rx)(bool on);
    int (*loop)(std::uint32_t mode, std::uint32_t time_ms);
    irda_rx_cb report;
};

void irda_init();
void irda_co_attach(irda_co* p_co);

// Who is told, from the driver's next attaching on; gives the former one.
irda_rx_cb irda_rx_evt_attach(irda_rx_cb cb);

// Opens the port; all below needs that. It may be open already. irda_stop closes it.
int irda_start();
int irda_stop();

int irda_set_para(const irda_para& para);
int irda_tx(std::uint32_t mode);
int irda_rx(bool on);
int irda_loop(std::uint32_t mode, std::uint32_t time_ms);
