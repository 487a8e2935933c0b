// The calibration items by name. Which persistent unit holds an item, if any does, is the board's map; an
// item without a unit reads as absent.
#pragma once

// clang-format off
constexpr int TRIM_RF_VARIANT      =  1; // text with its NUL
constexpr int TRIM_PP_NUMBER       =  3; // production parameters: 3 a number, 4 a text of up to 10 bytes or 4 binary
constexpr int TRIM_PP_TEXT         =  4;
constexpr int TRIM_26              = 26; // no user
constexpr int TRIM_WHITE_BALANCE   = 27; // camera; no unit on this phone
constexpr int TRIM_VSYNC           = 28; // 4 bytes: high, low, low, high byte of the panel's sync value
constexpr int TRIM_ACCEL_OFFSETS   = 31; // 3 bytes
constexpr int TRIM_ACCEL_BACKUP    = 32; // 27 bytes: the accelerometer's memory
constexpr int TRIM_RESTART_MARKER  = 37; // 1 or 8 bytes
constexpr int TRIM_38              = 38; // no user
constexpr int TRIM_GYRO_OFFSETS    = 40; // 5 bytes
constexpr int TRIM_GYRO_BACKUP     = 41; // 58 bytes: the gyroscope's memory
constexpr int TRIM_TOUCH_HWINFO    = 43; // 5 bytes: hardware information of the touch controller
// clang-format on
