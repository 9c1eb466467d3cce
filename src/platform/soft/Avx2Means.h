// SPDX-License-Identifier: MIT
//
// The means of four texels, for eight pixels at a time, as Sampling.h has them. For
// MeanBlocksVectors.cpp and TurnedTexels.cpp only, on processors that Avx2Pixels.h is for.
#pragma once

#include <cstdint>

#include "platform/soft/Avx2Pixels.h"
#include "platform/soft/RowPaths.h"

namespace scenara::soft::eight {

// The texels at left top, right top, left bottom and right bottom of eight pixels.
struct Corners {
    __m256i leftTop;
    __m256i rightTop;
    __m256i leftBottom;
    __m256i rightBottom;
};

AVX2 inline __m256i Dwords(std::uint32_t value) {
    return _mm256_set1_epi32(static_cast<std::int32_t>(value));
}

// Lanes of 16 bits: 256 times the one and `parts` times the difference, which is below 0 for a
// while.
AVX2 inline __m256i Across(__m256i left, __m256i right, __m256i parts) {
    return _mm256_add_epi16(_mm256_slli_epi16(left, 8),
                            _mm256_mullo_epi16(_mm256_sub_epi16(right, left), parts));
}

// The parts of the lower line of eight pixels.
struct PartsBelow {
    // Of each, in lanes of 32 bits.
    AVX2 explicit PartsBelow(__m256i parts)
        : below(parts), above(_mm256_sub_epi32(Dwords(256), parts)) {
        const __m256i pairs = _mm256_or_si256(_mm256_slli_epi32(parts, 16), above);
        first = _mm256_unpacklo_epi32(pairs, pairs);
        last = _mm256_unpackhi_epi32(pairs, pairs);
    }
    // Of all.
    AVX2 explicit PartsBelow(std::uint32_t parts) : PartsBelow(Dwords(parts)) {}

    __m256i below;
    __m256i above;
    // As Sides wants them, with those of the upper line.
    __m256i first;
    __m256i last;
};

// The channels of the upper and the lower line of eight pixels, blue and red or green and alpha, in
// lanes of 16 bits; each is moved by half its range, for the sums are made of signed lanes.
struct Sides {
    AVX2 Sides(__m256i above, __m256i below)
        : top(_mm256_xor_si256(above, Words(0x8000))),
          bottom(_mm256_xor_si256(below, Words(0x8000))) {}

    // Of two and two pixels, and of the others: the parts of both lines and `more`, in 2^16.
    AVX2 [[nodiscard]] inline __m256i FirstSums(const PartsBelow& parts, std::uint32_t more) const {
        return Sums(_mm256_unpacklo_epi16(top, bottom), parts.first, more);
    }
    AVX2 [[nodiscard]] inline __m256i LastSums(const PartsBelow& parts, std::uint32_t more) const {
        return Sums(_mm256_unpackhi_epi16(top, bottom), parts.last, more);
    }

    __m256i top;
    __m256i bottom;

private:
    AVX2 static inline __m256i Sums(__m256i pairs, __m256i parts, std::uint32_t more) {
        const __m256i back = Dwords((0x8000U << 8U) + more);
        return _mm256_add_epi32(_mm256_madd_epi16(pairs, parts), back);
    }
};

struct BothSides {
    AVX2 BothSides(const Corners& corners, __m256i parts)
        : BothSides(Channels(corners.leftTop), Channels(corners.rightTop),
                    Channels(corners.leftBottom), Channels(corners.rightBottom), parts) {}

