// The line parser on whatever a port may bring: the bytes are cleaned and parsed as the console does it, in a
// block of exactly their size, against rows with every directive of a format.
#include <memory>

#include "dcp/dcp.h"
#include "fuzz_input.h"
#include "nav/nav.h"
#include "scf/scf.h"

namespace {

const char* line_start;
const char* line_end; // one behind the NUL

bool in_line(const char* text)
{
    return text >= line_start && text < line_end;
}

// Every text that a handler is given lies in the line and ends in it; every address is one of a value.
int do_texts(int, int action, int argc, const dcp_word* argv)
{
    require(action >= DCP_ACTION_SET && action <= DCP_ACTION_TEST && argc >= 0 && argc <= DCP_MAX_VALUES);
    for (int i = 0; i < argc; i++) {
        const char* text = dcp_text(argv[i]);
        require(!text || (in_line(text) && in_line(text + std::strlen(text))));
    }
    return DCP_OK;
}

// A number is zero-extended, and an address can be read.
int do_numbers(int, int, int argc, const dcp_word* argv)
{
    require(argc >= 0 && argc <= DCP_MAX_VALUES);
    std::uint32_t sum = 0;
    for (int i = 0; i < argc; i++)
        sum += argv[i] > UINT32_MAX ? *reinterpret_cast<const std::uint32_t*>(argv[i]) : dcp_uint(argv[i]);
    return sum == 0 ? DCP_OK : DCP_ERROR;
}

// clang-format off
constexpr dcp_cmd fuzz_tab[] = {
    { "v",      "", "%v,%v",          "", do_numbers, 4 },
    { "p",      "", "%p,%p",          "", do_numbers, 4 },
    { "d",      "", "%d",             "", do_numbers, 4 },
    { "x",      "", "%x,%x,%x",       "", do_numbers, 4 },
    { "f",      "", "%f,%f",          "", do_numbers, 4 },
    { "c",      "", "%c,%c",          "", do_numbers, 4 },
    { "mix",    "", "%d,%x,%f,%v,%c", "", do_numbers, 4 },
    { "s",      "", "%s,%s",          "", do_texts,   4 },
    { "t",      "", "%t",             "", do_texts,   4 },
    { "st",     "", "%s,%t",          "", do_texts,   4 },
    { "none",   "", "",               "", do_numbers, 4 },
    { "a_name_of_more_than_eight_characters", "", "%v %v", "", do_numbers, 0x44 },
    {},
};
// clang-format on

dcp_cmd_link fuzz_obj;

void show(dcp_client*, int type, int, const char* text)
{
    require(type == DCP_DSPL_LINE && std::strlen(text) <= DCP_MAX_RESPONSE);
}

void no_rx(dcp_client*, void*, std::size_t, dcp_bin_cb, void*) {}

void no_tx(dcp_client*, const void*, std::size_t, dcp_bin_cb, void*) {}

dcp_client fuzz_clnt = {0, show, no_rx, no_tx, "fuzz"};

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    dcp_init();
    dcp_cmd_add(fuzz_tab, &fuzz_obj);
    fuzz_clnt.id = dcp_clnt_add(&fuzz_clnt);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto line = std::make_unique<char[]>(size + 1);
    std::memcpy(line.get(), data, size);
    const std::size_t len = scf_clean(line.get(), "\r\n");
    require(len <= size && len == std::strlen(line.get()));
    line_start = line.get();
    line_end = line_start + size + 1;
    dcp_case_set(0);
    const int status = dcp_parse(fuzz_clnt.id, line.get());
    require(status >= DCP_OK && status <= DCP_NOT_FOUND);
    return 0;
}
