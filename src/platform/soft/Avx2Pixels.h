// SPDX-License-Identifier: MIT
//
// Eight pixels at a time: what the vector paths share. For *Avx2.cpp and *Vectors.cpp only, where
// SCENARA_ROWS_X86 is set.
//
// The functions of a path are compiled for its processors one by one, so that nothing else of the
// program is.
#pragma once

#include <cstdint>

#include <immintrin.h>

#define AVX2 [[gnu::target("avx2,bmi")]]
#define AVX512 [[gnu::target("avx512f,avx512vl,avx2,bmi")]]

namespace scenara::soft::eight {

AVX2 inline __m256i Load(const void* words) {
    return _mm256_loadu_si256(static_cast<const __m256i_u*>(words));
}

AVX2 inline void Store(std::uint32_t* pixels, __m256i colors) {
    _mm256_storeu_si256(reinterpret_cast<__m256i_u*>(pixels), colors);
}

AVX2 inline __m256i Words(std::uint32_t value) {
    return _mm256_set1_epi16(static_cast<std::int16_t>(value));
}

// The channels of each pixel in 16-bit lanes: blue and red, green and alpha.
struct Channels {
    AVX2 explicit Channels(__m256i colors)
        : low(_mm256_and_si256(colors, Words(0xFF))), high(_mm256_srli_epi16(colors, 8)) {}

    __m256i low;
    __m256i high;
};

// Pick: the texels that lie `places` behind the first of 16.
struct Avx2Picks {
    AVX2 static inline __m256i Pick(const std::uint32_t* sixteen, __m256i places) {
        const __m256i low = _mm256_permutevar8x32_epi32(Load(sixteen), places);
        const __m256i high = _mm256_permutevar8x32_epi32(Load(sixteen + 8), places);
        const __m256i isHigh = _mm256_slli_epi32(places, 28);  // 8 or more: the top bit
        return _mm256_castps_si256(_mm256_blendv_ps(
            _mm256_castsi256_ps(low), _mm256_castsi256_ps(high), _mm256_castsi256_ps(isHigh)));
    }
};

struct Avx512Picks {
    AVX512 static inline __m256i Pick(const std::uint32_t* sixteen, __m256i places) {
        return _mm256_permutex2var_epi32(Load(sixteen), places, Load(sixteen + 8));
    }
};

}  // namespace scenara::soft::eight
