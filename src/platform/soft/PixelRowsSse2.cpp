// SPDX-License-Identifier: MIT
#include "platform/soft/RowPaths.h"

#if SCENARA_ROWS_X86

#include <emmintrin.h>

#define SSE2 [[gnu::target("sse2")]]

namespace scenara::soft::rows {
namespace {

constexpr std::size_t kGroup = 4;

SSE2 inline __m128i Load(const std::uint32_t* pixels) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(pixels));
}

SSE2 inline void Store(std::uint32_t* pixels, __m128i group) {
    _mm_storeu_si128(reinterpret_cast<__m128i_u*>(pixels), group);
}

SSE2 inline __m128i Words(std::uint32_t value) {
    return _mm_set1_epi16(static_cast<std::int16_t>(value));
}

// The channels of two of the four pixels, a 16-bit lane each.
SSE2 inline __m128i FirstTwo(__m128i group) {
    return _mm_unpacklo_epi8(group, _mm_setzero_si128());
}
SSE2 inline __m128i LastTwo(__m128i group) {
    return _mm_unpackhi_epi8(group, _mm_setzero_si128());
}

// Each lane / 255, to the nearest, for lanes up to 255 x 255: v / 255 is v / 256 and 1 / 256 of
// that, and so on, of which two terms are enough here.
SSE2 inline __m128i DividedLanes(__m128i lanes) {
    const __m128i rounded = _mm_add_epi16(lanes, Words(128));
    return _mm_srli_epi16(_mm_add_epi16(rounded, _mm_srli_epi16(rounded, 8)), 8);
}

// What makes a factor of the source's alpha: kept, turned round (255 - a is a ^ 255) or neither.
struct FactorBits {
    SSE2 explicit FactorBits(std::uint32_t factor)
        : kept(Words(factor == D3DBLEND_SRCALPHA || factor == D3DBLEND_INVSRCALPHA ? 255 : 0)),
          turned(Words(factor == D3DBLEND_ONE || factor == D3DBLEND_INVSRCALPHA ? 255 : 0)) {}

    SSE2 [[nodiscard]] inline __m128i Of(__m128i alphas) const {
        return _mm_xor_si128(_mm_and_si128(alphas, kept), turned);
    }

    __m128i kept;
    __m128i turned;
};

SSE2 inline __m128i AlphasOf(__m128i lanes) {
    constexpr int kLast = _MM_SHUFFLE(3, 3, 3, 3);
    return _mm_shufflehi_epi16(_mm_shufflelo_epi16(lanes, kLast), kLast);
}

template <std::uint32_t kOperation>
SSE2 inline __m128i MixedLanes(__m128i source, __m128i destination) {
    if constexpr (kOperation == D3DBLENDOP_SUBTRACT) {
        return _mm_subs_epu16(source, destination);
    } else if constexpr (kOperation == D3DBLENDOP_REVSUBTRACT) {
        return _mm_subs_epu16(destination, source);
    } else {
        const __m128i sum = _mm_adds_epu16(source, destination);
        return _mm_sub_epi16(sum, _mm_subs_epu16(sum, Words(255 * 255)));  // 1 at most
    }
}

template <std::uint32_t kOperation>
SSE2 inline __m128i BlendedLanes(__m128i source, __m128i destination,
                                 const FactorBits& sourceFactor,
                                 const FactorBits& destinationFactor) {
    const __m128i alphas = AlphasOf(source);
    return DividedLanes(
        MixedLanes<kOperation>(_mm_mullo_epi16(source, sourceFactor.Of(alphas)),
                               _mm_mullo_epi16(destination, destinationFactor.Of(alphas))));
}

template <std::uint32_t kOperation>
SSE2 inline __m128i BlendedGroup(__m128i over, __m128i under, const FactorBits& sourceFactor,
                                 const FactorBits& destinationFactor) {
    return _mm_packus_epi16(
        BlendedLanes<kOperation>(FirstTwo(over), FirstTwo(under), sourceFactor, destinationFactor),
        BlendedLanes<kOperation>(LastTwo(over), LastTwo(under), sourceFactor, destinationFactor));
}

