// The reader of BMP files on any bytes: the file is the input, in a block of exactly its size, and arrives in
// reads of varying length. What is accepted is a picture whose every byte comes from the file.

#include "bmp/bmp.h"
#include "fuzz_input.h"

namespace {

int fuzz_stat(const char*, struct stat* p_out)
{
    *p_out = {};
    p_out->st_mode = S_IFREG;
    p_out->st_size = static_cast<off_t>(input_size);
    return 0;
}

off_t fuzz_lseek(int, off_t offset, int whence)
{
    require(whence == SEEK_SET);
    position = static_cast<std::size_t>(offset);
    return offset;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static plat_callouts co = file_callouts();
    co.stat = fuzz_stat;
    co.read = [](int, void* buf, std::size_t size) {
        return static_cast<ssize_t>(give(buf, size, 1 + position % 97));
    };
    co.lseek = fuzz_lseek;
    plat_attach(&co);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    take_input(data, size);
    bmp_image image;
    if (!bmp_load("any", &image))
        return 0;
    const std::size_t bytes = std::size_t{image.width} * image.height * 3;
    require(image.bits == 24 && bytes > 0 && bytes <= size);
    for (std::size_t i = 0; i < bytes; i += 3) // each pixel stands somewhere in the file
        require(std::search(data, data + size, image.pixels.get() + i, image.pixels.get() + i + 3) !=
                data + size);
    return 0;
}
