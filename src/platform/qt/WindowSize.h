// SPDX-License-Identifier: MIT
//
// WindowSize: the one place that asks the window system for a size, or a place, of a window.
//
// Both are wishes. A window that is maximised, full screen or tiled is not asked: a Wayland
// compositor ends the program for that. Any other request may be answered with another size, or,
// by a tiling window manager, with none; the widget keeps its size until an answer comes.
#pragma once

#include <QSize>
#include <QTimer>

class QPoint;
class QWidget;

namespace scenara {

class WindowSize {
public:
    // `window` outlives it, and is one of the screen's.
    explicit WindowSize(QWidget& window);

    void Ask(const QSize& size);
    // Of the upper left corner of the window's frame.
    void AskForPlace(const QPoint& place);

    // The window has got a size.
    void Came();
    // The window has got another state.
    void StateCame();

    // Whether an answer may still come.
    [[nodiscard]] bool IsAwaited() const { return patience_.isActive(); }

private:
    void NothingCame();
    [[nodiscard]] bool MayBeAsked() const;

    [[nodiscard]] bool FillsTheScreen() const;

    QWidget& window_;
    QSize free_;  // what it had last when it did not fill the screen
    QTimer patience_;
    int waited_ = 0;  // how often for an answer to the last question
};

}  // namespace scenara
