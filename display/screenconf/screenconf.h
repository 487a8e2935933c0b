// The configured screens: a record for each slot says which framebuffer device it is and how it is used. The
// board fills the slots at start-up; nothing here touches a device.
#pragma once

#include <cstdint>

// Slots: the main panel and the HDMI output. Slot 1 has no screen on this phone.
constexpr std::uint32_t SCREEN_MAIN = 0;
constexpr std::uint32_t SCREEN_HDMI = 2;
constexpr std::uint32_t SCREEN_LAST = 3;

struct screenconf {
    const char* load_cmd;         // shell line run once before the device is opened; may be empty
    const char* dev_prefix;       // path of the device without its number
    const char* fb_id;            // what the framebuffer driver's id begins with
    std::uint32_t dev_number;     // the number that was found; written by the back end
    std::uint32_t no_startscreen; // 1: the screen starts without the start screen unless that is asked for
    std::uint32_t double_buffer;  // 1: draw on one page while the other is shown
};

// Empties all slots.
void screenconf_init();

// The record of slot `sl`, kept by the caller; null for none. A slot of SCREEN_LAST or more stops the
// process.
void screenconf_set(std::uint32_t sl, screenconf* p_conf);
screenconf* screenconf_get(std::uint32_t sl);
