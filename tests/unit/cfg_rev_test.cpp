#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "cfg/cfg.h"
#include "dcp/dcp.h"
#include "exact_text.h"
#include "f_qat/f_qat.h"
#include "hwp/hwp.h"
#include "rev/rev.h"
#include "t_vers/t_vers.h"
#include "vers/vers.h"

namespace {

std::vector<std::string> all_settings()
{
    std::vector<std::string> all;
    for (const cfg_item* p = cfg_get_first_item(); p != nullptr;
         p = reinterpret_cast<const cfg_item*>(slnk_next(&p->lnk)))
        all.push_back(std::string(p->module) + "/" + p->key);
    return all;
}

std::string shown;

struct Versions : testing::Test {
    dcp_client client = {0, [](dcp_client*, int, int, const char* text) { shown += std::string(text) + "|"; },
                         [](dcp_client*, void*, std::size_t, dcp_bin_cb, void*) {},
                         [](dcp_client*, const void*, std::size_t, dcp_bin_cb, void*) {}, "test"};
    rev_rec vmrk{}, date{}, time{};

    Versions()
    {
        dcp_init();
        client.id = dcp_clnt_add(&client);
        rev_init();
        rev_add(&vmrk, "vmrk_rev", "@(#) v1");
        rev_add(&date, "bld_date", "Jul 29 2013");
        rev_add(&time, "bld_time", "20:00:36");
        vers_init();
        t_vers_init();
        f_qat_init();
    }
    ~Versions() override { dcp_init(); }

    std::string answer(const char* line, int status)
    {
        shown.clear();
        EXPECT_EQ(dcp_parse(client.id, exact_text(line).get()), status) << line;
        return shown;
    }
};

} // namespace

TEST(Cfg, SettingsStandInOrderAndKeepTheirLastValue)
{
    cfg_init();
    EXPECT_EQ(cfg_get_first_item(), nullptr);
    cfg_set_int("mpvc", "hs_det_value", 1);
    cfg_set_str("luigi", "start_key", "one");
    cfg_set_str("audio", "zz", "z");
    cfg_set_int("luigi", "canvas_padding", 8);
    cfg_set("luigi", "", CFG_TYPE_WORD, UINTPTR_MAX);
    cfg_set_int("luigi2", "a", 0);
    EXPECT_EQ(all_settings(), (std::vector<std::string>{"audio/zz", "luigi/", "luigi/canvas_padding",
                                                        "luigi/start_key", "luigi2/a", "mpvc/hs_det_value"}));
    EXPECT_EQ(cfg_find("luigi", "")->data, UINTPTR_MAX);
    EXPECT_EQ(cfg_find("luigi", "stop_key"), nullptr);
    EXPECT_EQ(cfg_find("mpvd", "hs_det_value"), nullptr);

    std::string text = "two";
    cfg_set_str("luigi", "start_key", text.c_str());
    text = "gone";
    EXPECT_STREQ(cfg_get_str("luigi", "start_key", "default"), "two");
    cfg_set_str("luigi", "start_key", cfg_get_str("luigi", "start_key", "")); // its own text
    EXPECT_STREQ(cfg_get_str("luigi", "start_key", "default"), "two");
    EXPECT_STREQ(cfg_get_str("luigi", "label_padding", "default"), "default");
    cfg_set_int("luigi", "canvas_padding", 9);
    EXPECT_EQ(cfg_get_int("luigi", "canvas_padding", 3), 9u);
    EXPECT_EQ(cfg_get_int("luigi", "label_padding", 3), 3u);
    EXPECT_EQ(all_settings().size(), 6u);

    EXPECT_EXIT(cfg_set("a", "b", CFG_TYPE_LAST, 0), testing::ExitedWithCode(1), "^$");
    EXPECT_EXIT(cfg_set_int("luigi", "start_key", 1), testing::ExitedWithCode(1), "^$");
    cfg_init();
    EXPECT_EQ(cfg_get_first_item(), nullptr);
}

TEST_F(Versions, RevListsTheLatestFirst)
{
    EXPECT_EQ(answer("rev", DCP_OK),
              "rev:bld_time: 20:00:36|rev:bld_date: Jul 29 2013|rev:vmrk_rev: @(#) v1|");
    EXPECT_EQ(answer("rev?\"bld_date\"", DCP_OK), "rev:bld_date: Jul 29 2013|");
    EXPECT_EXIT(rev_add(&vmrk, "id", nullptr), testing::ExitedWithCode(1), "^$");
    EXPECT_EXIT(rev_get(nullptr), testing::ExitedWithCode(1), "^$");
}

TEST_F(Versions, VersAsksItsDrivers)
{
    vers_co_attach(VERS_TYPE_OS, [](void*) { return "os"; });
    EXPECT_EQ(answer("vers", DCP_OK),
              "vers:@(#) v1, Jul 29 2013, 20:00:36|vers:os|vers:No version info available|");
    EXPECT_EQ(answer("vers=1", DCP_OK), "vers:@(#) v1, Jul 29 2013, 20:00:36|");
    EXPECT_EQ(answer("vers?3", DCP_OK), "vers:No version info available|");
    EXPECT_EXIT(vers_get(VERS_TYPE_LAST, nullptr), testing::ExitedWithCode(1), "^$");
}

TEST_F(Versions, QatvLivesWithWhatIsMissing)
{
    EXPECT_EQ(answer("qatv", DCP_OK), "qatv:, v1|");
    rev_rec short_one{};
    rev_add(&short_one, "vmrk_rev", "v");
    EXPECT_EQ(answer("qatv", DCP_OK), "qatv:, |");
}

TEST(Hwp, CurrentAndFormer)
{
    hwp_init();
    hwp old{9, 9, 9}, now;
    hwp_set(&old, 3, 2, 5);
    EXPECT_EQ(old.rev, 1);
    EXPECT_EQ(old.family + old.model, 0u);
    hwp_get(&now);
    EXPECT_TRUE(now.family == 3 && now.model == 2 && now.rev == 5);
    EXPECT_STREQ(hwp_long_nm_get(0), "Brenk");
    EXPECT_STREQ(hwp_long_nm_get(7), "");
}
