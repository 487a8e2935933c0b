#include "diag/modem.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "core/clock.h"
#include "diag/diag.h"

namespace phone {

using namespace std::string_view_literals;

namespace {

constexpr nanoseconds ns_per_ms = 1'000'000;
constexpr nanoseconds sim_test_time = 350 * ns_per_ms;
constexpr nanoseconds nv_transfer_time = 300 * ns_per_ms;
constexpr nanoseconds iq_time = 2000 * ns_per_ms;

// Error packets: this code and the request.
constexpr std::uint8_t bad_command = 0x13;
constexpr std::uint8_t bad_length = 0x15;

// The receiver's measurement is logged as item 0x487 of equipment 1, when the mask says so.
constexpr std::uint32_t log_equipment = 1;
constexpr std::uint32_t log_item = 0x487;
constexpr std::uint32_t log_op_disable = 0;
constexpr std::uint32_t log_op_set_mask = 3;

// A satellite at 38.7 dB-Hz, whose peak stands in bin 261.
constexpr std::uint32_t cnr_tenths = 387;
constexpr std::uint32_t peak_bin = 261;

nanoseconds sim_test_until;    // 0: no test was started
nanoseconds nv_transfer_until; // 0: no transfer is under way
bool (*sim_is_in)();
bool rf_mode;
bool iq_logged;
packet iq_request;

using request_bytes = std::span<const std::uint8_t>;

std::uint32_t u32_at(request_bytes bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4 && at + i < bytes.size(); i++)
        value |= static_cast<std::uint32_t>(bytes[at + i]) << 8 * i;
    return value;
}

void put_u32(packet& bytes, std::size_t at, std::uint32_t value)
{
    for (std::size_t i = 0; i < 4; i++)
        bytes[at + i] = static_cast<std::uint8_t>(value >> 8 * i);
}

packet bytes_of(std::string_view text)
{
    return {text.begin(), text.end()};
}

packet error(std::uint8_t code, request_bytes request)
{
    packet answer(1 + request.size());
    answer[0] = code;
    std::copy(request.begin(), request.end(), answer.begin() + 1);
    return answer;
}

packet echo(request_bytes request)
{
    return {request.begin(), request.end()};
}

// Date and time of the modem's build, the same of its release, the directory, and numbers.
packet version(request_bytes)
{
    return bytes_of("\x00"
                    "Jul 12 2013"
                    "19:45:30"
                    "Jul 16 2013"
                    "08:02:11"
                    "korvat01"
                    "\x00\x06\x5F\x15\x28\x02\x01\x00"sv);
}

// Version, hardware and model as numbers, then the build's and the chip's name.
packet build_id(request_bytes)
{
    return bytes_of("\x7C\x01\x00\x00\xE1\x90\x07\x00\x6C\x0F\x00\x00"
                    "M8974A-KORVAT-1.0.4085\x00"
                    "MSM8974\x00"sv);
}

packet log_configuration(request_bytes request)
{
    const std::uint32_t op = u32_at(request, 4);
    if (op == log_op_disable)
        iq_logged = false;
    if (op == log_op_set_mask && u32_at(request, 8) == log_equipment) {
        constexpr std::size_t at = 16 + log_item / 8;
        iq_logged = at < request.size() && (request[at] >> log_item % 8 & 1) != 0;
    }
    packet answer(12);
    answer[0] = 0x73;
    put_u32(answer, 4, op);
    return answer;
}

packet rf_mode_switch(request_bytes request)
{
    if (request.size() < 7)
        return error(bad_length, request);
    rf_mode = request[6] == 0;
    return echo(request);
}

packet measure_iq(request_bytes request)
{
    if (request.size() < 22)
        return error(bad_length, request);
    iq_request = echo(request);
    packet answer(request.begin(), request.begin() + 10);
    answer[8] = rf_mode ? 0 : 1; // refused outside the test mode
    if (rf_mode)
        diag_measure_for(iq_time);
    return answer;
}

// The state machine's answers: 16 bytes, the state at 10.
packet state_answer(request_bytes request, std::uint8_t state)
{
    packet answer(request.begin(), request.begin() + 6);
    answer.resize(16);
    answer[6] = 0x0A; // bytes that follow
    answer[10] = state;
    return answer;
}

std::uint8_t sim_test_state(nanoseconds now)
{
    enum : std::uint8_t { idle = 0, running = 2, no_card = 3, good = 4 };
    if (sim_test_until == 0)
        return idle;
    if (now < sim_test_until)
        return running;
    return sim_is_in == nullptr || sim_is_in() ? good : no_card;
}

// A short request starts the transfer, a long one starts it or asks how far it is.
std::uint8_t nv_transfer_state(nanoseconds now, bool start)
{
    enum : std::uint8_t { done = 0, under_way = 1 };
    if (nv_transfer_until == 0 || start)
        nv_transfer_until = now + nv_transfer_time;
    if (now < nv_transfer_until)
        return under_way;
    nv_transfer_until = 0;
    return done;
}

packet common_test(request_bytes request)
{
    if (request.size() < 6)
        return error(bad_length, request);
    const nanoseconds now = clock_now(CLOCK_MONOTONIC);
    switch (request[4]) {
    case 0x00: // alive?
        return state_answer(request, 0);
    case 0x02: // SIM test, start
        sim_test_until = now + sim_test_time;
        return state_answer(request, 1);
    case 0x03: // SIM test, poll
        return state_answer(request, sim_test_state(now));
    case 0x07: // calibration data to the persistent store
        return state_answer(request, nv_transfer_state(now, request.size() < 16));
    case 0x06: // parameter sets
    case 0x08:
    case 0x09:
    case 0x0A:
        return state_answer(request, 1);
    default:
        return error(bad_command, request);
    }
}

struct packet_row {
    std::string_view begins; // bytes
    packet (*answer)(request_bytes request);
};

// clang-format off
constexpr packet_row packets[] = {
    { "\x00"sv,                 version           },
    { "\x60"sv,                 echo              },   // event reports
    { "\x73"sv,                 log_configuration },
    { "\x7C"sv,                 build_id          },
    { "\x4B\x0B\x00\x80"sv,     common_test       },
    { "\x4B\x0B\x0E\x00"sv,     echo              },   // audio
    { "\x4B\x0D\x65\x00\x14"sv, rf_mode_switch    },
    { "\x4B\x0D\x65\x00\x16"sv, measure_iq        },
};
// clang-format on

} // namespace

