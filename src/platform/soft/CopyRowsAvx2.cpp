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

// Texels go as floats of the same bits, for of these the instruction chooses that looks at top
// bits.
struct Avx2Blocks {
    template <bool kMirrored>
    AVX2 static inline __m256 Load(const std::uint32_t* texels) {
        const __m256 block = _mm256_loadu_ps(reinterpret_cast<const float*>(texels));
        if constexpr (kMirrored) {
            return _mm256_permutevar8x32_ps(block, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
        }
        return block;
    }

    template <bool kMirrored>
    AVX2 static inline void Copy(const std::uint32_t* texels, std::uint32_t* pixels) {
        _mm256_storeu_ps(reinterpret_cast<float*>(pixels), Load<kMirrored>(texels));
    }

    template <bool kMirrored>
    AVX2 static inline void Mask(const std::uint32_t* texels, std::uint32_t* pixels) {
        auto* const place = reinterpret_cast<float*>(pixels);
        const __m256 over = Load<kMirrored>(texels);
        const __m256 under = _mm256_loadu_ps(place);
        _mm256_storeu_ps(place, _mm256_blendv_ps(under, over, over));
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
