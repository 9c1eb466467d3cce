// SPDX-License-Identifier: MIT
//
// HeadlessKeyboard: a keyboard whose keys are held by a script. A key answers that it is down in
// exactly the time in which it is held: only a tap is remembered once it is over, so nothing else
// is left from before for whoever asks next.
#pragma once

#include <bitset>
#include <initializer_list>

#include "platform/Keyboard.h"

namespace scenara {

// Some keys, none of them twice.
class KeySet {
public:
    KeySet() = default;
    KeySet(std::initializer_list<VirtualKey> keys) {
        for (const VirtualKey key : keys) {
            Add(key);
        }
    }

    void Add(VirtualKey key) { keys_.set(static_cast<std::size_t>(key)); }
    void Remove(VirtualKey key) { keys_.reset(static_cast<std::size_t>(key)); }
    [[nodiscard]] bool Contains(VirtualKey key) const {
        return keys_.test(static_cast<std::size_t>(key));
    }
    [[nodiscard]] bool operator==(const KeySet&) const = default;

private:
    std::bitset<256> keys_;
};

class HeadlessKeyboard : public Keyboard {
public:
    Integer GetAsyncKeyState(VirtualKey key) override {
        const bool tapped = tapped_.Contains(key);
        tapped_.Remove(key);
        return static_cast<Integer>((held_.Contains(key) ? kKeyIsDown : 0) |
                                    (tapped ? kKeyWasPressed : 0));
    }

    // From now on these keys are down and all others up.
    void Hold(const KeySet& keys) { held_ = keys; }

    void Press(VirtualKey key) { held_.Add(key); }
    void Release(VirtualKey key) { held_.Remove(key); }
    // Pressed and let go between two questions; the next one for it hears of it.
    void Tap(VirtualKey key) { tapped_.Add(key); }
    [[nodiscard]] const KeySet& Held() const { return held_; }

private:
    KeySet held_;
    KeySet tapped_;
};

}  // namespace scenara
