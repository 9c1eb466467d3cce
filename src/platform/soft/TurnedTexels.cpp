// SPDX-License-Identifier: MIT
#include "platform/soft/TurnedTexels.h"

#if SCENARA_ROWS_X86

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/soft/Avx2Means.h"
#include "platform/soft/Avx2Pixels.h"
#include "platform/soft/Sampling.h"

namespace scenara::soft::eight {
namespace {

constexpr std::int32_t kGroup = 8;
static_assert(kMostRun % kGroup == 0, "so that the last group lies in the row");

AVX2 inline __m256d Doubles(double value) {
    return _mm256_set1_pd(value);
}

AVX2 inline __m256i BothHalves(__m128i first, __m128i last) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(first), last, 1);
}

// The numbers of four pixels, and of the next four.
struct PixelNumbers {
    AVX2 explicit PixelNumbers(std::int32_t first)
        : low(_mm256_add_pd(Doubles(first), _mm256_setr_pd(0, 1, 2, 3))),
          high(_mm256_add_pd(low, Doubles(4))) {}

    __m256d low;
    __m256d high;
};

AVX2 inline __m256d PlacesOf(const TurnedCourse& course, __m256d pixels) {
    return _mm256_add_pd(Doubles(course.first), _mm256_mul_pd(pixels, Doubles(course.step)));
}

// The nearest texels of four pixels, as whole numbers.
AVX2 inline __m256d NearestTexels(const TurnedCourse& course, __m256d pixels) {
    const __m256d numbers = _mm256_floor_pd(_mm256_add_pd(PlacesOf(course, pixels), Doubles(kTie)));
    const __m256d texels = course.mirrored ? _mm256_sub_pd(Doubles(-1), numbers) : numbers;
    return _mm256_max_pd(_mm256_min_pd(texels, Doubles(course.size - 1)), Doubles(0));
}

// How far texels of four pixels are from the texture's first one.
AVX2 inline __m128i NearestOffsets(const Texels& texture, const TurnedCourse& across,
                                   const TurnedCourse& down, __m256d pixels) {
    const __m256d lines = _mm256_mul_pd(NearestTexels(down, pixels), Doubles(texture.pitch));
    return _mm256_cvttpd_epi32(_mm256_add_pd(lines, NearestTexels(across, pixels)));
}

// The two texels of eight pixels along an axis, and the parts of the second.
struct TwoOfEight {
    AVX2 TwoOfEight(const TurnedCourse& course, const PixelNumbers& pixels) {
        const __m256i all = BothHalves(PartsOf(course, pixels.low), PartsOf(course, pixels.high));
        const __m256i numbers = _mm256_srai_epi32(all, 8);
        parts = _mm256_and_si256(all, Dwords(kTexelParts - 1));
        first = Texels(course, numbers);
        second = Texels(course, _mm256_add_epi32(numbers, Dwords(1)));
    }

    __m256i first;
    __m256i second;
    __m256i parts;

private:
    // Beyond the last texels both are the same one, whatever their parts.
    AVX2 static inline __m128i PartsOf(const TurnedCourse& course, __m256d pixels) {
        const __m256d scaled = _mm256_mul_pd(Doubles(kTexelParts), PlacesOf(course, pixels));
        const __m256d moved = _mm256_sub_pd(scaled, Doubles((kTexelParts - 1) / 2.0));
        const __m256d parts = _mm256_floor_pd(_mm256_add_pd(moved, Doubles(kTie)));
        const double least = course.mirrored ? -1.0 - course.size : -1.0;
        const double most = course.mirrored ? 0.0 : course.size;
        return _mm256_cvttpd_epi32(_mm256_max_pd(_mm256_min_pd(parts, Doubles(most * kTexelParts)),
                                                 Doubles(least * kTexelParts)));
    }
    // -1 - n is n with all bits turned round.
    AVX2 static inline __m256i Texels(const TurnedCourse& course, __m256i numbers) {
        const __m256i texels =
            _mm256_xor_si256(numbers, course.mirrored ? Dwords(0xFFFFFFFF) : Dwords(0));
        const __m256i last = _mm256_set1_epi32(course.size - 1);
        return _mm256_max_epi32(_mm256_min_epi32(texels, last), _mm256_setzero_si256());
    }
};

