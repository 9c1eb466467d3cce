// SPDX-License-Identifier: MIT
//
// The vector paths of UnpackRuns.
//
// Real pictures have about 4 pixels per operation (a repeat or a single pixel), and half of the
// operations are single pixels, so a branch on each of them costs more than the work. The vector
// paths look at a block of 64 packed bytes at once to find where operations begin, how much each
// makes and of what; then every operation is the same few instructions: store 16 pixels, go on by
// the count. Only the 1 in 20 that makes more has a branch. The next store overwrites what one
// wrote too much.
//
// A block is taken only where all its bytes are there, and a store is made only where all of it has
// room; from the first place where that does not hold UnpackPlain goes on.
#include "sprites/RunUnpackPaths.h"

#if SCENARA_UNPACK_X86

#include <algorithm>

#include <immintrin.h>

// The functions of a path are compiled for its processors one by one, so that nothing else of the
// program is. SSE2 is of use on 32-bit x86 only, where not every processor has it.
#define AVX2 [[gnu::target("avx2,bmi")]]
#define SSE2 [[gnu::target("sse2")]]

namespace scenara::unpack {
namespace {

constexpr std::size_t kLongestRun = 63;
constexpr std::size_t kBlockBytes = 64;
// The value of a repeat that begins on a block's last byte lies behind the block.
constexpr std::size_t kBlockReads = kBlockBytes + 1;
// One repeat takes two bytes; there may be one more than half the bytes, as above.
constexpr std::size_t kMostBlockPixels = (kBlockBytes / 2 + 1) * kLongestRun;

// What every operation stores; what one with a longer run stores.
constexpr std::size_t kShortRun = 16;
constexpr std::size_t kStoredPixels = 64;
static_assert(kLongestRun <= kStoredPixels && kStoredPixels <= kUnpackSlack);

// While a block is unpacked, the memory of later ones is fetched: this far ahead, in pixels, as
// much as a usual block makes. The processor's own prefetching ends at each page of 4096 bytes.
// Both stay behind the pixel that a block with room for kMostBlockPixels begins at.
constexpr std::size_t kFetchAhead = 1024;
constexpr std::size_t kFetchLines = 12;
constexpr std::size_t kLinePixels = 16;
static_assert(kFetchAhead + kFetchLines * kLinePixels <= kMostBlockPixels);

// Changes the bytes that look like a marker, and no others, to those of 192 or more; the count in
// their lower six bits stays. Called high below.
template <RunMark kMark>
constexpr auto kToHigh = static_cast<char>(static_cast<std::uint8_t>(kMark) ^ 0xC0U);

// For each byte of a block what an operation is that begins with it: how many pixels it makes, and
// of which value. Whether one begins there only BlockBits says.
struct BlockOperations {
    alignas(64) std::uint8_t counts[kBlockBytes];
    alignas(64) std::uint8_t values[kBlockBytes];
};

// A bit for each byte of a block, lowest for the first.
struct BlockBits {
    std::uint64_t markers;  // bytes that say how often the next one repeats
    std::uint64_t starts;   // bytes with which an operation begins; the first byte always is one
};

// `high` has the bytes of a block that look like a marker; the block begins with an operation. Such
// a byte is one unless the byte before it is, so of each row of high bytes the 1st, 3rd, 5th … are.
// Where a row begins decides whether those have even or odd places, and a subtraction finds it out
// for all rows at once: `high` taken from the rows moved up by one, with the odd bits set in the
// gaps, leaves each row's first bit to carry through it. The bits that then differ from the odd
// ones are the markers, and behind a row of odd length the one byte that is its last marker's
// value.
[[gnu::always_inline]] inline BlockBits FindOperations(std::uint64_t high) {
    constexpr std::uint64_t kOddBits = 0xAAAAAAAAAAAAAAAAU;
    const std::uint64_t markersAndLastValues = (((high << 1U) | kOddBits) - high) ^ kOddBits;
    const std::uint64_t values = markersAndLastValues ^ high;
    return {markersAndLastValues & high, ~values};
}

// From one block to the next, which begins with an operation again.
[[gnu::always_inline]] inline std::size_t BlockLength(BlockBits bits) {
    return kBlockBytes + static_cast<std::size_t>(bits.markers >> 63U);
}

// From a block's first byte to behind the operation that begins at `place` of it.
[[gnu::always_inline]] inline std::size_t LengthUpTo(BlockBits bits, std::size_t place) {
    return place + 1 + static_cast<std::size_t>((bits.markers >> place) & 1U);
}

// The first place of `starts`, which is not 0. Compilers know a faster form of this than of
// std::countr_zero, for processors that cannot count the zeros of 0.
[[gnu::always_inline]] inline std::size_t FirstPlace(std::uint64_t starts) {
    return static_cast<unsigned>(__builtin_ctzll(starts));
}

// The first pixel at which no operation may begin: enough was made, or the rest has no room for all
// that one stores.
std::size_t StopPixel(std::size_t room, std::size_t wanted) {
    const std::size_t storable = room < kStoredPixels ? 0 : room - kStoredPixels + 1;
    return std::min(storable, wanted);
}

[[gnu::always_inline]] inline void FetchAhead(const std::uint32_t* out) {
    for (std::size_t line = 0; line < kFetchLines; ++line) {
        __builtin_prefetch(out + kFetchAhead + line * kLinePixels);
    }
}

// The operation at `place`; returns where the next one writes.
template <typename Vectors>
[[gnu::always_inline]] inline std::uint32_t* Operate(const BlockOperations& operations,
                                                     std::size_t place, const ColorTable& colors,
                                                     std::uint32_t* out) {
    const std::size_t count = operations.counts[place];
    Vectors::Fill(colors[operations.values[place]], count > kShortRun, out);
    return out + count;
}

// The whole of a vector path. `Vectors` has what a path does with its registers, as static
// functions that are compiled for the path's processors. This one is not, so it must become part of
// a function that is.
//
//   Classify   of a whole block: fills the operations, returns the bits of the bytes that may ask
//   for a run Fill       stores kShortRun pixels of a colour, or kStoredPixels for a longer run
template <RunMark kMark, typename Vectors>
[[gnu::always_inline]] inline UnpackResult UnpackBlocks(std::span<const std::byte> packed,
                                                        const ColorTable& colors,
                                                        std::span<std::uint32_t> pixels,
                                                        std::size_t wanted) {
    std::size_t at = 0;
    std::uint32_t* out = pixels.data();
    const std::uint32_t* const stop = out + StopPixel(pixels.size(), wanted);
    BlockOperations operations{};
    while (out < stop && packed.size() - at >= kBlockReads) {
        const BlockBits bits =
            FindOperations(Vectors::template Classify<kMark>(packed.data() + at, operations));
        std::uint64_t starts = bits.starts;
        std::size_t length = BlockLength(bits);
        if (static_cast<std::size_t>(stop - out) >= kMostBlockPixels) {
            FetchAhead(out);
            for (; starts != 0; starts &= starts - 1) {
                out = Operate<Vectors>(operations, FirstPlace(starts), colors, out);
            }
        } else {
            for (; starts != 0; starts &= starts - 1) {
                const std::size_t place = FirstPlace(starts);
                out = Operate<Vectors>(operations, place, colors, out);
                if (out >= stop) [[unlikely]] {
                    length = LengthUpTo(bits, place);
                    break;
                }
            }
        }
        at += length;
    }
    const auto made = static_cast<std::size_t>(out - pixels.data());
    return UnpackPlain(kMark, packed, colors, pixels, wanted, {at, std::min(made, wanted)});
}

struct Avx2Vectors {
    template <RunMark kMark>
    AVX2 static inline std::uint64_t ClassifyPart(const std::byte* packed, std::uint8_t* counts,
                                                  std::uint8_t* values) {
        const __m256i first = _mm256_loadu_si256(reinterpret_cast<const __m256i_u*>(packed));
        const __m256i second = _mm256_loadu_si256(reinterpret_cast<const __m256i_u*>(packed + 1));
        const __m256i least = _mm256_set1_epi8(static_cast<char>(192));
        // All bits set, which is -1, where the byte is high.
        const __m256i asking = _mm256_xor_si256(first, _mm256_set1_epi8(kToHigh<kMark>));
        const __m256i high = _mm256_cmpeq_epi8(_mm256_max_epu8(asking, least), asking);
        const __m256i repeats = _mm256_subs_epu8(asking, least);
        const __m256i once = _mm256_add_epi8(_mm256_set1_epi8(1), high);
        _mm256_store_si256(reinterpret_cast<__m256i*>(counts), _mm256_add_epi8(repeats, once));
        _mm256_store_si256(reinterpret_cast<__m256i*>(values),
                           _mm256_blendv_epi8(first, second, high));
        return static_cast<std::uint32_t>(_mm256_movemask_epi8(high));
    }

