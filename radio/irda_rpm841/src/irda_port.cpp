#include "irda_port.h"

#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <cerrno>
#include <iterator>

#include "plat/plat.h"
#include "tmr/tmr.h"

namespace {

constexpr int OPEN_FLAGS = O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC;

struct control_row {
    unsigned long on;
    unsigned long off;
};

// clang-format off
constexpr control_row sel          = { 0xCC0B, 0xCC13 };
constexpr control_row gsbi_uart_en = { 0xCC14, 0xCC15 };
constexpr control_row rxd_en       = { 0xCC0F, 0xCC10 };
constexpr control_row irda_mode_en = { 0xCC11, 0xCC12 };
// clang-format on

// By baud index.
constexpr tcflag_t irda_rpm841_baud_rate[] = {B9600, B19200, B38400, B57600, B115200};

constexpr std::uint32_t WRITE_PAUSE_US = 5000;
constexpr int MOST_WRITE_PAUSES = 200; // a second without a byte taken

constexpr std::uint32_t OUT_PAUSE_US = 20000;
constexpr int MOST_OUT_PAUSES = 15;

struct {
    int control = -1;
    int line = -1;
    const char* control_path;
    const char* line_path;
} irda_rpm841_cfg;

bool irda_rpm841_started;
core_rd_cb_client irda_rpm841_rcc;

bool control(const control_row& row, bool on)
{
    return plat_ioctl(irda_rpm841_cfg.control, on ? row.on : row.off, nullptr) == 0;
}

void close_one(int& fd)
{
    if (fd >= 0)
        plat_close(fd);
    fd = -1;
}

void close_both()
{
    close_one(irda_rpm841_cfg.control);
    close_one(irda_rpm841_cfg.line);
}

bool open_both()
{
    irda_rpm841_cfg.line = plat_open(irda_rpm841_cfg.line_path, OPEN_FLAGS);
    if (irda_rpm841_cfg.line < 0)
        return false;
    irda_rpm841_cfg.control = plat_open(irda_rpm841_cfg.control_path, OPEN_FLAGS);
    return irda_rpm841_cfg.control >= 0;
}

void listen(core_fn fn)
{
    irda_rpm841_rcc.fd = irda_rpm841_cfg.line;
    irda_rpm841_rcc.fn = fn;
    core_add_rd_cb_client(&irda_rpm841_rcc);
}

} // namespace

void irda_port_conf(const char* control_path, const char* line_path)
{
    irda_rpm841_cfg.control_path = control_path;
    irda_rpm841_cfg.line_path = line_path;
}

int irda_port_open(core_fn fn)
{
    if (irda_rpm841_started)
        return 1;
    close_both(); // what a failed closing has left
    if (!open_both() || !control(gsbi_uart_en, true)) {
        close_both();
        return 0;
    }
    listen(fn);
    irda_rpm841_started = control(sel, true);
    if (!irda_rpm841_started) {
        core_rm_rd_cb_client(&irda_rpm841_rcc);
        close_both();
    }
    return irda_rpm841_started ? 1 : 0;
}

int irda_port_close()
{
    if (!irda_rpm841_started)
        return 1;
    irda_rpm841_started = false;
    core_rm_rd_cb_client(&irda_rpm841_rcc);
    if (!control(rxd_en, true) || !control(irda_mode_en, true) || !control(sel, false) ||
        !control(gsbi_uart_en, false))
        return 0;
    close_both();
    return 1;
}

bool irda_port_is_open()
{
    return irda_rpm841_started;
}

int irda_rpm841_rxd_en(bool on)
{
    return irda_rpm841_started && control(rxd_en, on) ? 1 : 0;
}

int irda_rpm841_irda_mode_en(bool on)
{
    return irda_rpm841_started && control(irda_mode_en, on) ? 1 : 0;
}

int irda_rpm841_set_msmbaudrate(std::uint32_t index)
{
    termios tio;
    if (!irda_rpm841_started || index >= std::size(irda_rpm841_baud_rate) ||
        plat_ioctl(irda_rpm841_cfg.line, TCGETS, &tio) != 0)
        return 0;
    tio.c_iflag = IGNPAR;
    tio.c_oflag = 0;
    tio.c_lflag = 0;
    tio.c_cflag = CS8 | CREAD | CLOCAL | CRTSCTS | irda_rpm841_baud_rate[index];
    tio.c_cc[VMIN] = 0;
    tio.c_cc[VTIME] = 0;
    return plat_ioctl(irda_rpm841_cfg.line, TCSETS, &tio) == 0 ? 1 : 0;
}

int irda_port_write(const std::uint8_t* p_data, std::size_t size)
{
    int pauses = 0;
    while (size > 0) {
        const ssize_t n = plat_write(irda_rpm841_cfg.line, p_data, size);
        if (n > 0) {
            p_data += n;
            size -= static_cast<std::size_t>(n);
            pauses = 0;
        } else if ((n < 0 && errno != EAGAIN && errno != EINTR) || pauses++ == MOST_WRITE_PAUSES) {
            return 0;
        } else {
            tmr_usleep(WRITE_PAUSE_US);
        }
    }
    return 1;
}

int irda_port_read(std::uint8_t* p_data, std::size_t size)
{
    const ssize_t n = plat_read(irda_rpm841_cfg.line, p_data, size);
    return n < 0 && (errno == EAGAIN || errno == EINTR) ? 0 : static_cast<int>(n);
}

void irda_rpm841_wait_rcv()
{
    for (int i = 0; i < MOST_OUT_PAUSES; i++) {
        tmr_usleep(OUT_PAUSE_US);
        int all_out = 0;
        if (plat_ioctl(irda_rpm841_cfg.line, TIOCSERGETLSR, &all_out) == 0 && all_out != 0)
            return;
    }
}
