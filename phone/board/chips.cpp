#include "board/chips.h"

namespace phone {

namespace {

constexpr const chip_model* models[] = {
    &pn65,                                                                          // bus 2
    &mn88552_tuner, &mn88552_wide,  &mn88552_narrow,                                // bus 4
    &sii8334_main,  &sii8334_page1, &sii8334_page2,  &sii8334_page3, &sii8334_cbus, // bus 4
    &ak8963,        &bmi055_accel,  &bmi055_gyro,    &apds9930,                     // bus 5
    &pn65_download,                                                                 // bus 10
};

} // namespace

constinit const std::span<const chip_model* const> chip_models = models;

} // namespace phone
