// SPDX-License-Identifier: MIT
//
// SpriteBrowser: the stage's sprites one by one in the main window, picked with the scroll bar
// hscSGFX.
//
// The window takes the sprite's size, no narrower than kNarrowest and no larger than the screen; a
// larger picture is cut at its right and lower edge.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Integers.h"
#include "base/NotCopied.h"
#include "platform/Form.h"
#include "platform/View.h"
#include "platform/Window.h"
#include "stage/StageModel.h"

namespace scenara {

inline constexpr Long kNarrowest = 160;

// Opaque pixels, 0xAARRGGBB, line by line; a size of 0 is no picture.
struct BrowserPicture {
    Long width = 0;
    Long height = 0;
    std::vector<std::uint32_t> pixels;
};

// A sprite at its own size, one to one, and no more of it than `mostWidth` x `mostHeight`. What is
// transparent in it shows a checkerboard of squares of kCheckSize pixels, the first one light.
[[nodiscard]] BrowserPicture PictureOf(const SpriteEntry& sprite, Long mostWidth, Long mostHeight);

inline constexpr Long kCheckSize = 8;
inline constexpr std::uint32_t kLightCheck = 0xFFCCCCCC;
inline constexpr std::uint32_t kDarkCheck = 0xFF999999;

// What the browser asks of the main window. Pixels.
class BrowserWindow : NotCopied {
public:
    virtual ~BrowserWindow() = default;

    // Makes room for a picture of this size; while hscSGFX is visible it stands below the picture.
    virtual void MakeRoom(Long width, Long height) = 0;
    virtual void API_doevents() = 0;
    // Shows the picture in the picture's place, from its upper left corner.
    virtual void ShowPicture(const BrowserPicture& picture) = 0;
    virtual void SetCaption(const std::string& caption) = 0;
    // The largest picture for which the window, with all that is around it, fits on the screen.
    [[nodiscard]] virtual InnerSize LargestPicture() = 0;
};

class SpriteBrowser {
public:
    // All of it outlives the browser. `mode` is SpriteBrowserMode: 0, or 255 while it shows
    // sprites.
    SpriteBrowser(const StageModel& model, const View& view, Byte& mode, ScrollBar& hscSGFX,
                  BrowserWindow& window)
        : model_(model), view_(view), mode_(mode), hscSGFX_(hscSGFX), window_(window) {}

    // On and off. Without sprites there is nothing to see, and the window keeps its size.
    void mnuDebug_Click();

    // Shows the sprite at the bar's Value. Events are let through in between: when the sprite is
    // gone then, that is all; when another one is wanted, the call that lets them through shows
    // that one instead, so that a bar that is moved without a pause takes no more stack.
    // "Subscript out of range" for a Value that is no sprite of the stage.
    void hscSGFX_Change() { Show(false); }

    // While the thumb is dragged. Deliberate: the caption is the camera's x then
    // (SpriteBrowserBar.ScrollShowsTheCameraInsteadOfTheSprite).
    void hscSGFX_Scroll() { Show(true); }

private:
    void Open();
    void Show(bool scrolls);
    [[nodiscard]] bool ShowSprite();

    const StageModel& model_;
    const View& view_;
    Byte& mode_;
    ScrollBar& hscSGFX_;
    BrowserWindow& window_;
    bool shows_ = false;    // Show is on the stack
    bool again_ = false;    // ... and another sprite has been asked for since
    bool scrolls_ = false;  // the thumb is dragged, as far as the last call knew
};

}  // namespace scenara
