#include "camera/params.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <utility>

namespace phone {

namespace {

// clang-format off
constexpr camera_parameter parameters[] = {
    // id  bytes  set    get    size
    {  1,     4,  true,  false, true  },   // preview size
    {  2,     4,  true,  false, false },   // preview format
    {  5,     4,  true,  false, true  },   // thumbnail size
    {  6,     4,  true,  false, false },   // thumbnail format
    {  8,     4,  true,  false, true  },   // picture size
    {  9,     4,  true,  false, false },   // picture format
    { 13,     4,  true,  false, false },   // flash
    { 14,     4,  true,  false, false },
    { 16,     4,  true,  false, false },   // focus mode
    { 28,     4,  true,  true,  false },   // metering mode
    { 29,   256,  true,  false, false },   // metering window
    { 40,     4,  true,  false, false },   // test pattern
    { 41,    16,  false, true,  false },   // red, green, blue, luminance
    { 42,  2048,  false, true,  false },   // the module's memory
};

constexpr std::pair<std::uint32_t, std::uint32_t> sizes[] = {
    {640, 480}, {800, 480}, {1280, 720}, {1600, 1200}, {1920, 1080}, {1944, 1720},
};

constexpr std::uint32_t reading[2][4] = {{412, 655, 387, 529}, {398, 601, 342, 488}};
constexpr std::uint32_t metering[2] = {2, 3};
constexpr std::uint8_t module_name[2][3] = {{0x4D, 0x5A, 0x31}, {0x53, 0x5A, 0x32}};
constexpr std::uint8_t module_date[2][8] = {{0x0D, 0x08, 0x15, 0x0E, 0x25, 0x33, 0x24, 0x07},
                                            {0x0D, 0x07, 0x1E, 0x09, 0x10, 0x02, 0x5C, 0x13}};
// clang-format on

constexpr std::size_t date_at = 64;

std::mutex parameters_mutex; // guards the values
std::map<std::pair<unsigned, std::uint32_t>, std::vector<std::uint8_t>> values;

} // namespace

const camera_parameter* camera_parameter_of(std::uint32_t id)
{
    const auto found = std::find_if(std::begin(parameters), std::end(parameters),
                                    [id](const camera_parameter& p) { return p.id == id; });
    return found != std::end(parameters) ? found : nullptr;
}

std::vector<std::uint8_t> camera_parameter_get(unsigned camera, std::uint32_t id)
{
    const std::lock_guard lock(parameters_mutex);
    const auto found = values.find({camera, id});
    return found != values.end() ? found->second : std::vector<std::uint8_t>();
}

void camera_parameter_set(unsigned camera, std::uint32_t id, const void* p, std::size_t size)
{
    const std::lock_guard lock(parameters_mutex);
    std::vector<std::uint8_t>& value = values[{camera, id}];
    value.resize(camera_parameter_of(id)->length);
    std::memcpy(value.data(), p, std::min(size, value.size()));
}

std::uint32_t camera_parameter_word(unsigned camera, std::uint32_t id)
{
    const std::vector<std::uint8_t> value = camera_parameter_get(camera, id);
    std::uint32_t word = 0;
    if (!value.empty())
        std::memcpy(&word, value.data(), std::min(sizeof word, value.size()));
    return word;
}

bool camera_has_size(std::uint32_t width, std::uint32_t height)
{
    return std::find(std::begin(sizes), std::end(sizes), std::pair(width, height)) != std::end(sizes);
}

void camera_parameters_start()
{
    for (unsigned n = 0; n < 2; n++) {
        std::vector<std::uint8_t> memory(camera_parameter_of(42)->length, 0xFF);
        std::copy(std::begin(module_name[n]), std::end(module_name[n]), memory.begin());
        std::copy(std::begin(module_date[n]), std::end(module_date[n]), memory.begin() + date_at);
        camera_parameter_set(n + 1, 28, &metering[n], sizeof metering[n]);
        camera_parameter_set(n + 1, 41, reading[n], sizeof reading[n]);
        camera_parameter_set(n + 1, 42, memory.data(), memory.size());
    }
}

} // namespace phone
