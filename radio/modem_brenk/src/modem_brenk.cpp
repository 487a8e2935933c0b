#include "modem_brenk/modem_brenk.h"

#include <cstdint>

#include "ftm_linux/ftm_linux.h"
#include "modem/modem.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

namespace {

constexpr const char* DIAG_NODE = "/dev/diag";
constexpr unsigned long REQ_MODEM_UP = 110; // gives 1 once it is

constexpr std::uint32_t BOOT_LIMIT_US = 40000000; // for coming up; for coming up and answering
constexpr std::uint32_t POLL_PAUSE_US = 50000;
constexpr std::uint32_t PROBE_TIMEOUT_MS = 1000;
constexpr std::uint8_t alive_probe[] = {0x4B, 0x0B, 0x00, 0x80, 0x00, 0x00};
constexpr std::size_t PROBE_ROOM = 80;

// The node on a descriptor of its own: the channel's is busy with exchanges, or closed.
class diag_file {
public:
    diag_file() : fd(plat_open(DIAG_NODE, O_RDWR | O_CLOEXEC)) {}
    ~diag_file()
    {
        if (fd >= 0)
            plat_close(fd);
    }
    diag_file(const diag_file&) = delete;
    diag_file& operator=(const diag_file&) = delete;
    bool is_open() const { return fd >= 0; }
    bool modem_is_up() const { return plat_ioctl(fd, REQ_MODEM_UP, nullptr) == 1; }

private:
    int fd;
};

// A short time-out of the channel for as long as it lives; the usual one afterwards.
class probe_timeout {
public:
    probe_timeout() { ftm_set_timeout(PROBE_TIMEOUT_MS); }
    ~probe_timeout() { ftm_set_timeout(0); }
    probe_timeout(const probe_timeout&) = delete;
    probe_timeout& operator=(const probe_timeout&) = delete;
};

bool wait_until_up()
{
    const diag_file diag;
    if (!diag.is_open())
        return false;
    std::uint32_t budget_us = BOOT_LIMIT_US;
    while (!diag.modem_is_up() && budget_us >= 1) {
        tmr_usleep(POLL_PAUSE_US);
        budget_us -= POLL_PAUSE_US;
    }
    return budget_us > 0;
}

// A modem that is up and silent is up all the same: the probes only give it time to get ready.
void wait_until_it_answers(std::uint32_t start)
{
    const probe_timeout timeout;
    std::uint8_t response[PROBE_ROOM];
    std::uint32_t size;
    int answered;
    do {
        answered = ftm_cmd(alive_probe, sizeof alive_probe, response, sizeof response, &size);
        tmr_usleep(POLL_PAUSE_US);
    } while (answered != 1 && tmr_get() - start < BOOT_LIMIT_US);
}

int modem_brenk_boot(std::uint32_t mode)
{
    const std::uint32_t start = tmr_get();
    if (!wait_until_up())
        return 0;
    if (mode != MODEM_KICKSTART)
        wait_until_it_answers(start);
    return 1;
}

// clang-format off
constexpr modem_co modem_brenk_co = {
    .boot       = modem_brenk_boot,
    .reset      = [](std::uint32_t) { return 0; },
    .switch_get = [](std::uint32_t*) { return 0; },
    .switch_set = [](std::uint32_t) { return 0; },
    .fuse       = nullptr,
    .id         = nullptr,
};
// clang-format on

} // namespace

void modem_brenk_init()
{
    modem_co_attach(&modem_brenk_co);
}
