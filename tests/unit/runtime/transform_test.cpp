// The transform against a plain sum, and what it does with a length that isn't a power of two.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "transform/transform.h"

namespace {

using spectrum = std::vector<transform_value>;

double magnitude(const transform_value& x)
{
    return std::hypot(x.re, x.im);
}

// Numbers that have nothing to do with each other.
spectrum noise(int n)
{
    spectrum x(static_cast<std::size_t>(n));
    unsigned state = 12345;
    for (transform_value& v : x) {
        state = state * 1664525 + 1013904223;
        v = {static_cast<double>(state >> 16) - 32768, static_cast<double>(state & 0xFFFF) - 32768};
    }
    return x;
}

TEST(Transform, IsTheSumThatDefinesIt)
{
    constexpr int n = 64;
    for (const double sign : {1.0, -1.0}) {
        const spectrum x = noise(n);
        spectrum y = x;
        transform_fft(n, y.data(), sign, 1.0);
        for (int k = 0; k < n; k++) {
            std::complex<double> sum;
            for (int i = 0; i < n; i++)
                sum += std::complex<double>(x[static_cast<std::size_t>(i)].re,
                                            x[static_cast<std::size_t>(i)].im) *
                       std::polar(1.0, sign * 2 * std::numbers::pi * i * k / n);
            EXPECT_NEAR(y[static_cast<std::size_t>(k)].re, sum.real(), 1e-6) << k;
            EXPECT_NEAR(y[static_cast<std::size_t>(k)].im, sum.imag(), 1e-6) << k;
        }
    }
}

TEST(Transform, ScalesWhatTheReversalMoves)
{
    constexpr int n = 32;
    spectrum x = noise(n);
    spectrum y = x;
    transform_fft(n, x.data(), 1.0, 1.0);
    transform_fft(n, y.data(), 1.0, 0.25);
    for (std::size_t k = 0; k < n; k++)
        EXPECT_NEAR(y[k].re, x[k].re / 4, 1e-6);
}

// A stereo capture of 1000 Hz at 48 kHz, both channels in a row.
TEST(Transform, FindsAToneInALengthThatIsNoPowerOfTwoAndStaysBelowTheNext)
{
    constexpr int n = 3840;
    constexpr std::size_t room = 4096;
    spectrum x(room + 1, transform_value{});
    for (int i = 0; i < n; i++) {
        const double window = (1 - std::cos(2 * std::numbers::pi * i / (n - 1))) / 2;
        x[static_cast<std::size_t>(i)].re = 10000 * std::sin(2 * std::numbers::pi * (i / 2) / 48) * window;
    }
    x[room] = {4711, 4712};
    transform_fft(n, x.data(), 1.0, 1.0);
    const auto peak = std::max_element(x.begin() + 1, x.begin() + n / 2, [](const auto& a, const auto& b) {
        return magnitude(a) < magnitude(b);
    });
    EXPECT_EQ(peak - x.begin(), 40);
    EXPECT_EQ(x[room].re, 4711);
    EXPECT_EQ(x[room].im, 4712);
}

TEST(Transform, LeavesASingleValueAlone)
{
    transform_value x = {3, 4};
    transform_fft(1, &x, 1.0, 1.0);
    EXPECT_EQ(x.re, 3);
    EXPECT_EQ(x.im, 4);
    transform_fft(0, &x, 1.0, 1.0);
    EXPECT_EQ(x.re, 3);
}

} // namespace
