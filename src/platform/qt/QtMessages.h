// SPDX-License-Identifier: MIT
//
// QtMessages: message boxes over the main window. The program stands still until one is closed.
// What is said when boxes are withdrawn goes to standard error, a line each.
#pragma once

#include <string>
#include <utility>

#include "platform/Messages.h"

class QMessageBox;

namespace scenara {

class Questions;

class QtMessages : public Messages {
public:
    // Boxes without a title of their own carry `title`; `questions` outlives it.
    QtMessages(Questions& questions, std::string title)
        : questions_(questions), title_(std::move(title)) {}

    void Show(const Message& message) override;
    bool ShowWithOffer(const Message& message, const std::string& offer) override;

private:
    void Fill(QMessageBox& box, const Message& message) const;
    void ShowBox(QMessageBox& box, const Message& message);

    Questions& questions_;
    std::string title_;
};

}  // namespace scenara
