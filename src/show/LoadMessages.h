// SPDX-License-Identifier: MIT
//
// LoadMessages: what is said while one stage loads.
//
// A damaged stage may have the same thing to say about each of its thousand elements. Addition:
// from the second box of a kind on, each offers to be the last of that kind for this load.
#pragma once

#include <set>
#include <string>

#include "platform/Messages.h"

namespace scenara {

class LoadMessages : public Messages {
public:
    // `shown` outlives it; without `offers` every box is a plain one.
    LoadMessages(Messages& shown, bool offers) : shown_(shown), offers_(offers) {}

    void Show(const Message& message) override {
        const MessageKind kind = message.kind;
        if (silenced_.contains(kind)) {
            return;
        }
        if (!offers_ || said_.insert(kind).second) {
            shown_.Show(message);
        } else if (shown_.ShowWithOffer(message, "Do not show this again while this stage loads")) {
            silenced_.insert(kind);
        }
    }

private:
    Messages& shown_;
    bool offers_;
    std::set<MessageKind> said_;
    std::set<MessageKind> silenced_;
};

}  // namespace scenara
