// The channel table: its file, what is computed from it, its dump.
#include <cmath>
#include <cstring>
#include <memory>

#include "line_reader.h"
#include "numbers.h"
#include "plat/plat.h"
#include "tunerx/tunerx_files.h"

// clang-format off
const char* const bandToken[TUNER_BANDS] = {
    "UF", "US", "UF1", "VMF", "VMS", "VMF1", "VLF", "VLS", "VLF1",
    "K",  "D",  "S",   "KF",  "DF",  "SF",   "KS",  "DS",  "SS",
};

const std::uint8_t dtvSysMap[TUNER_BANDS] = {
    0, 0, 0,   0, 0, 0,   0, 0, 0,
    1, 1, 1,   0, 0, 0,   0, 0, 0,
};

const std::uint32_t opeStatMap[TUNER_BANDS] = {
    0x1321, 0x1311, 0x1331,   0x1321, 0x1311, 0x1331,   0x1321, 0x1311, 0x1331,
    0x1321, 0x1321, 0x1321,   0x1321, 0x1321, 0x1321,   0x1321, 0x1321, 0x1321,
};
// clang-format on

namespace {

constexpr char DUMP_PATH[] = "/system/etc/isdbtmm/chtbl_dump.csv";
constexpr char DUMP_HEAD[] =
    "// BAND,ch,fRF,fIF,ADCLK,P_M,P_KU,P_KM,P_KL,TNCOP1,TNCOP2,TNCOP3,FADU,FADM,FADL,"
    "NCOFRQU,NCOFRQM,NCOFRQL,SYSSET,CKRAT,,,TNCOP4,TNCOP6,TNCOP7,ADCLKSEL,NBUF,FSFT*\n";

// clang-format off
// The clocks of the converter in MHz, by the low four bits of TNCOP4.
constexpr double fADtbl[16] = {
    174.84,  179.025, 180.42,  182.28,  183.675, 184.14,  187.86, 188.325,
    189.72,  191.58,  192.975, 195.92,  197.16,  197.625, 198.4,  199.95,
};

// Bandwidths in MHz, by the low two bits of TNCOP6.
constexpr int fBW[4] = { 6, 7, 8, -1 };
// clang-format on

int find_band(const char* token)
{
    for (int band = 0; band < TUNER_BANDS; band++)
        if (std::strcmp(token, bandToken[band]) == 0)
            return band;
    return -1;
}

std::uint16_t word16(unsigned value)
{
    return static_cast<std::uint16_t>(value);
}

// The 13 fields of a line; false when it doesn't have them. `band` is -1 for a token that isn't one.
bool parse(const char* line, int& band, tunerx_channel& c)
{
    char token[line_reader::ROOM];
    unsigned ch, w[9];
    float frf;
    int fif;
    if (std::sscanf(line, "%127[^,],%u,%f,%d,%x,%x,%x,%x,%x,%x,%x,%x,%x", token, &ch, &frf, &fif, &w[0],
                    &w[1], &w[2], &w[3], &w[4], &w[5], &w[6], &w[7], &w[8]) != 13)
        return false;
    band = find_band(token);
    c = {};
    c.ch = ch;
    c.frf = frf;
    c.fif = static_cast<std::int16_t>(fif);
    std::uint16_t* const fields[9] = {&c.tncop1, &c.tncop2,   &c.tncop3, &c.tncop4, &c.tncop6,
                                      &c.tncop7, &c.adclksel, &c.sysset, &c.ckrat};
    for (int i = 0; i < 9; i++)
        *fields[i] = word16(w[i]);
    return true;
}

double table_clock(const tunerx_channel& c)
{
    return fADtbl[c.tncop4 & 15];
}

void cal_fad(tunerx_channel& c)
{
    if ((c.tncop7 & 1) != 0)
        return;
    c.adclk = table_clock(c);
    const int bits = c.tncop6 & 3;
    const double w = (bits == 3 ? 0 : bits) + 6;
    const double rate = dtvSysMap[c.band] == 0 ? w / 6 * 8.126984126984127 : w / 8 * 9.142857142857142;
    c.fad = cut_u32(std::floor(c.adclk / 8 / rate * 4194304 + 0.5));
}

void cal_ncofrq(tunerx_channel& c)
{
    if ((c.tncop6 >> 2 & 3) != 1)
        return;
    if (c.fif == 0) {
        c.tncop6 |= 3;
        return;
    }
    const std::uint32_t x =
        cut_u32(std::floor(std::fabs(c.fif / 1000.0) / (table_clock(c) / 64) * 4096 + 0.5));
    c.ncofrq = c.fif < 0 ? x : 4096 - x;
}

std::uint32_t cal_nbuf(float frf)
{
    if (frf >= 432)
        return 1;
    if (frf >= 220)
        return 2;
    return frf >= 108 ? 4 : 8;
}

void cal_p_km(tunerx_channel& c)
{
    c.nbuf = cal_nbuf(c.frf);
    const double v = (double{c.frf} + c.fif / 1000.0) * c.nbuf / (37.2 / ((c.adclksel >> 6 & 3) + 1));
    c.p_m = static_cast<std::uint16_t>(cut_u32(v));
    c.p_k = cut_u32((v - std::trunc(v)) * 1048576) & 0xFFFFF;
}

void cal_fsft(tunerx_channel& c)
{
    if (dtvSysMap[c.band] != 1)
        return;
    const double h = table_clock(c) / 8;
    const int half = fBW[c.tncop6 & 3] / 2;
    c.fsft = static_cast<std::uint16_t>(cut_u32(std::floor((h * 0.23 - half) / h * 65536 + 0.5)));
}

void dump_three_bytes(FILE* p_file, std::uint32_t value)
{
    std::fprintf(p_file, "%02X,%02X,%02X,", value >> 16 & 0xFF, value >> 8 & 0xFF, value & 0xFF);
}

void dump_channel(FILE* p_file, const tunerx_channel& c)
{
    std::fprintf(p_file, "%s,%d,%.3f,%d,%.3f,%02X,", bandToken[c.band], static_cast<int>(c.ch), double{c.frf},
                 c.fif, c.adclk, c.p_m);
    dump_three_bytes(p_file, c.p_k);
    std::fprintf(p_file, "%02X,%02X,%02X,", c.tncop1, c.tncop2, c.tncop3);
    dump_three_bytes(p_file, c.fad);
    if (opeStatMap[c.band] == TUNER_NARROW)
        std::fprintf(p_file, "%02X,%02X,00,", c.ncofrq >> 4, c.ncofrq & 15);
    else
        dump_three_bytes(p_file, c.ncofrq);
    std::fprintf(p_file, "%02X,%02X,,,%02X,%02X,%02X,%02X,%02X", c.sysset, c.ckrat, c.tncop4, c.tncop6,
                 c.tncop7, c.adclksel, c.nbuf);
    if (dtvSysMap[c.band] == 1)
        std::fprintf(p_file, ",%02X", c.fsft);
    std::fputc('\n', p_file);
}

// Fills the table from the file, up to the first line that can't be taken.
int read_table(line_reader& reader)
{
    tunXParams.channel_count = 0;
    while (const char* const line = reader.next()) {
        int band;
        tunerx_channel channel;
        if (!parse(line, band, channel))
            return TUNERX_NO_CHANNELS;
        if (band < 0)
            continue;
        if (tunXParams.channel_count == TUNERX_MOST_CHANNELS)
            return TUNERX_NO_CHANNELS;
        channel.band = static_cast<std::uint32_t>(band);
        tunerx_compute_channel(channel);
        tunXParams.channels[tunXParams.channel_count++] = channel;
    }
    return reader.failed() ? TUNERX_NO_CHANNELS : TUNERX_OK;
}

} // namespace

void tunerx_compute_channel(tunerx_channel& channel)
{
    cal_fad(channel);
    cal_ncofrq(channel);
    cal_p_km(channel);
    cal_fsft(channel);
}

int tuner_read_chfile(const char* path)
{
    line_reader reader(path);
    if (!reader.opened())
        return TUNERX_NO_CHANNELS;
    const int rc = read_table(reader);
    tuner_dump_chtbl();
    return rc;
}

void tuner_dump_chtbl()
{
    FILE* const p_file = plat_fopen(DUMP_PATH, "w");
    if (p_file == nullptr)
        return;
    std::fputs(DUMP_HEAD, p_file);
    for (unsigned i = 0; i < tunXParams.channel_count; i++)
        dump_channel(p_file, tunXParams.channels[i]);
    std::fclose(p_file);
}

int tuner_get_chrcd_id(int band, std::uint32_t ch)
{
    if (band == 2 || band == 5 || band == 8)
        band -= 2;
    for (int i = 0; i < tunXParams.channel_count; i++)
        if (tunXParams.channels[i].band == static_cast<std::uint32_t>(band) &&
            tunXParams.channels[i].ch == ch)
            return i;
    return -1;
}
