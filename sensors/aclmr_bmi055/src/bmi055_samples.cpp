#include "bmi055_samples.h"

#include <cstdio>
#include <cstring>

#include "aclmr/aclmr.h"
#include "tmr/tmr.h"

namespace {

constexpr std::uint8_t REG_QUEUE_MODE = 0x3E;
constexpr std::uint8_t REG_QUEUE = 0x3F;
constexpr std::uint8_t QUEUE_XYZ = 0x40;

constexpr std::uint32_t LONGEST_WAIT_US = 1000000;
constexpr std::uint32_t US_PER_UNIT = 100;

struct sample {
    float x;
    float y;
    float z;
};

int raw(std::uint8_t msb, std::uint8_t lsb)
{
    const int r = msb * 16 + (lsb >> 4);
    return r >= 2048 ? r - 4096 : r;
}

std::int16_t aclmr_bmi055_dec2mg(std::uint8_t msb, std::uint8_t lsb)
{
    return static_cast<std::int16_t>(static_cast<float>(raw(msb, lsb)) / 1024.0F * 1000.0F);
}

float aclmr_bmi055_mg2float(std::int16_t v)
{
    const int signed_v = v >= 2048 ? v - 4096 : v;
    return static_cast<float>(signed_v) / 1024.0F * 1000.0F;
}

// The next sample of the queue. False when there is none, which reads as zeros: a free fall can't be told
// from it.
bool next_sample(const i2c_handle* p_hnd, sample* p_out)
{
    std::uint8_t bytes[6] = {};
    if (i2c_read(p_hnd, bytes, sizeof bytes) < 0) {
        std::memset(bytes, 0, sizeof bytes);
        tmr_msleep(1); // a transfer takes its time, but one that fails may not
    }
    *p_out = {bmi055_float(bytes[1], bytes[0]), bmi055_float(bytes[3], bytes[2]),
              bmi055_float(bytes[5], bytes[4])};
    return p_out->x != 0 || p_out->y != 0 || p_out->z != 0;
}

// Waits for a sample that comes within a second of `last`. An empty reading gives up only if it began after
// that: a phone that was busy for a second hasn't looked at its queue yet.
bool wait_for_sample(const i2c_handle* p_hnd, std::uint32_t last, sample* p_out)
{
    for (;;) {
        const bool late = tmr_get() - last > LONGEST_WAIT_US;
        if (next_sample(p_hnd, p_out))
            return true;
        if (late)
            return false;
    }
}

std::int16_t elapsed(std::uint32_t now, std::uint32_t last)
{
    const auto now_units = static_cast<std::uint16_t>(now / US_PER_UNIT);
    const auto last_units = static_cast<std::uint16_t>(last / US_PER_UNIT);
    return static_cast<std::int16_t>(now_units - last_units);
}

} // namespace

float bmi055_float(std::uint8_t msb, std::uint8_t lsb)
{
    return aclmr_bmi055_mg2float(aclmr_bmi055_dec2mg(msb, lsb));
}

float bmi055_float_8g(std::uint8_t msb, std::uint8_t lsb)
{
    return static_cast<float>(raw(msb, lsb)) / 256.0F * 1000.0F;
}

int bmi055_samples(const i2c_handle* p_hnd, int count, char* text)
{
    i2c_write_reg8(p_hnd, REG_QUEUE_MODE, QUEUE_XYZ);
    i2c_write(p_hnd, &REG_QUEUE, 1);
    *text = '\0';
    std::uint32_t last = tmr_get();
    for (int i = 0; i < count; i++) {
        sample s;
        if (!wait_for_sample(p_hnd, last, &s))
            return 0;
        const std::uint32_t now = tmr_get();
        text +=
            std::snprintf(text, ACLMR_SAMPLE_TEXT + 1, "%d,%.0f,%.0f,%.0f,", i == 0 ? 0 : elapsed(now, last),
                          static_cast<double>(s.x), static_cast<double>(s.y), static_cast<double>(s.z));
        last = now;
    }
    return 1;
}
