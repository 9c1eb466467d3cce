// SPDX-License-Identifier: MIT
//
// WindowSize: the one place that asks the window system for a size, or a place, of a window.
//
// Both are wishes. A window that is maximised, full screen or tiled is not asked: a Wayland
// compositor ends the program for that. Any other request may be answered with another size, or,
// by a tiling window manager, with none; the widget keeps its size until an answer comes.
//
// It also knows how the window stood last when its size was the user's: when it did not fill the
// screen, and was not maximised in one direction only, as many window managers tile.
#pragma once

#include <QElapsedTimer>
#include <QPoint>
#include <QSize>
#include <QTimer>

class QWidget;

namespace scenara {

class WindowSize {
public:
    // `window` outlives it, and is one of the screen's.
    explicit WindowSize(QWidget& window);

    void Ask(const QSize& size);
    // Of the upper left corner of the window's frame.
    void AskForPlace(const QPoint& place);

    // The window has got a size, or a place.
    void Came();
    void Moved();
    // The window has got another state.
    void StateCame();

    // As the window is when its size is the user's: that, and where its frame begins.
    struct Free {
        QSize size;
        QPoint place;
    };
    [[nodiscard]] const Free& WhenFree();
    // The last look: what came just now counts as well.
    void End() { ends_ = true; }
    // So it is to come up. Only then its frame is known; with it, it is made no larger than what
    // its screen leaves to windows.
    void StandAt(const Free& stand) {
        free_ = stand;
        comesUp_ = true;
    }

    // Whether an answer may still come.
    [[nodiscard]] bool IsAwaited() const { return patience_.isActive(); }
    // Whether the window is one that is asked.
    [[nodiscard]] bool MayBeAsked() const;

private:
    void NothingCame();

    [[nodiscard]] bool FillsTheScreen() const;
    [[nodiscard]] bool IsTheUsers() const;

    void Settle();
    void Rests();
    void KeepToTheWorkArea();
    [[nodiscard]] bool HasRested() const;

    QWidget& window_;
    Free free_;
    Free newest_;  // what came last, before it is known whether that is the user's
    QElapsedTimer sinceCame_;
    QTimer rests_;
    bool comesUp_ = false;  // it has not been seen with its frame yet
    bool ends_ = false;
    QTimer patience_;
    int waited_ = 0;  // how often for an answer to the last question
};

}  // namespace scenara
