// The channel to the modem's factory test mode: one synchronous exchange of a diag packet at a time, and the
// local commands 200 to 209 that work on the driver's log store. It owns /dev/diag, which is opened once at
// start-up. It knows nothing of what the packets mean. No lock: exchanges must not overlap; the log calls may
// run beside them.
#pragma once

#include <cstdint>

// A request is shorter than this, a response at most this long.
constexpr std::uint32_t FTM_MAX_PACKET = 32768;

// Room that holds the responses of the factory tests.
constexpr std::uint32_t FTM_MAX_RESP_LEN = 8192;

// One pattern of the filter: a request passes when it begins with these bytes. A pattern of length 0 ends a
// table.
struct ftm_filter {
    const std::uint8_t* p_bytes;
    std::uint32_t length;
};

// Entry of the driver tier.
void ftm_init();

// Opens the channel, and closes it. A closed channel isn't opened again: exchanges then take their time and
// fail.
void ftm_start();
void ftm_stop();

// 1 once the channel was opened, 0 on a phone without it.
int ftm_active();

// How long an exchange may wait in all, in milliseconds; 0 restores 25000.
void ftm_set_timeout(std::uint32_t ms);
std::uint32_t ftm_get_timeout();

// Sends the packet `cmd` of `cmd_size` bytes and waits for its response, of which at most `res_room` bytes go
// to `p_res` and whose size goes to `*p_res_size`. `p_res` may be `cmd`. 1 on success; 0 on failure, when the
// size is 0 or, after ten responses that don't belong to the request, that of the last one. A request is sent
// once more for each response whose first 3 bytes differ from its own. Blocks the caller.
int ftm_cmd(const std::uint8_t* cmd, std::uint32_t cmd_size, std::uint8_t* p_res, std::uint32_t res_room,
            std::uint32_t* p_res_size);

// The size of the log store in bytes; below 1 when it is empty or can't be read.
int ftm_get_log_sz();

// Reads the log store into `sz` bytes, more than 4; gives the bytes read, below 1 when that failed. The store
// is a sequence of records: 32 bits of length, little-endian, and as many bytes.
int ftm_get_log(std::uint8_t* buf, std::uint32_t sz);

// The table of requests that ftm_cmd lets through while the filter is on. Without a table all pass.
void ftm_filter_attach(const ftm_filter* p_tab);
void ftm_filter_enable(bool on);
