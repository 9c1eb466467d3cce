// SPDX-License-Identifier: MIT
#include "platform/qt/Questions.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QThread>
#include <QTimer>

#include "platform/qt/Display.h"
#include "platform/qt/MainWindow.h"

namespace scenara {
namespace {

// Milliseconds between two looks at what the program does between events.
constexpr int kLookEvery = 250;
constexpr int kMostAwaited = 500;
constexpr int kLookAtWindow = 20;

// Milliseconds that a box over the full screen has to get the keyboard.
constexpr int kFocusPatience = 300;

// What stays open all the same is passed over.
void CloseDialog(QWidget& widget) {
    if (auto* const dialog = qobject_cast<QDialog*>(&widget)) {
        dialog->reject();
    } else {
        widget.close();
    }
}

template <typename Top, typename Close>
void CloseAll(const Top& top, const Close& close) {
    for (QWidget* widget = top(); widget != nullptr; widget = top()) {
        close(*widget);
        if (top() == widget) {
            return;
        }
    }
}

}  // namespace

QWidget* Questions::Owner() const {
    return window_.Front();
}

// A window that is just coming up stands elsewhere afterwards, and a question is to stand over it.
void Questions::AwaitWindow() {
    const QDeadlineTimer patience(kMostAwaited);
    while (!window_.IsCovered() && !window_.HasComeUp() && !withdrawn_ && !patience.hasExpired()) {
        QApplication::processEvents(QEventLoop::AllEvents, kLookAtWindow);
        window_.FollowSize();
        QThread::msleep(1);
    }
}

// A Wayland compositor that tiles (sway) shows a box over the full screen, and leaves the keyboard
// with that. A box that comes up when there is none has it.
void Questions::Show(QDialog& dialog) {
    if (givesNoFocus_) {
        window_.MakeWay();
    }
    dialog.show();
    if (IsWayland() && window_.IsCovered() && !givesNoFocus_ && !GetsFocus(dialog)) {
        givesNoFocus_ = true;
        if (dialog.isVisible()) {
            window_.MakeWay();
            dialog.hide();
            dialog.show();
        }
    }
}

bool Questions::GetsFocus(const QDialog& dialog) const {
    const QDeadlineTimer patience(kFocusPatience);
    while (dialog.isVisible() && !withdrawn_ && !patience.hasExpired()) {
        if (dialog.isActiveWindow()) {
            return true;
        }
        QApplication::processEvents(QEventLoop::AllEvents, kLookAtWindow);
        QThread::msleep(1);
    }
    return !dialog.isVisible() || withdrawn_;
}

int Questions::Ask(QDialog& dialog) {
    bool answered = false;
    QObject::connect(&dialog, &QDialog::finished, &dialog, [&] { answered = true; });
    QTimer look;
    look.start(kLookEvery);
    dialog.setModal(true);
    AwaitWindow();
    if (!withdrawn_) {
        Show(dialog);
    }
    while (!answered && !withdrawn_) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        window_.FollowSize();
        window_.Idle();
    }
    dialog.hide();
    window_.GiveFocusBack();
    return answered ? dialog.result() : QDialog::Rejected;
}

void Questions::Withdraw() {
    withdrawn_ = true;
    CloseAll([] { return QApplication::activePopupWidget(); },
             [](QWidget& popup) { popup.close(); });
    CloseAll([] { return QApplication::activeModalWidget(); }, CloseDialog);
}

}  // namespace scenara
