#include "dal.h"

#include <cerrno>
#include <utility>

#include "pin/pin.h"
#include "pin/signals.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

namespace pn65_dnld {

namespace {

constexpr const char* DEVICE = "/dev/i2c-10";
constexpr std::uint8_t PORT = 10;
constexpr std::uint16_t ADDRESS = 40;
constexpr int READY_ROUNDS = 1000;
constexpr std::uint32_t READY_ROUND_US = 2000;
constexpr std::uint32_t REPEAT_WRITE_US = 10000;
constexpr int MOST_TRIES = 100; // of a transfer that the kernel asks to be made again
constexpr std::uint8_t NOT_READY = 0x57;
constexpr int NOT_READY_ROUNDS = 5;
constexpr std::uint32_t NOT_READY_US = 2000;

void post(dal_link& link, std::uint32_t type, deferred_call* p_call)
{
    const message m = {type, p_call, sizeof *p_call};
    phDal4Nfc_msgsnd(link.queue, &m, sizeof m);
}

// Sleeps; false when the link has been cancelled meanwhile.
bool pause(dal_link& link, std::uint32_t us)
{
    std::unique_lock lock(link.mutex);
    return !plat_wait_for(link.changed, lock, us, [&link] { return link.cancelled; });
}

// A transfer that didn't fail has carried all bytes.
template <typename Transfer>
bool transferred(Transfer transfer)
{
    for (int i = 0; i < MOST_TRIES; i++) {
        if (transfer() >= 0)
            return true;
        if (errno != EINTR && errno != EAGAIN)
            return false;
    }
    return false;
}

bool syn_pn544_write(const dal_link& link, std::span<const std::uint8_t> data)
{
    return transferred([&] { return i2c_write(&link.bus, data.data(), data.size()); });
}

// Reads also when the chip didn't say that it was ready.
bool syn_pn544_read(dal_link& link, std::span<std::uint8_t> data)
{
    int rounds = 0;
    while (rounds < READY_ROUNDS && pin_in_get(PIN_IN_NFC_IRQ) != PIN_ACTIVE) {
        if (!pause(link, READY_ROUND_US))
            return false;
        rounds++;
    }
    if (rounds == READY_ROUNDS)
        link.i2c_error = true;
    return transferred([&] { return i2c_read(&link.bus, data.data(), data.size()); });
}

void make_write(void* arg)
{
    auto& link = *static_cast<dal_link*>(arg);
    bool written = pause(link, link.config.time_gap_us) && syn_pn544_write(link, link.to_write);
    if (!written && pause(link, REPEAT_WRITE_US))
        written = syn_pn544_write(link, link.to_write);
    link.writing = false;
    if (link.callbacks.send_complete != nullptr)
        link.callbacks.send_complete(link.callbacks.context,
                                     written ? NFCSTATUS_SUCCESS : NFCSTATUS_WRITE_FAILED,
                                     written ? link.to_write.size() : 0);
}

void tell_read(void* arg)
{
    auto& link = *static_cast<dal_link*>(arg);
    if (link.callbacks.receive_complete != nullptr)
        link.callbacks.receive_complete(link.callbacks.context, link.reply);
}

void tell_rest(void* arg)
{
    auto& link = *static_cast<dal_link*>(arg);
    const std::lock_guard lock(link.mutex);
    link.rests = true;
    plat_cond_wake(link.changed);
}

void cancel(dal_link& link)
{
    const std::lock_guard lock(link.mutex);
    link.cancelled = true;
    plat_cond_wake(link.changed);
}

void phOsalNfc_RaiseException(void* arg)
{
    auto& link = *static_cast<dal_link*>(arg);
    if (link.callbacks.exception != nullptr)
        link.callbacks.exception(link.callbacks.context);
}

// A single byte may say that the chip isn't ready yet. False when it doesn't become so.
bool read_behind_57(dal_link& link)
{
    if (!link.config.wait_behind_57 || link.reply.size() != 1)
        return true;
    for (int i = 0; i < NOT_READY_ROUNDS && link.reply[0] == NOT_READY; i++)
        if (!pause(link, NOT_READY_US) || !syn_pn544_read(link, link.reply))
            return true;
    return link.reply[0] != NOT_READY;
}

// A reading that fails is a reply of no bytes.
void* phDal4Nfc_ReaderThread(void* arg)
{
    auto& link = *static_cast<dal_link*>(arg);
    for (;;) {
        std::size_t size;
        {
            std::unique_lock lock(link.mutex);
            plat_wait(link.changed, lock, [&link] { return link.wanted > 0 || !link.alive; });
            if (!link.alive)
                return nullptr;
            size = std::exchange(link.wanted, 0);
            link.reading = true;
        }
        link.reply.assign(size, 0);
        if (!syn_pn544_read(link, link.reply))
            link.reply.clear();
        const bool ready = read_behind_57(link);
        post(link, MSG_DEFERRED, ready ? &link.read_call : &link.exception_call);
        const std::lock_guard lock(link.mutex);
        link.reading = false;
        plat_cond_wake(link.changed);
    }
}

void* upper_write_thread(void* arg)
{
    auto& link = *static_cast<dal_link*>(arg);
    message m;
    while (phDal4Nfc_msgrcv(link.queue, &m, sizeof m) == 0 && m.type != MSG_QUIT)
        if (m.type == MSG_DEFERRED)
            m.p_call->fn(m.p_call->arg);
    return nullptr;
}

bool phDal4Nfc_i2c_open_and_configure(dal_link& link)
{
    link.bus = {PORT, ADDRESS, plat_open(DEVICE, O_RDWR | O_NOCTTY | O_CLOEXEC)};
    return link.bus.fd >= 0;
}

int phDal4Nfc_Init(dal_link& link)
{
    link.initialised = true;
    return NFCSTATUS_SUCCESS;
}

int phDal4Nfc_Shutdown(dal_link& link)
{
    link.initialised = false;
    return NFCSTATUS_SUCCESS;
}

int phDal4Nfc_Write(dal_link& link, std::span<const std::uint8_t> data)
{
    if (!link.initialised)
        return NFCSTATUS_NOT_INITIALISED;
    if (data.empty())
        return NFCSTATUS_INVALID_PARAMETER;
    if (link.writing)
        return NFCSTATUS_BUSY;
    link.writing = true;
    link.to_write.assign(data.begin(), data.end());
    post(link, MSG_DEFERRED, &link.write_call);
    return NFCSTATUS_PENDING;
}

// A reading of no bytes is done at once.
int phDal4Nfc_Read(dal_link& link, std::size_t size)
{
    if (!link.initialised)
        return NFCSTATUS_NOT_INITIALISED;
    if (size == 0)
        return NFCSTATUS_SUCCESS;
    const std::lock_guard lock(link.mutex);
    link.wanted = size;
    plat_cond_wake(link.changed);
    return NFCSTATUS_PENDING;
}

// The chip speaks when it is asked, so there is nothing to wait for.
int phDal4Nfc_ReadWait(dal_link&)
{
    return NFCSTATUS_SUCCESS;
}

// Takes back a reading that hasn't begun.
int phDal4Nfc_ReadWaitCancel(dal_link& link)
{
    const std::lock_guard lock(link.mutex);
    link.wanted = 0;
    return NFCSTATUS_SUCCESS;
}

int phDal4Nfc_Unregister(dal_link& link)
{
    if (link.callbacks.context == nullptr)
        return NFCSTATUS_INVALID_DEVICE;
    link.callbacks = {};
    return NFCSTATUS_SUCCESS;
}

constexpr dal_link::operations link_operations = {
    .init = phDal4Nfc_Init,
    .shutdown = phDal4Nfc_Shutdown,
    .write = phDal4Nfc_Write,
    .read = phDal4Nfc_Read,
    .read_wait = phDal4Nfc_ReadWait,
    .read_wait_cancel = phDal4Nfc_ReadWaitCancel,
    .unregister = phDal4Nfc_Unregister,
};

} // namespace

bool link_start(dal_link& link)
{
    if (link.alive)
        return true;
    link.write_call = {make_write, &link};
    link.read_call = {tell_read, &link};
    link.exception_call = {phOsalNfc_RaiseException, &link};
    link.rest_call = {tell_rest, &link};
    link.alive = true;
    if (link.writer.start("upper_write_thread", upper_write_thread, &link) &&
        link.reader.start("reader", phDal4Nfc_ReaderThread, &link))
        return true;
    link_stop(link);
    return false;
}

int phDal4Nfc_Config(dal_link& link, const link_config& config)
{
    link.config = config;
    link.i2c_error = false;
    {
        const std::lock_guard lock(link.mutex);
        link.cancelled = false;
    }
    return phDal4Nfc_i2c_open_and_configure(link) ? NFCSTATUS_SUCCESS : NFCSTATUS_INVALID_DEVICE;
}

int phDal4Nfc_Register(dal_link& link, const link_callbacks& callbacks, const dal_link::operations** pp_ops)
{
    if (callbacks.context == nullptr)
        return NFCSTATUS_INVALID_PARAMETER;
    link.callbacks = callbacks;
    *pp_ops = &link_operations;
    return NFCSTATUS_SUCCESS;
}

void link_abort(dal_link& link, deferred_call& call)
{
    cancel(link);
    post(link, MSG_DEFERRED, &call);
}

void link_rest(dal_link& link)
{
    cancel(link);
    std::unique_lock lock(link.mutex);
    link.wanted = 0;
    plat_wait(link.changed, lock, [&link] { return !link.reading; });
    link.rests = false;
    post(link, MSG_DEFERRED, &link.rest_call);
    plat_wait(link.changed, lock, [&link] { return link.rests; });
    link.callbacks = {};
    i2c_close(&link.bus);
}

void link_stop(dal_link& link)
{
    {
        const std::lock_guard lock(link.mutex);
        if (!link.alive)
            return;
        link.alive = false;
        plat_cond_wake(link.changed);
    }
    link.reader.join();
    post(link, MSG_QUIT, nullptr);
    link.writer.join();
}

} // namespace pn65_dnld
