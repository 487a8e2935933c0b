// The order within each tier is fixed: it is the order in which command tables are searched and listed, and
// drivers rely on what stands before them. A module that isn't built yet has no line.
#include "tiers.h"

#include "aclmr/aclmr.h"
#include "aclmr_bmi055/aclmr_bmi055.h"
#include "adc/adc.h"
#include "adcr/adcr.h"
#include "adcr_brenk/adcr_brenk.h"
#include "als/als.h"
#include "als_apds_9930/als_apds_9930.h"
#include "alsa/alsa.h"
#include "audio_v2/audio.h"
#include "autopoff/autopoff.h"
#include "backcap/backcap.h"
#include "backcap_qpnp/backcap_qpnp.h"
#include "battery/battery.h"
#include "bmp/bmp.h"
#include "bt/bt.h"
#include "camconf/camconf.h"
#include "camera/camera.h"
#include "camera_durnspire/camera_durnspire.h"
#include "camera_durnspire_qualcomm/camera_durnspire_qualcomm.h"
#include "cfg/cfg.h"
#include "charge/charge.h"
#include "charge_qpnp/charge_qpnp.h"
#include "chargemon/chargemon.h"
#include "cio_stdio/cio_stdio.h"
#include "cio_tty/cio_tty.h"
#include "cio_v2/cio.h"
#include "compass/compass.h"
#include "compass_ak8963/compass_ak8963.h"
#include "f_aclmr_v2/f_aclmr.h"
#include "f_adcr/f_adcr.h"
#include "f_als/f_als.h"
#include "f_audio_v2/f_audio.h"
#include "f_backcap/f_backcap.h"
#include "f_battery/f_battery.h"
#include "f_bt/f_bt.h"
#include "f_camera/f_camera.h"
#include "f_card/f_card.h"
#include "f_charge/f_charge.h"
#include "f_compass/f_compass.h"
#include "f_fm/f_fm.h"
#include "f_ftm/f_ftm.h"
#include "f_ftm_gps_gen8/f_ftm_gps_gen8.h"
#include "f_fuelgauge/f_fuelgauge.h"
#include "f_gyro_v2/f_gyro.h"
#include "f_hdmi/f_hdmi.h"
#include "f_i2c/f_i2c.h"
#include "f_irda/f_irda.h"
#include "f_isdb/f_isdb.h"
#include "f_kbd/f_kbd.h"
#include "f_kill/f_kill.h"
#include "f_light/f_light.h"
#include "f_mdml/f_mdml.h"
#include "f_mhl/f_mhl.h"
#include "f_modem/f_modem.h"
#include "f_mpvc/f_mpvc.h"
#include "f_msm/f_msm.h"
#include "f_nfc/f_nfc.h"
#include "f_poff/f_poff.h"
#include "f_pp/f_pp.h"
#include "f_prox/f_prox.h"
#include "f_qat/f_qat.h"
#include "f_rfbv/f_rfbv.h"
#include "f_rtc/f_rtc.h"
#include "f_screen/f_screen.h"
#include "f_sim/f_sim.h"
#include "f_smps/f_smps.h"
#include "f_spmi/f_spmi.h"
#include "f_syscfg/f_syscfg.h"
#include "f_ta/f_ta.h"
#include "f_temp/f_temp.h"
#include "f_touch_v2/f_touch.h"
#include "f_usb/f_usb.h"
#include "f_vibrator/f_vibrator.h"
#include "f_wlan/f_wlan.h"
#include "file_linux/file_linux.h"
#include "fm/fm.h"
#include "fsm/fsm.h"
#include "ftm_linux/ftm_linux.h"
#include "fuelgauge/fuelgauge.h"
#include "fuelgauge_pm8941/fuelgauge_pm8941.h"
#include "gyro/gyro.h"
#include "gyro_bmi055/gyro_bmi055.h"
#include "hdmi/hdmi.h"
#include "hdmi_msm/hdmi_msm.h"
#include "i2c/i2c.h"
#include "irda/irda.h"
#include "irda_rpm841/irda_rpm841.h"
#include "isdb/isdb.h"
#include "isdb_ej113/isdb_ej113.h"
#include "kbd/kbd.h"
#include "kbd_qpnp/kbd_qpnp.h"
#include "light/light.h"
#include "light_linux/light_linux.h"
#include "light_pm8941/light_pm8941.h"
#include "luigi/luigi.h"
#include "mdml/mdml.h"
#include "mhl/mhl.h"
#include "mhl_sii8334/mhl_sii8334.h"
#include "modem/modem.h"
#include "modem_brenk/modem_brenk.h"
#include "mpvc/mpvc.h"
#include "mpvc_brenk/mpvc_brenk.h"
#include "msm/msm.h"
#include "msm_linux/msm_linux.h"
#include "nfc/nfc.h"
#include "nfc_pn65/nfc_pn65.h"
#include "nfc_pn65_fw_dnld/nfc_pn65_fw_dnld.h"
#include "nfc_tamiro_qxr5170jvk_brenk/nfc_tamiro_qxr5170jvk_brenk.h"
#include "pin/pin.h"
#include "prx/prx.h"
#include "prx_apds_9930/prx_apds_9930.h"
#include "pwrsupply_linux/pwrsupply_linux.h"
#include "queue/queue.h"
#include "rfbv/rfbv.h"
#include "rfbv_brenk/rfbv_brenk.h"
#include "rtc/rtc.h"
#include "rtc_linux/rtc_linux.h"
#include "screen/screen.h"
#include "screen_brenk/screen_brenk.h"
#include "screen_linux/screen_linux.h"
#include "screenconf/screenconf.h"
#include "sdcard/sdcard.h"
#include "sdcard_de/sdcard_de.h"
#include "sim/sim.h"
#include "sim_brenk/sim_brenk.h"
#include "smps/smps.h"
#include "smps_brenk/smps_brenk.h"
#include "spmi/spmi.h"
#include "spmi_linux/spmi_linux.h"
#include "syscfg/syscfg.h"
#include "syscfg_brenk/syscfg_brenk.h"
#include "t_vers/t_vers.h"
#include "t_vreg/t_vreg.h"
#include "ta/ta.h"
#include "touch_linux_v2/touch_linux.h"
#include "touch_max11876/touch_max11876.h"
#include "touch_v2/touch.h"
#include "trim/trim.h"
#include "uevent/uevent.h"
#include "usb/usb.h"
#include "usb_linux/usb_linux.h"
#include "vers/vers.h"
#include "vers_amss/vers_amss.h"
#include "vers_linux/vers_linux.h"
#include "vibrator/vibrator.h"
#include "vibrator_generic/vibrator_generic.h"
#include "vreg/vreg.h"
#include "vreg_linux/vreg_linux.h"
#include "wcn3680_linux/wcn3680_linux.h"
#include "wlan/wlan.h"

