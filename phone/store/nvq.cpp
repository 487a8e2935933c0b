// libnvq.so of the virtual phone: the main persistent store. One partition is open at a time; every call
// gives 0 on success. The numbers of the open partition are kept at hand, since somebody may ask for all
// sixteen million of them.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <string>
#include <vector>

#include "core/library_host.h"
#include "store/units.h"
#include "store/units_host.h"

namespace {

constexpr int failed = -1;
constexpr int partition_main = 1;
constexpr int partition_aux = 2;
constexpr int mode_write = 2;

std::mutex mutex; // guards all below
const phone_library_host* p_host;
const phone_units_host* p_units;
std::string dir;
int open_partition; // 0: closed
int open_mode;
std::vector<std::uint32_t> numbers; // of the open partition, as files
std::uint32_t seen_changes;
std::uint64_t walk_from; // the walk goes on with this file number or above

std::uint32_t part_bit(int partition)
{
    return partition == partition_aux ? units::aux : 0;
}

void look_again()
{
    seen_changes = p_units->p_changed->load();
    numbers = units::list(dir);
    const std::uint32_t bit = part_bit(open_partition);
    std::erase_if(numbers, [bit](std::uint32_t n) { return (n & units::aux) != bit; });
}

// The file number of a unit that is there.
bool find(std::uint32_t unit, std::uint32_t* p_number)
{
    if (open_partition == 0 || (unit & units::aux) != 0)
        return false;
    if (p_units->p_changed->load(std::memory_order_relaxed) != seen_changes)
        look_again();
    *p_number = unit | part_bit(open_partition);
    return std::binary_search(numbers.begin(), numbers.end(), *p_number);
}

bool may_write(std::uint32_t unit)
{
    return open_partition != 0 && (open_mode & mode_write) != 0 && (unit & units::aux) == 0;
}

} // namespace

extern "C" {

void phone_library_attach(const phone_library_host* p)
{
    p_host = p;
    p_units = static_cast<const phone_units_host*>(p->offered("units"));
    dir = p_units->dir;
}

int ta_open(int partition, int mode, int)
{
    const std::lock_guard lock(mutex);
    if (p_host->call("ta_open", static_cast<std::uint32_t>(partition)) || open_partition != 0 ||
        (partition != partition_main && partition != partition_aux))
        return failed;
    open_partition = partition;
    open_mode = mode;
    walk_from = 0;
    look_again();
    return 0;
}

int ta_close()
{
    const std::lock_guard lock(mutex);
    // As with any handle, a failing close has closed it all the same.
    const bool faulty = p_host->call("ta_close", static_cast<std::uint32_t>(open_partition));
    const bool was_open = open_partition != 0;
    open_partition = 0;
    return was_open && !faulty ? 0 : failed;
}

int ta_getsize(std::uint32_t unit, std::uint32_t* p_size)
{
    const std::lock_guard lock(mutex);
    std::uint32_t number;
    if (p_host->call("ta_getsize", unit) || !find(unit, &number))
        return failed;
    const long size = units::size(dir, number);
    *p_size = static_cast<std::uint32_t>(std::max(size, 0L));
    return size >= 0 ? 0 : failed;
}

int ta_read(std::uint32_t unit, void* p_buf, std::uint32_t size)
{
    const std::lock_guard lock(mutex);
    std::uint32_t number;
    std::string bytes;
    if (p_host->call("ta_read", unit) || !find(unit, &number) || !units::read(dir, number, bytes) ||
        bytes.size() < size)
        return failed;
    std::memcpy(p_buf, bytes.data(), size);
    return 0;
}

int ta_write(std::uint32_t unit, const void* p_data, std::uint32_t size)
{
    const std::lock_guard lock(mutex);
    if (p_host->call("ta_write", unit) || !may_write(unit) || size > units::largest)
        return failed;
    const bool written = units::write(dir, unit | part_bit(open_partition), p_data, size);
    look_again();
    return written ? 0 : failed;
}

int ta_delete(std::uint32_t unit)
{
    const std::lock_guard lock(mutex);
    if (p_host->call("ta_delete", unit) || !may_write(unit))
        return failed;
    const bool removed = units::remove(dir, unit | part_bit(open_partition));
    look_again();
    return removed ? 0 : failed;
}

int ta_format(int, int partition)
{
    const std::lock_guard lock(mutex);
    if (p_host->call("ta_format", static_cast<std::uint32_t>(partition)) || open_partition != 0 ||
        (partition != partition_main && partition != partition_aux))
        return failed;
    bool removed = true;
    for (const std::uint32_t number : units::list(dir))
        if ((number & units::aux) == part_bit(partition))
            removed &= units::remove(dir, number);
    return removed ? 0 : failed;
}

int ta_getversion()
{
    return 0;
}

int ta_getmode(int* p_mode, int* p_partition)
{
    const std::lock_guard lock(mutex);
    if (open_partition == 0)
        return failed;
    *p_mode = open_mode;
    *p_partition = open_partition;
    return 0;
}

int ta_getnextid(std::uint32_t* p_id, std::uint32_t* p_aux)
{
    const std::lock_guard lock(mutex);
    if (open_partition == 0 || p_host->call("ta_getnextid", static_cast<std::uint32_t>(open_partition)))
        return failed;
    const auto found = std::lower_bound(numbers.begin(), numbers.end(), walk_from);
    if (found == numbers.end())
        return failed;
    walk_from = std::uint64_t{*found} + 1;
    *p_id = *found & ~units::aux;
    *p_aux = 0;
    return 0;
}

} // extern "C"
