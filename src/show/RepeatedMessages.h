// SPDX-License-Identifier: MIT
//
// RepeatedMessages: a filter for the messages of one load. A damaged file may report the same thing
// for each of its thousand lines or elements.
#pragma once

#include <set>

#include "platform/Messages.h"

namespace scenara {

// What becomes of the second message of a kind and those after it.
enum class Repeats {
    Shown,
    Offered,  // addition: each offers to be the last of its kind
    LeftOut,
};

class RepeatedMessages : public Messages {
public:
    // `shown` outlives it.
    RepeatedMessages(Messages& shown, Repeats repeats) : shown_(shown), repeats_(repeats) {}

    void Show(const Message& message) override {
        const MessageKind kind = message.kind;
        if (silenced_.contains(kind)) {
            return;
        }
        if (said_.insert(kind).second || repeats_ == Repeats::Shown) {
            shown_.Show(message);
        } else if (repeats_ == Repeats::LeftOut ||
                   shown_.ShowWithOffer(message, "Do not show this again while this stage loads")) {
            silenced_.insert(kind);
        }
    }

private:
    Messages& shown_;
    Repeats repeats_;
    std::set<MessageKind> said_;
    std::set<MessageKind> silenced_;
};

// While a stage or a character loads.
[[nodiscard]] inline Repeats RepeatsOfLoads(bool additions) {
    return additions ? Repeats::Offered : Repeats::Shown;
}

}  // namespace scenara
