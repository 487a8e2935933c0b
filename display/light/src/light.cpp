#include "light/light.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

slnk light_lst_head;
const light_map_row* light_map;
const light_co* light_cmd_co;

bool in_zone(const light_map_row& row, int zone, int subzone)
{
    return (row.zone == zone || zone == LIGHT_ZONE_ALL) &&
           (row.subzone == subzone || subzone == LIGHT_SUBZONE_ALL);
}

light_dev* find_device(int id)
{
    for (slnk* p = slnk_next(&light_lst_head); p != nullptr; p = slnk_next(p))
        if (reinterpret_cast<light_dev*>(p)->id == id)
            return reinterpret_cast<light_dev*>(p);
    return nullptr;
}

} // namespace

void light_init()
{
    slnk_init(&light_lst_head);
}

void light_map_set(const light_map_row* p_map)
{
    light_map = p_map;
}

void light_add(light_dev* p_dev)
{
    slnk_add(&light_lst_head, &p_dev->link);
}

void light_cmd_co_attach(const light_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    light_cmd_co = p_co;
}

int light_set(int zone, int subzone, std::uint16_t level)
{
    HVT_CHECK(light_map != nullptr);
    for (const light_map_row* p_row = light_map; p_row->zone != 0; p_row++) {
        light_dev* const p_dev = in_zone(*p_row, zone, subzone) ? find_device(p_row->device) : nullptr;
        if (p_dev != nullptr && p_dev->set(p_dev, level) == 0)
            return 0;
    }
    return 1;
}

int light_exist(int zone)
{
    HVT_CHECK(light_map != nullptr);
    int count = 0;
    for (const light_map_row* p_row = light_map; p_row->zone != 0; p_row++)
        count += in_zone(*p_row, zone, LIGHT_SUBZONE_ALL) ? 1 : 0;
    return count;
}

int light_lsot_start()
{
    return callout(light_cmd_co, &light_co::lsot_start, 0);
}

int light_lsot_check_status(int n)
{
    return callout(light_cmd_co, &light_co::lsot_check_status, LIGHT_LSOT_FAILED, n);
}

int light_lsot_finish()
{
    return callout(light_cmd_co, &light_co::lsot_finish, 0);
}
