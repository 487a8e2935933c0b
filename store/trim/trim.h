// Calibration items: a module reads item 31 and needn't know which persistent unit holds it. The board's map
// decides; on an item that the board lacks every call gives 0. Needs trim_map_set first. Items in the main
// store can be reached only while that is open (ta_if).
#pragma once

#include <cstddef>
#include <cstdint>

constexpr int TRIM_LAST = 44; // ends a board's map

struct trim_map_row {
    int id;
    std::uint32_t ofs; // the unit's number
};

struct trim_map_co {
    const trim_map_row* (*map)();
};

// Gives the table of a board of revision `rev`.
using trim_map_get = const trim_map_co* (*)(std::uint8_t rev);

struct trim_map_sel {
    trim_map_get get;
    std::uint8_t rev;
};

void trim_init();

// Selects the board's map.
void trim_map_set(trim_map_get get, std::uint8_t rev);

// Bytes of the item's unit; 0 when there is none.
int trim_get_size(int id);

// Reads the whole unit: its bytes, 0 on failure. A unit of more than `room` bytes is a failure.
int trim_rd(int id, void* p_buf, std::size_t room);

// 1 on success.
int trim_wr(int id, const void* p_data, std::size_t size);

// Closes the main store and opens it again for writing, if it is open: 1 on success, else 0.
int trim_commit();
