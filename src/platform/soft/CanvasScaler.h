// SPDX-License-Identifier: MIT
//
// CanvasScaler: draws a canvas at the size at which it is shown, in the window, full screen and in
// files.
//
// All four channels of a pixel are drawn alike. Whole multiples are copies, and a canvas of one
// colour keeps it at any size; else a channel is at most 0.52 off what it is exactly.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/Presentation.h"
#include "platform/View.h"
#include "platform/soft/AreaMeans.h"
#include "platform/soft/CopyRows.h"
#include "platform/soft/ScaleRows.h"
#include "platform/soft/ScaleTaps.h"
#include "platform/soft/ScaledPixels.h"

namespace scenara::soft {

class CanvasScaler {
public:
    explicit CanvasScaler(RowPath path = RowPath::Avx512) : path_(path) {}

    // Draws all of `canvas`, its rows one after the other, into all of `into`. Nothing is drawn
    // where a side is below 1 or above kMostScaled, or where pixels are missing. Memory is taken
    // only when a size has changed: less than a hundred bytes to a column and to a row.
    void Draw(const CanvasSize& size, std::span<const std::uint32_t> canvas, Scaling scaling,
              const ScaledPixels& into);

private:
    // What the tables are made for.
    struct Shape {
        CanvasSize canvas;
        CanvasSize shown;
        Scaling scaling = Scaling::Nearest;

        friend bool operator==(const Shape&, const Shape&) = default;
    };

    enum class Way : Byte { Nearest, Repeated, Mixed, Means };

    void MakeTables();
    [[nodiscard]] const std::uint32_t* RowOf(const std::uint32_t* canvas, std::int32_t row) const {
        return canvas + static_cast<std::ptrdiff_t>(row) * shape_->canvas.width;
    }
    void DrawNearest(const std::uint32_t* canvas, const ScaledPixels& into) const;
    void DrawRepeated(const std::uint32_t* canvas, const ScaledPixels& into) const;
    void DrawMixed(const std::uint32_t* canvas, const ScaledPixels& into);

    RowPath path_;
    std::optional<Shape> shape_;
    Way way_ = Way::Nearest;
    std::vector<ScaleTap> columns_;
    std::vector<ScaleTap> rows_;
    std::vector<ScaleBlock> blocks_;                // the columns, where the canvas is made larger
    std::array<std::vector<MixedBlock>, 2> mixed_;  // two rows of the canvas, mixed sideways
    AreaMeans means_;
};

}  // namespace scenara::soft
