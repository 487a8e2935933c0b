// The Bluetooth controller: what it answers to HCI commands. How packets travel is the socket's affair
// (radio/hci.cpp), which calls one at a time. Packets are as they cross the socket: type first.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace phone {

using hci_packet = std::vector<std::uint8_t>;

constexpr std::uint8_t hci_type_command = 0x01;
constexpr std::uint8_t hci_type_event = 0x04;

// The events that answer a whole command. One that the controller doesn't know gets status 01.
std::vector<hci_packet> hci_controller_answer(std::span<const std::uint8_t> command);

// As a reset command does.
void hci_controller_reset();

} // namespace phone
