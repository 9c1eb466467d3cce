// SPDX-License-Identifier: MIT
//
// KeysWindow: the page of keys in a window beside the main one. It blocks nothing, is as large as
// the page where its screen has that, and can be read, selected and copied by the keyboard.
#pragma once

#include <QDialog>

#include "platform/KeyPage.h"

class QTextEdit;

namespace scenara {

class KeysWindow : public QDialog {
public:
    KeysWindow(const KeyPage& page, QWidget* parent);

    void ComeToFront();

private:
    void FitPage();

    QTextEdit* text_ = nullptr;  // a child, as Qt has it
};

}  // namespace scenara
