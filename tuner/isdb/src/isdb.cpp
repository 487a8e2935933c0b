#include "isdb/isdb.h"

#include "check/check.h"

namespace {

const isdb_co* p_isdb_co;

// What slot `op` of the table answers; 0 where the driver has no such operation.
template <typename... Arg>
int call(int (*isdb_co::*op)(Arg...), Arg... arg)
{
    HVT_CHECK(p_isdb_co != nullptr);
    int (*const fn)(Arg...) = p_isdb_co->*op;
    return fn != nullptr ? fn(arg...) : 0;
}

} // namespace

void isdb_init()
{
    p_isdb_co = nullptr;
}

void isdb_co_attach(const isdb_co* p_co)
{
    p_isdb_co = p_co;
}

int isdb_pon()
{
    return call(&isdb_co::pon);
}

int isdb_poff()
{
    return call(&isdb_co::poff);
}

int isdb_tuning(std::uint32_t ch, int mode)
{
    return call(&isdb_co::tuning, ch, mode);
}

int isdb_get_parameter(std::uint32_t* p_value)
{
    return call(&isdb_co::get_parameter, p_value);
}

int isdb_control_lna(int value)
{
    return call(&isdb_co::control_lna, value);
}

int isdb_i2c_rd(unsigned slave, unsigned reg, std::uint8_t* p_byte)
{
    return call(&isdb_co::i2c_rd, slave, reg, p_byte);
}

int isdb_norm_op(isdb_stream_result* p_result)
{
    return call(&isdb_co::norm_op, p_result);
}

int isdb_lb_op()
{
    return call(&isdb_co::lb_op);
}

int isdb_tptn_op(int rate, int pattern, isdb_stream_result* p_result)
{
    return call(&isdb_co::tptn_op, rate, pattern, p_result);
}

int isdb_get_id(std::uint8_t* p_byte)
{
    return call(&isdb_co::get_id, p_byte);
}

int isdb_check_sync(std::uint8_t* p_byte, int mode)
{
    return call(&isdb_co::check_sync, p_byte, mode);
}

int isdb_get_sig_lev(std::uint8_t* p_byte)
{
    return call(&isdb_co::get_sig_lev, p_byte);
}

int isdb_select_mode_ch(int circ, int mode, std::uint32_t ch)
{
    return call(&isdb_co::select_mode_ch, circ, mode, ch);
}

int isdb_switch_ant(int value)
{
    return call(&isdb_co::switch_ant, value);
}

int isdb_get_bper(int path, int kind, int layer, isdb_bper_result* p_result)
{
    return call(&isdb_co::get_bper, path, kind, layer, p_result);
}

int isdb_check_bbif(std::uint8_t* p_values)
{
    return call(&isdb_co::check_bbif, p_values);
}
