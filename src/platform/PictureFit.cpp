// SPDX-License-Identifier: MIT
#include "platform/PictureFit.h"

#include <algorithm>

namespace scenara {
namespace {

// How often the canvas is to be repeated each way; 0: it is shown at no whole multiple.
std::int32_t WholeTimes(std::int32_t boxWidth, std::int32_t boxHeight, const CanvasSize& canvas,
                        ShownSizes sizes) {
    const std::int64_t times = std::min(boxWidth / canvas.width, boxHeight / canvas.height);
    // One side of the largest size that fits is as long as the box.
    const bool isNearly = times * canvas.width * 10 >= std::int64_t{boxWidth} * 9 ||
                          times * canvas.height * 10 >= std::int64_t{boxHeight} * 9;
    return sizes == ShownSizes::WholeMultiples || isNearly ? static_cast<std::int32_t>(times) : 0;
}

}  // namespace

PictureFit PictureFit::In(std::int32_t boxWidth, std::int32_t boxHeight, const CanvasSize& canvas,
                          ShownSizes sizes) {
    PictureFit fit;
    fit.canvas = canvas;
    if (boxWidth < 1 || boxHeight < 1) {
        return fit;
    }
    const std::int32_t times = WholeTimes(boxWidth, boxHeight, canvas, sizes);
    if (times > 0) {
        fit.width = times * canvas.width;
        fit.height = times * canvas.height;
    } else {
        const std::int64_t byWidth = std::int64_t{boxWidth} * canvas.height;
        const std::int64_t byHeight = std::int64_t{boxHeight} * canvas.width;
        const bool narrow = byWidth <= byHeight;
        const auto other = [](std::int64_t area, std::int32_t side) {
            return static_cast<std::int32_t>(std::max<std::int64_t>(area / side, 1));
        };
        fit.width = narrow ? boxWidth : other(byHeight, canvas.height);
        fit.height = narrow ? other(byWidth, canvas.width) : boxHeight;
    }
    fit.left = (boxWidth - fit.width) / 2;
    fit.top = (boxHeight - fit.height) / 2;
    return fit;
}

}  // namespace scenara
