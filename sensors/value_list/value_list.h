// A list of further values, of a command whose format ends in "%t": numbers behind commas, in any count.
// Blanks and empty items don't count. An item is a number when it begins with one.
#pragma once

constexpr int VALUE_LIST_MAX = 1024;

struct value_list {
    int count; // what is behind the last item that fits isn't looked at
    char* item[VALUE_LIST_MAX];
};

// Cuts `text` in place; null is an empty list. The items stay valid as long as the text.
void value_list_cut(value_list* p_list, char* text);

// Item `i` as a number; false when it isn't one, or not there.
bool value_list_float(const value_list* p_list, int i, float* p_out);

// The list's numbers, if there are exactly `count` of them; false, and nothing defined in `p_out`, otherwise.
// Not a number ("nan") is none. An integer beyond its type is the nearest that fits.
bool value_list_floats(const value_list* p_list, float* p_out, int count);
bool value_list_ints(const value_list* p_list, int* p_out, int count);
