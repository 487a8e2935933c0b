#include "board/chip.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "core/watch.h"

namespace phone {

namespace {

void unknown(const chip& c, const char* what, std::uint8_t addr)
{
    char text[96];
    std::snprintf(text, sizeof text, "%s of register %02X of %s", what, addr, c.p_model->name);
    strange(text);
}

} // namespace

void chip_reset(chip& c)
{
    c.val.fill(0);
    c.pointer = 0;
    c.step = 1;
    for (const reg_row& row : c.p_model->regs)
        c.val[row.addr] = row.reset;
    if (c.p_model->reset != nullptr)
        c.p_model->reset(c);
}

const reg_row* chip_find(const chip_model& model, std::uint8_t addr)
{
    const auto found = std::find_if(model.regs.begin(), model.regs.end(),
                                    [addr](const reg_row& row) { return row.addr == addr; });
    return found != model.regs.end() ? &*found : nullptr;
}

std::uint8_t chip_read(chip& c, std::uint8_t addr)
{
    const reg_row* const p_row = chip_find(*c.p_model, addr);
    if (p_row == nullptr) {
        unknown(c, "read", addr);
        return 0;
    }
    if (p_row->before_read != nullptr)
        p_row->before_read(c);
    const std::uint8_t value = c.val[addr];
    if (p_row->after_read != nullptr)
        p_row->after_read(c);
    return value;
}

void chip_write(chip& c, std::uint8_t addr, std::uint8_t value)
{
    const reg_row* const p_row = chip_find(*c.p_model, addr);
    if (p_row == nullptr) {
        unknown(c, "write", addr);
        return;
    }
    c.val[addr] = static_cast<std::uint8_t>((c.val[addr] & ~p_row->writable) | (value & p_row->writable));
    if (p_row->after_write != nullptr)
        p_row->after_write(c, value);
}

} // namespace phone
