#include "diag/diag.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <deque>
#include <list>
#include <mutex>
#include <optional>
#include <string>

#include "core/control.h"
#include "core/files.h"
#include "core/text.h"
#include "core/watch.h"
#include "diag/modem.h"

namespace phone {

namespace {

constexpr nanoseconds answer_time = 300'000; // the modem's own time for a packet
constexpr std::size_t block_bytes = 32768;
constexpr std::size_t trailing_bytes = 3;
constexpr std::size_t record_bytes = 8192 - 4;
constexpr std::size_t kept_requests = 32;
constexpr const char* wanted_words =
    "PREFIX RESPONSE [COUNT], off, last, recent, log HEX, log2 HEX, filter, up or down is wanted";

// Requests of the driver.
// clang-format off
constexpr unsigned long request_send          = 100;
constexpr unsigned long request_receive       = 101;
constexpr unsigned long request_taken_1         = 102; // taken, and nothing done
constexpr unsigned long request_log_size      = 103;
constexpr unsigned long request_log_read      = 104;
constexpr unsigned long request_log_filter    = 105;
constexpr unsigned long request_log_clear     = 106;
constexpr unsigned long request_taken_2         = 107; // taken, and nothing done
constexpr unsigned long request_record        = 108;
constexpr unsigned long request_second_record = 109;
constexpr unsigned long request_modem_up      = 110;
// clang-format on

// An exchange block in the program's memory.
struct block {
    std::uint32_t size;
    std::uint8_t data[block_bytes];
};
static_assert(sizeof(block) == 4 + block_bytes);

enum class rule_kind { answer, silent, empty };

struct rule {
    packet prefix;
    rule_kind kind;
    packet answer;
    std::int64_t left; // requests, -1 for any number
};

std::mutex diag_mutex; // guards all below
bool modem_up = true;
std::optional<packet> pending; // the modem is at work on it
std::deque<packet> responses;  // trailing bytes included
std::list<rule> rules;         // the newest first
std::deque<packet> recent;     // the last requests
std::deque<packet> log_store, second_store;
packet log_filter;
int answer_timer, measure_timer;

// The check sequence of the link protocol and its end mark, which a response still carries.
packet with_trail(packet bytes)
{
    std::uint16_t crc = 0xFFFF;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; bit++)
            crc = static_cast<std::uint16_t>((crc & 1) != 0 ? crc >> 1 ^ 0x8408 : crc >> 1);
    }
    crc = static_cast<std::uint16_t>(~crc);
    bytes.insert(bytes.end(), {static_cast<std::uint8_t>(crc), static_cast<std::uint8_t>(crc >> 8), 0x7E});
    return bytes;
}

// What a rule says to the request; nothing when none fits.
std::optional<rule> take_rule(const packet& bytes)
{
    const auto fits = [&bytes](const rule& r) {
        return r.prefix.size() <= bytes.size() && std::equal(r.prefix.begin(), r.prefix.end(), bytes.begin());
    };
    const auto found = std::find_if(rules.begin(), rules.end(), fits);
    if (found == rules.end())
        return {};
    const rule taken = *found;
    if (found->left > 0 && --found->left == 0)
        rules.erase(found);
    return taken;
}

void answer_request()
{
    const std::lock_guard lock(diag_mutex);
    if (!pending)
        return;
    const packet bytes = std::move(*pending);
    pending.reset();
    const auto by_rule = take_rule(bytes);
    if (!by_rule)
        responses.push_back(with_trail(modem_answer(bytes)));
    else if (by_rule->kind == rule_kind::answer)
        responses.push_back(with_trail(by_rule->answer));
    else if (by_rule->kind == rule_kind::empty)
        responses.push_back(packet(trailing_bytes));
}

void end_measurement()
{
    const std::lock_guard lock(diag_mutex);
    if (packet record = modem_measured(); !record.empty())
        log_store.push_back(std::move(record));
}

int send_request(const block* p)
{
    if (p->size > block_bytes) {
        errno = EINVAL;
        return -1;
    }
    if (!modem_up || pending)
        return 0;
    pending = packet(p->data, p->data + p->size);
    recent.push_back(*pending);
    if (recent.size() > kept_requests)
        recent.pop_front();
    clock_timer_set(answer_timer, answer_time, 0);
    return 1;
}

int fetch_response(block* p)
{
    if (responses.empty())
        return 0;
    packet bytes = std::move(responses.front());
    responses.pop_front();
    bytes.resize(std::min(bytes.size(), block_bytes)); // an error packet with the largest request in it
    p->size = static_cast<std::uint32_t>(bytes.size());
    std::memcpy(p->data, bytes.data(), bytes.size());
    return 1;
}

// Without the length of the first record, as the driver counts.
int log_size()
{
    std::size_t size = 0;
    for (const packet& record : log_store)
        size += 4 + record.size();
    return log_store.empty() ? 0 : static_cast<int>(size - 4);
}

std::uint8_t* put_record(std::uint8_t* to, const packet& record)
{
    const auto size = static_cast<std::uint32_t>(record.size());
    std::memcpy(to, &size, sizeof size);
    return std::copy(record.begin(), record.end(), to + sizeof size);
}

