#include "s_qat_korvat/s_qat_korvat.h"

#include <string>
#include <string_view>

#include "audio_wcd9320/audio_wcd9320.h"
#include "autoinit/autoinit.h"
#include "autopoff/autopoff.h"
#include "battery/battery.h"
#include "board_maps.h"
#include "camconf/camconf.h"
#include "cfg/cfg.h"
#include "chargemon/chargemon.h"
#include "cio_tty/cio_tty.h"
#include "cio_v2/cio.h"
#include "core/core.h"
#include "dcp/dcp.h"
#include "ftm_linux/ftm_linux.h"
#include "gpio_linux/gpio_linux.h"
#include "hwp/hwp.h"
#include "i2c/i2c.h"
#include "irda_rpm841/irda_rpm841.h"
#include "light/light.h"
#include "luigi/luigi.h"
#include "nfc_pn65/nfc_pn65.h"
#include "pin/pin.h"
#include "plat/plat.h"
#include "rev/rev.h"
#include "rfbv/rfbv.h"
#include "screenconf/screenconf.h"
#include "syscfg/syscfg.h"
#include "ta_generic/ta_generic.h"
#include "tiers.h"
#include "tmr/tmr.h"
#include "touch_v2/touch.h"
#include "trc/trc.h"
#include "trim/trim.h"
#include "usb/usb.h"
#include "usb_linux/usb_linux.h"
#include "wcn3680_linux/wcn3680_linux.h"

