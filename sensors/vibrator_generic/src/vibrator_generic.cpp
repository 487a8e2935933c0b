#include "vibrator_generic/vibrator_generic.h"

#include <cstdio>

#include "attr/attr.h"
#include "cfg/cfg.h"
#include "vibrator/vibrator.h"

namespace {

constexpr const char* VIB_PATH = "/sys/hvt/hvt-vib/vib";
constexpr std::uint32_t DEFAULT_MV = 3000;

int vibrator_write(const char* text)
{
    switch (attr_write(VIB_PATH, text)) {
    case ATTR_OK:
        return 0;
    case ATTR_NO_FILE:
        return -1;
    default:
        return -2;
    }
}

int vibrator_generic_start()
{
    char text[12];
    std::snprintf(text, sizeof text, "%d",
                  static_cast<int>(cfg_get_int("vibrator_generic", "voltage", DEFAULT_MV)));
    return vibrator_write(text);
}

int vibrator_generic_stop()
{
    return vibrator_write("0");
}

// The attribute takes four characters: what is longer is cut.
int vibrator_generic_start_with_level(int, int level)
{
    if (level == VIBRATOR_DEFAULT_LEVEL)
        return vibrator_generic_start();
    char text[5];
    std::snprintf(text, sizeof text, "%d", level);
    return vibrator_write(text);
}

constexpr vibrator_co vibrator_generic_co = {
    .start = vibrator_generic_start,
    .stop = vibrator_generic_stop,
    .start_with_level = vibrator_generic_start_with_level,
    .sample_size = nullptr,
    .sample_get = nullptr,
    .sample_set = nullptr,
    .capture = nullptr,
};

} // namespace

void vibrator_generic_init()
{
    vibrator_co_attach(&vibrator_generic_co);
}
