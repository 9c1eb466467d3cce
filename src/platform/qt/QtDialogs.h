// SPDX-License-Identifier: MIT
//
// QtDialogs: the program's questions as the toolkit's own dialogs over the main window.
#pragma once

#include <string>
#include <utility>

#include "platform/Dialogs.h"

class QWidget;

namespace scenara {

class QtDialogs : public Dialogs {
public:
    // `owner` outlives it; questions without a title of their own carry `title`.
    QtDialogs(QWidget* owner, std::string title) : owner_(owner), title_(std::move(title)) {}

    std::string BrowseForFolder(const std::string& prompt) override;
    std::string OpenFile(const std::string& title, const std::string& initialFolder) override;
    std::string InputBox(const std::string& prompt) override;

private:
    QWidget* owner_;
    std::string title_;
};

}  // namespace scenara
