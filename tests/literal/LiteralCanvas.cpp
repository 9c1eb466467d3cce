// SPDX-License-Identifier: MIT
//
// Where the copies of an element's picture stand on a canvas of the stage's own size: places are
// worked out in double, from start, motion and camera, and rounded once, at the edges of a copy.
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "literal/LiteralStage.h"
#include "literal/LiteralTexels.h"

namespace scenara::test {
void LiteralStage::DrawOnCanvas(const Element& element, Shown& shown) {
    const std::array<double, 2> pixels = {PixelOf(element, shown, 0), PixelOf(element, shown, 1)};
    if (pixels[0] == 0 || pixels[1] == 0) {
        return;
    }
    shown.window = CanvasWindow(*element.file);
    const bool scaled = std::abs(pixels[0]) != 1 || std::abs(pixels[1]) != 1;
    const bool turned = !element.parallax && IsTurned(shown);
    shown.mixesTexels = rules_.mixesTexels && (scaled || turned || HasWidths(*element.file));
    if (element.parallax) {
        DrawRows(element, shown);
        return;
    }
    if (turned) {
        DrawTurned(element, shown);
        return;
    }
    std::array<std::vector<Span>, 2> copies;
    std::array<bool, 2> mirrored{};
    for (std::size_t axis = 0; axis < 2; ++axis) {
        const Reach reach = ReachOf(shown, axis, AxisPlace(element, axis), pixels[axis]);
        const Tiling tiling = TilingOf(*element.file, shown, axis);
        const double step = static_cast<double>(tiling.distance) * std::abs(PixelOf(element, axis));
        copies[axis] = Copies(reach, tiling, step, axis);
        mirrored[axis] = reach.mirrored;
    }
    for (const Span& rows : copies[1]) {
        for (const Span& columns : copies[0]) {
            DrawQuad(shown, columns, rows, {0, shown.image->height}, mirrored);
        }
    }
}

// Of the element's axis point.
double LiteralStage::AxisPlace(const Element& element, std::size_t axis) const {
    const double middle = axis == 0 ? space_.width / 2.0 : 0;
    const double moved = element.motion[axis] + CarriedBy(element, axis);
    const double seen = seenFrom_[axis] * Wide(element.delta[axis]);
    const double place =
        space_.detail *
        (middle + space_.half * ((element.start[axis] + moved) * space_.scale[axis] - seen));
    return Zoomed(*element.file, axis, place);
}

double LiteralStage::ZoomOf(const BackgroundElement& element, std::size_t axis) const {
    return std::max(1 - Wide(element.zoomDelta[axis]) * (1 - zoom_), 0.0);
}

double LiteralStage::Zoomed(const BackgroundElement& element, std::size_t axis,
                            double place) const {
    const double fixed = axis == 0 ? space_.detail * (space_.width / 2.0) : ground_;
    return fixed + (place - fixed) * ZoomOf(element, axis);
}

// Of its picture. It scales itself, and a linked one changes by the camera as its parent moves.
double LiteralStage::PixelOf(const Element& element, std::size_t axis) const {
    const double changed = Wide(element.file->scaleDelta[axis]) * seenFrom_[axis] *
                           Wide(element.delta[axis]) / space_.scale[axis];
    const double scale = Wide(element.file->scaleStart[axis]) + changed;
    return space_.PixelSize(axis) * std::min(std::max(scale, -1024.0), 1024.0) *
           ZoomOf(*element.file, axis);
}

double LiteralStage::PixelOf(const Element& element, const Shown& shown, std::size_t axis) const {
    return PixelOf(element, axis) * std::min(std::max(shown.scale[axis], -1024.0), 1024.0);
}

// A picture is mirrored about its axis, first by its frame, then by a pixel size below 0.
LiteralStage::Reach LiteralStage::ReachOf(const Shown& shown, std::size_t axis, double place,
                                          double pixel) const {
    const Image& image = *shown.image;
    const int size = axis == 0 ? image.width : image.height;
    const int fileAxis = axis == 0 ? image.axisX : image.axisY;
    const int before = shown.mirrored[axis] ? size - fileAxis : fileAxis;
    const double one = place + pixel * (shown.offset[axis] - before);
    const double other = place + pixel * (shown.offset[axis] - before + size);
    return {std::min(one, other), std::abs(pixel) * size, shown.mirrored[axis] != (pixel < 0)};
}

// The spacing is the gap between still pictures and the whole distance between animated ones.
LiteralStage::Tiling LiteralStage::TilingOf(const BackgroundElement& element, const Shown& shown,
                                            std::size_t axis) const {
    const int size = axis == 0 ? shown.image->width : shown.image->height;
    const bool given = (element.tileSpacingGiven & 1U << axis) != 0;
    const bool oneGiven = element.tileSpacingGiven != 0 && !given;
    const bool old = model_.MugenVersion < 1;
    std::int64_t spacing = axis == 0 ? element.tileSpacingX : element.tileSpacingY;
    if (!given) {
        spacing = oneGiven && old ? element.tileSpacingX : 0;
    }
    Tiling tiling{axis == 0 ? element.tileX : element.tileY, spacing, false};
    const bool absent = element.tileSpacingGiven == 0;
    const bool noDistance = spacing == 1 || (spacing == 0 && old);
    if (element.type != "anim") {
        tiling.distance = spacing + size;
    } else if (absent || (tiling.count == 1 && noDistance)) {
        tiling.distance = size;
    }
    tiling.touching = tiling.distance == size && shown.scale[axis] == 1;
    return tiling;
}

// Along one axis: all that touch the picture. A copy ends with its picture, but never in the one
// that follows, where that begins after it. A frame's own scale does not change how far apart they
// are.
std::vector<LiteralStage::Span> LiteralStage::Copies(const Reach& reach, const Tiling& tiling,
                                                     double step, std::size_t axis) const {
    const bool wholeSize = reach.size == std::floor(reach.size);
    // Whole steps are exact; in a sum with a place the last bits would be lost.
    const bool wholeStep = step == std::floor(step);
    const auto moved = [&](double place, double k) {
        return wholeStep ? CanvasPixel(place) + static_cast<std::int64_t>(k * step)
                         : CanvasPixel(place + k * step);
    };
    const auto copy = [&](double k) {
        const std::int64_t begin = moved(reach.near, k);
        const std::int64_t end = wholeSize ? begin + static_cast<std::int64_t>(reach.size)
                                           : moved(reach.near + reach.size, k);
        return Span{begin, end};
    };
    if (tiling.count == 0 || step <= 0) {
        return {copy(0)};
    }
    const std::int64_t limit = axis == 0 ? Width() : Height();
    auto first = static_cast<std::int64_t>(std::floor((-reach.near - reach.size) / step)) - 1;
    auto last =
        static_cast<std::int64_t>(std::ceil((static_cast<double>(limit) - reach.near) / step)) + 1;
    if (tiling.count > 1) {
        first = std::max<std::int64_t>(first, 0);
        last = std::min(last, tiling.count - 1);
    }
    std::vector<Span> copies;
    for (std::int64_t k = first; k <= last; ++k) {
        Span span = copy(static_cast<double>(k));
        const std::int64_t next = copy(static_cast<double>(k + 1)).begin;
        if (tiling.touching) {
            span.end = next;
        } else if (step >= reach.size) {
            span.end = std::min(span.end, next);
        }
        if (span.end > 0 && span.begin < limit) {
            copies.push_back(span);
        }
    }
    return copies;
}

// Neither window is scaled with the stage, nor finer than its units. Corners come in any order.
LiteralStage::Window LiteralStage::CanvasWindow(const BackgroundElement& element) const {
    Window window{Whole(0), Whole(1)};
    const auto cut = [&](std::size_t axis, double first, double end) {
        Span& span = axis == 0 ? window.columns : window.rows;
        span = {std::max(span.begin, CanvasPixel(first)), std::min(span.end, CanvasPixel(end))};
    };
    const auto moved = [&](std::size_t axis) {
        return Wide(axis == 0 ? element.windowDeltaX : element.windowDeltaY) * seenFrom_[axis];
    };
    // Both corners included, and not zoomed.
    const auto cutOuter = [&](std::size_t axis, float one, float other) {
        const double first = Wide(std::min(one, other)) - moved(axis);
        const double end = Wide(std::max(one, other)) + 1 - moved(axis);
        cut(axis, first * space_.detail, end * space_.detail);
    };
    if (element.windowActive != 0) {
        cutOuter(0, element.windowX1, element.windowX2);
        cutOuter(1, element.windowY1, element.windowY2);
    }
    // From the view's upper middle, without the second corner, and zoomed with the element.
    const auto cutMask = [&](std::size_t axis, float one, float other) {
        const double middle = axis == 0 ? space_.width / 2.0 : 0;
        const auto edge = [&](float at) {
            return Zoomed(element, axis, space_.detail * (middle + Wide(at) - moved(axis)));
        };
        cut(axis, edge(std::min(one, other)), edge(std::max(one, other)));
    };
    if (element.maskWindowActive != 0) {
        cutMask(0, element.maskWindow[0], element.maskWindow[2]);
        cutMask(1, element.maskWindow[1], element.maskWindow[3]);
    }
    return window;
}

std::uint32_t LiteralStage::MixedTexel(const Shown& shown, const TwoTexels& across,
                                       const TwoTexels& down, const std::array<bool, 2>& mirrored) {
    const Image& image = *shown.image;
    std::array<WeighedTexel, 4> four{};
    for (std::size_t i = 0; i < 4; ++i) {
        const std::int64_t column = across.texels[i % 2];
        const std::int64_t row = down.texels[i / 2];
        four[i] = {image.At(mirrored[0] ? image.width - 1 - column : column,
                            mirrored[1] ? image.height - 1 - row : row),
                   across.parts[i % 2] * down.parts[i / 2]};
    }
    return MeanOf(four, shown.CountsAlpha());
}

void LiteralStage::DrawQuad(const Shown& shown, const Span& columns, const Span& rows,
                            const Span& texelRows, const std::array<bool, 2>& mirrored) {
    const Image& image = *shown.image;
    const Span inX{std::max(columns.begin, shown.window.columns.begin),
                   std::min(columns.end, shown.window.columns.end)};
    const Span inY{std::max(rows.begin, shown.window.rows.begin),
                   std::min(rows.end, shown.window.rows.end)};
    const auto column = [&](std::int64_t texel) {
        return mirrored[0] ? image.width - 1 - texel : texel;
    };
    const auto row = [&](std::int64_t texel) {
        return mirrored[1] ? image.height - 1 - texel : texel;
    };
    for (std::int64_t y = inY.begin; y < inY.end; ++y) {
        const TexelPlace down{y - rows.begin, rows.end - rows.begin, texelRows.begin,
                              texelRows.end - texelRows.begin};
        for (std::int64_t x = inX.begin; x < inX.end; ++x) {
            const TexelPlace across{x - columns.begin, columns.end - columns.begin, 0, image.width};
            if (!shown.mixesTexels) {
                Put(x, y, image.At(column(NearestTexel(across)), row(NearestTexel(down))), shown);
                continue;
            }
            const TwoTexels two = TexelsAround(across, image.width);
            const TwoTexels lines = TexelsAround(down, image.height);
            Put(x, y, MixedTexel(shown, two, lines, mirrored), shown);
        }
    }
}

}  // namespace scenara::test
