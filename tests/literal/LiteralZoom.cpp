// SPDX-License-Identifier: MIT
#include "literal/LiteralZoom.h"

#include <algorithm>

#include "literal/LiteralStage.h"

namespace scenara::test {
namespace {

// As the file has it. What is no zoom is 1.
double Limited(float zoom) {
    return zoom > 0 ? std::min(std::max(Wide(zoom), 1.0 / 64), 64.0) : 1;
}

}  // namespace

LiteralZoom LiteralZoom::Of(const StageModel& model) {
    LiteralZoom zoom;
    zoom.out = Limited(model.ZoomOut);
    zoom.in = std::max(zoom.out, Limited(model.ZoomIn));
    zoom.start = zoom.Within(Wide(model.StartZoom));
    return zoom;
}

double LiteralZoom::Within(double zoom) const {
    return std::min(std::max(out, zoom), in);
}

double LiteralZoom::BeyondBounds(double zoom, int width) const {
    return width / 2.0 * (1 / out - 1 / zoom);
}

}  // namespace scenara::test
