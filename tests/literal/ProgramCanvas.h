// SPDX-License-Identifier: MIT
//
// What a second renderer asks of the program: the picture that it shows, and how a stage is scaled.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "frames/PaintedStage.h"
#include "platform/View.h"
#include "stage/StageModel.h"

namespace scenara::test {

// Line by line, 0xRRGGBB.
struct ShownCanvas {
    CanvasSize size;
    std::vector<std::uint32_t> pixels;

    friend bool operator==(const ShownCanvas&, const ShownCanvas&) = default;
};

// Of a picture whose top bytes mean nothing.
[[nodiscard]] inline ShownCanvas CanvasOf(const CanvasSize& size,
                                          const std::vector<std::uint32_t>& picture) {
    ShownCanvas canvas{size, picture};
    for (std::uint32_t& pixel : canvas.pixels) {
        pixel &= 0xFFFFFFU;
    }
    return canvas;
}

[[nodiscard]] inline ShownCanvas CanvasOf(const ShotStage& stage) {
    return CanvasOf(stage.PictureSize(), stage.Picture());
}

// Of a stage's elements, across and down.
[[nodiscard]] inline std::array<double, 2> StageScaleOf(const StageModel& model) {
    return {static_cast<double>(model.StageXScale), static_cast<double>(model.StageYScale)};
}

}  // namespace scenara::test
