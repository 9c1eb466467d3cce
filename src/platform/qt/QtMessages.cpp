// SPDX-License-Identifier: MIT
#include "platform/qt/QtMessages.h"

#include <QMessageBox>

#include "base/Text.h"

namespace scenara {
namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Exclamation: return QMessageBox::Warning;
        case MessageIcon::CriticalStop: return QMessageBox::Critical;
        case MessageIcon::None: break;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

void QtMessages::Show(const Message& message) {
    QMessageBox box(owner_);
    box.setIcon(IconOf(message.icon));
    box.setWindowTitle(
        QString::fromStdString(ToUtf8(message.title.empty() ? title_ : message.title)));
    // What stands in a file is text and no markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(ToUtf8(message.text)));
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

}  // namespace scenara
