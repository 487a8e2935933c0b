// Every chip on the I2C buses. One file a chip, which defines its model; this is the list that the bus and
// the test of all tables walk.
#pragma once

#include <span>

#include "board/chip.h"

namespace phone {

extern const std::span<const chip_model* const> chip_models;

extern const chip_model bmi055_accel;
extern const chip_model bmi055_gyro;
extern const chip_model ak8963;
extern const chip_model apds9930;
extern const chip_model mn88552_tuner;
extern const chip_model mn88552_wide;
extern const chip_model mn88552_narrow;
extern const chip_model sii8334_main;
extern const chip_model sii8334_page1;
extern const chip_model sii8334_page2;
extern const chip_model sii8334_page3;
extern const chip_model sii8334_cbus;
extern const chip_model pn65;
extern const chip_model pn65_download;

} // namespace phone
