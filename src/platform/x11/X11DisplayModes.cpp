// SPDX-License-Identifier: MIT
#include "platform/x11/X11DisplayModes.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace scenara {
namespace {

// Modes of fewer bits are described, and so found, as those of 24 are; 8 and 4 have words of their
// own.
bool ServesFullScreen(DisplaySettings mode) {
    const Long bits = std::exchange(mode.bitsPerPixel, X11DisplayModes::kEmulated.bitsPerPixel);
    mode.emulated = true;
    return mode == X11DisplayModes::kEmulated && bits <= mode.bitsPerPixel && bits != 8 &&
           bits != 4;
}

}  // namespace

X11DisplayModes::X11DisplayModes(std::function<ScreenRectangle()> windowPlace, std::string display)
    : windowPlace_(std::move(windowPlace)), display_(std::move(display)), connection_(display_) {
    ReadModes();
}

void X11DisplayModes::ReadModes() {
    if (!guard_) {
        // While it is switched the screen stays the same, and what it is to come back to.
        screen_ = connection_.ScreenAt(windowPlace_());
    }
    modes_.clear();
    if (screen_) {
        modes_ = connection_.ModesOf(*screen_);
    }
    if (modes_.empty()) {
        modes_.push_back({XCB_NONE, connection_.WholeArea()});
    }
    emulates_ = std::none_of(modes_.begin(), modes_.end(),
                             [](const X11Mode& mode) { return ServesFullScreen(mode.settings); });
    if (emulates_) {
        modes_.push_back({XCB_NONE, kEmulated});
    }
    emulatedInForce_ = emulatedInForce_ && emulates_;
}

std::optional<DisplaySettings> X11DisplayModes::EnumDisplaySettings(Long index) {
    if (index == 0) {
        ReadModes();
    }
    if (index < 0 || static_cast<std::size_t>(index) >= modes_.size()) {
        return std::nullopt;
    }
    return modes_[static_cast<std::size_t>(index)].settings;
}

// Another program may have switched since the modes were read.
DisplaySettings X11DisplayModes::ShownMode() const {
    const std::optional<X11Screen> now =
        screen_ ? connection_.ScreenOf(screen_->crtc) : std::nullopt;
    if (now) {
        for (const X11Mode& mode : connection_.ModesOf(*now)) {
            if (mode.id == now->mode) {
                return mode.settings;
            }
        }
    }
    return modes_.front().settings;
}

// Of several modes that look alike the screen's own comes first, so that going back is going back.
std::optional<xcb_randr_mode_t> X11DisplayModes::ModeWith(const DisplaySettings& settings) const {
    std::optional<xcb_randr_mode_t> found;
    for (const X11Mode& mode : modes_) {
        const bool own = screen_ && mode.id == screen_->mode;
        if (mode.id != XCB_NONE && mode.settings == settings && (!found || own)) {
            found = mode.id;
        }
    }
    return found;
}

bool X11DisplayModes::ChangeDisplaySettings(const DisplaySettings& mode) {
    if (emulates_ && mode == kEmulated) {
        emulatedInForce_ = true;
        return true;
    }
    if (mode == ShownMode()) {
        emulatedInForce_ = false;
        return true;
    }
    if (!guard_ && screen_) {
        screen_ = connection_.ScreenOf(screen_->crtc);
    }
    const std::optional<xcb_randr_mode_t> id = screen_ ? ModeWith(mode) : std::nullopt;
    if (!id) {
        return false;
    }
    if (*id == screen_->mode) {
        Restore();
        return mode == ShownMode();
    }
    const bool switchedBefore = guard_ != nullptr;
    if (!switchedBefore) {
        guard_ = std::make_unique<ModeGuard>(display_, *screen_);
    }
    X11Screen wanted = *screen_;
    wanted.mode = *id;
    if (!connection_.Set(wanted)) {
        if (!switchedBefore) {
            guard_.reset();
        }
        return false;
    }
    emulatedInForce_ = false;
    return true;
}

void X11DisplayModes::Restore() {
    emulatedInForce_ = false;
    if (guard_) {
        static_cast<void>(connection_.Set(*screen_));
        guard_.reset();
    }
}

}  // namespace scenara
