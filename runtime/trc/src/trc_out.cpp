#include "trc_out.h"

#include <algorithm>
#include <cstdio>

#include "file_linux/file_linux.h"
#include "plat/plat.h"

namespace {

constexpr const char* LOG = "/system/trclog.txt";
constexpr const char* ARCHIVE = "/system/trclog.gz";
constexpr const char* SOCKET = "/dev/trcsocket";
constexpr const char* KMSG = "/dev/kmsg";
constexpr mode_t LOG_RIGHTS = 0777;

constexpr long MOST_LOG = 0x40000;            // beyond this the log goes to the archive
constexpr std::size_t MOST_ARCHIVE = 0xC0000; // beyond this the archive begins anew

unsigned modei;
char* p_buf_start;
char* p_buf_tail;
char* p_buf_end;
int trc_fd = -1;
long curr_file_size; // a failed write takes 1 off
std::size_t archive_fsize;
const trc_usermode_co* p_um_co;

void trc_print_def(const char* text, int)
{
    std::printf("%s", text);
}

trc_print_fn trc_print_co = trc_print_def;

// A descriptor of 0 is none that a log may have.
int opened(int fd)
{
    if (fd > 0)
        return fd;
    if (fd == 0)
        plat_close(fd);
    return -1;
}

long size_of(int fd)
{
    return std::max(0L, static_cast<long>(plat_lseek(fd, 0, SEEK_END)));
}

std::size_t archive_size()
{
    const int fd = plat_open(ARCHIVE, O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return 0;
    const long size = size_of(fd);
    plat_close(fd);
    return static_cast<std::size_t>(size);
}

void rotate()
{
    plat_close(trc_fd);
    if (archive_fsize > MOST_ARCHIVE)
        file_rm(ARCHIVE);
    archive_fsize = file_compress(LOG, ARCHIVE);
    trc_fd = opened(plat_open(LOG, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, LOG_RIGHTS));
    curr_file_size = 0;
}

void write_file(const char* text, std::size_t len)
{
    curr_file_size += static_cast<long>(plat_write(trc_fd, text, len));
    if (curr_file_size > MOST_LOG)
        rotate();
}

void trc_buf_out(const char* text, std::size_t len)
{
    if (len < static_cast<std::size_t>(p_buf_end - p_buf_tail))
        p_buf_tail = std::copy_n(text, len, p_buf_tail);
}

void leave()
{
    switch (modei) {
    case TRC_MODE_FILE:
    case TRC_MODE_KMSG:
    case TRC_MODE_SOCKET:
        plat_close(trc_fd);
        trc_fd = -1;
        break;
    case TRC_MODE_USER:
        if (p_um_co != nullptr)
            p_um_co->close();
        break;
    default:
        return; // nothing to give up: the mode stays until another is entered
    }
    modei = TRC_MODE_BUFFER;
}

bool enter_file()
{
    trc_fd = opened(plat_open(LOG, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, LOG_RIGHTS));
    if (trc_fd < 0)
        return false;
    curr_file_size = size_of(trc_fd);
    archive_fsize = archive_size();
    return true;
}

bool enter_node(const char* path)
{
    trc_fd = opened(plat_open(path, O_WRONLY | O_CLOEXEC));
    return trc_fd > 0;
}

bool enter(unsigned mode)
{
    switch (mode) {
    case TRC_MODE_BUFFER:
    case TRC_MODE_PRINT:
    case TRC_MODE_PRINT2:
        return true;
    case TRC_MODE_FILE:
        return enter_file();
    case TRC_MODE_KMSG:
        return enter_node(KMSG);
    case TRC_MODE_SOCKET:
        return enter_node(SOCKET);
    case TRC_MODE_USER:
        return p_um_co != nullptr && p_um_co->open() > 0;
    default:
        return false;
    }
}

} // namespace

void trc_out_reset(char* p_buf, std::size_t size)
{
    p_buf_start = p_buf_tail = p_buf;
    p_buf_end = p_buf + size;
    trc_print_co = trc_print_def;
}

void trc_out_mode_set(unsigned mode)
{
    leave();
    if (enter(mode))
        modei = mode;
}

unsigned trc_out_mode()
{
    return modei;
}

void trc_out(const char* text, int len)
{
    const auto size = static_cast<std::size_t>(len);
    switch (modei) {
    case TRC_MODE_BUFFER:
        trc_buf_out(text, size);
        break;
    case TRC_MODE_FILE:
        write_file(text, size);
        break;
    case TRC_MODE_KMSG:
    case TRC_MODE_SOCKET:
        plat_write(trc_fd, text, size);
        break;
    case TRC_MODE_USER:
        if (p_um_co != nullptr)
            p_um_co->write(text, len);
        break;
    default:
        trc_print_co(text, len);
        break;
    }
}

void trc_out_line(std::uint32_t mask, const char* text, int len)
{
    const bool to_kmsg = (mask & TRC_KMSG) != 0 && modei != TRC_MODE_KMSG;
    const int fd = to_kmsg ? plat_open(KMSG, O_WRONLY | O_CLOEXEC) : -1;
    if (fd < 0) {
        trc_out(text, len);
        return;
    }
    plat_write(fd, text, static_cast<std::size_t>(len));
    plat_close(fd);
}

trc_print_fn trc_print_co_attach(trc_print_fn fn)
{
    const trc_print_fn old = trc_print_co;
    trc_print_co = fn;
    return old;
}

void trc_usermode_if_attach(const trc_usermode_co* p_co)
{
    p_um_co = p_co;
}

const char* trc_get_buf_start()
{
    return p_buf_start;
}

void trc_out_buf_sz(std::size_t* p_used, std::size_t* p_free)
{
    *p_used = static_cast<std::size_t>(p_buf_tail - p_buf_start);
    *p_free = static_cast<std::size_t>(p_buf_end - p_buf_tail);
}

void trc_out_buf_clear()
{
    p_buf_tail = p_buf_start;
}
