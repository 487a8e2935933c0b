// The console's device "tty": a serial port by path, raw and not echoing. When the port drops it is opened
// again and again until it is back, which holds up the whole loop: without its port the console has no other
// business.
#pragma once

#include <cstdint>

// Set before cio_init and kept alive. The speed word's bits under 0x100F go into the port's control flags
// unless the word is 0; a USB serial port takes no notice of them.
struct cio_tty_config {
    const char* path;
    std::uint32_t speed;
};

void cio_tty_init(); // tier entry: registers the device
