// The USB connection: who wants to know of it coming and going registers a listener; a driver knows how it
// stands. All of it belongs to the main loop; there is no lock. A driver's table must be attached before
// usb_start, usb_set and usb_get.
#pragma once

#include "slnk/slnk.h"

constexpr unsigned USB_EVT_DISCONNECTED = 1;
constexpr unsigned USB_EVT_CONNECTED = 2;

// Supplied by the listener and kept valid while attached. `cb` gets the event's mask bit.
struct usb_listener {
    slnk link;
    unsigned mask;
    void (*cb)(unsigned event);
};

struct usb_co {
    int (*start)();
    int (*set)(int item, int val);
    int (*get)(int item, int* p_val);
};

void usb_init(); // tier entry
void usb_co_attach(const usb_co* p_co);

// The driver's slots. 0 for an empty one, and where the driver fails.
int usb_start();
int usb_set(int item, int val);
int usb_get(int item, int* p_val);

constexpr int USB_GET_CHARGER_TYPE = 0; // 0 to 8: none, SDP, DCP, CDP, ACA A, B and C, ACA dock, proprietary
constexpr int USB_GET_CONNECTED = 1;    // 1 connected, 0 not
constexpr int USB_SET_HOST_POWER_OFF = 7;
constexpr int USB_SET_VBUS_WATCH = 8; // value: ms of host power once nothing is connected, negative for 500

// Listeners may come and go from within a callback.
void usb_evt_attach(usb_listener* p_rec, void (*cb)(unsigned event));
void usb_evt_detach(usb_listener* p_rec);

// Calls each listener whose mask has a bit of `mask`, in the order in which they were attached.
void usb_evt(unsigned mask);
