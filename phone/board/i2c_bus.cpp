#include "board/i2c_bus.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <mutex>
#include <utility>

#include "board/chips.h"
#include "board/gpio.h"
#include "core/control.h"
#include "core/files.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr std::size_t most_messages = 42; // the kernel's limits
constexpr std::size_t most_bytes = 8192;

// Guards all chips. One that moves a line may thereby take away the supply of another one, and its own.
std::recursive_mutex bus_mutex;
std::deque<chip> chips; // they stay where they are

void put_hex(std::string& text, unsigned value)
{
    constexpr char digits[] = "0123456789ABCDEF";
    text += digits[value >> 4 & 15];
    text += digits[value & 15];
}

// A register that the bench has made to fail: its byte isn't acknowledged.
bool fails(const chip& c, std::uint8_t reg)
{
    std::string target = "i2c " + std::to_string(c.p_model->bus) + ' ';
    put_hex(target, static_cast<unsigned>(c.p_model->addr));
    target += ' ';
    put_hex(target, reg);
    return watch_target(target);
}

bool write_registers(chip& c, std::span<const std::uint8_t> message)
{
    if (message.empty())
        return true;
    c.step = 1;
    if (c.p_model->command == nullptr)
        c.pointer = message[0];
    else if (!c.p_model->command(c, message[0]))
        return true;
    for (const std::uint8_t value : message.subspan(1)) {
        if (fails(c, c.pointer))
            return false;
        const std::uint8_t addr = c.pointer;
        c.pointer = static_cast<std::uint8_t>(c.pointer + c.step);
        chip_write(c, addr, value);
    }
    return true;
}

bool read_registers(chip& c, std::span<std::uint8_t> message)
{
    for (std::uint8_t& value : message) {
        if (fails(c, c.pointer))
            return false;
        value = chip_read(c, c.pointer);
        c.pointer = static_cast<std::uint8_t>(c.pointer + c.step);
    }
    return true;
}

// Carries out one message: false is no acknowledge.
bool carry_out(int bus, i2c_msg& msg)
{
    chip* const p_chip = i2c_chip(bus, msg.addr);
    if (p_chip == nullptr || !p_chip->supplied)
        return false;
    const chip_model& model = *p_chip->p_model;
    if (model.silent != nullptr && model.silent(*p_chip))
        return false;
    const std::span<std::uint8_t> bytes(msg.buf, msg.len);
    if ((msg.flags & I2C_M_RD) != 0)
        return model.give != nullptr ? model.give(*p_chip, bytes) : read_registers(*p_chip, bytes);
    return model.take != nullptr ? model.take(*p_chip, bytes) : write_registers(*p_chip, bytes);
}

// What the transfer has taken beside its bytes.
nanoseconds take_waits()
{
    nanoseconds sum = 0;
    for (chip& c : chips)
        sum += std::exchange(c.takes, 0);
    return sum;
}

// Carries out a transfer up to the first message that nobody acknowledges; false if there is one.
bool carry_out_all(int bus, std::span<i2c_msg> messages, nanoseconds& waits)
{
    const std::lock_guard lock(bus_mutex);
    const bool done = std::ranges::all_of(messages, [bus](i2c_msg& msg) { return carry_out(bus, msg); });
    waits = take_waits();
    return done;
}

int bus_of(const open_file& file)
{
    return static_cast<int>(number(file.path.substr(file.path.rfind('-') + 1)).value_or(-1));
}

int transfer(open_file& file, const i2c_rdwr_ioctl_data* p_data)
{
    if (p_data == nullptr || p_data->nmsgs == 0 || p_data->nmsgs > most_messages) {
        errno = EINVAL;
        return -1;
    }
    const std::span<i2c_msg> messages(p_data->msgs, p_data->nmsgs);
    for (const i2c_msg& msg : messages) {
        if ((msg.flags & ~I2C_M_RD) != 0)
            strange(file.path + " message flags " + std::to_string(msg.flags));
        if (msg.len > most_bytes || (msg.flags & ~I2C_M_RD) != 0 || msg.addr > 0x7F) {
            errno = EINVAL;
            return -1;
        }
    }
    nanoseconds waits = 0;
    const bool done = carry_out_all(bus_of(file), messages, waits);
    if (waits > 0)
        clock_sleep_until(clock_now(CLOCK_MONOTONIC) + waits);
    if (done)
        return static_cast<int>(messages.size());
    errno = ENXIO;
    return -1;
}

