// The I2C buses: "/dev/i2c-N" with combined transfers. A handle is for one chip on one bus and isn't shared
// between threads; most users open and close it around every transfer. Needs i2c_cfg first, for names.
#pragma once

#include <cstddef>
#include <cstdint>

// A chip on a bus. The caller keeps it.
struct i2c_handle {
    std::uint8_t port; // the bus
    std::uint16_t addr;
    int fd;
};

// Where the board's chips are. A row without a name ends the table.
struct i2c_cfg_row {
    const char* name;
    std::uint8_t port;
    std::uint8_t addr; // 0: the caller says
};

void i2c_init();

void i2c_cfg(const i2c_cfg_row* p_tab);

// Opens the bus of chip `name`; its address too unless `addr` isn't 0. With a null name `port` and `addr`
// count. 0, or -1 for an unknown name, a number that can't be or a bus that won't open.
int i2c_open(i2c_handle* p_hnd, const char* name, unsigned port, unsigned addr);
void i2c_close(i2c_handle* p_hnd);

// All below: negative when the chip or the bus doesn't answer. Each is one call of the bus.
int i2c_write(const i2c_handle* p_hnd, const void* p_buf, std::size_t len);
int i2c_read(const i2c_handle* p_hnd, void* p_buf, std::size_t len);
int i2c_write_reg8(const i2c_handle* p_hnd, std::uint8_t reg, std::uint8_t val);

// The register's number and the reading behind a repeated start.
int i2c_read_reg8(const i2c_handle* p_hnd, std::uint8_t reg, std::uint8_t* p_val);
int i2c_read_regs(const i2c_handle* p_hnd, std::uint8_t reg, void* p_buf, std::size_t len);
