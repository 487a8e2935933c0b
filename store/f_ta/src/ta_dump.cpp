#include "ta_dump.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <span>

#include "plat/plat.h"
#include "ta/ta.h"

namespace {

constexpr std::uint32_t LAST_UNIT = 0xFFFFFE;
constexpr std::size_t LARGEST_UNIT = 8000; // a larger unit is left out
constexpr std::size_t ROW = 16;

using stream = std::unique_ptr<FILE, int (*)(FILE*)>;

stream open_stream(const char* path, const char* mode)
{
    return stream(plat_fopen(path, mode), std::fclose);
}

void dump_unit(FILE* p_file, std::uint32_t unit, std::span<const std::uint8_t> data)
{
    std::fprintf(p_file, "%08X : ", unit);
    for (std::size_t i = 0; i < data.size(); i++) {
        if (i != 0 && i % ROW == 0)
            std::fprintf(p_file, "\n           ");
        std::fprintf(p_file, "%02X ", data[i]);
    }
    std::fputc('\n', p_file);
}

} // namespace

int f_ta_dump(const char* path)
{
    stream file = open_stream(path, "w");
    if (!file)
        return 0;
    static std::uint8_t buf[LARGEST_UNIT];
    for (std::uint32_t unit = 0; unit <= LAST_UNIT; unit++) {
        const int size = ta_if_read(unit, buf, sizeof buf);
        if (size > 0)
            dump_unit(file.get(), unit, {buf, static_cast<std::size_t>(size)});
    }
    const bool whole = std::ferror(file.get()) == 0;
    return std::fclose(file.release()) == 0 && whole ? 1 : 0;
}

int f_ta_filecomp(const char* path1, const char* path2)
{
    const stream file1 = open_stream(path1, "r");
    const stream file2 = open_stream(path2, "r");
    if (!file1 || !file2)
        return 0;
    std::uint8_t part1[4096];
    std::uint8_t part2[sizeof part1];
    for (bool empty = true;; empty = false) {
        const std::size_t n1 = std::fread(part1, 1, sizeof part1, file1.get());
        const std::size_t n2 = std::fread(part2, 1, sizeof part2, file2.get());
        if (n1 != n2 || std::memcmp(part1, part2, n1) != 0)
            return 0;
        if (n1 == 0)
            return !empty && std::ferror(file1.get()) == 0 && std::ferror(file2.get()) == 0 ? 1 : 0;
    }
}
