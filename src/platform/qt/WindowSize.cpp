// SPDX-License-Identifier: MIT
#include "platform/qt/WindowSize.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>

#include "platform/qt/Display.h"

namespace scenara {
namespace {

// Milliseconds in which a window manager that gives another size does so. One that gives none has
// said so by then, or is busy: it is waited for so many times as long.
constexpr int kPatience = 100;
constexpr int kMostPatience = 20;

// Milliseconds after which a size or place is not one of a window that is just being maximised:
// some window managers give it the size first, and the state later.
constexpr int kSettled = 300;

}  // namespace

WindowSize::WindowSize(QWidget& window) : window_(window) {
    patience_.setSingleShot(true);
    patience_.setInterval(kPatience);
    QObject::connect(&patience_, &QTimer::timeout, &window_, [this] { NothingCame(); });
    rests_.setSingleShot(true);
    rests_.setInterval(kSettled + 1);
    QObject::connect(&rests_, &QTimer::timeout, &window_, [this] { Rests(); });
}

// A widget takes each size for granted, and learns of no refusal. Its window does not.
void WindowSize::Ask(const QSize& size) {
    const QSize wanted = size.expandedTo(window_.minimumSizeHint());
    if (window_.windowHandle() == nullptr) {
        window_.resize(wanted);  // it will come up so
    } else if (MayBeAsked() && (wanted != window_.size() || IsAwaited())) {
        window_.windowHandle()->resize(wanted);
        waited_ = 0;
        patience_.start();
    }
}

// Until it is told that the size stays the toolkit shows no more of what is painted than would fit
// the one that was asked for, and does not make up for it.
void WindowSize::NothingCame() {
    if (window_.windowHandle()->size() != window_.size() && ++waited_ < kMostPatience) {
        patience_.start();
    } else {
        window_.update();
    }
}

void WindowSize::AskForPlace(const QPoint& place) {
    if (window_.windowHandle() == nullptr) {
        window_.move(place);
    } else if (MayBeAsked()) {
        window_.windowHandle()->setFramePosition(place);
    }
}

void WindowSize::Came() {
    patience_.stop();
    Moved();
}

void WindowSize::Moved() {
    Settle();
    if (IsTheUsers()) {
        newest_ = {window_.size(), window_.pos()};
        sinceCame_.start();
    }
    rests_.start();
}

// What has stood for a while is the user's, unless Rests has found that it is not.
void WindowSize::Settle() {
    if (sinceCame_.isValid() && HasRested()) {
        free_ = newest_;
        sinceCame_.invalidate();
    }
}

// Of being maximised in one direction the toolkit tells nothing.
void WindowSize::Rests() {
    if (!IsTheUsers()) {
        sinceCame_.invalidate();
    }
    Settle();
    if (comesUp_ && window_.isVisible()) {
        if (window_.windowHandle()->isExposed()) {
            KeepToTheWorkArea();
        } else {
            rests_.start();
        }
    }
}

void WindowSize::KeepToTheWorkArea() {
    if (IsTheUsers()) {
        comesUp_ = false;
        const QSize frame = window_.frameGeometry().size() - window_.size();
        Ask(window_.size().boundedTo(window_.screen()->availableGeometry().size() - frame));
    }
}

bool WindowSize::HasRested() const {
    return !free_.size.isValid() || ends_ || sinceCame_.hasExpired(kSettled);
}

// The place is the widget's of now: the window manager tells of the frame late, and of nothing else
// then.
const WindowSize::Free& WindowSize::WhenFree() {
    Settle();
    if (!sinceCame_.isValid() && window_.isVisible() && IsTheUsers()) {
        free_ = {window_.size(), window_.pos()};
    }
    return free_;
}

// A Wayland compositor leaves the size to the program then. The toolkit has forgotten it where the
// window was hidden in between.
void WindowSize::StateCame() {
    Settle();
    if (FillsTheScreen()) {
        sinceCame_.invalidate();
    } else if (IsWayland() && free_.size.isValid()) {
        Ask(free_.size);
    }
}

bool WindowSize::FillsTheScreen() const {
    return window_.isMaximized() || window_.isFullScreen();
}

bool WindowSize::IsTheUsers() const {
    return !FillsTheScreen() &&
           (window_.windowHandle() == nullptr || !IsTiled(*window_.windowHandle()));
}

// A hidden one is covered by the full screen.
bool WindowSize::MayBeAsked() const {
    return window_.isVisible() && IsTheUsers();
}

}  // namespace scenara