// Where the four texels of some pixels are, and what they are.
constexpr std::int32_t kSome = 64;
template <typename Value>
using Some = std::array<Value, kSome>;
struct FourOfSome {
    // As Corners has them.
    std::array<Some<std::int32_t>, 4> offsets;
    std::array<Some<std::uint32_t>, 4> texels;
    Some<std::uint32_t> partsRight;
    Some<std::uint32_t> partsBelow;
};

AVX2 inline void StoreOffsets(Some<std::int32_t>& offsets, std::int32_t at, __m256i line,
                              __m256i column) {
    _mm256_storeu_si256(reinterpret_cast<__m256i_u*>(offsets.data() + at),
                        _mm256_add_epi32(line, column));
}

AVX2 inline void FindFour(FourOfSome& four, std::int32_t at, const Texels& texture,
                          const TwoOfEight& across, const TwoOfEight& down) {
    const __m256i pitch = _mm256_set1_epi32(texture.pitch);
    const __m256i above = _mm256_mullo_epi32(down.first, pitch);
    const __m256i below = _mm256_mullo_epi32(down.second, pitch);
    StoreOffsets(four.offsets[0], at, above, across.first);
    StoreOffsets(four.offsets[1], at, above, across.second);
    StoreOffsets(four.offsets[2], at, below, across.first);
    StoreOffsets(four.offsets[3], at, below, across.second);
    const __m256i twice = _mm256_or_si256(across.parts, _mm256_slli_epi32(across.parts, 16));
    Store(four.partsRight.data() + at, twice);
    Store(four.partsBelow.data() + at, down.parts);
}

}  // namespace
}  // namespace scenara::soft::eight

namespace scenara::soft::rows {

AVX2 void TurnedNearestAvx2(const Texels& texture, const TurnedCourse& across,
                            const TurnedCourse& down, std::int32_t count, std::uint32_t* row) {
    using eight::kGroup;
    const TurnedCourse u = across;  // of a copy of their own compilers know that nobody changes it
    const TurnedCourse v = down;
    const std::uint32_t* const words = texture.words.data();
    alignas(16) std::array<std::int32_t, kGroup> offsets{};
    for (std::int32_t x = 0; x < count; x += kGroup) {
        const eight::PixelNumbers pixels(x);
        const auto half = [](std::int32_t* to) { return reinterpret_cast<__m128i_u*>(to); };
        _mm_storeu_si128(half(offsets.data()), eight::NearestOffsets(texture, u, v, pixels.low));
        _mm_storeu_si128(half(offsets.data() + 4),
                         eight::NearestOffsets(texture, u, v, pixels.high));
        for (std::size_t i = 0; i < kGroup; ++i) {
            row[static_cast<std::size_t>(x) + i] = words[offsets[i]];
        }
    }
}

AVX2 void TurnedMeansAvx2(const Texels& texture, const TurnedCourse& across,
                          const TurnedCourse& down, MeanAlphas alphas, std::int32_t count,
                          std::uint32_t* row) {
    using eight::kGroup;
    using eight::kSome;
    const TurnedCourse u = across;
    const TurnedCourse v = down;
    const std::uint32_t* const words = texture.words.data();
    eight::FourOfSome four;  // NOLINT(*-member-init): filled as needed
    for (std::int32_t begin = 0; begin < count; begin += kSome) {
        const std::int32_t some = std::min(kSome, (count - begin + kGroup - 1) / kGroup * kGroup);
        for (std::int32_t at = 0; at < some; at += kGroup) {
            const eight::PixelNumbers pixels(begin + at);
            eight::FindFour(four, at, texture, eight::TwoOfEight(u, pixels),
                            eight::TwoOfEight(v, pixels));
        }
        for (std::size_t corner = 0; corner < 4; ++corner) {
            for (std::size_t i = 0; i < static_cast<std::size_t>(some); ++i) {
                four.texels[corner][i] = words[four.offsets[corner][i]];
            }
        }
        for (std::int32_t at = 0; at < some; at += kGroup) {
            const eight::Corners corners = {
                eight::Load(four.texels[0].data() + at), eight::Load(four.texels[1].data() + at),
                eight::Load(four.texels[2].data() + at), eight::Load(four.texels[3].data() + at)};
            eight::StoreMean(corners, eight::Load(four.partsRight.data() + at),
                             eight::PartsBelow(eight::Load(four.partsBelow.data() + at)), alphas,
                             row + begin + at);
        }
    }
}

}  // namespace scenara::soft::rows

#endif
