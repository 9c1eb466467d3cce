// SPDX-License-Identifier: MIT
#include "editor/CameraScroll.h"

#include <cstdint>

namespace scenara {

void hscHScroll_Change(StageModel& model, Camera& camera, const ScrollBar& hscHScroll) {
    const auto cameraX = static_cast<Single>(-std::int64_t{hscHScroll.Value});
    // From where the elements have followed to: a key may have moved the camera since.
    const double distance = static_cast<double>(cameraX) - static_cast<double>(camera.previousX);
    for (BackgroundElement& element : model.Elements) {
        element.posX = static_cast<Single>(static_cast<double>(element.posX) +
                                           static_cast<double>(element.deltaX) * distance);
    }
    model.CamX = cameraX;
    camera.previousX = cameraX;
}

Long ScrollValueOf(const StageModel& model, const ScrollBar& hscHScroll) {
    return ToLong(ValueWithin(hscHScroll, -static_cast<double>(model.CamX)));
}

}  // namespace scenara
