#include "joint/joint.h"

#include <cstdlib>
#include <filesystem>

#include "core/control.h"
#include "core/home.h"
#include "core/life.h"
#include "core/table.h"
#include "plat/plat.h"

std::string Joint::dir;

void Joint::SetUpTestSuite()
{
    if (!dir.empty())
        return; // another suite of the process has started it
    char pattern[] = "/tmp/hvt-phone-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    dir = pattern;
    static char* argv[] = {nullptr};
    ASSERT_EQ(phone::life_on({.dir = dir, .outlives_folder = true}, argv), "");
    ASSERT_EQ(phone::home_lay_seeds(), "");
    plat_attach(&phone::phone_co);
    ask("clock hold");
}

void Joint::TearDownTestSuite()
{
    // The phone's threads live on, and may still write a log.
    std::error_code busy;
    for (int turn = 0; turn < 10 && std::filesystem::exists(dir); turn++)
        std::filesystem::remove_all(dir, busy);
}

std::string Joint::ask(std::string_view line)
{
    std::string answer = phone::control_request(line);
    EXPECT_TRUE(answer == "ok\n" || answer.ends_with("\nok\n")) << line << ": " << answer;
    answer.erase(answer.size() - std::min<std::size_t>(answer.size(), 4));
    return answer;
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const int status = RUN_ALL_TESTS();
    // The phone's threads live on; what they use must not be torn down.
    std::_Exit(status);
}
