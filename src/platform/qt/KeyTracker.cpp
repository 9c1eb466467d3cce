// SPDX-License-Identifier: MIT
#include "platform/qt/KeyTracker.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QWindow>
#include <algorithm>

namespace scenara {
namespace {

// To an open menu, a dialog, be it one that blocks nothing, or a text field.
bool TypedElsewhere() {
    return qobject_cast<QDialog*>(QApplication::activeWindow()) != nullptr ||
           qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr ||
           QApplication::activePopupWidget() != nullptr ||
           QApplication::activeModalWidget() != nullptr;
}

// With a key of the menus.
bool IsModified(const QKeyEvent& event) {
    return (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)) != 0;
}

// The stage list's.
bool TypedToAList() {
    return qobject_cast<QAbstractItemView*>(QApplication::focusWidget()) != nullptr;
}

// The sprite browser's, the only one that takes the focus; the stage stands still then.
bool TypedToABar() {
    return qobject_cast<QScrollBar*>(QApplication::focusWidget()) != nullptr;
}

bool DrivesTheCamera(VirtualKey key) {
    switch (key) {
        case VirtualKey::Left:
        case VirtualKey::Up:
        case VirtualKey::Right:
        case VirtualKey::Down:
        case VirtualKey::A:
        case VirtualKey::Z: return true;
        default: return false;
    }
}

bool Edits(VirtualKey key) {
    switch (key) {
        case VirtualKey::NumpadPlus:
        case VirtualKey::NumpadMinus:
        case VirtualKey::Delete:
        case VirtualKey::Insert:
        case VirtualKey::D: return true;
        default: return false;
    }
}

// Letters with accents are Latin ones, wherever they are: they have blocks of their own.
bool IsOfAnotherScript(int key) {
    constexpr int kLastOfLatin = 0x24F;
    constexpr int kFirstOfLatinWithMore = 0x1E00;
    constexpr int kLastOfLatinWithMore = 0x1EFF;
    const bool isLatin =
        key <= kLastOfLatin || (key >= kFirstOfLatinWithMore && key <= kLastOfLatinWithMore);
    return !isLatin && key < Qt::Key_Escape;
}

// As X and Wayland number the keys of a PC's keyboard.
std::optional<VirtualKey> LetterAt(quint32 scanCode) {
    switch (scanCode) {
        case 24: return VirtualKey::Q;
        case 38: return VirtualKey::A;
        case 40: return VirtualKey::D;
        case 52: return VirtualKey::Z;
        default: return std::nullopt;
    }
}

}  // namespace

std::optional<VirtualKey> VirtualKeyOf(const QKeyEvent& event) {
    const bool keypad = event.modifiers().testFlag(Qt::KeypadModifier);
    switch (event.key()) {
        case Qt::Key_Left: return VirtualKey::Left;
        case Qt::Key_Up: return VirtualKey::Up;
        case Qt::Key_Right: return VirtualKey::Right;
        case Qt::Key_Down: return VirtualKey::Down;
        case Qt::Key_Pause: return VirtualKey::Pause;
        case Qt::Key_Space: return VirtualKey::Space;
        case Qt::Key_Escape: return VirtualKey::Escape;
        case Qt::Key_PageUp: return VirtualKey::PageUp;
        case Qt::Key_PageDown: return VirtualKey::PageDown;
        case Qt::Key_Insert: return VirtualKey::Insert;
        case Qt::Key_Delete: return VirtualKey::Delete;
        case Qt::Key_A: return VirtualKey::A;
        case Qt::Key_D: return VirtualKey::D;
        case Qt::Key_Q: return VirtualKey::Q;
        case Qt::Key_Z: return VirtualKey::Z;
        case Qt::Key_Plus: return keypad ? std::optional(VirtualKey::NumpadPlus) : std::nullopt;
        case Qt::Key_Minus: return keypad ? std::optional(VirtualKey::NumpadMinus) : std::nullopt;
        default: break;
    }
    // A layout of another script types no Latin letters; the keys are where they are all the same.
    return IsOfAnotherScript(event.key()) ? LetterAt(event.nativeScanCode()) : std::nullopt;
}

