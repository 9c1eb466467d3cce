// SPDX-License-Identifier: MIT
#include "platform/soft/ScaledLines.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace scenara::soft {
namespace {

constexpr std::size_t kBlock = kBlockTexels;

// Coverage is bytes, the first one for the first blocks.
std::uint64_t CoverageWord(const std::uint8_t* bits) {
    std::uint64_t word = 0;
    std::memcpy(&word, bits, sizeof word);
    if constexpr (std::endian::native == std::endian::big) {
        word = __builtin_bswap64(word);
    }
    return word;
}

// Calls `use` with the number of each block.
template <typename Use>
void ForEachBlock(std::uint64_t blocks, Use use) {
    for (; blocks != 0; blocks &= blocks - 1) {
        use(static_cast<std::size_t>(std::countr_zero(blocks)));
    }
}

}  // namespace

ScaledSteps::ScaledSteps(const ScaledRun& run, std::int32_t pixel) {
    if (run.texels == 0) {
        number_ = static_cast<std::int64_t>(std::floor(NearestTexel(run.start)));
        return;
    }
    // floor((2 c + 1) n / (2 w)) from the run's start on.
    whole_ = std::int64_t{2} * run.Length();
    step_ = std::int64_t{2} * run.texels / whole_;
    stepRest_ = std::int64_t{2} * run.texels % whole_;
    const std::int64_t first =
        (std::int64_t{2} * (pixel - run.begin) + 1) * std::int64_t{run.texels};
    number_ = static_cast<std::int64_t>(run.start) + first / whole_;
    rest_ = first % whole_;
}

ScaledColumns::ScaledColumns(const ScaledRun& run, std::int32_t begin, std::int32_t end,
                             const Texels& texture, bool clamped)
    : width_(end - begin),
      count_((static_cast<std::size_t>(width_) + kBlock - 1) / kBlock),
      all_((std::uint64_t{1} << count_) - 1) {
    ScaledSteps steps(run, begin);
    TexelAxis axis(texture.width, run.mirrored, clamped);
    for (std::size_t x = 0; x < static_cast<std::size_t>(width_); ++x) {
        columns_[x] = axis.TexelAt(steps.Next());
    }
    for (std::size_t block = 0; block < count_; ++block) {
        FindCoverageBits(block);
    }
}

std::int32_t ScaledColumns::BeginOf(std::size_t block) const {
    return std::max(0, std::min(static_cast<std::int32_t>(block * kBlock), width_ - kBlockTexels));
}

void ScaledColumns::FindCoverageBits(std::size_t block) {
    const std::int32_t begin = BeginOf(block);
    const std::int32_t* const columns = columns_.data() + begin;
    const auto [least, most] =
        std::minmax_element(columns, columns + std::min(width_, kBlockTexels));
    const std::int32_t first = *least / kBlockTexels;
    const std::int32_t count = *most / kBlockTexels - first + 1;
    constexpr std::int32_t kMostInWord = 64 - 7;
    CoverageBits& bits = bits_[block];
    bits.byte = first / 8;
    bits.shift = static_cast<std::uint32_t>(first % 8);
    bits.mask = count <= kMostInWord ? (std::uint64_t{1} << count) - 1 : 0;
}

std::uint64_t ScaledColumns::VisibleBlocks(const std::uint8_t* bits) const {
    std::uint64_t visible = 0;
    for (std::size_t block = 0; block < count_; ++block) {
        const auto& [byte, shift, mask] = bits_[block];
        const bool seen = mask == 0 || (CoverageWord(bits + byte) >> shift & mask) != 0;
        visible |= std::uint64_t{seen} << block;
    }
    return visible;
}

void ScaledColumns::Write(const std::uint32_t* line, std::uint64_t blocks,
                          std::uint32_t* texels) const {
    if (width_ < kBlockTexels) {
        for (std::size_t x = 0; x < static_cast<std::size_t>(width_); ++x) {
            texels[x] = line[columns_[x]];
        }
        return;
    }
    ForEachBlock(blocks, [&](std::size_t block) {
        const std::int32_t begin = BeginOf(block);
        for (std::size_t x = 0; x < kBlock; ++x) {
            texels[static_cast<std::size_t>(begin) + x] =
                line[columns_[static_cast<std::size_t>(begin) + x]];
        }
    });
}

void ScaledColumns::Clear(std::uint64_t blocks, std::uint32_t* texels) const {
    ForEachBlock(blocks, [&](std::size_t block) {
        std::fill_n(texels + BeginOf(block), std::min(width_, kBlockTexels), 0U);
    });
}

ScaledLines::ScaledLines(const ScaledColumns& columns, const Texels& texture,
                         const Coverage& coverage, bool hides)
    : columns_(columns), texture_(texture), coverage_(coverage), hides_(hides) {
    if (hides_) {
        for (std::int32_t line = 0; line < kMostLines; ++line) {
            columns_.Clear(columns_.AllBlocks(), LineAt(line));
        }
    }
}

void ScaledLines::Write(std::int32_t line, std::int32_t texel) {
    std::uint64_t& visible = visible_[static_cast<std::size_t>(line)];
    const std::uint64_t blocks =
        hides_ ? columns_.VisibleBlocks(coverage_.LineBits(texel)) : columns_.AllBlocks();
    // The last block shares texels with the one before it, so all clearing comes first.
    columns_.Clear(visible & ~blocks, LineAt(line));
    columns_.Write(texture_.Line(texel), blocks, LineAt(line));
    visible = blocks;
}

TexelRows ScaledLines::Rows(std::int32_t count, bool repeated) const {
    TexelRows rows;
    rows.lines = texels_.data();
    rows.linePitch = repeated ? 0 : kMostRun;
    if (hides_) {
        rows.bits = reinterpret_cast<const std::uint8_t*>(visible_.data());
        rows.bitPitch = repeated ? 0 : sizeof visible_[0];
    }
    rows.width = columns_.Width();
    rows.height = count;
    return rows;
}

}  // namespace scenara::soft
