#include "f_gyro_v2/f_gyro.h"

#include <cfloat>
#include <iterator>

#include "dcp/dcp.h"
#include "gyro/gyro.h"
#include "value_list/value_list.h"

namespace {

constexpr int MOST_VALUES = 2;
constexpr std::uint32_t BACKUP = 32;

int answer_blank(int id, int status)
{
    return dcp_answer(id, "gspt", " ", status);
}

int answer_result(int id, int result)
{
    return answer_blank(id, result != 0 ? DCP_OK : DCP_ERROR);
}

int answer_rate(int id, int result, const gyro_rate rate)
{
    if (result == 0)
        return answer_blank(id, DCP_ERROR);
    dcp_printf(id, "gspt", "%f,%f,%f", rate[0], rate[1], rate[2]);
    return DCP_OK;
}

int answer_degrees(int id, float degrees)
{
    dcp_printf(id, "gspt", "%.3f", static_cast<double>(degrees));
    return DCP_OK;
}

int answer_hex(int id, int value)
{
    dcp_printf(id, "gspt", "0x%x", static_cast<unsigned>(value));
    return DCP_OK;
}

// The first of one to three values; 0 when there are none, or more.
float first_value(const value_list& list)
{
    constexpr int MOST = 3;
    float first;
    return list.count <= MOST && value_list_float(&list, 0, &first) ? first : 0;
}

int gspt_stop(int id, const value_list&)
{
    gyro_stop();
    return answer_blank(id, DCP_OK);
}

int gspt_start(int id, const value_list&)
{
    gyro_start();
    return answer_blank(id, DCP_OK);
}

int gspt_get(int id, const value_list& list)
{
    gyro_rate rate = {};
    if (list.count != 0 && first_value(list) != 1)
        return answer_blank(id, DCP_SYNTAX);
    const int result = list.count == 0 ? gyro_get(rate) : gyro_get_calibrated(rate);
    return answer_rate(id, result, rate);
}

int gspt_chip_id(int id, const value_list&)
{
    return answer_hex(id, gyro_chip_id());
}

int gspt_calibrate(int id, const value_list& list)
{
    gyro_offset wanted;
    if (!value_list_floats(&list, wanted, 3))
        return answer_blank(id, DCP_SYNTAX);
    return answer_result(id, gyro_offset_calibration(wanted));
}

int gspt_self_test(int id, const value_list& list)
{
    int failed = 0;
    if (list.count != 0 || gyro_self_test(&failed) == 0)
        return answer_blank(id, DCP_ERROR);
    return answer_hex(id, failed);
}

int gspt_get_offset(int id, const value_list&)
{
    gyro_offset offset = {};
    if (gyro_get_offset(offset) == 0)
        return answer_blank(id, DCP_ERROR);
    const gyro_rate shown = {offset[0], offset[1], offset[2]};
    return answer_rate(id, 1, shown);
}

// A text reads or writes the temperature that is kept.
int gspt_temp(int id, const value_list& list)
{
    if (list.count == 0)
        return answer_degrees(id, gyro_get_temp());
    float degrees = first_value(list);
    const bool reads = degrees == FLT_MAX;
    if (gyro_rw_temp_ta(&degrees) == 0)
        return answer_blank(id, DCP_ERROR);
    return reads ? answer_degrees(id, degrees) : answer_blank(id, DCP_OK);
}

int gspt_init_ta(int id, const value_list&)
{
    return answer_result(id, gyro_init_ta());
}

int gspt_backup(int id, const value_list&)
{
    int result = 0;
    if (gyro_backup(&result) == 0)
        return answer_blank(id, DCP_ERROR);
    return answer_hex(id, result);
}

using gspt_fn = int (*)(int id, const value_list& list);

// By action, from 0.
constexpr gspt_fn gspt_actions[] = {
    gspt_stop,      gspt_start,      gspt_get,  gspt_chip_id, gspt_calibrate,
    gspt_self_test, gspt_get_offset, gspt_temp, gspt_init_ta,
};

int do_gyro_gspt(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "gspt", "Tests the gyro", DCP_OK);
    if (argc < 1 || argc > MOST_VALUES)
        return answer_blank(id, DCP_SYNTAX);
    const std::uint32_t n = dcp_uint(argv[0]);
    value_list list;
    value_list_cut(&list, argc == MOST_VALUES ? dcp_text(argv[1]) : nullptr);
    if (n == BACKUP)
        return gspt_backup(id, list);
    if (n >= std::size(gspt_actions))
        return answer_blank(id, DCP_SYNTAX);
    return gspt_actions[n](id, list);
}

// clang-format off
constexpr dcp_cmd f_gyro_cmd_tab[] = {
    { "gspt", "(0-8,0x20),(float),(float),(float)", "%v,%t", "gspt(act)", do_gyro_gspt, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_gyro_link;

} // namespace

void f_gyro_init()
{
    dcp_cmd_add(f_gyro_cmd_tab, &f_gyro_link);
}
