#include "t_vreg/t_vreg.h"

#include "dcp/dcp.h"
#include "vreg/vreg.h"

namespace {

void list_regulators(int id, const char* name)
{
    char regulator[64];
    for (int i = 0; vreg_get_name(i, regulator, sizeof regulator) == 0; i++)
        dcp_printf(id, name, "%d - %s", i, regulator);
}

// The name in the line, with its number of values.
bool has_name(int argc, const dcp_word* argv, int wanted)
{
    return argc == wanted && dcp_text(argv[0]) != nullptr;
}

int do_vregctl(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        list_regulators(id, "vregctl");
        return dcp_answer(id, "vregctl", "Enable/disable voltage regulator", DCP_OK);
    }
    int result = 1;
    if (has_name(argc, argv, 2))
        result = dcp_uint(argv[1]) != 0 ? vreg_enable(dcp_text(argv[0])) : vreg_disable(dcp_text(argv[0]));
    return dcp_answer(id, "vregctl", "", result == 0 ? DCP_OK : DCP_ERROR);
}

int vreglvl_read(int id, int argc, const dcp_word* argv)
{
    if (!has_name(argc, argv, 1))
        return dcp_answer(id, "vreglvl", "", DCP_SYNTAX);
    int level;
    int min;
    int max;
    if (vreg_get_level(dcp_text(argv[0]), &level, &min, &max) != 0)
        return dcp_answer(id, "vreglvl", "", DCP_ERROR);
    dcp_printf(id, "vreglvl", "%d,%d,%d", level, min, max);
    return DCP_OK;
}

int do_vreglvl(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        list_regulators(id, "vreglvl");
        dcp_printf(id, "vreglvl", "%s", "Set/get voltage regulator voltage");
        return dcp_answer(id, "vreglvl", "Read response: <lvl>, <min>, <max>", DCP_OK);
    }
    if (action == DCP_ACTION_READ)
        return vreglvl_read(id, argc, argv);
    if (!has_name(argc, argv, 2))
        return dcp_answer(id, "vreglvl", "", DCP_SYNTAX);
    const int result = vreg_set_level(dcp_text(argv[0]), dcp_int(argv[1]));
    return dcp_answer(id, "vreglvl", "", result == 0 ? DCP_OK : DCP_ERROR);
}

int do_vregmode(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        list_regulators(id, "vregmode");
        return dcp_answer(id, "vregmode", "Set voltage regulator mode (1=fast, 2=normal, 4=idle, 8=standby)",
                          DCP_OK);
    }
    if (!has_name(argc, argv, 2))
        return dcp_answer(id, "vregmode", "", DCP_SYNTAX);
    const int result = vreg_set_mode(dcp_text(argv[0]), dcp_int(argv[1]));
    return dcp_answer(id, "vregmode", "", result == 0 ? DCP_OK : DCP_ERROR);
}

// clang-format off
constexpr dcp_cmd t_vreg_cmd_tab[] = {
    { "vregctl",  "\"regulator\",(0-1)", "%s,%v", "vregctl(regulator,on/off)", do_vregctl,  DCP_GRP_STANDARD },
    { "vreglvl",  "\"regulator\",W",     "%s,%v", "vreglvl(regulator,level)",  do_vreglvl,  DCP_GRP_STANDARD },
    { "vregmode", "\"regulator\",W",     "%s,%v", "vregmode(regulator,mode)",  do_vregmode, DCP_GRP_STANDARD },
    {},
};
// clang-format on

dcp_cmd_link t_vreg_link;

} // namespace

void t_vreg_init()
{
    dcp_cmd_add(t_vreg_cmd_tab, &t_vreg_link);
}
