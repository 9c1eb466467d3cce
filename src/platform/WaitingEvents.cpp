// SPDX-License-Identifier: MIT
#include "platform/WaitingEvents.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace scenara {

void WaitingEvents::Add(Event event, Kind kind) {
    if (kind != Kind::Once && kind != Kind::Leaving && kind != Kind::Button) {
        ForgetOlder(kind);
    }
    waiting_.push_back({kind, std::move(event)});
}

// At most one waits: it took the place of those before it.
void WaitingEvents::ForgetOlder(Kind kind) {
    for (auto older = waiting_.rbegin(); older != waiting_.rend(); ++older) {
        if (older->kind == kind) {
            waiting_.erase(std::next(older).base());
            return;
        }
        if ((kind == Kind::PointerMove || kind == Kind::MiddleMove) &&
            older->kind == Kind::Button) {
            return;
        }
    }
}

bool WaitingEvents::LeavingWaits() const {
    return std::any_of(waiting_.begin(), waiting_.end(), [](const Waiting& waiting) {
        return waiting.kind == Kind::Leaving || waiting.kind == Kind::Request;
    });
}

WaitingEvents::Event WaitingEvents::TakeFirst() {
    Event first = std::move(waiting_.front().event);
    waiting_.pop_front();
    return first;
}

}  // namespace scenara
