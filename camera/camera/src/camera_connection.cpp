// The tests of the sensor's data lines.
#include "camera/camera_judge.h"

#include <algorithm>
#include <cstring>

#include "camera_inner.h"
#include "tmr/tmr.h"

namespace {

constexpr std::uint32_t KIND_PARALLEL = 0;
constexpr std::uint32_t KIND_PN9 = 1;
constexpr std::uint32_t KIND_ANYPIC = 2;

constexpr int PATTERN_OFF = 0;
constexpr int PATTERN_PARALLEL = 1;
constexpr int PATTERN_PN9 = 2;
constexpr int PATTERN_FREE = 3;
constexpr int PATTERN_FREE_OFF = 4;

constexpr std::uint32_t SIZE_OF_FRAMES = 0;
constexpr std::uint32_t SIZE_OF_PN9 = 254;

constexpr std::uint32_t PARALLEL_WAIT_US = 2000000;
constexpr std::uint32_t PN9_WAIT_US = 200000;
constexpr std::uint32_t FREE_WAIT_US = 2000;

constexpr std::uint8_t FREE_PATTERN = 0xAA;

int release(camera_snapshot* p_picture)
{
    return camera_me.co.release_snapshot == nullptr || camera_release_picture(p_picture) >= 1 ? 1 : 0;
}

// A frame of the test pattern; the pattern and the viewfinder are off behind it, however it ends, or it has
// failed.
bool grab_pattern(const camconf_sizeconfig& size, camera_snapshot* p_picture)
{
    if (camera_test_pattern(PATTERN_PARALLEL) < 1)
        return false;
    bool grabbed = false, stopped = true;
    if (camera_start_viewfinder(size, 0) == 1) {
        tmr_usleep(PARALLEL_WAIT_US);
        grabbed = camera_grab_viewfinder_frame(size) >= 1;
        stopped = camera_stop_viewfinder() == 1;
    }
    const bool off = camera_test_pattern(PATTERN_OFF) >= 1;
    if (grabbed && !(stopped && off))
        release(p_picture);
    return grabbed && stopped && off;
}

int camera_connection_parallel(std::uint32_t limit, std::uint32_t* p_first, std::uint32_t* p_second,
                               camera_snapshot* p_picture)
{
    camconf_sizeconfig size;
    std::uint32_t step, offset;
    if (camconf_sizeconfig_resolve(SIZE_OF_FRAMES, &size) == 0 || camera_get_yuv_yinfo(&step, &offset) != 1 ||
        !grab_pattern(size, p_picture) || p_picture->buffer == nullptr)
        return 0;
    const camera_connection_lines lines =
        camera_connection_walk({p_picture->buffer, p_picture->nbr_of_bytes}, offset, step, limit);
    *p_first = lines.shorted;
    *p_second = lines.stuck;
    return release(p_picture);
}

bool take_pn9(const camconf_sizeconfig& size)
{
    if (camera_test_pattern(PATTERN_PN9) < 1)
        return false;
    tmr_usleep(PN9_WAIT_US);
    const bool taken = camera_take_raw_snapshot(size) == 1;
    camera_test_pattern(PATTERN_OFF);
    return taken;
}

int camera_pn9_test(std::uint32_t limit, std::uint32_t* p_first, camera_snapshot* p_picture)
{
    camconf_sizeconfig size;
    if (camconf_sizeconfig_resolve(SIZE_OF_PN9, &size) == 0 || camera_start_viewfinder(size, 0) == 0)
        return 0;
    if (!take_pn9(size)) {
        camera_stop_viewfinder();
        return 0;
    }
    std::int32_t errors = 0;
    const int result = pn9_checkTestPattern(*p_picture, limit, &errors);
    *p_first = static_cast<std::uint32_t>(errors);
    if (release(p_picture) == 0 || result != 1)
        return 0;
    const std::uint32_t camera = camera_get_current_camera();
    return camera_stop() == 1 ? camera_start(camera) : 0;
}

// Counts samples of the free pattern; tells them when all have it.
int camera_anypictest_start(std::uint32_t limit, std::uint32_t* p_first, const camera_snapshot& picture)
{
    std::uint32_t step, offset;
    if (!camera_holds_luminance(picture) || camera_get_yuv_yinfo(&step, &offset) != 1)
        return 0;
    const std::uint64_t samples =
        std::min<std::uint64_t>(limit, std::uint64_t{picture.width} * picture.height);
    std::uint32_t count = 0;
    for (std::uint64_t i = 0; i < samples; i++)
        count += picture.buffer[offset + i * step] == FREE_PATTERN;
    if (count >= samples)
        *p_first = count;
    return 1;
}

int camera_anypic_test(std::uint32_t limit, std::uint32_t* p_first, camera_snapshot* p_picture)
{
    camconf_sizeconfig size;
    if (camconf_sizeconfig_resolve(SIZE_OF_FRAMES, &size) == 0 || camera_start_viewfinder(size, 0) == 0)
        return 0;
    int result = 0;
    if (camera_test_pattern(PATTERN_FREE) >= 1) {
        if (p_picture->buffer != nullptr)
            std::memset(p_picture->buffer, FREE_PATTERN, p_picture->nbr_of_bytes);
        tmr_usleep(FREE_WAIT_US);
        if (camera_take_snapshot(size) == 1) {
            result = camera_anypictest_start(limit, p_first, *p_picture);
            camera_release_snapshot(size, 0);
        }
        camera_test_pattern(PATTERN_FREE_OFF);
    }
    camera_stop_viewfinder();
    return result;
}

} // namespace

void camera_connection_init()
{
    // Nothing is kept from one test to the next.
}

camera_connection_lines camera_connection_walk(std::span<const std::uint8_t> bytes, std::uint32_t first,
                                               std::uint32_t step, std::uint32_t limit)
{
    // moved[k]: bit p says that bits p and p + k have differed somewhere; moved[0]: that bit p has changed.
    unsigned moved[8] = {};
    std::uint32_t seen = 0;
    unsigned before = 0;
    for (std::size_t i = first; i < bytes.size() && seen < limit; i += step, seen++) {
        const unsigned b = bytes[i];
        for (unsigned k = 1; k < 8; k++)
            moved[k] |= b ^ b >> k;
        moved[0] |= seen > 0 ? b ^ before : 0;
        before = b;
    }
    // Line i carries bit 7 - i.
    camera_connection_lines lines = {0, 0};
    for (unsigned i = 0; i < 7; i++)
        for (unsigned j = i; j < 7; j++)
            if ((moved[j - i + 1] >> (6 - j) & 1) == 0)
                lines.shorted |= 0xC0u >> i;
    for (unsigned i = 0; i < 8; i++)
        if ((moved[0] >> (7 - i) & 1) == 0)
            lines.stuck |= 0x80u >> i;
    return lines;
}

int camera_connection_do_test(std::uint32_t kind, std::uint32_t limit, std::uint32_t* p_first,
                              std::uint32_t* p_second, camera_snapshot* p_picture)
{
    switch (kind) {
    case KIND_PARALLEL:
        return camera_connection_parallel(limit, p_first, p_second, p_picture);
    case KIND_PN9:
        return camera_pn9_test(limit, p_first, p_picture);
    case KIND_ANYPIC:
        return camera_anypic_test(limit, p_first, p_picture);
    default:
        return 0;
    }
}
