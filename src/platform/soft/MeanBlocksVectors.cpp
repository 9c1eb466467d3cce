// SPDX-License-Identifier: MIT
#include "platform/soft/RowPaths.h"

#if SCENARA_ROWS_X86

#include <cstddef>
#include <cstdint>

#include "platform/soft/Avx2Pixels.h"
#include "platform/soft/Coverage.h"

namespace scenara::soft::eight {
namespace {

using rows::MeanAlphas;
using rows::MeanBlocks;
using rows::MeanLines;

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

// The channels of the upper and the lower line of eight pixels, blue and red or green and alpha, in
// lanes of 16 bits; each is moved by half its range, for the sums are made of signed lanes.
struct Sides {
    AVX2 Sides(__m256i above, __m256i below)
        : top(_mm256_xor_si256(above, Words(0x8000))),
          bottom(_mm256_xor_si256(below, Words(0x8000))) {}

    // Of two and two pixels, and of the others: the parts of both lines and `more`, in 2^16.
    AVX2 [[nodiscard]] inline __m256i FirstSums(__m256i parts, std::uint32_t more) const {
        return Sums(_mm256_unpacklo_epi16(top, bottom), parts, more);
    }
    AVX2 [[nodiscard]] inline __m256i LastSums(__m256i parts, std::uint32_t more) const {
        return Sums(_mm256_unpackhi_epi16(top, bottom), parts, more);
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

AVX2 inline __m256i PartsPair(std::uint32_t below) {
    return Dwords(below << 16U | (256 - below));
}

AVX2 inline __m256i RoundedSums(const Sides& sides, __m256i parts) {
    return _mm256_packus_epi32(_mm256_srli_epi32(sides.FirstSums(parts, 0x8000), 16),
                               _mm256_srli_epi32(sides.LastSums(parts, 0x8000), 16));
}

// Whatever the alphas are.
AVX2 inline __m256i PlainMean(const Corners& corners, __m256i parts, std::uint32_t below) {
    const BothSides sides(corners, parts);
    const __m256i pair = PartsPair(below);
    return _mm256_or_si256(RoundedSums(sides.low, pair),
                           _mm256_slli_epi16(RoundedSums(sides.high, pair), 8));
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
AVX2 inline __m256i CutMean(const Corners& corners, __m256i parts, std::uint32_t below) {
    const Corners cut = {Cut(corners.leftTop), Cut(corners.rightTop), Cut(corners.leftBottom),
                         Cut(corners.rightBottom)};
    const BothSides sides(cut, parts);
    const __m256i pair = PartsPair(below);
    const __m256i lowFirst = sides.low.FirstSums(pair, 0);
    const __m256i lowLast = sides.low.LastSums(pair, 0);
    const __m256i highFirst = sides.high.FirstSums(pair, 0);
    const __m256i highLast = sides.high.LastSums(pair, 0);
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

AVX2 inline __m256i AlphaWeight(__m256i texels, __m256i across, std::uint32_t down) {
    const __m256i weight = _mm256_mullo_epi32(across, Dwords(down));
    return _mm256_mullo_epi32(weight, _mm256_srli_epi32(texels, 24));
}

// The four texels' weights times their alphas. All sums fit into 32 bits: at most 2^16 x 255 x 255.
struct AlphaWeights {
    AVX2 AlphaWeights(const Corners& corners, __m256i parts, std::uint32_t below) {
        const __m256i right = _mm256_and_si256(parts, Dwords(0xFFFF));
        const __m256i left = _mm256_sub_epi32(Dwords(256), right);
        leftTop = AlphaWeight(corners.leftTop, left, 256 - below);
        rightTop = AlphaWeight(corners.rightTop, right, 256 - below);
        leftBottom = AlphaWeight(corners.leftBottom, left, below);
        rightBottom = AlphaWeight(corners.rightBottom, right, below);
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

AVX2 inline __m256i MeanByAlpha(const Corners& corners, __m256i parts, std::uint32_t below) {
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

AVX2 inline void StoreMean(const Corners& corners, __m256i parts, const MeanLines& lines,
                           std::uint32_t* texels) {
    if (lines.alphas == MeanAlphas::Unused || AreOpaque(corners)) {
        Store(texels, PlainMean(corners, parts, lines.partsBelow));
    } else if (lines.alphas == MeanAlphas::Cut) {
        Store(texels, CutMean(corners, parts, lines.partsBelow));
    } else {
        Store(texels, MeanByAlpha(corners, parts, lines.partsBelow));
    }
}

// Takes all by value, for of a copy of their own compilers know that no texel is stored in it.
template <typename Picks>
struct Means {
    [[gnu::always_inline]] static inline void Write(const MeanBlocks means, std::uint64_t blocks,
                                                    const MeanLines lines, std::uint32_t* texels) {
        while (blocks != 0) {
            const auto block = static_cast<std::ptrdiff_t>(__builtin_ctzll(blocks));
            blocks &= blocks - 1;
            const std::ptrdiff_t base = means.picked.bases[block];
            __builtin_prefetch(lines.aheadAbove + base);
            __builtin_prefetch(lines.aheadBelow + base);
            Picks::WriteBlock(means, block * kBlockTexels, lines, base,
                              texels + means.picked.begins[block]);
        }
    }
};

struct Avx2Means : Means<Avx2Means> {
    AVX2 static inline void WriteBlock(const MeanBlocks& means, std::ptrdiff_t first,
                                       const MeanLines& lines, std::ptrdiff_t base,
                                       std::uint32_t* texels) {
        using Picks = Avx2Picks;
        const __m256i left = Load(means.picked.places + first);
        const __m256i right = Load(means.rightPlaces + first);
        StoreMean({Picks::Pick(lines.above + base, left), Picks::Pick(lines.above + base, right),
                   Picks::Pick(lines.below + base, left), Picks::Pick(lines.below + base, right)},
                  Load(means.parts + first), lines, texels);
    }
};

struct Avx512Means : Means<Avx512Means> {
    AVX512 static inline void WriteBlock(const MeanBlocks& means, std::ptrdiff_t first,
                                         const MeanLines& lines, std::ptrdiff_t base,
                                         std::uint32_t* texels) {
        using Picks = Avx512Picks;
        const __m256i left = Load(means.picked.places + first);
        const __m256i right = Load(means.rightPlaces + first);
        StoreMean({Picks::Pick(lines.above + base, left), Picks::Pick(lines.above + base, right),
                   Picks::Pick(lines.below + base, left), Picks::Pick(lines.below + base, right)},
                  Load(means.parts + first), lines, texels);
    }
};

}  // namespace
}  // namespace scenara::soft::eight

namespace scenara::soft::rows {

AVX2 void MeanAvx2(const MeanBlocks& means, std::uint64_t blocks, const MeanLines& lines,
                   std::uint32_t* texels) {
    eight::Avx2Means::Write(means, blocks, lines, texels);
}

AVX512 void MeanAvx512(const MeanBlocks& means, std::uint64_t blocks, const MeanLines& lines,
                       std::uint32_t* texels) {
    eight::Avx512Means::Write(means, blocks, lines, texels);
}

}  // namespace scenara::soft::rows

#endif
