#include "rfbv_brenk/rfbv_brenk.h"

#include <cstddef>
#include <cstring>

#include "adcr/adcr.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "rfbv/rfbv.h"
#include "trim/items.h"
#include "trim/trim.h"

namespace {

constexpr unsigned CH_RF_ID = 3;
constexpr int KEY_OF_PIN = 100000;

struct rfbv_row {
    int low;
    int high;
    const char* text;
};

// clang-format off
// By voltage in mV, plus 100000 when the pin is active. The walk ends at the first row whose `low` is below 1.
constexpr rfbv_row rfbv_brenk_map_wtr[] = {
    {  101697, 101882, ""                  },
    {  101433, 101579, ""                  },
    {  101236, 101395, "L47_17W12458"      },
    {  101097, 101220, ""                  },
    {  100809, 100909, ""                  },
    {  100570, 100647, ""                  },
    {  100356, 100410, ""                  },
    {  100216, 100254, ""                  },
    {  100000, 100057, ""                  },
    {    1697,   1882, "L1234578_20W12458" },
    {    1433,   1579, "W12458"            },
    {    1248,   1382, "L1_19_21W1569_19"  },
    {    1097,   1220, "C06L135_11_18W125" },
    {     809,    909, "L124578_17W12458"  },
    {     570,    647, ""                  },
    {     356,    410, "C01"               },
    {     216,    254, ""                  },
    {       0,     57, ""                  },
    {      -1,     -1, ""                  },
};
// clang-format on

const rfbv_row* find(int key)
{
    for (const rfbv_row* p_row = rfbv_brenk_map_wtr; p_row->low >= 1; p_row++)
        if (p_row->low <= key && key <= p_row->high)
            return p_row;
    return nullptr;
}

// Stores the text unless one is stored: 0 when that isn't sure. The store gives an absent unit and a query
// that failed alike, and an existing unit is never to be overwritten: so it is asked twice before, and once
// after.
int store_once(const char* text)
{
    if (trim_get_size(TRIM_RF_VARIANT) != 0)
        return 1;
    if (trim_get_size(TRIM_RF_VARIANT) != 0)
        return 0;
    const std::size_t size = std::strlen(text) + 1;
    return trim_wr(TRIM_RF_VARIANT, text, size) != 0 &&
           trim_get_size(TRIM_RF_VARIANT) == static_cast<int>(size);
}

int rfbv_brenk_read(unsigned* p_pin, int* p_val)
{
    *p_pin = pin_in_get(PIN_IN_RF_VARIANT) == PIN_ACTIVE ? 1 : 0;
    if (adcr_read(CH_RF_ID, ADCR_DIVIDED, p_val) != ADCR_OK)
        return 0;
    const rfbv_row* const p_row = find(*p_val + (*p_pin != 0 ? KEY_OF_PIN : 0));
    return p_row == nullptr ? 1 : store_once(p_row->text);
}

int rfbv_brenk_setup()
{
    unsigned pin;
    int value;
    return rfbv_brenk_read(&pin, &value);
}

int rfbv_brenk_get_config(char* p_buf, std::size_t room)
{
    const int size = trim_rd(TRIM_RF_VARIANT, p_buf, room - 1);
    p_buf[size] = '\0';
    return size != 0 ? 1 : 0;
}

// clang-format off
constexpr rfbv_co rfbv_brenk_co = {
    .read       = rfbv_brenk_read,
    .setup      = rfbv_brenk_setup,
    .get_config = rfbv_brenk_get_config,
};
// clang-format on

} // namespace

void rfbv_brenk_init()
{
    rfbv_cmd_co_attach(&rfbv_brenk_co);
}
