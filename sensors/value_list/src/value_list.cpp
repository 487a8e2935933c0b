#include "value_list/value_list.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>

#include "scf/scf.h"

namespace {

bool to_float(const char* text, float* p_out)
{
    char* p_end;
    *p_out = std::strtof(text, &p_end);
    return p_end != text && !std::isnan(*p_out);
}

bool to_int(const char* text, int* p_out)
{
    char* p_end;
    const long value = std::strtol(text, &p_end, 10);
    *p_out = static_cast<int>(std::clamp(value, static_cast<long>(INT_MIN), static_cast<long>(INT_MAX)));
    return p_end != text;
}

} // namespace

void value_list_cut(value_list* p_list, char* text)
{
    p_list->count = 0;
    if (text == nullptr)
        return;
    scf_clean(text, " ");
    p_list->count = scf_split(text, p_list->item, VALUE_LIST_MAX, ',');
}

bool value_list_float(const value_list* p_list, int i, float* p_out)
{
    return i < p_list->count && to_float(p_list->item[i], p_out);
}

bool value_list_floats(const value_list* p_list, float* p_out, int count)
{
    if (p_list->count != count)
        return false;
    return std::all_of(p_list->item, p_list->item + count,
                       [&p_out](const char* text) { return to_float(text, p_out++); });
}

bool value_list_ints(const value_list* p_list, int* p_out, int count)
{
    if (p_list->count != count)
        return false;
    return std::all_of(p_list->item, p_list->item + count,
                       [&p_out](const char* text) { return to_int(text, p_out++); });
}
