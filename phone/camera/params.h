// The parameters of the camera service: which there are, how long each is, what each camera has.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace phone {

struct camera_parameter {
    std::uint32_t id;
    std::uint32_t length; // bytes
    bool settable, readable;
    bool is_size; // 16-bit width and height, one of the sensor's
};

// Null for one that the service doesn't have.
const camera_parameter* camera_parameter_of(std::uint32_t id);

// What camera 1 or 2 has; empty for one that was never set. Serialised in here.
std::vector<std::uint8_t> camera_parameter_get(unsigned camera, std::uint32_t id);
void camera_parameter_set(unsigned camera, std::uint32_t id, const void* p, std::size_t size);

// The low 32 bits of one, 0 for none; width and height of one that is a size.
std::uint32_t camera_parameter_word(unsigned camera, std::uint32_t id);

// Whether the sensor has pictures of this size.
bool camera_has_size(std::uint32_t width, std::uint32_t height);

void camera_parameters_start(); // the readings and the memory of healthy modules

} // namespace phone