namespace {

constexpr const char* START_LINE = "echo \"Korvat HVT is starting up...\" > /dev/kmsg";
constexpr const char* VMRK_REV = "@(#) s_qat_korvat_1_32_2_5_b";

constexpr int LIGHT_GREEN = 2; // subzone: the program is alive

constexpr const char* NV_FILE = "/system/etc/firmware/wlan/prima/korvat_WCNSS_qcom_wlan_nv.bin";
constexpr const char* NV_FILE_SELLA = "/system/etc/firmware/wlan/prima/korvat_sella_WCNSS_qcom_wlan_nv.bin";

constexpr hwp board_hwp = {0, 0, 1};

rev_rec rev_vmrk, rev_date, rev_time, space_num;
cio cio_clnt;
char cmd_ln[32768];
cio_tty_config cio_tty_cfg = {nullptr, 115200};

constexpr std::string_view GREETING_OK = "TP,OK\r\n";
usb_linux_config usb_linux_cfg = {"/sys/devices/virtual/android_usb/android0/state", "CONFIGURED",
                                  "DISCONNECTED", nullptr};
usb_listener usb_tpok_con = {{nullptr}, USB_EVT_CONNECTED, nullptr};
usb_listener usb_tpok_discon = {{nullptr}, USB_EVT_DISCONNECTED, nullptr};

std::span<const s_setting> open_settings;

// Text of the trace goes to the console as it is.
void s_trc_print_release(const char* text, int len)
{
    cio_wr(&cio_clnt, text, static_cast<std::size_t>(len));
}

bool s_dev_exist(const char* path)
{
    const int fd = plat_open(path, O_RDWR);
    if (fd < 0)
        return false;
    plat_close(fd);
    return true;
}

// What the program says of itself; `rev` is the second table of the command list.
void s_rev_init()
{
    rev_init();
    rev_add(&rev_vmrk, "vmrk_rev", VMRK_REV);
    rev_add(&rev_date, "bld_date", __DATE__);
    rev_add(&rev_time, "bld_time", __TIME__);
}

// The console is on the second serial port where the phone has one.
void s_cfg_comm_path()
{
    cio_tty_cfg.path = s_dev_exist("/dev/ttyGS1") ? "/dev/ttyGS1" : "/dev/ttyGS0";
}

// What the product leaves open. A setting of another type than its key has would stop the program.
void s_cfg_open_init()
{
    for (const s_setting& setting : open_settings) {
        const int type = setting.text != nullptr ? CFG_TYPE_STR : CFG_TYPE_INT;
        const cfg_item* p_item = cfg_find(setting.module, setting.key);
        if (p_item != nullptr && p_item->type != type)
            plat_system((std::string("echo \"QAT: setting ") + setting.module + " " + setting.key +
                         (p_item->type == CFG_TYPE_STR ? " wants a text" : " wants a number") +
                         "\" > /dev/kmsg")
                            .c_str());
        else if (setting.text != nullptr)
            cfg_set_str(setting.module, setting.key, setting.text);
        else
            cfg_set_int(setting.module, setting.key, setting.number);
    }
}

// What differs from board to board.
void s_cfg_init()
{
    hwp_init();
    hwp old;
    hwp_set(&old, board_hwp.family, board_hwp.model, board_hwp.rev);
    hwp own;
    hwp_get(&own);
    const cfg_map_row& map = s_cfg_map(own);
    pin_map_set(map.pins.get, map.pins.rev);
    trim_map_set(map.trims.get, map.trims.rev);
    light_map_set(light_map_tab);
    i2c_cfg(i2c_cfg_tab);
    cfg_set_int("f_poff", "param1_delay", 1);
    screenconf_set(SCREEN_MAIN, &screenconf_main);
    screenconf_set(SCREEN_HDMI, &screenconf_hdmi);
    s_cfg_camera();
    touch_add_cfg(&touch_config_data);
    battery_set_cfg(&board_battery_cfg);
    chargemon_set_cfg(&chmon_cfg);
    cfg_set_str("luigi", "start_key", "/system/scripts/start_korvat.lua");
    cfg_set_str("luigi", "stop_key", "/system/scripts/stop.lua");
    cfg_set_int("luigi", "canvas_padding", 8);
    cfg_set_int("luigi", "button_padding", 30);
    nfc_pn65_conf(nfc_cfg);
    cfg_set_str("sdcard_de", "mmc_dev", "/dev/block/mmcblk1p1");
    cfg_set_str("screen_brenk", "panel_debugfs", "/sys/kernel/debug/mdss_dsi_panel");
    cfg_set_str("screenconf", "main_fb_id", screenconf_main.fb_id);
    cfg_set_str("usb_linux", "uevent_path", "/devices/virtual/android_usb/android0");
    s_cfg_open_init();
    screenconf_main.fb_id = cfg_get_str("screenconf", "main_fb_id", nullptr);
    usb_linux_cfg.uevent_path = cfg_get_str("usb_linux", "uevent_path", nullptr);
}

// Two of the RF band variants have calibration data of their own.
void s_cfg_wlan()
{
    char variant[32];
    const bool known = rfbv_get_config(variant, sizeof variant) != 0;
    const bool sella = known && (std::string_view(variant) == "L1234578_20W12458" ||
                                 std::string_view(variant) == "L124578_17W12458");
    cfg_set_str("wcn3680_linux", "wlan_nv_file_path", sella ? NV_FILE_SELLA : NV_FILE);
}

void usb_cb_tpok_con(unsigned event);

void usb_cb_tpok_discon(unsigned)
{
    usb_evt_detach(&usb_tpok_discon);
    usb_evt_attach(&usb_tpok_con, usb_cb_tpok_con);
}

// Each new connection is greeted once, past the parser and its rules for responses.
void usb_cb_tpok_con(unsigned)
{
    usb_evt_detach(&usb_tpok_con);
    cio_wr(&cio_clnt, GREETING_OK.data(), GREETING_OK.size());
    usb_evt_attach(&usb_tpok_discon, usb_cb_tpok_discon);
}

// The start-up sequence. The order is fixed: later steps rely on earlier ones. A step that fails is passed
// over, since a phone with a dead part must still be testable.
int s_entry(int, char**)
{
    plat_system(START_LINE);
    s_rev_init();
    core_init();
    autoinit(tier_initcompif, tier_initcomp, tier_initcompcmd);
    trc_print_co_attach(s_trc_print_release);
    s_cfg_comm_path();
    s_cfg_init();
    rev_add(&space_num, "space_num", "8842-1170");
    cio_s3_set(',', '\r');
    cio_s4_set(0, '\n', 0);
    dcp_case_set(0);
    gpio_linux_init(PIN_GRP_GPIO);
    audio_wcd9320_init(AUDIO_WCD9320_SPEAKER_DRIVER, 6);
    cfg_set_int("audio_wcd9320", "internal_micbias", 1);
    cfg_set_str("mpvc", "debug_fs_vad", "/sys/kernel/debug/wcd9xxx_plug_detect");
    cfg_set_int("mpvc", "hs_det_value", 1);
    cfg_set_str("audio", "debug_fs_plug_detect", "/sys/kernel/debug/wcd9xxx_plug_detect");
    ta_generic_init(TA_OPTION_LOW_UNITS);
    ftm_start();
    cio_init(&cio_clnt, cmd_ln, sizeof cmd_ln, "console", "tty", &cio_tty_cfg, nullptr);
    cio_start(&cio_clnt);
    light_set(LIGHT_ZONE_MMI, LIGHT_GREEN, 255);
    usb_linux_set_cfg(&usb_linux_cfg);
    usb_evt_attach(&usb_tpok_con, usb_cb_tpok_con);
    autopoff_start();
    usb_start();
    chargemon_start();
    rfbv_setup();
    irda_rpm841_conf("/dev/irda", "/dev/ttyHSL2");
    s_cfg_wlan();
    wcn3680_linux_wake_up_wcnss();
    cfg_set_str("sii8334", "use_debugfs", "/sys/kernel/debug/mdss_mhl/");
    syscfg_set_mode(0);
    return core_start();
}

} // namespace

void s_set_open(std::span<const s_setting> settings)
{
    open_settings = settings;
}

void s_watch_print(void (*fn)(std::string_view text))
{
    luigi_watch_print(fn);
}

int s_main(int argc, char** argv)
{
    dcp_init();
    tmr_init();
    autoinit_init();
    s_entry(argc, argv);
    return 0;
}
