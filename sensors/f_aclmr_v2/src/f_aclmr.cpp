#include "f_aclmr_v2/f_aclmr.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>

#include "aclmr/aclmr.h"
#include "cio_v2/cio.h"
#include "dcp/dcp.h"
#include "value_list/value_list.h"

namespace {

constexpr int MOST_VALUES = 2;
constexpr std::uint16_t BACKUP = 32;

// More than this phone gives to one command, whatever the system promises.
constexpr std::size_t MOST_MEMORY = 256 << 20;

struct text_free {
    void operator()(char* p) const { std::free(p); }
};
using heap_text = std::unique_ptr<char, text_free>;

int answer_blank(int id, int status)
{
    return dcp_answer(id, "acct", " ", status);
}

int answer_vector(int id, int result, const aclmr_vector vector)
{
    if (result == 0)
        return answer_blank(id, DCP_ERROR);
    dcp_printf(id, "acct", "%f,%f,%f", static_cast<double>(vector[0]), static_cast<double>(vector[1]),
               static_cast<double>(vector[2]));
    return DCP_OK;
}

int answer_hex(int id, int value)
{
    dcp_printf(id, "acct", "0x%x", static_cast<unsigned>(value));
    return DCP_OK;
}

int acct_stop(int id, const value_list&)
{
    aclmr_stop();
    return answer_blank(id, DCP_OK);
}

int acct_start(int id, const value_list&)
{
    aclmr_start();
    return answer_blank(id, DCP_OK);
}

int acct_get(int id, const value_list&)
{
    aclmr_vector vector = {};
    const int result = aclmr_get(vector);
    return answer_vector(id, result, vector);
}

int acct_chip_id(int id, const value_list&)
{
    return answer_hex(id, aclmr_chip_id());
}

int acct_calibrate(int id, const value_list& list)
{
    aclmr_vector wanted;
    if (!value_list_floats(&list, wanted, 3))
        return answer_blank(id, DCP_SYNTAX);
    return answer_blank(id, aclmr_offset_calibration(wanted) != 0 ? DCP_OK : DCP_ERROR);
}

int acct_store_offset(int id, const value_list&)
{
    return answer_hex(id, aclmr_store_offset());
}

int acct_get_offset(int id, const value_list&)
{
    aclmr_vector vector = {};
    const int result = aclmr_get_offset(vector);
    return answer_vector(id, result, vector);
}

int acct_rom_state(int id, const value_list&)
{
    const int state = aclmr_get_rom_state();
    return state != ACLMR_NO_ROM_STATE ? answer_hex(id, state) : answer_blank(id, DCP_ERROR);
}

int acct_selftest(int id, const value_list&)
{
    aclmr_vector vector = {};
    const int result = aclmr_selftest(vector);
    return answer_vector(id, result, vector);
}

int acct_temp(int id, const value_list&)
{
    return answer_hex(id, aclmr_get_temp());
}

// Null when there isn't so much.
heap_text memory_for(int count)
{
    const std::size_t samples = count > 0 ? static_cast<std::size_t>(count) : 0;
    if (samples > MOST_MEMORY / ACLMR_SAMPLE_TEXT)
        return nullptr;
    return heap_text(static_cast<char*>(std::malloc(samples * ACLMR_SAMPLE_TEXT + 1)));
}

// The text goes out behind the prefix with no line term between; nobody else's line may come there.
void send_samples(int id, const char* text)
{
    const cio_hold hold;
    cio_s3_set(0, '\r');
    dcp_printf(id, "acct", "%s", "");
    dcp_bin_tx(id, text, std::strlen(text), nullptr, nullptr);
    cio_s3_set(',', '\r');
}

// Leaves the line term a comma, whatever the station had set.
int acct_samples(int id, const value_list& list)
{
    int values[3]; // count, mode, bandwidth
    if (!value_list_ints(&list, values, 3))
        return answer_blank(id, DCP_SYNTAX);
    const heap_text text = memory_for(values[0]);
    if (text == nullptr || aclmr_get_samples(values[0], values[1], values[2], text.get()) == 0) {
        cio_s3_set(',', '\r');
        return answer_blank(id, DCP_ERROR);
    }
    send_samples(id, text.get());
    return DCP_OK;
}

int acct_backup(int id, const value_list& list)
{
    if (list.count != 0)
        return answer_blank(id, DCP_SYNTAX);
    dcp_printf(id, "acct", "%d", aclmr_nvm_backup());
    return DCP_OK;
}

using acct_fn = int (*)(int id, const value_list& list);

// By action, from 0.
constexpr acct_fn acct_actions[] = {
    acct_stop,       acct_start,     acct_get,      acct_chip_id, acct_calibrate, acct_store_offset,
    acct_get_offset, acct_rom_state, acct_selftest, acct_temp,    acct_samples,
};

int do_aclmr_acct(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "acct", "Tests the accelerometer", DCP_OK);
    if (argc < 1 || argc > MOST_VALUES)
        return answer_blank(id, DCP_SYNTAX);
    const auto n = static_cast<std::uint16_t>(argv[0]);
    value_list list;
    value_list_cut(&list, argc == MOST_VALUES ? dcp_text(argv[1]) : nullptr);
    if (n == BACKUP)
        return acct_backup(id, list);
    if (n >= std::size(acct_actions))
        return answer_blank(id, DCP_SYNTAX);
    return acct_actions[n](id, list);
}

// clang-format off
constexpr dcp_cmd f_aclmr_cmd_tab[] = {
    { "acct", "[(0-9),(float),(float),(float)],[(10),(1-1000),(2->),(1-8)]", "%v,%t", "acct(act)", do_aclmr_acct,
      DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_aclmr_link;

} // namespace

void f_aclmr_init()
{
    dcp_cmd_add(f_aclmr_cmd_tab, &f_aclmr_link);
}
