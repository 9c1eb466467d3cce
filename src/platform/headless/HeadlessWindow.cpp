// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessWindow.h"

namespace scenara {

void HeadlessWindow::SetCaption(const std::string& caption) {
    captions_.push_back(caption);
}

void HeadlessWindow::DoEvents() {
    ++doEventsCount_;
    leavingWaits_ = false;
    if (script_) {
        script_(*this);
    }
}

}  // namespace scenara
