// SPDX-License-Identifier: MIT
#include "platform/qt/KeyTracker.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>
#include <algorithm>

namespace scenara {
namespace {

constexpr Integer kDown = -32768;  // the highest of 16 bits
constexpr Integer kPressedSince = 1;

bool TypedElsewhere() {
    return QApplication::activePopupWidget() != nullptr ||
           QApplication::activeModalWidget() != nullptr;
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
        case Qt::Key_Escape: return VirtualKey::Escape;
        case Qt::Key_Insert: return VirtualKey::Insert;
        case Qt::Key_Delete: return VirtualKey::Delete;
        case Qt::Key_A: return VirtualKey::A;
        case Qt::Key_D: return VirtualKey::D;
        case Qt::Key_Z: return VirtualKey::Z;
        case Qt::Key_Plus: return keypad ? std::optional(VirtualKey::NumpadPlus) : std::nullopt;
        case Qt::Key_Minus: return keypad ? std::optional(VirtualKey::NumpadMinus) : std::nullopt;
        default: return std::nullopt;
    }
}

KeyTracker::KeyTracker() {
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
    return static_cast<Integer>((down ? kDown : 0) | (pressed ? kPressedSince : 0));
}

bool KeyTracker::eventFilter(QObject* receiver, QEvent* event) {
    // Each event passes the window first, and then widgets within it; it counts once.
    if (receiver->isWindowType()) {
        if (event->type() == QEvent::KeyPress) {
            Press(*static_cast<QKeyEvent*>(event));
        } else if (event->type() == QEvent::KeyRelease) {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (!key.isAutoRepeat()) {
                down_.erase(key.nativeScanCode());
            }
        }
    }
    return QObject::eventFilter(receiver, event);
}

void KeyTracker::Press(const QKeyEvent& event) {
    if (event.isAutoRepeat() || TypedElsewhere()) {
        return;
    }
    if (const std::optional<VirtualKey> key = VirtualKeyOf(event)) {
        if (down_.emplace(event.nativeScanCode(), *key).second) {
            pressedSince_.set(static_cast<std::size_t>(*key));
        }
    }
}

void KeyTracker::ReleaseAll() {
    down_.clear();
    pressedSince_.reset();
}

}  // namespace scenara
