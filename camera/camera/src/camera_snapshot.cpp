// The picture in memory: taken by the driver, grabbed from the viewfinder, written to a file, read from one.
#include "camera/camera.h"

#include <cerrno>

#include "camera_inner.h"
#include "check/check.h"
#include "plat/plat.h"

namespace {

camera_bytes loaded; // the bytes of a picture that came from a file

struct open_fd {
    int fd;
    explicit open_fd(int number) : fd(number) {}
    ~open_fd()
    {
        if (fd >= 0)
            plat_close(fd);
    }
    open_fd(const open_fd&) = delete;
    open_fd& operator=(const open_fd&) = delete;
};

void describe(const camconf_sizeconfig& size)
{
    camera_me.snapshot.width = size.width;
    camera_me.snapshot.height = size.height;
    camera_me.snapshot.format = size.format;
}

// Gives back the picture in memory, if there is one, before another takes its place.
bool make_room()
{
    return camera_me.snapshot.buffer == nullptr || camera_release_picture(&camera_me.snapshot) >= 0;
}

using take_fn = int (*)(std::uint32_t camera, camera_snapshot* p_snapshot);

int take(take_fn fn, const camconf_sizeconfig& size)
{
    const camera_callouts& co = camera_me.co;
    if (fn == nullptr || co.release_snapshot == nullptr || camera_me.current == 0)
        return 0;
    if (size.format != CAMCONF_FORMAT_YUV_DIRECT && camera_me.viewfinder_started &&
        co.prepare_snapshot != nullptr && co.prepare_snapshot(&size) < 0)
        return 0;
    if (!make_room())
        return 0;
    describe(size);
    return fn(camera_me.current, &camera_me.snapshot) >= 1 ? 1 : 0;
}

bool write_all(int fd, const std::uint8_t* p, std::size_t size)
{
    while (size > 0) {
        const ssize_t n = plat_write(fd, p, size);
        if (n <= 0)
            return false;
        p += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

} // namespace

int camera_release_picture(camera_snapshot* p_snapshot)
{
    const int result = camera_me.co.release_snapshot(p_snapshot);
    if (result >= 1)
        loaded.reset();
    return result;
}

int camera_take_snapshot(const camconf_sizeconfig& size)
{
    return take(camera_me.co.take_snapshot, size);
}

int camera_take_raw_snapshot(const camconf_sizeconfig& size)
{
    return take(camera_me.co.take_raw_snapshot, size);
}

int camera_grab_viewfinder_frame(const camconf_sizeconfig& size)
{
    const camera_callouts& co = camera_me.co;
    if (co.grab_viewfinder_frame == nullptr || co.release_snapshot == nullptr ||
        !camera_me.viewfinder_started || !make_room())
        return 0;
    describe(size);
    return co.grab_viewfinder_frame(&camera_me.snapshot);
}

int camera_release_snapshot(const camconf_sizeconfig& size, std::int32_t rotation)
{
    const camera_callouts& co = camera_me.co;
    if (co.release_snapshot == nullptr || camera_release_picture(&camera_me.snapshot) < 1)
        return 0;
    if (co.restart_viewfinder == nullptr)
        return 1;
    if (co.restart_viewfinder(&size, rotation) < 1)
        return 0;
    camera_me.viewfinder_started = true;
    return 1;
}

int camera_save_snapshot(const char* path)
{
    if (path == nullptr)
        return 0;
    if (plat_unlink(path) != 0 && errno != ENOENT)
        return 0;
    const camera_snapshot& picture = camera_me.snapshot;
    if (picture.buffer == nullptr)
        return 0;
    const int fd = plat_open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (fd < 0)
        return 0;
    const bool written = write_all(fd, picture.buffer, picture.nbr_of_bytes);
    return plat_close(fd) == 0 && written ? 1 : 0;
}

int camera_load_snapshot(const char* path)
{
    if (path == nullptr || camera_me.snapshot.buffer != nullptr)
        return 0;
    const open_fd file(plat_open(path, O_RDONLY));
    if (file.fd < 0)
        return 0;
    const off_t length = plat_lseek(file.fd, 0, SEEK_END);
    if (length < 0 || length > off_t{CAMERA_LARGEST_FILE} || plat_lseek(file.fd, 0, SEEK_SET) != 0)
        return 0;
    const auto size = static_cast<std::uint32_t>(length);
    camera_bytes bytes = camera_alloc(size);
    if (bytes == nullptr)
        check_failed("current_snapshot.buffer = (uint8_t*)malloc(current_snapshot.nbr_of_bytes)", __FILE__,
                     __LINE__);
    if (size > 0 && plat_read(file.fd, bytes.get(), size) != length)
        return 0;
    loaded = std::move(bytes);
    camera_me.snapshot.buffer = loaded.get();
    camera_me.snapshot.nbr_of_bytes = size;
    return 1;
}

int camera_set_sizeconf(const camconf_sizeconfig& size)
{
    describe(size);
    return 1;
}

int camera_get_sizeconf(camconf_sizeconfig* p_size)
{
    const camera_snapshot& picture = camera_me.snapshot;
    p_size->width = static_cast<std::uint16_t>(picture.width);
    p_size->height = static_cast<std::uint16_t>(picture.height);
    p_size->format = picture.format;
    return 1;
}
