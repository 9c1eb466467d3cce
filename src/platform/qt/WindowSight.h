// SPDX-License-Identifier: MIT
//
// WindowSight: whether the user may see something of a window.
//
// The toolkit tells when a window is minimised, has been taken from the screen, or is asked for no
// more pictures (Wayland). X tells beyond that when it is covered whole by others, and its window
// manager when it is hidden or on another workspace, where that leaves the window on the screen. A
// display with a compositor covers nothing, by its own account.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QPointer>
#include <QWindow>

#include "base/NotCopied.h"

namespace scenara {

class WindowSight : public QAbstractNativeEventFilter, NotCopied {
public:
    WindowSight();
    ~WindowSight() override;

    // It is this one from now on; or none (nullptr).
    void Watch(QWindow* window);

    // Without a window too: nothing tells otherwise.
    [[nodiscard]] bool IsSeen() const;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    void AskForCovering() const;
    [[nodiscard]] bool IsPutAway() const;

    QPointer<QWindow> window_;
    quint32 id_ = 0;  // X's
    quint32 atomCurrentDesktop_ = 0;
    quint32 atomDesktop_ = 0;
    quint32 atomState_ = 0;
    quint32 atomHidden_ = 0;
    bool covered_ = false;
    bool putAway_ = false;  // by the window manager
};

}  // namespace scenara
