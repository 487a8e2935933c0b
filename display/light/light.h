// The phone's lights by zone: the display's backlight, the notification LED. The board's map says which LED
// devices make up a zone; drivers add the devices. Keeps no levels. Also the short and open test of the LEDs,
// by the power management chip's driver. Light devices may be set from any thread, one side at a time.
#pragma once

#include <cstdint>

#include "slnk/slnk.h"

constexpr int LIGHT_ZONE_DISPLAY = 1;
constexpr int LIGHT_ZONE_MMI = 46; // the notification LED; subzones 1 red, 2 green, 3 blue
constexpr int LIGHT_ZONE_ALL = 67;
constexpr int LIGHT_SUBZONE_ALL = 0;

// A row of the board's map; a zone of 0 ends it.
struct light_map_row {
    int zone;
    int subzone;
    int device;
};

// A device: static storage of its driver. `set` gives 1, or 0 on failure.
struct light_dev {
    slnk link;
    int id;
    int (*set)(light_dev* p_dev, std::uint16_t level);
};

// Results of light_lsot_check_status.
constexpr int LIGHT_LSOT_FAILED = 0; // the chip couldn't be asked
constexpr int LIGHT_LSOT_GOOD = 2;
constexpr int LIGHT_LSOT_FAULT = 3; // short or open
constexpr int LIGHT_LSOT_NONE = 4;  // there is no such LED

struct light_co {
    int (*lsot_start)();
    int (*lsot_check_status)(int n);
    int (*lsot_finish)();
};

void light_init();
void light_map_set(const light_map_row* p_map);
void light_add(light_dev* p_dev);
void light_cmd_co_attach(const light_co* p_co);

// Gives `level` to every device of `zone` (LIGHT_ZONE_ALL: of all) and `subzone` (LIGHT_SUBZONE_ALL: of all).
// 0 when a device failed, which ends the walk; otherwise 1, also when nothing fits.
int light_set(int zone, int subzone, std::uint16_t level);

// How many rows of the map belong to `zone`; all of them for LIGHT_ZONE_ALL.
int light_exist(int zone);

// The LED test: 1 or 0; LED `n` from 1. Without a driver 0.
int light_lsot_start();
int light_lsot_check_status(int n);
int light_lsot_finish();
