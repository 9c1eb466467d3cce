// SPDX-License-Identifier: MIT
#include "platform/soft/ScaleRows.h"

#include <algorithm>
#include <bit>

#include "platform/soft/RowPaths.h"

namespace scenara::soft {
namespace rows {
namespace {

constexpr std::int32_t kBitsAfterPoint = 7;
constexpr std::int32_t kWeightBits = 15;
constexpr std::size_t kChannels = 4 * kScaleBlock;

// The bytes of a block's pixels, and what is made of them: flat loops, for the compiler to take
// several at a time.
using Pixels = std::array<std::uint32_t, kScaleBlock>;
using Bytes = std::array<std::uint8_t, kChannels>;

// As the instruction has it: product / 2^15, to the nearest, ties up.
std::int16_t Part(std::int16_t difference, std::int16_t weight) {
    const std::int32_t product = std::int32_t{difference} * weight;
    return static_cast<std::int16_t>((product + (1 << (kWeightBits - 1))) >> kWeightBits);
}

std::int16_t Difference(std::int16_t from, std::int16_t to) {
    return static_cast<std::int16_t>(to - from);
}

std::int16_t WithBits(std::uint8_t channel) {
    return static_cast<std::int16_t>(channel << kBitsAfterPoint);
}

Pixels PixelsOf(const std::uint32_t* window, const std::array<std::uint8_t, kScaleBlock>& which) {
    Pixels pixels{};
    std::ranges::transform(which, pixels.begin(), [window](std::uint8_t i) { return window[i]; });
    return pixels;
}

}  // namespace

void RepeatPlain(const std::uint32_t* row, const ScaleBlock& block,
                 std::span<std::uint32_t> shown) {
    const Pixels pixels = PixelsOf(row + block.firsts, block.first);
    std::copy_n(pixels.begin(), shown.size(), shown.begin());
}

void MixColumnsPlain(const std::uint32_t* row, const ScaleBlock& block, MixedBlock& mixed) {
    const auto from = std::bit_cast<Bytes>(PixelsOf(row + block.firsts, block.first));
    const auto to = std::bit_cast<Bytes>(PixelsOf(row + block.neighbours, block.neighbour));
    std::array<std::int16_t, kChannels> weights{};
    for (std::size_t i = 0; i < kChannels; ++i) {
        weights[i] = block.weight[i / 4];
    }
    for (std::size_t i = 0; i < kChannels; ++i) {
        const std::int16_t difference = Difference(WithBits(from[i]), WithBits(to[i]));
        mixed.channels[i] =
            static_cast<std::int16_t>(WithBits(from[i]) + Part(difference, weights[i]));
    }
}

void MixRowsPlain(const MixedBlock& first, const MixedBlock& second, std::int16_t weight,
                  std::span<std::uint32_t> shown) {
    constexpr std::int32_t kHalf = 1 << (kBitsAfterPoint - 1);
    Bytes bytes{};
    for (std::size_t i = 0; i < kChannels; ++i) {
        const std::int16_t from = first.channels[i];
        const auto mean =
            static_cast<std::int16_t>(from + Part(Difference(from, second.channels[i]), weight));
        bytes[i] = static_cast<std::uint8_t>((mean + kHalf) >> kBitsAfterPoint);
    }
    const auto pixels = std::bit_cast<Pixels>(bytes);
    std::copy_n(pixels.begin(), shown.size(), shown.begin());
}

}  // namespace rows

namespace {

constexpr auto kBlock = static_cast<std::int32_t>(kScaleBlock);

}  // namespace

ScaleRows::ScaleRows(std::int32_t width, RowPath path)
    : vectors_(width >= kBlock && std::min(path, BestRowPath()) >= RowPath::Avx2) {}

void ScaleRows::Repeat(const std::uint32_t* row, std::span<const ScaleBlock> blocks,
                       std::span<std::uint32_t> shown) const {
    std::size_t done = 0;
#if SCENARA_ROWS_X86
    if (vectors_) {
        done = shown.size() / kScaleBlock;
        rows::RepeatAvx2(row, blocks.first(done), shown.data());
    }
#endif
    for (; done * kScaleBlock < shown.size(); ++done) {
        const std::size_t at = done * kScaleBlock;
        rows::RepeatPlain(row, blocks[done],
                          shown.subspan(at, std::min(kScaleBlock, shown.size() - at)));
    }
}

void ScaleRows::MixColumns(const std::uint32_t* row, std::span<const ScaleBlock> blocks,
                           MixedBlock* mixed) const {
#if SCENARA_ROWS_X86
    if (vectors_) {
        rows::MixColumnsAvx2(row, blocks, mixed);
        return;
    }
#endif
    for (const ScaleBlock& block : blocks) {
        rows::MixColumnsPlain(row, block, *mixed++);
    }
}

// A block that is not wanted whole is made whole beside the row.
void ScaleRows::MixRows(const MixedBlock* first, const MixedBlock* second, std::int16_t weight,
                        std::span<std::uint32_t> shown) const {
#if SCENARA_ROWS_X86
    if (vectors_) {
        const std::size_t whole = shown.size() / kScaleBlock;
        rows::MixRowsAvx2(first, second, weight, whole, shown.data());
        if (const auto rest = shown.subspan(whole * kScaleBlock); !rest.empty()) {
            std::array<std::uint32_t, kScaleBlock> last{};
            rows::MixRowsAvx2(first + whole, second + whole, weight, 1, last.data());
            std::copy_n(last.begin(), rest.size(), rest.begin());
        }
        return;
    }
#endif
    for (std::size_t at = 0; at < shown.size(); at += kScaleBlock) {
        rows::MixRowsPlain(*first++, *second++, weight,
                           shown.subspan(at, std::min(kScaleBlock, shown.size() - at)));
    }
}

}  // namespace scenara::soft
