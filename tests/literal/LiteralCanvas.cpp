// SPDX-License-Identifier: MIT
//
// Where the copies of an element's picture stand on a canvas of the stage's own size: places are
// worked out in double, from start, motion and camera, and rounded once, at the edges of a copy.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "literal/LiteralStage.h"

namespace scenara::test {
namespace {

// To the nearest whole number, halves up.
std::int64_t Rounded(double value) {
    return static_cast<std::int64_t>(std::floor(value + 0.5));
}

// The centre of the pixel that stands `at` pixels into `size` of them, which show `count` texels
// from the texel `first` on.
struct Place {
    std::int64_t at;
    std::int64_t size;
    std::int64_t first;
    std::int64_t count;
};

std::int64_t NearestTexel(const Place& place) {
    return place.first + (2 * place.at + 1) * place.count / (2 * place.size);
}

// Neighbours, and how many of 256 parts each has in a mean of them.
struct TwoTexels {
    std::array<std::int64_t, 2> texels;
    std::array<std::int64_t, 2> parts;
};

// Beyond the picture its last texels go on.
TwoTexels TexelsAround(const Place& place, std::int64_t size) {
    // 256 times the place, less half a texel, to the nearest part. In parts of 2 * place.size, so
    // that all is whole.
    const std::int64_t whole = 2 * place.size;
    const std::int64_t parts =
        256 * ((2 * place.at + 1) * place.count + place.first * whole) - 128 * whole + place.size;
    std::int64_t part = parts / whole;
    if (part * whole > parts) {
        --part;  // a division rounds towards 0
    }
    const auto texel = static_cast<std::int64_t>(std::floor(static_cast<double>(part) / 256));
    const std::int64_t ofSecond = part - 256 * texel;
    const auto within = [&](std::int64_t number) {
        return std::min(std::max<std::int64_t>(number, 0), size - 1);
    };
    return {{within(texel), within(texel + 1)}, {256 - ofSecond, ofSecond}};
}

// A texel and its weight in a mean.
struct Weighed {
    std::uint32_t texel;
    std::int64_t weight;
};

// To the nearest, a half upwards. Where alpha counts a texel lends its colour by that, too, unless
// none has any.
std::uint32_t MeanOf(const std::array<Weighed, 4>& four, bool alphaCounts) {
    const auto channel = [](std::uint32_t texel, unsigned shift) {
        return static_cast<std::int64_t>(texel >> shift & 0xFFU);
    };
    const auto mean = [&](unsigned shift, bool byAlpha) {
        std::int64_t sum = 0;
        std::int64_t weights = 0;
        for (const auto& [texel, weight] : four) {
            const std::int64_t counts = byAlpha ? weight * channel(texel, 24) : weight;
            sum += counts * channel(texel, shift);
            weights += counts;
        }
        return static_cast<std::uint32_t>((2 * sum + weights) / (2 * weights));
    };
    const bool byAlpha = alphaCounts && std::ranges::any_of(four, [&](const Weighed& one) {
                             return one.weight * channel(one.texel, 24) != 0;
                         });
    return mean(24, false) << 24U | mean(16, byAlpha) << 16U | mean(8, byAlpha) << 8U |
           mean(0, byAlpha);
}

}  // namespace

// In canvas pixels, before rounding.
struct LiteralStage::Reach {
    double near = 0;
    double size = 0;
    bool mirrored = false;
};

// In the picture's own pixels.
struct LiteralStage::Tiling {
    std::int64_t count = 0;
    std::int64_t distance = 0;
    bool touching = false;  // each copy ends where the next one begins
};

void LiteralStage::DrawOnCanvas(const Element& element, Shown& shown) {
    const std::array<double, 2> pixels = {PixelOf(element, 0), PixelOf(element, 1)};
    if (pixels[0] == 0 || pixels[1] == 0) {
        return;
    }
    shown.window = CanvasWindow(*element.file);
    shown.mixesTexels =
        rules_.mixesTexels && (std::abs(pixels[0]) != 1 || std::abs(pixels[1]) != 1);
    if (element.parallax) {
        DrawRows(element, shown);
        return;
    }
    std::array<std::vector<Span>, 2> copies;
    std::array<bool, 2> mirrored{};
    for (std::size_t axis = 0; axis < 2; ++axis) {
        const double pixel = pixels[axis];
        const Reach reach = ReachOf(shown, axis, AxisPlace(element, axis), pixel);
        const int size = axis == 0 ? shown.image->width : shown.image->height;
        copies[axis] = Copies(reach, TilingOf(*element.file, axis, size), std::abs(pixel), axis);
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
LiteralStage::Tiling LiteralStage::TilingOf(const BackgroundElement& element, std::size_t axis,
                                            int size) const {
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
    tiling.touching = tiling.distance == size;
    return tiling;
}

// Along one axis: all that touch the picture. A copy ends with its picture, but never in the one
// that follows, where that begins after it.
std::vector<LiteralStage::Span> LiteralStage::Copies(const Reach& reach, const Tiling& tiling,
                                                     double tilePixel, std::size_t axis) const {
    const double step = static_cast<double>(tiling.distance) * tilePixel;
    const bool wholeSize = reach.size == std::floor(reach.size);
    // Whole steps are exact; in a sum with a place the last bits would be lost.
    const bool wholeStep = step == std::floor(step);
    const auto moved = [&](double place, double k) {
        return wholeStep ? Rounded(place) + static_cast<std::int64_t>(k * step)
                         : Rounded(place + k * step);
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
        } else if (step > reach.size) {
            span.end = std::min(span.end, next);
        }
        if (span.end > 0 && span.begin < limit) {
            copies.push_back(span);
        }
    }
    return copies;
}

// How many rows a row of a parallax picture takes, but for the stage's scale and the element's own.
double LiteralStage::Stretch(const BackgroundElement& element) const {
    const double shrunk =
        Wide(element.yscaleStart) / 100 + Wide(element.yscaleDelta) / 100 * seenFrom_[1];
    return 1 / std::min(std::max(shrunk, 1.0 / 16), 16.0);
}

// Each row stands at a distance of its own from the middle, and has its own tiles; there are none
// below one another. A mirrored frame's rows are those of the mirrored picture.
void LiteralStage::DrawRows(const Element& element, const Shown& shown) {
    const BackgroundElement& file = *element.file;
    const Image& image = *shown.image;
    const bool given = file.xscaleTop != 0 || file.xscaleBottom != 0;
    const double top = file.xscaleTop == 0 ? 1 : Wide(file.xscaleTop);
    const double bottom = Wide(file.xscaleBottom);
    const double across = PixelOf(element, 0);
    const double down = PixelOf(element, 1) * Stretch(file);
    const double middle = space_.detail * (space_.width / 2.0);
    const double placeX = AxisPlace(element, 0);
    const int above = shown.mirrored[1] ? image.height - image.axisY : image.axisY;
    const double upper = AxisPlace(element, 1) + down * (shown.offset[1] - above);
    const Tiling tiling = TilingOf(file, 0, image.width);
    for (int row = 0; row < image.height; ++row) {
        const double t = image.height == 1 ? 0 : double(row) / (image.height - 1);
        const double factor = given ? (top + (bottom - top) * t) / top : 1;
        const Reach reach = ReachOf(shown, 0, middle + (placeX - middle) * factor, across);
        Span rows{Rounded(upper + row * down), Rounded(upper + (row + 1) * down)};
        if (down < 0) {
            std::swap(rows.begin, rows.end);
        }
        const bool turned = shown.mirrored[1] != (down < 0);
        const int fromTop = down < 0 ? image.height - 1 - row : row;
        for (const Span& columns : Copies(reach, tiling, std::abs(across), 0)) {
            DrawQuad(shown, columns, rows, {fromTop, fromTop + 1}, {reach.mirrored, turned});
        }
    }
}

// Neither window is scaled with the stage, nor finer than its units. Corners come in any order.
LiteralStage::Window LiteralStage::CanvasWindow(const BackgroundElement& element) const {
    Window window{Whole(0), Whole(1)};
    const auto cut = [&](std::size_t axis, double first, double end) {
        Span& span = axis == 0 ? window.columns : window.rows;
        span = {std::max(span.begin, Rounded(first)), std::min(span.end, Rounded(end))};
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
        const Place down{y - rows.begin, rows.end - rows.begin, texelRows.begin,
                         texelRows.end - texelRows.begin};
        for (std::int64_t x = inX.begin; x < inX.end; ++x) {
            const Place across{x - columns.begin, columns.end - columns.begin, 0, image.width};
            if (!shown.mixesTexels) {
                Put(x, y, image.At(column(NearestTexel(across)), row(NearestTexel(down))), shown);
                continue;
            }
            const TwoTexels two = TexelsAround(across, image.width);
            const TwoTexels lines = TexelsAround(down, image.height);
            std::array<Weighed, 4> four{};
            for (std::size_t i = 0; i < 4; ++i) {
                four[i] = {image.At(column(two.texels[i % 2]), row(lines.texels[i / 2])),
                           two.parts[i % 2] * lines.parts[i / 2]};
            }
            Put(x, y, MeanOf(four, shown.CountsAlpha()), shown);
        }
    }
}

}  // namespace scenara::test
