// SPDX-License-Identifier: MIT
#include "platform/soft/CopyRowsPaths.h"

#if SCENARA_ROWS_X86

#include <cstdint>

#include <immintrin.h>

#include "platform/soft/CopyRowsLoops.h"

// The functions here are compiled for AVX2 one by one, so that nothing else of the program is.
#define AVX2 [[gnu::target("avx2,bmi")]]

namespace scenara::soft::rows {
namespace {

struct Avx2Blocks {
    template <bool kMirrored>
    AVX2 static inline __m256i Load(const std::uint32_t* texels) {
        const __m256i block = _mm256_loadu_si256(reinterpret_cast<const __m256i_u*>(texels));
        if constexpr (kMirrored) {
            return _mm256_permutevar8x32_epi32(block, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
        }
        return block;
    }

    template <bool kMirrored>
    AVX2 static inline void Copy(const std::uint32_t* texels, std::uint32_t* pixels) {
        _mm256_storeu_si256(reinterpret_cast<__m256i_u*>(pixels), Load<kMirrored>(texels));
    }

    template <bool kMirrored>
    AVX2 static inline void Mask(const std::uint32_t* texels, std::uint32_t* pixels) {
        auto* const place = reinterpret_cast<__m256i_u*>(pixels);
        const __m256 over = _mm256_castsi256_ps(Load<kMirrored>(texels));
        const __m256 under = _mm256_castsi256_ps(_mm256_loadu_si256(place));
        // Of each word the top bit decides.
        _mm256_storeu_si256(place, _mm256_castps_si256(_mm256_blendv_ps(under, over, over)));
    }
};

}  // namespace

AVX2 void CopyAvx2(const TexelRows& rows) {
    rows.mirrored ? CopyLines<Avx2Blocks, true>(rows) : CopyLines<Avx2Blocks, false>(rows);
}

AVX2 void MaskAvx2(const TexelRows& rows) {
    rows.mirrored ? MaskLines<Avx2Blocks, true>(rows) : MaskLines<Avx2Blocks, false>(rows);
}

}  // namespace scenara::soft::rows

#endif
