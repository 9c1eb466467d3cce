// SPDX-License-Identifier: MIT
#include "platform/soft/CopyRowsPaths.h"

#if SCENARA_ROWS_X86

#include <cstdint>

#include <emmintrin.h>

#include "platform/soft/CopyRowsLoops.h"

// Of use on 32-bit x86 only, where not every processor has SSE2.
#define SSE2 [[gnu::target("sse2")]]

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

}  // namespace

SSE2 void CopySse2(const TexelRows& rows) {
    rows.mirrored ? CopyLines<Sse2Blocks, true>(rows) : CopyLines<Sse2Blocks, false>(rows);
}

SSE2 void MaskSse2(const TexelRows& rows) {
    rows.mirrored ? MaskLines<Sse2Blocks, true>(rows) : MaskLines<Sse2Blocks, false>(rows);
}

}  // namespace scenara::soft::rows

#endif
