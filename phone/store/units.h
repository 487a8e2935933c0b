// The persistent units as files: DIR/units, one file a unit, named by its number in eight hexadecimal digits,
// bit 31 set for the auxiliary store. A unit is replaced by renaming a whole and synced file, so that
// whatever happens it holds its old bytes or its new ones. Calls of several threads don't disturb each other.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace units {

constexpr std::uint32_t aux = 0x80000000;
constexpr std::size_t largest = 65536;

// The numbers of all units, ascending.
std::vector<std::uint32_t> list(const std::string& dir);

// Bytes of a unit; -1 when there is none.
long size(const std::string& dir, std::uint32_t unit);

// The whole unit; false when there is none or it can't be read.
bool read(const std::string& dir, std::uint32_t unit, std::string& bytes);

bool write(const std::string& dir, std::uint32_t unit, const void* p_data, std::size_t size);

// The same for the seeds of a new phone, which are laid again if the power goes before they are whole.
bool write_unsynced(const std::string& dir, std::uint32_t unit, const void* p_data, std::size_t size);

bool remove(const std::string& dir, std::uint32_t unit);

// Takes away what a power cut has left half written.
void sweep(const std::string& dir);

} // namespace units
