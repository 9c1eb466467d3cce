// SPDX-License-Identifier: MIT
#include "platform/qt/QtDialogs.h"

#include <QFile>
#include <QFileDialog>
#include <QInputDialog>

#include "base/Text.h"

namespace scenara {
namespace {

QString Shown(const std::string& text) {
    return QString::fromStdString(ToUtf8(text));
}

// Paths are the file system's bytes and not text.
std::string PathOf(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

// A title is one line.
QString OneLine(const std::string& text) {
    return Shown(text).simplified();
}

}  // namespace

std::string QtDialogs::BrowseForFolder(const std::string& prompt) {
    return PathOf(QFileDialog::getExistingDirectory(owner_, OneLine(prompt)));
}

std::string QtDialogs::OpenFile(const std::string& title, const std::string& initialFolder) {
    return PathOf(QFileDialog::getOpenFileName(
        owner_, OneLine(title), QFile::decodeName(QByteArray::fromStdString(initialFolder)),
        QStringLiteral("*.def;;*")));
}

std::string QtDialogs::InputBox(const std::string& prompt) {
    bool taken = false;
    const QString text = QInputDialog::getText(owner_, Shown(title_), Shown(prompt),
                                               QLineEdit::Normal, QString(), &taken);
    return taken ? text.toStdString() : std::string();
}

}  // namespace scenara
