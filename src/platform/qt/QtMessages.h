// SPDX-License-Identifier: MIT
//
// QtMessages: message boxes over the main window. The program stands still until one is closed.
// What is said when boxes are withdrawn goes to standard error, a line each.
#pragma once

#include <string>

#include "platform/Messages.h"

class QMessageBox;

namespace scenara {

class Questions;
struct Form;

class QtMessages : public Messages {
public:
    // Boxes without a title of their own carry the program's, as `form` has it at that time. Both
    // outlive it.
    QtMessages(Questions& questions, const Form& form) : questions_(questions), form_(form) {}

    void Show(const Message& message) override;
    bool ShowWithOffer(const Message& message, const std::string& offer) override;

private:
    void ShowBox(QMessageBox& box, const Message& message);

    Questions& questions_;
    const Form& form_;
};

}  // namespace scenara
