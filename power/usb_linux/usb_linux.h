// USB as the kernel's gadget driver tells it: a state attribute, and a uevent at each change of it.
#pragma once

// Null words keep what stood before.
struct usb_linux_config {
    const char* state_path;
    const char* connected; // words in the state attribute and in the uevent
    const char* disconnected;
    const char* uevent_path; // of the gadget's device
};

void usb_linux_init(); // tier entry: attaches the driver

// Before usb_start. The texts are kept as pointers.
void usb_linux_set_cfg(const usb_linux_config* p_cfg);
