#include "fuelgauge_pm8941/fuelgauge_pm8941.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "attr/attr.h"
#include "fuelgauge/fuelgauge.h"
#include "plat/plat.h"

namespace {

constexpr const char* DEVICES = "/sys/devices";
constexpr const char* CONVERTER = "qpnp-iadc-"; // the kernel numbers it freely

// The text of the calibration attribute, which calibrates by being read. False when no converter has one.
bool calibrate(char* p_text, std::size_t size)
{
    DIR* const dir = plat_opendir(DEVICES);
    if (dir == nullptr)
        return false;
    int result = ATTR_NO_FILE;
    while (const dirent* const p_entry = plat_readdir(dir)) {
        if (std::strncmp(p_entry->d_name, CONVERTER, std::strlen(CONVERTER)) != 0)
            continue;
        char path[sizeof p_entry->d_name + 32];
        std::snprintf(path, sizeof path, "%s/%s/calib_ccadc", DEVICES, p_entry->d_name);
        result = attr_read(path, p_text, size);
        if (result != ATTR_NO_FILE)
            break;
    }
    plat_closedir(dir);
    return result == ATTR_OK;
}

int fuelgauge_pm8941_cal()
{
    char text[32];
    if (!calibrate(text, sizeof text))
        return FUELGAUGE_FAILED;
    char* end;
    const long value = std::strtol(text, &end, 0);
    return end != text && static_cast<std::uint8_t>(value) == 0 ? FUELGAUGE_DONE : FUELGAUGE_FAILED;
}

} // namespace

void fuelgauge_pm8941_init()
{
    fg_co gauge{};
    gauge.calibrate = fuelgauge_pm8941_cal;
    fuelgauge_cmd_co_attach(&gauge);
}
