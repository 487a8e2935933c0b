#include "trim/trim.h"

#include <array>

#include "check/check.h"
#include "ta/ta.h"

namespace {

constexpr trim_map_row no_item = {39, 0}; // no board has an item 39

trim_map_sel trim_sel;
std::array<trim_map_row, TRIM_LAST> trim_tab;

void trim_map_init(const trim_map_co* p_co)
{
    trim_tab.fill(no_item);
    for (const trim_map_row* p_row = p_co->map(); p_row->id != TRIM_LAST; p_row++) {
        HVT_CHECK(p_row->id >= 0 && p_row->id < TRIM_LAST);
        trim_tab[static_cast<std::size_t>(p_row->id)] = *p_row;
    }
}

// The row of an item that the board has, else null.
const trim_map_row* find(int id)
{
    HVT_CHECK(trim_sel.get != nullptr);
    if (id < 0 || id >= TRIM_LAST || id == no_item.id)
        return nullptr;
    const trim_map_row& row = trim_tab[static_cast<std::size_t>(id)];
    return row.id == id ? &row : nullptr;
}

} // namespace

void trim_init()
{
    trim_sel = {};
}

void trim_map_set(trim_map_get get, std::uint8_t rev)
{
    HVT_CHECK(get != nullptr);
    trim_sel = {get, rev};
    const trim_map_co* const p_co = get(rev);
    HVT_CHECK(p_co != nullptr);
    trim_map_init(p_co);
}

int trim_get_size(int id)
{
    const trim_map_row* const p_row = find(id);
    return p_row != nullptr ? ta_if_get_size(p_row->ofs) : 0;
}

int trim_rd(int id, void* p_buf, std::size_t room)
{
    const trim_map_row* const p_row = find(id);
    return p_row != nullptr ? ta_if_read(p_row->ofs, p_buf, room) : 0;
}

int trim_wr(int id, const void* p_data, std::size_t size)
{
    const trim_map_row* const p_row = find(id);
    return p_row != nullptr ? ta_if_write(p_row->ofs, size, p_data) : 0;
}

int trim_commit()
{
    if (ta_if_get_status() == 0)
        return 0;
    ta_if_close(0);
    return ta_if_open(1);
}
