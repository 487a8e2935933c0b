// The touch sensor's nodes, and what a frame of each kind holds. No lock: the controller's.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace phone {

constexpr int sensor_rows = 40;
constexpr int sensor_columns = 24;

enum class frame_kind { raw, drive, sense };

// The nodes of a frame, row by row, as 16-bit words; `offsets_only` without signal and noise.
std::vector<std::uint16_t> sensor_frame(frame_kind kind, unsigned number, bool offsets_only);

// The words "offset|pixel|drive|sense|noise ROW|all COLUMN|all VALUE"; empty, or what is wrong.
std::string sensor_set(const std::vector<std::string>& args);

} // namespace phone
