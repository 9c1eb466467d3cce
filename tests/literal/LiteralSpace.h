// SPDX-License-Identifier: MIT
//
// LiteralSpace: the coordinates that a stage is laid out in, and the canvas that it is drawn on.
// Unless it is made of a stage, it is that of plain drawing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "stage/StageModel.h"

namespace scenara::test {

struct LiteralSpace {
    // In stage units.
    int width = 320;
    int height = 240;

    std::array<double, 2> scale{1, 1};  // of elements, across and down; below 0 mirrors
    double half = 1;                    // the same both ways: 1/2 where the stage is finer
    int detail = 1;                     // canvas pixels in a stage unit
    bool wholeCamera = false;           // it stands at whole units, and steps by them

    [[nodiscard]] static LiteralSpace Of(const StageModel& model);

    [[nodiscard]] int CanvasWidth() const { return width * detail; }
    [[nodiscard]] int CanvasHeight() const { return height * detail; }

    // How far a camera's step of 1 goes, across and down, in stage units.
    [[nodiscard]] std::array<double, 2> CameraStep() const;

    // Where the camera stands for whoever multiplies it.
    [[nodiscard]] double CameraAt(double camera) const;

    // Canvas pixels of an element's own pixel; the sign is the scale's.
    [[nodiscard]] double PixelSize(std::size_t axis) const;
};

// A place on the canvas, to the nearest pixel's edge, halves up.
[[nodiscard]] std::int64_t CanvasPixel(double place);

}  // namespace scenara::test