template <std::uint32_t kOperation>
SSE2 std::size_t BlendGroups(std::span<std::uint32_t> destination,
                             std::span<const std::uint32_t> source, const PixelStates& states) {
    const FactorBits sourceFactor(states.sourceFactor);
    const FactorBits destinationFactor(states.destinationFactor);
    std::size_t x = 0;
    for (; x + kGroup <= source.size(); x += kGroup) {
        Store(&destination[x], BlendedGroup<kOperation>(Load(&source[x]), Load(&destination[x]),
                                                        sourceFactor, destinationFactor));
    }
    return x;
}

// The usual way to blend, of usual pictures: most texels are either opaque or not there at all.
SSE2 std::size_t CoverGroups(std::span<std::uint32_t> destination,
                             std::span<const std::uint32_t> source) {
    const FactorBits sourceFactor(D3DBLEND_SRCALPHA);
    const FactorBits destinationFactor(D3DBLEND_INVSRCALPHA);
    std::size_t x = 0;
    for (; x + kGroup <= source.size(); x += kGroup) {
        const __m128i over = Load(&source[x]);
        const __m128i under = Load(&destination[x]);
        const __m128i visible = _mm_srai_epi32(over, 31);
        const __m128i plain = _mm_cmpeq_epi32(_mm_srai_epi32(over, 24), visible);
        if (_mm_movemask_epi8(plain) == 0xFFFF) {
            Store(&destination[x],
                  _mm_or_si128(_mm_and_si128(visible, over), _mm_andnot_si128(visible, under)));
        } else {
            Store(&destination[x],
                  BlendedGroup<D3DBLENDOP_ADD>(over, under, sourceFactor, destinationFactor));
        }
    }
    return x;
}

}  // namespace

SSE2 std::size_t TintSse2(std::span<std::uint32_t> texels, std::uint32_t tint) {
    if (BestRowPath() < RowPath::Sse2) {
        return 0;
    }
    const __m128i factors = FirstTwo(_mm_set1_epi32(static_cast<int>(tint)));
    std::size_t x = 0;
    for (; x + kGroup <= texels.size(); x += kGroup) {
        const __m128i group = Load(&texels[x]);
        const __m128i first = DividedLanes(_mm_mullo_epi16(FirstTwo(group), factors));
        const __m128i last = DividedLanes(_mm_mullo_epi16(LastTwo(group), factors));
        Store(&texels[x], _mm_packus_epi16(first, last));
    }
    return x;
}

std::size_t BlendSse2(std::span<std::uint32_t> destination, std::span<const std::uint32_t> source,
                      const PixelStates& states) {
    if (BestRowPath() < RowPath::Sse2) {
        return 0;
    }
    if (IsCovering(states)) {
        return CoverGroups(destination, source);
    }
    switch (states.operation) {
        case D3DBLENDOP_SUBTRACT:
            return BlendGroups<D3DBLENDOP_SUBTRACT>(destination, source, states);
        case D3DBLENDOP_REVSUBTRACT:
            return BlendGroups<D3DBLENDOP_REVSUBTRACT>(destination, source, states);
        default: return BlendGroups<D3DBLENDOP_ADD>(destination, source, states);
    }
}

}  // namespace scenara::soft::rows

#else

namespace scenara::soft::rows {

std::size_t TintSse2(std::span<std::uint32_t> /*texels*/, std::uint32_t /*tint*/) {
    return 0;
}

std::size_t BlendSse2(std::span<std::uint32_t> /*destination*/,
                      std::span<const std::uint32_t> /*source*/, const PixelStates& /*states*/) {
    return 0;
}

}  // namespace scenara::soft::rows

#endif
