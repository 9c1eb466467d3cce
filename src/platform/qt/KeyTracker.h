// SPDX-License-Identifier: MIT
//
// KeyTracker: which keys are down, from the key events of the whole application.
//
// A key is known by its scan code while it is down, since what it stands for may change with Shift
// in between. Keys that go to a menu or a dialog do not count; when the focus moves, all are up,
// for a release that happens elsewhere is never heard of. A press that came and went since the last
// poll is reported once.
#pragma once

#include <QObject>
#include <bitset>
#include <optional>
#include <unordered_map>

#include "platform/Keyboard.h"

class QEvent;
class QKeyEvent;

namespace scenara {

class KeyTracker : public QObject, public Keyboard {
public:
    // Watches the application from now on.
    KeyTracker();

    Integer GetAsyncKeyState(VirtualKey key) override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void Press(const QKeyEvent& event);
    void ReleaseAll();

    std::unordered_map<quint32, VirtualKey> down_;  // by scan code
    std::bitset<256> pressedSince_;
};

// The key of an event, where the program knows one.
[[nodiscard]] std::optional<VirtualKey> VirtualKeyOf(const QKeyEvent& event);

}  // namespace scenara
