// The Bluetooth controller hci0 as the kernel shows it: raw HCI sockets (AF_BLUETOOTH), its state, and the
// word `hci`, by which a bench says what it answers. A socket hears only what its own filter lets through.
#pragma once

namespace phone {

// Whether its driver is loaded and switched on; whether it is up.
bool hci_is_there();
bool hci_is_up();

// It is up 60 ms later, or down at once.
void hci_bring_up();
void hci_take_down();

void hci_attach();
void hci_seed();

} // namespace phone
