#include "pixels.h"

#include <algorithm>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace {

using std::size_t;
using std::uint32_t;
using std::uint8_t;

// Each loop stands here once. Inlined into a function for wider registers it is compiled for those.
[[gnu::always_inline]] inline void fill_loop(uint32_t* p, size_t n, uint32_t word)
{
    for (size_t i = 0; i < n; i++)
        p[i] = word;
}

[[gnu::always_inline]] inline void copy_loop(uint32_t* __restrict p, const uint32_t* __restrict p_src,
                                             size_t n, uint32_t tint)
{
    for (size_t i = 0; i < n; i++)
        p[i] = (p_src[i] & 0xFFFFFF) | tint;
}

[[gnu::always_inline]] inline void mask_rest(uint32_t* p, size_t n, const uint8_t* p_bits, uint32_t word)
{
    for (size_t i = 0; i < n; i++)
        if ((p_bits[i / 8] >> (i % 8) & 1) != 0)
            p[i] = word;
}

[[gnu::always_inline]] inline void bgr_rest(uint32_t* p, const uint8_t* p_src, size_t n)
{
    for (size_t i = 0; i < n; i++, p_src += 3)
        p[i] = static_cast<uint32_t>(p_src[0] | p_src[1] << 8 | p_src[2] << 16);
}

void fill_plain(uint32_t* p, size_t n, uint32_t word)
{
    fill_loop(p, n, word);
}

void copy_plain(uint32_t* p, const uint32_t* p_src, size_t n, uint32_t tint)
{
    copy_loop(p, p_src, n, tint);
}

// Text is mostly background: runs without a set pixel are passed over 64 at a time, then bit by set bit.
void mask_plain(uint32_t* p, size_t n, const uint8_t* p_bits, uint32_t word)
{
    size_t i = 0;
    for (; i + 64 <= n; i += 64) {
        std::uint64_t bits;
        std::memcpy(&bits, p_bits + i / 8, sizeof bits);
        for (; bits != 0; bits &= bits - 1)
            p[i + static_cast<size_t>(__builtin_ctzll(bits))] = word;
    }
    mask_rest(p + i, n - i, p_bits + i / 8, word);
}

void bgr_plain(uint32_t* p, const uint8_t* p_src, size_t n)
{
    bgr_rest(p, p_src, n);
}

#if defined(__x86_64__)

__attribute__((target("avx2"))) void fill_avx2(uint32_t* p, size_t n, uint32_t word)
{
    fill_loop(p, n, word);
}

__attribute__((target("avx2"))) void copy_avx2(uint32_t* p, const uint32_t* p_src, size_t n, uint32_t tint)
{
    copy_loop(p, p_src, n, tint);
}

__attribute__((target("avx2"))) void mask_avx2(uint32_t* p, size_t n, const uint8_t* p_bits, uint32_t word)
{
    const __m256i bit = _mm256_setr_epi32(1, 2, 4, 8, 16, 32, 64, 128);
    const __m256i words = _mm256_set1_epi32(static_cast<int>(word));
    size_t i = 0;
    for (; i + 8 <= n; i += 8) {
        const uint8_t byte = p_bits[i / 8];
        if (byte == 0)
            continue;
        auto* at = reinterpret_cast<__m256i*>(p + i);
        const __m256i set = _mm256_cmpeq_epi32(_mm256_and_si256(_mm256_set1_epi32(byte), bit), bit);
        _mm256_storeu_si256(at, _mm256_blendv_epi8(_mm256_loadu_si256(at), words, set));
    }
    mask_rest(p + i, n - i, p_bits + i / 8, word);
}

// 8 pixels are 24 bytes: two loads that overlap bring 12 of them into each half, and the bytes of each half
// are spread over its 4 pixels. The loads reach 4 bytes too far, so the last pixels are left to the rest.
__attribute__((target("avx2"))) void bgr_avx2(uint32_t* p, const uint8_t* p_src, size_t n)
{
    const __m256i spread = _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1, //
                                            0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    size_t i = 0;
    for (; i + 10 <= n; i += 8, p_src += 24) {
        const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p_src));
        const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p_src + 12));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p + i),
                            _mm256_shuffle_epi8(_mm256_set_m128i(high, low), spread));
    }
    bgr_rest(p + i, p_src, n - i);
}

constexpr pixel_loops pixel_loops_avx2 = {fill_avx2, copy_avx2, mask_avx2, bgr_avx2};

#endif

} // namespace

constexpr pixel_loops pixel_loops_plain = {fill_plain, copy_plain, mask_plain, bgr_plain};

const pixel_loops& pixel_loops_get()
{
#if defined(__x86_64__)
    static const bool wide = __builtin_cpu_supports("avx2") != 0;
    if (wide)
        return pixel_loops_avx2;
#endif
    return pixel_loops_plain;
}
