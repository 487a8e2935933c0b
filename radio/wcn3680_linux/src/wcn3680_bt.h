// What the files of the Bluetooth driver share.
#pragma once

#include <cstddef>
#include <cstdint>

#include "bt/bt.h"
#include "bt/bt_hci.h"

// Waits for the end of a start that is under way, and resets the controller then. BT_OK when none is, or all
// went well.
int wcn3680_bt_linux_pending_startup();

// Waits for the next vendor event: its size, 0 when none comes within 2 s.
std::size_t wcn3680_bt_linux_rd_poll_2();

int wcn3680_bt_linux_rd(void* p_data, std::size_t size);

int wcn3680_bt_linux_addr_rd(std::uint8_t* p_addr);
int wcn3680_bt_linux_tst_tx_static(std::uint32_t channel, std::uint32_t power, std::uint32_t data,
                                   std::uint32_t rate, std::uint32_t pattern);
int wcn3680_bt_linux_tst_tx_switched(std::uint32_t mode, std::uint32_t channel, std::uint32_t packet,
                                     std::uint32_t length, std::uint32_t power, std::uint32_t pattern);
int wcn3680_bt_linux_tst_rx_static(std::uint32_t channel, std::uint32_t packet, std::uint32_t pattern,
                                   bt_rx_stats* p_stats);
int wcn3680_bt_linux_pin_test(std::uint8_t* p_a, std::uint8_t* p_b, std::uint8_t* p_c);
int wcn3680_bt_linux_get_default_params(int index, bt_params* p_params);
