// SPDX-License-Identifier: MIT
#include "literal/LiteralZoom.h"

#include <algorithm>

#include "literal/LiteralStage.h"

namespace scenara::test {
namespace {

double Limited(double zoom) {
    return std::min(std::max(zoom, 1.0 / 64), 64.0);
}

}  // namespace

LiteralZoom LiteralZoom::Of(const StageModel& model) {
    LiteralZoom zoom;
    zoom.out = model.ZoomOut > 0 ? Limited(Wide(model.ZoomOut)) : 1;
    zoom.in = std::max(zoom.out, Limited(Wide(model.ZoomIn)));
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
