// The console: turns the byte stream of a port into command lines for the parser, and the parser's text and
// status into bytes on the port. The one place that knows of line ends. A console is a client of the parser
// and a device (a serial port, the process's own standard input and output), which registers itself by name.
// Input isn't bounded in time and output isn't buffered: each text is one write.
#pragma once

#include <cstddef>
#include <cstdint>

#include "dcp/dcp.h"
#include "slnk/slnk.h"

struct cio;

// What every device object begins with.
struct cio_dev_obj {
    int (*open)(cio_dev_obj* p_obj);                                 // 0, or -1
    int (*wr)(cio_dev_obj* p_obj, const void* buf, std::size_t len); // bytes taken
    int (*rd)(cio_dev_obj* p_obj, void* buf, std::size_t len);       // bytes read
    void (*close)(cio_dev_obj* p_obj);
    cio* p_owner;
    void (*rd_cb)(void* p_owner, void* p2); // the device has it called when it can be read
};

// A kind of device: static storage of its driver. `create` gives a device object, or null.
struct cio_dev {
    slnk link;
    const char* nm;
    cio_dev_obj* (*create)(const void* p_cfg);
};

struct cio {
    dcp_client clnt;
    struct {
        std::uint32_t len; // bytes assembled so far
        std::uint32_t size;
        char* ln;
    } cmd;
    cio_dev_obj* p_dev_obj;
    const char* const* p_greet; // ends with null; null for none
    int (*parse_fn)(char* line, std::size_t size);
};

// Makes a console named `nm` on device `dev_nm`, which must be registered, with a line buffer of `size` bytes
// (allocated when `p_ln` is null). The object lives as long as the process.
void cio_init(cio* p_me, char* p_ln, std::uint32_t size, const char* nm, const char* dev_nm,
              const void* p_cfg, const char* const* p_greet);

// Opens the device and prints the greeting. A device that can't be opened leaves the console silent.
void cio_start(cio* p_me);

// While one lives, other threads' output waits: for an answer of several pieces, or with terminators of its
// own. A line with its term, a status word with its final sequence and each single text stay whole without
// it. Holds may nest. Who has one waits for no other thread.
struct cio_hold {
    cio_hold();
    ~cio_hold();
    cio_hold(const cio_hold&) = delete;
    cio_hold& operator=(const cio_hold&) = delete;
};

// Bytes as they are; the number taken. cio_print writes a whole text, nothing for null.
int cio_wr(cio* p_me, const void* buf, std::size_t len);
void cio_print(cio* p_me, const char* text);

// Installs the console's last-chance parser, asked when a line gives DCP_NOT_FOUND; gives the former one.
using cio_parse_fn = int (*)(char* line, std::size_t size);
cio_parse_fn cio_parse_attach(cio* p_me, cio_parse_fn fn);
int cio_parse(char* line, std::size_t size); // the default: DCP_NOT_FOUND

// The client functions of every console.
void cio_dspl(dcp_client* p_clnt, int type, int more, const char* text);
void cio_bin_tx(dcp_client* p_clnt, const void* buf, std::size_t size, dcp_bin_cb cb, void* arg);
void cio_bin_rx(dcp_client* p_clnt, void* buf, std::size_t size, dcp_bin_cb cb, void* arg);

// The terminators of all consoles: the line term behind each line of response, the final sequence behind each
// status word; a zero byte ends either. s3 sets byte 0 of both and gives the old ones, the term's in bits 0
// to 7, the final's in 8 to 15; s4 sets byte 1 of both and byte 2 of the final sequence, and gives the old
// ones in the same order.
unsigned cio_s3_set(int term0, int final0);
unsigned cio_s4_set(int term1, int final1, int final2);

// Borrows the line ends for as long as it lives, for a report that comes beside the command flow: each line
// of response is a line of its own, ended by CR LF. Whatever was set is put back behind it. A cio_hold as
// well.
class cio_report_lines {
public:
    cio_report_lines();
    ~cio_report_lines();
    cio_report_lines(const cio_report_lines&) = delete;
    cio_report_lines& operator=(const cio_report_lines&) = delete;

private:
    cio_hold hold;
    unsigned s3;
    unsigned s4;
};

const char* cio_cmd_term();
const char* cio_cmd_final();

// Registers a kind of device under a new name; finds one, null when there is none.
void cio_dev_reg(cio_dev* p_dev);
cio_dev* cio_dev_find(const char* nm);

void cio_dev_init(); // tier entry: no devices
void cio_cmd_init(); // tier entry: the commands s3 and s4
