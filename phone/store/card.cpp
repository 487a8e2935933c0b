#include "store/card.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>

#include "board/gpio.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/mounts.h"
#include "core/text.h"
#include "core/toolbox.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr char device_path[] = "/dev/block/mmcblk1p1";
constexpr unsigned detect_line = 62; // low while a card is in
constexpr unsigned block_bytes = 32768;
constexpr long long size_default = 15193;
constexpr long long size_largest = 2 * 1024 * 1024;
constexpr long long fat16_largest = 4095;

struct card_state {
    bool in = true;
    long long size_mib = size_default;
    bool has_files = true; // a file system; erasing takes it away
};

std::mutex card_mutex; // guards all below
card_state card;
std::string mounted_at;

std::string state_path()
{
    return home_path("card.state");
}

void keep_state()
{
    std::ofstream(state_path()) << (card.in ? "in " : "out ") << card.size_mib
                                << (card.has_files ? " vfat\n" : " blank\n");
}

void recall_state()
{
    std::ifstream file(state_path());
    std::string in, kind;
    long long size;
    if (file >> in >> size >> kind) {
        card.in = in == "in";
        card.size_mib = size;
        card.has_files = kind == "vfat";
    }
}

// The kernel has a node for a card that is in. A pulled card leaves what is mounted in place, with nothing
// behind it.
void show_card()
{
    const std::string host = home_path("root") + device_path;
    std::error_code ignored;
    if (card.in) {
        std::filesystem::create_directories(host.substr(0, host.rfind('/')), ignored);
        std::ofstream(host, std::ios::app);
    } else {
        std::filesystem::remove(host, ignored);
    }
    gpio_drive(detect_line, card.in ? 0 : 1);
    if (!mounted_at.empty())
        path_mount(mounted_at, card.in ? home_path("card") : home_path("card.gone"));
}

void empty_card()
{
    std::error_code error;
    std::error_code ignored;
    for (std::filesystem::directory_iterator it(home_path("card"), error), end; !error && it != end;
         it.increment(error))
        std::filesystem::remove_all(it->path(), ignored);
}

int refuse(int error)
{
    errno = error;
    return -1;
}

int card_mount(std::string_view dir, std::string_view type, unsigned long)
{
    const std::lock_guard lock(card_mutex);
    if (type != "vfat")
        return refuse(ENODEV);
    if (!card.in)
        return refuse(ENXIO);
    if (!card.has_files)
        return refuse(EINVAL);
    mounted_at = dir;
    show_card();
    return 0;
}

int card_umount(std::string_view dir)
{
    const std::lock_guard lock(card_mutex);
    path_mount(dir, "");
    mounted_at.clear();
    return 0;
}

int card_statfs(struct statfs* p_out)
{
    const std::lock_guard lock(card_mutex);
    if (!card.in)
        return refuse(EIO);
    *p_out = {};
    p_out->f_type = 0x4D44;
    p_out->f_bsize = block_bytes;
    p_out->f_blocks = static_cast<fsblkcnt_t>(card.size_mib) * (1024 * 1024 / block_bytes);
    p_out->f_bfree = p_out->f_bavail = p_out->f_blocks / 2;
    p_out->f_namelen = 255;
    return 0;
}

constexpr block_device card_device = {card_mount, card_umount, card_statfs};

bool is_the_device(const std::string& word)
{
    return word == device_path;
}

int tool_error(tool_call& call, const std::string& what)
{
    call.err = call.args[0] + ": " + what + "\n";
    return 1;
}

// Zeroes a device until that is full, which ends it with status 1, as a real dd does.
int tool_dd(tool_call& call)
{
    if (call.args.size() != 3 || call.args[1] != "if=/dev/zero" || !call.args[2].starts_with("of="))
        return tool_error(call, "only zeroes to a device can be copied");
    const std::string device = call.args[2].substr(3);
    const std::lock_guard lock(card_mutex);
    if (!is_the_device(device) || !card.in)
        return tool_error(call, device + ": No such device or address");
    empty_card();
    card.has_files = false;
    keep_state();
    return tool_error(call, "writing '" + device + "': No space left on device");
}

int tool_newfs_msdos(tool_call& call)
{
    const auto& a = call.args;
    if (a.size() != 6 || a[1] != "-F" || (a[2] != "16" && a[2] != "32") || a[3] != "-O")
        return tool_error(call, "-F 16|32 -O NAME DEVICE is wanted");
    const std::lock_guard lock(card_mutex);
    if (!is_the_device(a[5]) || !card.in)
        return tool_error(call, a[5] + ": No such device or address");
    if (!mounted_at.empty())
        return tool_error(call, a[5] + " is mounted");
    if (a[2] == "16" && card.size_mib > fat16_largest)
        return tool_error(call, "too many clusters for FAT16");
    empty_card();
    card.has_files = true;
    keep_state();
    return 0;
}

int tool_fsck_msdos(tool_call& call)
{
    const std::string device = call.args.back();
    const std::lock_guard lock(card_mutex);
    if (call.args.size() < 2 || !is_the_device(device) || !card.in)
        return tool_error(call, device + ": No such device or address");
    return card.has_files ? 0 : tool_error(call, "invalid signature in boot block");
}

int tool_rm(tool_call& call)
{
    int status = call.args.size() > 1 ? 0 : tool_error(call, "a file is wanted");
    for (std::size_t i = 1; i < call.args.size(); i++) {
        std::error_code error;
        const std::string host = host_path(call.args[i], false);
        if (host.empty() || std::filesystem::is_directory(host, error) ||
            !std::filesystem::remove(host, error))
            status = tool_error(call, call.args[i] + ": No such file");
    }
    return status;
}

std::string word_card(request& rq)
{
    const std::string what = rq.args.empty() ? "" : rq.args[0];
    const std::int64_t size = rq.args.size() == 2 ? number(rq.args[1]).value_or(-1) : -1;
    const std::lock_guard lock(card_mutex);
    if (rq.args.empty()) {
        rq.answer = (card.in ? "in " : "out ") + std::to_string(card.size_mib) + " MiB";
        return {};
    }
    if (what == "size" && size >= 0 && size <= size_largest) {
        card.size_mib = size;
        card.has_files = true; // such a card comes formatted
    } else if ((what == "in" || what == "out") && rq.args.size() == 1) {
        card.in = what == "in";
    } else {
        return "in, out, or size and up to " + std::to_string(size_largest) + " MiB is wanted";
    }
    keep_state();
    show_card();
    return {};
}

} // namespace

void card_attach()
{
    mounts_add(device_path, &card_device);
    tool_add("dd", tool_dd);
    tool_add("rm", tool_rm);
    tool_add("newfs_msdos", tool_newfs_msdos);
    tool_add("fsck_msdos", tool_fsck_msdos);
    word_add("card", "[in|out|size MIB]",
             "puts the memory card in, pulls it, or takes one of a size; alone: tells it", word_card);
    conf_add_word("card");
}

void card_start()
{
    std::error_code ignored;
    std::filesystem::create_directories(home_path("root/sdcard"), ignored);
    const std::lock_guard lock(card_mutex);
    recall_state();
    show_card();
}

} // namespace phone
