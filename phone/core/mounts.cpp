#include "core/mounts.h"

#include <cerrno>
#include <map>
#include <mutex>

#include "core/files.h"
#include "core/watch.h"

namespace phone {

namespace {

std::mutex mounts_mutex;
std::map<std::string, const block_device*, std::less<>> devices; // by node, written before the program runs
std::map<std::string, const block_device*, std::less<>> mounted; // by folder

const block_device* device_at(std::string_view path)
{
    for (const auto& [dir, p_device] : mounted)
        if (path == dir || (path.starts_with(dir) && path[dir.size()] == '/'))
            return p_device;
    return nullptr;
}

} // namespace

void mounts_add(std::string_view node, const block_device* p_device)
{
    devices.emplace(node, p_device);
}

int mounts_mount(const char* device, const char* dir, const char* type, unsigned long flags, const void*)
{
    const std::lock_guard lock(mounts_mutex);
    const auto found = devices.find(std::string_view(device));
    if (found == devices.end()) {
        strange("mount " + std::string(device));
        errno = ENODEV;
        return -1;
    }
    if (mounted.contains(std::string_view(dir))) {
        errno = EBUSY;
        return -1;
    }
    if (found->second->mount(dir, type, flags) != 0)
        return -1;
    mounted.emplace(dir, found->second);
    return 0;
}

int mounts_umount(const char* dir)
{
    const std::lock_guard lock(mounts_mutex);
    const auto found = mounted.find(std::string_view(dir));
    if (found == mounted.end()) {
        errno = EINVAL;
        return -1;
    }
    if (found->second->umount(dir) != 0)
        return -1;
    mounted.erase(found);
    return 0;
}

int mounts_statfs(const char* relative, struct statfs* p_out)
{
    const std::string path = relative[0] == '/' ? relative : std::string("/") + relative; // runs in the root
    const std::lock_guard lock(mounts_mutex);
    if (const block_device* p_device = device_at(path))
        return p_device->statfs(p_out);
    const std::string host = host_path(path);
    return host.empty() ? -1 : ::statfs(host.c_str(), p_out);
}

} // namespace phone
