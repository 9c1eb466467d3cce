// SPDX-License-Identifier: MIT
#include "platform/qt/MenuBar.h"

#include <QActionEvent>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QProxyStyle>
#include <QShortcutEvent>
#include <QToolTip>
#include <algorithm>

namespace scenara {
namespace {

class Style : public QProxyStyle {
public:
    // The bar holds many short items; with the usual room around them it would not show them all.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override {
        constexpr int kSaved = 7;
        QSize given = QProxyStyle::sizeFromContents(type, option, size, widget);
        if (type == CT_MenuBarItem) {
            given.setWidth(given.width() - kSaved);
        }
        return given;
    }

    // By Alt the toolkit would give the bar the focus, or close a menu; by Escape out of one it
    // would give the bar the focus as well.
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_MenuBar_AltKeyNavigation
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

bool IsOf(const QAction& item, const QKeySequence& letter) {
    return item.isVisible() && QKeySequence::mnemonic(item.text()) == letter;
}

}  // namespace

MenuBar::MenuBar() {
    auto* const style = new Style;  // NOLINT(cppcoreguidelines-owning-memory): the bar's
    style->setParent(this);
    setStyle(style);
    qApp->installEventFilter(this);
}

int MenuBar::WholeWidth() const {
    QRect all;
    for (QAction* const item : actions()) {
        if (item->isVisible()) {
            all |= actionGeometry(item);
        }
    }
    int side = 0;
    for (const QStyle::PixelMetric metric :
         {QStyle::PM_MenuBarPanelWidth, QStyle::PM_MenuBarHMargin, QStyle::PM_MenuBarItemSpacing}) {
        side += style()->pixelMetric(metric, nullptr, this);
    }
    return all.width() + 2 * side;
}

bool MenuBar::event(QEvent* event) {
    if (event->type() == QEvent::Shortcut) {
        const QKeySequence& letter = static_cast<QShortcutEvent*>(event)->key();
        if (IsRepeated(letter)) {
            return true;
        }
        if (QAction* const menu = OnlyMenuOf(letter); menu != nullptr) {
            Open(*menu);
            return true;
        }
        if (IsOfSeveral(letter)) {
            GoToNextOf(letter);
            return true;
        }
        if (static_cast<QShortcutEvent*>(event)->isAmbiguous() && OnlyItemOf(letter) != nullptr) {
            OnlyItemOf(letter)->trigger();
            return true;
        }
    } else if (event->type() == QEvent::ToolTip) {
        const auto& help = *static_cast<QHelpEvent*>(event);
        const QAction* const item = actionAt(help.pos());
        QToolTip::showText(help.globalPos(), item == nullptr ? QString() : item->data().toString(),
                           this);
        return true;
    } else if (event->type() == QEvent::WindowDeactivate) {
        held_ = {};  // its release may be heard of elsewhere only
    }
    return QMenuBar::event(event);
}

// Of the whole application. A key that is held repeats as presses that look like others, until a
// key is let go: whichever, for on a keyboard of another script its own name is not the letter's. A
// menu that closes may swallow that; then another key that is pressed ends it, as it does on the
// keyboard.
bool MenuBar::eventFilter(QObject* receiver, QEvent* event) {
    const bool down = event->type() == QEvent::KeyPress;
    if (!held_.isEmpty() && (down || event->type() == QEvent::KeyRelease)) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool another = held_[0].key() != key.key() && key.key() != Qt::Key_Alt;
        if (!key.isAutoRepeat() && (!down || another)) {
            held_ = {};
        }
    }
    return QMenuBar::eventFilter(receiver, event);
}

void MenuBar::actionEvent(QActionEvent* event) {
    QMenuBar::actionEvent(event);
    if (event->type() == QEvent::ActionAdded && event->action()->menu() != nullptr) {
        event->action()->menu()->setStyle(style());
    }
}

