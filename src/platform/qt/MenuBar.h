// SPDX-License-Identifier: MIT
//
// MenuBar: the bar of menus, with the keyboard as the picture needs it.
//
// A lone Alt does nothing, and a menu that closes leaves nothing of itself, so that the arrow keys
// stay with the picture. Left and Right go from an open menu to the next one. An access letter that
// several items have goes from one of them to the next: it opens a menu, but runs nothing; Return
// does. A letter that is held counts once. An item with data has that as its tool tip.
#pragma once

#include <QKeySequence>
#include <QMenuBar>
#include <QPointer>
#include <utility>

namespace scenara {

class MenuBar : public QMenuBar {
public:
    MenuBar();

    // In which all of its items are seen. (The toolkit's own hint is no such width where items
    // stand from right to left.)
    [[nodiscard]] int WholeWidth() const;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void actionEvent(QActionEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] bool IsOfSeveral(const QKeySequence& letter) const;
    // Notes it as held.
    [[nodiscard]] bool IsRepeated(const QKeySequence& letter) {
        return std::exchange(held_, letter) == letter;
    }
    // The item that can be chosen by the letter, where no other one has it: of any kind, one with
    // a menu, one without.
    [[nodiscard]] QAction* OnlyOf(const QKeySequence& letter) const;
    [[nodiscard]] QAction* OnlyMenuOf(const QKeySequence& letter) const;
    [[nodiscard]] QAction* OnlyItemOf(const QKeySequence& letter) const;
    void GoToNextOf(const QKeySequence& letter);
    void GoToMenu(int step);
    void Open(QAction& menu);
    void Stop(QAction& item);
    void Close();
    void Leave();

    QKeySequence held_;          // a letter that is still down
    bool stopped_ = false;       // at an item that has no menu, with the focus
    QPointer<QWidget> focused_;  // before that
};

}  // namespace scenara
