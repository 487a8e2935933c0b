// The state machine of one attempt: what is sent to the chip, what its replies lead to, and how it ends. Its
// steps run on the writer's thread of the link, one after the other; the guard timer only sends a step there.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "container.h"
#include "dal.h"

namespace pn65_dnld {

// Outcomes of an attempt.
constexpr int DOWNLOAD_GOOD = 144;
constexpr int DOWNLOAD_FAILED = 159;

// Further results of the state machine's functions.
constexpr int DNLD_TOO_MANY_RETRIES = 255;
constexpr int DNLD_BAD_CONTAINER = 256;
constexpr int DNLD_STATUS = 0x900; // and the status byte of a reply
constexpr int DNLD_BAD_LENGTH = 2331;
constexpr int DNLD_NO_GROUP = 2332; // a refusal that no other group of frames can mend
constexpr int DNLD_BAD_FRAME = 2355;
constexpr int DNLD_BAD_STATUS = 2362;
constexpr int DNLD_BAD_CHECK = 0x9FF;

// Commands of the chip.
constexpr std::uint8_t CMD_RESET = 1;
constexpr std::uint8_t CMD_6 = 6;
constexpr std::uint8_t CMD_READ = 7;
constexpr std::uint8_t CMD_WRITE = 8;
constexpr std::uint8_t CMD_9 = 9;
constexpr std::uint8_t CMD_PREPARATION = 10;
constexpr std::uint8_t CMD_CHECK = 11;
constexpr std::uint8_t CMD_WRITE_12 = 12;
constexpr std::uint8_t CMD_PIECE = 13;
constexpr std::uint8_t CMD_RESET_66 = 66;

constexpr std::uint32_t RESET_US = 100000; // around a reset
constexpr std::size_t REPLY_HEAD = 3;
constexpr int MOST_RETRIES = 5;

// Steps of the preparation and the end; the values are those of the sequencer.
constexpr int STEP_WRITE = 7;
constexpr int STEP_CHECK = 8;
constexpr int STEP_RAW = 11;
constexpr int PHASE_RESET = 0;
constexpr int PHASE_STEPS = 1;
constexpr int PHASE_WRITE = 2;
constexpr int PHASE_END_STEPS = 3;
constexpr int PHASE_VERIFY = 4;

struct sequencer {
    int phase = PHASE_RESET, next_phase = PHASE_RESET, kept_phase = PHASE_RESET;
    int step = 0, next_step = 0, kept_step = 0;
};

// How far a section is.
struct section_state {
    enum class exchange { none, keep_read, write, read_back };
    exchange last = exchange::none;
    std::size_t done = 0;
    int retries = 0;
    bool kept_is_there = false;
    std::vector<std::uint8_t> kept;  // what the chip had there
    std::vector<std::uint8_t> chunk; // as it was sent last
};

// How far a walk over raw records is.
struct raw_state {
    std::size_t at = 0;
    std::uint8_t mask = 0xF0; // groups that are still to be sent
    std::optional<raw_record> current;
    std::size_t sent = 0;  // bytes of its frame, of one that goes in pieces
    std::size_t piece = 0; // the last of them
    bool abandoned = false;
    int retries = 0;
};

struct download {
    dal_link* p_link = nullptr;
    const dal_link::operations* p_ops = nullptr;
    void (*complete)(void* context, int type) = nullptr;
    void* complete_context = nullptr;
    std::uint32_t guard = TIMER_NONE;
    deferred_call abort_call{};
    bool ended = false;

    container firmware;
    sequencer seq;
    std::size_t current = 0; // section
    section_state writing;   // of it
    raw_state raw;

    std::uint8_t last_command = 0;
    std::size_t expected = 0; // bytes of the reply
    int strikes = 0;
    bool struck = false;                  // by the last reply
    bool accepted = false;                // the last reply
    std::vector<std::uint8_t> data;       // of the last reply to a reading
    std::vector<std::uint8_t> check_data; // of the last reply to a reading of the check values
};

// Prepares the context, looks through the firmware and sends the first frame. NFCSTATUS_PENDING: the machine
// runs, and `complete` will be called once, on the writer's thread. Anything else: it doesn't.
int phDnldNfc_Upgrade(download& d, dal_link& link, bytes_view firmware,
                      void (*complete)(void* context, int type), void* context);

// Behind the end: no timer is left.
void phDnldNfc_Release(download& d);

// For the parts of the machine: sends a command with its payload, or a whole frame. NFCSTATUS_PENDING, or
// what failed.
int phDnldNfc_Send_Command(download& d, std::uint8_t command, std::span<const std::uint8_t> payload = {});
int phDnldNfc_Send(download& d, std::span<const std::uint8_t> frame);
int send_read(download& d, std::uint32_t address, std::size_t count);
int send_write(download& d, std::uint8_t command, std::uint32_t address, std::span<const std::uint8_t> data);

// Goes on with the sections, with the raw records. NFCSTATUS_SUCCESS when all are done.
int phDnldNfc_Resume_Write(download& d);
int phDnldNfc_Raw_Write(download& d);

// Takes a reply that is at least its head into account: an error, or 0.
int judge_reply(download& d, std::span<const std::uint8_t> reply);

// How far a download has come: 0 at the program's start, then 1 in the preparation, 2 while it writes, 3
// behind the low sections. No attempt clears it.
extern int gphDnldPhase;
constexpr int DNLD_PREPARES = 1;
constexpr int DNLD_WRITES = 2;
constexpr int DNLD_PAST_LOW = 3;

} // namespace pn65_dnld
