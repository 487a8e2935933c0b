// The phone's charger: what is attached, whether it charges, and with how much. A driver does the work
// (charge_co_attach), and must be there before the first call. Keeps no state: the charger keeps its last
// setting until it is changed. Calls aren't serialised.
#pragma once

#include <cstddef>
#include <cstdint>

// Modes.
constexpr int CHARGE_OFF = 0;
constexpr int CHARGE_USB = 1;
constexpr int CHARGE_SIMPLE = 2;
constexpr int CHARGE_MODE_3 = 3; // 3 to 5 have no effect on this charger
constexpr int CHARGE_MODE_4 = 4;
constexpr int CHARGE_MODE_5 = 5;
constexpr int CHARGE_HOST_POWER_ON = 6; // the phone feeds the cable
constexpr int CHARGE_HOST_POWER_OFF = 7;

// Queries of charge_get_mode.
constexpr int CHARGE_GET_STATUS = 8;         // the charger's status register, raw
constexpr int CHARGE_GET_TYPE = 9;           // CHARGER_...
constexpr int CHARGE_GET_INPUT_LIMITED = 11; // 1: the input current can be set
constexpr int CHARGE_GET_BATTERY_STEPS = 12; // number of battery current steps
constexpr int CHARGE_GET_INPUT_STEPS = 13;   // number of input current steps

constexpr int CHARGER_NONE = 0;
constexpr int CHARGER_USB = 1;    // feeds the phone, doesn't charge it
constexpr int CHARGER_WALL = 2;   // a charger on the USB socket
constexpr int CHARGER_SIMPLE = 3; // a charger on contacts of its own

// Lists of charge_get_range, and the room for one.
constexpr int CHARGE_RANGE_BATTERY = 0;
constexpr int CHARGE_RANGE_INPUT = 1;
constexpr std::size_t CHARGE_RANGE_SIZE = 512;

struct charge_co {
    int (*set_mode)(int mode);
    int (*get_mode)(int query, int* p_out);
    int (*set_current)(std::uint32_t battery_ma, std::uint32_t input_ma);
    int (*get_range)(char* p_text, int kind);
    int (*dump)();
};

void charge_init();
void charge_co_attach(const charge_co* p_co);

// All give 1, or 0 on failure and where the driver has no such operation.
int charge_set_mode(int mode);

// `*p_out` is 0 for a query that the driver doesn't know, which fails; it stays as it was when the hardware
// can't be asked.
int charge_get_mode(int query, int* p_out);

// Limits of the current into the battery and of the current that is taken from the charger. 0 stands for the
// driver's own choice. A value that is no step of the driver's is refused.
int charge_set_current(std::uint32_t battery_ma, std::uint32_t input_ma);

// The steps as text, joined by commas, in CHARGE_RANGE_SIZE bytes.
int charge_get_range(char* p_text, int kind);

// Reads all registers of the charger, for whoever watches the bus.
int charge_dump();
