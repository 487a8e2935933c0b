// Powering off after times that no timer can wait in one go.
#include <gtest/gtest.h>
#include <string>

#include "cfg/cfg.h"
#include "dcp/dcp.h"
#include "f_poff/f_poff.h"
#include "tmr/tmr.h"
#include "unit/plat_fake.h"

namespace {

std::string lines; // for the shell

int note_line(const char* line)
{
    lines += std::string(line) + ";";
    return 0;
}

void show(dcp_client*, int, int, const char*) {}
void move_bytes(dcp_client*, void*, std::size_t, dcp_bin_cb, void*) {}
void move_const_bytes(dcp_client*, const void*, std::size_t, dcp_bin_cb, void*) {}

dcp_client client = {-1, show, move_bytes, move_const_bytes, "test"};

int send(std::string line)
{
    return dcp_parse(client.id, line.data());
}

} // namespace

TEST(Poff, WaitsTwoHoursInRoundsAndTheNewestTimeCounts)
{
    plat_fake_reset();
    plat_fake_co.system = note_line;
    dcp_init();
    client.id = dcp_clnt_add(&client);
    tmr_init();
    cfg_init();
    cfg_set_int("f_poff", "param1_delay", 1);
    f_poff_init();

    EXPECT_EQ(send("poff=7200000"), DCP_OK);
    plat_fake_advance_us(7'199'999'000);
    EXPECT_EQ(lines, "");
    EXPECT_EQ(send("poff=4294967295"), DCP_OK); // 49 days
    plat_fake_advance_us(4'294'967'294'000);
    EXPECT_EQ(lines, "");
    plat_fake_advance_us(1'000);
    EXPECT_EQ(lines, "sync;reboot -p;");
    dcp_init();
}
