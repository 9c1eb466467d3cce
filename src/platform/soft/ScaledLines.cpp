// SPDX-License-Identifier: MIT
#include "platform/soft/ScaledLines.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <span>

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

ScaledSteps::ScaledSteps(const ScaledRun& run, std::int32_t pixel, Of what) {
    const bool inParts = what == Of::Parts;
    if (run.texels == 0) {
        const double place = inParts ? MeanParts(run.start) : NearestTexel(run.start);
        number_ = static_cast<std::int64_t>(std::floor(place));
        return;
    }
    // From the run's start on: floor((2 c + 1) n / (2 w)), or with n in parts floor((2 c + 1) n /
    // (2 w) + 1/2) - 128.
    const std::int64_t unit = inParts ? kTexelParts : 1;
    const std::int64_t twice = 2 * unit * run.texels;
    whole_ = std::int64_t{2} * run.Length();
    step_ = twice / whole_;
    stepRest_ = twice % whole_;
    const std::int64_t first =
        (std::int64_t{2} * (pixel - run.begin) + 1) * (twice / 2) + (inParts ? run.Length() : 0);
    number_ = unit * static_cast<std::int64_t>(run.start) + first / whole_ -
              (inParts ? kTexelParts / 2 : 0);
    rest_ = first % whole_;
}

// NOLINTNEXTLINE(*-member-init): the tables are written as needed
ScaledColumns::ScaledColumns(const ScaledRun& run, std::int32_t begin, std::int32_t end,
                             const Texels& texture, const Sampling& sampling, std::int32_t lines,
                             RowPath path)
    : width_(end - begin),
      count_((static_cast<std::size_t>(width_) + kBlock - 1) / kBlock),
      all_((std::uint64_t{1} << count_) - 1),
      linear_(sampling.linear),
      path_(std::min(path, BestRowPath())) {
    using Of = ScaledSteps::Of;
    const ScaledSteps steps(run, begin, linear_ ? Of::Parts : Of::Texels);
    const TexelAxis axis(texture.width, run.mirrored, sampling.clampColumns);
    const std::int64_t passed = linear_ ? FindMeans(steps, axis) : FindNearest(steps, axis);
    const std::int32_t shown = Seconds()[static_cast<std::size_t>(width_) - 1] - columns_[0];
    // Half a texture back looks as half a texture on, but for its sign.
    const bool ordered =
        sampling.clampColumns || std::int64_t{shown} == (run.mirrored ? -passed : passed);
    constexpr std::int32_t kFewLines = 2;
    const bool worthIt = linear_ || lines > kFewLines;
    for (std::size_t block = 0; block < count_; ++block) {
        begins_[block] =
            std::max(0, std::min(static_cast<std::int32_t>(block * kBlock), width_ - kBlockTexels));
        bits_[block] = {};
        if (worthIt) {
            Prepare(block, RangeOf(block, ordered), texture.width);
        }
    }
}

// How many texels the last one is further than the first, all repeats counted.
std::int64_t ScaledColumns::FindNearest(ScaledSteps steps, TexelAxis axis) {
    const std::int64_t first = ScaledSteps(steps).Next();
    std::int64_t number = first;
    for (std::size_t x = 0; x < static_cast<std::size_t>(width_); ++x) {
        number = steps.Next();
        columns_[x] = axis.TexelAt(number);
    }
    return number - first;
}

std::int64_t ScaledColumns::FindMeans(ScaledSteps steps, TexelAxis axis) {
    const std::int64_t first = ScaledSteps(steps).Next();
    std::int64_t place = first;
    for (std::size_t x = 0; x < static_cast<std::size_t>(width_); ++x) {
        place = steps.Next();
        const TwoTexels two(axis, place);
        columns_[x] = two.first;
        seconds_[x] = two.second;
        parts_[x] = two.parts << 16U | two.parts;
    }
    return (place >> 8) + 1 - (first >> 8);
}

// The texels that a block shows. Where no repeat begins in the stretch they go one way.
ScaledColumns::Range ScaledColumns::RangeOf(std::size_t block, bool ordered) const {
    const auto begin = static_cast<std::size_t>(begins_[block]);
    const auto count = static_cast<std::size_t>(std::min(width_, kBlockTexels));
    const auto firsts = std::span(columns_).subspan(begin, count);
    const auto seconds = std::span(Seconds()).subspan(begin, count);
    if (ordered) {
        const auto [least, most] = std::minmax(firsts.front(), seconds.back());
        return {least, most};
    }
    const auto [least, most] = std::ranges::minmax(firsts);
    const auto [leastSecond, mostSecond] = std::ranges::minmax(seconds);
    return {std::min(least, leastSecond), std::max(most, mostSecond)};
}

