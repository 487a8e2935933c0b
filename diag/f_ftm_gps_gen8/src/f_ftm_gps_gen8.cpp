#include "f_ftm_gps_gen8/f_ftm_gps_gen8.h"

#include <array>
#include <bit>
#include <cstdint>
#include <pthread.h>
#include <span>

#include "check/check.h"
#include "dcp/dcp.h"
#include "ftm_linux/ftm_linux.h"
#include "heap/heap.h"
#include "tmr/tmr.h"

namespace {

constexpr std::uint32_t MAX_ITERATIONS = 10;
constexpr std::uint32_t MAX_SAMPLE_SIZE = 32;

// The log store with the one record of the measurement in it.
constexpr int IQ_LOG_SIZE = 33;
constexpr int IQ_AT_CNR = 21;
constexpr int IQ_AT_INDEX = 25;
constexpr int IQ_LOG_POLLS = 800;
constexpr std::uint32_t IQ_LOG_POLL_US = 100000;

constexpr std::uint32_t PACKET_PAUSE_US = 30000;
constexpr std::uint32_t PACKET_PAUSE_US_PER_BYTE = 1000;

struct byte_at {
    std::size_t offset;
    std::uint8_t value;
};

// A packet that is zero but for a few bytes.
template <std::size_t Size, std::size_t Count>
constexpr std::array<std::uint8_t, Size> sparse(const byte_at (&bytes)[Count])
{
    std::array<std::uint8_t, Size> packet{};
    for (const byte_at& b : bytes)
        packet[b.offset] = b.value;
    return packet;
}

// clang-format off
constexpr std::uint8_t clear_log_buf[]  = { 0xCB };
constexpr std::uint8_t set_log_filter[] = { 0xCA, 0x05, 0x00, 0x00, 0x00, 0x04, 0x10, 0x00, 0x15, 0x00 };
constexpr std::uint8_t enable_logging[] = { 0x60, 0x01 };
constexpr std::uint8_t enter_rf_mode[]  = { 0x4B, 0x0D, 0x65, 0x00, 0x14, 0x01, 0x00 };
constexpr std::uint8_t exit_rf_mode[]   = { 0x4B, 0x0D, 0x65, 0x00, 0x14, 0x01, 0x01 };
constexpr auto add_log_code      = sparse<72>({ { 0, 0x73 }, { 4, 0x01 } });
constexpr auto log_mask_set_ext  = sparse<170>({ { 0, 0x73 }, { 4, 0x04 }, { 12, 0x01 }, { 16, 0xCD }, { 17, 0x04 } });
constexpr auto log_mask_set_ext2 = sparse<170>({ { 0, 0x73 }, { 4, 0x03 }, { 8, 0x01 }, { 12, 0xCD }, { 13, 0x04 },
                                                 { 160, 0x80 } });

// Sample size at 15, low byte first; iterations at 17.
std::uint8_t diagnfIQ[22] = { 0x4B, 0x0D, 0x65, 0x00, 0x16, 0x32, 0x00, 0x10, 0x00, 0x00, 0x00, 0x04, 0x01, 0x00,
                              0x01 };
// clang-format on
constexpr int IQ_AT_SAMPLE_SIZE = 15;
constexpr int IQ_AT_ITERATIONS = 17;

using packet = std::span<const std::uint8_t>;

constexpr packet command_setup[] = {clear_log_buf, set_log_filter, enable_logging};
const packet command_get_iq[] = {enter_rf_mode, add_log_code, log_mask_set_ext, log_mask_set_ext2, diagnfIQ};
constexpr packet command_end[] = {enable_logging, exit_rf_mode};

std::uint8_t id_rcv_buff[FTM_MAX_RESP_LEN];
bool bGetCNR_started;
bool thread_started; // there is a getCnrThread to join
pthread_t thread_id;
std::uint32_t dCNR; // tenths
std::uint32_t MaxFFT_index;

int sendFtm(std::span<const packet> list)
{
    int result = 0;
    for (const packet& p : list) {
        std::uint32_t size = 0;
        const auto bytes = static_cast<std::uint32_t>(p.size());
        result = ftm_cmd(p.data(), bytes, id_rcv_buff, sizeof id_rcv_buff, &size);
        tmr_usleep(PACKET_PAUSE_US + PACKET_PAUSE_US_PER_BYTE * bytes);
    }
    return result;
}

bool checkIQLogSz(int expected)
{
    for (int i = 0; i < IQ_LOG_POLLS; i++) {
        tmr_usleep(IQ_LOG_POLL_US);
        if (ftm_get_log_sz() == expected)
            return true;
    }
    return false;
}

std::uint32_t read_u32(const std::uint8_t* p)
{
    return p[0] | p[1] << 8 | p[2] << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

// Reads the result out of the log: 1, or 0 if the log isn't that of one measurement.
int getCnr(int expected)
{
    if (ftm_get_log_sz() != expected)
        return 0;
    const auto size = static_cast<std::size_t>(expected);
    const auto log = heap_alloc<std::uint8_t>(size);
    HVT_CHECK(log != nullptr);
    HVT_CHECK(expected == ftm_get_log(log.get(), static_cast<std::uint32_t>(size)));
    dCNR = read_u32(log.get() + IQ_AT_CNR);
    MaxFFT_index = read_u32(log.get() + IQ_AT_INDEX);
    return 1;
}

void* getCnrThread(void*)
{
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(getCnr(IQ_LOG_SIZE)));
}

// Has the modem measure, and waits for its log record.
bool measure(std::uint32_t sample_size, std::uint32_t iterations)
{
    sendFtm(command_setup);
    diagnfIQ[IQ_AT_SAMPLE_SIZE] = static_cast<std::uint8_t>(sample_size);
    diagnfIQ[IQ_AT_SAMPLE_SIZE + 1] = static_cast<std::uint8_t>(sample_size >> 8);
    diagnfIQ[IQ_AT_ITERATIONS] = static_cast<std::uint8_t>(iterations);
    sendFtm(command_get_iq);
    const bool arrived = checkIQLogSz(IQ_LOG_SIZE);
    sendFtm(command_end);
    return arrived;
}

int start_measurement(int id, std::uint32_t sample_size, std::uint32_t iterations)
{
    if (bGetCNR_started)
        return DCP_ERROR;
    bGetCNR_started = true;
    thread_started =
        measure(sample_size, iterations) && pthread_create(&thread_id, nullptr, getCnrThread, nullptr) == 0;
    if (!thread_started)
        return dcp_answer(id, "grsd", "", DCP_ERROR);
    return dcp_answer(id, "grsd", "", DCP_OK);
}

// The result of the measurement that was started: false when there is no thread to give one.
bool join_thread(int* p_result)
{
    void* value = nullptr;
    if (!thread_started || pthread_join(thread_id, &value) != 0)
        return false;
    thread_started = false;
    *p_result = static_cast<int>(reinterpret_cast<std::intptr_t>(value));
    return true;
}

int show_result(int id, std::uint32_t sample_size, std::uint32_t iterations)
{
    int result = 0;
    if (bGetCNR_started) {
        bGetCNR_started = false; // also after a start that failed, so that the next one can be made
        if (!join_thread(&result))
            return DCP_ERROR;
    } else if (measure(sample_size, iterations)) {
        result = getCnr(IQ_LOG_SIZE);
    }
    if (result != 1)
        return dcp_answer(id, "grsd", "", DCP_ERROR);
    dcp_printf(id, "grsd", "%u.%u,%d", dCNR / 10, dCNR % 10, static_cast<int>(MaxFFT_index));
    return DCP_OK;
}

int do_ftm_gps_grsd(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET)
        return dcp_answer(id, "grsd", "GPS Test", DCP_OK);
    if (argc < 1 || argc > 3)
        return DCP_ERROR;
    const std::uint32_t sample_size = argc > 1 ? dcp_uint(argv[1]) : 1;
    const std::uint32_t iterations = argc > 2 ? dcp_uint(argv[2]) : 3;
    if (iterations > MAX_ITERATIONS)
        return dcp_answer(id, "grsd", "Max 10 iterations are allowed", DCP_SYNTAX);
    if (sample_size > MAX_SAMPLE_SIZE || (sample_size != 0 && !std::has_single_bit(sample_size)))
        return dcp_answer(id, "grsd", "Sample size must be a power of two and max 32", DCP_SYNTAX);
    switch (dcp_uint(argv[0])) {
    case 2:
        return start_measurement(id, sample_size, iterations);
    case 4:
        return show_result(id, sample_size, iterations);
    default:
        return DCP_SYNTAX;
    }
}

// clang-format off
constexpr dcp_cmd ftm_gps_cmd_tab[] = {
    { "grsd", "(2,4)[,(1,2,4,8,16,32)][,(1-10)]", "%d,%d,%d", "grsd(mode,sampleSize,iterations)", do_ftm_gps_grsd,
      DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link ftm_gps_cmd_link;

} // namespace

void f_ftm_gps_init()
{
    dcp_cmd_add(ftm_gps_cmd_tab, &ftm_gps_cmd_link);
}
