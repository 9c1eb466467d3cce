// SPDX-License-Identifier: MIT
#include "platform/qt/QtMessages.h"

#include <QCheckBox>
#include <QMessageBox>
#include <algorithm>
#include <iostream>

#include "base/Text.h"
#include "platform/Form.h"
#include "platform/qt/Questions.h"

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

void Print(const Message& message) {
    std::string line = ToUtf8(message.text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    std::cerr << "scenara: " << line << '\n';
}

}  // namespace

void QtMessages::Show(const Message& message) {
    QMessageBox box(questions_.Owner());
    ShowBox(box, message);
}

bool QtMessages::ShowWithOffer(const Message& message, const std::string& offer) {
    QMessageBox box(questions_.Owner());
    QCheckBox taken(QString::fromStdString(ToUtf8(offer)));
    box.setCheckBox(&taken);
    ShowBox(box, message);
    const bool isTaken = taken.isChecked();
    box.setCheckBox(nullptr);  // it is not the box's to delete
    taken.setParent(nullptr);
    return isTaken;
}

void QtMessages::ShowBox(QMessageBox& box, const Message& message) {
    if (questions_.AreWithdrawn()) {
        Print(message);
        return;
    }
    box.setIcon(IconOf(message.icon));
    box.setWindowTitle(
        QString::fromStdString(ToUtf8(message.title.empty() ? form_.title : message.title)));
    // What stands in a file is text and no markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(ToUtf8(message.text)));
    box.setStandardButtons(QMessageBox::Ok);
    static_cast<void>(questions_.Ask(box));
}

}  // namespace scenara
