// The cell of the phone's battery and the charger in front of it, as physics: charge, voltage at rest along a
// curve of its own, internal resistance, heat. Pure sums without clock, files or registers.
#pragma once

namespace phone {

struct cell {
    double charge_mah;
    double temp_c;
};

constexpr double cell_mah = 2380; // when full

// What stands in front of the cell.
struct cell_feed {
    bool present;      // something feeds the phone
    bool on_battery;   // the phone runs on the cell in spite of it
    bool charging;     // what the phone doesn't need goes into the cell
    double input_ma;   // most that is taken from the feed
    double battery_ma; // most that goes into the cell
};

double cell_percent(const cell& c);

// Into the cell, in mA; negative while it gives off current.
double cell_current_ma(const cell& c, const cell_feed& feed);

// At the terminals, in mV, for a current as above.
double cell_voltage_mv(const cell& c, double ma);

// Lets a current flow for a time.
void cell_flow(cell& c, double ma, double seconds);

} // namespace phone
