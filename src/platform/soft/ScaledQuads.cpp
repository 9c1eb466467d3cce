// SPDX-License-Identifier: MIT
#include "platform/soft/ScaledQuads.h"

#include <algorithm>
#include <cmath>

#include "platform/soft/MeanKinds.h"
#include "platform/soft/Rectangle.h"
#include "platform/soft/RowDrawing.h"

namespace scenara::soft {
namespace {

// Within these the general path tells every border of two texels by its doubles, too.
constexpr std::int32_t kMostPixels = 1 << 18;
constexpr double kFarthestPlace = 1 << 20;

// `from` and `to` are the texture coordinates at the run's ends.
std::optional<ScaledRun> AsScaledRun(float begin, float end, float from, float to,
                                     std::int32_t texels) {
    const std::optional<std::int32_t> first = WholePixel(begin);
    const std::optional<std::int32_t> last = WholePixel(end);
    if (!first || !last || *first >= *last || *last - *first > kMostPixels) {
        return std::nullopt;
    }
    const double start = PlaceOf(from, texels);
    const double stop = PlaceOf(to, texels);
    const auto isWhole = [](double place) { return place == std::floor(place); };
    if (!(std::abs(start) <= kFarthestPlace) || !(std::abs(stop) <= kFarthestPlace) ||
        (start != stop && !(isWhole(start) && isWhole(stop)))) {
        return std::nullopt;
    }
    const bool mirrored = stop < start;
    return ScaledRun{*first, *last, mirrored ? -start : start,
                     static_cast<std::int32_t>(std::abs(stop - start)), mirrored};
}

// The texel lines of a quad's lines, one after the other, and those that come some lines later.
class TexelLines {
public:
    TexelLines(const ScaledRun& lines, std::int32_t first, const Texels& texture,
               const Sampling& sampling)
        : steps_(lines, first, What(sampling)),
          ahead_(lines, first + kLinesAhead, What(sampling)),
          axis_(texture.height, lines.mirrored, sampling.clampLines) {}

    [[nodiscard]] std::int64_t Next() { return steps_.Next(); }
    [[nodiscard]] std::int64_t NextAhead() { return ahead_.Next(); }
    [[nodiscard]] TexelAxis& Axis() { return axis_; }

private:
    static constexpr std::int32_t kLinesAhead = 6;  // as where lines are drawn as they are

    static ScaledSteps::Of What(const Sampling& sampling) {
        return sampling.linear ? ScaledSteps::Of::Parts : ScaledSteps::Of::Texels;
    }

    ScaledSteps steps_;
    ScaledSteps ahead_;
    TexelAxis axis_;
};

// Draws the lines of a stretch of columns.
class Stretch {
public:
    Stretch(const Target& target, const RowDrawing& drawing, ScaledLines& lines, std::int32_t left)
        : target_(target), drawing_(drawing), lines_(lines), left_(left) {}

    // Each texel line is seen once or seldom twice: several at a time.
    void DrawEach(TexelLines texels, std::int32_t begin, std::int32_t end) const {
        TexelAxis& axis = texels.Axis();
        DrawSome(begin, end, [&](std::int32_t line) {
            const std::int32_t texel = axis.TexelAt(texels.Next());
            lines_.Write(line, texel, axis.TexelAt(texels.NextAhead()));
        });
    }

    // The same by the means of two lines.
    void DrawMeans(TexelLines texels, std::int32_t begin, std::int32_t end,
                   rows::MeanAlphas alphas) const {
        TexelAxis& axis = texels.Axis();
        DrawSome(begin, end, [&](std::int32_t line) {
            const TwoTexels two(axis, texels.Next());
            lines_.Write(line, two, TwoTexels(axis, texels.NextAhead()), alphas);
        });
    }

