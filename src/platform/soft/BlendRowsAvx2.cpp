// SPDX-License-Identifier: MIT
#include "platform/soft/BlendRows.h"
#include "platform/soft/RowPaths.h"

#if SCENARA_ROWS_X86

#include <cstdint>

#include <immintrin.h>

#include "platform/soft/CopyRowsLoops.h"

// The functions here are compiled for AVX2 one by one, so that nothing else of the program is.
#define AVX2 [[gnu::target("avx2,bmi")]]

namespace scenara::soft {
namespace {

using rows::BlendLines;

AVX2 inline __m256i Load(const void* words) {
    return _mm256_loadu_si256(static_cast<const __m256i_u*>(words));
}

AVX2 inline __m256i Words(std::uint32_t value) {
    return _mm256_set1_epi16(static_cast<std::int16_t>(value));
}

// Each lane / 255, to the nearest, for lanes up to 255 x 255: / 256, times 1 + 1 / 256.
AVX2 inline __m256i DividedLanes(__m256i lanes) {
    return _mm256_mulhi_epu16(_mm256_add_epi16(lanes, Words(128)), Words(257));
}

// Each channel times the 16-bit lane in which it is, / 255.
AVX2 inline __m256i Scaled(__m256i colors, __m256i factors) {
    const __m256i low = _mm256_and_si256(colors, Words(0xFF));
    const __m256i high = _mm256_srli_epi16(colors, 8);
    return _mm256_or_si256(DividedLanes(_mm256_mullo_epi16(low, factors)),
                           _mm256_slli_epi16(DividedLanes(_mm256_mullo_epi16(high, factors)), 8));
}

template <EvenBlend::Kind kKind, bool kScaled>
struct Avx2Blends {
    // `lanes` are the texels to be drawn: all bits or none.
    template <bool kMirrored>
    AVX2 static inline void Blend(const std::uint32_t* texels, std::uint32_t* pixels,
                                  const std::int32_t* lanes, std::uint32_t alpha) {
        __m256i over = _mm256_and_si256(Load(texels), Load(lanes));
        if constexpr (kMirrored) {
            over = _mm256_permutevar8x32_epi32(over, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
        }
        const __m256i mixed = Mixed(over, Load(pixels), alpha);
        _mm256_storeu_si256(reinterpret_cast<__m256i_u*>(pixels), mixed);
    }

    AVX2 static inline __m256i Mixed(__m256i over, __m256i under, std::uint32_t alpha) {
        const __m256i visible = _mm256_srai_epi32(over, 31);
        if constexpr (kKind == EvenBlend::Kind::Darken) {
            const __m256i taken = _mm256_and_si256(visible, Words(alpha));
            return Scaled(under, _mm256_xor_si256(taken, Words(255)));  // 255 - a is a ^ 255
        }
        __m256i color = _mm256_and_si256(visible, over);
        if constexpr (kScaled) {
            color = Scaled(color, Words(alpha));
        }
        return kKind == EvenBlend::Kind::Add ? _mm256_adds_epu8(under, color)
                                             : _mm256_subs_epu8(under, color);
    }
};

template <EvenBlend::Kind kKind, bool kScaled>
AVX2 void Blend(const TexelRows& rows, std::uint32_t alpha) {
    using Blends = Avx2Blends<kKind, kScaled>;
    rows.mirrored ? BlendLines<Blends, true>(rows, alpha) : BlendLines<Blends, false>(rows, alpha);
}

template <EvenBlend::Kind kKind>
void BlendAs(const TexelRows& rows, std::uint32_t alpha) {
    alpha == 255 ? Blend<kKind, false>(rows, alpha) : Blend<kKind, true>(rows, alpha);
}

}  // namespace

bool BlendEvenly(const TexelRows& rows, const EvenBlend& blend) {
    if (rows.width < kBlockTexels || BestRowPath() < RowPath::Avx2) {
        return false;
    }
    switch (blend.kind) {
        case EvenBlend::Kind::Add: BlendAs<EvenBlend::Kind::Add>(rows, blend.alpha); break;
        case EvenBlend::Kind::TakeAway:
            BlendAs<EvenBlend::Kind::TakeAway>(rows, blend.alpha);
            break;
        case EvenBlend::Kind::Darken: Blend<EvenBlend::Kind::Darken, true>(rows, blend.alpha);
    }
    return true;
}

}  // namespace scenara::soft

#else

namespace scenara::soft {

bool BlendEvenly(const TexelRows& /*rows*/, const EvenBlend& /*blend*/) {
    return false;
}

}  // namespace scenara::soft

#endif
