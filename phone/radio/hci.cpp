#include "radio/hci.h"

#include <algorithm>
#include <bluetooth/bluetooth.h>
#include <bluetooth/hci.h>
#include <cerrno>
#include <cstring>
#include <deque>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include "core/clock.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/sockets.h"
#include "core/text.h"
#include "core/watch.h"
#include "radio/hci_controller.h"
#include "runtime/insmod.h"

namespace phone {

namespace {

constexpr const char* module_file = "hci_smd.ko";
constexpr const char* switch_path = "/sys/module/hci_smd/parameters/hcismd_set";

constexpr nanoseconds ns_per_ms = 1'000'000;
constexpr nanoseconds up_time = 60 * ns_per_ms;
constexpr nanoseconds answer_time = 2 * ns_per_ms;
constexpr nanoseconds down = -1;

constexpr int the_device = 0;
constexpr std::size_t kept_commands = 32;
constexpr std::size_t longest_packet = 4 + 255;
constexpr const char* wanted_words = "PREFIX EVENT[+EVENT...]|silent [COUNT], off, last or recent is wanted";

// A socket of the program's, seen from the kernel's side.
struct hci_socket {
    int far_fd = -1;
    bool bound = false;
    hci_filter filter{};
};

struct rule {
    hci_packet prefix;
    std::vector<hci_packet> events; // none: silent
    std::int64_t left;              // commands, -1 for any number
};

struct delivery {
    nanoseconds due;
    std::vector<hci_packet> events;
};

std::mutex hci_mutex; // guards all below
nanoseconds up_at = down;
std::list<std::shared_ptr<hci_socket>> sockets;
std::list<rule> rules;         // the newest first
std::deque<hci_packet> recent; // commands of the program
std::deque<delivery> to_deliver;
int delivery_timer;

bool is_up_locked()
{
    return up_at != down && clock_now(CLOCK_MONOTONIC) >= up_at;
}

int refuse(int error)
{
    errno = error;
    return -1;
}

bool bit_of(std::uint64_t mask, unsigned bit)
{
    return (mask >> bit & 1) != 0;
}

// As the kernel's filter does; an event of a command counts only if it is the one that was asked for.
bool lets_through(const hci_filter& f, const hci_packet& packet)
{
    constexpr unsigned type_bits = 31;
    constexpr unsigned event_bits = 63;
    if (packet.empty() || !bit_of(f.type_mask, packet[0] & type_bits))
        return false;
    if (packet[0] != hci_type_event)
        return true;
    const std::uint64_t events = f.event_mask[0] | std::uint64_t{f.event_mask[1]} << 32;
    if (packet.size() < 2 || !bit_of(events, packet[1] & event_bits))
        return packet.size() < 2;
    const std::size_t at = packet[1] == EVT_CMD_COMPLETE ? 4 : packet[1] == EVT_CMD_STATUS ? 5 : 0;
    if (f.opcode == 0 || at == 0 || packet.size() < at + 2)
        return true;
    return (packet[at] | packet[at + 1] << 8) == f.opcode;
}

void deliver_locked(const hci_packet& event)
{
    for (const auto& socket : sockets)
        if (socket->bound && lets_through(socket->filter, event))
            ::send(socket->far_fd, event.data(), event.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
}

void arm_delivery_locked()
{
    if (!to_deliver.empty())
        clock_timer_set(delivery_timer,
                        std::max<nanoseconds>(to_deliver.front().due - clock_now(CLOCK_MONOTONIC), 1), 0);
}

void deliver_due()
{
    const std::lock_guard lock(hci_mutex);
    while (!to_deliver.empty() && to_deliver.front().due <= clock_now(CLOCK_MONOTONIC)) {
        for (const hci_packet& event : to_deliver.front().events)
            deliver_locked(event);
        to_deliver.pop_front();
    }
    arm_delivery_locked();
}

// What a rule says to the command; nothing when none fits.
std::optional<std::vector<hci_packet>> take_rule_locked(const hci_packet& command)
{
    const auto fits = [&command](const rule& r) {
        return r.prefix.size() <= command.size() &&
               std::equal(r.prefix.begin(), r.prefix.end(), command.begin());
    };
    const auto found = std::find_if(rules.begin(), rules.end(), fits);
    if (found == rules.end())
        return {};
    std::vector<hci_packet> events = found->events;
    if (found->left > 0 && --found->left == 0)
        rules.erase(found);
    return events;
}

void take_command_locked(const hci_packet& command)
{
    recent.push_back(command);
    if (recent.size() > kept_commands)
        recent.pop_front();
    auto events = take_rule_locked(command);
    if (!events)
        events = hci_controller_answer(command);
    if (!events->empty())
        to_deliver.push_back({clock_now(CLOCK_MONOTONIC) + answer_time, std::move(*events)});
    arm_delivery_locked();
}

hci_socket& socket_of(open_file& file)
{
    return *std::static_pointer_cast<hci_socket>(file.data);
}

int hci_open(open_file& file, int type, int protocol)
{
    if (type != SOCK_RAW || protocol != BTPROTO_HCI) {
        strange("socket hci0 type " + std::to_string(type) + " protocol " + std::to_string(protocol));
        return refuse(EPROTONOSUPPORT);
    }
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        return -1;
    const auto socket = std::make_shared<hci_socket>();
    socket->far_fd = ends[1];
    file.data = socket;
    const std::lock_guard lock(hci_mutex);
    sockets.push_back(socket);
    return ends[0];
}

void hci_close(open_file& file)
{
    const std::lock_guard lock(hci_mutex);
    ::close(socket_of(file).far_fd);
    sockets.remove(std::static_pointer_cast<hci_socket>(file.data));
}

int hci_ioctl(open_file& file, unsigned long request, void* arg)
{
    if (request != HCIGETDEVINFO) {
        strange("ioctl " + file.path + " request " + std::to_string(request));
        return refuse(ENOTTY);
    }
    auto* const p_info = static_cast<hci_dev_info*>(arg);
    if (p_info->dev_id != the_device || !hci_is_there())
        return refuse(ENODEV);
    *p_info = {};
    std::strcpy(p_info->name, "hci0");
    p_info->flags = hci_is_up() ? 1u << HCI_UP | 1u << HCI_RUNNING : 0;
    return 0;
}

int hci_setsockopt(open_file& file, int level, int option, const void* p_value, socklen_t size)
{
    if (level != SOL_HCI || option != HCI_FILTER) {
        strange("setsockopt " + file.path + " level " + std::to_string(level) + " option " +
                std::to_string(option));
        return refuse(ENOPROTOOPT);
    }
    const std::lock_guard lock(hci_mutex);
    hci_filter& f = socket_of(file).filter;
    std::memcpy(&f, p_value, std::min<std::size_t>(size, sizeof f));
    return 0;
}

int hci_bind(open_file& file, int device)
{
    if (device != the_device || !hci_is_there())
        return refuse(ENODEV);
    const std::lock_guard lock(hci_mutex);
    socket_of(file).bound = true;
    return 0;
}

int hci_sent(open_file& file)
{
    std::uint8_t bytes[longest_packet];
    const std::lock_guard lock(hci_mutex);
    const hci_socket& socket = socket_of(file);
    const ssize_t n = ::recv(socket.far_fd, bytes, sizeof bytes, MSG_DONTWAIT);
    if (n < 0)
        return -1;
    if (!socket.bound)
        return refuse(EBADFD);
    if (!is_up_locked())
        return refuse(ENETDOWN);
    take_command_locked({bytes, bytes + n});
    return 0;
}

// A driver that was just loaded is switched off.
void start_driver(const std::vector<std::string>&)
{
    file_write(switch_path, "0\n");
}

std::optional<std::vector<hci_packet>> events_of(const std::string& text)
{
    std::vector<hci_packet> events;
    for (const std::string_view part : split(text, '+')) {
        const auto event = hex_bytes(part);
        if (!event || event->empty())
            return {};
        events.push_back(*event);
    }
    return events;
}

std::string word_rule(const std::vector<std::string>& args)
{
    rule r{{}, {}, -1};
    const auto prefix = hex_bytes(args[0]);
    if (!prefix || prefix->empty() || args.size() < 2 || args.size() > 3)
        return wanted_words;
    r.prefix = *prefix;
    if (args[1] != "silent") {
        const auto events = events_of(args[1]);
        if (!events)
            return "events in hexadecimal, + between them, or silent is wanted";
        r.events = *events;
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

std::string word_hci(request& rq)
{
    const std::lock_guard lock(hci_mutex);
    if (rq.args.size() > 1)
        return word_rule(rq.args);
    const std::string what = rq.args.empty() ? "" : rq.args[0];
    if (what == "off") {
        rules.clear();
    } else if (what == "last") {
        rq.answer = recent.empty() ? "none" : to_hex(recent.back().data(), recent.back().size());
    } else if (what == "recent") {
        for (const hci_packet& command : recent)
            rq.answer += (rq.answer.empty() ? "" : "\n") + to_hex(command.data(), command.size());
        rq.answer = recent.empty() ? "none" : rq.answer;
    } else {
        return wanted_words;
    }
    return {};
}

constexpr node hci_node = {.ioctl = hci_ioctl, .close = hci_close};
constexpr socket_family hci_family = {.name = "hci0",
                                      .p_node = &hci_node,
                                      .open = hci_open,
                                      .setsockopt = hci_setsockopt,
                                      .bind_device = hci_bind,
                                      .sent = hci_sent};

} // namespace

bool hci_is_there()
{
    std::string text;
    return module_loaded(module_file) && file_read(switch_path, text) && trimmed(text) == "1";
}

bool hci_is_up()
{
    const std::lock_guard lock(hci_mutex);
    return is_up_locked();
}

void hci_bring_up()
{
    const std::lock_guard lock(hci_mutex);
    if (up_at == down)
        up_at = clock_now(CLOCK_MONOTONIC) + up_time;
}

void hci_take_down()
{
    const std::lock_guard lock(hci_mutex);
    up_at = down;
    hci_controller_reset();
}

void hci_attach()
{
    module_add(module_file, start_driver);
    socket_family_add(AF_BLUETOOTH, &hci_family);
    delivery_timer = clock_timer_create(deliver_due);
    word_add("hci", "PREFIX EVENT[+EVENT...]|silent [COUNT]|off|last|recent",
             "what the Bluetooth controller answers to commands that begin with PREFIX, and what it was "
             "sent; bytes "
             "as they cross the socket, packet type first",
             word_hci);
}

void hci_seed()
{
    home_seed("/system/modules/hci_smd.ko", "hci_smd\n");
    home_seed(switch_path, "0\n");
}

} // namespace phone
