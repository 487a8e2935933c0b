// The gzip helpers of the file module. zlib opens the compressed file by itself.
#include "file_linux/file_linux.h"

#include <climits>
#include <string>
#include <zlib.h>

#include "plat/plat.h"

namespace {

constexpr std::size_t BLOCK_BYTES = 16384;

// The whole file as memory, while the guard lives; null where that isn't possible or the file is empty.
struct file_map {
    file_map(int fd, std::uint64_t file_size)
    {
        if (file_size == 0 || file_size > INT_MAX)
            return;
        void* p = plat_mmap(nullptr, file_size, PROT_READ, MAP_PRIVATE, fd, 0);
        if (p == MAP_FAILED)
            return;
        memory = p;
        size = static_cast<unsigned>(file_size);
    }
    file_map(const file_map&) = delete;
    file_map& operator=(const file_map&) = delete;
    ~file_map()
    {
        if (memory != nullptr)
            plat_munmap(memory, size);
    }
    void* memory = nullptr;
    unsigned size = 0;
};

bool write_all(gzFile out, const void* p, unsigned size)
{
    return gzwrite(out, p, size) == static_cast<int>(size);
}

bool compress_blocks(int in, gzFile out)
{
    char block[BLOCK_BYTES];
    for (;;) {
        const ssize_t n = plat_read(in, block, sizeof block);
        if (n <= 0)
            return n == 0;
        if (!write_all(out, block, static_cast<unsigned>(n)))
            return false;
    }
}

// From the mapped file if it can be mapped, which saves a copy of each block.
bool gz_compress(int in, gzFile out)
{
    const off_t size = plat_lseek(in, 0, SEEK_END);
    plat_lseek(in, 0, SEEK_SET);
    const file_map map(in, size > 0 ? static_cast<std::uint64_t>(size) : 0);
    const bool written =
        map.memory != nullptr ? write_all(out, map.memory, map.size) : compress_blocks(in, out);
    return gzclose(out) == Z_OK && written;
}

bool gz_uncompress(gzFile in, file_hnd* p_out)
{
    char block[BLOCK_BYTES];
    for (;;) {
        const int n = gzread(in, block, sizeof block);
        if (n <= 0)
            return n == 0;
        if (file_write(block, 1, static_cast<std::size_t>(n), p_out) != static_cast<std::size_t>(n))
            return false;
    }
}

std::size_t size_of(const char* path)
{
    struct stat st;
    return plat_stat(path, &st) == 0 ? static_cast<std::size_t>(st.st_size) : 0;
}

} // namespace

std::size_t file_compress(const char* src, const char* dst)
{
    const int in = plat_open(src, O_RDONLY | O_CLOEXEC);
    if (in < 0)
        return 0;
    const gzFile out = gzopen(plat_host_path(dst).c_str(), "ab9");
    const bool done = out != nullptr && gz_compress(in, out);
    plat_close(in);
    return done ? size_of(dst) : 0;
}

std::size_t file_uncompress(const char* src, const char* dst)
{
    const gzFile in = gzopen(plat_host_path(src).c_str(), "rb");
    if (in == nullptr)
        return 0;
    file_hnd* p_out = gzdirect(in) ? nullptr : file_open(dst, "wb"); // direct: it isn't compressed
    if (p_out == nullptr) {
        gzclose(in);
        return 0;
    }
    bool done = gz_uncompress(in, p_out);
    done = gzclose(in) == Z_OK && done; // a member cut short shows here
    done = file_close(p_out) && done;
    return done ? size_of(dst) : 0;
}
