// The tuner's files, whatever they hold: each path gives the input's bytes, in pieces, to the readers of
// registers, patches and channels. What they give stays within its limits, and the table can be dumped and
// searched.

#include "fuzz_input.h"
#include "tunerx/tunerx.h"
#include "tunerx/tunerx_files.h"

namespace {

void read_registers()
{
    std::vector<tunerx_reg_line> lines;
    tunerx_read_reg_file("/r", lines);
    require(lines.size() <= TUNERX_MOST_REG_LINES);
    for (const tunerx_reg_line& line : lines)
        require(line.unit <= TUNER_C);
}

void read_patches()
{
    tunerx_patch_list list;
    const int rc = tuner_read_fw_patch(TUNER_FW_TNCTL, list);
    require(rc == 0 || (rc == TUNER_PATCH_ERROR && list.empty()));
    for (const tunerx_patch& block : list)
        require(block.parity <= 1 && block.data.size() <= 8192);
}

void read_channels()
{
    const int rc = tuner_read_chfile("/c");
    require(rc == 0 || rc == TUNERX_NO_CHANNELS);
    require(tunXParams.channel_count <= TUNERX_MOST_CHANNELS);
    for (int i = 0; i < tunXParams.channel_count; i++) {
        const tunerx_channel& c = tunXParams.channels[i];
        const int found = tuner_get_chrcd_id(static_cast<int>(c.band), c.ch);
        require(c.band < TUNER_BANDS && c.p_k < 1u << 20 && found <= i);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static plat_callouts co = file_callouts();
    co.read = [](int, void* buf, std::size_t size) { return static_cast<ssize_t>(give(buf, size, 61)); };
    plat_attach(&co);
    libtuner_init();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    take_input(data, size);
    read_registers();
    read_patches();
    read_channels();
    return 0;
}
