// SPDX-License-Identifier: MIT
//
// KeyTracker: which keys are down, from the key events of the whole application.
//
// A key is known by its scan code while it is down, since what it stands for may change with Shift
// in between. A letter is known by itself, one of another script by the place of its key. Keys that
// go to an open menu, a dialog or a text field do not count, and no other focus matters. When the
// focus moves to another window all are up, for a release that happens elsewhere is never heard of.
// A press that came and went since the last poll is reported once. Keys that drive the program's
// camera, and those of the editor while Debug BG is checked, go no further while a stage is shown,
// so that no list moves its selection with them; a scroll bar that has the focus gets them, and
// only it.
//
// With additions a list that has the focus keeps what it has a use for, but for Left and Right. A
// key that goes down with Ctrl or Alt is one of the menus alone, until it is let go.
#pragma once

#include <QObject>
#include <bitset>
#include <functional>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/Form.h"
#include "platform/Keyboard.h"

class QEvent;
class QKeyEvent;

namespace scenara {

class KeyTracker : public QObject, public Keyboard {
public:
    // Watches the application from now on. `form` outlives it.
    explicit KeyTracker(const Form& form);

    // Who hears of each press.
    void SetObserver(std::function<void(VirtualKey)> pressed) { pressed_ = std::move(pressed); }

    Integer GetAsyncKeyState(VirtualKey key) override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    // Whether the key goes no further.
    bool Press(const QKeyEvent& event);
    [[nodiscard]] bool IsOfTheList(VirtualKey key) const;
    [[nodiscard]] bool HasAdditions() const { return form_[Menu::mnuAdditions].checked; }
    void NoteModified(const QKeyEvent& event);
    [[nodiscard]] bool RepeatsModified(const QKeyEvent& event);
    void ReleaseAll();

    const Form& form_;
    std::function<void(VirtualKey)> pressed_;
    std::unordered_map<quint32, VirtualKey> down_;  // by scan code
    // Those that went down with Ctrl or Alt, and when they were last heard of, milliseconds.
    std::unordered_map<quint32, quint64> chosen_;
    std::bitset<256> pressedSince_;
};

// The key of an event, where the program knows one.
[[nodiscard]] std::optional<VirtualKey> VirtualKeyOf(const QKeyEvent& event);

}  // namespace scenara
