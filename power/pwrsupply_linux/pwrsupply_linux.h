// Driver of `battery` and `fuelgauge` for the kernel's power supply class: voltage, current and whether there
// is a battery at all. Reads an attribute per call and keeps nothing.
#pragma once

constexpr int PWRSUPPLY_VOLTAGE_NOW = 0; // microvolt
constexpr int PWRSUPPLY_CURRENT_NOW = 1; // microampere
constexpr int PWRSUPPLY_CAPACITY = 2;
constexpr int PWRSUPPLY_TYPE = 3;
constexpr int PWRSUPPLY_TEMP = 4; // tenths of a degree

void pwrsupply_linux_init(); // tier entry

// The number in an attribute, decimal, octal or hexadecimal by its prefix; a text without a number is 0.
// 1, or 0 and `*p_out` as it was when it can't be read.
int pwrsupply_linux_read_attr(int index, long* p_out);
