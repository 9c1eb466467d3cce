// SPDX-License-Identifier: MIT
#include "sprites/PcxUnpackPaths.h"

#if SCENARA_UNPACK_X86

#include <algorithm>

#include <emmintrin.h>

// Of use on 32-bit x86 only, where not every processor has SSE2.
#define SSE2_INLINE [[gnu::target("sse2"), gnu::always_inline]] inline

namespace scenara::unpack {
namespace {

// Returns the bits of the bytes of 192 or more.
SSE2_INLINE std::uint64_t Classify(const std::byte* packed, std::uint8_t* counts,
                                   std::uint8_t* values) {
    const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(packed));
    const __m128i second = _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(packed + 1));
    const __m128i least = _mm_set1_epi8(static_cast<char>(192));
    // All bits set, which is -1, where the byte is high.
    const __m128i high = _mm_cmpeq_epi8(_mm_max_epu8(first, least), first);
    const __m128i repeats = _mm_subs_epu8(first, least);
    const __m128i once = _mm_add_epi8(_mm_set1_epi8(1), high);
    const __m128i change = _mm_and_si128(high, _mm_xor_si128(first, second));
    _mm_store_si128(reinterpret_cast<__m128i*>(counts), _mm_add_epi8(repeats, once));
    _mm_store_si128(reinterpret_cast<__m128i*>(values), _mm_xor_si128(first, change));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(high));
}

SSE2_INLINE BlockBits ClassifyBlock(const std::byte* packed, BlockOperations& operations) {
    std::uint8_t* const counts = operations.counts;
    std::uint8_t* const values = operations.values;
    const std::uint64_t part0 = Classify(packed, counts, values);
    const std::uint64_t part1 = Classify(packed + 16, counts + 16, values + 16);
    const std::uint64_t part2 = Classify(packed + 32, counts + 32, values + 32);
    const std::uint64_t part3 = Classify(packed + 48, counts + 48, values + 48);
    return FindOperations(part0 | part1 << 16U | part2 << 32U | part3 << 48U);
}

SSE2_INLINE void Store16(std::uint32_t* pixels, __m128i color) {
    _mm_storeu_si128(reinterpret_cast<__m128i_u*>(pixels), color);
    _mm_storeu_si128(reinterpret_cast<__m128i_u*>(pixels + 4), color);
    _mm_storeu_si128(reinterpret_cast<__m128i_u*>(pixels + 8), color);
    _mm_storeu_si128(reinterpret_cast<__m128i_u*>(pixels + 12), color);
}

// The operation at `place`; returns where the next one writes.
SSE2_INLINE std::uint32_t* Operate(const BlockOperations& operations, std::size_t place,
                                   const ColorTable& colors, std::uint32_t* out) {
    const __m128i color = _mm_set1_epi32(static_cast<int>(colors[operations.values[place]]));
    const std::size_t count = operations.counts[place];
    Store16(out, color);
    if (count > kShortRun) [[unlikely]] {
        Store16(out + 16, color);
        Store16(out + 32, color);
        Store16(out + 48, color);
    }
    return out + count;
}

SSE2_INLINE void FetchAhead(const std::uint32_t* out) {
    for (std::size_t line = 0; line < kFetchLines; ++line) {
        _mm_prefetch(out + kFetchAhead + line * kLinePixels, _MM_HINT_T0);
    }
}

}  // namespace

[[gnu::target("sse2")]] UnpackResult UnpackSse2(std::span<const std::byte> packed,
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
