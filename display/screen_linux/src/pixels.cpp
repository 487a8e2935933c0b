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

constexpr size_t REGISTER = 8; // words
constexpr size_t BLOCK = 4 * REGISTER;

// Covers `n` words, at least a block, by blocks: one at the start, one at the end, and between them those
// that lie as wide registers like them. Blocks overlap, which costs less than loops for the rests.
template <class Block>
[[gnu::always_inline]] inline void by_blocks(const uint32_t* p, size_t n, Block block)
{
    block(0);
    for (size_t i = BLOCK - reinterpret_cast<std::uintptr_t>(p) / sizeof *p % REGISTER; i + BLOCK < n;
         i += BLOCK)
        block(i);
    block(n - BLOCK);
}

// Each loop stands here once. Inlined into a function for wider registers it is compiled for those.
[[gnu::always_inline]] inline void fill_loop(uint32_t* p, size_t n, uint32_t word)
{
    if (n < BLOCK) {
        for (size_t i = 0; i < n; i++)
            p[i] = word;
        return;
    }
    by_blocks(
        p, n, [=](size_t i) __attribute__((always_inline)) {
            for (size_t j = 0; j < BLOCK; j++)
                p[i + j] = word;
        });
}

[[gnu::always_inline]] inline void copy_loop(uint32_t* __restrict p, const uint32_t* __restrict p_src,
                                             size_t n, uint32_t tint)
{
    if (n < BLOCK) {
        for (size_t i = 0; i < n; i++)
            p[i] = (p_src[i] & 0xFFFFFF) | tint;
        return;
    }
    by_blocks(
        p, n, [=](size_t i) __attribute__((always_inline)) {
            uint32_t* __restrict p_to = p + i;
            const uint32_t* __restrict p_from = p_src + i;
            for (size_t j = 0; j < BLOCK; j++)
                p_to[j] = (p_from[j] & 0xFFFFFF) | tint;
        });
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

// The 8 words at `p` where a bit of the byte of `bits` is set: `shift` brings each bit to the top of its
// lane.
__attribute__((target("avx2"))) inline void mask_register(uint32_t* p, uint32_t bits, __m256i shift,
                                                          __m256 words)
{
    auto* at = reinterpret_cast<float*>(p); // for the blend by sign bits, which there is for floats alone
    const __m256i set = _mm256_sllv_epi32(_mm256_set1_epi32(static_cast<int>(bits)), shift);
    _mm256_storeu_ps(at, _mm256_blendv_ps(_mm256_loadu_ps(at), words, _mm256_castsi256_ps(set)));
}

__attribute__((target("avx2"))) void mask_avx2(uint32_t* p, size_t n, const uint8_t* p_bits, uint32_t word)
{
    const __m256i shift_0 = _mm256_setr_epi32(31, 30, 29, 28, 27, 26, 25, 24);
    const __m256i shift_1 = _mm256_sub_epi32(shift_0, _mm256_set1_epi32(8));
    const __m256i shift_2 = _mm256_sub_epi32(shift_1, _mm256_set1_epi32(8));
    const __m256i shift_3 = _mm256_sub_epi32(shift_2, _mm256_set1_epi32(8));
    const __m256 words = _mm256_castsi256_ps(_mm256_set1_epi32(static_cast<int>(word)));
    size_t i = 0;
    for (; i + BLOCK <= n; i += BLOCK) {
        uint32_t bits;
        std::memcpy(&bits, p_bits + i / 8, sizeof bits);
        if (bits == 0)
            continue;
        mask_register(p + i, bits, shift_0, words);
        mask_register(p + i + 8, bits, shift_1, words);
        mask_register(p + i + 16, bits, shift_2, words);
        mask_register(p + i + 24, bits, shift_3, words);
    }
    for (; i + REGISTER <= n; i += REGISTER)
        mask_register(p + i, p_bits[i / 8], shift_0, words);
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
