#include "core/parts.h"

#include "audio/card.h"
#include "audio/codec.h"
#include "audio/jack.h"
#include "audio/sound_tools.h"
#include "board/converters.h"
#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "board/processor.h"
#include "board/regulators.h"
#include "board/rtc.h"
#include "board/spmi.h"
#include "camera/service.h"
#include "contactless/cards.h"
#include "contactless/pn65.h"
#include "contactless/qxr5170jvk.h"
#include "core/clock.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/log.h"
#include "core/notice.h"
#include "core/record.h"
#include "core/toolbox.h"
#include "core/uevents.h"
#include "core/watch.h"
#include "diag/diag.h"
#include "display/framebuffer.h"
#include "display/hdmi.h"
#include "display/input.h"
#include "display/leds.h"
#include "display/max11876.h"
#include "display/panel.h"
#include "display/scripts.h"
#include "display/sink.h"
#include "display/touch_panel.h"
#include "power/battery.h"
#include "radio/hci.h"
#include "radio/hci_tools.h"
#include "radio/irda.h"
#include "radio/sim.h"
#include "radio/wlan.h"
#include "runtime/insmod.h"
#include "runtime/kmsg.h"
#include "runtime/tools.h"
#include "sensors/ak8963.h"
#include "sensors/apds9930.h"
#include "sensors/bmi055.h"
#include "sensors/motor.h"
#include "sensors/surroundings.h"
#include "shell/port.h"
#include "shell/usb_state.h"
#include "store/card.h"
#include "store/store.h"
#include "tuner/air.h"
#include "tuner/demux.h"
#include "tuner/mn88552.h"
#include "tuner/tuner_driver.h"
#include "versions/proc.h"

namespace phone {

namespace {

// clang-format off
constexpr phone_part parts[] = {
    // name     attach           seed              start
    { "log",    log_attach,      nullptr,          nullptr },
    { "control", control_attach, nullptr,          nullptr },
    { "notice", notice_attach,   nullptr,          nullptr },
    { "files",  files_attach,    nullptr,          nullptr },
    { "clock",  clock_words_attach, nullptr,       nullptr },
    { "watch",  watch_attach,    nullptr,          nullptr },
    { "record", record_attach,   nullptr,          nullptr },
    { "conf",   conf_attach,     nullptr,          nullptr },
    { "shell",  toolbox_attach,  nullptr,          nullptr },
    { "tools",  tools_attach,    nullptr,          nullptr },
    { "uevent", uevents_attach,  nullptr,          nullptr },
    { "kmsg",   kmsg_attach,     nullptr,          nullptr },
    { "proc",   nullptr,         proc_seed,        nullptr },
    { "diag",   diag_attach,     nullptr,          nullptr },
    { "usb",    port_attach,     usb_state_seed,   nullptr },
    { "gpio",   gpio_attach,     nullptr,          nullptr },
    { "i2c",    i2c_attach,      nullptr,          nullptr },
    { "spmi",   spmi_attach,     spmi_seed,        spmi_start },
    { "battery", battery_attach, battery_seed,     battery_start },
    { "vreg",   regulators_attach, regulators_seed,  nullptr },
    { "adc",    nullptr,         converters_seed,  nullptr },
    { "cpu",    nullptr,         processor_seed,   nullptr },
    { "rtc",    rtc_attach,      nullptr,          rtc_start },
    { "store",  store_attach,    store_seed,       nullptr },
    { "insmod", insmod_attach,   nullptr,          nullptr },
    { "input",  input_attach,    nullptr,          nullptr },
    { "touch",  touch_panel_attach, touch_panel_seed, touch_panel_start },
    { "matrix", max11876_attach, max11876_seed,    max11876_start },
    { "menu",   nullptr,         scripts_seed,     nullptr },
    { "leds",   leds_attach,     leds_seed,        nullptr },
    { "fb",     framebuffer_attach, nullptr,       framebuffer_start },
    { "camera", camera_attach,   camera_seed,      camera_start },
    { "panel",  panel_attach,    panel_seed,       nullptr },
    { "hdmi",   hdmi_attach,     hdmi_seed,        nullptr },
    { "sink",   sink_attach,     sink_seed,        sink_start },
    { "card",   card_attach,     nullptr,          card_start },
    { "sim",    sim_attach,      nullptr,          nullptr },
    { "wlan",   wlan_attach,     wlan_seed,        nullptr },
    { "hci",    hci_attach,      hci_seed,         nullptr },
    { "hcitool", hci_tools_attach, nullptr,        nullptr },
    { "irda",   irda_attach,     nullptr,          nullptr },
    { "sound",  sound_attach,    nullptr,          sound_start },
    { "codec",  codec_attach,    codec_seed,       nullptr },
    { "jack",   jack_attach,     jack_seed,        jack_start },
    { "arec",   sound_tools_attach, nullptr,       nullptr },
    { "cards",  cards_attach,    nullptr,          nullptr },
    { "pn65",   pn65_attach,     nullptr,          nullptr },
    { "tamiro", qxr5170jvk_attach, nullptr,        nullptr },
    { "pn65dl", pn65_download_attach, nullptr,     nullptr },
    { "truth",  surroundings_attach, nullptr,      surroundings_start },
    { "motor",  motor_attach,    motor_seed,       motor_start },
    { "bmi055", bmi055_attach,   nullptr,          nullptr },
    { "ak8963", ak8963_attach,   nullptr,          nullptr },
    { "apds",   apds9930_attach, nullptr,          nullptr },
    { "air",    air_attach,      nullptr,          nullptr },
    { "tuner",  mn88552_attach,  nullptr,          nullptr },
    { "mmtuner", tuner_driver_attach, tuner_driver_seed, nullptr },
    { "demux",  demux_attach,    nullptr,          nullptr },
};
// clang-format on

} // namespace

constinit const std::span<const phone_part> phone_parts = parts;

} // namespace phone
