// What the kernel's input layer calls things: the types and codes of events that this program knows by name.
// The names that a station reads for key codes stand in `kbd`.
#pragma once

// Types of events.
constexpr int INPUT_KEY = 1; // keys and buttons
constexpr int INPUT_ABS = 3; // axes

// Keys.
constexpr int INPUT_KEY_VOLUME_DOWN = 114;
constexpr int INPUT_KEY_VOLUME_UP = 115;
constexpr int INPUT_KEY_POWER = 116;
constexpr int INPUT_KEY_MENU = 139;
constexpr int INPUT_KEY_BACK = 158;
constexpr int INPUT_KEY_HW = 408;

// Buttons of pointing devices, which are no keys.
constexpr int INPUT_BTN_2 = 258;
constexpr int INPUT_BTN_3 = 259;
constexpr int INPUT_BTN_TOUCH = 330;

// Axes.
constexpr int INPUT_ABS_X = 0;
constexpr int INPUT_ABS_Y = 1;
constexpr int INPUT_ABS_PRESSURE = 24;
