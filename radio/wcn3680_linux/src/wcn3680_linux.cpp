#include "wcn3680_linux/wcn3680_linux.h"

#include "cfg/cfg.h"
#include "plat/plat.h"
#include "wcn3680_inner.h"

namespace {

// The radio's processor looks for its calibration file here.
constexpr const char* NV_LINK = "/system/etc/firmware/wlan/prima/WCNSS_qcom_wlan_nv.bin";
constexpr const char* REMOVE_NV_LINK = "rm /system/etc/firmware/wlan/prima/WCNSS_qcom_wlan_nv.bin";
constexpr const char* WAKE_UP = "echo 1 > /dev/wcnss_wlan";

} // namespace

void wcn3680_linux_init()
{
    wcn3680_bt_linux_init();
    wcn3680_fm_linux_init();
    wcn3680_wlan_linux_init();
}

void wcn3680_linux_wake_up_wcnss()
{
    const char* const nv_file = cfg_get_str("wcn3680_linux", "wlan_nv_file_path", nullptr);
    if (nv_file == nullptr)
        return;
    plat_system(REMOVE_NV_LINK);
    plat_symlink(nv_file, NV_LINK);
    plat_system(WAKE_UP);
}
