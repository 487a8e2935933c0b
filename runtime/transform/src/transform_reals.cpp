// The transform of real values. What the loops of transform_fft make of n values is, for most n, the exact
// transform of `size` values: those that the bit reversal has moved, with zeros behind them. Of real values
// that is a transform of half as many complex ones: the first half of what the reversal gives is their real
// part, the second half the imaginary part. Real and imaginary parts lie apart, and four places are worked on
// at once.
#include <algorithm>
#include <cstring>
#include <vector>

#include "transform/transform.h"
#include "transform_tables.h"

// The loops are built into two functions, one of which may use what only newer machines have.
#define TRANSFORM_INLINE [[gnu::always_inline]] inline

namespace {

using pack [[gnu::vector_size(32)]] = double;
constexpr int PACK = 4;

TRANSFORM_INLINE void load(pack& v, const double* p)
{
    std::memcpy(&v, p, sizeof v);
}

TRANSFORM_INLINE void store(double* p, const pack& v)
{
    std::memcpy(p, &v, sizeof v);
}

// Four complex values at once.
struct packs {
    pack re;
    pack im;
};

struct halves {
    double* re;
    double* im;
};

struct factors_at {
    const double* re;
    const double* im;
};

template <typename Halves>
TRANSFORM_INLINE void load(packs& v, Halves x, int at)
{
    load(v.re, x.re + at);
    load(v.im, x.im + at);
}

TRANSFORM_INLINE void store(halves x, int at, const pack& re, const pack& im)
{
    store(x.re + at, re);
    store(x.im + at, im);
}

// v times the factors at `at`.
TRANSFORM_INLINE void turn(packs& v, factors_at factors, int at)
{
    packs w;
    load(w, factors, at);
    const pack re = v.re * w.re - v.im * w.im;
    v.im = v.re * w.im + v.im * w.re;
    v.re = re;
}

// Stores four rows as columns.
TRANSFORM_INLINE void store_columns(double* p, const pack& a, const pack& b, const pack& c, const pack& d)
{
    const pack ab_even = __builtin_shufflevector(a, b, 0, 4, 2, 6);
    const pack ab_odd = __builtin_shufflevector(a, b, 1, 5, 3, 7);
    const pack cd_even = __builtin_shufflevector(c, d, 0, 4, 2, 6);
    const pack cd_odd = __builtin_shufflevector(c, d, 1, 5, 3, 7);
    store(p, __builtin_shufflevector(ab_even, cd_even, 0, 1, 4, 5));
    store(p + 4, __builtin_shufflevector(ab_odd, cd_odd, 0, 1, 4, 5));
    store(p + 8, __builtin_shufflevector(ab_even, cd_even, 2, 3, 6, 7));
    store(p + 12, __builtin_shufflevector(ab_odd, cd_odd, 2, 3, 6, 7));
}

// The first two stages, whose factors are 1 and i, from values that lie by their place in a group of four.
TRANSFORM_INLINE void first_pass(int half, halves from, halves x)
{
    const int quarter = half / 4;
    for (int i = 0; i < quarter; i += PACK) {
        packs a, b, c, d;
        load(a, from, i);
        load(b, from, i + quarter);
        load(c, from, i + 2 * quarter);
        load(d, from, i + 3 * quarter);
        const packs sum = {a.re + b.re, a.im + b.im}, diff = {a.re - b.re, a.im - b.im};
        const packs sum2 = {c.re + d.re, c.im + d.im}, diff2 = {c.re - d.re, c.im - d.im};
        store_columns(x.re + 4 * i, sum.re + sum2.re, diff.re - diff2.im, sum.re - sum2.re,
                      diff.re + diff2.im);
        store_columns(x.im + 4 * i, sum.im + sum2.im, diff.im + diff2.re, sum.im - sum2.im,
                      diff.im - diff2.re);
    }
}

// Two stages at once: each m values of the four quarters of a block with each other.
TRANSFORM_INLINE void pass(int m, halves x, factors_at factors)
{
    for (int k = 0; k < m; k += PACK) {
        packs a, b, c, d;
        load(a, x, k);
        load(b, x, k + m);
        load(c, x, k + 2 * m);
        load(d, x, k + 3 * m);
        turn(b, factors, k);
        turn(c, factors, k + m);
        turn(d, factors, k + 2 * m);
        const packs sum = {a.re + b.re, a.im + b.im}, diff = {a.re - b.re, a.im - b.im};
        const packs sum2 = {c.re + d.re, c.im + d.im}, diff2 = {c.re - d.re, c.im - d.im};
        store(x, k, sum.re + sum2.re, sum.im + sum2.im);
        store(x, k + m, diff.re - diff2.im, diff.im + diff2.re);
        store(x, k + 2 * m, sum.re - sum2.re, sum.im - sum2.im);
        store(x, k + 3 * m, diff.re + diff2.im, diff.im - diff2.re);
    }
}

// The one stage that is left when their number is odd.
TRANSFORM_INLINE void last_stage(int m, halves x, factors_at factors)
{
    for (int k = 0; k < m; k += PACK) {
        packs a, b;
        load(a, x, k);
        load(b, x, k + m);
        turn(b, factors, k);
        store(x, k, a.re + b.re, a.im + b.im);
        store(x, k + m, a.re - b.re, a.im - b.im);
    }
}

// Parts the transforms of the even and of the odd values, which lie in one, and joins them: entries 1 to half
// - 1, four at a time, as far as `last` wants.
TRANSFORM_INLINE void join(int half, halves x, factors_at factors, int last, transform_value* p_x)
{
    for (int k = 1; k <= last; k += PACK) {
        packs a, b, w;
        load(a, x, k);
        load(b, x, half - k - (PACK - 1));
        load(w, factors, k);
        b.re = __builtin_shufflevector(b.re, b.re, 3, 2, 1, 0);
        b.im = __builtin_shufflevector(b.im, b.im, 3, 2, 1, 0);
        const packs even = {(a.re + b.re) * 0.5, (a.im - b.im) * 0.5};
        const packs odd = {(a.im + b.im) * 0.5, (b.re - a.re) * 0.5};
        const pack re = even.re + (w.re * odd.re - w.im * odd.im);
        const pack im = even.im + (w.re * odd.im + w.im * odd.re);
        double* const p = &p_x[k].re;
        store(p, __builtin_shufflevector(re, im, 0, 4, 1, 5));
        store(p + 4, __builtin_shufflevector(re, im, 2, 6, 3, 7));
    }
}

factors_at at(const transform_factors& f)
{
    return {f.re.data(), f.im.data()};
}

TRANSFORM_INLINE void passes(const transform_tables& t, halves from, halves x, int last, transform_value* p_x)
{
    const int half = t.size / 2;
    first_pass(half, from, x);
    factors_at factors = at(t.pass);
    int m = 4;
    for (; 4 * m <= half; m *= 4) {
        for (int block = 0; block < half; block += 4 * m)
            pass(m, {x.re + block, x.im + block}, factors);
        factors.re += 3 * m;
        factors.im += 3 * m;
    }
    if (m < half)
        last_stage(m, x, {at(t.stage).re + (m - 1), at(t.stage).im + (m - 1)});
    join(half, x, at(t.part), last, p_x);
}
using passes_fn = void (*)(const transform_tables& t, halves from, halves x, int last, transform_value* p_x);

void passes_plain(const transform_tables& t, halves from, halves x, int last, transform_value* p_x)
{
    passes(t, from, x, last, p_x);
}

#if defined(__x86_64__)
[[gnu::target("avx2,fma")]] void passes_wide(const transform_tables& t, halves from, halves x, int last,
                                             transform_value* p_x)
{
    passes(t, from, x, last, p_x);
}

passes_fn choose_passes()
{
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") ? passes_wide : passes_plain;
}
#else
passes_fn choose_passes()
{
    return passes_plain;
}
#endif

void plain(const transform_tables& t, const double* p_in, transform_value* p_x)
{
    for (int i = 0; i < t.n; i++)
        p_x[i] = {p_in[i], 0};
    std::fill(p_x + t.n, p_x + t.size, transform_value{});
    transform_fft(t.n, p_x, 1.0, 1.0);
}

} // namespace