packet modem_answer(request_bytes request)
{
    if (request.empty())
        return {bad_length};
    const std::string_view text(reinterpret_cast<const char*>(request.data()), request.size());
    const auto row = std::find_if(std::begin(packets), std::end(packets),
                                  [text](const packet_row& r) { return text.starts_with(r.begins); });
    return row != std::end(packets) ? row->answer(request) : error(bad_command, request);
}

void modem_set_sim(bool (*is_in)())
{
    sim_is_in = is_in;
}

packet modem_measured()
{
    if (!iq_logged || !rf_mode)
        return {};
    // Length, code and time stamp; then the settings, the results and the noise.
    packet record(29);
    record[0] = 29;
    record[2] = static_cast<std::uint8_t>(log_item);
    record[3] = static_cast<std::uint8_t>(log_equipment << 4 | log_item >> 8);
    const auto time = static_cast<std::uint64_t>(clock_now(CLOCK_REALTIME));
    std::memcpy(record.data() + 4, &time, sizeof time);
    record[12] = 1;
    std::copy_n(iq_request.begin() + 15, 3, record.begin() + 13);
    put_u32(record, 17, cnr_tenths);
    put_u32(record, 21, peak_bin);
    put_u32(record, 25, 0x1A2);
    return record;
}

} // namespace phone