void ScaledColumns::Prepare(std::size_t block, const Range& range, std::int32_t textureWidth) {
    const std::int32_t first = range.least / kBlockTexels;
    const std::int32_t bitCount = range.most / kBlockTexels - first + 1;
    constexpr std::int32_t kMostInWord = 64 - 7;
    CoverageBits& bits = bits_[block];
    bits.byte = first / 8;
    bits.shift = static_cast<std::uint32_t>(first % 8);
    bits.mask = bitCount <= kMostInWord ? (std::uint64_t{1} << bitCount) - 1 : 0;

    const std::int32_t base = std::min(range.least, textureWidth - 2 * kBlockTexels);
    if (width_ < kBlockTexels || base < 0 || range.most - base >= 2 * kBlockTexels) {
        return;
    }
    near_ |= std::uint64_t{1} << block;
    bases_[block] = base;
    const auto from = static_cast<std::size_t>(begins_[block]);
    const std::size_t to = block * kBlock;
    for (std::size_t x = 0; x < kBlock; ++x) {
        places_[to + x] = columns_[from + x] - base;
    }
    for (std::size_t x = 0; linear_ && x < kBlock; ++x) {
        secondPlaces_[to + x] = seconds_[from + x] - base;
        blockParts_[to + x] = parts_[from + x];
    }
}

std::uint64_t ScaledColumns::VisibleBlocks(const std::uint8_t* bits,
                                           const std::uint8_t* others) const {
    std::uint64_t visible = 0;
    for (std::size_t block = 0; block < count_; ++block) {
        const auto& [byte, shift, mask] = bits_[block];
        const std::uint64_t both = CoverageWord(bits + byte) | CoverageWord(others + byte);
        visible |= std::uint64_t{mask == 0 || (both >> shift & mask) != 0} << block;
    }
    return visible;
}

void ScaledColumns::Write(const std::uint32_t* line, [[maybe_unused]] const std::uint32_t* ahead,
                          std::uint64_t blocks, std::uint32_t* texels) const {
#if SCENARA_ROWS_X86
    if (path_ >= RowPath::Avx2) {
        const auto pick = path_ == RowPath::Avx512 ? rows::PickAvx512 : rows::PickAvx2;
        pick(Picked(), blocks & near_, line, ahead, texels);
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

void ScaledColumns::Write(const rows::MeanLines& lines, std::uint64_t blocks,
                          std::uint32_t* texels) const {
#if SCENARA_ROWS_X86
    if (path_ >= RowPath::Avx2) {
        const auto write = path_ == RowPath::Avx512 ? rows::MeanAvx512 : rows::MeanAvx2;
        write({Picked(), secondPlaces_.data(), blockParts_.data()}, blocks & near_, lines, texels);
        blocks &= ~near_;
    }
#endif
    const std::size_t count = std::min(static_cast<std::size_t>(width_), kBlock);
    ForEachBlock(blocks, [&](std::size_t block) {
        const auto begin = static_cast<std::size_t>(begins_[block]);
        for (std::size_t x = begin; x < begin + count; ++x) {
            texels[x] = MeanOf({lines.above[columns_[x]], lines.above[seconds_[x]],
                                lines.below[columns_[x]], lines.below[seconds_[x]]},
                               parts_[x] & 0xFFU, lines.partsBelow,
                               lines.alphas != rows::MeanAlphas::Unused);
        }
    });
}

void ScaledColumns::Clear(std::uint64_t blocks, std::uint32_t* texels) const {
    ForEachBlock(blocks, [&](std::size_t block) {
        std::fill_n(texels + begins_[block], std::min(width_, kBlockTexels), 0U);
    });
}

// NOLINTNEXTLINE(*-member-init): the texels are written as needed
ScaledLines::ScaledLines(const ScaledColumns& columns, const Texels& texture,
                         const Coverage& coverage, bool hides)
    : columns_(columns), texture_(texture), coverage_(coverage), hides_(hides) {
    if (hides_) {
        for (std::int32_t line = 0; line < kMostLines; ++line) {
            columns_.Clear(columns_.AllBlocks(), LineAt(line));
        }
    }
}

void ScaledLines::Write(std::int32_t line, std::int32_t texel, std::int32_t ahead) {
    const std::uint64_t visible = VisibleBlocks(texel, texel);
    Hide(line, visible);
    columns_.Write(texture_.Line(texel), texture_.Line(ahead), visible, LineAt(line));
}

void ScaledLines::Write(std::int32_t line, const TwoTexels& texels, const TwoTexels& ahead,
                        rows::MeanAlphas alphas) {
    const std::uint64_t visible = VisibleBlocks(texels.first, texels.second);
    Hide(line, visible);
    columns_.Write({texture_.Line(texels.first), texture_.Line(texels.second), texels.parts, alphas,
                    texture_.Line(ahead.first), texture_.Line(ahead.second)},
                   visible, LineAt(line));
}

std::uint64_t ScaledLines::VisibleBlocks(std::int32_t texelLine, std::int32_t other) const {
    return hides_ ? columns_.VisibleBlocks(coverage_.LineBits(texelLine), coverage_.LineBits(other))
                  : columns_.AllBlocks();
}

// The last block shares texels with the one before it, so that this comes before any writing.
void ScaledLines::Hide(std::int32_t line, std::uint64_t visible) {
    std::uint64_t& written = visible_[static_cast<std::size_t>(line)];
    columns_.Clear(written & ~visible, LineAt(line));
    written = visible;
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