KeyTracker::KeyTracker(const Form& form) : form_(form) {
    qApp->installEventFilter(this);
    QObject::connect(qApp, &QGuiApplication::focusWindowChanged, this,
                     [this](QWindow*) { ReleaseAll(); });
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, this,
                     [this](Qt::ApplicationState) { ReleaseAll(); });
}

Integer KeyTracker::GetAsyncKeyState(VirtualKey key) {
    const auto index = static_cast<std::size_t>(key);
    const bool pressed = pressedSince_.test(index);
    pressedSince_.reset(index);
    const bool down = std::any_of(down_.begin(), down_.end(),
                                  [&](const auto& held) { return held.second == key; });
    return static_cast<Integer>((down ? kKeyIsDown : 0) | (pressed ? kKeyWasPressed : 0));
}

bool KeyTracker::eventFilter(QObject* receiver, QEvent* event) {
    // Each event passes the window first, and then widgets within it; it counts once.
    if (receiver->isWindowType()) {
        if (event->type() == QEvent::KeyPress) {
            return Press(*static_cast<QKeyEvent*>(event)) || QObject::eventFilter(receiver, event);
        }
        if (event->type() == QEvent::KeyRelease) {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (!key.isAutoRepeat()) {
                down_.erase(key.nativeScanCode());
                chosen_.erase(key.nativeScanCode());
            }
        }
    }
    if (event->type() == QEvent::ShortcutOverride && HasAdditions()) {
        NoteModified(*static_cast<QKeyEvent*>(event));
    }
    return QObject::eventFilter(receiver, event);
}

// Addition: what the list has a use for. Escape gives the keys to the picture, unless it ends the
// sprite browser.
bool KeyTracker::IsOfTheList(VirtualKey key) const {
    switch (key) {
        case VirtualKey::Up:
        case VirtualKey::Down:
        case VirtualKey::PageUp:
        case VirtualKey::PageDown:
        case VirtualKey::Space:
        case VirtualKey::A:
        case VirtualKey::D:
        case VirtualKey::Q:
        case VirtualKey::Z: return true;
        case VirtualKey::Escape: return !form_.hscSGFX.Visible;
        default: return false;
    }
}

// Addition: held until after Ctrl or Alt is let go, it repeats as if it was pressed alone.
void KeyTracker::NoteModified(const QKeyEvent& event) {
    if (IsModified(event)) {
        chosen_[event.nativeScanCode()] = event.timestamp();
    }
}

// One whose release was lost, which a menu that closes may swallow, repeats no more.
bool KeyTracker::RepeatsModified(const QKeyEvent& event) {
    constexpr quint64 kMostUntilRepeated = 1000;  // milliseconds
    const auto chosen = chosen_.find(event.nativeScanCode());
    if (chosen == chosen_.end()) {
        return false;
    }
    if (event.timestamp() - chosen->second > kMostUntilRepeated) {
        chosen_.erase(chosen);
        return false;
    }
    chosen->second = event.timestamp();
    return true;
}

bool KeyTracker::Press(const QKeyEvent& event) {
    if (HasAdditions()) {
        NoteModified(event);
    }
    if (TypedElsewhere() || IsModified(event)) {
        return false;
    }
    if (RepeatsModified(event)) {
        return true;
    }
    const std::optional<VirtualKey> key = VirtualKeyOf(event);
    const bool isListed = HasAdditions() && TypedToAList();
    if (!key || (isListed && IsOfTheList(*key))) {
        return false;
    }
    if (!event.isAutoRepeat() && down_.emplace(event.nativeScanCode(), *key).second) {
        pressedSince_.set(static_cast<std::size_t>(*key));
        if (pressed_) {
            pressed_(*key);
        }
    }
    if (isListed) {
        return true;
    }
    // A list takes letters for the beginning of an item's name, and would open that stage.
    return !form_.lstStages.takesKeys && !TypedToABar() &&
           (DrivesTheCamera(*key) || (form_[Menu::mnuDebugBG].checked && Edits(*key)));
}

void KeyTracker::ReleaseAll() {
    down_.clear();
    chosen_.clear();
    pressedSince_.reset();
}

}  // namespace scenara
