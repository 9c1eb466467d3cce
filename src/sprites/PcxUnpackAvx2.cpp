// SPDX-License-Identifier: MIT
#include "sprites/PcxUnpackPaths.h"

#if SCENARA_UNPACK_X86

#include <algorithm>

#include <immintrin.h>

// The functions here are compiled for AVX2 one by one, so that nothing else of the program is.
#define AVX2_INLINE [[gnu::target("avx2,bmi"), gnu::always_inline]] inline

namespace scenara::unpack {
namespace {

// Returns the bits of the bytes of 192 or more.
AVX2_INLINE std::uint64_t Classify(const std::byte* packed, std::uint8_t* counts,
                                   std::uint8_t* values) {
    const __m256i first = _mm256_loadu_si256(reinterpret_cast<const __m256i_u*>(packed));
    const __m256i second = _mm256_loadu_si256(reinterpret_cast<const __m256i_u*>(packed + 1));
    const __m256i least = _mm256_set1_epi8(static_cast<char>(192));
    // All bits set, which is -1, where the byte is high.
    const __m256i high = _mm256_cmpeq_epi8(_mm256_max_epu8(first, least), first);
    const __m256i repeats = _mm256_subs_epu8(first, least);
    const __m256i once = _mm256_add_epi8(_mm256_set1_epi8(1), high);
    _mm256_store_si256(reinterpret_cast<__m256i*>(counts), _mm256_add_epi8(repeats, once));
    _mm256_store_si256(reinterpret_cast<__m256i*>(values), _mm256_blendv_epi8(first, second, high));
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(high));
}

AVX2_INLINE BlockBits ClassifyBlock(const std::byte* packed, BlockOperations& operations) {
    const std::uint64_t low = Classify(packed, operations.counts, operations.values);
    const std::uint64_t top = Classify(packed + 32, operations.counts + 32, operations.values + 32);
    return FindOperations(low | top << 32U);
}

AVX2_INLINE void Store16(std::uint32_t* pixels, __m256i color) {
    _mm256_storeu_si256(reinterpret_cast<__m256i_u*>(pixels), color);
    _mm256_storeu_si256(reinterpret_cast<__m256i_u*>(pixels + 8), color);
}

// The operation at `place`; returns where the next one writes.
AVX2_INLINE std::uint32_t* Operate(const BlockOperations& operations, std::size_t place,
                                   const ColorTable& colors, std::uint32_t* out) {
    const __m256i color = _mm256_set1_epi32(static_cast<int>(colors[operations.values[place]]));
    const std::size_t count = operations.counts[place];
    Store16(out, color);
    if (count > kShortRun) [[unlikely]] {
        Store16(out + 16, color);
        Store16(out + 32, color);
        Store16(out + 48, color);
    }
    return out + count;
}

AVX2_INLINE void FetchAhead(const std::uint32_t* out) {
    for (std::size_t line = 0; line < kFetchLines; ++line) {
        _mm_prefetch(out + kFetchAhead + line * kLinePixels, _MM_HINT_T0);
    }
}

}  // namespace

[[gnu::target("avx2,bmi")]] UnpackResult UnpackAvx2(std::span<const std::byte> packed,
                                                    const ColorTable& colors,
                                                    std::span<std::uint32_t> pixels,
                                                    std::size_t wanted) {
    std::size_t at = 0;
    std::uint32_t* out = pixels.data();
    const std::uint32_t* const stop = out + StopPixel(pixels.size(), wanted);
    BlockOperations operations{};
    while (out < stop && packed.size() - at >= kBlockReads) {
        const BlockBits bits = ClassifyBlock(packed.data() + at, operations);
        std::uint64_t starts = bits.starts;
        std::size_t length = BlockLength(bits);
        if (static_cast<std::size_t>(stop - out) >= kMostBlockPixels) {
            FetchAhead(out);
            for (; starts != 0; starts &= starts - 1) {
                out = Operate(operations, FirstPlace(starts), colors, out);
            }
        } else {
            for (; starts != 0; starts &= starts - 1) {
                const std::size_t place = FirstPlace(starts);
                out = Operate(operations, place, colors, out);
                if (out >= stop) [[unlikely]] {
                    length = LengthUpTo(bits, place);
                    break;
                }
            }
        }
        at += length;
    }
    const auto made = static_cast<std::size_t>(out - pixels.data());
    return UnpackPlain(packed, colors, pixels, wanted, {at, std::min(made, wanted)});
}

}  // namespace scenara::unpack

#endif
