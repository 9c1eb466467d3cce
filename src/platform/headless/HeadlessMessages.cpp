// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessMessages.h"

namespace scenara {

void HeadlessMessages::Show(const Message& message) {
    recorded_.push_back(message);
    if (observer_) {
        observer_(message);
    }
}

}  // namespace scenara
