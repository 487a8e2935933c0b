// The trace's memory and a node for each module of the program: what stands ready for a build that traces,
// and costs one that doesn't nothing. The one list of nodes: a new module gets its line here. No function
// uses them; trc.h says who hands them in.
#pragma once

#include "trc/trc.h"

inline char trc_pool[131072];

// clang-format off
// the board module and the runtime
inline trc_node trc_s_qat_korvat_node, trc_core_node, trc_autoinit_node, trc_slnk_node, trc_dlnk_node,
    trc_rlnk_node, trc_cfg_node, trc_rev_node, trc_vers_node, trc_vers_linux_node, trc_vers_amss_node,
    trc_t_vers_node, trc_hwp_node, trc_tmr_node, trc_fsm_node, trc_queue_node, trc_scf_node,
    trc_pbuf_node, trc_f_qat_node;

// the shell
inline trc_node trc_dcp_node, trc_nav_node, trc_cio_v2_node, trc_cio_tty_node, trc_cio_stdio_node,
    trc_f_kill_node, trc_f_poff_node, trc_f_usb_node, trc_autopoff_node, trc_usb_node, trc_usb_linux_node,
    trc_uevent_node;

// board access and storage
inline trc_node trc_pin_node, trc_gpio_linux_node, trc_trim_node, trc_trim_brenk_node, trc_i2c_node,
    trc_f_i2c_node, trc_spmi_node, trc_spmi_linux_node, trc_f_spmi_node, trc_vreg_node, trc_vreg_linux_node,
    trc_t_vreg_node, trc_adc_node, trc_adcr_node, trc_adcr_brenk_node, trc_f_adcr_node, trc_f_temp_node,
    trc_msm_node, trc_msm_linux_node, trc_f_msm_node, trc_rtc_node, trc_rtc_linux_node, trc_f_rtc_node,
    trc_rfbv_node, trc_rfbv_brenk_node, trc_f_rfbv_node, trc_syscfg_node, trc_syscfg_brenk_node,
    trc_f_syscfg_node, trc_ta_node, trc_ta_generic_node, trc_f_ta_node, trc_f_pp_node, trc_file_linux_node,
    trc_sdcard_node, trc_sdcard_de_node, trc_f_card_node;

// display and menu
inline trc_node trc_screen_node, trc_screenconf_node, trc_bmp_node, trc_screen_linux_node,
    trc_screen_brenk_node, trc_f_screen_node, trc_kbd_node, trc_kbd_qpnp_node, trc_f_kbd_node,
    trc_touch_v2_node, trc_touch_linux_v2_node, trc_touch_max11876_node, trc_f_touch_v2_node,
    trc_luigi_node, trc_light_node, trc_light_linux_node, trc_light_pm8941_node, trc_f_light_node,
    trc_hdmi_node, trc_hdmi_msm_node, trc_f_hdmi_node, trc_mhl_node, trc_mhl_sii8334_node, trc_f_mhl_node;

// camera
inline trc_node trc_camera_node, trc_camconf_node, trc_camera_durnspire_node,
    trc_camera_durnspire_qualcomm_node, trc_f_camera_node;

// audio
inline trc_node trc_alsa_node, trc_audio_v2_node, trc_audio_wcd9320_node, trc_mpvc_node,
    trc_mpvc_brenk_node, trc_f_audio_v2_node, trc_f_mpvc_node;

// power
inline trc_node trc_battery_node, trc_fuelgauge_node, trc_fuelgauge_pm8941_node, trc_pwrsupply_linux_node,
    trc_f_battery_node, trc_f_fuelgauge_node, trc_charge_node, trc_charge_qpnp_node, trc_f_charge_node,
    trc_backcap_node, trc_backcap_qpnp_node, trc_f_backcap_node, trc_smps_node, trc_smps_brenk_node,
    trc_f_smps_node, trc_chargemon_node;

// sensors and vibration
inline trc_node trc_aclmr_node, trc_aclmr_bmi055_node, trc_f_aclmr_v2_node, trc_gyro_node,
    trc_gyro_bmi055_node, trc_f_gyro_v2_node, trc_compass_node, trc_compass_ak8963_node, trc_f_compass_node,
    trc_als_node, trc_als_apds_9930_node, trc_f_als_node, trc_prx_node, trc_prx_apds_9930_node,
    trc_f_prox_node, trc_vibrator_node, trc_vibrator_generic_node, trc_f_vibrator_node;

// radio
inline trc_node trc_ftm_linux_node, trc_f_ftm_node, trc_f_ftm_gps_gen8_node, trc_bt_node, trc_f_bt_node,
    trc_wlan_node, trc_f_wlan_node, trc_wcn3680_linux_node, trc_fm_node, trc_f_fm_node, trc_modem_node,
    trc_modem_brenk_node, trc_f_modem_node, trc_mdml_node, trc_f_mdml_node, trc_sim_node,
    trc_sim_brenk_node, trc_f_sim_node, trc_irda_node, trc_irda_rpm841_node, trc_f_irda_node;

// contactless
inline trc_node trc_nfc_node, trc_nfc_pn65_node, trc_nfc_pn65_fw_dnld_node,
    trc_nfc_tamiro_qxr5170jvk_brenk_node, trc_f_nfc_node;

// tuner
inline trc_node trc_isdb_node, trc_isdb_ej113_node, trc_f_isdb_node;
// clang-format on
