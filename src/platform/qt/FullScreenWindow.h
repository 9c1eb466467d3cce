// SPDX-License-Identifier: MIT
//
// FullScreenWindow: frmFS on a Qt desktop, with a picture of its own. The pointer is seen over it
// while it is moved, and for a second more.
#pragma once

#include <QMetaObject>
#include <QPoint>
#include <QTimer>
#include <QWidget>

#include "platform/FullScreenForm.h"

namespace scenara {

class MainWindow;
class PictureWidget;

class FullScreenWindow : public QWidget, public FullScreenForm {
public:
    // `window` outlives it, and closes in its place.
    explicit FullScreenWindow(MainWindow& window);

    WindowHandle Show(Beneath mainWindow) override;
    void Hide() override;

    [[nodiscard]] PictureWidget& Picture() { return *picture_; }

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    [[nodiscard]] WindowHandle Handle() const {
        return reinterpret_cast<WindowHandle>(static_cast<const QWidget*>(this));
    }
    void WaitForFocus();
    void Cover();
    void FollowScreen();
    void ShowPointer();

    MainWindow& window_;
    QPoint windowPlace_;  // of a main window that is hidden meanwhile
    QTimer pointerRests_;
    QMetaObject::Connection screenChanges_;  // of the screen that is covered
    PictureWidget* picture_ = nullptr;       // a child, as Qt has it
};

}  // namespace scenara
