// SPDX-License-Identifier: MIT
//
// LongPass: keeps the window responsive while a frame of a heavy stage is drawn.
//
// From a tenth of a second into a frame on, and every tenth again, the window takes in what the
// user does. Nothing of it is handed to the program before the frame has ended, but a wish to leave
// the stage (Window::LeavingWaits) ends the frame at the next element.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "platform/Clock.h"
#include "platform/Window.h"
#include "render/PassWatch.h"

namespace scenara {

class LongPass : public PassWatch {
public:
    // Both outlive it. `nowTooHeavy` is called when the stage turns out to be too heavy, which may
    // be in the middle of a frame.
    LongPass(Clock& clock, Window& window, std::function<void()> nowTooHeavy)
        : clock_(clock), window_(window), nowTooHeavy_(std::move(nowTooHeavy)) {}

    // Another stage: nothing is known of it.
    void Forget();
    // A frame begins.
    void Begin();
    [[nodiscard]] bool GoesOn() override;
    // The frame is drawn. It may have been one long element.
    void End() { static_cast<void>(LooksAgain()); }
    // The frame at hand was given up, so that the picture is not whole.
    [[nodiscard]] bool GivenUp() const { return givenUp_; }

    // Two frames in a row took longer than a tenth of a second, or one longer than half a second.
    // (A single long frame says more of a busy machine than of the stage.)
    [[nodiscard]] bool TooHeavy() const { return tooHeavy_; }
    // Once a second: whether the stage is no longer too heavy, since no frame was long.
    [[nodiscard]] bool BecameLight();

private:
    [[nodiscard]] bool LooksAgain();

    Clock& clock_;
    Window& window_;
    std::function<void()> nowTooHeavy_;
    std::int64_t begun_ = 0;  // counts of the clock
    std::int64_t looked_ = 0;
    std::int64_t tenth_ = 0;  // of a second; 0 where there is no counter
    bool long_ = false;
    bool longBefore_ = false;
    bool longThisSecond_ = false;
    bool givenUp_ = false;
    bool tooHeavy_ = false;
};

}  // namespace scenara
