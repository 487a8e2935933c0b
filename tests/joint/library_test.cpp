// What a closed library gets of the phone: clock, threads, watch, logs, places.
#include <dlfcn.h>

#include "core/clock.h"
#include "core/control.h"
#include "core/files.h"
#include "core/libraries.h"
#include "core/library_host.h"
#include "core/log.h"
#include "joint/joint.h"
#include "plat/plat.h"

namespace {

using namespace phone;

constexpr const char* name = "libprobe.so";

template <typename Function>
Function symbol(void* library, const char* called)
{
    return reinterpret_cast<Function>(plat_dlsym(library, called));
}

struct Library : Joint {
    void* library = nullptr;
    const phone_library_host* p_host = nullptr;

    void SetUp() override
    {
        library = plat_dlopen(name, RTLD_NOW);
        ASSERT_NE(library, nullptr) << dlerror();
        p_host = symbol<const phone_library_host* (*)()>(library, "probe_host")();
        ASSERT_NE(p_host, nullptr);
    }
    void TearDown() override { plat_dlclose(library); }
};

TEST_F(Library, ItsThreadsAndTimersLiveByThePhonesClock)
{
    const auto woken_at = symbol<std::int64_t (*)()>(library, "probe_woken_at");
    const std::int64_t start = p_host->now();
    symbol<void (*)(std::int64_t)>(library, "probe_start")(120'000'000);
    ask("clock +119");
    EXPECT_EQ(woken_at(), 0);
    ask("clock +1");
    EXPECT_EQ(woken_at() - start, 120'000'000);
}

TEST_F(Library, ItsCallsAreWatchedByTheirNames)
{
    const auto write_call = symbol<int (*)()>(library, "probe_write");
    ask("fail write playback");
    EXPECT_EQ(write_call(), -5);
    ask("fail playback 1 short");
    ask("calls on");
    EXPECT_EQ(write_call(), 1);
    EXPECT_EQ(write_call(), 0);
    ask("fail drns_set_parameter 0x2A 1");
    EXPECT_FALSE(p_host->call("drns_set_parameter", 0x28));
    EXPECT_TRUE(p_host->call("drns_set_parameter", 0x2A));
    EXPECT_EQ(ask("calls"), "write playback = 1 (by fail)\nwrite playback = 0\ndrns_set_parameter 0x28\n"
                            "drns_set_parameter 0x2A (by fail)");
    ask("calls off");
    p_host->strange("probe 7");
    EXPECT_TRUE(ask("strange").ends_with("1 probe 7"));
    ask("strange off");
    EXPECT_EQ(ask("fail off"), "0 faults were never reached");
}

TEST_F(Library, ItFindsLogsPlacesAndWhatDevicesOffer)
{
    static const int record = 7;
    libraries_offer("probe", &record);
    EXPECT_EQ(p_host->offered("probe"), &record);
    EXPECT_EQ(p_host->offered("nothing"), nullptr);
    log_add("noise", "what it hears");
    p_host->log("noise", "loud");
    p_host->log("kmsg", "quiet");
    EXPECT_EQ(ask("noise"), "loud");
    EXPECT_EQ(ask("kmsg 1"), "quiet");
    char place[4096];
    ASSERT_TRUE(p_host->place("/system/etc/../image.bin", place, sizeof place));
    EXPECT_EQ(place, dir + "/root/system/image.bin");
    EXPECT_FALSE(p_host->place("/system/image.bin", place, 10));
}

TEST_F(Library, OneThatAnotherLibraryOpensIsIntroducedBefore)
{
    ASSERT_TRUE(libraries_introduce(name));
    const int opened = symbol<int (*)()>(library, "probe_opened")();
    // As another library would: past the phone, by the place where it lies.
    Dl_info info;
    ASSERT_NE(dladdr(dlsym(library, "probe_host"), &info), 0);
    void* const again = ::dlopen(info.dli_fname, RTLD_NOW);
    EXPECT_EQ(symbol<const phone_library_host* (*)()>(again, "probe_host")(), p_host);
    EXPECT_EQ(symbol<int (*)()>(again, "probe_opened")(), opened);
    ::dlclose(again);
    EXPECT_FALSE(libraries_introduce("libnone.so"));
    ask("strange off");
    EXPECT_TRUE(libraries_has(name));
    path_without(name);
    EXPECT_EQ(plat_dlopen(name, RTLD_NOW), nullptr);
    EXPECT_EQ(ask("strange"), "") << "a library that the phone lacks is nothing strange";
}

} // namespace
