// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessWindow.h"

#include <utility>

namespace scenara {

void HeadlessWindow::SetCaption(const std::string& caption) {
    captions_.push_back(caption);
}

void HeadlessWindow::MoveTo(const WindowPlace& place) {
    left_ = place.left;
    top_ = place.top;
    inner_ = {place.width / kUnitsPerPixel - frame_.width,
              place.height / kUnitsPerPixel - frame_.height};
    sizeCame_ = true;
}

void HeadlessWindow::Maximise() {
    MoveTo(WindowPlace{0, 0, Screen().width, Screen().height});
    maximised_ = true;
}

void HeadlessWindow::ReportSize() {
    const std::optional<InnerSize> wished = std::exchange(wished_, std::nullopt);
    if (wished && !maximised_) {
        inner_ = *wished;
    }
    if (std::exchange(sizeCame_, false) && events_ != nullptr) {
        events_->Form_Resize(inner_.width, inner_.height);
    }
}

void HeadlessWindow::DoEvents() {
    ++doEventsCount_;
    leavingWaits_ = false;
    ReportSize();
    if (script_) {
        script_(*this);
    }
}

}  // namespace scenara
