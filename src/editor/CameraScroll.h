// SPDX-License-Identifier: MIT
//
// CameraScroll: the scroll bar hscHScroll, which moves the camera sideways. It counts in shown
// coordinates, as the camera's bounds do, which are its Min and Max.
#pragma once

#include <algorithm>

#include "base/Integers.h"
#include "platform/Form.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"

namespace scenara {

// The bar has a new Value. Unlike with the keys, every element moves by the true distance times its
// delta, and where the last pass saw the camera moves along, so that no step follows.
void hscHScroll_Change(StageModel& model, Camera& camera, const ScrollBar& hscHScroll);

// The Value that shows where the camera is, after it has been moved otherwise: the nearest one
// between Min and Max.
[[nodiscard]] Long ScrollValueOf(const StageModel& model, const ScrollBar& hscHScroll);

// The nearest value that the bar can have. Bounds may be the wrong way round in a file; then Min
// goes first.
template <typename Number>
[[nodiscard]] Number ValueWithin(const ScrollBar& bar, Number value) {
    return std::max<Number>(std::min<Number>(value, static_cast<Number>(bar.Max)),
                            static_cast<Number>(bar.Min));
}

}  // namespace scenara
