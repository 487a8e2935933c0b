#include "board/i2c_bus.h"

#include <cerrno>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <mutex>
#include <vector>

#include "board/chips.h"
#include "core/control.h"
#include "core/files.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr std::size_t most_messages = 42; // the kernel's limits
constexpr std::size_t most_bytes = 8192;

std::mutex bus_mutex; // guards all chips
std::vector<chip> chips;

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
    if (p_chip == nullptr || (p_chip->p_model->powered != nullptr && !p_chip->p_model->powered(*p_chip)))
        return false;
    const chip_model& model = *p_chip->p_model;
    const std::span<std::uint8_t> bytes(msg.buf, msg.len);
    if ((msg.flags & I2C_M_RD) != 0)
        return model.give != nullptr ? model.give(*p_chip, bytes) : read_registers(*p_chip, bytes);
    return model.take != nullptr ? model.take(*p_chip, bytes) : write_registers(*p_chip, bytes);
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
    const std::lock_guard lock(bus_mutex);
    for (i2c_msg& msg : messages) {
        if (!carry_out(bus_of(file), msg)) {
            errno = ENXIO;
            return -1;
        }
    }
    return static_cast<int>(messages.size());
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

constexpr node i2c_node = {.ioctl = i2c_ioctl};

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
    std::uint8_t& value = p_chip->val[*reg];
    if (rq.args.size() == 3) {
        put_hex(rq.answer, value);
        return {};
    }
    const auto wanted = hex_number(rq.args[3]);
    if (!wanted || *wanted > 0xFF)
        return "a hexadecimal value of one byte is wanted, not \"" + rq.args[3] + "\"";
    value = static_cast<std::uint8_t>(*wanted);
    return {};
}

} // namespace

void i2c_attach()
{
    for (const chip_model* p_model : chip_models)
        chip_reset(chips.emplace_back(chip{p_model, {}, 0, 1}));
    for (const char* path : {"/dev/i2c-2", "/dev/i2c-4", "/dev/i2c-5", "/dev/i2c-10"})
        node_add(path, &i2c_node);
    word_add("i2c", "BUS ADDR REG [VAL]", "reads or sets a register of a chip, past the bus", word_i2c);
}

chip* i2c_chip(int bus, int addr)
{
    for (chip& c : chips)
        if (c.p_model->bus == bus && c.p_model->addr == addr)
            return &c;
    return nullptr;
}

void i2c_locked(void (*work)(void* arg), void* arg)
{
    const std::lock_guard lock(bus_mutex);
    work(arg);
}

} // namespace phone
