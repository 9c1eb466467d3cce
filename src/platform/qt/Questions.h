// SPDX-License-Identifier: MIT
//
// Questions: the program's boxes and dialogs, one over the other, over the main window.
//
// The program stands still while one is open; what it does between events goes on all the same.
// When the program is to end at once, for the session does, all of them are withdrawn: those that
// are open close as by Cancel, those of the toolkit's own above them too, and no other opens.
// Nobody would answer them.
#pragma once

class QDialog;
class QWidget;

namespace scenara {

class MainWindow;

class Questions {
public:
    // `window` outlives it.
    explicit Questions(MainWindow& window) : window_(window) {}

    // The parent of what is asked: the main window, or the full screen in its place.
    [[nodiscard]] QWidget* Owner() const;

    // Shows the dialog, and returns when it is answered. Its result, QDialog::Rejected when it was
    // withdrawn.
    int Ask(QDialog& dialog);

    // From now on none is asked.
    void Withdraw();
    [[nodiscard]] bool AreWithdrawn() const { return withdrawn_; }

private:
    void AwaitWindow();
    void Show(QDialog& dialog);
    [[nodiscard]] bool GetsFocus(const QDialog& dialog) const;
    MainWindow& window_;
    bool withdrawn_ = false;
    bool givesNoFocus_ = false;  // the window system, to a box over the full screen
};

}  // namespace scenara
