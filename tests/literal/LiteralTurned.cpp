// SPDX-License-Identifier: MIT
//
// Turned pictures of a LiteralStage, on a canvas: a pixel is drawn where its centre, turned back,
// lies in the picture. Devices differ by a hair in where that is, so that some pixels are in doubt.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "literal/LiteralStage.h"

namespace scenara::test {
namespace {

struct Direction {
    double cosine = 1;
    double sine = 0;
};

// A quarter turn is one to the last bit.
Direction DirectionOf(double degrees) {
    constexpr std::array<Direction, 4> kQuarters = {{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
    const double quarters = std::fmod(degrees, 360) / 90;
    if (quarters == std::floor(quarters)) {
        return kQuarters[static_cast<std::size_t>(quarters + 4) % 4];
    }
    const double angle = std::fmod(degrees, 360) * std::numbers::pi / 180;
    return {std::cos(angle), std::sin(angle)};
}

// Counter-clockwise, as rows go down.
std::array<double, 2> TurnedBy(const Direction& direction, double x, double y) {
    return {x * direction.cosine + y * direction.sine, y * direction.cosine - x * direction.sine};
}

// Whole numbers that a place may be rounded down to.
struct Choice {
    std::array<std::int64_t, 2> numbers{};
};

Choice Around(double place, double doubt) {
    return {{static_cast<std::int64_t>(std::floor(place - doubt)),
             static_cast<std::int64_t>(std::floor(place + doubt))}};
}

}  // namespace

// One copy, in canvas pixels from the point that it is turned about.
struct LiteralStage::TurnedPicture {
    Direction direction;
    std::array<Reach, 2> unturned;
    std::array<double, 2> pixels{};  // of a texel, above 0
    std::array<double, 2> least{};   // of the box around it
    std::array<double, 2> most{};
    double hair = 0;  // how exactly a device knows its corners
};

bool LiteralStage::IsTurned(const Shown& shown) {
    return std::fmod(shown.angle, 360) != 0;
}

LiteralStage::TurnedPicture LiteralStage::TurnedPictureOf(const Element& element,
                                                          const Shown& shown) const {
    TurnedPicture turned;
    turned.direction = DirectionOf(shown.angle);
    Shown atAxis = shown;
    atAxis.offset = {};
    for (std::size_t axis = 0; axis < 2; ++axis) {
        const double pixel = PixelOf(element, shown, axis);
        turned.unturned[axis] = ReachOf(atAxis, axis, 0, pixel);
        turned.pixels[axis] = std::abs(pixel);
    }
    const auto& [across, down] = turned.unturned;
    bool first = true;
    for (const double x : {across.near, across.near + across.size}) {
        for (const double y : {down.near, down.near + down.size}) {
            const std::array<double, 2> corner = TurnedBy(turned.direction, x, y);
            for (std::size_t axis = 0; axis < 2; ++axis) {
                double& least = turned.least[axis];
                double& most = turned.most[axis];
                least = first ? corner[axis] : std::min(least, corner[axis]);
                most = first ? corner[axis] : std::max(most, corner[axis]);
            }
            first = false;
        }
    }
    return turned;
}

// Where the points that copies are turned about stand along one axis: only of such copies as touch
// the canvas.
std::vector<double> LiteralStage::TurnedPlaces(const TurnedPicture& turned, const Tiling& tiling,
                                               double step, double place, std::size_t axis) const {
    if (tiling.count == 0 || step <= 0) {
        return {place};
    }
    const double limit = axis == 0 ? Width() : Height();
    double first = std::floor((-turned.most[axis] - place) / step);
    double last = std::ceil((limit - turned.least[axis] - place) / step);
    if (tiling.count > 1) {
        first = std::max(first, 0.0);
        last = std::min(last, static_cast<double>(tiling.count - 1));
    }
    std::vector<double> places;
    for (double k = first; k <= last; ++k) {
        places.push_back(place + k * step);
    }
    return places;
}

void LiteralStage::DrawTurned(const Element& element, const Shown& shown) {
    TurnedPicture turned = TurnedPictureOf(element, shown);
    std::array<std::vector<double>, 2> places;
    for (std::size_t axis = 0; axis < 2; ++axis) {
        const Tiling tiling = TilingOf(*element.file, shown, axis);
        const double step = static_cast<double>(tiling.distance) * std::abs(PixelOf(element, axis));
        const double place =
            AxisPlace(element, axis) + PixelOf(element, shown, axis) * shown.offset[axis];
        places[axis] = TurnedPlaces(turned, tiling, step, place, axis);
    }
    for (const double y : places[1]) {
        for (const double x : places[0]) {
            DrawTurnedCopy(shown, turned, {x, y});
        }
    }
}

void LiteralStage::DrawTurnedCopy(const Shown& shown, TurnedPicture& turned,
                                  const std::array<double, 2>& about) {
    // Corners are 32-bit floats, and what is worked out of them is, too.
    constexpr double kFloat = 1.0 / (1 << 24);
    turned.hair = 0;
    for (std::size_t axis = 0; axis < 2; ++axis) {
        for (const double corner : {turned.least[axis], turned.most[axis]}) {
            turned.hair = std::max(turned.hair, 4 * kFloat * std::abs(about[axis] + corner));
        }
    }
    const auto spanOf = [&](std::size_t axis, const Span& window) {
        return Span{std::max(window.begin, CanvasPixel(about[axis] + turned.least[axis]) - 1),
                    std::min(window.end, CanvasPixel(about[axis] + turned.most[axis]) + 1)};
    };
    const Span columns = spanOf(0, shown.window.columns);
    const Span rows = spanOf(1, shown.window.rows);
    for (std::int64_t y = rows.begin; y < rows.end; ++y) {
        for (std::int64_t x = columns.begin; x < columns.end; ++x) {
            const Direction back{turned.direction.cosine, -turned.direction.sine};
            const std::array<double, 2> from =
                TurnedBy(back, static_cast<double>(x) + 0.5 - about[0],
                         static_cast<double>(y) + 0.5 - about[1]);
            PutTurned(x, y, shown, turned,
                      {from[0] - turned.unturned[0].near, from[1] - turned.unturned[1].near});
        }
    }
}

// `within` is in canvas pixels from the unturned picture's left upper corner. What a device may
// show there is every texel, or mean of texels, that it may take, and nothing by an edge.
void LiteralStage::PutTurned(std::int64_t x, std::int64_t y, const Shown& shown,
                             const TurnedPicture& turned, const std::array<double, 2>& within) {
    const double edge = std::max(1.0 / 32, turned.hair);
    bool inside = true;
    bool surely = true;
    for (std::size_t axis = 0; axis < 2; ++axis) {
        const double size = turned.unturned[axis].size;
        if (within[axis] < -edge || within[axis] > size + edge) {
            return;
        }
        inside = inside && 0 <= within[axis] && within[axis] < size;
        surely = surely && edge < within[axis] && within[axis] < size - edge;
    }
    const TexelChoice choice = TexelsOfTurned(shown, turned, within);
    if (shown.CountsAlpha() && choice.texel >> 24U == 0 && choice.sure) {
        return;
    }
    if (inside) {
        Put(x, y, choice.texel, shown);
    }
    if (!surely || !choice.sure) {
        inDoubt_[static_cast<std::size_t>(y * Width() + x)] = 1;
    }
}

LiteralStage::TexelChoice LiteralStage::TexelsOfTurned(const Shown& shown,
                                                       const TurnedPicture& turned,
                                                       const std::array<double, 2>& within) {
    const Image& image = *shown.image;
    const std::array<std::int64_t, 2> sizes = {image.width, image.height};
    std::array<Choice, 2> choices;  // of texels, or of 256ths of one
    Choice taken;                   // across and down
    for (std::size_t axis = 0; axis < 2; ++axis) {
        const double texels = within[axis] / turned.pixels[axis];
        const double hair = turned.hair / turned.pixels[axis];
        const double place = shown.mixesTexels ? 256 * texels - 127.5 : texels;
        choices[axis] = Around(
            place, shown.mixesTexels ? std::max(1.0 / 128, 256 * hair) : std::max(1.0 / 32, hair));
        taken.numbers[axis] = Around(place, 0).numbers[0];
    }
    const std::array<bool, 2> mirrored = {turned.unturned[0].mirrored, turned.unturned[1].mirrored};
    const auto shownAt = [&](std::int64_t across, std::int64_t down) {
        if (shown.mixesTexels) {
            return MixedTexel(shown, TexelsAt(across, sizes[0]), TexelsAt(down, sizes[1]),
                              mirrored);
        }
        const auto column = std::min(std::max<std::int64_t>(across, 0), sizes[0] - 1);
        const auto row = std::min(std::max<std::int64_t>(down, 0), sizes[1] - 1);
        return image.At(mirrored[0] ? sizes[0] - 1 - column : column,
                        mirrored[1] ? sizes[1] - 1 - row : row);
    };
    TexelChoice choice{shownAt(taken.numbers[0], taken.numbers[1]), true};
    const auto& [across, down] = choices;
    if (across.numbers[0] == across.numbers[1] && down.numbers[0] == down.numbers[1]) {
        return choice;
    }
    for (const std::int64_t column : across.numbers) {
        for (const std::int64_t row : down.numbers) {
            choice.sure = choice.sure && shownAt(column, row) == choice.texel;
        }
    }
    return choice;
}

}  // namespace scenara::test
