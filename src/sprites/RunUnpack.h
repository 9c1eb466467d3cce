// SPDX-License-Identifier: MIT
//
// UnpackRuns: run-length bytes to 32-bit pixels, the inner loop of the decoders that have them.
//
// Two formats differ in nothing but the bytes that ask for a run. Such a byte's lower six bits say
// how often the byte that follows it is repeated, 0 to 63 times; the byte that follows may be any.
// Every other byte is one pixel.
//
//   RunMark   bytes that ask for a run   where
//   Pcx       192 to 255                 PCX pictures of 8 bits
//   Rle8      64 to 127                  RLE8, in version 2 sprite archives
//
// Each unpacked index is written as its word of `colors`. Lines have no marks in the data: a
// picture whose memory has the file's bytes per line as its pitch is filled from end to end as one
// run of `wanted` pixels.
//
// Shapes: `packed` is any number of bytes; `pixels` has room for at least `wanted` words (less room
// is taken as less wanted). What it has behind the pixels that were made (kUnpackSlack words behind
// the wanted ones let the fast paths run to the very end) may be written with pixels that mean
// nothing. Nothing outside the two spans is read or written, for any input.
//
// Bad input: data that ends before `wanted` pixels were made give `written` < `wanted`, and a count
// without its byte is not consumed; a run that goes past the last wanted pixel is cut there.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace scenara {

// 256 ready words, ARGB with alpha in the top byte.
using ColorTable = std::array<std::uint32_t, 256>;

// Words behind the wanted pixels that let every path store whole vectors without looking.
inline constexpr std::size_t kUnpackSlack = 96;

// The upper two bits of a byte that asks for a run.
enum class RunMark : std::uint8_t { Pcx = 0xC0, Rle8 = 0x40 };

struct UnpackResult {
    std::size_t consumed;  // packed bytes of all runs and single pixels that were taken
    std::size_t written;   // pixels made, never more than wanted
};

// The code paths, slowest first. All give the same pixels and the same result.
enum class UnpackPath { Plain, Sse2, Avx2 };

// The fastest path that this processor has.
[[nodiscard]] UnpackPath BestUnpackPath();

// A path that the processor does not have falls back to the next one below.
[[nodiscard]] UnpackResult UnpackRuns(RunMark mark, UnpackPath path,
                                      std::span<const std::byte> packed, const ColorTable& colors,
                                      std::span<std::uint32_t> pixels, std::size_t wanted);

}  // namespace scenara
