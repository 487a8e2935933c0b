// The trace: lines for developers, each from a named client and under a mask, to one of seven destinations.
// Not for a station's answers and not for the kernel log in normal running: this product leaves the trace
// off. A build that uses it calls trc_init(trc_pool, sizeof trc_pool) early in its start-up, ahead of
// trc_print_co_attach, whose callout trc_init puts back to its default; each of its modules then registers a
// client at its node (trc_nodes.h). Before trc_init nothing but trc_print_co_attach may be called. What a
// destination of the caller's does must not trace by itself: it runs under the lock that keeps lines whole.
#pragma once

#include <cstddef>
#include <cstdint>

#include "dlnk/dlnk.h"

// Mask bits; all others are levels of the module's choice.
constexpr std::uint32_t TRC_ERROR = 0x01; // the line begins with file and line number
constexpr std::uint32_t TRC_KMSG = 0x08;  // it goes to the kernel log, whatever the mode

// Static storage of the module that traces.
struct trc_client {
    const char* name;
    std::uint32_t mask; // which lines go out; cut by the global filter when it is registered
};

// A module's place in the list of clients.
struct trc_node {
    dlnk link;
    trc_client* p_client;
};
static_assert(sizeof(trc_node) == 3 * sizeof(void*));

// Where lines go.
constexpr unsigned TRC_MODE_BUFFER = 0; // the memory of trc_init; what doesn't fit any more is dropped, whole
constexpr unsigned TRC_MODE_PRINT = 1;  // the print callout
constexpr unsigned TRC_MODE_FILE = 2;   // /system/trclog.txt; beyond 256 KiB it goes to /system/trclog.gz
constexpr unsigned TRC_MODE_KMSG = 3;   // the kernel log
constexpr unsigned TRC_MODE_SOCKET = 4; // /dev/trcsocket
constexpr unsigned TRC_MODE_PRINT2 = 5; // as TRC_MODE_PRINT
constexpr unsigned TRC_MODE_USER = 6;   // the user-mode interface
constexpr unsigned TRC_MODE_LAST = 7;   // none: what the old mode holds is given up, and that is all

// Takes `len` characters, which a NUL follows.
using trc_print_fn = void (*)(const char* text, int len);

// The user-mode interface; `open` gives more than 0 when it works.
struct trc_usermode_co {
    int (*open)();
    void (*close)();
    void (*write)(const char* text, int len);
};

// Starts without clients, with an empty buffer of `size` bytes and the default print callout, which writes to
// standard output, and goes to TRC_MODE_FILE.
void trc_init(char* p_buf, std::size_t size);

// Without use; trc_poll and trc_pref_get give 0.
void trc_start();
void trc_cmd_init();
int trc_poll();
int trc_pref_get();

trc_print_fn trc_print_co_attach(trc_print_fn fn); // gives the former one
void trc_usermode_if_attach(const trc_usermode_co* p_co);

// Registers a client at a node that has none; its mask loses what the global filter doesn't have. And takes
// it out again. For start-up, as the masks below: there is no lock.
void trc_reg(trc_client* p_client, trc_node* p_obj);
void trc_dereg(trc_node* p_obj);
dlnk* trc_client_list();

// Sets the global filter, 0x0B at first, which acts on clients still to be registered; gives the old one. The
// second also sets the masks of all clients whose names begin with a to z.
std::uint32_t trc_mask_filter(std::uint32_t mask);
std::uint32_t trc_mask_filter_all(std::uint32_t mask);

// Sets the masks of those clients of a list whose names begin with the prefix. `arg` has no use.
void trc_do_set(void* arg, const dlnk* p_head, const char* name_prefix, std::uint32_t mask);

// Leaves the old mode and enters `mode`, at most TRC_MODE_LAST. One that can't be opened leaves the mode 0
// if the old one held something to give up, and the old one otherwise.
void trc_mode_set(unsigned mode);
unsigned trc_mode_get();

// Writes a line if the client's mask and `mask` have a bit in common: its length with its LF, which is added
// where it lacks, or 0. At most 1022 characters, the head of the line included, and an LF. From any thread.
int trc_trace(trc_node* p_obj, std::uint32_t mask, const char* file, int line, const char* fmt, ...)
    __attribute__((format(printf, 5, 6)));

// The same for bytes: a hex dump, 16 in a row.
void trc_trace_binary(trc_node* p_obj, std::uint32_t mask, const void* p_data, std::size_t size);

// The memory buffer: text without a NUL.
const char* trc_get_buf_start();
void trc_get_buf_sz(std::size_t* p_used, std::size_t* p_free);
void trc_clear_buf();

// Places for a debugger.
inline void TRC_DBG_tran() {}
inline void TRC_DBG_tran_data() {}
