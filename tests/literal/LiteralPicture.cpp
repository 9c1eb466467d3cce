// SPDX-License-Identifier: MIT
//
// What is seen of an element of a LiteralStage: where its copies stand, and their pixels.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "literal/LiteralStage.h"

namespace scenara::test {
namespace {

// To the nearest whole number, ties to the even one.
std::int64_t Rounded(double value) {
    return static_cast<std::int64_t>(std::nearbyint(value));
}

int Channel(std::uint32_t colour, int shift) {
    return static_cast<int>(colour >> static_cast<unsigned>(shift) & 0xFFU);
}

// A share of 256 as a share of 255.
int ShareOf255(int share) {
    return std::min(share, 255);
}

// One channel: what stands there times one share of 255, and the picture times another one.
int Mixed(int behind, int behindShare, int picture, int pictureShare) {
    const int sum = behind * behindShare + picture * pictureShare;
    return std::min((2 * sum + 255) / (2 * 255), 255);  // the nearest; there are no ties
}

// Each way to blend is one quad or two, and each quad rounds.
int BlendedChannel(const Blending& blending, int behind, int picture) {
    switch (blending.kind) {
        case BlendKind::None: return picture;
        case BlendKind::Add: return Mixed(behind, 255, picture, 255);
        case BlendKind::Add1: return Mixed(Mixed(behind, 255 - 128, 0, 0), 255, picture, 255);
        case BlendKind::Sub: return std::max(behind - picture, 0);
        case BlendKind::AddAlpha: {
            const int black = ShareOf255(256 - blending.destination);
            return Mixed(Mixed(behind, 255 - black, 0, 0), 255, picture,
                         ShareOf255(blending.source));
        }
    }
    return picture;
}

std::uint32_t Blended(const Blending& blending, std::uint32_t behind, std::uint32_t picture) {
    if (blending.kind == BlendKind::None) {
        return picture;
    }
    std::uint32_t result = 0;
    for (const int shift : {16, 8, 0}) {
        const int channel =
            BlendedChannel(blending, Channel(behind, shift), Channel(picture, shift));
        result |= static_cast<std::uint32_t>(channel) << static_cast<unsigned>(shift);
    }
    return result;
}

}  // namespace

void LiteralStage::Draw(const Element& element) {
    const BackgroundElement& file = *element.file;
    if (element.dummy) {
        return;
    }
    Paint paint{WindowOf(file), file.blending, file.mask == 1, false, false};
    int sprite = file.spriteIndex;
    double fromAxisX = 0;
    double fromAxisY = 0;
    float drawX = element.position[0];
    float drawY = element.position[1];
    if (element.animated) {
        const StageAction& action = model_.Actions[static_cast<std::size_t>(element.action)];
        if (action.frames.empty()) {
            return;
        }
        const StageFrame& frame = action.frames[static_cast<std::size_t>(element.frame)];
        sprite = frame.spriteIndex;
        if (sprite < 0) {
            return;
        }
        const Image& image = images_[static_cast<std::size_t>(sprite)];
        paint.mirrored = frame.flip == "h";
        int axisX = image.axisX;
        int axisY = image.axisY;
        if (rules_.mirrorsAboutAxis) {
            const bool both = frame.flip == "hv" || frame.flip == "vh";
            paint.mirrored = paint.mirrored || both;
            paint.upsideDown = frame.flip == "v" || both;
            axisX = paint.mirrored ? image.width - image.axisX : image.axisX;
            axisY = paint.upsideDown ? image.height - image.axisY : image.axisY;
        }
        fromAxisX = frame.offsetX + Wide(frame.offsetFraction[0]) - axisX;
        fromAxisY = frame.offsetY + Wide(frame.offsetFraction[1]) - axisY;
        if (file.framesBlend != 0) {
            paint.blending = frame.blending;
        }
    }
    if (!rules_.blends) {
        paint.blending = {};
    }
    double x = Wide(drawX);
    double y = Wide(drawY);
    if (element.parent >= 0) {
        const Element& parent = elements_[static_cast<std::size_t>(element.parent)];
        x += Wide(parent.notedSwing[0]) + Wide(parent.notedMotion[0]);
        y += Wide(parent.notedSwing[1]) + Wide(parent.notedMotion[1]);
    } else {
        x += Wide(element.swings[0].offset);
        y += Wide(element.swings[1].offset);
    }
    drawX = static_cast<float>(x + fromAxisX);
    drawY = static_cast<float>(y + fromAxisY);
    const Image& image = images_[static_cast<std::size_t>(sprite)];
    if (element.parallax) {
        const double axisX = element.animated ? fromAxisX : -image.axisX;
        const double axisY = element.animated ? fromAxisY : -image.axisY;
        DrawRows(element, image, {drawX, drawY, Wide(drawX) - axisX, Wide(drawY) - axisY}, paint);
    } else {
        DrawTiles(element, image, Rounded(Wide(drawX)), Rounded(Wide(drawY)), paint);
    }
}

// How many lines a row takes, more or less than one.
double LiteralStage::Stretch(const BackgroundElement& element) const {
    if (!rules_.stretches) {
        return 1;
    }
    const double shrunk =
        (Wide(element.yscaleStart) + Wide(element.yscaleDelta) * Wide(camera_[1])) / 100;
    return shrunk == 0 ? 16 : std::min(std::max(1 / shrunk, 1.0 / 16), 16.0);
}

// Each row has a speed of its own, and its own tiles; there are none below one another. Where they
// are stretched the axis stays at its place.
void LiteralStage::DrawRows(const Element& element, const Image& image, const Place& place,
                            const Paint& paint) {
    const BackgroundElement& file = *element.file;
    const bool given = file.xscaleTop != 0 || file.xscaleBottom != 0;
    const double top = file.xscaleTop == 0 ? 1 : Wide(file.xscaleTop);
    const double bottom = Wide(file.xscaleBottom);
    const double shear = rules_.shearsFromMiddle ? place.axisX - kLiteralWidth / 2.0
                                                 : Wide(camera_[0]) * Wide(element.delta[0]);
    const double stretch = Stretch(file);
    const double upper = stretch == 1 ? static_cast<double>(Rounded(Wide(place.y)))
                                      : place.axisY + (Wide(place.y) - place.axisY) * stretch;
    for (int row = 0; row < image.height; ++row) {
        const double t = image.height == 1 ? 0 : double(row) / (image.height - 1);
        const double factor = given ? (top + (bottom - top) * t) / top : 1;
        const double rowX = Wide(place.x) + shear * (factor - 1);
        const std::vector<std::int64_t> copies =
            Copies(Rounded(rowX), file.tileX, std::int64_t{file.tileSpacingX} + image.width,
                   image.width, kLiteralWidth);
        for (int line = 0; line < kLiteralHeight; ++line) {
            // Halves go down.
            const bool covers = std::floor(upper + row * stretch + 0.5) <= line &&
                                line < std::floor(upper + (row + 1) * stretch + 0.5);
            for (const std::int64_t x : covers ? copies : std::vector<std::int64_t>()) {
                DrawCopy(image, x, line - row, row, row + 1, paint);
            }
        }
    }
}

// Every row of copies from top to bottom, in it every column from left to right. An animation's
// spacing is the whole distance, and as much as none where it is 1 or less and has no end.
void LiteralStage::DrawTiles(const Element& element, const Image& image, std::int64_t x,
                             std::int64_t y, const Paint& paint) {
    const BackgroundElement& file = *element.file;
    if (paint.mirrored && !rules_.tilesMirrored) {
        DrawCopy(image, x, y, 0, image.height, paint);
        return;
    }
    const auto step = [&](std::int64_t spacing, std::int64_t count, std::int64_t size) {
        if (file.type != "anim") {
            return spacing + size;
        }
        if (rules_.sideBySide && file.tileSpacingGiven == 0) {
            return size;
        }
        return count == 1 && spacing <= 1 ? size : spacing;
    };
    const std::vector<std::int64_t> columns =
        Copies(x, file.tileX, step(file.tileSpacingX, file.tileX, image.width), image.width,
               kLiteralWidth);
    const std::vector<std::int64_t> rows =
        Copies(y, file.tileY, step(file.tileSpacingY, file.tileY, image.height), image.height,
               kLiteralHeight);
    for (const std::int64_t row : rows) {
        for (const std::int64_t column : columns) {
            DrawCopy(image, column, row, 0, image.height, paint);
        }
    }
}

// Along one axis: all places whose copy touches the view.
std::vector<std::int64_t> LiteralStage::Copies(std::int64_t first, std::int64_t count,
                                               std::int64_t step, std::int64_t size,
                                               std::int64_t viewSize) const {
    std::vector<std::int64_t> places;
    if (count == 0 || step == 0 || (count == 1 && step < 0)) {
        places.push_back(first);
    } else if (count == 1) {
        std::int64_t place = first;
        while (place + size > 0) {
            place -= step;
        }
        while (place + size <= 0) {
            place += step;
        }
        for (; place < viewSize; place += step) {
            places.push_back(place);
        }
    } else if (step < 0) {
        if (rules_.oneForNegativeStep) {
            places.push_back(first);
        }
    } else {
        for (std::int64_t k = 0; k < count && first + k * step < viewSize; ++k) {
            if (first + k * step + size > 0) {
                places.push_back(first + k * step);
            }
        }
    }
    return places;
}

// Whole numbers, corners in any order.
LiteralStage::Window LiteralStage::WindowOf(const BackgroundElement& element) const {
    Window window;
    if (element.windowActive == 0) {
        return window;
    }
    double shiftX = 0;
    double shiftY = 0;
    if (rules_.movesWindows) {
        shiftX = Wide(element.windowDeltaX) * Wide(camera_[0]);
        shiftY = -Wide(element.windowDeltaY) * Wide(camera_[1]);
    }
    const auto x1 = static_cast<int>(Rounded(Wide(element.windowX1) + shiftX));
    const auto x2 = static_cast<int>(Rounded(Wide(element.windowX2) + shiftX));
    const auto y1 = static_cast<int>(Rounded(Wide(element.windowY1) + shiftY));
    const auto y2 = static_cast<int>(Rounded(Wide(element.windowY2) + shiftY));
    window.left = std::max(window.left, std::min(x1, x2));
    window.right = std::min(window.right, std::max(x1, x2));
    window.top = std::max(window.top, std::min(y1, y2));
    window.bottom = std::min(window.bottom, std::max(y1, y2));
    return window;
}

void LiteralStage::DrawCopy(const Image& image, std::int64_t x, std::int64_t y, int firstRow,
                            int endRow, const Paint& paint) {
    const bool blends = paint.blending.kind != BlendKind::None;
    const std::int64_t top = std::max<std::int64_t>(paint.window.top, y + firstRow);
    const std::int64_t bottom = std::min<std::int64_t>(paint.window.bottom, y + endRow - 1);
    const std::int64_t left = std::max<std::int64_t>(paint.window.left, x);
    const std::int64_t right = std::min<std::int64_t>(paint.window.right, x + image.width - 1);
    for (std::int64_t row = top; row <= bottom; ++row) {
        for (std::int64_t column = left; column <= right; ++column) {
            const std::int64_t across = column - x;
            const std::int64_t below = row - y;
            const std::int64_t texelX = paint.mirrored ? image.width - 1 - across : across;
            const std::int64_t texelY = paint.upsideDown ? image.height - 1 - below : below;
            const std::uint32_t texel =
                image.texels[static_cast<std::size_t>(texelY * image.width + texelX)];
            if ((paint.masked || blends) && texel >> 24U == 0) {
                continue;
            }
            std::uint32_t& pixel = picture_[static_cast<std::size_t>(row * kLiteralWidth + column)];
            pixel = Blended(paint.blending, pixel, texel & 0xFFFFFFU);
        }
    }
}

}  // namespace scenara::test
