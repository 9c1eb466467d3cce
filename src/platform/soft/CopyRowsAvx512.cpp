// SPDX-License-Identifier: MIT
#include "platform/soft/CopyRowsPaths.h"

#if SCENARA_ROWS_X86

#include <cstdint>

#include <immintrin.h>

#include "platform/soft/CopyRowsLoops.h"

// The functions here are compiled for AVX-512 one by one, so that nothing else of the program is.
#define AVX512 [[gnu::target("avx512f,avx512vl,avx2,bmi")]]

namespace scenara::soft::rows {
namespace {

// These store what is visible and leave the rest alone, so that pixels need not be read: a tenth
// less time. The stores of AVX2 that do the same are very slow on many processors. Twice as many
// texels at a time gain nothing: visible stretches are short.
struct Avx512Blocks {
    template <bool kMirrored>
    AVX512 static inline void Mask(const std::uint32_t* texels, std::uint32_t* pixels) {
        __m256i block = _mm256_loadu_si256(reinterpret_cast<const __m256i_u*>(texels));
        if constexpr (kMirrored) {
            block = _mm256_permutevar8x32_epi32(block, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
        }
        const __mmask8 visible = _mm256_cmplt_epi32_mask(block, _mm256_setzero_si256());
        _mm256_mask_storeu_epi32(pixels, visible, block);
    }
};

}  // namespace

AVX512 void MaskAvx512(const TexelRows& rows) {
    rows.mirrored ? MaskLines<Avx512Blocks, true>(rows) : MaskLines<Avx512Blocks, false>(rows);
}

}  // namespace scenara::soft::rows

#endif