    // Each is seen several times: written once.
    void DrawRepeated(TexelLines texels, std::int32_t begin, std::int32_t end) const {
        std::int64_t next = texels.Next();
        for (std::int32_t y = begin; y < end;) {
            const std::int64_t number = next;
            std::int32_t count = 0;
            while (next == number && y + count < end) {
                ++count;
                next = texels.Next();
            }
            const std::int32_t texel = texels.Axis().TexelAt(number);
            lines_.Write(0, texel, texel);
            Draw(y, count, true);
            y += count;
        }
    }

private:
    template <typename Write>
    void DrawSome(std::int32_t begin, std::int32_t end, Write write) const {
        for (std::int32_t y = begin; y < end; y += ScaledLines::kMostLines) {
            const std::int32_t count = std::min(ScaledLines::kMostLines, end - y);
            for (std::int32_t line = 0; line < count; ++line) {
                write(line);
            }
            Draw(y, count, false);
        }
    }

    void Draw(std::int32_t y, std::int32_t count, bool repeated) const {
        TexelRows rows = lines_.Rows(count, repeated);
        rows.destination = target_.PixelAt(left_, y);
        rows.pitch = target_.width;
        drawing_.Draw(rows);
    }

    const Target& target_;
    const RowDrawing& drawing_;
    ScaledLines& lines_;
    std::int32_t left_;
};

}  // namespace

std::optional<ScaledQuad> AsScaledQuad(std::span<const Vertex> corners, const Texels& texture) {
    const std::optional<Rectangle> rectangle = AsRectangle(corners);
    if (!rectangle) {
        return std::nullopt;
    }
    const auto [leftTop, rightBottom] = *rectangle;
    const auto columns =
        AsScaledRun(leftTop.x, rightBottom.x, leftTop.tu, rightBottom.tu, texture.width);
    const auto lines =
        AsScaledRun(leftTop.y, rightBottom.y, leftTop.tv, rightBottom.tv, texture.height);
    if (!columns || !lines) {
        return std::nullopt;
    }
    return ScaledQuad{*columns, *lines, leftTop.color};
}

bool DrawScaledQuad(const Target& target, const PixelStates& states, const Texels& texture,
                    const Coverage& coverage, std::span<const Vertex> corners) {
    const std::optional<ScaledQuad> quad = AsScaledQuad(corners, texture);
    if (!quad) {
        return false;
    }
    const bool linear = states.sampling.linear;
    const std::uint32_t tint = TintOf(quad->color, states.alphaOperation);
    const Coverage::Kind kind = coverage.WhatKind();
    const RowDrawing drawing(states, tint, linear ? KindOfMeans(kind) : kind);
    if (linear && states.blending && !drawing.LeavesHiddenOut() && kind != Coverage::Kind::Opaque) {
        return false;  // the colours of what has no alpha show
    }
    const std::int32_t left = std::max(quad->columns.begin, target.left);
    const std::int32_t right = std::min(quad->columns.end, target.right);
    const std::int32_t top = std::max(quad->lines.begin, target.top);
    const std::int32_t bottom = std::min(quad->lines.end, target.bottom);
    if (top >= bottom) {
        return true;
    }
    const bool hides = coverage.HasBits() && drawing.LeavesHiddenOut();
    const TexelLines texels(quad->lines, top, texture, states.sampling);
    for (std::int32_t x = left; x < right; x += kMostRun) {
        const ScaledColumns columns(quad->columns, x, std::min(x + kMostRun, right), texture,
                                    states.sampling, bottom - top);
        ScaledLines lines(columns, texture, coverage, hides);
        const Stretch stretch(target, drawing, lines, x);
        if (linear) {
            stretch.DrawMeans(texels, top, bottom, AlphasOf(states, kind));
        } else if (quad->lines.texels <= quad->lines.Length() / 2) {
            stretch.DrawRepeated(texels, top, bottom);
        } else {
            stretch.DrawEach(texels, top, bottom);
        }
    }
    return true;
}

}  // namespace scenara::soft
