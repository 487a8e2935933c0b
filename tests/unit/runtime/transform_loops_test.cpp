// The transform against the loops that it stands for, taken word for word.
#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <numbers>
#include <random>
#include <vector>

#include "transform/transform.h"
#include "unit/runtime/transform_loops.h"

namespace {

std::vector<transform_value> noise(int n)
{
    std::mt19937 random(static_cast<unsigned>(n));
    std::vector<transform_value> x(2 * static_cast<std::size_t>(n));
    for (int i = 0; i < n; i++)
        x[static_cast<std::size_t>(i)] = {static_cast<double>(random() % 65536) - 32768, 0};
    return x;
}

double difference(const transform_value& a, const transform_value& b)
{
    return std::max(std::abs(a.re - b.re), std::abs(a.im - b.im));
}

} // namespace

// Powers of two, the blocks that granted rates make (80 waves of 8 to 48 samples), and lengths at which the
// loops pass over pairs behind n.
TEST(transform_loops, is_what_the_loops_make)
{
    for (const int n : {1,   2,   3,   7,    16,   17,   31,   32,   48,   64,   96,  150,
                        640, 880, 882, 1000, 1280, 1760, 2048, 2560, 3520, 3840, 4096}) {
        const auto count = static_cast<std::size_t>(n);
        std::vector<transform_value> wanted = noise(n);
        std::vector<double> reals(count);
        for (std::size_t i = 0; i < count; i++)
            reals[i] = wanted[i].re;
        std::vector<transform_value> whole(2 * count);
        std::vector<transform_value> half(2 * count);
        std::vector<transform_value> got = wanted;
        std::vector<transform_value> back = noise(n);
        std::vector<transform_value> wanted_back = back;
        transform_loops(n, wanted.data(), 1.0, 1.0);
        transform_loops(n, wanted_back.data(), -1.0, 0.25);
        transform_fft(n, got.data(), 1.0, 1.0);
        transform_fft(n, back.data(), -1.0, 0.25);
        transform_reals(n, reals.data(), whole.data(), true);
        transform_reals(n, reals.data(), half.data(), false);
        for (std::size_t i = 0; i < got.size(); i++) {
            ASSERT_EQ(difference(got[i], wanted[i]), 0) << n << " " << i;
            ASSERT_EQ(difference(back[i], wanted_back[i]), 0) << n << " " << i;
        }
        for (std::size_t i = 0; i < count; i++)
            ASSERT_LT(difference(whole[i], wanted[i]), 1e-7) << n << " " << i;
        for (std::size_t i = 0; i <= count / 2; i++)
            ASSERT_EQ(difference(half[i], whole[i]), 0) << n << " " << i;
    }
}

// Of a power of two it is the discrete Fourier transform, as the plain sum gives it; nothing at all stays so.
TEST(transform_loops, is_the_sum_that_defines_it)
{
    constexpr int n = 64;
    for (const double sign : {1.0, -1.0}) {
        std::vector<transform_value> x = noise(n);
        for (std::size_t i = 0; i < n; i++)
            x[i].im = x[n - 1 - i].re / 3;
        std::vector<transform_value> y = x;
        transform_fft(n, y.data(), sign, 1.0);
        for (std::size_t k = 0; k < n; k++) {
            std::complex<double> sum;
            for (std::size_t i = 0; i < n; i++)
                sum += std::complex(x[i].re, x[i].im) *
                       std::polar(1.0, sign * 2 * std::numbers::pi * static_cast<double>(i * k) / n);
            EXPECT_NEAR(y[k].re, sum.real(), 1e-6) << k;
            EXPECT_NEAR(y[k].im, sum.imag(), 1e-6) << k;
        }
    }
    transform_value alone = {3, 4};
    transform_fft(0, &alone, 1.0, 1.0);
    EXPECT_EQ(alone.re, 3);
}
