#include "f_ftm/f_ftm.h"

#include <cstdint>

#include "dcp/dcp.h"
#include "ftm_linux/ftm_linux.h"
#include "scf/scf.h"

namespace {

constexpr int DECIMAL = 10;

// A line of response has at most this many characters, name and colon included: 6552 bytes and the first
// digit of the next.
constexpr int MAX_LINE = 32768;
constexpr int NAME_SIZE = sizeof "ftmc:" - 1;

constexpr std::uint32_t NV_MAX = 4;
constexpr std::uint8_t nv_request[] = {0x4B, 0x0B, 0x00, 0x80, 0x06, 0x00};
constexpr std::uint32_t NV_RESPONSE_SIZE = 16;
constexpr int NV_AT_COMMAND = 4;
constexpr int NV_AT_STATE = 10;
constexpr int NV_DONE = 1;

std::uint8_t ftm_buf[FTM_MAX_RESP_LEN]; // request and response
char ftm_text[MAX_LINE];

void print_response(int id, std::uint32_t size)
{
    ftm_text[0] = '\0';
    if (size > 0)
        scf_bin_to_hexstr(ftm_text, sizeof ftm_text, ftm_buf, static_cast<int>(size), 1, ',');
    ftm_text[MAX_LINE - NAME_SIZE] = '\0';
    dcp_print_long(id, "ftmc", ftm_text);
}

int send_text(int id, char* text)
{
    scf_clean(text, " ");
    const int count = scf_str_to_uint8(ftm_buf, sizeof ftm_buf, text, DECIMAL);
    std::uint32_t size = 0;
    ftm_filter_enable(true);
    const int result = ftm_cmd(ftm_buf, static_cast<std::uint32_t>(count), ftm_buf, sizeof ftm_buf, &size);
    ftm_filter_enable(false);
    print_response(id, size);
    return result == 1 ? DCP_OK : DCP_ERROR;
}

int do_ftm_ftmc(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET)
        return dcp_answer(id, "ftmc", "Factory Test Mode Channel", DCP_OK);
    if (argc != 1)
        return DCP_SYNTAX;
    char* text = dcp_text(argv[0]);
    if (text[0] != 't')
        return send_text(id, text);
    ftm_stop();
    return DCP_OK;
}

bool ftm_loadnv(std::uint32_t value)
{
    std::uint8_t packet[sizeof nv_request];
    for (std::size_t i = 0; i < sizeof packet; i++)
        packet[i] = nv_request[i];
    packet[NV_AT_COMMAND] = static_cast<std::uint8_t>(packet[NV_AT_COMMAND] + value);
    std::uint32_t size = 0;
    if (ftm_cmd(packet, sizeof packet, ftm_buf, sizeof ftm_buf, &size) != 1)
        return false;
    return size != NV_RESPONSE_SIZE || (ftm_buf[NV_AT_STATE] | ftm_buf[NV_AT_STATE + 1] << 8) == NV_DONE;
}

int load_all(int argc, const dcp_word* argv)
{
    for (int i = 0; i < argc; i++) {
        const std::uint32_t value = dcp_uint(argv[i]);
        if (value > NV_MAX)
            return DCP_SYNTAX;
        if (!ftm_loadnv(value))
            return DCP_ERROR;
    }
    return DCP_OK;
}

int do_ftm_loadnv(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "loadnv", "Load NV parameters", DCP_OK);
    if (argc < 1 || argc > 3)
        return DCP_SYNTAX;
    const int status = load_all(argc, argv);
    return dcp_answer(id, "loadnv", "", status);
}

// clang-format off
constexpr dcp_cmd ftm_cmd_tab[] = {
    { "ftmc",   "(0-255)[,(0-255)...]", "%t",       "ftmc(data)",          do_ftm_ftmc,   DCP_GRP_PRODUCTION },
    { "loadnv", "(0-4),(1-4),(1-4)",    "%v,%v,%v", "loadnv(val,val,val)", do_ftm_loadnv, DCP_GRP_STANDARD },
    {},
};
// clang-format on

dcp_cmd_link ftm_cmd_link;

} // namespace

void f_ftm_init()
{
    dcp_cmd_add(ftm_cmd_tab, &ftm_cmd_link);
}
