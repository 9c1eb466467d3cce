// SPDX-License-Identifier: MIT
//
// Window: the main window, as far as the reading and the drawing of stages need it.
//
// DoEvents lets the window system deliver what waits (the program's API_doevents is this behind a
// look whether anything does): handlers of menus, keys and lists run inside it and may change the
// program's state, so a caller keeps no references into tables across it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "base/Integers.h"
#include "base/NotCopied.h"
#include "platform/Direct3D8.h"
#include "platform/View.h"

namespace scenara {

// Window units: 15 to the pixel.
inline constexpr Long kUnitsPerPixel = 15;

// Where something stands on the screens, borders included, in window units.
struct WindowPlace {
    Long left = 0;
    Long top = 0;
    Long width = 0;
    Long height = 0;
};

// Of the window's inner area, in pixels.
struct InnerSize {
    Long width = 0;
    Long height = 0;

    friend bool operator==(const InnerSize&, const InnerSize&) = default;
};

// How the user has the window when it neither fills the screen nor is hidden; to come up so again.
struct WindowStand {
    // Of its upper left corner, borders included, in pixels of all screens together.
    struct Spot {
        Long left = 0;
        Long top = 0;

        friend bool operator==(const Spot&, const Spot&) = default;
    };

    std::optional<Spot> spot;  // none: not known, or the system alone knows
    InnerSize size;            // of all within its borders, menus and bars included, in pixels
    bool maximised = false;    // now

    friend bool operator==(const WindowStand&, const WindowStand&) = default;
};

class Window : NotCopied {
public:
    virtual ~Window() = default;

    virtual void Show() = 0;

    // Before it is shown the first time: it comes up so. It is no larger, borders included, than
    // what the screen leaves to windows, and where its upper edge would be out of reach the system
    // places it.
    virtual void ComeUpAt(const WindowStand& stand) = 0;
    // Where the user has it now.
    [[nodiscard]] virtual WindowStand Stand() const = 0;

    // Asks for an inner area of this size, in pixels. It is a wish: the window system decides, and
    // it is not even asked while the window is maximised, full screen or tiled. The size that came
    // is reported by Form_Resize from one of the next DoEvents, also where it is the old one.
    virtual void Size(Long width, Long height) = 0;
    // Whether an inner area of this size, in pixels, can be asked for: the window is neither
    // maximised nor full screen nor tiled, and with all that is around it fits into what its screen
    // leaves to windows.
    [[nodiscard]] virtual bool HasRoomFor(Long width, Long height) const = 0;
    // Asks for this place of the upper left corner, borders included, in window units. A wish, too.
    virtual void MoveTo(Long left, Long top) = 0;
    virtual void SetCaption(const std::string& caption) = 0;

    // Whether an event waits to be delivered: a cheap look that leaves it where it is.
    [[nodiscard]] virtual bool MessageWaiting() = 0;
    // Delivers all that waits, and returns.
    virtual void DoEvents() = 0;

    // Sleeps until an event may wait to be delivered, at most so many nanoseconds, and delivers
    // nothing. It ends as late as the machine makes it; and early also for what turns out to be
    // nothing.
    virtual void SleepUntilMessage(std::int64_t nanoseconds) = 0;

    // Whether the user may see something of the stage's picture, as far as the window system tells:
    // not in a window that is minimised, stands on another workspace or is covered whole.
    [[nodiscard]] virtual bool IsSeen() const = 0;

    // Takes in what the window system has, so that the window does not look dead, and delivers
    // nothing: the program may be in the middle of a frame.
    virtual void NoteEvents() = 0;
    // Whether something waits to be delivered that leaves the stage which is shown: the end, Close,
    // a choice of a stage; or Escape, which leaves the full screen.
    [[nodiscard]] virtual bool LeavingWaits() const = 0;

    [[nodiscard]] virtual WindowPlace Place() const = 0;

    // Of all screens the one that the window is on.
    [[nodiscard]] virtual WindowPlace Screen() const = 0;

    // What the system leaves to windows of the screen that the window comes up on, in pixels; and
    // what menus and bars take of a window beside its inner area.
    [[nodiscard]] virtual InnerSize WorkArea() const = 0;
    [[nodiscard]] virtual InnerSize Around() const = 0;

    // What the view takes of the inner area with nothing around it, at its own size. It is more
    // where a pixel of the window is no whole number of the screen's.
    [[nodiscard]] virtual InnerSize RoomFor(const CanvasSize& size) const = 0;

    // The largest inner area for which the window, with all that is around it, fits on the screen.
    [[nodiscard]] virtual InnerSize LargestInnerSize() const = 0;

    // Shows a picture of its own, pixels of 0xAARRGGBB line by line, one to one in the place of the
    // stage's, from the upper left corner; until hscSGFX is gone.
    virtual void ShowPicture(Long width, Long height, std::span<const std::uint32_t> pixels) = 0;

    // The picture's box (picDraw) in pixels of the screen, as the form has it: what FillBox fills.
    // When it is another one, Form_Resize is reported.
    [[nodiscard]] virtual InnerSize BoxOnScreen() const = 0;
    // Shows these, as many as BoxOnScreen told, in the place of the stage's, each as a pixel of the
    // screen, and a line of text in the middle; until hscSGFX is gone. Meanwhile the pointer over
    // the picture is told in these pixels, and the wheel, too.
    virtual void FillBox(const InnerSize& box, std::span<const std::uint32_t> pixels,
                         const std::string& text) = 0;

    // The main window itself.
    [[nodiscard]] virtual WindowHandle Handle() const = 0;

    // The control that shows the picture (picDraw), for the device that draws into it.
    [[nodiscard]] virtual WindowHandle PictureHandle() const = 0;

    // Which window of this program has the user's attention; 0 when it is another program's.
    [[nodiscard]] virtual WindowHandle Foreground() const = 0;

    // The user has closed the window, or the program is to end: every loop and load returns at its
    // next test.
    [[nodiscard]] virtual bool EndRequested() const = 0;
    virtual void RequestEnd() = 0;
};

}  // namespace scenara
