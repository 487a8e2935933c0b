#include "line.h"

#include <algorithm>
#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <cstdio>
#include <iterator>

#include "pin/pin.h"
#include "pin/signals.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

namespace qxr5170jvk {

namespace {

constexpr const char* LINE_PATH = "/dev/ttyHSL1";
constexpr const char* CTRL_PATH = "/dev/tamiro_ctrl";

// Requests of the control device.
constexpr unsigned long REQ_CEN_ON = 0xCC01;
constexpr unsigned long REQ_CEN_OFF = 0xCC02;
constexpr unsigned long REQ_PON_ON = 0xCC03;
constexpr unsigned long REQ_PON_OFF = 0xCC04;
constexpr unsigned long REQ_TVDD_ON = 0xCC09;
constexpr unsigned long REQ_TVDD_OFF = 0xCC0A;
constexpr unsigned long REQ_HSEL = 0x8004CC06; // one byte
constexpr unsigned long REQ_SIM_BEGIN = 0xCC16;
constexpr unsigned long REQ_SIM_END = 0xCC17; // the result's place

struct rate_row {
    std::uint32_t rate;
    std::uint8_t code; // on the wire
    unsigned speed;    // the terminal's setting
};

// clang-format off
constexpr rate_row rates[] = {
    { RATE_460800, 22, B460800 },
    { RATE_115200, 20, B115200 },
    { RATE_230400, 21, B230400 },
};
// clang-format on
static_assert(B460800 == 0x1004 && B115200 == 0x1002 && B230400 == 0x1003);

int tamiro_desc = -1;

const rate_row* find_rate(std::uint32_t rate)
{
    const auto found = std::ranges::find(rates, rate, &rate_row::rate);
    return found != std::end(rates) ? found : nullptr;
}

// The control device, open for one call.
class control {
public:
    control() : fd(plat_open(CTRL_PATH, O_WRONLY | O_CLOEXEC)) {}
    control(const control&) = delete;
    control& operator=(const control&) = delete;
    ~control()
    {
        if (fd >= 0)
            plat_close(fd);
    }

    bool request(unsigned long number, void* arg = nullptr) const
    {
        return fd >= 0 && plat_ioctl(fd, number, arg) >= 0;
    }

private:
    int fd;
};

} // namespace

std::uint8_t baud_code(std::uint32_t rate)
{
    const rate_row* const p_row = find_rate(rate);
    return p_row != nullptr ? p_row->code : 0;
}

bool Tamiro_open()
{
    Tamiro_close();
    tamiro_desc = plat_open(LINE_PATH, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    return tamiro_desc >= 0;
}

void Tamiro_close()
{
    if (tamiro_desc >= 0)
        plat_close(tamiro_desc);
    tamiro_desc = -1;
}

ssize_t Tamiro_read(std::uint8_t* buf, std::size_t len)
{
    if (tamiro_desc < 0)
        return -1;
    const ssize_t n = plat_read(tamiro_desc, buf, len);
    for (ssize_t i = 0; i < n; i++)
        std::printf("buf[%d] = 0x%2X", static_cast<int>(i), static_cast<unsigned>(buf[i]));
    if (n > 0) {
        std::putchar('\n');
        std::fflush(stdout);
    }
    return n;
}

bool Tamiro_write(const std::uint8_t* buf, std::size_t len)
{
    return tamiro_desc >= 0 && plat_write(tamiro_desc, buf, len) == static_cast<ssize_t>(len);
}

bool Tamiro_msmbaudrate(std::uint32_t rate)
{
    const rate_row* const p_row = find_rate(rate);
    struct termios settings;
    if (tamiro_desc < 0 || p_row == nullptr || plat_ioctl(tamiro_desc, TCGETS, &settings) < 0)
        return false;
    settings.c_iflag = IGNPAR;
    settings.c_oflag = 0;
    settings.c_lflag = 0;
    settings.c_cflag = CS8 | CREAD | CLOCAL | CRTSCTS | p_row->speed;
    settings.c_cc[VTIME] = 0;
    settings.c_cc[VMIN] = 0;
    return plat_ioctl(tamiro_desc, TCSETS, &settings) >= 0;
}

bool Tamiro_set_cen(bool on)
{
    return control().request(on ? REQ_CEN_ON : REQ_CEN_OFF);
}

bool Tamiro_set_pon(bool on)
{
    return control().request(on ? REQ_PON_ON : REQ_PON_OFF);
}

bool Tamiro_set_tvdd(bool on)
{
    return control().request(on ? REQ_TVDD_ON : REQ_TVDD_OFF);
}

bool Tamiro_set_hsel(bool hci)
{
    std::uint8_t level = hci ? 1 : 0;
    return control().request(REQ_HSEL, &level);
}

bool Tamiro_set_sim(bool on)
{
    return pin_out_set(PIN_OUT_SIM_SELECT, on ? PIN_ACTIVE : PIN_INACTIVE) != 0;
}

bool Tamiro_check_sim_supply(std::uint32_t wait_us, int* p_result)
{
    const control ctrl;
    if (!ctrl.request(REQ_SIM_BEGIN))
        return false;
    tmr_usleep(wait_us);
    *p_result = pin_in_get(PIN_IN_SIM_SUPPLY) == PIN_ACTIVE ? 1 : 0;
    return ctrl.request(REQ_SIM_END, p_result);
}

} // namespace qxr5170jvk
