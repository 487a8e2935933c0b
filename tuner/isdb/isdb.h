// The television receiver: power, tuning, readings and stream tests. A driver does the work (isdb_co_attach).
// Operations give 1 on success and 0 on failure, and 0 where the driver has none; what a reading can't get
// stays as it was. They take their time: a tuning up to 8 seconds, a stream test as long as packets come.
#pragma once

#include <cstdint>

// What a stream test has counted.
struct isdb_stream_result {
    std::uint32_t packets;
    std::uint32_t bad;
    std::uint32_t lost;
    std::uint32_t transport_errors;
};

struct isdb_bper_result {
    double cn;    // dB
    double ratio; // of errors
    std::int32_t lock;
};

struct isdb_co {
    int (*pon)();
    int (*poff)();
    int (*tuning)(std::uint32_t ch, int mode);
    int (*get_parameter)(std::uint32_t* p_value);
    int (*control_lna)(int value);
    int (*i2c_rd)(unsigned slave, unsigned reg, std::uint8_t* p_byte);
    int (*norm_op)(isdb_stream_result* p_result);
    int (*lb_op)();
    int (*tptn_op)(int rate, int pattern, isdb_stream_result* p_result);
    int (*get_id)(std::uint8_t* p_byte);
    int (*check_sync)(std::uint8_t* p_byte, int mode);
    int (*get_sig_lev)(std::uint8_t* p_byte);
    int (*select_mode_ch)(int circ, int mode, std::uint32_t ch);
    int (*switch_ant)(int value);
    int (*get_bper)(int path, int kind, int layer, isdb_bper_result* p_result);
    int (*check_bbif)(std::uint8_t* p_values);
};

void isdb_init();
void isdb_co_attach(const isdb_co* p_co);

int isdb_pon();
int isdb_poff();

// `mode` 0 is the wide path, 1 the narrow one, here and below.
int isdb_tuning(std::uint32_t ch, int mode);
int isdb_select_mode_ch(int circ, int mode, std::uint32_t ch);

int isdb_get_parameter(std::uint32_t* p_value);
int isdb_control_lna(int value);

// A register of the receiver's chip at address `slave`.
int isdb_i2c_rd(unsigned slave, unsigned reg, std::uint8_t* p_byte);

// The test of the received stream; 0 also when the test was stopped. And the loop-back test.
int isdb_norm_op(isdb_stream_result* p_result);
int isdb_lb_op();

// The test of the chip's own pattern: `rate` 0 to 3 (else 1), `pattern` 0 to 3 (else 0).
int isdb_tptn_op(int rate, int pattern, isdb_stream_result* p_result);

int isdb_get_id(std::uint8_t* p_byte);
int isdb_check_sync(std::uint8_t* p_byte, int mode);

// dBm + 256.
int isdb_get_sig_lev(std::uint8_t* p_byte);

// The antenna switch: bits 0 to 2 of `value`.
int isdb_switch_ant(int value);

// Error ratio and what goes with it: `kind` 0 bits, 1 packets; `layer` 0 to 3 of the wide path.
int isdb_get_bper(int path, int kind, int layer, isdb_bper_result* p_result);

// The check of the bus between receiver and processor, on four bytes.
int isdb_check_bbif(std::uint8_t* p_values);