namespace {

// clang-format off
// Interfaces: clear their state, set up their lists, open what they alone own.
constexpr autoinit_entry initcompif[] = {
    aclmr_init,
    adc_init,
    adcr_init,
    als_init,
    alsa_init,
    audio_init,
    backcap_init,
    battery_init,
    bt_init,
    camconf_init,
    camera_init,
    charge_init,
    cio_dev_init,
    compass_init,
    fuelgauge_init,
    file_init,
    fm_init,
    fsm_init,
    gyro_init,
    hdmi_init,
    irda_init,
    isdb_init,
    kbd_init,
    light_init,
    mdml_init,
    mhl_init,
    mpvc_init,
    modem_init,
    nfc_init,
    pin_init,
    prx_init,
    msm_init,
    rfbv_init,
    rtc_init,
    screen_init,
    screenconf_init,
    sdcard_init,
    sim_init,
    smps_init,
    spmi_init,
    syscfg_init,
    ta_if_init,
    touch_init,
    trim_init,
    uevent_init,
    usb_init,
    vers_init,
    vibrator_init,
    vreg_init,
    wlan_init,
};

// Drivers, which attach a callout table to their interface, and modules that need no driver.
constexpr autoinit_entry initcomp[] = {
    aclmr_bmi055_init,
    adcr_brenk_init,
    als_apds_9930_init,
    autopoff_init,
    backcap_qpnp_init,
    bmp_init,
    cfg_init,
    camera_durnspire_init,
    camera_durnspire_qualcomm_init,
    charge_qpnp_init,
    chargemon_init,
    cio_stdio_init,
    cio_tty_init,
    compass_ak8963_init,
    fuelgauge_pm8941_init,
    ftm_init,
    gyro_bmi055_init,
    hdmi_msm_init,
    i2c_init,
    isdb_ej113_init,
    kbd_qpnp_init,
    light_linux_init,
    light_pm8941_init,
    luigi_init,
    mhl_sii8334_init,
    mpvc_brenk_init,
    modem_brenk_init,
    nfc_tamiro_qxr5170jvk_brenk_init,
    nfc_pn65_init,
    nfc_pn65_fw_dnld_init,
    prx_apds_9930_init,
    msm_linux_init,
    pwrsupply_linux_init,
    queue_init,
    rtc_linux_init,
    screen_linux_init,
    screen_brenk_init,
    sdcard_de_init,
    sim_brenk_init,
    smps_brenk_init,
    spmi_linux_init,
    syscfg_brenk_init,
    touch_linux_init,
    touch_max11876_init,
    usb_linux_init,
    vers_amss_init,
    vers_linux_init,
    vibrator_generic_init,
    vreg_linux_init,
    wcn3680_linux_init,
};

// Commands: add a command table.
constexpr autoinit_entry initcompcmd[] = {
    cio_cmd_init,
    f_aclmr_init,
    f_adcr_init,
    f_als_init,
    f_audio_init,
    f_qat_init,
    f_backcap_init,
    f_battery_init,
    f_bt_init,
    f_camera_init,
    f_card_init,
    f_charge_init,
    f_compass_init,
    f_fuelgauge_init,
    f_fm_init,
    f_ftm_init,
    f_ftm_gps_init,
    f_gyro_init,
    f_hdmi_init,
    f_i2c_init,
    f_irda_init,
    f_isdb_init,
    f_kbd_init,
    f_kill_init,
    f_light_init,
    f_mdml_init,
    f_mhl_init,
    f_mpvc_init,
    f_modem_init,
    f_nfc_init,
    f_poff_init,
    f_pp_init,
    f_prox_init,
    f_msm_init,
    f_rfbv_init,
    f_rtc_init,
    f_screen_init,
    f_sim_init,
    f_smps_init,
    f_spmi_init,
    f_syscfg_init,
    f_ta_init,
    f_temp_init,
    f_touch_init,
    f_usb_init,
    f_vibrator_init,
    f_wlan_init,
    irda_rpm841_init,
    rfbv_brenk_init,
    t_vers_init,
    t_vreg_init,
};
// clang-format on

} // namespace

constinit const std::span<const autoinit_entry> tier_initcompif = initcompif;
constinit const std::span<const autoinit_entry> tier_initcomp = initcomp;
constinit const std::span<const autoinit_entry> tier_initcompcmd = initcompcmd;
