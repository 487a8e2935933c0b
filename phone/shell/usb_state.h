// What the phone's USB driver says of the cable: the state attribute and its uevent.
#pragma once

namespace phone {

void usb_state_seed();
bool usb_state_configured();

// Writes the attribute.
void usb_state_set(bool configured);

// Tells the listeners.
void usb_state_announce(bool configured);

} // namespace phone
