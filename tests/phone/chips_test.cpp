// The chip models: one walk over all tables, and the bus that they stand behind.
#include <gtest/gtest.h>

#include <cstdint>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <string>

#include "board/chips.h"
#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "board/pm8941.h"
#include "core/control.h"
#include "core/table.h"
#include "core/watch.h"

namespace {

using namespace phone;

// The bus with all chips, attached once; each test begins with chips that have just got their supply.
struct Chips : testing::Test {
    static void SetUpTestSuite()
    {
        static const bool attached = [] {
            watch_attach();
            gpio_attach();
            i2c_attach();
            return true;
        }();
        ASSERT_TRUE(attached);
    }

    void SetUp() override
    {
        for (const chip_model* p_model : chip_models)
            chip_reset(*i2c_chip(p_model->bus, p_model->addr));
        pmic_reset();
        forget_strange();
    }

    void TearDown() override { forget_strange(); }

    static void forget_strange() { control_request("strange off"); }
    static bool strange_now() { return control_request("strange") != "ok\n"; }
};

// A register that nothing brings to life: it holds what the table says.
bool is_plain(const reg_row& row)
{
    return row.before_read == nullptr && row.after_write == nullptr && row.after_read == nullptr &&
           row.hidden == nullptr;
}

// The chip's own registers and, counted from 1, those that keys lay over them.
std::span<const reg_row> rows_of(const chip_model& model, std::size_t shown)
{
    return shown == 0 ? model.regs : model.overlays[shown - 1];
}

TEST_F(Chips, TablesHoldEachRegisterOnceAndEachAddressOneChip)
{
    for (const chip_model* p_model : chip_models) {
        for (std::size_t shown = 0; shown <= p_model->overlays.size(); shown++) {
            int last = -1;
            for (const reg_row& row : rows_of(*p_model, shown)) {
                EXPECT_LT(last, row.addr) << p_model->name;
                last = row.addr;
            }
        }
        EXPECT_EQ(i2c_chip(p_model->bus, p_model->addr)->p_model, p_model) << p_model->name;
    }
}

void check_registers(const chip_model& model, std::size_t shown)
{
    chip& c = *i2c_chip(model.bus, model.addr);
    for (const reg_row& row : rows_of(model, shown)) {
        if (!is_plain(row))
            continue;
        SCOPED_TRACE(std::string(model.name) + " map " + std::to_string(shown) + " register " +
                     std::to_string(row.addr));
        chip_show(c, static_cast<int>(shown));
        EXPECT_EQ(chip_read(c, row.addr), row.reset);
        const std::uint8_t fixed = row.reset & ~row.writable & 0xFF;
        for (const int written : {0xFF, 0x00, 0x5A}) {
            chip_write(c, row.addr, static_cast<std::uint8_t>(written));
            EXPECT_EQ(chip_read(c, row.addr), fixed | (written & row.writable));
        }
    }
}

TEST_F(Chips, RegistersHaveTheirResetValuesAndKeepWhatCantBeWritten)
{
    for (const chip_model* p_model : chip_models)
        for (std::size_t shown = 0; shown <= p_model->overlays.size(); shown++)
            check_registers(*p_model, shown);
    EXPECT_FALSE(strange_now());
}

TEST_F(Chips, TheAddressPastTheLastReadsAsZeroAndIsStrange)
{
    for (const chip_model* p_model : chip_models) {
        if (p_model->regs.empty() || p_model->regs.back().addr == 0xFF)
            continue;
        chip& c = *i2c_chip(p_model->bus, p_model->addr);
        const auto past = static_cast<std::uint8_t>(p_model->regs.back().addr + 1);
        forget_strange();
        EXPECT_EQ(chip_read(c, past), 0) << p_model->name;
        EXPECT_TRUE(strange_now()) << p_model->name;
        forget_strange();
        chip_write(c, past, 0xA5);
        EXPECT_EQ(c.val[past], 0) << p_model->name;
        EXPECT_TRUE(strange_now()) << p_model->name;
    }
}

TEST_F(Chips, ATransferEndsWhereNothingAcknowledges)
{
    std::uint8_t first[] = {0x38, 0x44};
    std::uint8_t second[] = {0x39, 0x55};
    i2c_msg messages[] = {{0x18, 0, 2, first}, {0x19, 0, 2, second}, {0x18, 0, 2, second}};
    i2c_rdwr_ioctl_data data{messages, 3};
    EXPECT_EQ(phone_co.ioctl(phone_co.open("/dev/i2c-5", O_RDWR, 0), I2C_RDWR, &data), -1);
    EXPECT_EQ(std::tuple(i2c_chip(5, 0x18)->val[0x38], i2c_chip(5, 0x18)->val[0x39]), std::tuple(0x44, 0x00));
}

TEST_F(Chips, ThePowerChipKeepsItsTableAndItsIdentities)
{
    for (const pmic_row& row : pmic_rows()) {
        if (row.before_read != nullptr || row.after_write != nullptr)
            continue;
        std::uint8_t value;
        ASSERT_TRUE(pmic_bus_read(row.addr, value));
        EXPECT_EQ(value, row.reset) << std::hex << row.addr;
        ASSERT_TRUE(pmic_bus_write(row.addr, static_cast<std::uint8_t>(~row.reset)));
        EXPECT_EQ(pmic_get(row.addr), row.reset ^ row.writable) << std::hex << row.addr;
    }
    EXPECT_TRUE(pmic_bus_write(0x1D804, 0x55)); // the type of the LED strings
    EXPECT_EQ(pmic_get(0x1D804), 0x1B);
    EXPECT_FALSE(strange_now());
    std::uint8_t value = 0xAA;
    EXPECT_TRUE(pmic_bus_read(0x07000, value)); // no peripheral has its base here
    EXPECT_EQ(value, 0);
    EXPECT_TRUE(strange_now());
    EXPECT_FALSE(pmic_bus_read(0x20000, value)); // no slave 2
    EXPECT_FALSE(pmic_bus_write(0xF0000, 1));
}

} // namespace