    Sides low;
    Sides high;

private:
    AVX2 BothSides(const Channels& leftTop, const Channels& rightTop, const Channels& leftBottom,
                   const Channels& rightBottom, __m256i parts)
        : low(Across(leftTop.low, rightTop.low, parts),
              Across(leftBottom.low, rightBottom.low, parts)),
          high(Across(leftTop.high, rightTop.high, parts),
               Across(leftBottom.high, rightBottom.high, parts)) {}
};

AVX2 inline __m256i RoundedSums(const Sides& sides, const PartsBelow& parts) {
    return _mm256_packus_epi32(_mm256_srli_epi32(sides.FirstSums(parts, 0x8000), 16),
                               _mm256_srli_epi32(sides.LastSums(parts, 0x8000), 16));
}

// Whatever the alphas are.
AVX2 inline __m256i PlainMean(const Corners& corners, __m256i parts, const PartsBelow& below) {
    const BothSides sides(corners, parts);
    return _mm256_or_si256(RoundedSums(sides.low, below),
                           _mm256_slli_epi16(RoundedSums(sides.high, below), 8));
}

// Transparent texels become 0, and the alpha of visible ones 1.
AVX2 inline __m256i Cut(__m256i texels) {
    const __m256i visible = _mm256_srai_epi32(texels, 31);
    return _mm256_and_si256(_mm256_and_si256(texels, visible), Dwords(0x01FFFFFF));
}

AVX2 inline __m256i EvenLanes(__m256i first, __m256i last) {
    constexpr int kEven = _MM_SHUFFLE(2, 0, 2, 0);
    return _mm256_castps_si256(
        _mm256_shuffle_ps(_mm256_castsi256_ps(first), _mm256_castsi256_ps(last), kEven));
}
AVX2 inline __m256i OddLanes(__m256i first, __m256i last) {
    constexpr int kOdd = _MM_SHUFFLE(3, 1, 3, 1);
    return _mm256_castps_si256(
        _mm256_shuffle_ps(_mm256_castsi256_ps(first), _mm256_castsi256_ps(last), kOdd));
}

// sum / weight to the nearest, of sums up to 255 x 2^16. With half the weight these are below 2^24,
// so that floats have them exactly, and a quotient that is rounded does not reach the next number.
AVX2 inline __m256i DividedSums(__m256i sums, __m256i half, __m256 weights) {
    const __m256 values = _mm256_cvtepi32_ps(_mm256_add_epi32(sums, half));
    return _mm256_cvttps_epi32(_mm256_div_ps(values, weights));
}

// Where all alphas are 0 or 255.
AVX2 inline __m256i CutMean(const Corners& corners, __m256i parts, const PartsBelow& below) {
    const Corners cut = {Cut(corners.leftTop), Cut(corners.rightTop), Cut(corners.leftBottom),
                         Cut(corners.rightBottom)};
    const BothSides sides(cut, parts);
    const __m256i lowFirst = sides.low.FirstSums(below, 0);
    const __m256i lowLast = sides.low.LastSums(below, 0);
    const __m256i highFirst = sides.high.FirstSums(below, 0);
    const __m256i highLast = sides.high.LastSums(below, 0);
    const __m256i visible = OddLanes(highFirst, highLast);
    const __m256i weights = _mm256_max_epi32(visible, Dwords(1));
    const __m256 divisor = _mm256_cvtepi32_ps(weights);
    const __m256i half = _mm256_srli_epi32(weights, 1);
    const __m256i blue = DividedSums(EvenLanes(lowFirst, lowLast), half, divisor);
    const __m256i red = DividedSums(OddLanes(lowFirst, lowLast), half, divisor);
    const __m256i green = DividedSums(EvenLanes(highFirst, highLast), half, divisor);
    const __m256i times255 = _mm256_sub_epi32(_mm256_slli_epi32(visible, 8), visible);
    const __m256i alpha = _mm256_srli_epi32(_mm256_add_epi32(times255, Dwords(0x8000)), 16);
    return _mm256_or_si256(
        _mm256_or_si256(blue, _mm256_slli_epi32(green, 8)),
        _mm256_or_si256(_mm256_slli_epi32(red, 16), _mm256_slli_epi32(alpha, 24)));
}

AVX2 inline __m256i AlphaWeight(__m256i texels, __m256i across, __m256i down) {
    const __m256i weight = _mm256_mullo_epi32(across, down);
    return _mm256_mullo_epi32(weight, _mm256_srli_epi32(texels, 24));
}

// The four texels' weights times their alphas. All sums fit into 32 bits: at most 2^16 x 255 x 255.
struct AlphaWeights {
    AVX2 AlphaWeights(const Corners& corners, __m256i parts, const PartsBelow& below) {
        const __m256i right = _mm256_and_si256(parts, Dwords(0xFFFF));
        const __m256i left = _mm256_sub_epi32(Dwords(256), right);
        leftTop = AlphaWeight(corners.leftTop, left, below.above);
        rightTop = AlphaWeight(corners.rightTop, right, below.above);
        leftBottom = AlphaWeight(corners.leftBottom, left, below.below);
        rightBottom = AlphaWeight(corners.rightBottom, right, below.below);
        sum = _mm256_add_epi32(_mm256_add_epi32(leftTop, rightTop),
                               _mm256_add_epi32(leftBottom, rightBottom));
    }

