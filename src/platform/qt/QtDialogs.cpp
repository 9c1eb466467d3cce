// SPDX-License-Identifier: MIT
#include "platform/qt/QtDialogs.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>
#include <algorithm>

#include "platform/Form.h"
#include "platform/qt/KeysWindow.h"
#include "platform/qt/ProblemsWindow.h"
#include "platform/qt/Questions.h"
#include "platform/qt/ShownText.h"

namespace scenara {
namespace {

// Paths are the file system's bytes and not text.
std::string PathOf(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

QString NameOf(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

// A title is one line.
QString OneLine(const std::string& text) {
    return Shown(text).simplified();
}

}  // namespace

QtDialogs::QtDialogs(Questions& questions, const Form& form) : questions_(questions), form_(form) {}

QtDialogs::~QtDialogs() = default;

// The toolkit's own dialog would also delete and rename what it lists, whole folders too.
std::string QtDialogs::Choose(QFileDialog& dialog) {
    dialog.setOption(QFileDialog::ReadOnly);
    dialog.setSupportedSchemes({QStringLiteral("file")});
    if (questions_.Ask(dialog) != QDialog::Accepted) {
        return {};
    }
    return PathOf(dialog.selectedUrls().value(0).toLocalFile());
}

std::string QtDialogs::BrowseForFolder(const std::string& prompt,
                                       const std::string& initialFolder) {
    QFileDialog dialog(questions_.Owner(), OneLine(prompt),
                       initialFolder.empty() ? QDir::homePath() : NameOf(initialFolder));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return Choose(dialog);
}

std::string QtDialogs::OpenFile(const std::string& title, const std::string& initialFolder) {
    QFileDialog dialog(questions_.Owner(), OneLine(title), NameOf(initialFolder),
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

bool QtDialogs::OpenFolder(const std::string& folder) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(NameOf(folder)));
}

void QtDialogs::CopyText(const std::string& text) {
    QGuiApplication::clipboard()->setText(NameOf(text));
}

void QtDialogs::ShowKeys(const KeyPage& page) {
    if (!keys_) {
        keys_ =
            new KeysWindow(page, questions_.Owner());  // NOLINT(cppcoreguidelines-owning-memory)
    }
    keys_->ComeToFront();
}

std::optional<std::size_t> QtDialogs::ChooseAnswer(const std::string& text,
                                                   const std::vector<std::string>& answers) {
    QMessageBox box(questions_.Owner());
    box.setIcon(QMessageBox::Question);
    box.setWindowTitle(Shown(form_.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(Shown(text));
    std::vector<QAbstractButton*> buttons;
    buttons.reserve(answers.size());
    for (const std::string& answer : answers) {
        buttons.push_back(box.addButton(Shown(answer), QMessageBox::ActionRole));
    }
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.front()));
    box.addButton(QMessageBox::Cancel);
    static_cast<void>(questions_.Ask(box));
    const auto chosen = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    if (chosen == buttons.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(chosen - buttons.begin());
}

}  // namespace scenara
