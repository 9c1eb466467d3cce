// SPDX-License-Identifier: MIT
//
// Textures, quads and views for the tests of the soft device. What goes through all of their pixels
// is in SoftQuads.cpp, which is optimised where the tests are not.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <random>
#include <utility>
#include <vector>

#include "platform/Direct3D8.h"
#include "platform/View.h"
#include "platform/soft/Blend.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/Texels.h"

namespace scenara::test {

using Corners = std::array<Vertex, 4>;

// A rectangle of a texture one to one, as D3DBlt and D3DBltFlip make it.
struct Blit {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t sourceX = 0;
    std::int32_t sourceY = 0;
    bool mirrored = false;
    std::uint32_t color = 0xFFFFFFFF;
};

inline Vertex Corner(double x, double y, std::uint32_t color, double tu = 0, double tv = 0) {
    Vertex corner;
    corner.x = static_cast<float>(x);
    corner.y = static_cast<float>(y);
    corner.color = color;
    corner.tu = static_cast<float>(tu);
    corner.tv = static_cast<float>(tv);
    return corner;
}

// Left bottom, left top, right bottom, right top. The coordinates are single floats throughout.
inline Corners CornersOf(const Blit& blit, std::int32_t textureWidth, std::int32_t textureHeight) {
    const auto part = [](std::int32_t texel, std::int32_t texels) {
        return static_cast<double>(static_cast<float>(texel) / static_cast<float>(texels));
    };
    const double sign = blit.mirrored ? -1 : 1;
    const double left = sign * part(blit.sourceX, textureWidth);
    const double right = sign * part(blit.sourceX + blit.width, textureWidth);
    const double top = part(blit.sourceY, textureHeight);
    const double bottom = part(blit.sourceY + blit.height, textureHeight);
    const double endX = blit.x + blit.width;
    const double endY = blit.y + blit.height;
    return {Corner(blit.x, endY, blit.color, left, bottom),
            Corner(blit.x, blit.y, blit.color, left, top),
            Corner(endX, endY, blit.color, right, bottom),
            Corner(endX, blit.y, blit.color, right, top)};
}

// The same quad in the other order: left top, right top, left bottom, right bottom.
inline Corners InOtherOrder(const Corners& corners) {
    return {corners[1], corners[3], corners[0], corners[2]};
}

// The texel that a blit shows `dx`, `dy` from its upper left corner.
struct Place {
    std::int32_t x = 0;
    std::int32_t y = 0;
};
inline Place TexelOf(const Blit& blit, std::int32_t textureWidth, std::int32_t textureHeight,
                     std::int32_t dx, std::int32_t dy) {
    const auto wrapped = [](std::int32_t texel, std::int32_t texels) {
        return (texel % texels + texels) % texels;
    };
    const std::int32_t column = blit.mirrored ? -blit.sourceX - dx - 1 : blit.sourceX + dx;
    return {wrapped(column, textureWidth), wrapped(blit.sourceY + dy, textureHeight)};
}

// A rectangle of a texture, drawn at another size. The numbers of texels are above 0.
struct ScaledBlit {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t sourceX = 0;
    std::int32_t sourceY = 0;
    std::int32_t columns = 0;  // texels across
    std::int32_t lines = 0;
    bool mirrored = false;
    bool flipped = false;
    std::uint32_t color = 0xFFFFFFFF;
};

inline Corners ScaledCornersOf(const ScaledBlit& blit, std::int32_t textureWidth,
                               std::int32_t textureHeight) {
    const auto part = [](std::int32_t texel, std::int32_t texels) {
        return static_cast<double>(static_cast<float>(texel) / static_cast<float>(texels));
    };
    double left = part(blit.sourceX, textureWidth);
    double right = part(blit.sourceX + blit.columns, textureWidth);
    double top = part(blit.sourceY, textureHeight);
    double bottom = part(blit.sourceY + blit.lines, textureHeight);
    if (blit.mirrored) {
        std::swap(left, right);
    }
    if (blit.flipped) {
        std::swap(top, bottom);
    }
    const double endX = blit.x + blit.width;
    const double endY = blit.y + blit.height;
    return {Corner(blit.x, endY, blit.color, left, bottom),
            Corner(blit.x, blit.y, blit.color, left, top),
            Corner(endX, endY, blit.color, right, bottom),
            Corner(endX, blit.y, blit.color, right, top)};
}

// Of `texels` texels from `first` on, drawn over `length` pixels: the one that pixel number `pixel`
// shows, counted through the texture's repeats.
inline std::int64_t NearestOf(std::int64_t first, std::int64_t texels, std::int64_t length,
                              std::int64_t pixel, bool backwards) {
    const std::int64_t number = (2 * pixel + 1) * texels / (2 * length);
    return backwards ? first + texels - 1 - number : first + number;
}

// A texture whose lines are longer than it is wide, with words behind them that must not be seen.
// They end with the last visible texel, so that the address sanitizer sees a read beyond it.
class PlainTexture {
public:
    using ColorAt = std::function<std::uint32_t(std::int32_t x, std::int32_t y)>;

    PlainTexture(std::int32_t width, std::int32_t height, const ColorAt& colorAt,
                 std::int32_t padding = 0);

    [[nodiscard]] soft::Texels Pixels() const { return {words_, width_, height_, pitch_}; }
    [[nodiscard]] std::uint32_t Texel(Place place) const { return words_[At(place.x, place.y)]; }

private:
    [[nodiscard]] std::size_t At(std::int32_t x, std::int32_t y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(pitch_) +
               static_cast<std::size_t>(x);
    }

    std::int32_t width_;
    std::int32_t height_;
    std::int32_t pitch_;
    std::vector<std::uint32_t> words_;
};

inline constexpr std::size_t kViewPixels = std::size_t{View().width} * View().height;

// Pixels as large as the view, compared without the byte that has no meaning.
class TestView {
public:
    explicit TestView(std::uint32_t color = 0, const CanvasSize& size = CanvasSize());

    [[nodiscard]] soft::Target Pixels() { return {pixels_, size_.width, size_.height}; }

    [[nodiscard]] std::uint32_t At(std::int32_t x, std::int32_t y) const {
        return pixels_[static_cast<std::size_t>(y * size_.width + x)] & soft::kColorMask;
    }
    [[nodiscard]] std::size_t Count(std::uint32_t color) const;
    bool operator==(const TestView& other) const;

private:
    CanvasSize size_;
    std::vector<std::uint32_t> pixels_;
};

// The states of a masked draw.
inline constexpr soft::PixelStates kCovering{true, D3DBLEND_SRCALPHA, D3DBLEND_INVSRCALPHA,
                                             D3DBLENDOP_ADD, D3DTOP_MODULATE};
inline constexpr soft::PixelStates kAdding{true, D3DBLEND_ONE, D3DBLEND_ONE, D3DBLENDOP_ADD,
                                           D3DTOP_MODULATE};

}  // namespace scenara::test
