// Estimates of the capacity from the voltage of the cell at rest: terminal voltage plus what is lost inside.
// Inside of the module `battery`.
#pragma once

#include "battery/battery.h"

// Percent into `*p_percent` and 1, or 0 for a type or model without a table. `ma` is negative while the
// battery gives off current. Algorithm 1 gives 0 percent and 0 for a battery that doesn't.
int battery_alg1_calc_capacity(const battery_cfg& cfg, int type, int mv, int ma, int* p_percent);
int battery_alg2_calc_capacity(const battery_cfg& cfg, int type, int mv, int ma, int* p_percent);
