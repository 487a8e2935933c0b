#include "bmp/bmp.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "check/check.h"
#include "pbuf/pbuf.h"
#include "plat/plat.h"

namespace {

constexpr std::size_t HEADER_BYTES = 54; // both headers, the magic included
constexpr std::uint32_t INFO_BYTES = 40; // least size of the second header
constexpr std::uint16_t BITS = 24;
constexpr std::uint64_t PIXEL_BYTES = BITS / 8;
constexpr std::uint64_t MAX_IMAGE_BYTES = 256u << 20;
constexpr std::uint64_t CHUNK_BYTES = 256 * 1024; // stays in the cache between reading and copying

struct bmp_header {
    std::uint32_t file_size;
    std::uint16_t reserved1, reserved2;
    std::uint32_t offset;
    std::uint32_t header_size;
    std::uint32_t width;
    std::uint32_t height; // two's complement; negative for rows that run top-down
    std::uint16_t planes, bits;
    std::uint32_t compression, image_size, x_res, y_res, colours, important;
};

// What is to be read: rows of `row` bytes, `stride` bytes apart in the file.
struct bmp_shape {
    std::uint32_t width, height;
    std::uint64_t offset, row, stride;
    bool top_down;
};

struct file_guard {
    explicit file_guard(const char* path) : fd(plat_open(path, O_RDONLY | O_CLOEXEC)) {}
    file_guard(const file_guard&) = delete;
    file_guard& operator=(const file_guard&) = delete;
    ~file_guard()
    {
        if (fd >= 0)
            plat_close(fd);
    }
    const int fd;
};

bool read_all(int fd, std::uint8_t* p, std::size_t size)
{
    while (size > 0) {
        const ssize_t n = plat_read(fd, p, size);
        if (n <= 0)
            return false;
        p += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

bool read_header(int fd, bmp_header* p)
{
    std::uint8_t raw[HEADER_BYTES];
    if (!read_all(fd, raw, sizeof raw) || std::memcmp(raw, "BM", 2) != 0)
        return false;
    pbuf_unpack(raw + 2, "whhwwwwhhwwwwww", &p->file_size, &p->reserved1, &p->reserved2, &p->offset,
                &p->header_size, &p->width, &p->height, &p->planes, &p->bits, &p->compression, &p->image_size,
                &p->x_res, &p->y_res, &p->colours, &p->important);
    return true;
}

// The sums are in 64 bits and can't overflow: no factor has more than 33. The padding behind the last row may
// be missing, as some programs write it so.
bool shape_of(const bmp_header& header, std::uint64_t file_bytes, bmp_shape* p)
{
    if (header.compression != 0 || header.bits != BITS || header.header_size < INFO_BYTES ||
        header.offset < HEADER_BYTES)
        return false;
    const std::int64_t rows = static_cast<std::int32_t>(header.height);
    p->top_down = rows < 0;
    p->width = header.width;
    p->height = static_cast<std::uint32_t>(rows < 0 ? -rows : rows);
    p->offset = header.offset;
    if (p->height == 0 || p->width == 0 || p->width > MAX_IMAGE_BYTES)
        return false;
    p->row = p->width * PIXEL_BYTES;
    p->stride = (p->row + 3) & ~std::uint64_t{3};
    return p->row * p->height <= MAX_IMAGE_BYTES &&
           p->offset + p->stride * (p->height - 1) + p->row <= file_bytes;
}

bool read_rows(int fd, const bmp_shape& shape, std::uint8_t* p_image)
{
    if (plat_lseek(fd, static_cast<off_t>(shape.offset), SEEK_SET) != static_cast<off_t>(shape.offset))
        return false;
    const std::uint64_t rows_a_chunk = std::max<std::uint64_t>(CHUNK_BYTES / shape.stride, 1);
    const auto chunk =
        heap_alloc<std::uint8_t>(std::min<std::uint64_t>(rows_a_chunk, shape.height) * shape.stride);
    HVT_CHECK(chunk != nullptr);
    for (std::uint64_t r = 0; r < shape.height;) {
        const std::uint64_t n = std::min(rows_a_chunk, shape.height - r);
        const bool last = r + n == shape.height;
        if (!read_all(fd, chunk.get(), n * shape.stride - (last ? shape.stride - shape.row : 0)))
            return false;
        for (std::uint64_t i = 0; i < n; i++, r++) {
            const std::uint64_t to = shape.top_down ? r : shape.height - 1 - r;
            std::memcpy(p_image + to * shape.row, chunk.get() + i * shape.stride, shape.row);
        }
    }
    return true;
}

} // namespace

void bmp_init() {}

int bmp_load(const char* path, bmp_image* p_result)
{
    struct stat st;
    if (plat_stat(path, &st) != 0 || !S_ISREG(st.st_mode)) // a node or a pipe could hold the reader for ever
        return 0;
    const file_guard file(path);
    bmp_header header;
    bmp_shape shape;
    if (file.fd < 0 || !read_header(file.fd, &header) ||
        !shape_of(header, static_cast<std::uint64_t>(st.st_size), &shape))
        return 0;
    auto image_ptr = heap_alloc<std::uint8_t>(shape.row * shape.height);
    HVT_CHECK(image_ptr != nullptr);
    if (!read_rows(file.fd, shape, image_ptr.get()))
        return 0;
    *p_result = {shape.width, shape.height, BITS, std::move(image_ptr)};
    return 1;
}
