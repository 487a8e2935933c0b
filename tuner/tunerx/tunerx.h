// The library round the MN88552 demodulator: its parameter block and state, bring-up, tuning and channel
// lists. It knows the chip and the host's nodes, not the board: who supplies and resets the chip, and in
// which order all of this is called, is the board's wrapper (tuner) and the driver. One caller at a time; a
// tuning holds it for up to 8 seconds. Configuration, monitors, files and registers have doors of their own.
#pragma once

#include <cstdint>
#include <memory>

// clang-format off
// Results. Those of a bus that fails are -1. Warnings are the bits of the low byte; TUNERX_FAILED tells a
// failure from them.
constexpr int TUNERX_OK           =    0;
constexpr int TUNERX_DEVICE       =  257;
constexpr int TUNERX_BAD_ARGUMENT =  258;
constexpr int TUNERX_WRONG_STATE  =  259;
constexpr int TUNERX_WAIT         =  260;
constexpr int TUNERX_BAD_KIND     =  261;
constexpr int TUNERX_GENERAL      = 4095;
constexpr int TUNERX_FAILED       = 0xF00;

constexpr int TUNERX_NO_REGISTERS =    1; // 1, 2, 4, 8: of the first to the fourth register file
constexpr int TUNERX_NO_CHANNELS  =   16;
constexpr int TUNERX_NO_PSEQ1     =   32;
constexpr int TUNERX_NO_TNCTL     =   64;

// The state word.
constexpr std::uint32_t TUNER_OFF         = 0;
constexpr std::uint32_t TUNER_POWERED     = 0x1000;
constexpr std::uint32_t TUNER_OPEN        = 0x1100;
constexpr std::uint32_t TUNER_BOOTED      = 0x1300;
constexpr std::uint32_t TUNER_INITIALISED = 0x1301; // and not tuned
constexpr std::uint32_t TUNER_NARROW      = 0x1311;
constexpr std::uint32_t TUNER_WIDE        = 0x1321;
constexpr std::uint32_t TUNER_WIDE_THIRD  = 0x1331;

// The chip's three addresses, as places in tunerx_setup::slave.
constexpr unsigned TUNER_A = 0; // control and level
constexpr unsigned TUNER_B = 1; // the wide path
constexpr unsigned TUNER_C = 2; // the narrow path

// Tuning status.
constexpr int TUNER_TUNED      = 0;
constexpr int TUNER_TUNE_FAILED = 1;
constexpr int TUNER_NOT_TUNED  = 2;

constexpr int TUNER_BANDS = 18;
constexpr int TUNER_BAND_UF = 0;
constexpr int TUNER_BAND_US = 1;
// clang-format on

constexpr std::uint32_t TUNER_NO_SYNC = 0x80; // in the sync flags: the time was over

// Where the chip is and what it is loaded from.
struct tunerx_setup {
    std::uint16_t slave[3];
    char reg_file[4][512];
    char fw_file[2][512]; // PSEQ1, TNCTL
    char ch_file[512];
};

// A row of the channel table: what the file says, and what follows from it.
struct tunerx_channel {
    std::uint32_t band;
    std::uint32_t ch;
    float frf;        // MHz
    std::int16_t fif; // kHz
    std::uint16_t tncop1, tncop2, tncop3, tncop4, tncop6, tncop7;
    std::uint16_t adclksel, sysset, ckrat;
    double adclk; // MHz; 0 where the row fixes its clock itself
    std::uint32_t fad;
    std::uint32_t ncofrq;
    std::uint32_t nbuf;
    std::uint32_t p_k; // 20 bits
    std::uint16_t p_m;
    std::uint16_t fsft;
};
static_assert(sizeof(tunerx_channel) == 64);

constexpr unsigned TUNERX_MOST_CHANNELS = 500;

// What the library knows: one object, tunXParams. The antenna thread reads `state` and `band` too.
struct tunx_params {
    tunerx_setup setup;
    tunerx_channel channels[TUNERX_MOST_CHANNELS];
    std::uint16_t channel_count;
    int band;
    std::uint16_t ch;
    int record; // of the current channel, -1 for none
    std::uint32_t sync_flags;
    int status;
    std::uint32_t state;
    int wait; // 1: loops that wait for the chip sleep between readings
};
extern tunx_params tunXParams;

// The address of TUNER_A, TUNER_B or TUNER_C.
std::uint16_t tunerx_slave(unsigned unit);

// Milliseconds since the start of the program.
std::uint64_t tuner_get_time();

// Puts everything to its defaults, state off. tunerx_start takes the names that aren't empty and the
// addresses of `p_setup` besides; 258 without one.
void libtuner_init();
int tunerx_start(const tunerx_setup* p_setup);

// Holds the state word against the chip, and corrects it where the chip says otherwise, which is 259; a state
// below booted is 259 too. A chip that is booted and not initialised isn't asked.
int tuner_check_circuit();

// True when the state word says initialised.
bool tunerx_is_initialised();

// Loads registers, patches and channels into a chip that is booted and not initialised. 0; warnings for files
// that couldn't be read, with which the chip runs all the same; 257, 259, 4095 or -1.
int tunerx_initialize();

// Tunes band 0 to 17 to a channel of the table, and waits for the chip to settle (3 s) and for sync (5 s).
// 0; 257 when one of them doesn't come; 258 for a band or channel that isn't there; 259, -1.
int tunerx_tuning(int band, std::uint32_t ch);

// Pieces of it. A register write that fails or a time that is over leaves the status at failed.
int tuner_disable_irq(std::uint32_t state);
int tuner_tuning_core(int band, std::uint32_t ch);
int tuner_confirm_tuning(unsigned period_ms);
int tuner_sync_detect(std::uint32_t* p_flags, unsigned period_ms);

// The place of a channel in the table, -1 when it isn't there. Bands 2, 5 and 8 have the channels of 0, 3, 6.
int tuner_get_chrcd_id(int band, std::uint32_t ch);

// `kind` 0 checks that the chip answers and that a bit of it moves. `kind` 3 puts it on band 0, channel 13,
// with `value` in its test pattern register; the pattern is set up even when the tuning fails. 257 for a chip
// that doesn't pass, 261 for any other kind.
int tunerx_chkpin(int kind, std::uint32_t value);

// Changes between the two wide variants of the current channel without a new tuning. 258 for a band that has
// no such partner, 259 when the chip isn't tuned wide.
int tunerx_change_seamless();

// A list of channels to try, behind a head that stands for none.
struct tunerx_tdc {
    std::uint16_t ch = 13;
    int band = TUNER_BAND_UF;
    int record = -1;
    std::uint32_t value = 0;
    std::uint32_t elapsed_ms = 0;
    int status = TUNER_NOT_TUNED;
    std::unique_ptr<tunerx_tdc> next;

    ~tunerx_tdc();
};
std::unique_ptr<tunerx_tdc> tunerx_create_tdc();

// Puts a channel at the end of the list; null when the table doesn't have it. The list keeps the node.
tunerx_tdc* tunerx_cs_addch(int band, std::uint32_t ch, tunerx_tdc* p_head);

// Takes the first node of that channel out, if there is one.
void tunerx_cs_delch(int band, std::uint32_t ch, tunerx_tdc* p_head);

// Frees all nodes behind the head.
void tunerx_cs_freech(tunerx_tdc* p_head);

// Tunes to each channel of the list and notes in its node how that went, with a line on standard error. The
// first that fails ends it with its result. 258 without a head, 259 for a chip that isn't initialised.
int tunerx_search_ch(tunerx_tdc* p_head);
