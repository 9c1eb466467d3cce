// SPDX-License-Identifier: MIT
//
// Quads that are drawn at another size than their texels have: which texels a run of pixels shows,
// and lines of such a quad written out as they are drawn. For ScaledQuads.cpp only.
//
// The texels of a stretch of a line are worked out once for all lines. Where a line has nothing to
// see, which the texture's coverage tells, nothing is looked up.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/soft/CopyRows.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/RowPaths.h"
#include "platform/soft/Sampling.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

// A run of whole pixels along one direction of the view, and the texels that are drawn over it,
// counted as Sampling.h has it: they go up as pixels do.
struct ScaledRun {
    std::int32_t begin = 0;   // the first pixel, in the view or not
    std::int32_t end = 0;     // behind the last
    double start = 0;         // the place at the first pixel's edge; whole where there are texels
    std::int32_t texels = 0;  // 0: all pixels show what is at `start`
    bool mirrored = false;

    [[nodiscard]] std::int32_t Length() const { return end - begin; }

    bool operator==(const ScaledRun&) const = default;
};

// What a run's pixels show, one after the other, in whole numbers: the number of a texel, or the
// parts that the first of two texels of a mean lies from the axis' origin.
class ScaledSteps {
public:
    enum class Of { Texels, Parts };

    // From this pixel of the run on.
    ScaledSteps(const ScaledRun& run, std::int32_t pixel, Of what);

    [[nodiscard]] std::int64_t Next() {
        const std::int64_t number = number_;
        rest_ += stepRest_;
        const bool further = rest_ >= whole_;
        rest_ -= further ? whole_ : 0;
        number_ += step_ + (further ? 1 : 0);
        return number;
    }

private:
    std::int64_t whole_ = 1;   // what the rests are parts of
    std::int64_t number_ = 0;  // of the next pixel
    std::int64_t rest_ = 0;
    std::int64_t step_ = 0;
    std::int64_t stepRest_ = 0;
};

// Two neighbours along an axis of a texture, and how many of 256 parts the second has in the mean.
struct TwoTexels {
    std::int32_t first = 0;
    std::int32_t second = 0;
    std::uint32_t parts = 0;

    // `place` in parts, as ScaledSteps counts them.
    TwoTexels(TexelAxis& axis, std::int64_t place)
        : first(axis.TexelAt(place >> 8)),
          second(axis.TexelAt((place >> 8) + 1)),
          parts(static_cast<std::uint32_t>(place & 255)) {}
};

// The columns of a texture that a stretch of a line shows.
class ScaledColumns {
public:
    // The pixels from `begin` to `end` (outside), kMostRun at most, of the run. For a few lines
    // less is prepared.
    ScaledColumns(const ScaledRun& run, std::int32_t begin, std::int32_t end, const Texels& texture,
                  const Sampling& sampling, std::int32_t lines, RowPath path = BestRowPath());

    [[nodiscard]] std::int32_t Width() const { return width_; }

    // A bit for each block of the stretch, the lowest for the first; the last block ends where the
    // stretch does. All: all of them. Of the mean of two lines with these bits of coverage, which
    // may be one: those in which something may be seen.
    [[nodiscard]] std::uint64_t AllBlocks() const { return all_; }
    [[nodiscard]] std::uint64_t VisibleBlocks(const std::uint8_t* bits,
                                              const std::uint8_t* others) const;

    // Writes the nearest texels of these blocks. The line is the texture's, from its column 0;
    // `ahead` is one that will be drawn soon.
    void Write(const std::uint32_t* line, const std::uint32_t* ahead, std::uint64_t blocks,
               std::uint32_t* texels) const;
    // The means, where the sampling is linear. The colour of one whose alpha is 0 is any.
    void Write(const rows::MeanLines& lines, std::uint64_t blocks, std::uint32_t* texels) const;
    // Writes transparent ones.
    void Clear(std::uint64_t blocks, std::uint32_t* texels) const;

private:
    static constexpr std::size_t kMostBlocks = std::size_t{kMostRun} / kBlockTexels;

    // Where in a line's coverage a block's texels are.
    struct CoverageBits {
        std::int32_t byte = 0;
        std::uint32_t shift = 0;
        std::uint64_t mask = 0;  // 0: too far apart to tell
    };

    // From and to, included.
    struct Range {
        std::int32_t least;
        std::int32_t most;
    };

    [[nodiscard]] std::int64_t FindNearest(ScaledSteps steps, TexelAxis axis);
    [[nodiscard]] std::int64_t FindMeans(ScaledSteps steps, TexelAxis axis);
    [[nodiscard]] Range RangeOf(std::size_t block, bool ordered) const;
    void Prepare(std::size_t block, const Range& range, std::int32_t textureWidth);
    [[nodiscard]] const std::array<std::int32_t, kMostRun>& Seconds() const {
        return linear_ ? seconds_ : columns_;
    }
    [[nodiscard]] rows::PickedBlocks Picked() const {
        return {bases_.data(), places_.data(), begins_.data()};
    }

    std::int32_t width_;
    std::size_t count_;  // of blocks
    std::uint64_t all_;
    std::uint64_t near_ = 0;  // blocks whose texels lie near to each other: they can be picked
    bool linear_;
    RowPath path_;

    std::array<std::int32_t, kMostRun> columns_;
    std::array<std::int32_t, kMostRun> seconds_;  // of a mean
    std::array<std::uint32_t, kMostRun> parts_;   // of the second, twice in a word
    std::array<CoverageBits, kMostBlocks> bits_;
    std::array<std::int32_t, kMostBlocks> begins_;  // where blocks begin in the stretch
    std::array<std::int32_t, kMostBlocks> bases_;   // and near which texel, as far as they are near
    std::array<std::int32_t, kMostRun> places_;     // each pixel's from there, block by block
    std::array<std::int32_t, kMostRun> secondPlaces_;
    std::array<std::uint32_t, kMostRun> blockParts_;
};

// Some lines of a stretch, as they are drawn.
class ScaledLines {
public:
    static constexpr std::int32_t kMostLines = 8;

    // They outlive it. With `hides`, texels of alpha 0 are not seen, and blocks of them are left
    // out.
    ScaledLines(const ScaledColumns& columns, const Texels& texture, const Coverage& coverage,
                bool hides);

    // Makes one of the lines that of the texture's line `texel`, or the mean of two. `ahead` will
    // be wanted soon.
    void Write(std::int32_t line, std::int32_t texel, std::int32_t ahead);
    void Write(std::int32_t line, const TwoTexels& texels, const TwoTexels& ahead,
               rows::MeanAlphas alphas);

    // The first `count` lines, or `count` times the first one, to be given a destination.
    [[nodiscard]] TexelRows Rows(std::int32_t count, bool repeated) const;

private:
    [[nodiscard]] std::uint64_t VisibleBlocks(std::int32_t texelLine, std::int32_t other) const;
    void Hide(std::int32_t line, std::uint64_t visible);
    [[nodiscard]] std::uint32_t* LineAt(std::int32_t line) {
        return texels_.data() + std::ptrdiff_t{line} * kMostRun;
    }

    const ScaledColumns& columns_;
    const Texels& texture_;
    const Coverage& coverage_;
    bool hides_;
    std::array<std::uint64_t, kMostLines> visible_{};  // blocks that are not transparent
    std::array<std::uint32_t, std::size_t{kMostLines} * kMostRun> texels_;
};

}  // namespace scenara::soft
