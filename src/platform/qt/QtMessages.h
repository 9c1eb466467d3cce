// SPDX-License-Identifier: MIT
//
// QtMessages: message boxes over the main window. The program stands still until one is closed.
#pragma once

#include <string>
#include <utility>

#include "platform/Messages.h"

class QMessageBox;
class QWidget;

namespace scenara {

class QtMessages : public Messages {
public:
    // Boxes without a title of their own carry `title`; `owner` outlives it.
    QtMessages(QWidget* owner, std::string title) : owner_(owner), title_(std::move(title)) {}

    void Show(const Message& message) override;
    bool ShowWithOffer(const Message& message, const std::string& offer) override;

private:
    void Fill(QMessageBox& box, const Message& message) const;

    QWidget* owner_;
    std::string title_;
};

}  // namespace scenara
