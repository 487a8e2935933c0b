// The exchange with the modem. The local commands stand in ftm_local.cpp.
#include "ftm_linux/ftm_linux.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "check/check.h"
#include "ftm_inner.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

namespace {

constexpr const char* DIAG_NODE = "/dev/diag";

constexpr std::uint32_t DEFAULT_TIMEOUT_MS = 25000;
constexpr int MAX_ATTEMPTS = 10;
constexpr std::uint32_t TRAILING_BYTES = 3; // behind a response's packet; nobody looks at them
constexpr std::uint32_t MATCHED_BYTES = 3;  // a response begins as its request does

enum class attempt { answered, mismatched, failed };

int fd = -1;
bool ftm_run;
std::uint32_t ftm_timeout_ms = DEFAULT_TIMEOUT_MS;
const ftm_filter* ftm_flt_tbl;
bool ftm_flt_active;
ftm_block ftm_data; // the request

bool ftm_flt_chk(const ftm_block& request)
{
    for (const ftm_filter* p = ftm_flt_tbl; p->length != 0; p++)
        if (p->length <= request.size && std::memcmp(p->p_bytes, request.data, p->length) == 0)
            return true;
    return false;
}

// Repeats the request every millisecond for as long as the driver isn't ready and budget is left.
bool ioctl_until_ready(unsigned long request, ftm_block* p_block, std::uint32_t* p_budget_ms)
{
    while (ftm_ioctl(request, p_block) != 1 && *p_budget_ms > 0) {
        tmr_usleep(1000);
        --*p_budget_ms;
    }
    return *p_budget_ms > 0;
}

bool ftm_response_is_valid(const ftm_block& response)
{
    return std::memcmp(response.data, ftm_data.data, MATCHED_BYTES) == 0;
}

attempt try_once(std::uint32_t cmd_size, ftm_block* p_response, const ftm_reply& reply,
                 std::uint32_t* p_budget_ms)
{
    *reply.p_size = 0;
    if (!ioctl_until_ready(FTM_REQ_SEND, &ftm_data, p_budget_ms))
        return attempt::failed;
    if (!ioctl_until_ready(FTM_REQ_RECEIVE, p_response, p_budget_ms))
        return attempt::failed;
    if (p_response->size <= TRAILING_BYTES)
        return attempt::failed; // an empty packet
    ftm_reply_set(reply, p_response->data, std::min(p_response->size - TRAILING_BYTES, FTM_MAX_PACKET));
    if (cmd_size < MATCHED_BYTES || ftm_response_is_valid(*p_response))
        return attempt::answered;
    return attempt::mismatched;
}

} // namespace

int ftm_ioctl(unsigned long request, void* arg)
{
    return fd > 0 ? plat_ioctl(fd, request, arg) : -1;
}

void ftm_reply_set(const ftm_reply& reply, const std::uint8_t* p_data, std::uint32_t size)
{
    *reply.p_size = std::min(size, reply.room);
    std::memcpy(reply.p_data, p_data, *reply.p_size);
}

void ftm_init()
{
    ftm_flt_tbl = nullptr;
    ftm_flt_active = false;
}

void ftm_start()
{
    fd = plat_open(DIAG_NODE, O_RDWR | O_CLOEXEC);
    if (fd > 0)
        ftm_run = true;
}

void ftm_stop()
{
    if (fd > 0)
        plat_close(fd);
    fd = -1; // the number may soon be another file's
}

int ftm_active()
{
    return ftm_run ? 1 : 0;
}

void ftm_set_timeout(std::uint32_t ms)
{
    ftm_timeout_ms = ms != 0 ? ms : DEFAULT_TIMEOUT_MS;
}

std::uint32_t ftm_get_timeout()
{
    return ftm_timeout_ms;
}

int ftm_cmd(const std::uint8_t* cmd, std::uint32_t cmd_size, std::uint8_t* p_res, std::uint32_t res_room,
            std::uint32_t* p_res_size)
{
    HVT_CHECK(cmd_size < FTM_MAX_PACKET);
    HVT_CHECK(p_res != nullptr);
    const ftm_reply reply = {p_res, res_room, p_res_size};
    *p_res_size = 0;
    if (!ftm_run)
        return 0; // a phone without the channel
    std::uint32_t budget_ms = ftm_timeout_ms;
    std::memcpy(ftm_data.data, cmd, cmd_size);
    ftm_data.size = cmd_size;
    static ftm_block response;
    response.size = cmd_size;
    std::memset(response.data, 0, std::max(cmd_size, MATCHED_BYTES));
    if (ftm_chk_cust_ftmc(&ftm_data, reply))
        return 1;
    if (ftm_flt_active && !ftm_flt_chk(ftm_data))
        return 0;
    for (int i = 0; i < MAX_ATTEMPTS; i++) {
        const attempt outcome = try_once(cmd_size, &response, reply, &budget_ms);
        if (outcome != attempt::mismatched)
            return outcome == attempt::answered ? 1 : 0;
    }
    return 0;
}

int ftm_get_log_sz()
{
    const int size = ftm_ioctl(FTM_REQ_LOG_SIZE, nullptr);
    return size >= 1 ? size + FTM_LOG_HEAD : size;
}

int ftm_get_log(std::uint8_t* buf, std::uint32_t sz)
{
    HVT_CHECK(sz > FTM_LOG_HEAD);
    std::memcpy(buf, &sz, sizeof sz);
    const int size = ftm_ioctl(FTM_REQ_LOG_READ, buf);
    return size > 0 ? size + FTM_LOG_HEAD : size;
}

void ftm_filter_attach(const ftm_filter* p_tab)
{
    ftm_flt_tbl = p_tab;
}

void ftm_filter_enable(bool on)
{
    if (ftm_flt_tbl != nullptr)
        ftm_flt_active = on;
}
