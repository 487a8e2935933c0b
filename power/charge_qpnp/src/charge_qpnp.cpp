#include "charge_qpnp/charge_qpnp.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "attr/attr.h"
#include "charge/charge.h"
#include "spmi/spmi.h"

namespace {

constexpr unsigned BUS = 0;

// clang-format off
constexpr std::uint32_t REG_BATTERY_LIMIT = 0x01044; // in steps of 50 mA
constexpr std::uint32_t REG_CONTROL       = 0x01049; // bit 7: charging enabled; bit 0: forced to run on battery
constexpr std::uint32_t REG_STATUS        = 0x01308; // low two bits: what feeds the phone
constexpr std::uint32_t REG_USB_LIMIT     = 0x01344; // index of usb_current_tbl
constexpr std::uint32_t REG_OTG           = 0x01348;
constexpr std::uint32_t REG_DC_LIMIT      = 0x01444; // as REG_USB_LIMIT
constexpr std::uint32_t REG_SWITCH_SLEW   = 0x18345;
constexpr std::uint32_t REG_SWITCH        = 0x18346;
constexpr std::uint32_t REG_BOOST         = 0x1A046;

constexpr std::uint8_t CONTROL_ENABLED = 0x80;
constexpr std::uint8_t CONTROL_FORCED_OFF = 0x01;
constexpr std::uint8_t STATUS_SOURCE = 0x03;
constexpr std::uint8_t SOURCE_NONE = 0;
constexpr std::uint8_t SOURCE_SIMPLE = 3;

// Input current limits in mA; the index is what the registers take.
constexpr std::uint32_t usb_current_tbl[] = {
     100,  150,  200,  300,  400,  500,  600,  700,  800,  900, 1000, 1100, 1200,
    1300, 1400, 1500, 1600, 1700, 1800, 1900, 2000, 2100, 2200, 2300, 2400, 2500,
};
constexpr std::uint8_t INPUT_DEFAULT = 15; // 1500 mA

constexpr std::uint32_t BATTERY_STEP_MA    = 50;
constexpr std::uint32_t BATTERY_LEAST_MA   = 200;
constexpr std::uint32_t BATTERY_MOST_MA    = 3000;
constexpr std::uint32_t BATTERY_DEFAULT_MA = 1000;
constexpr int           BATTERY_STEPS      = 60;

constexpr std::uint32_t charge_debug_regs[] = {
    0x1044, 0x1049, 0x1308, 0x1344, 0x1444, 0x18345, 0x18346, 0x1348, 0x1A046,
};

// What feeds the cable: the supply's parts in the order in which they come up, and the bits that do it.
struct host_power_row {
    std::uint32_t addr;
    std::uint8_t bits;
};
constexpr host_power_row host_power_tbl[] = {
    { REG_BOOST,       0x80 },
    { REG_SWITCH_SLEW, 0x40 },
    { REG_OTG,         0x01 },
    { REG_SWITCH,      0x80 },
};

// In the order in which they go down.
constexpr std::size_t host_power_down[] = { 3, 2, 1, 0 };

constexpr struct {
    const char* name;
    int type;
} usb_chargers[] = {
    { "USB_SDP_CHARGER", CHARGER_USB  },
    { "USB_CDP_CHARGER", CHARGER_USB  },
    { "USB_DCP_CHARGER", CHARGER_WALL },
};

// Where the USB driver tells what it has found: one of the two, by kernel.
constexpr const char* chg_type_paths[] = {
    "/sys/kernel/debug/msm_dwc3/chg_type",
    "/sys/kernel/debug/msm_otg/chg_type",
};
// clang-format on
static_assert(usb_current_tbl[INPUT_DEFAULT] == 1500);
static_assert(std::size(host_power_down) == std::size(host_power_tbl));

int read_reg(std::uint32_t addr, std::uint8_t* p_val)
{
    return spmi_read(BUS, addr, p_val, 1);
}

int write_reg(std::uint32_t addr, std::uint8_t val)
{
    return spmi_write(BUS, addr, &val, 1);
}

int host_power_on()
{
    for (const host_power_row& row : host_power_tbl)
        if (write_reg(row.addr, row.bits) == 0)
            return 0;
    return 1;
}

// Only the bits that feed the cable go; the others of a register stay.
int host_power_off()
{
    std::uint8_t val[std::size(host_power_tbl)];
    for (std::size_t i = 0; i < std::size(val); i++)
        if (read_reg(host_power_tbl[i].addr, &val[i]) == 0)
            return 0;
    for (const std::size_t i : host_power_down)
        if (write_reg(host_power_tbl[i].addr, static_cast<std::uint8_t>(val[i] & ~host_power_tbl[i].bits)) ==
            0)
            return 0;
    return 1;
}

int charge_qpnp_set_mode(int mode)
{
    std::uint8_t control;
    if (read_reg(REG_CONTROL, &control) == 0)
        return 0;
    switch (mode) {
    case CHARGE_OFF:
        return write_reg(REG_CONTROL,
                         static_cast<std::uint8_t>((control & ~CONTROL_ENABLED) | CONTROL_FORCED_OFF));
    case CHARGE_USB:
    case CHARGE_SIMPLE:
        return write_reg(REG_CONTROL,
                         static_cast<std::uint8_t>((control | CONTROL_ENABLED) & ~CONTROL_FORCED_OFF));
    case CHARGE_MODE_3:
    case CHARGE_MODE_4:
    case CHARGE_MODE_5:
        return 1;
    case CHARGE_HOST_POWER_ON:
        return host_power_on();
    case CHARGE_HOST_POWER_OFF:
        return host_power_off();
    default:
        return 0;
    }
}

// What the USB driver takes the charger on its socket for.
int usb_charger_type(int* p_type)
{
    char text[64];
    int result = ATTR_NO_FILE;
    for (const char* path : chg_type_paths) {
        result = attr_read(path, text, sizeof text);
        if (result != ATTR_NO_FILE)
            break;
    }
    if (result != ATTR_OK)
        return 0;
    *p_type = CHARGER_NONE;
    for (const auto& charger : usb_chargers)
        if (std::strncmp(text, charger.name, std::strlen(charger.name)) == 0)
            *p_type = charger.type;
    return 1;
}

int charger_type(int* p_type)
{
    std::uint8_t status;
    if (read_reg(REG_STATUS, &status) == 0)
        return 0;
    const int source = status & STATUS_SOURCE;
    if (source != SOURCE_NONE && source != SOURCE_SIMPLE)
        return usb_charger_type(p_type);
    *p_type = source == SOURCE_NONE ? CHARGER_NONE : CHARGER_SIMPLE;
    return 1;
}

int status_raw(int* p_out)
{
    std::uint8_t status;
    if (read_reg(REG_STATUS, &status) == 0)
        return 0;
    *p_out = status;
    return 1;
}

int charge_qpnp_get_mode(int query, int* p_out)
{
    switch (query) {
    case CHARGE_GET_STATUS:
        return status_raw(p_out);
    case CHARGE_GET_TYPE:
        return charger_type(p_out);
    case CHARGE_GET_INPUT_LIMITED:
        *p_out = 1;
        return 1;
    case CHARGE_GET_BATTERY_STEPS:
        *p_out = BATTERY_STEPS;
        return 1;
    case CHARGE_GET_INPUT_STEPS:
        *p_out = static_cast<int>(std::size(usb_current_tbl));
        return 1;
    default:
        *p_out = 0;
        return 0;
    }
}

// The USB and the DC input get the same limit.
int set_input_limit(std::uint32_t input_ma)
{
    std::uint8_t index = INPUT_DEFAULT;
    if (input_ma != 0) {
        const auto found = std::find(std::begin(usb_current_tbl), std::end(usb_current_tbl), input_ma);
        if (found == std::end(usb_current_tbl))
            return 0;
        index = static_cast<std::uint8_t>(found - std::begin(usb_current_tbl));
    }
    std::uint8_t old;
    if (read_reg(REG_USB_LIMIT, &old) == 0 || read_reg(REG_DC_LIMIT, &old) == 0)
        return 0; // a bus that doesn't answer is noticed before anything is changed
    return write_reg(REG_USB_LIMIT, index) != 0 && write_reg(REG_DC_LIMIT, index) != 0 ? 1 : 0;
}

int charge_qpnp_set_current(std::uint32_t battery_ma, std::uint32_t input_ma)
{
    if (set_input_limit(input_ma) == 0)
        return 0;
    if (battery_ma == 0)
        battery_ma = BATTERY_DEFAULT_MA;
    if (battery_ma < BATTERY_LEAST_MA || battery_ma > BATTERY_MOST_MA || battery_ma % BATTERY_STEP_MA != 0)
        return 0;
    return write_reg(REG_BATTERY_LIMIT, static_cast<std::uint8_t>(battery_ma / BATTERY_STEP_MA));
}

// Step `i` of a list in mA.
std::uint32_t range_step(int kind, int i)
{
    return kind == CHARGE_RANGE_BATTERY ? static_cast<std::uint32_t>(i) * BATTERY_STEP_MA
                                        : usb_current_tbl[i];
}

int charge_qpnp_get_range(char* p_text, int kind)
{
    if (kind != CHARGE_RANGE_BATTERY && kind != CHARGE_RANGE_INPUT)
        return 0;
    const int steps =
        kind == CHARGE_RANGE_BATTERY ? BATTERY_STEPS : static_cast<int>(std::size(usb_current_tbl));
    std::size_t len = 0;
    for (int i = 0; i < steps; i++)
        len += static_cast<std::size_t>(std::snprintf(p_text + len, CHARGE_RANGE_SIZE - len, "%s%u",
                                                      i != 0 ? "," : "", range_step(kind, i)));
    return 1;
}

int charge_qpnp_dump()
{
    std::uint8_t val;
    for (const std::uint32_t addr : charge_debug_regs)
        read_reg(addr, &val);
    return 1;
}

// clang-format off
constexpr charge_co charge_qpnp_co = {
    .set_mode    = charge_qpnp_set_mode,
    .get_mode    = charge_qpnp_get_mode,
    .set_current = charge_qpnp_set_current,
    .get_range   = charge_qpnp_get_range,
    .dump        = charge_qpnp_dump,
};
// clang-format on

} // namespace

void charge_qpnp_init()
{
    charge_co_attach(&charge_qpnp_co);
}
