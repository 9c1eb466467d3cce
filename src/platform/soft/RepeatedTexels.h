// SPDX-License-Identifier: MIT
//
// A clipped quad as rectangles of rows, none of which goes beyond an end of its texture: where
// texels wrap around, the quad is cut. For WholeQuads.cpp only.
//
// A small texture repeats often, and cut at each of its ends a quad would come to thousands of
// small rectangles. Such a quad is written out first: some lines of it, as long as they are drawn,
// which then serve for the lines that show the same texels. So a quad costs what its pixels cost,
// whatever its texture's size.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/soft/CopyRows.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

// A run of whole pixels along one direction of the view, and the texels that it shows.
struct WholeRun {
    std::int32_t begin = 0;  // the first pixel, in the view or not
    std::int32_t end = 0;    // behind the last
    std::int32_t texel = 0;  // the first pixel's, counted through the texture's repeats
    bool backwards = false;  // whether texels go down as pixels go up

    [[nodiscard]] std::int32_t Length() const { return end - begin; }

    bool operator==(const WholeRun&) const = default;
};

[[nodiscard]] inline std::int32_t Wrapped(std::int32_t texel, std::int32_t texels) {
    const std::int32_t rest = texel % texels;
    return rest < 0 ? rest + texels : rest;
}

// Calls `draw` for each part of a clipped run that lies within one repeat of the texture.
template <typename Draw>
void ForEachRepeat(WholeRun run, std::int32_t texels, Draw draw) {
    run.texel = Wrapped(run.texel, texels);
    while (run.begin < run.end) {
        const std::int32_t room = run.backwards ? run.texel + 1 : texels - run.texel;
        const std::int32_t length = std::min(room, run.Length());
        draw(WholeRun{run.begin, run.begin + length, run.texel, run.backwards});
        run.begin += length;
        run.texel = run.backwards ? texels - 1 : 0;
    }
}

// A quad as lines that are as long as it is.
class WrittenLines {
public:
    // The runs lie in the view, are not empty and no longer across than kMostRun; the others
    // outlive the lines.
    WrittenLines(const Texels& texture, const Coverage& coverage, const WholeRun& columns,
                 const WholeRun& lines);

    // Whether a quad costs less this way.
    [[nodiscard]] static bool AreBetter(const Texels& texture, const WholeRun& columns,
                                        const WholeRun& lines);

    // Calls `draw` with rectangles of written lines, one below the other, and the line of the view
    // that each begins with.
    template <typename Draw>
    void ForEachBlock(Draw draw) {
        for (std::int32_t line = 0; line < lines_.Length(); line += blockLines_) {
            // Every block begins like the first where a block is some whole repeats.
            if (line == 0 || blockLines_ % texture_.height != 0) {
                WriteBlock(line);
            }
            draw(Rows(std::min(blockLines_, lines_.Length() - line)), lines_.begin + line);
        }
    }

private:
    static constexpr std::int32_t kMostLines = 16;
    static constexpr std::ptrdiff_t kLineBytes = kMostRun / kBlockTexels / 8 + 1;

    [[nodiscard]] std::uint32_t* LineAt(std::int32_t line) {
        return texels_.data() + std::ptrdiff_t{line} * kMostRun;
    }
    [[nodiscard]] std::uint8_t* BitsAt(std::int32_t line) {
        return bits_.data() + std::ptrdiff_t{line} * kLineBytes;
    }

    void WriteBlock(std::int32_t firstLine);
    void WriteLine(const std::uint32_t* texels, std::uint32_t* line) const;
    [[nodiscard]] bool IsVisible(std::int32_t texelLine) const;
    [[nodiscard]] TexelRows Rows(std::int32_t count) const;

    const Texels& texture_;
    const Coverage& coverage_;
    WholeRun columns_;
    WholeRun lines_;
    std::int32_t blockLines_;

    // NOLINTBEGIN(*-member-init): written as needed
    std::array<std::uint32_t, std::size_t{kMostLines} * kMostRun> texels_;
    std::array<std::uint8_t, kMostLines * kLineBytes + Coverage::kReadBeyond> bits_;
    // NOLINTEND(*-member-init)
};

}  // namespace scenara::soft
