#include "adc/adc.h"

#include <array>
#include <cstring>

#include "callout/callout.h"

namespace {

std::array<adc_rec, 32> adc_co;

} // namespace

void adc_init()
{
    adc_co = {};
}

int adc_co_add(const adc_rec* p_rec)
{
    for (adc_rec& entry : adc_co) {
        if (entry.name[0] == '\0') {
            entry = *p_rec;
            entry.name[sizeof entry.name - 1] = '\0';
            return 1;
        }
    }
    return 0;
}

int adc_read(const char* name, int arg, int* p_val)
{
    for (const adc_rec& entry : adc_co)
        if (entry.name[0] != '\0' && std::strcmp(entry.name, name) == 0)
            return callout(entry.fn, 0, name, arg, p_val);
    return 0;
}
