// SPDX-License-Identifier: MIT
#include "platform/soft/ScaledLines.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "platform/soft/RowPaths.h"

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
                             const Texels& texture, bool clamped, RowPath path)
    : width_(end - begin),
      count_((static_cast<std::size_t>(width_) + kBlock - 1) / kBlock),
      all_((std::uint64_t{1} << count_) - 1),
      path_(std::min(path, BestRowPath())) {
    ScaledSteps steps(run, begin);
    TexelAxis axis(texture.width, run.mirrored, clamped);
    for (std::size_t x = 0; x < static_cast<std::size_t>(width_); ++x) {
        columns_[x] = axis.TexelAt(steps.Next());
    }
    for (std::size_t block = 0; block < count_; ++block) {
        Prepare(block, texture.width);
    }
}

void ScaledColumns::Prepare(std::size_t block, std::int32_t textureWidth) {
    const std::int32_t begin =
        std::max(0, std::min(static_cast<std::int32_t>(block * kBlock), width_ - kBlockTexels));
    begins_[block] = begin;
    const std::int32_t* const columns = columns_.data() + begin;
    const std::int32_t count = std::min(width_, kBlockTexels);
    const auto [least, most] = std::minmax_element(columns, columns + count);

    const std::int32_t first = *least / kBlockTexels;
    const std::int32_t bitCount = *most / kBlockTexels - first + 1;
    constexpr std::int32_t kMostInWord = 64 - 7;
    CoverageBits& bits = bits_[block];
    bits.byte = first / 8;
    bits.shift = static_cast<std::uint32_t>(first % 8);
    bits.mask = bitCount <= kMostInWord ? (std::uint64_t{1} << bitCount) - 1 : 0;

    const std::int32_t base = std::min(*least, textureWidth - 2 * kBlockTexels);
    if (count == kBlockTexels && base >= 0 && *most - base < 2 * kBlockTexels) {
        near_ |= std::uint64_t{1} << block;
        bases_[block] = base;
        for (std::size_t x = 0; x < kBlock; ++x) {
            places_[block * kBlock + x] = columns[x] - base;
        }
    }
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

void ScaledColumns::Write(const std::uint32_t* line, [[maybe_unused]] const std::uint32_t* ahead,
                          std::uint64_t blocks, std::uint32_t* texels) const {
#if SCENARA_ROWS_X86
    if (path_ >= RowPath::Avx2) {
        const rows::PickedBlocks picked{bases_.data(), places_.data(), begins_.data()};
        const auto pick = path_ == RowPath::Avx512 ? rows::PickAvx512 : rows::PickAvx2;
        pick(picked, blocks & near_, line, ahead, texels);
        blocks &= ~near_;
    }
#endif
    const std::size_t count = std::min(static_cast<std::size_t>(width_), kBlock);
    ForEachBlock(blocks, [&](std::size_t block) {
        const auto begin = static_cast<std::size_t>(begins_[block]);
        for (std::size_t x = begin; x < begin + count; ++x) {
            texels[x] = line[columns_[x]];
        }
    });
}

void ScaledColumns::Clear(std::uint64_t blocks, std::uint32_t* texels) const {
    ForEachBlock(blocks, [&](std::size_t block) {
        std::fill_n(texels + begins_[block], std::min(width_, kBlockTexels), 0U);
    });
}

ScaledLines::ScaledLines(const ScaledColumns& columns, const Texels& texture,
                         const Coverage& coverage, bool hides, std::int32_t linesAhead)
    : columns_(columns),
      texture_(texture),
      coverage_(coverage),
      hides_(hides),
      linesAhead_(linesAhead) {
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
    const std::int32_t ahead = std::clamp(texel + linesAhead_, 0, texture_.height - 1);
    columns_.Write(texture_.Line(texel), texture_.Line(ahead), blocks, LineAt(line));
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
