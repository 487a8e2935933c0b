// The local commands: requests whose first byte is 200 to 209. They serve the driver's log store, requests
// and records that are too long for one line of the station, and the time budget.
#include "ftm_inner.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include "check/check.h"
#include "heap/heap.h"

namespace {

constexpr int RECORD_BUF_SIZE = 8192;

using buffer = heap_ptr<std::uint8_t>;

std::uint8_t ftm_data_buf[RECORD_BUF_SIZE]; // commands 207 and 208
int log_size;                               // what command 207 has in it
std::uint32_t pos;                          // what command 208 has in it

buffer allocate(std::size_t size)
{
    buffer buf(static_cast<std::uint8_t*>(std::calloc(1, size)));
    HVT_CHECK(buf != nullptr);
    return buf;
}

std::uint32_t read_u32(const std::uint8_t* p)
{
    return p[0] | p[1] << 8 | p[2] << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

std::array<std::uint8_t, 5> code_and_u32(std::uint8_t code, std::uint32_t value)
{
    return {code, static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
            static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 24)};
}

void reply_code(const ftm_reply& reply, std::uint8_t code)
{
    ftm_reply_set(reply, &code, 1);
}

void reply_code_and_bytes(const ftm_reply& reply, std::uint8_t code, const std::uint8_t* p_data,
                          std::size_t size)
{
    const buffer packet = allocate(1 + size);
    packet.get()[0] = code;
    std::memcpy(packet.get() + 1, p_data, size);
    ftm_reply_set(reply, packet.get(), static_cast<std::uint32_t>(1 + size));
}

// The number of records; one of length 0 or the end of the bytes ends them.
std::uint32_t ftm_parse_log(const std::uint8_t* p_log, std::size_t size)
{
    std::uint32_t count = 0;
    for (std::size_t offset = 0; offset + 4 <= size;) {
        const std::uint32_t length = read_u32(p_log + offset);
        if (length == 0)
            break;
        count++;
        offset += std::size_t{4} + length;
    }
    return count;
}

void count_log(const ftm_reply& reply)
{
    std::uint32_t count = 0;
    if (const int size = ftm_get_log_sz(); size > 0) {
        const buffer log = allocate(static_cast<std::size_t>(size));
        HVT_CHECK(size == ftm_get_log(log.get(), static_cast<std::uint32_t>(size)));
        count = ftm_parse_log(log.get(), static_cast<std::size_t>(size));
    }
    const auto packet = code_and_u32(201, count);
    ftm_reply_set(reply, packet.data(), packet.size());
}

void set_log_filter(ftm_block* p_request, const ftm_reply& reply)
{
    if (p_request->size < 7 || read_u32(p_request->data + 1) != p_request->size - 5)
        return;
    ftm_ioctl(FTM_REQ_LOG_FILTER, p_request->data + 1);
    ftm_reply_set(reply, p_request->data, p_request->size);
}

void read_record(const ftm_reply& reply)
{
    const buffer buf = allocate(RECORD_BUF_SIZE);
    const int size = ftm_ioctl(FTM_REQ_RECORD, buf.get());
    const int bytes = size != 0 ? std::clamp(size + FTM_LOG_HEAD, 0, RECORD_BUF_SIZE) : 0;
    reply_code_and_bytes(reply, 205, buf.get(), static_cast<std::size_t>(bytes));
}

void read_second_record(const ftm_reply& reply)
{
    const buffer buf = allocate(RECORD_BUF_SIZE);
    const int size = ftm_ioctl(FTM_REQ_SECOND_RECORD, buf.get());
    reply_code_and_bytes(reply, 109, buf.get(),
                         static_cast<std::size_t>(std::clamp(size, 0, RECORD_BUF_SIZE)));
}

void start_paged_record(const ftm_reply& reply)
{
    log_size = ftm_ioctl(FTM_REQ_RECORD, ftm_data_buf);
    if (log_size > 0)
        log_size = std::min(log_size, RECORD_BUF_SIZE - FTM_LOG_HEAD) + FTM_LOG_HEAD;
    const std::uint8_t packet[] = {207, static_cast<std::uint8_t>(log_size),
                                   static_cast<std::uint8_t>(log_size >> 8)};
    ftm_reply_set(reply, packet, sizeof packet);
}

void page_record(const ftm_block& request, const ftm_reply& reply)
{
    const int sub = request.size > 1 ? request.data[1] : -1;
    if (sub == 0)
        return start_paged_record(reply);
    if (sub == 1 && request.size >= 5) {
        const int offset = request.data[2] | request.data[3] << 8;
        const int count = request.data[4];
        if (offset + count <= log_size)
            return reply_code_and_bytes(reply, 207, ftm_data_buf + offset, static_cast<std::size_t>(count));
    }
    reply_code(reply, 207);
}

// False when the gathered request has taken the place of this one and is for the modem.
bool gather_request(ftm_block* p_request, const ftm_reply& reply)
{
    const int sub = p_request->size > 1 ? p_request->data[1] : -1;
    if (sub == 2) {
        std::memcpy(p_request->data, ftm_data_buf, pos);
        p_request->size = pos;
        return false;
    }
    if (sub == 0)
        pos = 0;
    if ((sub == 0 || sub == 1) && pos + p_request->size <= RECORD_BUF_SIZE + 1) {
        std::memcpy(ftm_data_buf + pos, p_request->data + 2, p_request->size - 2);
        pos += p_request->size - 2;
    }
    reply_code(reply, 208);
    return true;
}

} // namespace

bool ftm_chk_cust_ftmc(ftm_block* p_request, const ftm_reply& reply)
{
    *reply.p_size = 0;
    if (p_request->size == 0)
        return false;
    switch (p_request->data[0]) {
    case 200:
        ftm_ioctl(FTM_REQ_LOCAL_200, nullptr);
        reply_code(reply, 200);
        return true;
    case 201:
        count_log(reply);
        return true;
    case 202:
        set_log_filter(p_request, reply);
        return true;
    case 203:
        ftm_ioctl(FTM_REQ_LOG_CLEAR, nullptr);
        reply_code(reply, 203);
        return true;
    case 204:
        ftm_ioctl(FTM_REQ_LOCAL_204, nullptr);
        return true;
    case 205:
        read_record(reply);
        return true;
    case 206:
        read_second_record(reply);
        return true;
    case 207:
        page_record(*p_request, reply);
        return true;
    case 208:
        return gather_request(p_request, reply);
    case 209:
        ftm_set_timeout(p_request->size > 1 ? p_request->data[1] * 1000u : 0);
        return true;
    default:
        return false;
    }
}