int i2c_ioctl(open_file& file, unsigned long request, void* arg)
{
    switch (request) {
    case I2C_RDWR:
        return transfer(file, static_cast<const i2c_rdwr_ioctl_data*>(arg));
    case I2C_TIMEOUT:
    case I2C_RETRIES:
        return 0;
    default:
        strange("ioctl " + file.path + " request " + std::to_string(request));
        errno = ENOTTY;
        return -1;
    }
}

// Of a transfer the address and the register with which it begins.
std::string i2c_about(unsigned long request, const void* arg)
{
    if (request != I2C_RDWR)
        return request == I2C_TIMEOUT ? "timeout" : "retries";
    const auto* const p_data = static_cast<const i2c_rdwr_ioctl_data*>(arg);
    if (p_data == nullptr || p_data->nmsgs == 0)
        return "nothing";
    const i2c_msg& first = p_data->msgs[0];
    std::string text;
    put_hex(text, first.addr);
    if ((first.flags & I2C_M_RD) == 0 && first.len > 0) {
        text += ' ';
        put_hex(text, first.buf[0]);
    }
    return text;
}

constexpr node i2c_node = {.ioctl = i2c_ioctl, .about = i2c_about};

std::string word_i2c(request& rq)
{
    if (rq.args.size() != 3 && rq.args.size() != 4)
        return "BUS ADDR REG [VAL] is wanted";
    const auto bus = number(rq.args[0]);
    const auto addr = hex_number(rq.args[1]);
    const auto reg = hex_number(rq.args[2]);
    if (!bus || !addr || !reg || *reg > 0xFF)
        return "bus " + rq.args[0] + ", address " + rq.args[1] + ", register " + rq.args[2] +
               ": a decimal and two hexadecimal numbers are wanted";
    const std::lock_guard lock(bus_mutex);
    chip* const p_chip = *addr <= 0x7F && *bus >= 0 && *bus <= 255
                             ? i2c_chip(static_cast<int>(*bus), static_cast<int>(*addr))
                             : nullptr;
    if (p_chip == nullptr)
        return "nothing is at address " + rq.args[1] + " of bus " + rq.args[0];
    const auto at = static_cast<std::uint8_t>(*reg);
    if (rq.args.size() == 3) {
        put_hex(rq.answer, chip_look(*p_chip, at));
        return {};
    }
    const auto wanted = hex_number(rq.args[3]);
    if (!wanted || *wanted > 0xFF)
        return "a hexadecimal value of one byte is wanted, not \"" + rq.args[3] + "\"";
    const reg_row* const p_row = chip_find(*p_chip, at);
    if (p_row != nullptr && p_row->before_read != nullptr)
        return "register " + rq.args[2] + " shows what is true, and can't be set";
    chip_value(*p_chip, at) = static_cast<std::uint8_t>(*wanted);
    return {};
}

// A line of somebody's supply has moved.
void supply_moved(unsigned, int)
{
    const std::lock_guard lock(bus_mutex);
    for (chip& c : chips) {
        const bool supplied = chip_has_supply(c);
        if (supplied == c.supplied)
            continue;
        c.supplied = supplied;
        if (supplied)
            chip_reset(c);
        if (c.p_model->supply_changed != nullptr)
            c.p_model->supply_changed(c, supplied);
    }
}

} // namespace

void i2c_attach()
{
    for (const chip_model* p_model : chip_models)
        i2c_put(p_model);
    for (const char* path : {"/dev/i2c-2", "/dev/i2c-4", "/dev/i2c-5", "/dev/i2c-10"})
        node_add(path, &i2c_node);
    watch_target_add("i2c", {target_number::decimal, target_number::hex2, target_number::hex2});
    word_add("i2c", "BUS ADDR REG [VAL]",
             "reads or sets a register of a chip, past the bus: a look changes nothing, and what shows a "
             "truth can't be set",
             word_i2c);
}

void i2c_put(const chip_model* p_model)
{
    chip& c = chips.emplace_back();
    c.p_model = p_model;
    chip_reset(c);
    c.supplied = chip_has_supply(c);
    for (const supply_line& s : p_model->supply)
        gpio_listen(s.line, supply_moved);
}

chip* i2c_chip(int bus, int addr)
{
    for (chip& c : chips)
        if (c.p_model->bus == bus && c.p_model->addr == addr)
            return &c;
    return nullptr;
}

void i2c_locked(const std::function<void()>& work)
{
    const std::lock_guard lock(bus_mutex);
    work();
}

} // namespace phone
