// The reader of BMP files on any bytes: the file is the input, in a block of exactly its size, and arrives in
// reads of varying length. What is accepted is a picture whose every byte comes from the file.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "bmp/bmp.h"
#include "plat/plat.h"
#include "plat_linux/plat_linux.h"

namespace {

constexpr int file_fd = 1000;

const std::uint8_t* file;
std::size_t file_size;
std::size_t position;
plat_callouts fuzz_co;

int fuzz_stat(const char*, struct stat* p_out)
{
    *p_out = {};
    p_out->st_mode = S_IFREG;
    p_out->st_size = static_cast<off_t>(file_size);
    return 0;
}

int fuzz_open(const char*, int, mode_t)
{
    position = 0;
    return file_fd;
}

int fuzz_close(int)
{
    return 0;
}

ssize_t fuzz_read(int, void* buf, std::size_t size)
{
    const std::size_t left = position < file_size ? file_size - position : 0;
    const std::size_t n = std::min({size, left, 1 + position % 97});
    if (n > 0)
        std::memcpy(buf, file + position, n);
    position += n;
    return static_cast<ssize_t>(n);
}

off_t fuzz_lseek(int, off_t offset, int whence)
{
    if (whence != SEEK_SET)
        std::abort();
    position = static_cast<std::size_t>(offset);
    return offset;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz_co = plat_linux_co;
    fuzz_co.stat = fuzz_stat;
    fuzz_co.open = fuzz_open;
    fuzz_co.close = fuzz_close;
    fuzz_co.read = fuzz_read;
    fuzz_co.lseek = fuzz_lseek;
    plat_attach(&fuzz_co);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    file = data;
    file_size = size;
    bmp_image image;
    if (!bmp_load("any", &image))
        return 0;
    const std::size_t bytes = std::size_t{image.width} * image.height * 3;
    if (image.bits != 24 || bytes == 0 || bytes > size)
        std::abort();
    for (std::size_t i = 0; i < bytes; i += 3) // each pixel stands somewhere in the file
        if (std::search(data, data + size, image.pixels.get() + i, image.pixels.get() + i + 3) == data + size)
            std::abort();
    return 0;
}
