#include "store/units.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace units {

namespace {

constexpr std::size_t name_length = 8;
constexpr const char* half_prefix = ".half-";

std::string path_of(const std::string& dir, std::uint32_t unit)
{
    char name[name_length + 1];
    std::snprintf(name, sizeof name, "%08X", unit);
    return dir + '/' + name;
}

bool is_unit_name(const char* name)
{
    return std::strlen(name) == name_length && std::strspn(name, "0123456789ABCDEF") == name_length;
}

bool sync_dir(const std::string& dir)
{
    const int fd = open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool synced = fd >= 0 && fsync(fd) == 0;
    if (fd >= 0)
        close(fd);
    return synced;
}

bool fill(int fd, const void* p_data, std::size_t size, bool sync)
{
    const bool written = ::write(fd, p_data, size) == static_cast<ssize_t>(size) && fchmod(fd, 0644) == 0 &&
                         (!sync || fsync(fd) == 0);
    return close(fd) == 0 && written;
}

bool replace(const std::string& dir, std::uint32_t unit, const void* p_data, std::size_t size, bool sync)
{
    std::string half = dir + '/' + half_prefix + "XXXXXX";
    const int fd = mkostemp(half.data(), O_CLOEXEC);
    if (fd < 0)
        return false;
    if (fill(fd, p_data, size, sync) && rename(half.c_str(), path_of(dir, unit).c_str()) == 0)
        return !sync || sync_dir(dir);
    unlink(half.c_str());
    return false;
}

struct close_dir {
    void operator()(DIR* dir) const { closedir(dir); }
};

template <typename Visit>
void each_name(const std::string& dir, Visit visit)
{
    const std::unique_ptr<DIR, close_dir> handle(opendir(dir.c_str()));
    while (handle != nullptr) {
        const dirent* const p_entry = readdir(handle.get());
        if (p_entry == nullptr)
            return;
        visit(p_entry->d_name);
    }
}

} // namespace

std::vector<std::uint32_t> list(const std::string& dir)
{
    std::vector<std::uint32_t> numbers;
    each_name(dir, [&numbers](const char* name) {
        if (is_unit_name(name))
            numbers.push_back(static_cast<std::uint32_t>(std::strtoul(name, nullptr, 16)));
    });
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

long size(const std::string& dir, std::uint32_t unit)
{
    struct stat st;
    return stat(path_of(dir, unit).c_str(), &st) == 0 && S_ISREG(st.st_mode) ? static_cast<long>(st.st_size)
                                                                             : -1;
}

bool read(const std::string& dir, std::uint32_t unit, std::string& bytes)
{
    const int fd = open(path_of(dir, unit).c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    char part[4096];
    ssize_t n;
    bytes.clear();
    while ((n = ::read(fd, part, sizeof part)) > 0)
        bytes.append(part, static_cast<std::size_t>(n));
    close(fd);
    return n == 0;
}

bool write(const std::string& dir, std::uint32_t unit, const void* p_data, std::size_t size)
{
    return replace(dir, unit, p_data, size, true);
}

bool write_unsynced(const std::string& dir, std::uint32_t unit, const void* p_data, std::size_t size)
{
    return replace(dir, unit, p_data, size, false);
}

bool remove(const std::string& dir, std::uint32_t unit)
{
    return unlink(path_of(dir, unit).c_str()) == 0 && sync_dir(dir);
}

void sweep(const std::string& dir)
{
    std::vector<std::string> halves;
    each_name(dir, [&halves](const char* name) {
        if (std::strncmp(name, half_prefix, std::strlen(half_prefix)) == 0)
            halves.emplace_back(name);
    });
    for (const std::string& name : halves)
        unlink((dir + '/' + name).c_str());
}

} // namespace units
