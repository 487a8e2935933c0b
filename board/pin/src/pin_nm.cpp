#include "pin/pin.h"

#include <array>
#include <cstddef>

namespace {

struct pin_nm_row {
    int sig;
    const char* name;
};

// clang-format off
constexpr pin_nm_row pin_out_nm[] = {
    {  69, "nfc enable"             },
    { 149, "tuner power 1"          },
    { 150, "tuner power 2"          },
    { 151, "tuner reset"            },
    { 154, "rf id supply"           },
    { 158, "contactless lock"       },
    { 159, "mhl test"               },
    { 161, "contactless sim select" },
    { 163, "tuner antenna 0"        },
    { 164, "tuner antenna 1"        },
    { 165, "tuner antenna 2"        },
};

constexpr pin_nm_row pin_in_nm[] = {
    {  4, "nfc interrupt"           },
    { 11, "camera cover"            },
    { 13, "card detect"             },
    { 40, "headset plug"            },
    { 47, "proximity"               },
    { 49, "contactless sim supply"  },
    { 50, "sim detect"              },
    { 52, "accelerometer 1"         },
    { 53, "accelerometer 2"         },
    { 57, "rf variant"              },
    { 61, "contactless status 1"    },
    { 62, "contactless status 2"    },
    { 63, "contactless interrupt"   },
    { 64, "contactless variant"     },
    { 67, "compass data ready"      },
    { 68, "mhl hot plug"            },
    { 69, "tuner bus check"         },
};

constexpr std::array<const char*, 4> pin_state_nm = { "low", "high", "inactive", "active" };
// clang-format on

template <std::size_t N>
const char* find(const pin_nm_row (&tab)[N], int sig)
{
    for (const pin_nm_row& row : tab)
        if (row.sig == sig)
            return row.name;
    return "";
}

} // namespace

const char* pin_out_nm_get(int sig)
{
    return find(pin_out_nm, sig);
}

const char* pin_in_nm_get(int sig)
{
    return find(pin_in_nm, sig);
}

const char* pin_state_nm_get(int state)
{
    return state >= PIN_LOW && state <= PIN_ACTIVE ? pin_state_nm[static_cast<std::size_t>(state)] : "";
}
