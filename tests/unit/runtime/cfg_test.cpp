#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "cfg/cfg.h"

namespace {

std::vector<std::string> all_settings()
{
    std::vector<std::string> all;
    for (const cfg_item* p = cfg_get_first_item(); p != nullptr;
         p = reinterpret_cast<const cfg_item*>(slnk_next(&p->lnk)))
        all.push_back(std::string(p->module) + "/" + p->key);
    return all;
}

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
