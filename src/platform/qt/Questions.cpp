// SPDX-License-Identifier: MIT
#include "platform/qt/Questions.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include "platform/qt/MainWindow.h"

namespace scenara {
namespace {

// Milliseconds between two looks at what the program does between events.
constexpr int kLookEvery = 250;

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

int Questions::Ask(QDialog& dialog) {
    bool answered = false;
    QObject::connect(&dialog, &QDialog::finished, &dialog, [&] { answered = true; });
    QTimer look;
    look.start(kLookEvery);
    dialog.setModal(true);
    if (!withdrawn_) {
        dialog.show();
    }
    while (!answered && !withdrawn_) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
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
