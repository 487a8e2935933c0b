#include "vreg_linux/vreg_linux.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "attr/attr.h"
#include "scf/scf.h"
#include "vreg/vreg.h"

namespace {

constexpr const char* DEBUGFS = "/sys/kernel/debug/regulator";
constexpr int UV_A_MV = 1000;

// The path of an attribute of a regulator; empty for a name that can't be one, so that it won't open.
std::string attr_path(const char* name, const char* attr)
{
    if (name == nullptr || name[0] == '\0' || std::strchr(name, '/') != nullptr)
        return "";
    return std::string(DEBUGFS) + '/' + name + '/' + attr;
}

int write_number(const char* name, const char* attr, int value)
{
    return attr_write(attr_path(name, attr).c_str(), std::to_string(value).c_str());
}

int read_mv(const char* name, const std::string& attr, int* p_mv)
{
    char text[33];
    const int result = attr_read(attr_path(name, attr.c_str()).c_str(), text, sizeof text);
    if (result == ATTR_OK)
        *p_mv = static_cast<int>(std::strtol(text, nullptr, 10) / UV_A_MV);
    return result;
}

int vreg_linux_set_level(const char* name, int mv)
{
    const long long uv = static_cast<long long>(mv) * UV_A_MV;
    char text[48];
    std::snprintf(text, sizeof text, "%lld %lld", uv, uv);
    return attr_write(attr_path(name, "voltage").c_str(), text);
}

int vreg_linux_get_level(const char* name, int* p_lvl, int* p_min, int* p_max)
{
    int result = read_mv(name, "voltage", p_lvl);
    if (result == ATTR_OK)
        result = read_mv(name, std::string(name) + "/min_uV", p_min);
    if (result == ATTR_OK)
        result = read_mv(name, std::string(name) + "/max_uV", p_max);
    return result;
}

// A regulator that nobody has set yet has no vote: its level is voted for before it is switched on.
int vreg_linux_enable(const char* name)
{
    int level;
    int min;
    int max;
    if (vreg_linux_get_level(name, &level, &min, &max) == ATTR_OK) {
        const int result = vreg_linux_set_level(name, level);
        if (result != ATTR_OK)
            return result;
    }
    return write_number(name, "enable", 1);
}

int vreg_linux_disable(const char* name)
{
    return write_number(name, "enable", 0);
}

int vreg_linux_set_mode(const char* name, int mode)
{
    return write_number(name, "mode", mode);
}

int vreg_linux_get_name(int index, char* p_buf, std::size_t size)
{
    char path[64];
    std::snprintf(path, sizeof path, "/sys/class/regulator/regulator.%d/name", index);
    const int result = attr_read(path, p_buf, size);
    scf_clean(p_buf, "\r\n");
    return result;
}

// clang-format off
constexpr vreg_co vreg_linux_co = {
    .enable    = vreg_linux_enable,
    .disable   = vreg_linux_disable,
    .set_level = vreg_linux_set_level,
    .get_level = vreg_linux_get_level,
    .set_mode  = vreg_linux_set_mode,
    .get_name  = vreg_linux_get_name,
};
// clang-format on

} // namespace

void vreg_linux_init()
{
    vreg_cmd_co_attach(&vreg_linux_co);
}
