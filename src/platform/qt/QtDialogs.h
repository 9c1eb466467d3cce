// SPDX-License-Identifier: MIT
//
// QtDialogs: the program's questions as the toolkit's own dialogs over the main window.
#pragma once

#include <string>
#include <utility>

#include "platform/Dialogs.h"

class QFileDialog;

namespace scenara {

class Questions;

class QtDialogs : public Dialogs {
public:
    // `questions` outlives it; those without a title of their own carry `title`.
    QtDialogs(Questions& questions, std::string title)
        : questions_(questions), title_(std::move(title)) {}

    std::string BrowseForFolder(const std::string& prompt) override;
    std::string OpenFile(const std::string& title, const std::string& initialFolder) override;
    std::string InputBox(const std::string& prompt) override;

private:
    // The path that is chosen; empty: none.
    std::string Choose(QFileDialog& dialog);

    Questions& questions_;
    std::string title_;
};

}  // namespace scenara
