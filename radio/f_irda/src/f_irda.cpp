#include "f_irda/f_irda.h"

#include <cstdint>

#include "cio_v2/cio.h"
#include "dcp/dcp.h"
#include "irda/irda.h"

namespace {

constexpr std::uint32_t FORMAT_DEFAULT = 1;
constexpr std::uint32_t LOOP_TIME_DEFAULT_MS = 2000;

// Whom the next report is for.
int report_id;
const char* report_name = "irrx";

void report_to(int id, const char* name)
{
    report_id = id;
    report_name = name;
}

void report_received(const irda_report& report)
{
    const cio_report_lines lines;
    dcp_printf(report_id, report_name, "0x%X,%s,OK", report.count, report.text);
}

int status_of(int result)
{
    return result != 0 ? DCP_OK : DCP_ERROR;
}

int do_irda_irtx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "irtx", "IrDA Static Transmit", DCP_OK);
    const std::uint32_t mode = argc > 0 ? dcp_uint(argv[0]) : 0;
    if (argc > 1 || mode > IRDA_TX_ON)
        return DCP_SYNTAX;
    return dcp_answer(id, "irtx", "", status_of(mode == 0 ? irda_stop() : irda_tx(mode)));
}

int do_irda_irpa(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "irpa", "IrDA Parameter", DCP_OK);
    irda_para para{};
    para.baud = argc > 0 ? dcp_uint(argv[0]) : IRDA_BAUD_LAST;
    para.format = argc > 1 ? dcp_uint(argv[1]) : FORMAT_DEFAULT;
    para.mode = argc > 0 ? 1 : 0;
    if (argc > 2 || para.baud > IRDA_BAUD_LAST || para.format > IRDA_FORMAT_LAST)
        return DCP_SYNTAX;
    const bool done = irda_start() != 0 && irda_set_para(para) != 0;
    return dcp_answer(id, "irpa", "", status_of(done));
}

int do_irda_irrx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "irrx", "IrDA Static Receive", DCP_OK);
    if (argc > 1)
        return DCP_SYNTAX;
    report_to(id, "irrx");
    return dcp_answer(id, "irrx", "", status_of(irda_rx(argc > 0 && dcp_uint(argv[0]) != 0)));
}

int do_irda_ilop(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "ilop", "IrDA Loop back", DCP_OK);
    const std::uint32_t mode = argc > 0 ? dcp_uint(argv[0]) : IRDA_LOOP_ON;
    const std::uint32_t time_ms = argc > 1 ? dcp_uint(argv[1]) : LOOP_TIME_DEFAULT_MS;
    if (argc > 2 || mode > IRDA_LOOP_ON)
        return DCP_SYNTAX;
    report_to(id, "ilop");
    if (irda_loop(mode, time_ms) == 0)
        return DCP_ERROR;
    return mode == IRDA_LOOP_ANSWER ? dcp_answer(id, "ilop", "", DCP_OK) : DCP_LATER;
}

// clang-format off
constexpr dcp_cmd f_irda_cmd_tab[] = {
    { "irtx", "(0x0-0x2)",              "%v",    "", do_irda_irtx, DCP_GRP_PRODUCTION },
    { "irpa", "(0x0-0x4),(0x0-0x5)",    "%v,%v", "", do_irda_irpa, DCP_GRP_PRODUCTION },
    { "irrx", "(0x0-0x1)",              "%v",    "", do_irda_irrx, DCP_GRP_PRODUCTION },
    { "ilop", "(0x0-0x1)[,(0-10000)]",  "%v,%d", "", do_irda_ilop, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_irda_cmd_link;

} // namespace

void f_irda_init()
{
    irda_rx_evt_attach(report_received);
    dcp_cmd_add(f_irda_cmd_tab, &f_irda_cmd_link);
}
