#include "board/regulators.h"

#include <iterator>
#include <string>

#include "core/files.h"
#include "core/home.h"

namespace phone {

namespace {

struct regulator {
    const char* name;
    int enabled;
    int level_uv;
    int min_uv;
    int max_uv;
    int mode; // 1 fast, 2 normal, 4 idle, 8 standby
};

// clang-format off
constexpr regulator regulators[] = {
    // name         on  level    min      max      mode
    { "krait0",     1,  945000,  500000, 1100000,  2 },
    { "krait1",     1,  940000,  500000, 1100000,  2 },
    { "krait2",     1,  935000,  500000, 1100000,  2 },
    { "krait3",     1,  930000,  500000, 1100000,  2 },
    { "8841_s1",    1,  815000,  675000, 1050000,  2 },
    { "8841_s2",    1,  900000,  500000, 1050000,  2 },
    { "8941_s1",    1, 1300000, 1300000, 1300000,  1 },
    { "8941_s2",    1, 2150000, 2150000, 2150000,  2 },
    { "8941_s3",    1, 1800000, 1800000, 1800000,  2 },
    { "8941_l6",    1, 1800000, 1800000, 1800000,  2 },
    { "8941_l13",   1, 2950000, 1800000, 2950000,  2 },
    { "8941_l17",   0, 2850000, 2700000, 2850000,  4 },
    { "8941_l22",   0, 3000000, 2500000, 3300000,  4 },
    { "8941_lvs1",  0, 1800000, 1800000, 1800000,  8 },
};
// clang-format on

void seed_number(const std::string& path, int value)
{
    home_seed(path, std::to_string(value) + "\n");
}

} // namespace

// Whoever lists the regulators finds their end where one is missing.
void regulators_attach()
{
    path_optional("/sys/class/regulator/regulator." + std::to_string(std::size(regulators)) + "/name");
}

void regulators_seed()
{
    int index = 0;
    for (const regulator& r : regulators) {
        const std::string name = r.name;
        const std::string dir = "/sys/kernel/debug/regulator/" + name + "/";
        seed_number(dir + "enable", r.enabled);
        seed_number(dir + "voltage", r.level_uv);
        seed_number(dir + "mode", r.mode);
        seed_number(dir + name + "/min_uV", r.min_uv);
        seed_number(dir + name + "/max_uV", r.max_uv);
        home_seed("/sys/class/regulator/regulator." + std::to_string(index++) + "/name", name + "\n");
    }
}

} // namespace phone
