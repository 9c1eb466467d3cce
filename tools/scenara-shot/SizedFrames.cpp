// SPDX-License-Identifier: MIT
#include "scenara-shot/SizedFrames.h"

#include <algorithm>
#include <cstddef>

#include "platform/PictureFit.h"

namespace scenara {

Frame SizedFrames::Sized(const Frame& frame) {
    if (!room_) {
        return frame;
    }
    const PictureFit fit = PictureFit::In(room_->width, room_->height, frame.size, ShownSizes::Any);
    // A window would show nothing of a line that is thinner than a pixel.
    const CanvasSize size{std::max(fit.width, 1), std::max(fit.height, 1)};
    pixels_.resize(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    scaler_.Draw(frame.size, frame.pixels, scaling_,
                 {pixels_.data(), size.width, size.width, size.height});
    return {size, pixels_};
}

}  // namespace scenara
