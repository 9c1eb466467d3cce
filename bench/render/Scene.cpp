// SPDX-License-Identifier: MIT
#include "render/Scene.h"

#include <algorithm>

namespace scenara::bench {
namespace {

struct LineNumbers {
    std::size_t visible = 0;
    std::size_t spans = 0;
};

LineNumbers NumbersOf(std::span<const std::uint32_t> line) {
    LineNumbers numbers;
    bool inside = false;
    for (const std::uint32_t pixel : line) {
        const bool visible = pixel >> 24U != 0;
        numbers.visible += visible ? 1 : 0;
        numbers.spans += visible && !inside ? 1 : 0;
        inside = visible;
    }
    return numbers;
}

double Ratio(std::size_t part, std::size_t whole) {
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

}  // namespace

ClippedRange ClipToView(int position, int size, int view) {
    return {std::max(0, -position), std::min(size, view - position)};
}

PictureNumbers NumbersOf(const ScenePicture& picture) {
    std::size_t visible = 0;
    std::size_t spans = 0;
    for (int y = 0; y < picture.height; ++y) {
        const LineNumbers line = NumbersOf(picture.Line(y));
        visible += line.visible;
        spans += line.spans;
    }
    return {1 - Ratio(visible, picture.pixels.size()),
            Ratio(spans, static_cast<std::size_t>(picture.height))};
}

SceneNumbers NumbersOf(const Scene& scene) {
    SceneNumbers numbers;
    std::size_t maskedPixels = 0;
    std::size_t maskedVisible = 0;
    std::size_t maskedLines = 0;
    std::size_t spans = 0;
    for (const Blit& blit : scene.blits) {
        const ScenePicture& picture = scene.pictures[blit.picture];
        const ClippedRange columns = ClipToView(blit.x, picture.width, scene.canvas.width);
        const ClippedRange rows = ClipToView(blit.y, picture.height, scene.canvas.height);
        const auto width = static_cast<std::size_t>(std::max(0, columns.to - columns.from));
        const auto height = static_cast<std::size_t>(std::max(0, rows.to - rows.from));
        ++numbers.blits;
        numbers.clippedPixels += width * height;
        if (!picture.masked) {
            numbers.visiblePixels += width * height;
            continue;
        }
        ++numbers.masked;
        maskedPixels += width * height;
        maskedLines += width == 0 ? 0 : height;
        for (int y = rows.from; width != 0 && y < rows.to; ++y) {
            const LineNumbers line =
                NumbersOf(picture.Line(y).subspan(static_cast<std::size_t>(columns.from), width));
            maskedVisible += line.visible;
            spans += line.spans;
        }
    }
    numbers.visiblePixels += maskedVisible;
    numbers.clear = maskedPixels == 0 ? 0 : 1 - Ratio(maskedVisible, maskedPixels);
    numbers.spansPerLine = Ratio(spans, maskedLines);
    return numbers;
}

}  // namespace scenara::bench
