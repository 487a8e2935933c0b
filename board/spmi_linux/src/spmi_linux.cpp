#include "spmi_linux/spmi_linux.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <mutex>
#include <vector>

#include "attr/attr.h"
#include "scf/scf.h"
#include "spmi/spmi.h"

namespace {

constexpr std::uint32_t ADDR_MASK = 0xFFFFF;
constexpr int MOST_FIELDS = 4096;
constexpr std::size_t READ_ROOM = 0x10000;
constexpr std::size_t WRITE_ROOM = 16388;

// The charging monitor reads the charger on the timer thread while a station uses the bus: an address that
// changes under a transfer would turn it to another register.
std::recursive_mutex transfer_mutex;

int write_attr(unsigned bus, const char* name, const char* text)
{
    char path[64];
    std::snprintf(path, sizeof path, "/sys/kernel/debug/spmi/spmi-%u/%s", bus, name);
    return attr_write(path, text) == ATTR_OK ? 1 : 0;
}

int set_address(unsigned bus, std::uint32_t addr)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%X\n", addr & ADDR_MASK);
    return write_attr(bus, "address", text);
}

int set_count(unsigned bus, std::size_t len)
{
    char text[24];
    std::snprintf(text, sizeof text, "%d\n", static_cast<int>(len));
    return write_attr(bus, "count", text);
}

// Takes the bytes out of a dump: a row's address, then a field for each of its columns. A row's end and
// the next row's address stay in the field of the row's last byte, whose number stops before them.
int scan_dump(char* p_text, std::uint32_t addr, std::uint8_t* p_buf, std::size_t len)
{
    char* field[MOST_FIELDS];
    const int fields = scf_split(p_text, field, MOST_FIELDS, ' ');
    const std::size_t first = addr % SPMI_ROW + 1;
    if (first + len > static_cast<std::size_t>(fields))
        return 0;
    for (std::size_t i = 0; i < len; i++)
        if (scf_str_to_uint8(p_buf + i, 1, field[first + i], 16) != 1)
            return 0;
    return 1;
}

int spmi_linux_read(unsigned bus, std::uint32_t addr, std::uint8_t* p_buf, std::size_t len)
{
    if (len > SPMI_MOST_READ)
        return 0;
    const std::lock_guard lock(transfer_mutex);
    char path[64];
    std::snprintf(path, sizeof path, "/sys/kernel/debug/spmi/spmi-%u/data", bus);
    const auto p_text = std::make_unique<char[]>(READ_ROOM);
    int result = set_address(bus, addr);
    result &= set_count(bus, len);
    result &= attr_read(path, p_text.get(), READ_ROOM) == ATTR_OK ? 1 : 0;
    return result != 0 ? scan_dump(p_text.get(), addr, p_buf, len) : 0;
}

int spmi_linux_write(unsigned bus, std::uint32_t addr, const std::uint8_t* p_buf, std::size_t len)
{
    constexpr std::size_t ITEM = std::char_traits<char>::length("0xFF ");
    if (len == 0 || len * ITEM > WRITE_ROOM - ITEM)
        return 0;
    const std::lock_guard lock(transfer_mutex);
    const auto p_text = std::make_unique<char[]>(WRITE_ROOM);
    scf_bin_to_hexstr(p_text.get(), WRITE_ROOM, p_buf, static_cast<int>(len), 1, ' ');
    return set_address(bus, addr) != 0 && write_attr(bus, "data", p_text.get()) != 0 ? 1 : 0;
}

int spmi_linux_masked_write(unsigned bus, std::uint8_t mask, std::uint32_t addr, std::uint8_t val,
                            std::size_t len)
{
    if (len > SPMI_MOST_READ)
        return 0;
    const std::lock_guard lock(transfer_mutex);
    std::vector<std::uint8_t> bytes(len);
    if (spmi_linux_read(bus, addr, bytes.data(), len) == 0)
        return 0;
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>((byte & ~mask) | val);
    return spmi_linux_write(bus, addr, bytes.data(), len);
}

// clang-format off
constexpr spmi_co spmi_linux_co = {
    .read         = spmi_linux_read,
    .write        = spmi_linux_write,
    .masked_write = spmi_linux_masked_write,
};
// clang-format on

} // namespace

void spmi_linux_init()
{
    spmi_co_attach(&spmi_linux_co);
}
