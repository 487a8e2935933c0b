#include "demux.h"

#include <cerrno>

#include "isdb_ej113/isdb_packet.h"
#include "plat/plat.h"

namespace {

// clang-format off
constexpr unsigned long DMX_START           = 0x6F29;
constexpr unsigned long DMX_STOP            = 0x6F2A;
constexpr unsigned long DMX_SET_PES_FILTER  = 0x401C6F2C;
constexpr unsigned long DMX_SET_BUFFER_SIZE = 0x6F2D;
constexpr unsigned long DMX_SET_SOURCE      = 0x40046F31;
constexpr unsigned long DMX_OWN_35          = 0x40046F35; // known by number alone, as the next two
constexpr unsigned long DMX_OWN_3D          = 0x40046F3D;
constexpr unsigned long DMX_OWN_41          = 0x400C6F41;
constexpr unsigned long DMX_GET_EVENT       = 0x80506F3C;

constexpr std::uint32_t BUFFER_BYTES = 200 * ISDB_PACKET;
constexpr std::uint32_t CHUNK_BYTES  = 100 * ISDB_PACKET;
constexpr std::uint32_t ALL_PIDS     = 0x2000;

// The record of a filter.
struct pes_filter {
    std::uint16_t pid;
    std::uint16_t unused;
    std::uint32_t input;
    std::uint32_t output;
    std::uint32_t type;
    std::uint32_t flags;
    std::uint32_t chunk;
    std::uint32_t unused_end;
};
static_assert(sizeof(pes_filter) == 28);

constexpr std::uint32_t event_kinds_of_data[] = { 4, 16 };
// clang-format on

struct event_record {
    std::uint32_t kind;
    std::uint32_t rest[19];
};
static_assert(sizeof(event_record) == 80);

bool isdb_ej113_init_demux(int fd)
{
    std::uint32_t zero = 0;
    pes_filter filter = {ALL_PIDS, 0, 0, 3, 20, 0, CHUNK_BYTES, 0};
    std::uint32_t all[3] = {0, ALL_PIDS, 0};
    const struct {
        unsigned long request;
        void* arg;
    } calls[] = {
        {DMX_SET_SOURCE, &zero},
        {DMX_OWN_3D, &zero},
        {DMX_SET_BUFFER_SIZE, reinterpret_cast<void*>(std::uintptr_t{BUFFER_BYTES})},
        {DMX_OWN_35, &zero},
        {DMX_SET_PES_FILTER, &filter},
        {DMX_OWN_41, all},
        {DMX_START, nullptr},
    };
    for (const auto& call : calls)
        if (plat_ioctl(fd, call.request, call.arg) < 0)
            return false;
    return true;
}

void isdb_ej113_stop_demux(int fd)
{
    plat_ioctl(fd, DMX_STOP, nullptr);
}

} // namespace

demux_guard::demux_guard()
    : fd(plat_open("/dev/dvb/adapter0/demux0", O_RDONLY | O_CLOEXEC)),
      initialised(fd >= 0 && isdb_ej113_init_demux(fd))
{
}

demux_guard::~demux_guard()
{
    if (initialised)
        isdb_ej113_stop_demux(fd);
    if (fd >= 0)
        plat_close(fd);
}

bool demux_guard::wait_for_data(int timeout_ms) const
{
    pollfd wanted = {fd, POLLIN | POLLPRI, 0};
    event_record event = {};
    if (plat_poll(&wanted, 1, timeout_ms) < 0 || plat_ioctl(fd, DMX_GET_EVENT, &event) < 0)
        return false;
    for (const std::uint32_t kind : event_kinds_of_data)
        if (event.kind == kind)
            return true;
    return false;
}

demux_guard::got demux_guard::read_packet(std::uint8_t* p_packet) const
{
    const ssize_t n = plat_read(fd, p_packet, ISDB_PACKET);
    if (n == static_cast<ssize_t>(ISDB_PACKET))
        return got::packet;
    return n < 0 && errno == EOVERFLOW ? got::overflow : got::failed;
}
