// SPDX-License-Identifier: MIT
#include "platform/qt/QtDialogs.h"

#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QUrl>

#include "base/Text.h"
#include "platform/Form.h"
#include "platform/qt/ProblemsWindow.h"
#include "platform/qt/Questions.h"

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

QtDialogs::QtDialogs(Questions& questions, const Form& form) : questions_(questions), form_(form) {}

QtDialogs::~QtDialogs() = default;

std::string QtDialogs::Choose(QFileDialog& dialog) {
    dialog.setSupportedSchemes({QStringLiteral("file")});
    if (questions_.Ask(dialog) != QDialog::Accepted) {
        return {};
    }
    return PathOf(dialog.selectedUrls().value(0).toLocalFile());
}

std::string QtDialogs::BrowseForFolder(const std::string& prompt) {
    QFileDialog dialog(questions_.Owner(), OneLine(prompt));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return Choose(dialog);
}

std::string QtDialogs::OpenFile(const std::string& title, const std::string& initialFolder) {
    QFileDialog dialog(questions_.Owner(), OneLine(title),
                       QFile::decodeName(QByteArray::fromStdString(initialFolder)),
                       QStringLiteral("*.def;;*"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return Choose(dialog);
}

std::string QtDialogs::InputBox(const std::string& prompt) {
    QInputDialog dialog(questions_.Owner());
    dialog.setWindowTitle(Shown(form_.title));
    dialog.setLabelText(Shown(prompt));
    const bool taken = questions_.Ask(dialog) == QDialog::Accepted;
    return taken ? dialog.textValue().toStdString() : std::string();
}

void QtDialogs::ShowProblems(const ProblemList& problems) {
    if (!problems_) {
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): its parent's
        problems_ = new ProblemsWindow(problems, questions_.Owner());
    }
    problems_->ComeToFront();
}

}  // namespace scenara
