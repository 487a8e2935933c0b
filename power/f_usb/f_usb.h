// The command `usbc`: what the USB driver can be told, and the charger type that it knows.
#pragma once

void f_usb_init(); // tier entry
