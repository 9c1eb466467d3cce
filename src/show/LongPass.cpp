// SPDX-License-Identifier: MIT
#include "show/LongPass.h"

namespace scenara {

void LongPass::Forget() {
    long_ = false;
    longThisSecond_ = false;
    tooHeavy_ = false;
    givenUp_ = false;
}

void LongPass::Begin() {
    tenth_ = clock_.QueryPerformanceFrequency() / 10;
    begun_ = clock_.QueryPerformanceCounter();
    looked_ = begun_;
    longBefore_ = long_;
    long_ = false;
    givenUp_ = false;
}

bool LongPass::GoesOn() {
    if (!givenUp_ && LooksAgain()) {
        window_.NoteEvents();
        givenUp_ = window_.LeavingWaits();
    }
    return !givenUp_;
}

// Whether a tenth of a second has passed since the last look.
bool LongPass::LooksAgain() {
    if (tenth_ == 0) {
        return false;
    }
    const std::int64_t now = clock_.QueryPerformanceCounter();
    if (now - looked_ < tenth_) {
        return false;
    }
    looked_ = now;
    long_ = true;
    longThisSecond_ = true;
    if (!tooHeavy_ && (longBefore_ || now - begun_ >= 5 * tenth_)) {
        tooHeavy_ = true;
        nowTooHeavy_();
    }
    return true;
}

bool LongPass::BecameLight() {
    const bool became = tooHeavy_ && !longThisSecond_;
    longThisSecond_ = false;
    tooHeavy_ = tooHeavy_ && !became;
    return became;
}

}  // namespace scenara
