// What the files of the channel share.
#pragma once

#include <cstdint>

#include "ftm_linux/ftm_linux.h"

// Requests of the diag driver.
constexpr unsigned long FTM_REQ_SEND = 100;
constexpr unsigned long FTM_REQ_RECEIVE = 101;
constexpr unsigned long FTM_REQ_LOCAL_200 = 102;
constexpr unsigned long FTM_REQ_LOG_SIZE = 103;
constexpr unsigned long FTM_REQ_LOG_READ = 104;
constexpr unsigned long FTM_REQ_LOG_FILTER = 105;
constexpr unsigned long FTM_REQ_LOG_CLEAR = 106;
constexpr unsigned long FTM_REQ_LOCAL_204 = 107;
constexpr unsigned long FTM_REQ_RECORD = 108;
constexpr unsigned long FTM_REQ_SECOND_RECORD = 109;

// The driver counts a log without the length of its first record.
constexpr int FTM_LOG_HEAD = 4;

// A packet as the driver takes and gives it.
struct ftm_block {
    std::uint32_t size;
    std::uint8_t data[FTM_MAX_PACKET];
};
static_assert(sizeof(ftm_block) == 4 + 32768);

// Where the caller of ftm_cmd wants the response.
struct ftm_reply {
    std::uint8_t* p_data;
    std::uint32_t room;
    std::uint32_t* p_size;
};

// Gives the caller as much of the packet as it has room for.
void ftm_reply_set(const ftm_reply& reply, const std::uint8_t* p_data, std::uint32_t size);

int ftm_ioctl(unsigned long request, void* arg);

// Carries out a local command: true when the request was one. False when it is for the modem; command 208 may
// have put another request in its place.
bool ftm_chk_cust_ftmc(ftm_block* p_request, const ftm_reply& reply);
