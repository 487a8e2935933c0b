// Persistent units: the limits of every access option, on libraries of the test's own, and the calibration
// items above them. What this build reaches with its own option is in the station transcripts.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>

#include "plat_fake.h"
#include "ta/ta.h"
#include "ta_generic/ta_generic.h"
#include "trim/trim.h"
#include "trim_brenk/trim_brenk.h"

namespace {

// The two stores: partition 1 and 2 by number.
std::map<std::uint32_t, std::string> stores[3];
int partition; // 0: closed
int open_mode;
std::uint64_t walk_from;
std::string formats; // the partitions that were formatted
std::string missing; // a symbol that the library lacks

int lib_open(int part, int mode, int)
{
    if (partition != 0)
        return 1;
    partition = part;
    open_mode = mode;
    walk_from = 0;
    return 0;
}
int lib_close()
{
    partition = 0;
    return 0;
}
int lib_getsize(std::uint32_t unit, std::uint32_t* p_size)
{
    const auto found = stores[partition].find(unit);
    if (found == stores[partition].end())
        return 1;
    *p_size = static_cast<std::uint32_t>(found->second.size());
    return 0;
}
int lib_read(std::uint32_t unit, void* p_buf, std::uint32_t size)
{
    std::memcpy(p_buf, stores[partition][unit].data(), size);
    return 0;
}
int lib_write(std::uint32_t unit, const void* p_data, std::uint32_t size)
{
    if (open_mode != 3)
        return 1;
    stores[partition][unit].assign(static_cast<const char*>(p_data), size);
    return 0;
}
int lib_delete(std::uint32_t unit)
{
    return stores[partition].erase(unit) == 1 ? 0 : 1;
}
int lib_format(int arg, int part)
{
    formats += std::to_string(arg) + ":" + std::to_string(part) + " ";
    return 0;
}
int lib_getversion()
{
    return 0;
}
int lib_getmode(int* p_mode, int* p_partition)
{
    *p_mode = open_mode;
    *p_partition = partition;
    return 0;
}
int lib_getnextid(std::uint32_t* p_id, std::uint32_t*)
{
    for (const auto& [unit, bytes] : stores[partition]) {
        if (unit < walk_from)
            continue;
        *p_id = unit;
        walk_from = unit + 1ull;
        return 0;
    }
    return 1;
}
int lib_aux_read(std::uint32_t unit, void* p_buf, std::uint32_t* p_size)
{
    *p_size = static_cast<std::uint32_t>(stores[2][unit].copy(static_cast<char*>(p_buf), *p_size));
    return 0;
}
int lib_aux_size(std::uint32_t unit, std::uint32_t* p_size)
{
    if (!stores[2].contains(unit))
        return 1;
    *p_size = static_cast<std::uint32_t>(stores[2][unit].size());
    return 0;
}
int lib_aux_write(std::uint32_t unit, const void* p_data, std::uint32_t size)
{
    stores[2][unit].assign(static_cast<const char*>(p_data), size);
    return 0;
}

template <typename Fn>
void* symbol(Fn fn)
{
    return reinterpret_cast<void*>(fn);
}

void* fake_dlsym(void*, const char* name)
{
    const std::map<std::string, void*> symbols = {
        {"ta_open", symbol(lib_open)},
        {"ta_close", symbol(lib_close)},
        {"ta_getsize", symbol(lib_getsize)},
        {"ta_read", symbol(lib_read)},
        {"ta_write", symbol(lib_write)},
        {"ta_delete", symbol(lib_delete)},
        {"ta_format", symbol(lib_format)},
        {"ta_getversion", symbol(lib_getversion)},
        {"ta_getmode", symbol(lib_getmode)},
        {"ta_getnextid", symbol(lib_getnextid)},
        {"auxnvq_read_unit", symbol(lib_aux_read)},
        {"auxnvq_get_unit_size", symbol(lib_aux_size)},
        {"auxnvq_write_unit", symbol(lib_aux_write)},
        {"auxnvq_write_unit_critical", symbol(lib_aux_write)},
        {"auxnvq_write_flush", symbol(lib_close)},
    };
    const auto found = symbols.find(name);
    return name == missing || found == symbols.end() ? nullptr : found->second;
}

struct Units : testing::Test {
    void SetUp() override
    {
        plat_fake_reset();
        plat_fake_co.dlopen = [](const char*, int) -> void* { return &stores; };
        plat_fake_co.dlsym = fake_dlsym;
        plat_fake_co.dlclose = [](void*) { return 0; };
        stores[1] = {{7, "main"}, {0x20000, "main high"}};
        stores[2] = {{0xFFFF, "aux"}, {0x10000, "aux high"}, {0x10001, "aux higher"}};
        partition = 0;
        formats.clear();
        missing.clear();
    }
};

struct option_row {
    int option;
    bool reads_low, reads_high, writes_low, writes_high;
    const char* formats;
    std::vector<std::uint32_t> walk;
};

TEST_F(Units, AnOptionSaysWhatCanBeReached)
{
    const option_row rows[] = {
        {TA_OPTION_ALL, true, true, true, true, "2:1 2:2 ", {7, 0x20000, 0x8000FFFF, 0x80010000, 0x80010001}},
        {TA_OPTION_READ_ONLY,
         true,
         true,
         false,
         false,
         "2:1 ",
         {7, 0x20000, 0x8000FFFF, 0x80010000, 0x80010001}},
        {TA_OPTION_MAIN_ONLY, false, false, false, false, "2:1 ", {7, 0x20000}},
        {TA_OPTION_LOW_UNITS, true, false, true, false, "2:1 ", {7, 0x20000, 0x8000FFFF}},
    };
    for (const option_row& row : rows) {
        SCOPED_TRACE(row.option);
        SetUp();
        ta_generic_init(row.option);
        char buf[16];
        EXPECT_EQ(ta_if_read(0x8000FFFF, buf, sizeof buf), row.reads_low ? 3 : 0);
        EXPECT_EQ(ta_if_get_size(0x80010000), row.reads_high ? 8 : 0);
        EXPECT_EQ(ta_if_write(0x8000FFFF, 1, "x"), row.writes_low);
        EXPECT_EQ(ta_if_write(0x80010000, 1, "x"), row.writes_high);
        EXPECT_EQ(ta_if_format(0, 0), 1);
        EXPECT_EQ(formats, row.formats);
        EXPECT_EQ(ta_if_get_next_id(), 0u); // closed
        ASSERT_EQ(ta_if_open(0), 1);
        EXPECT_EQ(ta_if_format(0, 0), 0);
        for (const std::uint32_t unit : row.walk)
            EXPECT_EQ(ta_if_get_next_id(), unit);
        EXPECT_EQ(ta_if_get_next_id(), TA_NO_UNIT);
        EXPECT_EQ(ta_if_close(0), 1);
        EXPECT_EQ(ta_if_get_status(), 0);
    }
}

TEST_F(Units, TheMainStoreIsReachedOnlyWhileItIsOpen)
{
    ta_generic_init(TA_OPTION_LOW_UNITS);
    char buf[8] = {};
    EXPECT_EQ(ta_if_get_size(7), 0);
    EXPECT_EQ(ta_if_read(7, buf, sizeof buf), 0);
    EXPECT_EQ(ta_if_write(7, 1, "x"), 0);
    EXPECT_EQ(ta_if_del(7), 0);
    ASSERT_EQ(ta_if_open(0), 1);
    EXPECT_EQ(ta_if_read(7, buf, sizeof buf), 4);
    EXPECT_STREQ(buf, "main");
    EXPECT_EQ(ta_if_write(7, 1, "x"), 0); // opened for reading
    ta_if_close(0);
    ASSERT_EQ(ta_if_open(1), 1);
    EXPECT_EQ(ta_if_write(7, 1, "x"), 1);
    EXPECT_EQ(ta_if_del(0x80000007), 0);
    EXPECT_EQ(ta_if_del(7), 1);
    EXPECT_EQ(ta_if_get_size(7), 0);
}

TEST_F(Units, AUnitWithoutRoomIsNotRead)
{
    ta_generic_init(TA_OPTION_LOW_UNITS);
    char buf[4] = {'?', '?', '?', '?'};
    EXPECT_EQ(ta_if_read(0x8000FFFF, buf, 2), 0);
    EXPECT_EQ(buf[0], '?');
    EXPECT_EQ(ta_if_read(0x8000FFFF, buf, 3), 3);
    EXPECT_EQ(buf[3], '?');
}

TEST_F(Units, ALibraryThatLacksASymbolStopsTheProcess)
{
    for (const char* name : {"ta_getversion", "auxnvq_write_flush"}) {
        missing = name;
        EXPECT_EXIT(ta_generic_init(TA_OPTION_LOW_UNITS), testing::ExitedWithCode(1), "") << name;
    }
    plat_fake_co.dlopen = [](const char*, int) -> void* { return nullptr; };
    EXPECT_EXIT(ta_generic_init(TA_OPTION_LOW_UNITS), testing::ExitedWithCode(1), "");
}

TEST_F(Units, AnInterfaceWithoutAnOperationDoesNothing)
{
    static constexpr ta_if_co empty{};
    ta_if_init();
    EXPECT_EXIT(ta_if_open(0), testing::ExitedWithCode(1), "");
    EXPECT_EQ(ta_if_cmd_co_attach(&empty), nullptr);
    EXPECT_EQ(ta_if_open(0) + ta_if_close(0) + ta_if_format(0, 0) + ta_if_get_status() + ta_if_set_tran(1) +
                  ta_if_get_size(1) + ta_if_del(1) + ta_if_xfer(1, 1, 1, 0, 0),
              0);
    EXPECT_EQ(ta_if_cmd_co_attach(nullptr), &empty);
}

TEST_F(Units, CalibrationItemsFollowTheBoardsMap)
{
    ta_generic_init(TA_OPTION_LOW_UNITS);
    trim_init();
    EXPECT_EXIT(trim_get_size(1), testing::ExitedWithCode(1), "");
    trim_map_set(trim_brenk_co_get, 1);
    char buf[8];
    EXPECT_EQ(trim_rd(31, buf, sizeof buf), 0); // on the map, no unit yet
    EXPECT_EQ(trim_wr(31, "abc", 3), 1);
    EXPECT_EQ(stores[2][0x1363], "abc");
    EXPECT_EQ(trim_get_size(31), 3);
    EXPECT_EQ(trim_rd(31, buf, 2), 0);
    EXPECT_EQ(trim_rd(31, buf, 3), 3);
    for (const int id : {-1, 3, 5, 27, 39, 44, 1000}) {
        EXPECT_EQ(trim_get_size(id), 0) << id;
        EXPECT_EQ(trim_rd(id, buf, sizeof buf), 0) << id;
        EXPECT_EQ(trim_wr(id, "x", 1), 0) << id;
    }
    // Items in the main store want it open, and a commit opens it for writing.
    EXPECT_EQ(trim_wr(28, "abcd", 4), 0);
    EXPECT_EQ(trim_commit(), 0);
    ASSERT_EQ(ta_if_open(0), 1);
    EXPECT_EQ(trim_wr(28, "abcd", 4), 0);
    EXPECT_EQ(trim_commit(), 1);
    EXPECT_EQ(trim_wr(28, "abcd", 4), 1);
    EXPECT_EQ(stores[1][60220], "abcd");
}

} // namespace
