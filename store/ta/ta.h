// The persistent units: numbered byte strings that keep the phone's calibration and identity. This is the
// thin interface; a driver does the work (ta_if_cmd_co_attach, before anything else). A unit number with bit
// 31 clear names a unit of the main store, which must be open; with bit 31 set, its lower 31 bits name a unit
// of the auxiliary store, which needs no opening. An operation that the driver lacks does nothing and gives
// 0, a transfer TA_XFER_FAILED.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr std::uint32_t TA_AUX = 0x80000000; // set in the number of a unit of the auxiliary store
constexpr std::uint32_t TA_NO_UNIT = 0xFFFFFFFF;

// What a transfer gives.
constexpr int TA_XFER_DONE = 0;
constexpr int TA_XFER_BUSY = 1;
constexpr int TA_XFER_FAILED = 3; // 2 is a failure too

struct ta_if_co {
    int (*open)(int write);
    int (*close)(int arg);
    int (*format)(int arg1, int arg2);
    int (*get_status)();
    int (*set_tran)(int flag);
    int (*get_size)(std::uint32_t unit);
    std::uint32_t (*get_next_id)();
    int (*read)(std::uint32_t unit, void* p_buf, std::size_t room);
    int (*write)(std::uint32_t unit, std::size_t size, const void* p_data);
    int (*del)(std::uint32_t unit);
    int (*xfer)(std::uint32_t src, std::uint32_t dst, int dir, int opt, int blocking);
};

void ta_if_init();

// Puts a driver's table in force and gives the former one.
const ta_if_co* ta_if_cmd_co_attach(const ta_if_co* p_co);

// Opens the main store, read-only for `write` 0: 1 if it was opened.
int ta_if_open(int write);

// 1 if the store was open.
int ta_if_close(int arg);

// Empties the main store, which must be closed: 1 on success.
int ta_if_format(int arg1, int arg2);

// 1 while the main store is open, else 0.
int ta_if_get_status();

int ta_if_set_tran(int flag);

// Bytes of a unit; 0 when it is unknown or out of reach.
int ta_if_get_size(std::uint32_t unit);

// The next unit of the walk over both stores, which begins when the main store is opened: TA_NO_UNIT at its
// end, 0 while the store is closed.
std::uint32_t ta_if_get_next_id();

// Reads a whole unit: its bytes, 0 on failure. A unit of more than `room` bytes is a failure.
int ta_if_read(std::uint32_t unit, void* p_buf, std::size_t room);

// 1 when the unit holds the new bytes, 0 when it holds the old ones.
int ta_if_write(std::uint32_t unit, std::size_t size, const void* p_data);

// Removes a unit of the main store: 1 on success.
int ta_if_del(std::uint32_t unit);

// Transfers between the modem's NV memory and the store. Only `dir` 1, NV to store, exists; it moves all of
// it. `blocking` 0 takes one step; 1 takes one every 50 ms until the end, but 72,000 at most, an hour, for a
// modem that is busy for longer: TA_XFER_FAILED then. A TA_XFER_ value.
int ta_if_xfer(std::uint32_t src, std::uint32_t dst, int dir, int opt, int blocking);
