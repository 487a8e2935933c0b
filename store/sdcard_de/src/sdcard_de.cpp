#include "sdcard_de/sdcard_de.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <sys/wait.h>

#include "cfg/cfg.h"
#include "file_linux/file_linux.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "plat/plat.h"
#include "sdcard/sdcard.h"

namespace {

constexpr char MOUNT_POINT[] = "/sdcard";
constexpr char STATFS_PATH[] = "sdcard"; // the process runs in the root directory
constexpr char FILE_SYSTEM[] = "vfat";
constexpr unsigned long MOUNT_FLAGS = 16; // MS_SYNCHRONOUS

constexpr char DEVICE_DIR[] = "/dev/block/";
constexpr char DEVICE_PREFIX[] = "mmcblk";
constexpr std::size_t DEVICE_NAME_MIN = 9; // with its number and a partition

constexpr char DD[] = "/system/bin/dd if=/dev/zero of=";
constexpr char RM[] = "/system/bin/rm ";

// The first name of a partition in the device folder; empty if there is none.
std::string first_partition()
{
    std::string found;
    file_item item;
    file_find* p_hnd = file_fnd_first(DEVICE_DIR, &item);
    for (int more = p_hnd != nullptr; more && found.empty(); more = file_fnd_next(p_hnd, &item))
        if (std::strncmp(item.name, DEVICE_PREFIX, std::strlen(DEVICE_PREFIX)) == 0 &&
            std::strlen(item.name) >= DEVICE_NAME_MIN)
            found = std::string(DEVICE_DIR) + item.name;
    if (p_hnd != nullptr)
        file_fnd_close(p_hnd);
    return found;
}

bool lcl_srch_mmc_dev(std::string* p_path)
{
    const char* device = cfg_get_str("sdcard_de", "mmc_dev", nullptr);
    *p_path = device != nullptr ? device : first_partition();
    return !p_path->empty();
}

int sdcard_de_detect_card()
{
    switch (pin_in_get(PIN_IN_CARD_DETECT)) {
    case PIN_INACTIVE:
        return 1;
    case PIN_ACTIVE:
        return 0;
    default:
        return -1;
    }
}

int lcl_mount_mmc_dev()
{
    std::string device;
    return lcl_srch_mmc_dev(&device) &&
           plat_mount(device.c_str(), MOUNT_POINT, FILE_SYSTEM, MOUNT_FLAGS, nullptr) == 0;
}

int lcl_unmount_mmc_dev()
{
    return plat_umount(MOUNT_POINT) == 0;
}

// The frame of every operation on files: a card must be there, is mounted for `operate`, and unmounted. The
// work isn't done before that has succeeded: until then the card may not hold it.
template <class Operate>
int on_card(Operate operate)
{
    if (sdcard_de_detect_card() != 1 || lcl_mount_mmc_dev() != 1)
        return 0;
    const int result = operate();
    if (lcl_unmount_mmc_dev())
        return result;
    lcl_unmount_mmc_dev(); // once more: a card left mounted would fail every operation to come
    return 0;
}

std::string on_card_path(const char* path)
{
    return std::string(MOUNT_POINT) + (path[0] == '/' ? "" : "/") + path;
}

// Capacity of the mounted card in MiB.
int lcl_get_mmc_capacity()
{
    struct statfs st;
    if (plat_statfs(STATFS_PATH, &st) != 0)
        return 0;
    return static_cast<int>((static_cast<std::uint64_t>(st.f_bsize) * st.f_blocks) >> 20);
}

int sdcard_de_get_size()
{
    return on_card(lcl_get_mmc_capacity);
}

// Puts `text` behind the `*p_used` characters of the buffer, as far as there is room: false if it was cut.
bool append(char* p_buf, std::size_t size, std::size_t* p_used, const char* text)
{
    const std::size_t length = std::strlen(text);
    const std::size_t fits = std::min(length, size - *p_used);
    std::memcpy(p_buf + *p_used, text, fits);
    *p_used += fits;
    return fits == length;
}

int lcl_list_dir_info(const char* path, char* p_buf, std::size_t size)
{
    file_item item;
    file_find* p_hnd = file_fnd_first(path, &item);
    if (p_hnd == nullptr)
        return 0;
    std::size_t used = 0;
    bool fits = append(p_buf, size, &used, item.name);
    while (fits && file_fnd_next(p_hnd, &item))
        fits = append(p_buf, size, &used, ",") && append(p_buf, size, &used, item.name);
    if (used < size)
        p_buf[used] = '\0';
    return file_fnd_close(p_hnd);
}

int sdcard_de_list(const char* path, char* p_buf, std::size_t size)
{
    return on_card([=] { return lcl_list_dir_info(on_card_path(path).c_str(), p_buf, size); });
}

int lcl_read_file(const char* path, char* p_buf, std::size_t size)
{
    std::memset(p_buf, 0, size);
    file_hnd* p_hnd = file_open(path, "r");
    if (p_hnd == nullptr)
        return 0;
    const long length = file_length(p_hnd);
    const std::size_t count = length < 0 ? 0 : std::min(static_cast<std::size_t>(length), size);
    const bool done = length >= 0 && file_read(p_buf, 1, count, p_hnd) == count;
    return file_close(p_hnd) && done;
}

int sdcard_de_read(const char* path, char* p_buf, std::size_t size)
{
    return on_card([=] { return lcl_read_file(on_card_path(path).c_str(), p_buf, size); });
}

int lcl_write_file(const char* path, const char* p_data, std::size_t size)
{
    file_hnd* p_hnd = file_open(path, "w");
    if (p_hnd == nullptr)
        return 0;
    const bool done = file_write(p_data, 1, size, p_hnd) == size;
    return file_close(p_hnd) && done;
}

int sdcard_de_write(const char* path, const char* p_data, std::size_t size)
{
    return on_card([=] { return lcl_write_file(on_card_path(path).c_str(), p_data, size); });
}

int run(const std::string& line)
{
    return plat_system(line.c_str()) == 0;
}

// The copy ends at the end of the card, where the tool can't write on and says 1. It says the same of a
// device that can't be opened, so that one is told by a look before.
int sdcard_de_erase()
{
    std::string device;
    if (!lcl_srch_mmc_dev(&device))
        return 0;
    const bool there = plat_access(device.c_str(), W_OK) == 0;
    const int status = plat_system((DD + device).c_str());
    return there && status != -1 && WIFEXITED(status) && WEXITSTATUS(status) <= 1;
}

int sdcard_de_delete_file(const char* path)
{
    return on_card([=] { return run(RM + on_card_path(path)); });
}

// 16, 32, or 0 for a capacity that can't be formatted.
int fat_bits(int capacity_mib)
{
    if (capacity_mib >= 1 && capacity_mib <= 1999)
        return 16;
    return capacity_mib >= 2001 && capacity_mib <= 31999 ? 32 : 0;
}

int sdcard_de_format()
{
    std::string device;
    if (sdcard_de_detect_card() == 0)
        return 0;
    lcl_unmount_mmc_dev(); // the station may have mounted it
    if (!lcl_srch_mmc_dev(&device) || lcl_mount_mmc_dev() != 1)
        return 0;
    const int bits = fat_bits(lcl_get_mmc_capacity());
    if (!lcl_unmount_mmc_dev() || bits == 0)
        return 0;
    return run("newfs_msdos -F " + std::to_string(bits) + " -O android " + device) &&
           run("fsck_msdos -p -f " + device);
}

constexpr sdcard_co_functions sdcard_de_co = {
    sdcard_de_detect_card, sdcard_de_get_size,    sdcard_de_list,    sdcard_de_read,      sdcard_de_write,
    sdcard_de_erase,       sdcard_de_delete_file, lcl_mount_mmc_dev, lcl_unmount_mmc_dev, sdcard_de_format,
};

} // namespace

void sdcard_de_init()
{
    sdcard_cmd_co_attach(&sdcard_de_co);
}
