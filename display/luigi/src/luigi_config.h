// The settings of the menu, read anew at each start of one.
#pragma once

#include <cstdint>

struct luigi_settings {
    const char* scripts_path;
    std::uint32_t canvas_padding;
    std::uint32_t button_padding;
    std::uint32_t label_padding;
    std::uint32_t button_back_color;
    std::uint32_t button_border_color;
    std::uint32_t button_text_color_pressed;
};

extern luigi_settings luigi_config;

// A key that isn't set leaves its value as it was.
void luigi_config_init();
