// SPDX-License-Identifier: MIT
#include "platform/soft/WholeQuads.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/soft/CopyRows.h"
#include "platform/soft/Rectangle.h"
#include "platform/soft/RowDrawing.h"
#include "platform/soft/Sampling.h"

namespace scenara::soft {
namespace {

// Beyond this a float has no halves left, and what a quad shows is for the general path to say.
constexpr double kFarthestTexel = 16777216;  // 2^24

// How far a quad's outermost texels may be from whole ones, because a texture coordinate is a
// float. All others are less far; with less than a half each centre is in the texel that it would
// be in with none. A quarter leaves the general path's own rounding a quarter, which is far more
// than it needs within the bounds above.
constexpr double kTexelTolerance = 0.25;

// `from` and `to` are the texture coordinates at the run's ends.
std::optional<WholeRun> AsWholeRun(float begin, float end, float from, float to,
                                   std::int32_t texels) {
    const std::optional<std::int32_t> first = WholePixel(begin);
    const std::optional<std::int32_t> last = WholePixel(end);
    if (!first || !last || *first >= *last) {
        return std::nullopt;
    }
    const double texelFrom = static_cast<double>(from) * texels;  // exact
    const double texelTo = static_cast<double>(to) * texels;
    if (!(std::abs(texelFrom) <= kFarthestTexel) || !(std::abs(texelTo) <= kFarthestTexel)) {
        return std::nullopt;
    }
    const double edge = std::floor(texelFrom + 0.5);
    const bool backwards = texelTo < texelFrom;
    const double length = double{1} * *last - *first;
    const double otherEdge = backwards ? edge - length : edge + length;
    if (std::abs(texelFrom - edge) > kTexelTolerance ||
        std::abs(texelTo - otherEdge) > kTexelTolerance) {
        return std::nullopt;
    }
    const auto texel = static_cast<std::int32_t>(edge);
    return WholeRun{*first, *last, backwards ? texel - 1 : texel, backwards};
}

// The part of a run that lies among the pixels from `least` up to, and without, `most`.
WholeRun Clipped(const WholeRun& run, std::int32_t least, std::int32_t most) {
    const std::int32_t begin = std::max(run.begin, least);
    const std::int32_t skipped = begin - run.begin;
    return {begin, std::min(run.end, most),
            run.backwards ? run.texel - skipped : run.texel + skipped, run.backwards};
}

// Whether all of a run's texels are the texture's own and not repeats.
bool LiesInTexture(const WholeRun& run, std::int32_t texels) {
    const std::int32_t last =
        run.backwards ? run.texel - (run.Length() - 1) : run.texel + (run.Length() - 1);
    return std::min(run.texel, last) >= 0 && std::max(run.texel, last) < texels;
}

// Whether this sampling shows the quad's texels as they are. A quarter of a texel is nothing to
// the nearest one, but a weight in a mean.
bool ShowsTexels(const Sampling& sampling, const WholeQuad& quad, std::span<const Vertex> corners,
                 const Texels& texture) {
    const auto isEdge = [](float coordinate, std::int32_t texels) {
        const double place = PlaceOf(coordinate, texels);
        return place == std::floor(place);
    };
    const auto onEdges = [&](const Vertex& corner) {
        return isEdge(corner.tu, texture.width) && isEdge(corner.tv, texture.height);
    };
    return (!sampling.linear || std::ranges::all_of(corners, onEdges)) &&
           (!sampling.clampColumns || LiesInTexture(quad.columns, texture.width)) &&
           (!sampling.clampLines || LiesInTexture(quad.lines, texture.height));
}

TexelRows RowsOf(const Target& target, const Texels& texture, const Coverage& coverage,
                 const WholeRun& columns, const WholeRun& lines) {
    const std::ptrdiff_t step = lines.backwards ? -1 : 1;
    TexelRows rows;
    rows.lines = texture.Line(lines.texel);
    rows.linePitch = step * texture.pitch;
    rows.bits = coverage.LineBits(lines.texel);
    rows.bitPitch = step * coverage.LinePitch();
    rows.width = columns.Length();
    rows.height = lines.Length();
    rows.column = columns.backwards ? columns.texel - rows.width + 1 : columns.texel;
    rows.mirrored = columns.backwards;
    rows.destination = target.PixelAt(columns.begin, lines.begin);
    rows.pitch = target.width;
    return rows;
}

// Calls `draw` for each part of a clipped run that can be drawn at a time.
template <typename Draw>
void ForEachStretch(WholeRun run, Draw draw) {
    while (run.begin < run.end) {
        const std::int32_t length = std::min(kMostRun, run.Length());
        draw(WholeRun{run.begin, run.begin + length, run.texel, run.backwards});
        run.begin += length;
        run.texel += run.backwards ? -length : length;
    }
}

void DrawStretch(const Target& target, const RowDrawing& drawing, const Texels& texture,
                 const Coverage& coverage, const WholeRun& columns, const WholeRun& lines) {
    if (WrittenLines::AreBetter(texture, columns, lines)) {
        WrittenLines(texture, coverage, columns, lines)
            .ForEachBlock([&](TexelRows rows, std::int32_t line) {
                rows.destination = target.PixelAt(columns.begin, line);
                rows.pitch = target.width;
                drawing.Draw(rows);
            });
        return;
    }
    ForEachRepeat(lines, texture.height, [&](const WholeRun& someLines) {
        ForEachRepeat(columns, texture.width, [&](const WholeRun& someColumns) {
            drawing.Draw(RowsOf(target, texture, coverage, someColumns, someLines));
        });
    });
}

}  // namespace

std::optional<WholeQuad> AsWholeQuad(std::span<const Vertex> corners, const Texels& texture) {
    const std::optional<Rectangle> rectangle = AsRectangle(corners);
    if (!rectangle) {
        return std::nullopt;
    }
    const auto [leftTop, rightBottom] = *rectangle;
    const auto columns =
        AsWholeRun(leftTop.x, rightBottom.x, leftTop.tu, rightBottom.tu, texture.width);
    const auto lines =
        AsWholeRun(leftTop.y, rightBottom.y, leftTop.tv, rightBottom.tv, texture.height);
    if (!columns || !lines) {
        return std::nullopt;
    }
    return WholeQuad{*columns, *lines, leftTop.color};
}

bool DrawWholeQuad(const Target& target, const PixelStates& states, const Texels& texture,
                   const Coverage& coverage, std::span<const Vertex> corners) {
    const std::optional<WholeQuad> quad = AsWholeQuad(corners, texture);
    if (!quad || !ShowsTexels(states.sampling, *quad, corners, texture)) {
        return false;
    }
    const WholeRun columns = Clipped(quad->columns, target.left, target.right);
    const WholeRun lines = Clipped(quad->lines, target.top, target.bottom);
    if (columns.Length() <= 0 || lines.Length() <= 0) {
        return true;
    }
    const RowDrawing drawing(states, TintOf(quad->color, states.alphaOperation),
                             coverage.WhatKind());
    ForEachStretch(columns, [&](const WholeRun& stretch) {
        DrawStretch(target, drawing, texture, coverage, stretch, lines);
    });
    return true;
}

}  // namespace scenara::soft
