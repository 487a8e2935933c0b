#include "power/cell.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace phone {

namespace {

constexpr double feed_mv = 5000;
constexpr double converter = 0.9; // efficiency of the charger's converter
constexpr double phone_ma = 600;  // what the phone takes: its processors at full speed, its panel lit
constexpr double idle_ma = 4;     // what the cell gives in any case: its gauge, the clock
constexpr double weak_mv = 3690;  // at rest; below it the chip spares the cell, whatever it was told
constexpr double full_mv = 4350;  // the charger holds this voltage and lets the current fall
constexpr double seconds_per_hour = 3600;

struct point {
    double percent;
    double mv;
};

// The cell at rest at 25 degrees, lithium cobalt oxide and graphite, charged to 4.35 V.
// clang-format off
constexpr point rest[] = {
    {   0, 3050 }, {   1, 3420 }, {   3, 3600 }, {   5, 3657 }, {   8, 3681 },
    {  15, 3717 }, {  25, 3764 }, {  35, 3795 }, {  45, 3824 }, {  52, 3859 },
    {  58, 3911 }, {  66, 3976 }, {  75, 4051 }, {  85, 4149 }, {  93, 4236 },
    { 100, 4340 },
};
// clang-format on

double rest_mv(double percent)
{
    const point* const above = std::find_if(std::begin(rest) + 1, std::end(rest) - 1,
                                            [percent](const point& p) { return p.percent >= percent; });
    const point& below = *(above - 1);
    return below.mv + (percent - below.percent) * (above->mv - below.mv) / (above->percent - below.percent);
}

// Rises steeply when the cell runs empty, and in the cold.
double ohm(const cell& c)
{
    return (0.165 + 0.14 * std::exp(-cell_percent(c) / 5)) * (1 - 0.008 * (c.temp_c - 28.4));
}

} // namespace

double cell_percent(const cell& c)
{
    return c.charge_mah / cell_mah * 100;
}

double cell_current_ma(const cell& c, const cell_feed& feed)
{
    const double at_rest = rest_mv(cell_percent(c));
    if (!feed.present || (feed.on_battery && at_rest > weak_mv))
        return -phone_ma;
    const double left_over = feed.input_ma * feed_mv * converter / at_rest - phone_ma;
    if (left_over <= 0)
        return left_over; // the cell helps out
    if (!feed.charging || feed.on_battery)
        return -idle_ma;
    const double until_full = std::max(0.0, full_mv - at_rest) / ohm(c);
    return std::min({left_over, feed.battery_ma, until_full});
}

double cell_voltage_mv(const cell& c, double ma)
{
    return rest_mv(cell_percent(c)) + ma * ohm(c);
}

void cell_flow(cell& c, double ma, double seconds)
{
    constexpr double at_no_current = 28.03; // the phone on a desk at 25 degrees
    constexpr double degrees_per_a2 = 1.03;
    constexpr double settling_s = 600;
    const double amps = ma / 1000;
    const double settled = at_no_current + degrees_per_a2 * amps * amps;
    c.temp_c = settled + (c.temp_c - settled) * std::exp(-seconds / settling_s);
    c.charge_mah = std::clamp(c.charge_mah + ma * seconds / seconds_per_hour, 0.0, cell_mah);
}

} // namespace phone
