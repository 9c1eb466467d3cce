// SPDX-License-Identifier: MIT
//
// HeadlessWindow: a main window that nobody sees. It records its captions and how often it was
// shown, and stands where it is told to. Each DoEvents first hands over the size that has come, as
// a window system reports it, and then runs a script in the place of the user, so that what happens
// between two images can be tested.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/Form.h"
#include "platform/Window.h"
#include "platform/headless/HeadlessClock.h"

namespace scenara {

class HeadlessWindow : public Window {
public:
    using Script = std::function<void(HeadlessWindow&)>;

    // Nobody's, and yet not 0, which would be no control at all.
    static constexpr WindowHandle kPictureHandle = 1;
    static constexpr WindowHandle kHandle = 2;

    // Pixels of a screen that nobody sees either.
    static constexpr Long kScreenWidth = 1024;
    static constexpr Long kScreenHeight = 768;

    struct Picture {
        Long width = 0;
        Long height = 0;
        std::vector<std::uint32_t> pixels;
    };
    // The picture of its own that was shown last.
    [[nodiscard]] const Picture& OwnPicture() const { return picture_; }

    // What filled the picture's box last.
    [[nodiscard]] const Picture& Filled() const { return filled_; }
    [[nodiscard]] const std::string& BoxText() const { return boxText_; }

    HeadlessWindow() = default;
    explicit HeadlessWindow(Script script) : script_(std::move(script)) {}

    // Which clock goes on while the program sleeps; outlives it.
    void SetClock(HeadlessClock* clock) { clock_ = clock; }

    // Who hears of sizes from now on; outlives it.
    void SetEvents(FormEvents* events) { events_ = events; }

    void Show() override { ++showCount_; }
    void ComeUpAt(const WindowStand& stand) override {
        stand_ = stand;
        inner_ = {stand.size.width - frame_.width, stand.size.height - frame_.height};
        const WindowStand::Spot spot = stand.spot.value_or(WindowStand::Spot());
        left_ = spot.left * kUnitsPerPixel;
        top_ = spot.top * kUnitsPerPixel;
        maximised_ = stand.maximised;
        sizeCame_ = true;
    }
    [[nodiscard]] WindowStand Stand() const override {
        if (maximised_) {
            WindowStand stand = stand_;
            stand.maximised = true;
            return stand;
        }
        return {WindowStand::Spot{left_ / kUnitsPerPixel, top_ / kUnitsPerPixel},
                {inner_.width + frame_.width, inner_.height + frame_.height},
                false};
    }
    void Size(Long width, Long height) override {
        wishes_.push_back({width, height});
        wished_ = wishes_.back();
        sizeCame_ = true;
    }
    [[nodiscard]] bool HasRoomFor(Long width, Long height) const override {
        return !maximised_ && width + frame_.width <= workArea_.width &&
               height + frame_.height <= workArea_.height;
    }
    void MoveTo(Long left, Long top) override {
        if (!maximised_) {
            left_ = left;
            top_ = top;
        }
    }
    [[nodiscard]] bool MessageWaiting() override { return messageWaiting_ || sizeCame_; }
    // Not at all while a message waits; else as long as it may.
    void SleepUntilMessage(std::int64_t nanoseconds) override {
        if (!MessageWaiting() && clock_ != nullptr) {
            clock_->Sleep(nanoseconds);
            sleeps_.push_back(nanoseconds);
            if (atWaking_) {
                atWaking_(*this);
            }
        }
    }
    [[nodiscard]] bool IsSeen() const override { return seen_; }
    [[nodiscard]] WindowPlace Screen() const override {
        return {screenLeft_ * kUnitsPerPixel, 0, kScreenWidth * kUnitsPerPixel,
                kScreenHeight * kUnitsPerPixel};
    }
    [[nodiscard]] InnerSize WorkArea() const override { return workArea_; }
    [[nodiscard]] InnerSize Around() const override { return frame_; }
    [[nodiscard]] InnerSize RoomFor(const CanvasSize& size) const override {
        return roomForView_.value_or(InnerSize{size.width, size.height});
    }
    [[nodiscard]] InnerSize LargestInnerSize() const override {
        return {kScreenWidth - frame_.width, kScreenHeight - frame_.height};
    }
    void SetCaption(const std::string& caption) override { captions_.push_back(caption); }
    void DoEvents() override {
        ++doEventsCount_;
        leavingWaits_ = false;
        ReportSize();
        if (script_) {
            script_(*this);
        }
    }
    void NoteEvents() override {
        if (duringPass_) {
            duringPass_(*this);
        }
    }
    [[nodiscard]] bool LeavingWaits() const override { return leavingWaits_ || endRequested_; }
    [[nodiscard]] WindowPlace Place() const override {
        return {left_, top_, (inner_.width + frame_.width) * kUnitsPerPixel,
                (inner_.height + frame_.height) * kUnitsPerPixel};
    }
    [[nodiscard]] WindowHandle Handle() const override { return kHandle; }
    [[nodiscard]] WindowHandle PictureHandle() const override { return kPictureHandle; }
    void ShowPicture(Long width, Long height, std::span<const std::uint32_t> pixels) override {
        picture_ = {width, height, {pixels.begin(), pixels.end()}};
    }
    [[nodiscard]] InnerSize BoxOnScreen() const override { return box_.value_or(inner_); }
    void FillBox(const InnerSize& box, std::span<const std::uint32_t> pixels,
                 const std::string& text) override {
        filled_ = {box.width, box.height, {pixels.begin(), pixels.end()}};
        boxText_ = text;
    }
    [[nodiscard]] WindowHandle Foreground() const override { return foreground_; }
    [[nodiscard]] bool EndRequested() const override { return endRequested_; }

