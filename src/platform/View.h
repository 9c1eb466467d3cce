// SPDX-License-Identifier: MIT
//
// View: what of a stage is seen at once, and the picture that it is drawn into, the *canvas*. It is
// handed to whoever places or draws; its size is known here alone.
#pragma once

#include "base/Integers.h"

namespace scenara {

// Of a picture, in pixels.
struct CanvasSize {
    Long width = 320;
    Long height = 240;

    friend constexpr bool operator==(const CanvasSize&, const CanvasSize&) = default;
};

struct View {
    // In the units that the stage is laid out in.
    Long width = CanvasSize().width;
    Long height = CanvasSize().height;
    // Pixels of the canvas to a unit.
    Long detail = 1;

    // How many times as wide and as high as a view that no stage has asked for otherwise.
    [[nodiscard]] constexpr double TimesAsWide() const {
        return double{1} * width / CanvasSize().width;
    }
    [[nodiscard]] constexpr double TimesAsHigh() const {
        return double{1} * height / CanvasSize().height;
    }

    // Where a stage's x of 0 stands while the camera's is 0, too.
    [[nodiscard]] constexpr double Centre() const { return width / 2.0; }

    [[nodiscard]] constexpr CanvasSize Canvas() const { return {width * detail, height * detail}; }

    friend constexpr bool operator==(const View&, const View&) = default;
};

// A frame around a part of the canvas, in its pixels; right and bottom lie outside.
struct ViewFrame {
    Long left = 0;
    Long top = 0;
    Long right = 0;
    Long bottom = 0;

    friend bool operator==(const ViewFrame&, const ViewFrame&) = default;
};

}  // namespace scenara
