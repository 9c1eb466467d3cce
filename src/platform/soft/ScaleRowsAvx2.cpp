// SPDX-License-Identifier: MIT
//
// The implementations of ScaleRows.h with vector instructions.
//
// Within a block that is mixed sideways each half of a vector has pixels 0, 1 and 4, 5, and the
// second vector the others: as the instructions take bytes apart and put them together.
#include "platform/soft/RowPaths.h"

#if SCENARA_ROWS_X86

#include <cstdint>

#include <immintrin.h>

// The functions here are compiled for AVX2 one by one, so that nothing else of the program is.
#define AVX2 [[gnu::target("avx2,bmi")]]

namespace scenara::soft::rows {
namespace {

AVX2 inline __m256i LoadVector(const void* from) {
    return _mm256_loadu_si256(static_cast<const __m256i_u*>(from));
}

AVX2 inline void StoreVector(void* to, __m256i value) {
    _mm256_storeu_si256(static_cast<__m256i_u*>(to), value);
}

// Of eight pixels those that are named, a byte each.
AVX2 inline __m256i Chosen(const std::uint32_t* pixels,
                           const std::array<std::uint8_t, kScaleBlock>& which) {
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i_u*>(which.data()));
    return _mm256_permutevar8x32_epi32(LoadVector(pixels), _mm256_cvtepu8_epi32(bytes));
}

// Channels from bytes, one half of them after the point.
AVX2 inline __m256i Mixed(__m256i from, __m256i to, __m256i weights) {
    const __m256i difference = _mm256_slli_epi16(_mm256_sub_epi16(to, from), 7);
    return _mm256_add_epi16(_mm256_slli_epi16(from, 7), _mm256_mulhrs_epi16(difference, weights));
}

template <bool kMixed>
AVX2 inline __m256i Between(const std::int16_t* first, const std::int16_t* second,
                            __m256i weights) {
    __m256i mean = LoadVector(first);
    if constexpr (kMixed) {
        const __m256i difference = _mm256_sub_epi16(LoadVector(second), mean);
        mean = _mm256_add_epi16(mean, _mm256_mulhrs_epi16(difference, weights));
    }
    return _mm256_srli_epi16(_mm256_add_epi16(mean, _mm256_set1_epi16(64)), 7);
}

template <bool kMixed>
AVX2 inline void MixBlocks(const MixedBlock* first, const MixedBlock* second, __m256i weights,
                           std::size_t blocks, std::uint32_t* shown) {
    for (std::size_t i = 0; i < blocks; ++i) {
        const std::int16_t* const a = first[i].channels.data();
        const std::int16_t* const b = second[i].channels.data();
        const __m256i low = Between<kMixed>(a, b, weights);
        const __m256i high = Between<kMixed>(a + 16, b + 16, weights);
        StoreVector(shown + i * kScaleBlock, _mm256_packus_epi16(low, high));
    }
}

}  // namespace

AVX2 void RepeatAvx2(const std::uint32_t* row, std::span<const ScaleBlock> blocks,
                     std::uint32_t* shown) {
    for (const ScaleBlock& block : blocks) {
        StoreVector(shown, Chosen(row + block.firsts, block.first));
        shown += kScaleBlock;
    }
}

AVX2 void MixColumnsAvx2(const std::uint32_t* row, std::span<const ScaleBlock> blocks,
                         MixedBlock* mixed) {
    const __m256i none = _mm256_setzero_si256();
    // Weights of pixels 0, 1, 4, 5 and of the others, four times each.
    const __m256i lowWeights =
        _mm256_setr_epi8(0, 1, 0, 1, 0, 1, 0, 1, 2, 3, 2, 3, 2, 3, 2, 3,  //
                         8, 9, 8, 9, 8, 9, 8, 9, 10, 11, 10, 11, 10, 11, 10, 11);
    const __m256i highWeights = _mm256_add_epi8(lowWeights, _mm256_set1_epi8(4));
    for (const ScaleBlock& block : blocks) {
        const __m256i from = Chosen(row + block.firsts, block.first);
        const __m256i to = Chosen(row + block.neighbours, block.neighbour);
        const __m256i weights = _mm256_broadcastsi128_si256(
            _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(block.weight.data())));
        StoreVector(mixed->channels.data(),
                    Mixed(_mm256_unpacklo_epi8(from, none), _mm256_unpacklo_epi8(to, none),
                          _mm256_shuffle_epi8(weights, lowWeights)));
        StoreVector(mixed->channels.data() + 16,
                    Mixed(_mm256_unpackhi_epi8(from, none), _mm256_unpackhi_epi8(to, none),
                          _mm256_shuffle_epi8(weights, highWeights)));
        ++mixed;
    }
}

AVX2 void MixRowsAvx2(const MixedBlock* first, const MixedBlock* second, std::int16_t weight,
                      std::size_t blocks, std::uint32_t* shown) {
    weight != 0 ? MixBlocks<true>(first, second, _mm256_set1_epi16(weight), blocks, shown)
                : MixBlocks<false>(first, second, _mm256_setzero_si256(), blocks, shown);
}

}  // namespace scenara::soft::rows

#endif
