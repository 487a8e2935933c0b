#include "nfc_pn65_fw_dnld/nfc_pn65_fw_dnld.h"

#include <atomic>
#include <dlfcn.h>
#include <pthread.h>

#include "cfg/cfg.h"
#include "dnld.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

namespace pn65_dnld {

namespace {

constexpr std::uint32_t MOST_ATTEMPTS = 5;
constexpr std::uint32_t LINE_US = 25000; // around each move of a line
constexpr std::uint32_t END_US = 15000;
constexpr std::uint32_t POLL_US = 10000;

// The number of the attempt and the state of the download, as they are told. All of a download is gone before
// it is told to have ended, so the next one may start at once.
constexpr std::uint32_t STATUS_BITS = 7;
constexpr std::uint32_t ATTEMPT = 8;

std::atomic<std::uint32_t> dnld_state;
std::atomic<std::uint32_t> time_gap;

// The firmware library, open for an attempt.
class firmware_library {
public:
    firmware_library() = default;
    firmware_library(const firmware_library&) = delete;
    firmware_library& operator=(const firmware_library&) = delete;
    ~firmware_library()
    {
        if (library != nullptr)
            plat_dlclose(library);
    }

    // Opens it and finds its two symbols; the version's isn't looked at any further.
    bool open()
    {
        const char* const path = cfg_get_str("nfc_pn65_fw_dnld", "nfc_pn65_fw_dnld_path", nullptr);
        if (path == nullptr)
            return false;
        library = plat_dlopen(path, RTLD_NOW);
        if (library == nullptr || plat_dlsym(library, "nxp_nfc_full_version") == nullptr)
            return false;
        nxp_nfc_fw = static_cast<const std::uint8_t*>(plat_dlsym(library, "nxp_nfc_fw"));
        return nxp_nfc_fw != nullptr;
    }

    bytes_view container() const { return {nxp_nfc_fw, CONTAINER_ROOM}; }

private:
    void* library = nullptr;
    const std::uint8_t* nxp_nfc_fw = nullptr;
};

bool set_enable(int level)
{
    tmr_usleep(LINE_US);
    return pin_out_set(PIN_OUT_NFC_ENABLE, level) != 0;
}

// This board has no download line: that it can't be set is no failure.
void set_download(int level, std::uint32_t wait_us)
{
    pin_out_set(PIN_OUT_NFC_DOWNLOAD, level);
    tmr_usleep(wait_us);
}

bool enter_download_mode()
{
    set_download(PIN_INACTIVE, LINE_US);
    set_download(PIN_ACTIVE, LINE_US);
    if (!set_enable(PIN_INACTIVE) || !set_enable(PIN_ACTIVE))
        return false;
    tmr_usleep(LINE_US);
    return true;
}

bool leave_download_mode()
{
    set_download(PIN_INACTIVE, END_US);
    return pin_out_set(PIN_OUT_NFC_ENABLE, PIN_INACTIVE) != 0;
}

void phHal4Nfc_DownloadComplete(void* context, int type)
{
    static_cast<std::atomic<int>*>(context)->store(type);
}

// What ends an attempt: another one may follow it only where the chip was reached.
enum class outcome { good, failed, hopeless };

// The state machine and what it stands on, for one attempt: behind it nothing of it is left.
class machine {
public:
    explicit machine(dal_link& l) : link(l) {}
    machine(const machine&) = delete;
    machine& operator=(const machine&) = delete;
    ~machine()
    {
        phDnldNfc_Release(d);
        link_rest(link);
    }

    bool start(bytes_view firmware)
    {
        return phDnldNfc_Upgrade(d, link, firmware, phHal4Nfc_DownloadComplete, &downloadcomplete) ==
               NFCSTATUS_PENDING;
    }

    int wait_for_end() const
    {
        while (downloadcomplete == 0)
            tmr_usleep(POLL_US);
        return downloadcomplete;
    }

private:
    dal_link& link;
    download d;
    std::atomic<int> downloadcomplete = 0;
};

outcome attempt(dal_link& link)
{
    firmware_library firmware; // goes last of all
    if (!firmware.open() || !link_start(link))
        return outcome::hopeless;
    machine m(link);
    const link_config config = {.wait_behind_57 = true, .time_gap_us = time_gap};
    if (phDal4Nfc_Config(link, config) != NFCSTATUS_SUCCESS || !enter_download_mode())
        return outcome::hopeless;
    if (!m.start(firmware.container()))
        return outcome::failed;
    return m.wait_for_end() == DOWNLOAD_GOOD && !link.i2c_error ? outcome::good : outcome::failed;
}

void* nfc_pn65_fw_dnld_thread(void*)
{
    dal_link link;
    std::uint32_t dnld_nu = 1;
    outcome last = outcome::failed;
    for (; dnld_nu <= MOST_ATTEMPTS; dnld_nu++) {
        dnld_state = dnld_nu * ATTEMPT | NFC_DNLD_RUNNING;
        last = attempt(link);
        if (last != outcome::failed)
            break;
    }
    link_stop(link);
    if (last != outcome::hopeless && !leave_download_mode())
        last = outcome::failed;
    dnld_state = dnld_nu * ATTEMPT | (last == outcome::good ? NFC_DNLD_DONE : NFC_DNLD_FAILED);
    return nullptr;
}

bool start_thread()
{
    pthread_t thread;
    if (pthread_create(&thread, nullptr, nfc_pn65_fw_dnld_thread, nullptr) != 0)
        return false;
    pthread_detach(thread);
    return true;
}

// Of several calls at once one gets the download, which runs from then on.
bool claim()
{
    std::uint32_t state = dnld_state;
    while ((state & STATUS_BITS) != NFC_DNLD_RUNNING)
        if (dnld_state.compare_exchange_weak(state, ATTEMPT | NFC_DNLD_RUNNING))
            return true;
    return false;
}

} // namespace

} // namespace pn65_dnld

void nfc_pn65_fw_dnld_init()
{
    pn65_dnld::dnld_state = NFC_DNLD_IDLE;
}

int nfc_pn65_fw_dnld(std::uint32_t gap_us, std::uint32_t* p_status)
{
    using namespace pn65_dnld;
    if (gap_us == 0) {
        *p_status = dnld_state;
        return 0;
    }
    if (!claim())
        return 1;
    time_gap = gap_us;
    if (start_thread())
        return 0;
    dnld_state = NFC_DNLD_IDLE;
    return 1;
}
