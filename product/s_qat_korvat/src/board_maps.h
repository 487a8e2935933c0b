// What differs from board to board: where the pins, the calibration items, the lights, the chips, the screens
// and the cameras are.
#pragma once

#include "battery/battery.h"
#include "chargemon/chargemon.h"
#include "hwp/hwp.h"
#include "i2c/i2c.h"
#include "light/light.h"
#include "nfc_pn65/nfc_pn65.h"
#include "pin/pin.h"
#include "screenconf/screenconf.h"
#include "touch_v2/touch.h"
#include "trim/trim.h"

struct cfg_map_row {
    hwp board;
    pin_map_sel pins;
    trim_map_sel trims;
};

extern const light_map_row light_map_tab[];
extern touch_config touch_config_data;
extern const i2c_cfg_row i2c_cfg_tab[];
extern const battery_cfg board_battery_cfg;
extern const chargemon_cfg chmon_cfg;
extern const nfc_pn65_cfg nfc_cfg;
extern screenconf screenconf_main;
extern screenconf screenconf_hdmi;

// The row whose maps fit a board: the one of its revision, or the last of its family.
const cfg_map_row& s_cfg_map(const hwp& board);

// Hands the camera's tables to camconf.
void s_cfg_camera();
