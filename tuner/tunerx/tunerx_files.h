// The tuner's text files: register settings, firmware patches, the channel table, and the dump of that table.
// They are read as any bytes that may stand there: nothing in a file can do harm, a line longer than 127
// characters counts as several.
#pragma once

#include <cstdint>
#include <forward_list>
#include <vector>

#include "tunerx/tunerx.h"

// A line of a register file: unit TUNER_A to TUNER_C.
struct tunerx_reg_line {
    std::uint8_t unit;
    std::uint8_t reg;
    std::uint8_t value;
};
constexpr std::size_t TUNERX_MOST_REG_LINES = 255;

// The lines of a register file, in their order; one that isn't a setting is passed over. False when the file
// can't be read or has more than TUNERX_MOST_REG_LINES.
bool tunerx_read_reg_file(const char* path, std::vector<tunerx_reg_line>& lines);

// A block of a patch: up to 8192 bytes for an address, and the parity that the chip has to find.
struct tunerx_patch {
    std::uint16_t adr;
    std::uint8_t parity;
    std::vector<std::uint8_t> data;
};
using tunerx_patch_list = std::forward_list<tunerx_patch>;

constexpr int TUNER_FW_PSEQ1 = 0;
constexpr int TUNER_FW_TNCTL = 1;
constexpr int TUNER_PATCH_ERROR = 96;

// The blocks of the patch file `which`. 0, or 96 with an empty list for a file that can't be read or isn't
// well formed. A block that is still open at the end of the file is dropped.
int tuner_read_fw_patch(int which, tunerx_patch_list& list);
void tuner_erase_patch_list(tunerx_patch_list& list);

// Fills the table from a channel file and writes its dump. 0, or TUNERX_NO_CHANNELS when the file can't be
// opened (the table stays as it is, and nothing is dumped), when a line isn't a channel, or for the channel
// behind the last that the table takes: it holds what came before then.
int tuner_read_chfile(const char* path);

// Writes the table as text; a file that can't be written is no failure.
void tuner_dump_chtbl();

// Works out what follows from the fields of the file.
void tunerx_compute_channel(tunerx_channel& channel);

// The bands' names and whether they carry another system than the usual.
extern const char* const bandToken[TUNER_BANDS];
extern const std::uint8_t dtvSysMap[TUNER_BANDS];

// The state of a chip that is tuned to the band.
extern const std::uint32_t opeStatMap[TUNER_BANDS];
