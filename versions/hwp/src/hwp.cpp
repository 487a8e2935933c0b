#include "hwp/hwp.h"

#include <iterator>

namespace {

constexpr hwp hwp_def = {0, 0, 1};

// By family. The others have no board here.
constexpr const char* hwp_long_nm[] = {"Brenk", "", "", "", "", "", ""};

hwp hwp_curr = hwp_def;

} // namespace

void hwp_init()
{
    hwp_curr = hwp_def;
}

void hwp_set(hwp* p_old, std::uint32_t family, std::uint32_t model, std::uint8_t rev)
{
    *p_old = hwp_curr;
    hwp_curr = {family, model, rev};
}

void hwp_get(hwp* p_out)
{
    *p_out = hwp_curr;
}

const char* hwp_long_nm_get(std::uint32_t family)
{
    return family < std::size(hwp_long_nm) ? hwp_long_nm[family] : "";
}
