#include "view/station.h"

#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include "client/port_client.h"
#include "view/loop.h"

namespace view {

namespace {

constexpr std::chrono::milliseconds look_every{50};

std::string port_path;
int port = -1;
std::chrono::steady_clock::time_point looked; // for others at the port

// Whether the process has `terminal` open; the phone itself keeps it too, by both its ends.
bool has_open(const char* pid, dev_t terminal)
{
    const std::string folder = std::string("/proc/") + pid + "/fd";
    DIR* const p_dir = opendir(folder.c_str());
    if (p_dir == nullptr)
        return false;
    bool station = false, phone = false;
    while (const dirent* const p_entry = readdir(p_dir)) {
        struct stat st {};
        if (fstatat(dirfd(p_dir), p_entry->d_name, &st, 0) != 0 || !S_ISCHR(st.st_mode))
            continue;
        char target[32] = "";
        [[maybe_unused]] const ssize_t n =
            readlinkat(dirfd(p_dir), p_entry->d_name, target, sizeof target - 1);
        station = station || st.st_rdev == terminal;
        phone = phone || std::strcmp(target, "/dev/ptmx") == 0 || std::strcmp(target, "/dev/pts/ptmx") == 0;
    }
    closedir(p_dir);
    return station && !phone;
}

bool another_reads()
{
    struct stat st {};
    DIR* const p_dir = fstat(port, &st) == 0 ? opendir("/proc") : nullptr;
    if (p_dir == nullptr)
        return false;
    const std::string own = std::to_string(getpid());
    bool found = false;
    while (const dirent* const p_entry = found ? nullptr : readdir(p_dir))
        found = std::isdigit(static_cast<unsigned char>(p_entry->d_name[0])) != 0 && own != p_entry->d_name &&
                has_open(p_entry->d_name, st.st_rdev);
    closedir(p_dir);
    return found;
}

// Takes what is there. A station that has come meanwhile has the port to itself from then on: the next line
// opens it again. A look at all processes isn't free, and a long answer comes in many pieces.
void take()
{
    const auto now = std::chrono::steady_clock::now();
    if (now - looked > look_every) {
        looked = now;
        if (another_reads()) {
            station_close();
            return;
        }
    }
    std::string got;
    if (!port_take(port, got))
        station_close();
}

} // namespace

void station_open(const std::string& dir)
{
    port_path = dir + "/ttyGS0";
}

std::string station_send(std::string_view line)
{
    if (port < 0) {
        port = port_open_raw(port_path);
        if (port < 0)
            return std::string("the station's port can't be opened: ") + std::strerror(errno);
        looked = {};
        loop_add(port, take);
    }
    std::string bytes(line);
    bytes += '\r';
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = write(port, bytes.data() + done, bytes.size() - done);
        if (n > 0)
            done += static_cast<std::size_t>(n);
        else if (n == 0 || errno != EINTR)
            return "the phone takes nothing at its station's port now";
    }
    return {};
}

void station_close()
{
    if (port < 0)
        return;
    loop_drop(port);
    close(port);
    port = -1;
}

} // namespace view
