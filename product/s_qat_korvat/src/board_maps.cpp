#include "board_maps.h"

#include <iterator>

#include "pin_brenk/pin_brenk.h"
#include "trim_brenk/trim_brenk.h"

namespace {

// clang-format off
constexpr cfg_map_row cfg_map_tab[] = {
    // family, model, rev   pins                      calibration items
    { { 0, 0, 1 },          { pin_brenk_co_get, 1 },  { trim_brenk_co_get, 1 } },
};

// chip id and configuration id, firmware
constexpr touch_modid touch_modid_info[] = {
    { 0x740460, "touch_chip_id_0x74_config_id_0x0460.bin" },
    { 0x750010, "touch_chip_id_0x75_config_id_0x0010.bin" },
    { 0x740011, "touch_chip_id_0x74_config_id_0x0011.bin" },
    { 0x750012, "touch_chip_id_0x75_config_id_0x0012.bin" },
    {},
};
// clang-format on

} // namespace

// clang-format off
const light_map_row light_map_tab[] = {
    // zone, subzone                device
    { LIGHT_ZONE_MMI,     1,        20 },   // red
    { LIGHT_ZONE_MMI,     2,        19 },   // green
    { LIGHT_ZONE_MMI,     3,        21 },   // blue
    { LIGHT_ZONE_DISPLAY, 1,         1 },   // LCD backlight
    { LIGHT_ZONE_DISPLAY, 2,         7 },   // WLED backlight
    {},
};

touch_config touch_config_data = {
    .link       = {},
    .id         = 1,
    .ctrl_path  = "/dev/max1187x_ctrl",
    .name       = "max1187x",
    .module     = "max1187x.ko",
    .load_cmd   = nullptr,
    .loaded     = 0,
    .modid_info = touch_modid_info,
    .fw_method  = TOUCH_FW_IOCTL,
    .fw_cmd     = nullptr,
    .fw_dir     = "/system/etc/firmware/",
};

const i2c_cfg_row i2c_cfg_tab[] = {
    // name              bus  address
    { "sii8334",         4,   0x00 }, // several: the driver says which
    { "pn65",            2,   0x28 },
    { "bmi055-aclm",     5,   0x18 },
    { "bmi055-gyro",     5,   0x68 },
    { "ak8963",          5,   0x0C },
    { "apds_9930-als",   5,   0x39 },
    { "apds_9930-prox",  5,   0x39 },
    { "isdb",            4,   0x69 },
    {},
};
// clang-format on

const battery_cfg board_battery_cfg = {
    .algorithm = 1,
    .model = 3,
    .ires_mohm = 135,
    .type_path =
        "/sys/class/power_supply/battery/technology", // a gate: the driver that it opens reads "type"
    .temp_path = "/sys/class/power_supply/battery/temp",
};

const chargemon_cfg chmon_cfg = [] {
    chargemon_cfg cfg{};
    cfg.preset = 6;
    cfg.capacity_mah = 2380;
    return cfg;
}();

const nfc_pn65_cfg nfc_cfg = {0xBC, 0x00, 0x00, 0x00};

const cfg_map_row& s_cfg_map(const hwp& board)
{
    for (std::size_t i = 0;; i++) {
        const cfg_map_row& row = cfg_map_tab[i];
        const bool last = i + 1 == std::size(cfg_map_tab);
        const bool last_of_family = last || cfg_map_tab[i + 1].board.family != row.board.family;
        const bool fits = row.board.family == board.family && row.board.model == board.model;
        if (last || (fits && (row.board.rev == board.rev || last_of_family)))
            return row;
    }
}

screenconf screenconf_main = {
    .load_cmd = "",
    .dev_prefix = "/dev/graphics/fb",
    .fb_id = "mdssfb_80000",
    .dev_number = 0,
    .no_startscreen = 0,
    .double_buffer = 1,
};

screenconf screenconf_hdmi = {
    .load_cmd = "",
    .dev_prefix = "/dev/graphics/fb",
    .fb_id = "mdssfb_70000",
    .dev_number = 0,
    .no_startscreen = 1,
    .double_buffer = 0,
};
