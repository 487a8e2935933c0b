// The receiver's files on a healthy phone: register settings in all spellings, patches with right parity, and
// a channel table for UHF and VHF.
#include <cstdio>
#include <string>

#include "core/home.h"
#include "tuner/tuner_driver.h"

namespace phone {

namespace {

constexpr const char* folder = "/system/etc/isdbtmm/";

constexpr const char registers_1[] = "// MN88552 OFDM front end, ISDB-T 6 MHz, differences\n"
                                     "// label, device, register, value\n"
                                     "OFDM,1,&H04,&H31\n"
                                     "OFDM,1,&H05,&H0C\n"
                                     "OFDM,1,0x09,0x52\n"
                                     "OFDM , 1 , 14 , 6B\n"
                                     "OFDM,1,&H15,&H1e\n"
                                     "OFDM,1,20,A7\n"
                                     "OFDM,1,0x21,0x3d\n"
                                     "OFDM,1,&H22,88 // gain\n"
                                     "OFDM,1,&H38,&HC4\n"
                                     "OFDM,1,4a,17\n"
                                     "OFDM,1,&H5B,0x7E\n"
                                     "OFDM,1,&H90,&H04\n"
                                     "OFDM,1,6C,F0\n";

constexpr const char registers_2[] = "// MN88552 OFDM, narrow path\n"
                                     "OFDM_S,2,&H10,&H2A\n"
                                     "OFDM_S,2,0x11,0x19\n"
                                     "OFDM_S,2,12,D5\n"
                                     "OFDM_S,2,&H13,&H66\n"
                                     "\n"
                                     "OFDM_S,2,&H20,&H0F\n"
                                     "OFDM_S,2,21,8C\n"
                                     "OFDM_S,2,0x2B,0x43\n"
                                     "OFDM_S,2,&H2c,&Hb1\n"
                                     "OFDM_S,2,40,05\n"
                                     "OFDM_S,2,&H41,&H9D\n"
                                     "OFDM_S, 2, &H42, &H77\n"
                                     "OFDM_S,2,0x55,3E\n"
                                     "OFDM_S,2,&H60,&HE2\n";

constexpr const char registers_3[] = "// MN88552 MT\n"
                                     "MT,0,&H08,&H11\n"
                                     "MT,0,&H09,&H24\n"
                                     "MT,0,0x0A,0x38\n"
                                     "MT,0,0B,4F\n"
                                     "MT,0,&H0C,&H5A\n"
                                     "MT,0,0x10,0x63\n"
                                     "MT,0,11,72\n"
                                     "MT,0,&H12,&H8D\n"
                                     "MT,0,&H1f,&H96\n"
                                     "MT,0,20,A1\n"
                                     "MT,0,0x24,0xBC\n"
                                     "MT,0,&H25,&HC8\n";

constexpr const char registers_4[] = "// MN88552 RF\n"
                                     "RF,0,&H80,&H07\n"
                                     "RF,0,&H81,&H13\n"
                                     "RF,0,0x82,0x2E\n"
                                     "RF,0,83,35\n"
                                     "RF,0,&H84,&H49\n"
                                     "RF,0,0x85,0x5c\n"
                                     "RF,0,86,61\n"
                                     "RF,0,&H87,&H7B\n"
                                     "RF,0,&H88,&H82\n"
                                     "RF,0,89,9A\n"
                                     "RF,0,0x8A,0xA6\n"
                                     "RF,0,&H8B,&HB9\n"
                                     "RF,0,&H8C,&HD3\n";

struct block {
    unsigned address;
    unsigned bytes;
    unsigned seed;
};

// Bytes that differ; the parity is that of all their ones.
void add_block(std::string& text, const block& b)
{
    char line[24];
    std::snprintf(line, sizeof line, "stad:%04x\n", b.address);
    text += line;
    unsigned ones = 0;
    for (unsigned i = 0; i < b.bytes; i++) {
        const unsigned byte = (b.seed + i * 37 + i / 7) & 0xFF;
        ones += static_cast<unsigned>(__builtin_popcount(byte));
        std::snprintf(line, sizeof line, " %02x:\n", byte);
        text += line;
    }
    text += ones % 2 != 0 ? "prty:1\n" : "prty:0\n";
}

// clang-format off
constexpr block pseq1_blocks[] = { { 0x0100, 300, 0x11 }, { 0x0480, 9, 0x5A }, { 0x1F00, 2500, 0x33 } };
constexpr block tnctl_blocks[] = { { 0x0000, 120, 0x07 }, { 0x0A20, 4, 0x91 } };

// A band of the table: its channels, the first carrier and the step in MHz, and the rest of its rows.
struct band_rows {
    const char* token;
    int first;
    int last;
    double mhz;
    double step;
    int fif;
    const char* words; // TNCOP1, 2, 3, 4, 6, 7, ADCLKSEL, SYSSET, CKRAT
};
constexpr band_rows bands[] = {
    { "UF",  13, 68, 473 + 1.0 / 7, 6.0,      500, "1a,2b,3c,05,04,00,40,0a,11" },
    { "US",  13, 68, 473 + 1.0 / 7, 6.0,        0, "1b,2c,3d,03,00,02,40,4b,12" },
    { "VMF",  0, 52, 207 + 6.0 / 7, 3.0 / 7, -286, "2a,3b,4c,0c,05,00,00,0c,13" },
    { "VMS",  0, 52, 207 + 6.0 / 7, 3.0 / 7,    0, "2b,3c,4d,0b,01,04,00,4d,14" },
};
// clang-format on

std::string channel_table()
{
    std::string text = "// BAND,ch,fRF,fIF,TNCOP1,TNCOP2,TNCOP3,TNCOP4,TNCOP6,TNCOP7,ADCLKSEL,SYSSET,CKRAT\n";
    for (const band_rows& band : bands)
        for (int ch = band.first; ch <= band.last; ch++) {
            char line[100];
            std::snprintf(line, sizeof line, "%s,%d,%.6f,%d,%s\n", band.token, ch,
                          band.mhz + band.step * (ch - band.first), band.fif, band.words);
            text += line;
        }
    return text;
}

void seed(const char* name, const std::string& text)
{
    home_seed(std::string(folder) + name, text);
}

} // namespace

void tuner_files_seed()
{
    seed("MN88552_OFDM_F_DIFF_ISDB-T_6MHz_130128.rgs", registers_1);
    seed("MN88552_ofdm_s_20121108_diff.rgs", registers_2);
    seed("MN88552_MT_20121107.rgs", registers_3);
    seed("MN88552_RF_20121108.rgs", registers_4);
    std::string patch = "// PSEQ1\n";
    for (const block& b : pseq1_blocks)
        add_block(patch, b);
    seed("PSEQ1_MN88552_130129_bprty.hex", patch);
    patch = "// TNCTL\n";
    for (const block& b : tnctl_blocks)
        add_block(patch, b);
    seed("TNCTL20130219p_diff.hex", patch);
    seed("MN88552_chfile_20130301_Tmm.csv", channel_table());
}

} // namespace phone
