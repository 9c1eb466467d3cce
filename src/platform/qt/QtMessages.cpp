// SPDX-License-Identifier: MIT
#include "platform/qt/QtMessages.h"

#include <QCheckBox>
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
    Fill(box, message);
    box.exec();
}

bool QtMessages::ShowWithOffer(const Message& message, const std::string& offer) {
    QMessageBox box(owner_);
    Fill(box, message);
    QCheckBox taken(QString::fromStdString(ToUtf8(offer)));
    box.setCheckBox(&taken);
    box.exec();
    const bool isTaken = taken.isChecked();
    box.setCheckBox(nullptr);  // it is not the box's to delete
    taken.setParent(nullptr);
    return isTaken;
}

void QtMessages::Fill(QMessageBox& box, const Message& message) const {
    box.setIcon(IconOf(message.icon));
    box.setWindowTitle(
        QString::fromStdString(ToUtf8(message.title.empty() ? title_ : message.title)));
    // What stands in a file is text and no markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(ToUtf8(message.text)));
    box.setStandardButtons(QMessageBox::Ok);
}

}  // namespace scenara
