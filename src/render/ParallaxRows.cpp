// SPDX-License-Identifier: MIT
#include "render/ParallaxRows.h"

#include <algorithm>
#include <cmath>

namespace scenara {

namespace {

// From 0 at the top to 1 at the bottom.
double HeightOf(std::int64_t row, std::int64_t rows) {
    return rows > 1 ? static_cast<double>(row) / static_cast<double>(rows - 1) : 0;
}

}  // namespace

double RowSpeed(const BackgroundElement& element, std::int64_t row, std::int64_t rows) {
    auto top = static_cast<double>(element.xscaleTop);
    const auto bottom = static_cast<double>(element.xscaleBottom);
    if (top == 0 && bottom == 0) {
        return 1;
    }
    if (top == 0) {
        top = 1;
    }
    return (top + (bottom - top) * HeightOf(row, rows)) / top;
}

double RowWidth(const BackgroundElement& element, std::int64_t row, std::int64_t rows) {
    const auto top = static_cast<double>(element.rowWidths[0]);
    const auto bottom = static_cast<double>(element.rowWidths[1]);
    return 1 + (bottom / top - 1) * HeightOf(row, rows);
}

double RowStretch(const BackgroundElement& element, Single cameraY, double scale) {
    constexpr double kMost = 16;
    const double shrunk =
        static_cast<double>(element.yscaleStart) / 100 +
        static_cast<double>(element.yscaleDelta) / 100 * static_cast<double>(cameraY);
    return scale * (1 / std::clamp(shrunk, 1 / kMost, kMost));
}

std::int64_t StretchedRows::From(std::int64_t row) const {
    return static_cast<std::int64_t>(std::floor(top + static_cast<double>(row) * stretch + 0.5));
}

std::int64_t StretchedRows::Before(std::int64_t line) const {
    constexpr double kMostRows = 1e15;  // of rows that are next to nothing high
    const double row = std::floor((static_cast<double>(line) - top) / stretch) - 1;
    return static_cast<std::int64_t>(std::clamp(row, 0.0, kMostRows));
}

}  // namespace scenara