int read_log(std::uint8_t* buf)
{
    std::uint32_t room;
    std::memcpy(&room, buf, sizeof room);
    std::uint8_t* end = buf;
    for (const packet& record : log_store) {
        if (static_cast<std::size_t>(end - buf) + 4 + record.size() > room)
            break;
        end = put_record(end, record);
    }
    return end == buf ? 0 : static_cast<int>(end - buf) - 4;
}

int take_record(std::uint8_t* buf)
{
    if (log_store.empty())
        return 0;
    const packet record = std::move(log_store.front());
    log_store.pop_front();
    put_record(buf, record);
    return static_cast<int>(record.size());
}

int take_second_record(std::uint8_t* buf)
{
    if (second_store.empty())
        return 0;
    const packet record = std::move(second_store.front());
    second_store.pop_front();
    std::copy(record.begin(), record.end(), buf);
    return static_cast<int>(record.size());
}

int set_log_filter(const std::uint8_t* p)
{
    std::uint32_t size;
    std::memcpy(&size, p, sizeof size);
    if (size > block_bytes) {
        errno = EINVAL;
        return -1;
    }
    log_filter.assign(p + sizeof size, p + sizeof size + size);
    return 0;
}

int clear_logs()
{
    log_store.clear();
    second_store.clear();
    return 0;
}

int diag_ioctl(open_file&, unsigned long number, void* arg)
{
    if (watch_target("diag " + std::to_string(number)))
        return -1;
    const std::lock_guard lock(diag_mutex);
    auto* bytes = static_cast<std::uint8_t*>(arg);
    switch (number) {
    case request_send:
        return send_request(static_cast<const block*>(arg));
    case request_receive:
        return fetch_response(static_cast<block*>(arg));
    case request_taken_1:
    case request_taken_2:
        return 0;
    case request_log_size:
        return log_size();
    case request_log_read:
        return read_log(bytes);
    case request_log_filter:
        return set_log_filter(bytes);
    case request_log_clear:
        return clear_logs();
    case request_record:
        return take_record(bytes);
    case request_second_record:
        return take_second_record(bytes);
    case request_modem_up:
        return modem_up ? 1 : 0;
    default:
        strange("ioctl /dev/diag request " + std::to_string(number));
        errno = ENOTTY;
        return -1;
    }
}

std::string hex_or_none(const packet& bytes)
{
    return bytes.empty() ? "none" : to_hex(bytes.data(), bytes.size());
}

std::string word_store(std::deque<packet>& store, const std::vector<std::string>& args)
{
    if (args.size() != 2)
        return "a record in hexadecimal, or -, is wanted";
    if (args[1] == "-") {
        store.clear();
        return {};
    }
    const auto bytes = hex_bytes(args[1]);
    if (!bytes || bytes->empty() || bytes->size() > record_bytes)
        return "a record of 1 to 8188 bytes in hexadecimal is wanted";
    store.push_back(*bytes);
    return {};
}

std::string word_rule(const std::vector<std::string>& args)
{
    rule r{{}, rule_kind::answer, {}, -1};
    const auto prefix = hex_bytes(args[0]);
    if (!prefix || prefix->empty() || args.size() < 2 || args.size() > 3)
        return wanted_words;
    r.prefix = *prefix;
    if (args[1] == "silent" || args[1] == "empty") {
        r.kind = args[1] == "silent" ? rule_kind::silent : rule_kind::empty;
    } else {
        const auto answer = hex_bytes(args[1]);
        if (!answer || answer->size() > block_bytes - trailing_bytes)
            return "a response of at most 32765 bytes in hexadecimal, silent or empty is wanted";
        r.answer = *answer;
    }
    if (args.size() == 3) {
        const auto count = number(args[2]);
        if (!count || *count < 1)
            return "a count of 1 or more is wanted";
        r.left = *count;
    }
    rules.push_front(std::move(r));
    return {};
}

std::string recent_text()
{
    std::string text;
    for (const packet& bytes : recent)
        text += (text.empty() ? "" : "\n") + to_hex(bytes.data(), bytes.size());
    return text.empty() ? "none" : text;
}

std::string word_diag(request& rq)
{
    const std::lock_guard lock(diag_mutex);
    const auto& args = rq.args;
    const std::string what = args.empty() ? "" : args[0];
    if (what == "log")
        return word_store(log_store, args);
    if (what == "log2")
        return word_store(second_store, args);
    if (args.size() != 1)
        return args.empty() ? wanted_words : word_rule(args);
    if (what == "off")
        rules.clear();
    else if (what == "up" || what == "down")
        modem_up = what == "up";
    else if (what == "last")
        rq.answer = recent.empty() ? "none" : hex_or_none(recent.back());
    else if (what == "recent")
        rq.answer = recent_text();
    else if (what == "filter")
        rq.answer = hex_or_none(log_filter);
    else
        return word_rule(args);
    return {};
}

constexpr node diag_node = {.ioctl = diag_ioctl};

} // namespace

void diag_measure_for(nanoseconds time)
{
    clock_timer_set(measure_timer, time, 0);
}

void diag_attach()
{
    node_add("/dev/diag", &diag_node);
    answer_timer = clock_timer_create(answer_request);
    measure_timer = clock_timer_create(end_measurement);
    watch_target_add("diag", {target_number::decimal});
    word_add("diag", "PREFIX RESPONSE|silent|empty [COUNT]|off|last|recent|log HEX|log2 HEX|filter|up|down",
             "what the modem answers and logs, and what it was asked", word_diag);
}

} // namespace phone
