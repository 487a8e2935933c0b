// The sensor's pseudo-random sequence: its table, and the walk that holds a picture against it and finds its
// place again behind a pixel that is wrong, dropped or doubled.
#include "camera/camera_judge.h"

#include <algorithm>
#include <array>

#include "camera_inner.h"

namespace {

constexpr std::uint8_t pn9Start[] = {0xFE, 0x01};
constexpr std::uint32_t LENGTH = CAMERA_PN9_LENGTH;
constexpr std::uint32_t FIRST_ROW = 2;

std::array<std::uint16_t, LENGTH> table;

// One step of the shift register: down by one, bit 0 and bit 5 into bit 8 (x^9 + x^5 + 1).
unsigned getNextPN9(unsigned reg)
{
    return reg >> 1 | ((reg ^ reg >> 5) & 1) << 8;
}

// The value of a pixel, 10 bits, of which the sequence fills the upper eight.
std::uint16_t pn9_binToInt(unsigned reg)
{
    return static_cast<std::uint16_t>((reg & 0xFF) * 4);
}

void createPN9()
{
    unsigned reg = pn9Start[0] | (pn9Start[1] & 1u) << 8;
    for (std::uint16_t& entry : table) {
        entry = pn9_binToInt(reg);
        for (int i = 0; i < 8; i++)
            reg = getNextPN9(reg);
    }
}

std::uint32_t after(std::uint32_t position)
{
    return position + 1 < LENGTH ? position + 1 : 0;
}

// The next place of a value from `position` on, once round the table; LENGTH for none.
std::uint32_t findValueInPN9(std::uint16_t value, std::uint32_t position)
{
    for (std::uint32_t i = 0; i < LENGTH; i++, position = after(position))
        if (table[position] == value)
            return position;
    return LENGTH;
}

enum class state { search, check, locked, resync };

struct walk {
    state at = state::search;
    std::uint32_t position = 0;
    std::uint16_t remembered = 0;
    std::int32_t errors = -1;
};

// Each takes a pixel; true when the position has gone on already.
bool search(walk& w, std::uint16_t pixel)
{
    const std::uint32_t found = findValueInPN9(pixel, 0);
    w.position = 0;
    if (found < LENGTH) {
        w.position = after(found);
        w.errors = 0;
        w.remembered = pixel;
        w.at = state::check;
    }
    return true;
}

// The first pixel stands in the table twice: if this isn't what follows the one place, it may be the other.
bool check(walk& w, std::uint16_t pixel)
{
    w.at = state::locked;
    if (pixel == table[w.position]) {
        w.position = after(w.position);
        return true;
    }
    const std::uint32_t other = findValueInPN9(w.remembered, w.position);
    if (other < LENGTH && table[after(other)] == pixel) {
        w.position = after(other);
    } else {
        w.errors++;
        w.at = state::resync;
    }
    return false;
}

bool locked(walk& w, std::uint16_t pixel)
{
    if (pixel != table[w.position]) {
        w.errors++;
        w.at = state::resync;
    }
    return false;
}

bool resync(walk& w, std::uint16_t pixel)
{
    if (pixel == table[w.position]) {
        w.at = state::locked;
        return false;
    }
    const std::uint32_t found = findValueInPN9(pixel, w.position);
    if (found < LENGTH)
        w.position = found;
    else
        w.errors++;
    return false;
}

void take(walk& w, std::uint16_t pixel)
{
    using state_fn = bool (*)(walk & w, std::uint16_t pixel);
    constexpr state_fn by_state[] = {search, check, locked, resync};
    if (!by_state[static_cast<int>(w.at)](w, pixel))
        w.position = after(w.position);
}

} // namespace

void camera_pn9_init()
{
    createPN9();
}

std::span<const std::uint16_t, CAMERA_PN9_LENGTH> camera_pn9_table()
{
    return table;
}

std::uint16_t getBufPN9(const camera_snapshot& picture, std::uint32_t x, std::uint32_t y)
{
    const std::uint64_t pixel = std::uint64_t{picture.width} * y + x;
    const std::uint64_t base = pixel / 2 * 3;
    if (picture.buffer == nullptr || base + 2 >= picture.nbr_of_bytes)
        return 0;
    const std::uint8_t* p = picture.buffer + base;
    const unsigned value = pixel % 2 == 0 ? p[0] << 4 | (p[2] & 15) : p[1] << 4 | p[2] >> 4;
    return static_cast<std::uint16_t>(value >> 2);
}

int pn9_checkTestPattern(const camera_snapshot& picture, std::uint32_t limit, std::int32_t* p_errors)
{
    walk w;
    const std::uint64_t first = std::uint64_t{FIRST_ROW} * picture.width;
    const std::uint64_t held = std::uint64_t{picture.nbr_of_bytes} / 3 * 2; // pixels
    const std::uint64_t end = std::min({std::uint64_t{picture.width} * picture.height, held, first + limit});
    for (std::uint64_t p = first; p < end; p++)
        take(w, getBufPN9(picture, static_cast<std::uint32_t>(p % picture.width),
                          static_cast<std::uint32_t>(p / picture.width)));
    *p_errors = w.errors;
    return 1;
}