    template <RunMark kMark>
    AVX2 static inline std::uint64_t Classify(const std::byte* packed,
                                              BlockOperations& operations) {
        std::uint8_t* const counts = operations.counts;
        std::uint8_t* const values = operations.values;
        return ClassifyPart<kMark>(packed, counts, values) |
               ClassifyPart<kMark>(packed + 32, counts + 32, values + 32) << 32U;
    }

    AVX2 static inline void Fill(std::uint32_t color, bool longRun, std::uint32_t* pixels) {
        const __m256i eight = _mm256_set1_epi32(static_cast<int>(color));
        auto* const place = reinterpret_cast<__m256i_u*>(pixels);
        _mm256_storeu_si256(place, eight);
        _mm256_storeu_si256(place + 1, eight);
        if (longRun) [[unlikely]] {
            for (int i = 2; i < 8; ++i) {
                _mm256_storeu_si256(place + i, eight);
            }
        }
    }
};

struct Sse2Vectors {
    template <RunMark kMark>
    SSE2 static inline std::uint64_t ClassifyPart(const std::byte* packed, std::uint8_t* counts,
                                                  std::uint8_t* values) {
        const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(packed));
        const __m128i second = _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(packed + 1));
        const __m128i least = _mm_set1_epi8(static_cast<char>(192));
        // All bits set, which is -1, where the byte is high.
        const __m128i asking = _mm_xor_si128(first, _mm_set1_epi8(kToHigh<kMark>));
        const __m128i high = _mm_cmpeq_epi8(_mm_max_epu8(asking, least), asking);
        const __m128i repeats = _mm_subs_epu8(asking, least);
        const __m128i once = _mm_add_epi8(_mm_set1_epi8(1), high);
        const __m128i change = _mm_and_si128(high, _mm_xor_si128(first, second));
        _mm_store_si128(reinterpret_cast<__m128i*>(counts), _mm_add_epi8(repeats, once));
        _mm_store_si128(reinterpret_cast<__m128i*>(values), _mm_xor_si128(first, change));
        return static_cast<std::uint32_t>(_mm_movemask_epi8(high));
    }

