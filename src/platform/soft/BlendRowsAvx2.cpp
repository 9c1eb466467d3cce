// SPDX-License-Identifier: MIT
#include "platform/soft/BlendRows.h"
#include "platform/soft/RowPaths.h"

#if SCENARA_ROWS_X86

#include <cstdint>

#include "platform/soft/Avx2Pixels.h"
#include "platform/soft/CopyRowsLoops.h"

namespace scenara::soft {
namespace {

using eight::Channels;
using eight::Load;
using eight::Store;
using eight::Words;
using rows::BlendLines;

AVX2 inline __m256i LoadMirrored(const void* words) {
    return _mm256_permutevar8x32_epi32(Load(words), _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
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

// What both ways of blending do with a block: `Mix` has Mixed(texels, pixels, amount).
template <typename Mix>
struct Avx2Blocks {
    // `lanes` are the texels to be drawn: all bits or none.
    template <bool kMirrored>
    AVX2 static inline void Blend(const std::uint32_t* texels, std::uint32_t* pixels,
                                  const std::int32_t* lanes, std::uint32_t amount) {
        const __m256i over = kMirrored ? _mm256_and_si256(LoadMirrored(texels), LoadMirrored(lanes))
                                       : _mm256_and_si256(Load(texels), Load(lanes));
        Store(pixels, Mix::Mixed(over, Load(pixels), amount));
    }
};

template <typename Mix>
AVX2 void BlendBlocks(const TexelRows& rows, std::uint32_t amount) {
    using Blocks = Avx2Blocks<Mix>;
    rows.mirrored ? BlendLines<Blocks, true>(rows, amount)
                  : BlendLines<Blocks, false>(rows, amount);
}

template <EvenBlend::Kind kKind, bool kScaled>
struct EvenMix {
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

template <EvenBlend::Kind kKind>
void BlendAs(const TexelRows& rows, std::uint32_t alpha) {
    alpha == 255 ? BlendBlocks<EvenMix<kKind, false>>(rows, alpha)
                 : BlendBlocks<EvenMix<kKind, true>>(rows, alpha);
}

AVX2 inline __m256i Tinted(__m256i colors, std::uint32_t tint) {
    const Channels texels(colors);
    const Channels tints(_mm256_set1_epi32(static_cast<std::int32_t>(tint)));
    const __m256i high = DividedLanes(_mm256_mullo_epi16(texels.high, tints.high));
    return _mm256_or_si256(DividedLanes(_mm256_mullo_epi16(texels.low, tints.low)),
                           _mm256_slli_epi16(high, 8));
}

// Each pixel's alpha in both of its lanes.
AVX2 inline __m256i SpreadAlphas(__m256i colors) {
    const __m256i alphas = _mm256_srli_epi32(colors, 24);
    return _mm256_or_si256(alphas, _mm256_slli_epi32(alphas, 16));
}

// under * (255 - alpha) + over * alpha, / 255: 255 times the one and alpha times the difference,
// which is below 0 for a while.
AVX2 inline __m256i CoveredLanes(__m256i over, __m256i under, __m256i alphas) {
    const __m256i share = _mm256_mullo_epi16(_mm256_sub_epi16(over, under), alphas);
    const __m256i whole = _mm256_sub_epi16(_mm256_slli_epi16(under, 8), under);
    return DividedLanes(_mm256_add_epi16(whole, share));
}

AVX2 inline __m256i Covered(__m256i over, __m256i under) {
    const __m256i alphas = SpreadAlphas(over);
    const Channels texels(over);
    const Channels pixels(under);
    const __m256i high = CoveredLanes(texels.high, pixels.high, alphas);
    return _mm256_or_si256(CoveredLanes(texels.low, pixels.low, alphas),
                           _mm256_slli_epi16(high, 8));
}

template <AlphaBlend::Kind kKind, bool kTinted>
struct AlphaMix {
    AVX2 static inline __m256i Mixed(__m256i over, __m256i under, std::uint32_t tint) {
        if constexpr (kTinted) {
            over = Tinted(over, tint);
        }
        if constexpr (kKind == AlphaBlend::Kind::Add) {
            return _mm256_adds_epu8(under, Scaled(over, SpreadAlphas(over)));
        } else if constexpr (kKind == AlphaBlend::Kind::TakeAway) {
            return _mm256_subs_epu8(under, Scaled(over, SpreadAlphas(over)));
        }
        // Most blocks are within a picture or beside it.
        const __m256i visible = _mm256_srai_epi32(over, 31);
        const __m256i plain = _mm256_cmpeq_epi32(_mm256_srai_epi32(over, 24), visible);
        return _mm256_movemask_epi8(plain) == -1 ? _mm256_blendv_epi8(under, over, visible)
                                                 : Covered(over, under);
    }
};

template <AlphaBlend::Kind kKind>
void BlendAs(const TexelRows& rows, std::uint32_t tint) {
    tint == kWhite ? BlendBlocks<AlphaMix<kKind, false>>(rows, tint)
                   : BlendBlocks<AlphaMix<kKind, true>>(rows, tint);
}

bool HasWayFor(const TexelRows& rows) {
    return rows.width >= kBlockTexels && BestRowPath() >= RowPath::Avx2;
}

}  // namespace

bool BlendEvenly(const TexelRows& rows, const EvenBlend& blend) {
    if (!HasWayFor(rows)) {
        return false;
    }
    switch (blend.kind) {
        case EvenBlend::Kind::Add: BlendAs<EvenBlend::Kind::Add>(rows, blend.alpha); break;
        case EvenBlend::Kind::TakeAway:
            BlendAs<EvenBlend::Kind::TakeAway>(rows, blend.alpha);
            break;
        case EvenBlend::Kind::Darken:
            BlendBlocks<EvenMix<EvenBlend::Kind::Darken, true>>(rows, blend.alpha);
    }
    return true;
}

bool BlendByAlpha(const TexelRows& rows, const AlphaBlend& blend) {
    if (!HasWayFor(rows)) {
        return false;
    }
    switch (blend.kind) {
        case AlphaBlend::Kind::Cover: BlendAs<AlphaBlend::Kind::Cover>(rows, blend.tint); break;
        case AlphaBlend::Kind::Add: BlendAs<AlphaBlend::Kind::Add>(rows, blend.tint); break;
        case AlphaBlend::Kind::TakeAway: BlendAs<AlphaBlend::Kind::TakeAway>(rows, blend.tint);
    }
    return true;
}

}  // namespace scenara::soft

#else

namespace scenara::soft {

bool BlendEvenly(const TexelRows& /*rows*/, const EvenBlend& /*blend*/) {
    return false;
}

bool BlendByAlpha(const TexelRows& /*rows*/, const AlphaBlend& /*blend*/) {
    return false;
}

}  // namespace scenara::soft

#endif
