#include "board/spmi.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "board/pm8941.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr const char* address_path = "/sys/kernel/debug/spmi/spmi-0/address";
constexpr const char* count_path = "/sys/kernel/debug/spmi/spmi-0/count";
constexpr const char* data_path = "/sys/kernel/debug/spmi/spmi-0/data";
constexpr std::uint32_t row_bytes = 16;
constexpr std::uint32_t addr_mask = 0xFFFFF;
constexpr std::uint32_t most_count = 0x10000;

// What an open data file still has to give.
struct dump {
    std::uint32_t addr;
    std::uint32_t left; // bytes
    std::string text;   // formed and not yet read
};

std::uint32_t attribute_number(const char* path)
{
    std::string text;
    return file_read(path, text) ? static_cast<std::uint32_t>(std::strtoul(text.c_str(), nullptr, 0)) : 0;
}

dump& dump_of(open_file& file)
{
    if (file.data == nullptr)
        file.data = std::make_shared<dump>(dump{attribute_number(address_path) & addr_mask,
                                                std::min(attribute_number(count_path), most_count), ""});
    return *static_cast<dump*>(file.data.get());
}

// One row: its address, a filler for each column before the first byte, the bytes, a line end for the last
// blank. Nothing when a register doesn't answer, and the dump ends there.
void form_row(dump& d)
{
    char item[16];
    std::snprintf(item, sizeof item, "%05X ", d.addr & ~(row_bytes - 1));
    std::string row = item;
    for (std::uint32_t i = 0; i < d.addr % row_bytes; i++)
        row += "-- ";
    do {
        std::uint8_t value;
        if (!pmic_bus_read(d.addr, value)) {
            d.left = 0;
            return;
        }
        std::snprintf(item, sizeof item, "%02X ", value);
        row += item;
        d.addr = (d.addr + 1) & addr_mask;
        d.left--;
    } while (d.left > 0 && d.addr % row_bytes != 0);
    row.back() = '\n';
    d.text += row;
}

ssize_t data_read(open_file& file, void* buf, std::size_t size)
{
    dump& d = dump_of(file);
    while (d.left > 0 && d.text.size() < size)
        form_row(d);
    const std::size_t n = std::min(size, d.text.size());
    std::copy_n(d.text.begin(), n, static_cast<char*>(buf));
    d.text.erase(0, n);
    return static_cast<ssize_t>(n);
}

// Numbers between blanks, each with or without 0x as C writes them.
ssize_t data_write(open_file&, const void* buf, std::size_t size)
{
    const std::string text(static_cast<const char*>(buf), size);
    std::uint32_t addr = attribute_number(address_path);
    const char* p = text.c_str();
    for (char* end; *p != '\0'; p = end) {
        const long value = std::strtol(p, &end, 0);
        if (end == p)
            break;
        if (!pmic_bus_write(addr++ & addr_mask, static_cast<std::uint8_t>(value))) {
            errno = EIO;
            return -1;
        }
    }
    return static_cast<ssize_t>(size);
}

constexpr node data_node = {.read = data_read, .write = data_write};

std::string word_spmi(request& rq)
{
    const auto addr = rq.args.empty() ? std::nullopt : hex_number(rq.args[0]);
    if (!addr || rq.args.size() > 2)
        return "ADDR [VAL] is wanted, in hexadecimal";
    if (*addr > addr_mask || !pmic_answers(static_cast<std::uint32_t>(*addr)))
        return "no chip answers at " + rq.args[0];
    const auto at = static_cast<std::uint32_t>(*addr);
    if (rq.args.size() == 1) {
        const std::uint8_t value = pmic_get(at);
        rq.answer = to_hex(&value, 1);
        return {};
    }
    const auto value = hex_number(rq.args[1]);
    if (!value || *value > 0xFF)
        return "a hexadecimal value of one byte is wanted, not \"" + rq.args[1] + "\"";
    pmic_set(at, static_cast<std::uint8_t>(*value));
    return {};
}

} // namespace

void spmi_attach()
{
    node_add(data_path, &data_node);
    watch_target_add("spmi", {target_number::hex5});
    word_add("spmi", "ADDR [VAL]", "reads or sets a register of the power management chips", word_spmi);
}

void spmi_seed()
{
    home_seed(address_path, "0x00000\n");
    home_seed(count_path, "1\n");
}

void spmi_start()
{
    pmic_reset();
}

} // namespace phone
