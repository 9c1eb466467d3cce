// SPDX-License-Identifier: MIT
//
// SpriteBrowser: the stage's sprites one by one in the main window, picked with the scroll bar
// hscSGFX.
//
// Plain, the window takes the sprite's size, no narrower than kNarrowest and no larger than the
// screen; a larger picture is cut at its right and lower edge. Once the browser is left, the
// picture gets the room again that it had before.
//
// Addition: the window keeps its size. The sprite stands in the picture's box (SpriteStand), as
// large as fits, and can be zoomed and, where it is larger than the box, dragged. A size that was
// chosen holds for the sprites after it, too, as far as all of them is seen at it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Integers.h"
#include "base/NotCopied.h"
#include "editor/SpriteStand.h"
#include "platform/Form.h"
#include "platform/Window.h"
#include "render/ZoomControl.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

inline constexpr Long kNarrowest = 160;

// Opaque pixels, 0xAARRGGBB, line by line; a size of 0 is no picture.
struct BrowserPicture {
    Long width = 0;
    Long height = 0;
    std::vector<std::uint32_t> pixels;
};

// A sprite at its own size, one to one, and no more of it than `mostWidth` x `mostHeight`. What is
// transparent in it shows a checkerboard (SpriteStand.h).
[[nodiscard]] BrowserPicture PictureOf(const SpriteEntry& sprite, Long mostWidth, Long mostHeight);

// What the browser asks of the main window. Pixels of the window, unless said.
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
    // The room that the picture has.
    [[nodiscard]] virtual InnerSize PictureRoom() = 0;

    // Addition. The same in pixels of the screen, as it is now that hscSGFX stands below it.
    [[nodiscard]] virtual InnerSize BoxOnScreen() = 0;
    // Fills the picture's box with these, as many as BoxOnScreen told, and shows the text in the
    // middle.
    virtual void FillBox(const InnerSize& box, const std::vector<std::uint32_t>& pixels,
                         const std::string& text) = 0;
    // The browser's Caption() is another one.
    virtual void CaptionChanged() = 0;
};

class SpriteBrowser {
public:
    // All of it outlives the browser. `mode` is SpriteBrowserMode: 0, or 255 while it shows
    // sprites.
    SpriteBrowser(const StageModel& model, const ViewOptions& options, Byte& mode,
                  ScrollBar& hscSGFX, BrowserWindow& window)
        : model_(model), options_(options), mode_(mode), hscSGFX_(hscSGFX), window_(window) {}

    // On and off. Without sprites there is nothing to see, and the window keeps its size.
    void mnuDebug_Click();

    // Shows the sprite at the bar's Value. "Subscript out of range" for a Value that is no sprite
    // of the stage. Plain, events are let through in between: when the sprite is gone then, that is
    // all; when another one is wanted, the call that lets them through shows that one instead, so
    // that a bar that is moved without a pause takes no more stack.
    void hscSGFX_Change() { Show(false); }

    // While the thumb is dragged. Deliberate: plain, the caption is the camera's x then
    // (SpriteBrowserBar.ScrollShowsTheCameraInsteadOfTheSprite).
    void hscSGFX_Scroll() { Show(true); }

    // --- Addition: nothing of it has any effect while the browser was opened plain --------------

    // Whether sprites are shown so.
    [[nodiscard]] bool FillsBox() const { return mode_ != 0 && fillsBox_; }
    // Whether there is one to zoom.
    [[nodiscard]] bool CanZoom() const { return FillsBox() && model_.SpriteCount > 0; }

    // The window has another size.
    void BoxChanged();
    // About the middle of the box; back to what fits.
    void Zoom(ZoomStep step);
    // The wheel, by so many notches, forwards above 0, with the pointer there. Pixels of the box,
    // as for the rest of the pointer.
    void Wheel(Long notches, Long x, Long y);
    void MouseDown(Long x, Long y);
    void MouseMove(Long x, Long y);
    void MouseUp() { drags_ = false; }

    // What is shown, in words.
    [[nodiscard]] const std::string& Caption() const { return caption_; }

private:
    void Open();
    void Show(bool scrolls);
    [[nodiscard]] bool ShowSprite();
    void ShowInBox();
    void PaintBox();
    [[nodiscard]] const SpriteEntry& Sprite(Long value) const;
    [[nodiscard]] std::string PlaceText(const SpriteEntry& sprite, Long value) const;

    const StageModel& model_;
    const ViewOptions& options_;
    Byte& mode_;
    ScrollBar& hscSGFX_;
    BrowserWindow& window_;
    bool shows_ = false;    // Show is on the stack
    bool again_ = false;    // ... and another sprite has been asked for since
    bool scrolls_ = false;  // the thumb is dragged, as far as the last call knew
    InnerSize room_;        // the picture's, before the browser was opened

    bool fillsBox_ = false;  // as it was opened
    SpriteStand stand_;
    Long most_ = SpriteStand::kAnyTimes;  // the size that was chosen
    bool drags_ = false;
    Long dragX_ = 0;  // where the pointer was
    Long dragY_ = 0;
    std::vector<std::uint32_t> pixels_;  // of the box; kept for its room
    std::string caption_;
};

}  // namespace scenara