    // What moving and sizing the window does. At first it is as large as the view, in the screen's
    // upper left corner.
    void MoveTo(const WindowPlace& place) {
        left_ = place.left;
        top_ = place.top;
        inner_ = {place.width / kUnitsPerPixel - frame_.width,
                  place.height / kUnitsPerPixel - frame_.height};
        sizeCame_ = true;
    }
    // What its maximise button does: it covers the screen, and is given no other size.
    void Maximise() {
        stand_ = Stand();
        MoveTo(WindowPlace{0, 0, Screen().width, Screen().height});
        maximised_ = true;
    }
    // What stands around the inner area, in pixels: at first nothing.
    void SetFrame(const InnerSize& frame) { frame_ = frame; }
    // What the system leaves to windows: at first the whole screen.
    void SetWorkArea(const InnerSize& size) { workArea_ = size; }
    // The screen that the window is on stands so many pixels right of all others.
    void SetScreenLeft(Long left) { screenLeft_ = left; }
    // How large the picture's box is on the screen: at first as the inner area.
    void SetPictureBox(const InnerSize& size) { box_ = size; }
    // What the view takes on another screen: at first as many pixels as it has.
    void SetRoomForView(const InnerSize& size) { roomForView_ = size; }

    // Whether a message waits, from now on: at first there always is one, so every look pumps.
    void SetMessageWaiting(bool waiting) { messageWaiting_ = waiting; }

    // What happens at the end of each sleep.
    void SetAtWaking(Script script) { atWaking_ = std::move(script); }

    // What minimising the window and bringing it back does.
    void SetSeen(bool seen) { seen_ = seen; }

    // What the user does while a frame takes long, at each look.
    void SetDuringPass(Script script) { duringPass_ = std::move(script); }
    // Whether what the user did leaves the stage, until DoEvents has delivered it.
    void SetLeavingWaits() { leavingWaits_ = true; }

    // What choosing another window does: nobody's by that number.
    void SetForeground(WindowHandle window) { foreground_ = window; }

    // What closing the window does.
    void RequestEnd() override { endRequested_ = true; }

    // Every caption that was set, oldest first.
    [[nodiscard]] const std::vector<std::string>& Captions() const { return captions_; }
    // Every size that was asked for, oldest first.
    [[nodiscard]] const std::vector<InnerSize>& Wishes() const { return wishes_; }
    // How long the program slept each time, oldest first, in nanoseconds.
    [[nodiscard]] const std::vector<std::int64_t>& Sleeps() const { return sleeps_; }
    [[nodiscard]] std::size_t DoEventsCount() const { return doEventsCount_; }
    [[nodiscard]] std::size_t ShowCount() const { return showCount_; }

private:
    void ReportSize() {
        const std::optional<InnerSize> wished = std::exchange(wished_, std::nullopt);
        if (wished && !maximised_) {
            inner_ = *wished;
        }
        if (std::exchange(sizeCame_, false) && events_ != nullptr) {
            events_->Form_Resize(inner_.width, inner_.height);
        }
    }

    Script script_;
    Script duringPass_;
    Script atWaking_;
    FormEvents* events_ = nullptr;
    HeadlessClock* clock_ = nullptr;
    std::vector<std::int64_t> sleeps_;
    std::vector<std::string> captions_;
    Long left_ = 0;
    Long top_ = 0;
    InnerSize inner_{CanvasSize().width, CanvasSize().height};
    InnerSize frame_;
    std::optional<InnerSize> roomForView_;
    InnerSize workArea_{kScreenWidth, kScreenHeight};
    Long screenLeft_ = 0;
    WindowStand stand_;  // while it is maximised: as it was before
    std::vector<InnerSize> wishes_;
    std::optional<InnerSize> wished_;  // not answered yet
    Picture picture_;
    std::optional<InnerSize> box_;
    Picture filled_;
    std::string boxText_;
    WindowHandle foreground_ = kHandle;
    std::size_t doEventsCount_ = 0;
    std::size_t showCount_ = 0;
    bool sizeCame_ = false;  // and is to be reported
    bool maximised_ = false;
    bool messageWaiting_ = true;
    bool seen_ = true;
    bool leavingWaits_ = false;
    bool endRequested_ = false;
};

}  // namespace scenara
