// The phone's two contactless chips behind one set of operations; one of them is the current one. A driver
// enters its table with nfc_co_attach, and the one that does so last is current at start. Keeps no state of
// the chips, and a change of the current one stops nothing: who uses it powers the former down first. All
// calls come from one thread.
#pragma once

#include <cstddef>
#include <cstdint>

// Results of all operations; whatever else is a failure.
constexpr int NFC_OK = 0;
constexpr int NFC_FAILED = 1;
constexpr int NFC_ABSENT = 3; // the driver has no such operation
constexpr int NFC_BAD_ARGUMENT = 4;

constexpr int NFC_CHIP_PN65 = 1;
constexpr int NFC_CHIP_QXR5170JVK = 2;

// The room behind each `out`; no driver gives more.
constexpr std::size_t NFC_ROOM = 64;

// A driver's operations; it leaves null those that it lacks. `out` has NFC_ROOM bytes, of which `*p_outlen`
// are filled.
struct nfc_co {
    int chip;
    int (*start)(std::uint32_t mode);
    int (*stop)();
    int (*send)(const std::uint8_t* in, std::size_t len, std::uint8_t* out, std::uint8_t* p_outlen);
    int (*getid)(std::uint32_t type, std::uint8_t* out, std::uint8_t* p_outlen);
    int (*power_ctrl)(std::uint32_t line, std::uint32_t on);
    int (*rf_func)(const std::uint16_t* values, std::size_t count, std::uint8_t* out, std::uint8_t* p_outlen);
    int (*getreg)(std::uint32_t reg, std::uint8_t* p_value);
    int (*setreg)(std::uint32_t reg, std::uint32_t value);
    int (*getparam)(std::uint32_t id, std::uint8_t* p_value);
    int (*setparam)(std::uint32_t id, std::uint32_t value);
    int (*change_baud)(std::uint32_t rate);
    int (*selftest)(const std::uint8_t* in, std::size_t count, std::uint8_t* out, std::uint8_t* p_outlen);
    int (*detect_tag)(int* p_result);
    int (*se_conn_test)(int* p_result);
    int (*mode_switch)(std::uint32_t mode);
    int (*polling)(std::uint32_t mode, std::uint64_t microseconds, int* p_result);
    int (*lock_toggle)();
    int (*gpio_read)(std::uint32_t line, int* p_level);
    int (*variant_chk)(int* p_result);
    int (*simvdd_chk)(int* p_result);
    int (*int_stat_func)(int set, std::uint32_t* p_value);
    int (*fw_dnld_func)(std::uint32_t gap_us, std::uint32_t* p_status);
};

void nfc_init();

// Files the table under its chip number and makes it current.
void nfc_co_attach(const nfc_co* p_co);

// Makes a chip current. One that no driver has attached changes nothing; there is none of number 0.
void nfc_select(std::uint32_t chip);

// Powers the chip up, down.
int nfc_start(std::uint32_t mode);
int nfc_stop();

// One exchange of the chip's own frames. What stands in `in` and `out` is the driver's affair.
int nfc_send(const std::uint8_t* in, std::size_t len, std::uint8_t* out, std::uint8_t* p_outlen);

// Reads an identifier.
int nfc_getid(std::uint32_t type, std::uint8_t* out, std::uint8_t* p_outlen);

// Switches a supply or control line of the chip on (1) or off (0).
int nfc_power_ctrl(std::uint32_t line, std::uint32_t on);

// A radio function: the first value selects it, the others are its own.
int nfc_rf_func(const std::uint16_t* values, std::size_t count, std::uint8_t* out, std::uint8_t* p_outlen);

// One register, one parameter of the chip. A value that isn't found stays as it was.
int nfc_getreg(std::uint32_t reg, std::uint8_t* p_value);
int nfc_setreg(std::uint32_t reg, std::uint32_t value);
int nfc_getparam(std::uint32_t id, std::uint8_t* p_value);
int nfc_setparam(std::uint32_t id, std::uint32_t value);

// Speed of the line to the chip, by the driver's own numbers.
int nfc_change_baud(std::uint32_t rate);

// The antenna's self test: `count` parameters in place of the first defaults, and what was measured.
int nfc_selftest(const std::uint8_t* in, std::size_t count, std::uint8_t* out, std::uint8_t* p_outlen);

// Whether a card lies before the antenna: 0 none, 1 one, 2 several.
int nfc_detect_tag(int* p_result);

// Whether a secure element answers on the single wire: 1 or 0.
int nfc_se_conn_test(int* p_result);

// Leaves the chip, which must be down, in a mode of its own behind a short start.
int nfc_mode_switch(std::uint32_t mode);

// Waits for a card of one kind: 1 when one came within the time.
int nfc_polling(std::uint32_t mode, std::uint64_t microseconds, int* p_result);

// A short low pulse on the lock line.
int nfc_lock_toggle();

// Level of a status line, 0 or 1.
int nfc_gpio_read(std::uint32_t line, int* p_level);

// Whether the chip's variant is the one that this phone wants, and which it is.
int nfc_variant_chk(int* p_result);

// Whether the contactless SIM has its supply: 1 or 0.
int nfc_simvdd_chk(int* p_result);

// Reads (`set` 0) or sets the chip's interrupt line.
int nfc_int_stat_func(int set, std::uint32_t* p_value);

// Firmware download: a gap of 0 tells the state, any other starts it with that gap in microseconds between
// the frames. nfc_pn65_fw_dnld.h has the meaning of the state.
int nfc_fw_dnld_func(std::uint32_t gap_us, std::uint32_t* p_status);
