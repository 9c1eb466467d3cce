// SPDX-License-Identifier: MIT
//
// Scene: a frame as a list of pictures laid over each other, the same for everybody who draws it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/View.h"
#include "stage/Blending.h"

namespace scenara::bench {

struct ScenePicture {
    int width = 0;
    int height = 0;
    // ARGB, line by line without gaps. Alpha is 0 where the index is 0, else 255; the colour is the
    // palette's in both cases.
    std::vector<std::uint32_t> pixels;
    bool masked = false;  // drawn without the pixels of alpha 0; otherwise with all, as they are
    Blending blending{};  // of a masked picture; of any other None
    bool soft = false;    // a masked one with other alphas, too: drawn as much as these say

    [[nodiscard]] std::span<const std::uint32_t> Line(int y) const {
        const auto length = static_cast<std::size_t>(width);
        return std::span(pixels).subspan(static_cast<std::size_t>(y) * length, length);
    }
};

struct Blit {
    std::size_t picture = 0;
    int x = 0;  // of the picture's upper left pixel, in the view or outside
    int y = 0;
    int width = 0;  // on the canvas; 0: as many pixels as the picture has
    int height = 0;
};

struct Scene {
    std::string name;
    std::vector<ScenePicture> pictures;
    std::vector<Blit> blits;
    CanvasSize canvas{};
    bool smooth = false;  // what is scaled is drawn by the mean of texels, not by the nearest
};

// Pixels from `from` to before `to`, `to` <= `from` for none.
struct ClippedRange {
    int from = 0;
    int to = 0;
};

// The part of `size` pixels from `position` on that lies in the view, counted in the picture.
[[nodiscard]] ClippedRange ClipToView(int position, int size, int view);

// What a picture looks like to those who draw it.
struct PictureNumbers {
    double clear = 0;         // share of its pixels that has index 0
    double spansPerLine = 0;  // stretches of others
};
[[nodiscard]] PictureNumbers NumbersOf(const ScenePicture& picture);

struct SceneNumbers {
    std::size_t blits = 0;
    std::size_t masked = 0;         // blits
    std::size_t clippedPixels = 0;  // of all rectangles, inside of the view
    std::size_t visiblePixels = 0;  // of those, the ones that are drawn
    double clear = 0;               // share of index 0 in the clipped rectangles of masked blits
    double spansPerLine = 0;        // in the lines of those rectangles
};
[[nodiscard]] SceneNumbers NumbersOf(const Scene& scene);

}  // namespace scenara::bench
