#include "bt/bt.h"

#include <utility>

#include "callout/callout.h"
#include "check/check.h"

namespace {

const bt_co* p_bt_co;
bool start_lost;

// The operations of a driver that is there.
const bt_co& driver()
{
    HVT_CHECK(p_bt_co != nullptr);
    return *p_bt_co;
}

} // namespace

void bt_init()
{
    p_bt_co = nullptr;
    start_lost = false;
}

void bt_attach(const bt_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_bt_co = p_co;
}

int bt_start()
{
    return driver().start();
}

int bt_stop()
{
    return driver().stop();
}

void bt_start_failed()
{
    start_lost = true;
}

bool bt_start_lost()
{
    return std::exchange(start_lost, false);
}

int bt_dl(int what)
{
    return driver().dl(what);
}

int bt_wr(const void* p_data, std::size_t size)
{
    return driver().wr(p_data, size);
}

std::size_t bt_rd_poll()
{
    return driver().rd_poll();
}

int bt_rd(void* p_data, std::size_t size)
{
    return driver().rd(p_data, size);
}

int bt_script_exec(const char* path)
{
    return driver().script_exec(path);
}

int bt_tst_tx_switched(std::uint32_t mode, std::uint32_t channel, std::uint32_t packet, std::uint32_t length,
                       std::uint32_t power, std::uint32_t pattern)
{
    return driver().tst_tx_switched(mode, channel, packet, length, power, pattern);
}

int bt_tst_tx_static(std::uint32_t channel, std::uint32_t power, std::uint32_t data, std::uint32_t rate,
                     std::uint32_t pattern)
{
    return driver().tst_tx_static(channel, power, data, rate, pattern);
}

int bt_addr_wr(const std::uint8_t* p_addr, std::size_t size)
{
    return driver().addr_wr(p_addr, size);
}

int bt_addr_rd(std::uint8_t* p_addr)
{
    return driver().addr_rd(p_addr);
}

int bt_tst_rx_static(std::uint32_t channel, std::uint32_t packet, std::uint32_t pattern, bt_rx_stats* p_stats)
{
    return callout(p_bt_co, &bt_co::tst_rx_static, BT_NOT_IMPLEMENTED, channel, packet, pattern, p_stats);
}

int bt_reset()
{
    return callout(p_bt_co, &bt_co::reset, BT_NOT_IMPLEMENTED);
}

int bt_chip_reset()
{
    return callout(p_bt_co, &bt_co::chip_reset, BT_NOT_IMPLEMENTED);
}

int bt_getBDaddressFromFlash(std::uint8_t* p_addr)
{
    return driver().getBDaddressFromFlash(p_addr);
}

int bt_setBDaddressInFlash(const std::uint8_t* p_addr)
{
    return driver().setBDaddressInFlash(p_addr);
}

int bt_tst_rx_cw_rssi(std::uint32_t channel, int* p_rssi)
{
    return driver().tst_rx_cw_rssi(channel, p_rssi);
}

int bt_get_default_params(int index, bt_params* p_params)
{
    return callout(p_bt_co, &bt_co::get_default_params, BT_NOT_IMPLEMENTED, index, p_params);
}

int bt_test_coex(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count)
{
    return callout(p_bt_co, &bt_co::test_coex, BT_NOT_IMPLEMENTED, p_bytes, count, p_out, p_count);
}

int bt_pin_test(std::uint8_t* p_a, std::uint8_t* p_b, std::uint8_t* p_c)
{
    return callout(p_bt_co, &bt_co::pin_test, BT_NOT_IMPLEMENTED, p_a, p_b, p_c);
}

int bt_scan(int count, char* p_text)
{
    return driver().scan(count, p_text);
}
