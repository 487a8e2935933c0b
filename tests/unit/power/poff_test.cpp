// Powering off after times that no timer can wait in one go.
#include <gtest/gtest.h>
#include <string>

#include "cfg/cfg.h"
#include "f_poff/f_poff.h"
#include "tmr/tmr.h"
#include "unit/line_spy.h"
#include "unit/plat_fake.h"

namespace {

std::string lines; // for the shell

} // namespace

TEST(Poff, WaitsTwoHoursInRoundsAndTheNewestTimeCounts)
{
    plat_fake_reset();
    plat_fake_co.system = [](const char* line) {
        lines += std::string(line) + ";";
        return 0;
    };
    line_spy spy;
    tmr_init();
    cfg_init();
    cfg_set_int("f_poff", "param1_delay", 1);
    f_poff_init();

    EXPECT_EQ(spy.say("poff=7200000"), DCP_OK);
    plat_fake_advance_us(7'199'999'000);
    EXPECT_EQ(lines, "");
    EXPECT_EQ(spy.say("poff=4294967295"), DCP_OK); // 49 days
    plat_fake_advance_us(4'294'967'294'000);
    EXPECT_EQ(lines, "");
    plat_fake_advance_us(1'000);
    EXPECT_EQ(lines, "sync;reboot -p;");
}