void transform_reals(int n, const double* p_in, transform_value* p_x, bool whole)
{
    const auto p_tables = transform_tables_of(n);
    const transform_tables& t = *p_tables;
    if (!t.steady) {
        plain(t, p_in, p_x);
        return;
    }
    static const passes_fn passes_here = choose_passes();
    const int half = t.size / 2;
    const int room = half + PACK;          // the last four entries reach behind the end
    thread_local std::vector<double> work; // kept from call to call
    work.resize(4 * static_cast<std::size_t>(room));
    const halves from{work.data(), work.data() + half}; // one behind the other, as the places count
    std::fill(from.re, from.re + t.size, 0.0);
    const halves x{work.data() + 2 * room, work.data() + 3 * room};
    for (int i = 0; i < n; i++)
        from.re[t.place[static_cast<std::size_t>(i)]] = p_in[i];
    passes_here(t, from, x, std::min(whole ? n - 1 : n / 2, half - 1), p_x);
    p_x[0] = {x.re[0] + x.im[0], 0};
    if (n / 2 == half || (whole && n > half))
        p_x[half] = {x.re[0] - x.im[0], 0};
    for (int k = half + 1; whole && k < n; k++) {
        const transform_value& other = p_x[t.size - k]; // of real values, so the other half mirrors the one
        p_x[k] = {other.re, -other.im};
    }
}
