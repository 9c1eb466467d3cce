// SPDX-License-Identifier: MIT
//
// The code paths behind UnpackPcx, and what they share. For PcxUnpack*.cpp only.
//
// Each path takes what UnpackPcx takes, with `wanted` no more than pixels.size(), and gives the
// same pixels and result.
//
// Real pictures have about 4 pixels per operation (a repeat or a single pixel), and half of the
// operations are single pixels, so a branch on each of them costs more than the work. The vector
// paths look at a block of 64 packed bytes at once to find where operations begin, how much each
// makes and of what; then every operation is the same few instructions: store 16 pixels, go on by
// the count. Only the 1 in 20 that makes more has a branch. What a store writes too much, the next
// one overwrites.
//
// A block is taken only where all its bytes are there, and a store is made only where all of it has
// room; from the first place where that does not hold UnpackPlain goes on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "sprites/PcxUnpack.h"

#if defined(__x86_64__) || defined(__i386__)
#define SCENARA_UNPACK_X86 1
#else
#define SCENARA_UNPACK_X86 0
#endif

namespace scenara::unpack {

inline constexpr std::size_t kLongestRun = 63;

// Goes on from `from`, which lies between two operations.
UnpackResult UnpackPlain(std::span<const std::byte> packed, const ColorTable& colors,
                         std::span<std::uint32_t> pixels, std::size_t wanted,
                         UnpackResult from = {0, 0});

#if SCENARA_UNPACK_X86

UnpackResult UnpackSse2(std::span<const std::byte> packed, const ColorTable& colors,
                        std::span<std::uint32_t> pixels, std::size_t wanted);
UnpackResult UnpackAvx2(std::span<const std::byte> packed, const ColorTable& colors,
                        std::span<std::uint32_t> pixels, std::size_t wanted);

inline constexpr std::size_t kBlockBytes = 64;
// The value of a repeat that begins on a block's last byte lies behind the block.
inline constexpr std::size_t kBlockReads = kBlockBytes + 1;
// One repeat takes two bytes; there may be one more than half the bytes, as above.
inline constexpr std::size_t kMostBlockPixels = (kBlockBytes / 2 + 1) * kLongestRun;

// What every operation stores; what one with a longer run stores.
inline constexpr std::size_t kShortRun = 16;
inline constexpr std::size_t kStoredPixels = 64;
static_assert(kLongestRun <= kStoredPixels && kStoredPixels <= kUnpackSlack);

// While a block is unpacked, the memory of later ones is fetched: this far ahead, in pixels, as
// much as a usual block makes. The processor's own prefetching ends at each page of 4096 bytes.
// Both stay behind the pixel that a block with room for kMostBlockPixels begins at.
inline constexpr std::size_t kFetchAhead = 1024;
inline constexpr std::size_t kFetchLines = 12;
inline constexpr std::size_t kLinePixels = 16;
static_assert(kFetchAhead + kFetchLines * kLinePixels <= kMostBlockPixels);

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

// `high` has the bytes of 192 or more of a block that begins with an operation. Such a byte is a
// marker unless the one before it is, so of each row of high bytes the 1st, 3rd, 5th … are. Where a
// row begins decides whether those have even or odd places, and a subtraction finds it out for all
// rows at once: `high` taken from the rows moved up by one, with the odd bits set in the gaps,
// leaves each row's first bit to carry through it. The bits that then differ from the odd ones are
// the markers, and behind a row of odd length the one byte that is its last marker's value.
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
inline std::size_t StopPixel(std::size_t room, std::size_t wanted) {
    const std::size_t storable = room < kStoredPixels ? 0 : room - kStoredPixels + 1;
    return storable < wanted ? storable : wanted;
}

#endif

}  // namespace scenara::unpack
