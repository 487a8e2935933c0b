// libauxnvq.so of the virtual phone: the auxiliary persistent store. It needs no opening; every call gives 0
// on success. Unit numbers come without bit 31.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "core/library_host.h"
#include "store/units.h"
#include "store/units_host.h"

namespace {

constexpr int failed = -1;

const phone_library_host* p_host;
const phone_units_host* p_units;

} // namespace

extern "C" {

void phone_library_attach(const phone_library_host* p)
{
    p_host = p;
    p_units = static_cast<const phone_units_host*>(p->offered("units"));
}

int auxnvq_get_unit_size(std::uint32_t unit, std::uint32_t* p_size)
{
    if (p_host->call("auxnvq_get_unit_size", unit) || (unit & units::aux) != 0)
        return failed;
    const long size = units::size(p_units->dir, unit | units::aux);
    *p_size = static_cast<std::uint32_t>(std::max(size, 0L));
    return size >= 0 ? 0 : failed;
}

// `*p_size` is the room on entry and the unit's size afterwards.
int auxnvq_read_unit(std::uint32_t unit, void* p_buf, std::uint32_t* p_size)
{
    std::string bytes;
    if (p_host->call("auxnvq_read_unit", unit) || (unit & units::aux) != 0 ||
        !units::read(p_units->dir, unit | units::aux, bytes) || bytes.size() > *p_size)
        return failed;
    std::memcpy(p_buf, bytes.data(), bytes.size());
    *p_size = static_cast<std::uint32_t>(bytes.size());
    return 0;
}

int auxnvq_write_unit(std::uint32_t unit, const void* p_data, std::uint32_t size)
{
    if (p_host->call("auxnvq_write_unit", unit) || (unit & units::aux) != 0 || size > units::largest)
        return failed;
    return units::write(p_units->dir, unit | units::aux, p_data, size) ? 0 : failed;
}

int auxnvq_write_unit_critical(std::uint32_t unit, const void* p_data, std::uint32_t size)
{
    return auxnvq_write_unit(unit, p_data, size);
}

// Every unit is on the disk when its write returns.
int auxnvq_write_flush()
{
    return 0;
}

} // extern "C"
