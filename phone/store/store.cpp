#include "store/store.h"

#include <atomic>
#include <string>

#include "core/control.h"
#include "core/home.h"
#include "core/libraries.h"
#include "core/text.h"
#include "store/units.h"
#include "store/units_host.h"

namespace phone {

namespace {

struct seed_row {
    std::uint32_t unit;
    const char* hex;
};

// clang-format off
// What the line has put into a phone when it comes to the bench. The RF variant (800009F7) isn't among them:
// the phone finds it at its first start.
constexpr seed_row seeds[] = {
    { 0x0000EB2B, "03E8" },
    { 0x0000EB3C, "412B2B41" },             // display sync: 16683 us
    { 0x80000866, "0105" },
    { 0x80001324, "42583930334C374B3254" }, // production parameter: BX903L7K2T
    { 0x80001356, "0100740460" },           // touch: vendor 1, chip 0074, configuration 0460
    { 0x80001363, "02FE05" },               // accelerometer offsets
    { 0x80001364, "8C0201FF04" },           // gyroscope offsets
    { 0x80001365, "5A13C42E9107B86D20F13C854BD619A270EE0D589F34C7621BA9A0" }, // its memory, with CRC
    { 0x80001366, "0B30557A9FC4E90E33587DA2C7EC11365B80A5CAEF14395E83A8CDF2173C6186ABD0F51A3F6489AE"
                  "D3F81D42678CB1D6FB20456A8FB4D9FE2348" },
};
// clang-format on

std::string units_dir;
std::atomic<std::uint32_t> units_changed;
phone_units_host units_host;

std::string unit_set(std::uint32_t unit, const std::string& text)
{
    if (text == "-") {
        units::remove(units_dir, unit);
    } else {
        const auto bytes = hex_bytes(text);
        if (!bytes)
            return "an even count of hexadecimal digits, or -, is wanted, not \"" + text + "\"";
        if (bytes->size() > units::largest)
            return "a unit holds at most " + std::to_string(units::largest) + " bytes";
        if (!units::write(units_dir, unit, bytes->data(), bytes->size()))
            return units_dir + ": the unit can't be written";
    }
    units_changed++;
    return {};
}

std::string word_unit(request& rq)
{
    const auto unit = rq.args.empty() ? std::nullopt : hex_number(rq.args[0]);
    if (!unit || *unit > 0xFFFFFFFF || rq.args.size() > 2)
        return "NUMBER [HEX|-] is wanted, both in hexadecimal, such as 80001363 02FE05";
    const auto number = static_cast<std::uint32_t>(*unit);
    if (rq.args.size() == 2)
        return unit_set(number, rq.args[1]);
    std::string bytes;
    rq.answer = units::read(units_dir, number, bytes) ? to_hex(bytes.data(), bytes.size()) : "none";
    return {};
}

} // namespace

void store_attach()
{
    units_dir = home_path("units");
    units::sweep(units_dir);
    units_host = {units_dir.c_str(), &units_changed};
    libraries_offer("units", &units_host);
    word_add("unit", "NUMBER [HEX|-]",
             "reads, sets or removes a persistent unit; NUMBER is hexadecimal, with or without 0x",
             word_unit);
}

// Syncing each would cost a new phone more than its other seeds together; a first start that is cut short
// begins again.
void store_seed()
{
    if (!home_is_first_start())
        return;
    home_seed("/data/.layout_version", "2\n"); // the folder that unit dumps go to
    for (const seed_row& row : seeds) {
        const auto bytes = hex_bytes(row.hex);
        if (units::size(units_dir, row.unit) < 0)
            units::write_unsynced(units_dir, row.unit, bytes->data(), bytes->size());
    }
}

} // namespace phone