// From an open menu those that it has no use for come here, too.
void MenuBar::keyPressEvent(QKeyEvent* event) {
    const QKeySequence pressed(event->keyCombination());
    const bool menuIsOpen = QApplication::activePopupWidget() != nullptr;
    if (IsOfSeveral(pressed)) {
        if (!IsRepeated(pressed)) {
            GoToNextOf(pressed);
        }
    } else if (menuIsOpen && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)) {
        GoToMenu(event->key() == Qt::Key_Left ? -1 : 1);
    } else if (stopped_ && event->key() == Qt::Key_Escape) {
        Leave();
    } else if (stopped_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        QAction* const item = activeAction();
        Leave();
        if (item != nullptr) {
            item->trigger();
        }
    } else {
        QMenuBar::keyPressEvent(event);
    }
}

void MenuBar::mousePressEvent(QMouseEvent* event) {
    Leave();
    QMenuBar::mousePressEvent(event);
}

void MenuBar::focusOutEvent(QFocusEvent* event) {
    QMenuBar::focusOutEvent(event);
    if (std::exchange(stopped_, false)) {
        setActiveAction(nullptr);
    }
}

// Disabled ones count: while a stage loads the letter must not run what it only goes to otherwise.
bool MenuBar::IsOfSeveral(const QKeySequence& letter) const {
    const QList<QAction*> items = actions();
    return std::count_if(items.begin(), items.end(),
                         [&](const QAction* item) { return IsOf(*item, letter); }) > 1;
}

QAction* MenuBar::OnlyOf(const QKeySequence& letter) const {
    const QList<QAction*> items = actions();
    const auto first = std::find_if(items.begin(), items.end(),
                                    [&](const QAction* item) { return IsOf(*item, letter); });
    return first != items.end() && (*first)->isEnabled() && !IsOfSeveral(letter) ? *first : nullptr;
}

// The toolkit would open it, too, but falls over a menu that is shut again while it opens.
QAction* MenuBar::OnlyMenuOf(const QKeySequence& letter) const {
    QAction* const item = OnlyOf(letter);
    return item != nullptr && item->menu() != nullptr ? item : nullptr;
}

// Where a hidden one has the same letter the toolkit would go from one to the other.
QAction* MenuBar::OnlyItemOf(const QKeySequence& letter) const {
    QAction* const item = OnlyOf(letter);
    return item != nullptr && item->menu() == nullptr ? item : nullptr;
}

void MenuBar::GoToNextOf(const QKeySequence& letter) {
    QList<QAction*> items = actions();
    items.removeIf([&](const QAction* item) { return !item->isEnabled() || !IsOf(*item, letter); });
    if (items.isEmpty()) {
        return;
    }
    // An item under a resting pointer is active, too. The user has taken no step to it.
    const bool isThere = stopped_ || QApplication::activePopupWidget() != nullptr;
    const qsizetype at = isThere ? items.indexOf(activeAction()) : -1;
    const qsizetype next = (at + 1) % items.size();
    QAction& item = *items[next];
    Close();
    Leave();
    if (item.menu() != nullptr) {
        Open(item);
    } else {
        Stop(item);
    }
}

void MenuBar::GoToMenu(int step) {
    QList<QAction*> menus = actions();
    menus.removeIf([](const QAction* item) {
        return item->menu() == nullptr || !item->isEnabled() || !item->isVisible();
    });
    if (const qsizetype at = menus.indexOf(activeAction()); at >= 0) {
        Close();
        Open(*menus[(at + step + menus.size()) % menus.size()]);
    }
}

void MenuBar::Open(QAction& menu) {
    setActiveAction(&menu);
    if (!menu.menu()->isVisible()) {
        return;
    }
    for (QAction* const item : menu.menu()->actions()) {
        if (item->isEnabled() && item->isVisible()) {
            menu.menu()->setActiveAction(item);
            return;
        }
    }
}

void MenuBar::Stop(QAction& item) {
    setActiveAction(&item);
    focused_ = QApplication::focusWidget();
    setFocus(Qt::MenuBarFocusReason);
    stopped_ = true;
}

// The toolkit would close it, too, but gives the bar the focus where nothing else has it.
void MenuBar::Close() {
    if (activeAction() != nullptr && activeAction()->menu() != nullptr) {
        activeAction()->menu()->close();
    }
}

void MenuBar::Leave() {
    if (std::exchange(stopped_, false)) {
        setActiveAction(nullptr);
        if (focused_) {
            focused_->setFocus(Qt::MenuBarFocusReason);
        } else {
            clearFocus();
        }
    }
}

}  // namespace scenara
