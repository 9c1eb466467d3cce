// SPDX-License-Identifier: MIT
#include "platform/soft/RowPaths.h"

#if SCENARA_ROWS_X86

#include <cstddef>
#include <cstdint>

#include <immintrin.h>

#include "platform/soft/Coverage.h"

// The functions of a path are compiled for its processors one by one, so that nothing else of the
// program is.
#define AVX2 [[gnu::target("avx2,bmi")]]
#define AVX512 [[gnu::target("avx512f,avx512vl,avx2,bmi")]]

namespace scenara::soft::rows {
namespace {

struct Avx2Pick {
    AVX2 static inline void Pick(const std::uint32_t* line, const std::int32_t* places,
                                 std::uint32_t* texels) {
        const auto* const sixteen = reinterpret_cast<const __m256i_u*>(line);
        const __m256i place = _mm256_loadu_si256(reinterpret_cast<const __m256i_u*>(places));
        const __m256i low = _mm256_permutevar8x32_epi32(_mm256_loadu_si256(sixteen), place);
        const __m256i high = _mm256_permutevar8x32_epi32(_mm256_loadu_si256(sixteen + 1), place);
        const __m256i isHigh = _mm256_slli_epi32(place, 28);  // 8 or more: the top bit
        const __m256 picked = _mm256_blendv_ps(_mm256_castsi256_ps(low), _mm256_castsi256_ps(high),
                                               _mm256_castsi256_ps(isHigh));
        _mm256_storeu_ps(reinterpret_cast<float*>(texels), picked);
    }
};

struct Avx512Pick {
    AVX512 static inline void Pick(const std::uint32_t* line, const std::int32_t* places,
                                   std::uint32_t* texels) {
        const auto* const sixteen = reinterpret_cast<const __m256i_u*>(line);
        const __m256i place = _mm256_loadu_si256(reinterpret_cast<const __m256i_u*>(places));
        _mm256_storeu_si256(reinterpret_cast<__m256i_u*>(texels),
                            _mm256_permutex2var_epi32(_mm256_loadu_si256(sixteen), place,
                                                      _mm256_loadu_si256(sixteen + 1)));
    }
};

template <typename Blocks>
[[gnu::always_inline]] inline void PickBlocks(const PickedBlocks& picked, std::uint64_t blocks,
                                              const std::uint32_t* line, const std::uint32_t* ahead,
                                              std::uint32_t* texels) {
    while (blocks != 0) {
        const auto block = static_cast<std::ptrdiff_t>(__builtin_ctzll(blocks));
        blocks &= blocks - 1;
        const std::ptrdiff_t base = picked.bases[block];
        __builtin_prefetch(ahead + base);
        Blocks::Pick(line + base, picked.places + block * kBlockTexels,
                     texels + picked.begins[block]);
    }
}

}  // namespace

AVX2 void PickAvx2(const PickedBlocks& picked, std::uint64_t blocks, const std::uint32_t* line,
                   const std::uint32_t* ahead, std::uint32_t* texels) {
    PickBlocks<Avx2Pick>(picked, blocks, line, ahead, texels);
}

AVX512 void PickAvx512(const PickedBlocks& picked, std::uint64_t blocks, const std::uint32_t* line,
                       const std::uint32_t* ahead, std::uint32_t* texels) {
    PickBlocks<Avx512Pick>(picked, blocks, line, ahead, texels);
}

}  // namespace scenara::soft::rows

#endif
