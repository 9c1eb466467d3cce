// SPDX-License-Identifier: MIT
//
// The implementations of CopyRows.h with vector instructions.
#include "platform/soft/RowPaths.h"

#if SCENARA_ROWS_X86

#include <cstdint>

#include <immintrin.h>

#include "platform/soft/CopyRowsLoops.h"

// The functions of a path are compiled for its processors one by one, so that nothing else of the
// program is. SSE2 is of use on 32-bit x86 only, where not every processor has it.
#define SSE2 [[gnu::target("sse2")]]
#define AVX2 [[gnu::target("avx2,bmi")]]
#define AVX512 [[gnu::target("avx512f,avx512vl,avx2,bmi")]]

namespace scenara::soft::rows {
namespace {

struct Sse2Blocks {
    // Half a block.
    template <bool kMirrored>
    SSE2 static inline __m128i Load(const std::uint32_t* texels) {
        const __m128i four = _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(texels));
        return kMirrored ? _mm_shuffle_epi32(four, _MM_SHUFFLE(0, 1, 2, 3)) : four;
    }

    SSE2 static inline void MaskHalf(__m128i over, std::uint32_t* pixels) {
        auto* const place = reinterpret_cast<__m128i_u*>(pixels);
        const __m128i visible = _mm_srai_epi32(over, 31);
        const __m128i under = _mm_andnot_si128(visible, _mm_loadu_si128(place));
        _mm_storeu_si128(place, _mm_or_si128(under, _mm_and_si128(visible, over)));
    }

    template <bool kMirrored>
    SSE2 static inline void Copy(const std::uint32_t* texels, std::uint32_t* pixels) {
        auto* const place = reinterpret_cast<__m128i_u*>(pixels);
        _mm_storeu_si128(place + (kMirrored ? 1 : 0), Load<kMirrored>(texels));
        _mm_storeu_si128(place + (kMirrored ? 0 : 1), Load<kMirrored>(texels + 4));
    }

    template <bool kMirrored>
    SSE2 static inline void Mask(const std::uint32_t* texels, std::uint32_t* pixels) {
        MaskHalf(Load<kMirrored>(texels), pixels + (kMirrored ? 4 : 0));
        MaskHalf(Load<kMirrored>(texels + 4), pixels + (kMirrored ? 0 : 4));
    }
};

// Texels are handled as floats of the same bits. The instruction that chooses by the top bit takes
// floats only.
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

SSE2 void CopySse2(const TexelRows& rows) {
    rows.mirrored ? CopyLines<Sse2Blocks, true>(rows) : CopyLines<Sse2Blocks, false>(rows);
}

SSE2 void MaskSse2(const TexelRows& rows) {
    rows.mirrored ? MaskLines<Sse2Blocks, true>(rows) : MaskLines<Sse2Blocks, false>(rows);
}

AVX2 void CopyAvx2(const TexelRows& rows) {
    rows.mirrored ? CopyLines<Avx2Blocks, true>(rows) : CopyLines<Avx2Blocks, false>(rows);
}

AVX2 void MaskAvx2(const TexelRows& rows) {
    rows.mirrored ? MaskLines<Avx2Blocks, true>(rows) : MaskLines<Avx2Blocks, false>(rows);
}

AVX512 void MaskAvx512(const TexelRows& rows) {
    rows.mirrored ? MaskLines<Avx512Blocks, true>(rows) : MaskLines<Avx512Blocks, false>(rows);
}

}  // namespace scenara::soft::rows

#endif
