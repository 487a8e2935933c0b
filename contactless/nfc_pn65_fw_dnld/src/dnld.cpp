#include "dnld.h"

#include <algorithm>
#include <numeric>

#include "tmr/tmr.h"

namespace pn65_dnld {

int gphDnldPhase;

namespace {

constexpr std::uint32_t NOTIFY_US = 100000;
constexpr std::uint32_t GUARD_MS = 16384;
constexpr std::size_t CHECK_SIZE = 16;
constexpr int MOST_STRIKES = 2;

// Sequences that phDnldNfc_Set_Seq begins or moves.
enum class sequence { sections, raw, prepared_sections, move, back };

void phDnldNfc_Set_Seq(sequencer& s, sequence which)
{
    switch (which) {
    case sequence::sections:
        s = {PHASE_RESET, PHASE_WRITE, s.kept_phase, STEP_WRITE, STEP_WRITE, s.kept_step};
        break;
    case sequence::raw:
        s = {PHASE_RESET, PHASE_WRITE, s.kept_phase, STEP_RAW, STEP_RAW, s.kept_step};
        break;
    case sequence::prepared_sections:
        if (gphDnldPhase < DNLD_WRITES)
            s = {PHASE_RESET, PHASE_STEPS, s.kept_phase, 1, 1, s.kept_step};
        else
            phDnldNfc_Set_Seq(s, sequence::sections);
        break;
    case sequence::move:
        s.kept_phase = s.phase;
        s.phase = s.next_phase;
        s.kept_step = s.step;
        s.step = s.next_step;
        break;
    case sequence::back:
        s.phase = s.kept_phase;
        s.step = s.kept_step;
        s.next_step = 12;
        break;
    }
}

// Ends the attempt, once: nobody hears of the link any more but by `complete`.
void finish(download& d, int type)
{
    if (d.ended)
        return;
    d.ended = true;
    phOsalNfc_Timer_Stop(d.guard);
    d.p_ops->read_wait_cancel(*d.p_link);
    d.p_ops->unregister(*d.p_link);
    d.p_ops->shutdown(*d.p_link);
    tmr_usleep(NOTIFY_US);
    d.complete(d.complete_context, type);
}

void phDnldNfc_Abort(void* arg)
{
    finish(*static_cast<download*>(arg), DOWNLOAD_FAILED);
}

// On the timer's thread.
void guard_expired(std::uint32_t, void* context)
{
    auto& d = *static_cast<download*>(context);
    link_abort(*d.p_link, d.abort_call);
}

// A step of the preparation that writes to the chip, and the one behind it.
int write_step(download& d, std::uint32_t address, std::span<const std::uint8_t> data)
{
    const int result = send_write(d, CMD_WRITE, address, data);
    if (result != NFCSTATUS_PENDING)
        phDnldNfc_Set_Seq(d.seq, sequence::back);
    return result;
}

int phDnldNfc_Sequence(download& d)
{
    constexpr std::uint8_t ENTER[] = {1}, LEAVE[] = {0}, CLEARED[] = {0x00, 0x00};
    constexpr std::uint8_t PATCH_1[] = {0xA5, 0xD0, 0xFE, 0xA5, 0xD0, 0xFD, 0xA5,
                                        0xD0, 0xFC, 0xA5, 0x02, 0x80, 0xA9, 0x75};
    constexpr std::uint8_t PATCH_2[] = {0xA0, 0xA1, 0xE0, 0x80, 0xA9, 0x6C};
    switch (d.seq.step) {
    case 1:
        gphDnldPhase = DNLD_PREPARES;
        d.seq.next_step = 3;
        return phDnldNfc_Send_Command(d, CMD_PREPARATION, ENTER);
    case 2:
        d.seq.next_phase = PHASE_RESET;
        return phDnldNfc_Send_Command(d, CMD_PREPARATION, LEAVE);
    case 3:
        d.seq.next_step = 4;
        return write_step(d, 0x01A1E0, PATCH_1);
    case 4:
        d.seq.next_phase = PHASE_RESET;
        return write_step(d, 0x00825A, PATCH_2);
    case 6:
        d.seq.next_step = 2;
        return write_step(d, 0x008002, CLEARED);
    case STEP_WRITE:
        return phDnldNfc_Resume_Write(d);
    case STEP_CHECK:
        d.seq.next_phase = PHASE_RESET;
        return phDnldNfc_Send_Command(d, CMD_CHECK);
    default:
        return NFCSTATUS_INVALID_PARAMETER;
    }
}

// A reset, and what comes behind it by the step before it.
int reset_phase(download& d)
{
    switch (d.seq.step) {
    case 2:
        d.seq.next_phase = PHASE_WRITE;
        d.seq.next_step = STEP_WRITE;
        gphDnldPhase = DNLD_WRITES;
        break;
    case 4:
        d.seq.next_phase = PHASE_STEPS;
        d.seq.next_step = 6;
        break;
    case STEP_CHECK:
        d.seq.next_phase = PHASE_VERIFY;
        break;
    default:
        break;
    }
    return phDnldNfc_Send_Command(d, CMD_RESET);
}

int write_phase(download& d)
{
    const int result = d.seq.step == STEP_RAW ? phDnldNfc_Raw_Write(d) : phDnldNfc_Resume_Write(d);
    if (result != NFCSTATUS_SUCCESS || d.seq.next_phase != PHASE_VERIFY)
        return result;
    d.seq.next_phase = PHASE_END_STEPS;
    d.seq.step = d.seq.next_step = STEP_CHECK;
    return phDnldNfc_Sequence(d);
}

// The chip's check values, each behind a status: with fewer than three marked places in the container the
// status bytes alone count.
int verify(const download& d)
{
    struct value_row {
        std::uint32_t address;
        std::size_t at; // of the value in the chip's data
    };
    constexpr std::size_t STATUS_AT[] = {0, 3, 6, 11};
    constexpr value_row VALUES[] = {{CHECKED_8200, 4}, {CHECKED_800000, 7}, {CHECKED_18800, 12}};
    if (d.check_data.size() != CHECK_SIZE)
        return DNLD_BAD_CHECK;
    std::uint8_t sum = 0;
    for (const std::size_t at : STATUS_AT)
        sum = static_cast<std::uint8_t>(sum + d.check_data[at]);
    bool equal = true, all_known = true;
    for (const value_row& row : VALUES) {
        const bytes_view wanted = container_check_value(d.firmware, row.address);
        all_known = all_known && !wanted.empty();
        equal = equal && std::ranges::equal(wanted, std::span(d.check_data).subspan(row.at, wanted.size()));
    }
    return sum == 0 && (equal || !all_known) ? NFCSTATUS_SUCCESS : DNLD_BAD_CHECK;
}

int run_phase(download& d)
{
    switch (d.seq.phase) {
    case PHASE_RESET:
        return reset_phase(d);
    case PHASE_STEPS:
    case PHASE_END_STEPS:
        return phDnldNfc_Sequence(d);
    case PHASE_WRITE:
        return write_phase(d);
    default:
        return verify(d);
    }
}

void phDnldNfc_Resume(download& d)
{
    const int result = run_phase(d);
    if (result != NFCSTATUS_PENDING)
        finish(d, result == NFCSTATUS_SUCCESS ? DOWNLOAD_GOOD : DOWNLOAD_FAILED);
}

void go_on(download& d)
{
    phDnldNfc_Set_Seq(d.seq, sequence::move);
    phDnldNfc_Resume(d);
}

bool is_reset(std::uint8_t command)
{
    return command == CMD_RESET || command == CMD_RESET_66;
}

void phDnldNfc_Send_Complete(void* context, int status, std::size_t)
{
    auto& d = *static_cast<download*>(context);
    d.struck = false;
    if (status != NFCSTATUS_SUCCESS) {
        finish(d, DOWNLOAD_FAILED);
        return;
    }
    if (is_reset(d.last_command) || d.last_command == CMD_9) {
        d.expected = 0;
        d.strikes = 0;
        if (is_reset(d.last_command))
            tmr_usleep(RESET_US);
        phOsalNfc_Timer_Stop(d.guard);
        go_on(d);
        return;
    }
    const int result = d.p_ops->read(*d.p_link, d.expected);
    if (result == NFCSTATUS_SUCCESS)
        phDnldNfc_Resume(d);
    else if (result != NFCSTATUS_PENDING)
        finish(d, DOWNLOAD_FAILED);
}

// A reply that is too short is dropped, and the guard timer ends the attempt.
void phDnldNfc_Receive_Complete(void* context, std::span<const std::uint8_t> reply)
{
    auto& d = *static_cast<download*>(context);
    if (reply.size() < REPLY_HEAD)
        return;
    phOsalNfc_Timer_Stop(d.guard);
    const int error = judge_reply(d, reply);
    if (error != 0 && d.strikes >= MOST_STRIKES) {
        finish(d, DOWNLOAD_FAILED);
    } else if (error != 0 && ((error & 0xFF) == 0 || (error & 0xFF) == 51)) {
        finish(d, DOWNLOAD_GOOD);
    } else {
        d.expected = 0;
        go_on(d);
    }
}

// What the container is decides the order of the steps.
int phDnldNfc_Process_FW(download& d, bytes_view bytes)
{
    auto firmware = container_read(bytes);
    if (!firmware)
        return DNLD_BAD_CONTAINER;
    d.firmware = std::move(*firmware);
    d.raw.at = d.firmware.raw_at;
    if (d.firmware.raw)
        phDnldNfc_Set_Seq(d.seq, sequence::raw);
    else if ((d.firmware.sections.front().flags & SECTION_PREPARE) != 0)
        phDnldNfc_Set_Seq(d.seq, sequence::prepared_sections);
    else
        phDnldNfc_Set_Seq(d.seq, sequence::sections);
    return NFCSTATUS_SUCCESS;
}

// How long the reply to a command is; that to a reading depends on the count.
std::size_t reply_size(std::uint8_t command)
{
    if (is_reset(command))
        return 0;
    return command == CMD_CHECK ? REPLY_HEAD + CHECK_SIZE : REPLY_HEAD;
}

} // namespace

int phDnldNfc_Send(download& d, std::span<const std::uint8_t> frame)
{
    if (!phOsalNfc_Timer_Start(d.guard, GUARD_MS, guard_expired, &d))
        return NFCSTATUS_WRITE_FAILED;
    return d.p_ops->write(*d.p_link, frame);
}

int phDnldNfc_Send_Command(download& d, std::uint8_t command, std::span<const std::uint8_t> payload)
{
    std::vector<std::uint8_t> frame = {command, static_cast<std::uint8_t>(payload.size() >> 8),
                                       static_cast<std::uint8_t>(payload.size())};
    frame.insert(frame.end(), payload.begin(), payload.end());
    d.last_command = command;
    d.expected = reply_size(command);
    if (command == CMD_RESET)
        tmr_usleep(RESET_US);
    return phDnldNfc_Send(d, frame);
}

int send_read(download& d, std::uint32_t address, std::size_t count)
{
    const std::uint8_t target[] = {static_cast<std::uint8_t>(address >> 16),
                                   static_cast<std::uint8_t>(address >> 8),
                                   static_cast<std::uint8_t>(address), static_cast<std::uint8_t>(count >> 8),
                                   static_cast<std::uint8_t>(count)};
    const int result = phDnldNfc_Send_Command(d, CMD_READ, target);
    d.expected = REPLY_HEAD + count;
    return result;
}

int send_write(download& d, std::uint8_t command, std::uint32_t address, std::span<const std::uint8_t> data)
{
    std::vector<std::uint8_t> payload = {
        static_cast<std::uint8_t>(address >> 16), static_cast<std::uint8_t>(address >> 8),
        static_cast<std::uint8_t>(address), static_cast<std::uint8_t>(data.size() >> 8),
        static_cast<std::uint8_t>(data.size())};
    payload.insert(payload.end(), data.begin(), data.end());
    return phDnldNfc_Send_Command(d, command, payload);
}

int phDnldNfc_Upgrade(download& d, dal_link& link, bytes_view firmware,
                      void (*complete)(void* context, int type), void* context)
{
    d.p_link = &link;
    d.complete = complete;
    d.complete_context = context;
    d.abort_call = {phDnldNfc_Abort, &d};
    const link_callbacks callbacks = {&d, phDnldNfc_Send_Complete, phDnldNfc_Receive_Complete,
                                      phDnldNfc_Abort};
    int result = phDal4Nfc_Register(link, callbacks, &d.p_ops);
    if (result != NFCSTATUS_SUCCESS)
        return result;
    d.guard = phOsalNfc_Timer_Create();
    if (d.guard == TIMER_NONE)
        return NFCSTATUS_INVALID_DEVICE;
    result = d.p_ops->init(link);
    if (result == NFCSTATUS_SUCCESS)
        result = d.p_ops->read_wait(link);
    if (result == NFCSTATUS_SUCCESS)
        result = phDnldNfc_Process_FW(d, firmware);
    return result == NFCSTATUS_SUCCESS ? phDnldNfc_Send_Command(d, CMD_RESET) : result;
}

void phDnldNfc_Release(download& d)
{
    phOsalNfc_Timer_Delete(d.guard);
    d.guard = TIMER_NONE;
}

} // namespace pn65_dnld
