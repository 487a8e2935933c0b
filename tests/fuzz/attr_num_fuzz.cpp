// What the kernel's test attributes may hold: the input is the file, given in pieces, to the readers of a
// list of bytes (the first byte of the input sets how many are wanted) and of a last number.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <memory>

#include "attr_num/attr_num.h"
#include "plat/plat.h"
#include "plat_linux/plat_linux.h"

namespace {

constexpr int the_fd = 1000;

const std::uint8_t* input;
std::size_t input_size;
std::size_t position;

int fuzz_open(const char*, int, mode_t)
{
    position = 0;
    return the_fd;
}

ssize_t fuzz_read(int, void* buf, std::size_t size)
{
    const std::size_t n = std::min({size, input_size - position, std::size_t{313}});
    std::memcpy(buf, input + position, n);
    position += n;
    return static_cast<ssize_t>(n);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static plat_callouts co;
    co = plat_linux_co;
    co.open = fuzz_open;
    co.read = fuzz_read;
    co.close = [](int) { return 0; };
    plat_attach(&co);
    if (size == 0)
        return 0;
    const std::size_t wanted = data[0] + std::size_t{1};
    input = data + 1;
    input_size = size - 1;
    const auto bytes = std::make_unique<std::uint8_t[]>(wanted); // exactly as large, for the sanitizer
    attr_num_bytes("/attribute", bytes.get(), wanted);
    int value;
    attr_num_last("/attribute", &value);
    return 0;
}
