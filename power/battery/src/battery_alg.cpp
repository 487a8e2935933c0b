#include "battery_alg.h"

#include <cstddef>

namespace {

struct ocv_pair {
    std::uint16_t mv;
    std::uint16_t percent;
};

constexpr std::size_t ALG1_PAIRS = 30;
constexpr std::size_t ALG2_PAIRS = 20;
constexpr std::uint32_t ALG1_MODELS = 3;
constexpr int ALG2_TYPES = 2;

// Cells at rest, from the highest voltage down. The first pair of 0 percent ends a table and stands for
// "anything less"; its voltage doesn't count.
// clang-format off
constexpr ocv_pair ocv_voltage_tbl[ALG1_MODELS][ALG1_PAIRS] = {
    {   // model 1
        { 4228, 100 }, { 4172,  99 }, { 4122,  96 }, { 4036,  87 }, { 3920,  71 },
        { 3873,  63 }, { 3832,  54 }, { 3806,  46 }, { 3782,  37 }, { 3761,  28 },
        { 3742,  22 }, { 3727,  18 }, { 3684,  12 }, { 3665,   9 }, { 3644,   6 },
        { 3595,   5 }, { 3544,   4 }, { 3411,   2 }, { 3180,   0 }, { 3060,   0 },
    },
    {   // model 2
        { 4293, 100 }, { 4211,  99 }, { 4116,  90 }, { 4042,  82 }, { 3962,  72 },
        { 3916,  65 }, { 3879,  59 }, { 3843,  51 }, { 3803,  41 }, { 3774,  31 },
        { 3738,  22 }, { 3707,  17 }, { 3677,  14 }, { 3649,  10 }, { 3613,   7 },
        { 3553,   4 }, { 3415,   2 }, { 3120,   0 },
    },
    {   // model 3
        { 4332, 100 }, { 4258,  95 }, { 4201,  90 }, { 4147,  85 }, { 4096,  80 },
        { 4049,  75 }, { 4005,  70 }, { 3967,  65 }, { 3929,  60 }, { 3880,  55 },
        { 3847,  50 }, { 3825,  45 }, { 3807,  40 }, { 3793,  35 }, { 3782,  30 },
        { 3763,  25 }, { 3744,  20 }, { 3720,  15 }, { 3687,  10 }, { 3684,   9 },
        { 3681,   8 }, { 3678,   7 }, { 3674,   6 }, { 3665,   5 }, { 3646,   4 },
        { 3607,   3 }, { 3554,   2 }, { 3489,   1 }, { 3000,   0 },
    },
};

constexpr ocv_pair ocv_voltage_tbl_co_3250[ALG2_TYPES][ALG2_PAIRS] = {
    {   // type 1
        { 4171, 100 }, { 4114,  95 }, { 4009,  83 }, { 3947,  74 }, { 3907,  67 },
        { 3863,  59 }, { 3830,  56 }, { 3813,  53 }, { 3791,  46 }, { 3771,  33 },
        { 3754,  25 }, { 3735,  20 }, { 3717,  17 }, { 3681,  13 }, { 3664,   8 },
        { 3651,   6 }, { 3635,   5 }, { 3560,   3 }, { 3408,   1 }, { 3247,   0 },
    },
    {   // type 2
        { 4161, 100 }, { 4124,  98 }, { 4044,  90 }, { 4003,  85 }, { 3966,  80 },
        { 3933,  75 }, { 3888,  67 }, { 3849,  60 }, { 3813,  55 }, { 3787,  47 },
        { 3772,  30 }, { 3751,  25 }, { 3718,  20 }, { 3681,  16 }, { 3660,  14 },
        { 3589,  10 }, { 3546,   7 }, { 3495,   4 }, { 3404,   2 }, { 3250,   0 },
    },
};
// clang-format on

constexpr bool falls(const ocv_pair* p_tbl)
{
    for (const ocv_pair* p = p_tbl; p->percent != 0; p++)
        if (p[1].mv >= p->mv || p[1].percent >= p->percent)
            return false;
    return p_tbl->percent == 100;
}
static_assert(falls(ocv_voltage_tbl[0]) && falls(ocv_voltage_tbl[1]) && falls(ocv_voltage_tbl[2]));
static_assert(falls(ocv_voltage_tbl_co_3250[0]) && falls(ocv_voltage_tbl_co_3250[1]));

// What the terminals would show without a current. In 64 bits: the values may come from a line.
std::int64_t open_circuit_mv(const battery_cfg& cfg, int mv, int ma)
{
    return mv - static_cast<std::int64_t>(ma) * cfg.ires_mohm / 1000;
}

int look_up(const ocv_pair* p_tbl, std::int64_t mv)
{
    const ocv_pair* lower = p_tbl;
    while (lower->percent != 0 && lower->mv > mv)
        lower++;
    if (lower == p_tbl || lower->percent == 0)
        return lower->percent;
    const ocv_pair* const upper = lower - 1;
    return static_cast<int>(lower->percent +
                            (mv - lower->mv) * (upper->percent - lower->percent) / (upper->mv - lower->mv));
}

} // namespace

int battery_alg1_calc_capacity(const battery_cfg& cfg, int type, int mv, int ma, int* p_percent)
{
    if (cfg.model < 1 || cfg.model > ALG1_MODELS || type != 1)
        return 0;
    if (ma >= 0) {
        *p_percent = 0;
        return 0;
    }
    *p_percent = look_up(ocv_voltage_tbl[cfg.model - 1], open_circuit_mv(cfg, mv, ma));
    return 1;
}

int battery_alg2_calc_capacity(const battery_cfg& cfg, int type, int mv, int ma, int* p_percent)
{
    if (type < 1 || type > ALG2_TYPES)
        return 0;
    *p_percent = look_up(ocv_voltage_tbl_co_3250[type - 1], open_circuit_mv(cfg, mv, ma));
    return 1;
}
