#include "mhl_sii8334/mhl_sii8334.h"

#include <string>

#include "attr_num/attr_num.h"
#include "bridge.h"
#include "cfg/cfg.h"
#include "mhl/mhl.h"
#include "verdict.h"

namespace {

// The folder of the kernel driver's tests, null for the chip itself.
const char* debugfs()
{
    return cfg_get_str("sii8334", "use_debugfs", nullptr);
}

bool read_number(const char* folder, const char* name, int* p_value)
{
    return attr_num_last((std::string(folder) + name).c_str(), p_value);
}

int run_bist(int* p_result)
{
    const char* const folder = debugfs();
    if (folder == nullptr)
        return mhl_sii8334_bridge_bist(p_result);
    return read_number(folder, "selftest", p_result) ? 1 : 0;
}

int run_hpd_test(int* p_result)
{
    const char* const folder = debugfs();
    if (folder == nullptr)
        return mhl_sii8334_bridge_hpd(p_result);
    int plugged;
    if (!read_number(folder, "hpd", &plugged) || plugged == 0)
        return 0;
    *p_result = mhl_sii8334_hotplug();
    return 1;
}

int run_ddc_test(int* p_result)
{
    const char* const folder = debugfs();
    if (folder == nullptr)
        return mhl_sii8334_bridge_ddc(p_result);
    int number;
    *p_result = read_number(folder, "ddctest", &number) ? 1 : 0;
    return 1;
}

constexpr mhl_co mhl_sii8334_co = {
    .switch_mode = mhl_sii8334_switch_mode,
    .read_result = mhl_sii8334_read_result,
    .run_bist = run_bist,
    .run_hpd_test = run_hpd_test,
    .run_ddc_test = run_ddc_test,
};

} // namespace

void mhl_sii8334_init()
{
    mhl_co_attach(&mhl_sii8334_co);
}
