#include "attr/attr.h"

#include <cstring>

#include "plat/plat.h"

int attr_read(const char* path, char* p_text, std::size_t size)
{
    p_text[0] = '\0';
    const int fd = plat_open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return ATTR_NO_FILE;
    std::size_t len = 0;
    ssize_t n = 0;
    while (len + 1 < size && (n = plat_read(fd, p_text + len, size - 1 - len)) > 0)
        len += static_cast<std::size_t>(n);
    plat_close(fd);
    p_text[n < 0 ? 0 : len] = '\0';
    return n < 0 ? ATTR_FAILED : ATTR_OK;
}

int attr_write(const char* path, const char* text)
{
    const int fd = plat_open(path, O_WRONLY | O_TRUNC | O_CLOEXEC);
    if (fd < 0)
        return ATTR_NO_FILE;
    const std::size_t len = std::strlen(text);
    const ssize_t n = plat_write(fd, text, len);
    const bool closed = plat_close(fd) == 0;
    return n == static_cast<ssize_t>(len) && closed ? ATTR_OK : ATTR_FAILED;
}