    template <RunMark kMark>
    SSE2 static inline std::uint64_t Classify(const std::byte* packed,
                                              BlockOperations& operations) {
        std::uint64_t high = 0;
        for (unsigned part = 0; part < kBlockBytes; part += 16) {
            high |= ClassifyPart<kMark>(packed + part, operations.counts + part,
                                        operations.values + part)
                    << part;
        }
        return high;
    }

    SSE2 static inline void Fill(std::uint32_t color, bool longRun, std::uint32_t* pixels) {
        const __m128i four = _mm_set1_epi32(static_cast<int>(color));
        auto* const place = reinterpret_cast<__m128i_u*>(pixels);
        for (int i = 0; i < 4; ++i) {
            _mm_storeu_si128(place + i, four);
        }
        if (longRun) [[unlikely]] {
            for (int i = 4; i < 16; ++i) {
                _mm_storeu_si128(place + i, four);
            }
        }
    }
};

}  // namespace

AVX2 UnpackResult UnpackAvx2(RunMark mark, std::span<const std::byte> packed,
                             const ColorTable& colors, std::span<std::uint32_t> pixels,
                             std::size_t wanted) {
    return mark == RunMark::Pcx
               ? UnpackBlocks<RunMark::Pcx, Avx2Vectors>(packed, colors, pixels, wanted)
               : UnpackBlocks<RunMark::Rle8, Avx2Vectors>(packed, colors, pixels, wanted);
}

SSE2 UnpackResult UnpackSse2(RunMark mark, std::span<const std::byte> packed,
                             const ColorTable& colors, std::span<std::uint32_t> pixels,
                             std::size_t wanted) {
    return mark == RunMark::Pcx
               ? UnpackBlocks<RunMark::Pcx, Sse2Vectors>(packed, colors, pixels, wanted)
               : UnpackBlocks<RunMark::Rle8, Sse2Vectors>(packed, colors, pixels, wanted);
}

}  // namespace scenara::unpack

#endif
