// The revision records and the versions as a station is told of them.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "rev/rev.h"
#include "t_vers/t_vers.h"
#include "unit/line_spy.h"
#include "vers/vers.h"

// Who names nothing is told all: the records, the latest first; the versions, the program's own first.
TEST(Rev, TheBareFormsTellAllThereIs)
{
    using list = std::vector<std::string>;
    line_spy spy;
    rev_init();
    vers_init();
    t_vers_init();
    rev_rec recs[3];
    rev_add(&recs[0], "vmrk_rev", "@(#) mark");
    rev_add(&recs[1], "bld_date", "Jul 29 2013");
    rev_add(&recs[2], "bld_time", "20:00:36");
    const list all = {"rev:bld_time: 20:00:36", "rev:bld_date: Jul 29 2013", "rev:vmrk_rev: @(#) mark"};
    for (const char* line : {"rev", "rev?", "rev="}) {
        EXPECT_EQ(spy.say(line), DCP_OK);
        EXPECT_EQ(spy.lines, all) << line;
    }
    const std::string own = "vers:@(#) mark, Jul 29 2013, 20:00:36", none = "vers:No version info available";
    EXPECT_EQ(spy.say("vers"), DCP_OK);
    EXPECT_EQ(spy.lines, (list{own, none, none}));
    vers_co_attach(VERS_TYPE_OS, [](void*) { return "os"; });
    vers_co_attach(VERS_TYPE_MODEM, [](void*) { return "modem"; });
    for (const char* line : {"vers", "vers?0", "vers=0"}) {
        EXPECT_EQ(spy.say(line), DCP_OK);
        EXPECT_EQ(spy.lines, (list{own, "vers:os", "vers:modem"})) << line;
    }
    const char* const each[] = {"vers=1", "vers?2", "vers=3"};
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(spy.say(each[i]), DCP_OK);
        EXPECT_EQ(spy.lines, (list{i == 0 ? own : i == 1 ? "vers:os" : "vers:modem"}));
    }
}
