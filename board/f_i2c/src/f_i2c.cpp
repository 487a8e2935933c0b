#include "f_i2c/f_i2c.h"

#include <algorithm>
#include <cstdint>

#include "dcp/dcp.h"
#include "i2c/i2c.h"
#include "scf/scf.h"

namespace {

constexpr int MOST_BYTES = 64;
constexpr unsigned CURRENT_REG = 255; // from here on: no register is written before a reading

int answer(int id, const char* name, bool done)
{
    return done ? dcp_answer(id, name, "", DCP_OK) : dcp_answer(id, name, "no ack", DCP_ERROR);
}

int do_i2cw(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET)
        return dcp_answer(id, "i2cw", "write to any i2c device at specified address", DCP_OK);
    std::uint8_t bytes[MOST_BYTES];
    const int count = argc > 2 ? scf_str_to_uint8(bytes, MOST_BYTES, dcp_text(argv[2]), 16) : 0;
    i2c_handle hnd;
    if (count < 1 || i2c_open(&hnd, nullptr, dcp_uint(argv[0]), dcp_uint(argv[1])) != 0)
        return DCP_ERROR;
    const int result = i2c_write(&hnd, bytes, static_cast<std::size_t>(count));
    i2c_close(&hnd);
    return answer(id, "i2cw", result >= 0);
}

// Reads `count` bytes from `reg` on, the register's number in a message of its own.
bool read_bytes(const i2c_handle* p_hnd, unsigned reg, std::uint8_t* p_buf, unsigned count)
{
    const auto reg8 = static_cast<std::uint8_t>(reg);
    if (reg < CURRENT_REG && i2c_write(p_hnd, &reg8, 1) < 0)
        return false;
    return i2c_read(p_hnd, p_buf, count) >= 0;
}

int do_i2cr(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET) {
        dcp_printf(id, "i2cr", "%s", "read from any i2c device at specified address");
        return dcp_answer(id, "i2cr", "reg=255 accesses current register", DCP_OK);
    }
    unsigned val[] = {0, 0, 0, 1}; // port, address, register, count
    for (int i = 0; argc <= 4 && i < argc; i++)
        val[i] = dcp_uint(argv[i]);
    const unsigned count = std::min(val[3], static_cast<unsigned>(MOST_BYTES));
    i2c_handle hnd;
    if (i2c_open(&hnd, nullptr, val[0], val[1]) != 0)
        return DCP_ERROR;
    std::uint8_t bytes[MOST_BYTES] = {};
    const bool done = read_bytes(&hnd, val[2], bytes, count);
    i2c_close(&hnd);
    if (!done)
        return answer(id, "i2cr", false);
    char text[5 * MOST_BYTES + 1]; // "0x01," a byte
    scf_bin_to_hexstr(text, sizeof text, bytes, static_cast<int>(count), 1, ',');
    dcp_print_long(id, "i2cr", text);
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_i2c_cmd_tab[] = {
    { "i2cw", "0xB,0xB,0xB[,BX]", "%x,%x,%t",    "i2cw(port,devaddr,reg,data...)", do_i2cw, DCP_GRP_STANDARD },
    { "i2cr", "0xB,0xB,0xB,0xB",  "%x,%x,%x,%x", "i2cr(port,devaddr,reg,num)",     do_i2cr, DCP_GRP_STANDARD },
    {},
};
// clang-format on

dcp_cmd_link f_i2c_link;

} // namespace

void f_i2c_init()
{
    dcp_cmd_add(f_i2c_cmd_tab, &f_i2c_link);
}
