// Patch files: blocks of "stad:ADDRESS", bytes "XX:", "prty:PARITY".
#include "line_reader.h"
#include "tunerx/tunerx_files.h"

namespace {

constexpr std::size_t MOST_BYTES = 8192;

// Builds the list line by line; `open` is the block that waits for its parity.
struct patch_builder {
    tunerx_patch_list& list;
    tunerx_patch_list::iterator last = list.before_begin();
    tunerx_patch block = {};
    bool open = false;

    bool begin(unsigned adr)
    {
        if (open)
            return false;
        block = {static_cast<std::uint16_t>(adr), 0, {}};
        open = true;
        return true;
    }
    bool end(int parity)
    {
        if (!open || (parity != 0 && parity != 1))
            return false;
        block.parity = static_cast<std::uint8_t>(parity);
        last = list.insert_after(last, std::move(block));
        open = false;
        return true;
    }
    bool byte(unsigned value)
    {
        if (!open || value > 0xFF || block.data.size() == MOST_BYTES)
            return false;
        block.data.push_back(static_cast<std::uint8_t>(value));
        return true;
    }
    // False for an error; a line of no form is passed over.
    bool take(const char* line)
    {
        unsigned value;
        int parity;
        if (std::sscanf(line, " stad:%x", &value) == 1)
            return begin(value);
        if (std::sscanf(line, " prty:%d", &parity) == 1)
            return end(parity);
        // The colon behind the byte isn't counted, and so not looked at.
        return std::sscanf(line, " %x:", &value) != 1 || byte(value);
    }
};

} // namespace

int tuner_read_fw_patch(int which, tunerx_patch_list& list)
{
    list.clear();
    if (which != TUNER_FW_PSEQ1 && which != TUNER_FW_TNCTL)
        return TUNER_PATCH_ERROR;
    line_reader reader(tunXParams.setup.fw_file[which]);
    patch_builder builder{list};
    bool good = reader.opened();
    while (const char* const line = good ? reader.next() : nullptr)
        good = builder.take(line);
    if (good && !reader.failed())
        return 0;
    list.clear();
    return TUNER_PATCH_ERROR;
}

void tuner_erase_patch_list(tunerx_patch_list& list)
{
    list.clear();
}
