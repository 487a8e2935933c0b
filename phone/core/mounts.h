// mount, umount and statfs of the phone. A device that can be mounted registers its node; what is mounted
// shows up in the file tree through path_mount.
#pragma once

#include <string>
#include <string_view>
#include <sys/vfs.h>

namespace phone {

// A block device: `mount` puts its content at `dir` of the phone, `umount` takes it away, `statfs` gives its
// sizes. Each gives 0, or -1 and errno.
struct block_device {
    int (*mount)(std::string_view dir, std::string_view type, unsigned long flags);
    int (*umount)(std::string_view dir);
    int (*statfs)(struct statfs* p_out);
};

// The record must live as long as the process.
void mounts_add(std::string_view node, const block_device* p_device);

int mounts_mount(const char* device, const char* dir, const char* type, unsigned long flags,
                 const void* data);
int mounts_umount(const char* dir);
int mounts_statfs(const char* path, struct statfs* p_out);

} // namespace phone
