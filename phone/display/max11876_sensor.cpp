#include "display/max11876_sensor.h"

#include <iterator>

#include "core/text.h"

namespace phone {

namespace {

using matrix = std::array<std::array<std::int16_t, sensor_columns>, sensor_rows>;

template <class Fn>
matrix filled(Fn fn)
{
    matrix m{};
    for (int row = 0; row < sensor_rows; row++)
        for (int column = 0; column < sensor_columns; column++)
            m[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] =
                static_cast<std::int16_t>(fn(row, column));
    return m;
}

// A healthy sensor.
matrix offset = filled([](int row, int) { return 100 + row; });
matrix pixel = filled([](int, int column) { return 1000 + 2 * column; });
matrix drive = filled([](int row, int column) { return 800 + row + column; });
matrix sense = filled([](int row, int column) { return 600 + 3 * column - row; });
matrix noise =
    filled([](int row, int column) { return 1 + (row + column) % 3; }); // in frames of an odd number

struct layer {
    const char* name;
    matrix* p_nodes;
};

constexpr layer layers[] = {
    {"offset", &offset}, {"pixel", &pixel}, {"drive", &drive}, {"sense", &sense}, {"noise", &noise}};

const matrix& signal_of(frame_kind kind)
{
    switch (kind) {
    case frame_kind::drive:
        return drive;
    case frame_kind::sense:
        return sense;
    default:
        return pixel;
    }
}

struct span_of_indices {
    std::size_t first = 1;
    std::size_t last = 0; // below the first: none
};

// What a word means: a number, or all.
span_of_indices indices(const std::string& word, int count)
{
    if (word == "all")
        return {0, static_cast<std::size_t>(count - 1)};
    const std::int64_t n = number(word).value_or(-1);
    if (n < 0 || n >= count)
        return {};
    return {static_cast<std::size_t>(n), static_cast<std::size_t>(n)};
}

} // namespace

std::vector<std::uint16_t> sensor_frame(frame_kind kind, unsigned number, bool offsets_only)
{
    const matrix& signal = signal_of(kind);
    std::vector<std::uint16_t> words;
    for (std::size_t row = 0; row < sensor_rows; row++)
        for (std::size_t column = 0; column < sensor_columns; column++) {
            int value = offset[row][column];
            if (!offsets_only)
                value += signal[row][column] + (number % 2 == 1 ? noise[row][column] : 0);
            words.push_back(static_cast<std::uint16_t>(kind == frame_kind::sense ? -value : value));
        }
    return words;
}

std::string sensor_set(const std::vector<std::string>& args)
{
    constexpr std::int64_t none = INT64_MAX;
    const bool whole = args.size() == 4;
    const span_of_indices rows = whole ? indices(args[1], sensor_rows) : span_of_indices{};
    const span_of_indices columns = whole ? indices(args[2], sensor_columns) : span_of_indices{};
    const std::int64_t value = whole ? number(args[3]).value_or(none) : none;
    if (rows.last < rows.first || columns.last < columns.first || value < INT16_MIN || value > INT16_MAX)
        return "a row from 0 to 39 or all, a column from 0 to 23 or all, and a value of 16 bits are wanted";
    for (const layer& l : layers)
        if (args[0] == l.name) {
            for (std::size_t row = rows.first; row <= rows.last; row++)
                for (std::size_t column = columns.first; column <= columns.last; column++)
                    (*l.p_nodes)[row][column] = static_cast<std::int16_t>(value);
            return {};
        }
    return "offset, pixel, drive, sense or noise is wanted, not \"" + args[0] + "\"";
}

} // namespace phone
