// Streams over descriptors of the seam, so that stdio sees the same devices and faults as plat_read does.
#include "plat/plat.h"

#include <cerrno>
#include <cstring>

namespace {

int fd_of(void* cookie)
{
    return static_cast<int>(reinterpret_cast<std::intptr_t>(cookie));
}

ssize_t stream_read(void* cookie, char* buf, std::size_t size)
{
    return plat_read(fd_of(cookie), buf, size);
}

ssize_t stream_write(void* cookie, const char* buf, std::size_t size)
{
    const ssize_t n = plat_write(fd_of(cookie), buf, size);
    return n < 0 ? 0 : n; // stdio takes 0 for an error here
}

int stream_seek(void* cookie, off64_t* p_offset, int whence)
{
    const off_t at = plat_lseek(fd_of(cookie), *p_offset, whence);
    if (at < 0)
        return -1;
    *p_offset = at;
    return 0;
}

int stream_close(void* cookie)
{
    return plat_close(fd_of(cookie));
}

int flags_of(const char* mode)
{
    const bool both = std::strchr(mode, '+') != nullptr;
    switch (mode[0]) {
    case 'r':
        return both ? O_RDWR : O_RDONLY;
    case 'w':
        return (both ? O_RDWR : O_WRONLY) | O_CREAT | O_TRUNC;
    case 'a':
        return (both ? O_RDWR : O_WRONLY) | O_CREAT | O_APPEND;
    default:
        return -1;
    }
}

} // namespace

FILE* plat_fopen(const char* path, const char* mode)
{
    const int flags = flags_of(mode);
    if (flags < 0) {
        errno = EINVAL;
        return nullptr;
    }
    const int fd = plat_open(path, flags | O_CLOEXEC, 0666);
    if (fd < 0)
        return nullptr;
    FILE* stream = fopencookie(reinterpret_cast<void*>(static_cast<std::intptr_t>(fd)), mode,
                               {stream_read, stream_write, stream_seek, stream_close});
    if (stream == nullptr)
        plat_close(fd);
    return stream;
}
