#include "luigi_config.h"

#include "cfg/cfg.h"

luigi_settings luigi_config = {
    .scripts_path = "/system/scripts/",
    .canvas_padding = 6,
    .button_padding = 15,
    .label_padding = 4,
    .button_back_color = 0xC0C0C0,
    .button_border_color = 0,
    .button_text_color_pressed = 0xFF0000,
};

void luigi_config_init()
{
    luigi_settings& c = luigi_config;
    const auto take = [](const char* key, std::uint32_t& value) { value = cfg_get_int("luigi", key, value); };
    c.scripts_path = cfg_get_str("luigi", "scripts_path", c.scripts_path);
    take("canvas_padding", c.canvas_padding);
    take("button_padding", c.button_padding);
    take("label_padding", c.label_padding);
    take("button_back_color", c.button_back_color);
    take("button_border_color", c.button_border_color);
    take("button_text_color_pressed", c.button_text_color_pressed);
}
