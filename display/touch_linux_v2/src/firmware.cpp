#include "firmware.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "plat/plat.h"

namespace {

constexpr unsigned long REQUEST_HWINFO = 0x800C740C;
constexpr unsigned long REQUEST_DOWNLOAD = 0x4004740D;
constexpr std::size_t MOST_PATH = 128;

// Vendors differ in the name by which their driver looks for firmware.
constexpr std::uint8_t VENDOR_BY_MODULE = 1;
constexpr std::uint8_t VENDOR_FIXED = 2;
constexpr const char* FIXED_NAME = "touch_fw_hvt.bin";

// As the driver gives it.
struct hwinfo_layout {
    std::uint8_t vendor;
    std::uint8_t unused1;
    std::uint16_t chip_id;
    std::uint16_t config_id;
    std::uint16_t unused2;
    std::uint32_t fw_version;
};
static_assert(sizeof(hwinfo_layout) == 12);

// The file for the controller's identity; empty when there is none.
std::string fitting_file(const touch_config* p_cfg)
{
    touch_hwinfo info;
    if (p_cfg->modid_info == nullptr || p_cfg->fw_dir == nullptr || touch_linux_hwinfo(p_cfg, &info) == 0)
        return {};
    const std::uint32_t id = static_cast<std::uint32_t>(info.chip_id) << 16 | info.config_id;
    for (const touch_modid* p_row = p_cfg->modid_info; p_row->file != nullptr; p_row++)
        if (p_row->id == id)
            return std::string(p_cfg->fw_dir) + p_row->file;
    return {};
}

// Whether both paths name the same entry of the same folder, however that is written.
bool same_entry(const std::string& a, const std::string& b)
{
    const std::size_t name_a = a.rfind('/') + 1;
    const std::size_t name_b = b.rfind('/') + 1;
    struct stat dir_a, dir_b;
    return a.compare(name_a, a.npos, b, name_b, b.npos) == 0 &&
           plat_stat((a.substr(0, name_a) + ".").c_str(), &dir_a) == 0 &&
           plat_stat((b.substr(0, name_b) + ".").c_str(), &dir_b) == 0 && dir_a.st_dev == dir_b.st_dev &&
           dir_a.st_ino == dir_b.st_ino;
}

// Puts a link named `link` to the firmware, in the place of what may be there: unless that is the firmware
// itself.
bool replace_link(const std::string& link, const std::string& file)
{
    if (same_entry(link, file))
        return true;
    plat_unlink(link.c_str());
    return plat_access(link.c_str(), F_OK) != 0 && plat_symlink(file.c_str(), link.c_str()) == 0;
}

// Makes the file known under the name that the vendor's driver looks for, which goes to `base`.
bool publish(const touch_config* p_cfg, const touch_hwinfo& info, const std::string& file, std::string& base)
{
    const std::string dir = p_cfg->fw_dir != nullptr ? p_cfg->fw_dir : "";
    if (info.vendor == VENDOR_BY_MODULE) {
        char name[48];
        std::snprintf(name, sizeof name, "touch_module_id_0x%02x.img", static_cast<unsigned>(info.config_id));
        return replace_link(dir + name, file);
    }
    if (info.vendor == VENDOR_FIXED && file.compare(0, 4, dir, 0, 4) != 0) {
        base = FIXED_NAME;
        return replace_link(dir + base, file);
    }
    return true;
}

int run_command(const touch_config* p_cfg, const touch_hwinfo& info)
{
    char id[16];
    std::snprintf(id, sizeof id, " 0x%02x", static_cast<unsigned>(info.config_id));
    return plat_system((std::string(p_cfg->fw_cmd) + id).c_str()) == 0 ? 1 : 0;
}

} // namespace

int touch_linux_ctrl(const touch_config* p_cfg, unsigned long request, void* arg)
{
    const int fd = p_cfg->ctrl_path != nullptr ? plat_open(p_cfg->ctrl_path, O_RDONLY | O_CLOEXEC) : -1;
    if (fd < 0)
        return 0;
    const int result = plat_ioctl(fd, request, arg);
    plat_close(fd);
    return result >= 0 ? 1 : 0;
}

int touch_linux_hwinfo(const touch_config* p_cfg, touch_hwinfo* p_info)
{
    hwinfo_layout info{};
    if (touch_linux_ctrl(p_cfg, REQUEST_HWINFO, &info) == 0)
        return 0;
    *p_info = {info.vendor, info.chip_id, info.config_id, info.fw_version};
    return 1;
}

int touch_linux_download(const touch_config* p_cfg, const char* path)
{
    if (p_cfg->fw_method == TOUCH_FW_NONE || (path != nullptr && std::strlen(path) > MOST_PATH))
        return 0;
    const std::string file = path != nullptr ? path : fitting_file(p_cfg);
    touch_hwinfo info;
    if (file.empty() || plat_access(file.c_str(), F_OK) != 0 || touch_linux_hwinfo(p_cfg, &info) == 0)
        return 0;
    std::string base = file.substr(file.rfind('/') + 1);
    if (!publish(p_cfg, info, file, base))
        return 0;
    if (p_cfg->fw_method == TOUCH_FW_COMMAND && p_cfg->fw_cmd != nullptr)
        return run_command(p_cfg, info);
    return p_cfg->fw_method == TOUCH_FW_IOCTL ? touch_linux_ctrl(p_cfg, REQUEST_DOWNLOAD, base.data()) : 0;
}
