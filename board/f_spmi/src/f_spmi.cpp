#include "f_spmi/f_spmi.h"

#include <cstdint>
#include <cstring>
#include <memory>

#include "dcp/dcp.h"
#include "scf/scf.h"
#include "spmi/spmi.h"

namespace {

constexpr std::size_t TEXT_ROOM = 65472;
constexpr int MOST_WRITE = 65472;

// What both commands need before they can begin: DCP_OK with all three values, otherwise the status to end
// with.
int check_values(int id, const char* name, int argc)
{
    if (argc >= 3)
        return DCP_OK;
    return argc > 0 ? dcp_answer(id, name, "", DCP_SYNTAX) : DCP_SYNTAX;
}

int answer_help(int id, const char* name)
{
    return dcp_answer(id, name, " System Power Management Interface", DCP_OK);
}

// The bytes pass a line of response by far: they go to the port in pieces, the terminator with its NUL.
void answer_bytes(int id, const std::uint8_t* p_buf, std::size_t len)
{
    const auto p_text = std::make_unique<char[]>(TEXT_ROOM);
    const int chars = scf_bin_to_hexstr(p_text.get(), TEXT_ROOM, p_buf, static_cast<int>(len), 1, ',');
    dcp_bin_tx(id, "SPMIR:", 6, nullptr, nullptr);
    dcp_bin_tx(id, p_text.get(), static_cast<std::size_t>(chars), nullptr, nullptr);
    dcp_bin_tx(id, ",", 2, nullptr, nullptr);
}

int do_spmir(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return answer_help(id, "spmir");
    const int status = check_values(id, "spmir", argc);
    if (status != DCP_OK)
        return status;
    char* const text = dcp_text(argv[2]);
    scf_clean(text, " ");
    const std::uint32_t addr = dcp_uint(argv[1]);
    std::int32_t count = 0;
    scf_str_to_int32(&count, 1, text, 10);
    if (count < 1 || count > static_cast<std::int32_t>(SPMI_MOST_READ - addr % SPMI_ROW))
        return dcp_answer(id, "spmir", "", DCP_SYNTAX);
    const auto len = static_cast<std::size_t>(count);
    std::uint8_t bytes[SPMI_MOST_READ];
    if (spmi_read(dcp_uint(argv[0]), addr, bytes, len) == 0)
        return dcp_answer(id, "spmir", "", DCP_ERROR);
    answer_bytes(id, bytes, len);
    return DCP_OK;
}

int do_spmiw(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return answer_help(id, "spmiw");
    const int status = check_values(id, "spmiw", argc);
    if (status != DCP_OK)
        return status;
    char* const text = dcp_text(argv[2]);
    scf_clean(text, " ");
    const auto p_bytes = std::make_unique<std::uint8_t[]>(MOST_WRITE);
    const int count = scf_str_to_uint8(p_bytes.get(), MOST_WRITE, text, 10);
    const int written =
        spmi_write(dcp_uint(argv[0]), dcp_uint(argv[1]), p_bytes.get(), static_cast<std::size_t>(count));
    return dcp_answer(id, "spmiw", "", written != 0 ? DCP_OK : DCP_ERROR);
}

// clang-format off
constexpr dcp_cmd f_spmi_cmd_tab[] = {
    { "spmir", "(0),(0-0xFFFFF),(B)",             "%v,%v,%t", "SPMIR(bus,reg,bytes)",            do_spmir, DCP_GRP_STANDARD },
    { "spmiw", "(0),(0-0xFFFFF),(B),[,(B),...]",  "%v,%v,%t", "SPMIW(bus,reg,data1[,data2,...])", do_spmiw, DCP_GRP_STANDARD },
    {},
};
// clang-format on

dcp_cmd_link f_spmi_link;

} // namespace

void f_spmi_init()
{
    dcp_cmd_add(f_spmi_cmd_tab, &f_spmi_link);
}