    __m256i leftTop;
    __m256i rightTop;
    __m256i leftBottom;
    __m256i rightBottom;
    __m256i sum;
};

template <int kShift>
AVX2 inline __m256i Weighed(__m256i texels, __m256i weights) {
    const __m256i channel = _mm256_and_si256(_mm256_srli_epi32(texels, kShift), Dwords(0xFF));
    return _mm256_mullo_epi32(channel, weights);
}

template <int kShift>
AVX2 inline __m256i WeighedSum(const Corners& corners, const AlphaWeights& weights) {
    return _mm256_add_epi32(
        _mm256_add_epi32(Weighed<kShift>(corners.leftTop, weights.leftTop),
                         Weighed<kShift>(corners.rightTop, weights.rightTop)),
        _mm256_add_epi32(Weighed<kShift>(corners.leftBottom, weights.leftBottom),
                         Weighed<kShift>(corners.rightBottom, weights.rightBottom)));
}

// dividend / divisor rounded down, of 32-bit lanes without a sign, where it is at most 255 and the
// divisor at most 2^24. A float comes within one of it; the rest tells which one it is.
AVX2 inline __m256i Quotient(__m256i dividend, __m256i divisor, __m256 inverse) {
    const __m256 halves = _mm256_cvtepi32_ps(_mm256_srli_epi32(dividend, 1));
    const __m256 estimate = _mm256_mul_ps(_mm256_add_ps(halves, halves), inverse);
    const __m256i quotient = _mm256_cvttps_epi32(estimate);
    const __m256i rest = _mm256_sub_epi32(dividend, _mm256_mullo_epi32(quotient, divisor));
    const __m256i tooLarge = _mm256_srai_epi32(rest, 31);
    const __m256i enough = _mm256_cmpgt_epi32(divisor, rest);  // no further one
    const __m256i tooSmall = _mm256_xor_si256(enough, Dwords(0xFFFFFFFF));
    return _mm256_sub_epi32(_mm256_add_epi32(quotient, tooLarge), tooSmall);
}

struct Divisor {
    __m256i value;  // at least 1
    __m256 inverse;
};

template <int kShift>
AVX2 inline __m256i MeanChannel(const Corners& corners, const AlphaWeights& weights,
                                const Divisor& by) {
    const __m256i half = _mm256_srli_epi32(by.value, 1);
    const __m256i sum = _mm256_add_epi32(WeighedSum<kShift>(corners, weights), half);
    return _mm256_slli_epi32(Quotient(sum, by.value, by.inverse), kShift);
}

AVX2 inline __m256i MeanByAlpha(const Corners& corners, __m256i parts, const PartsBelow& below) {
    const AlphaWeights weights(corners, parts, below);
    const __m256i nothing = _mm256_cmpeq_epi32(weights.sum, _mm256_setzero_si256());
    const __m256i value = _mm256_sub_epi32(weights.sum, nothing);
    const Divisor by = {value, _mm256_div_ps(_mm256_set1_ps(1), _mm256_cvtepi32_ps(value))};
    const __m256i alpha = _mm256_srli_epi32(_mm256_add_epi32(weights.sum, Dwords(0x8000)), 16);
    return _mm256_or_si256(
        _mm256_or_si256(MeanChannel<0>(corners, weights, by), MeanChannel<8>(corners, weights, by)),
        _mm256_or_si256(MeanChannel<16>(corners, weights, by), _mm256_slli_epi32(alpha, 24)));
}

// Whether all four texels of all pixels are opaque.
AVX2 inline bool AreOpaque(const Corners& corners) {
    const __m256i all = _mm256_and_si256(_mm256_and_si256(corners.leftTop, corners.rightTop),
                                         _mm256_and_si256(corners.leftBottom, corners.rightBottom));
    const __m256i alphas = _mm256_srai_epi32(all, 24);
    return _mm256_movemask_epi8(_mm256_cmpeq_epi32(alphas, Dwords(0xFFFFFFFF))) == -1;
}

// `parts` are those of the right texels, in both halves of each lane.
AVX2 inline void StoreMean(const Corners& corners, __m256i parts, const PartsBelow& below,
                           rows::MeanAlphas alphas, std::uint32_t* texels) {
    if (alphas == rows::MeanAlphas::Unused || AreOpaque(corners)) {
        Store(texels, PlainMean(corners, parts, below));
    } else if (alphas == rows::MeanAlphas::Cut) {
        Store(texels, CutMean(corners, parts, below));
    } else {
        Store(texels, MeanByAlpha(corners, parts, below));
    }
}

}  // namespace scenara::soft::eight
