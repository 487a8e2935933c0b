// The battery as the rest of the program sees it: voltage, current, type, temperature, and a capacity that is
// estimated from the voltage by a table of the cell at rest. Drivers supply the readings, slot by slot. Keeps
// no readings: every call asks the hardware. battery_init comes first; readings may come from any thread.
#pragma once

#include <cstdint>

// A zero or null field given to battery_set_cfg keeps what is in force.
struct battery_cfg {
    std::uint32_t algorithm; // 1: for a battery that gives off current; 2: for a current of any sign
    std::uint32_t model;     // table of algorithm 1, 1 to 3
    std::uint32_t ires_mohm; // internal resistance in milliohm
    // Attributes that the readings by default read. They are gates too: with a null one no driver is asked.
    const char* type_path; // null: the type is 1
    const char* temp_path; // null: 25 degrees
};

// Each gives 1, or 0 on failure with the output as it was.
struct battery_co {
    int (*read_voltage)(int* p_mv);
    int (*read_current)(int* p_ma);
    int (*read_capacity)(int* p_percent, int* p_mv, int* p_ma);
    int (*read_type)(int* p_type);
    int (*read_temp)(int* p_degrees);
    int (*read_temp_mv)(int* p_mv);
};

// Puts the default settings and the default readings in force.
void battery_init();
void battery_set_cfg(const battery_cfg* p_cfg);

// Takes over the slots that aren't null. Only during start-up.
void battery_cmd_co_attach(const battery_co* p_co);

// All give 1, or 0 on failure with the output as it was.
int battery_read_voltage(int* p_mv);
int battery_read_current(int* p_ma);   // negative while the battery gives off current
int battery_read_type(int* p_type);    // 0 unknown
int battery_read_temp(int* p_degrees); // Celsius
int battery_read_temp_mv(int* p_mv);   // the thermistor's voltage

// Percent, estimated for a voltage and a current that are measured or given. `p_mv` and `p_ma` may be null.
// Where one points to 0 it receives what was measured; any other value is taken in place of the measurement,
// the current as a discharge: 500 for a battery that gives off 500 mA. 0 when a reading fails, for a type or
// model without a table, and from algorithm 1 for a battery that gives off no current (`*p_percent` is 0
// then).
int battery_read_capacity(int* p_percent, int* p_mv, int* p_ma);
