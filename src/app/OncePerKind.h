// SPDX-License-Identifier: MIT
//
// OncePerKind: of several messages of one kind it hands on the first. A damaged file may report the
// same thing for each of its lines.
#pragma once

#include <set>

#include "platform/Messages.h"

namespace scenara {

class OncePerKind : public Messages {
public:
    // `shown` outlives it.
    explicit OncePerKind(Messages& shown) : shown_(shown) {}

    void Show(const Message& message) override {
        if (said_.insert(message.kind).second) {
            shown_.Show(message);
        }
    }

private:
    Messages& shown_;
    std::set<MessageKind> said_;
};

}  // namespace scenara
