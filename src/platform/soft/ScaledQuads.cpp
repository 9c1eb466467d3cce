// SPDX-License-Identifier: MIT
#include "platform/soft/ScaledQuads.h"

#include <algorithm>
#include <cmath>

#include "platform/soft/Rectangle.h"
#include "platform/soft/RowDrawing.h"

namespace scenara::soft {
namespace {

// Within these the general path tells every border of two texels by its doubles, too.
constexpr std::int32_t kMostPixels = 1 << 18;
constexpr double kFarthestTexel = 1 << 20;

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
    if (!(std::abs(start) <= kFarthestTexel) || !(std::abs(stop) <= kFarthestTexel) ||
        (start != stop && !(isWhole(start) && isWhole(stop)))) {
        return std::nullopt;
    }
    const bool mirrored = stop < start;
    return ScaledRun{*first, *last, mirrored ? -start : start,
                     static_cast<std::int32_t>(std::abs(stop - start)), mirrored};
}

// How many texel lines further the fetching is, as rows::kLinesAhead has it of lines that are
// drawn.
std::int32_t LinesAhead(const ScaledRun& lines) {
    constexpr std::int64_t kDrawnLines = 6;
    const auto ahead = static_cast<std::int32_t>(kDrawnLines * lines.texels / lines.Length() + 1);
    return lines.mirrored ? -ahead : ahead;
}

// Draws the lines of a stretch of columns.
class Stretch {
public:
    Stretch(const Target& target, const RowDrawing& drawing, ScaledLines& lines, std::int32_t left)
        : target_(target), drawing_(drawing), lines_(lines), left_(left) {}

    // Each texel line is seen once or seldom twice: several at a time.
    void DrawEach(ScaledSteps steps, TexelAxis axis, std::int32_t begin, std::int32_t end) const {
        for (std::int32_t y = begin; y < end; y += ScaledLines::kMostLines) {
            const std::int32_t count = std::min(ScaledLines::kMostLines, end - y);
            for (std::int32_t i = 0; i < count; ++i) {
                lines_.Write(i, axis.TexelAt(steps.Next()));
            }
            Draw(y, count, false);
        }
    }

    // Each is seen several times: written once.
    void DrawRepeated(ScaledSteps steps, TexelAxis axis, std::int32_t begin,
                      std::int32_t end) const {
        std::int64_t next = steps.Next();
        for (std::int32_t y = begin; y < end;) {
            const std::int64_t number = next;
            std::int32_t count = 0;
            while (next == number && y + count < end) {
                ++count;
                next = steps.Next();
            }
            lines_.Write(0, axis.TexelAt(number));
            Draw(y, count, true);
            y += count;
        }
    }

private:
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
    if (!quad || states.sampling.linear) {
        return false;
    }
    const std::int32_t left = std::max(quad->columns.begin, target.left);
    const std::int32_t right = std::min(quad->columns.end, target.right);
    const std::int32_t top = std::max(quad->lines.begin, target.top);
    const std::int32_t bottom = std::min(quad->lines.end, target.bottom);
    if (top >= bottom) {
        return true;
    }
    const RowDrawing drawing(states, TintOf(quad->color, states.alphaOperation),
                             coverage.WhatKind());
    const bool hides = coverage.HasBits() && drawing.LeavesHiddenOut();
    const ScaledSteps steps(quad->lines, top);
    const TexelAxis axis(texture.height, quad->lines.mirrored, states.sampling.clampLines);
    for (std::int32_t x = left; x < right; x += kMostRun) {
        const ScaledColumns columns(quad->columns, x, std::min(x + kMostRun, right), texture,
                                    states.sampling.clampColumns);
        ScaledLines lines(columns, texture, coverage, hides, LinesAhead(quad->lines));
        const Stretch stretch(target, drawing, lines, x);
        if (quad->lines.texels <= quad->lines.Length() / 2) {
            stretch.DrawRepeated(steps, axis, top, bottom);
        } else {
            stretch.DrawEach(steps, axis, top, bottom);
        }
    }
    return true;
}

}  // namespace scenara::soft
