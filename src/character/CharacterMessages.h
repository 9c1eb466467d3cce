// SPDX-License-Identifier: MIT
//
// What is said while a character loads: every box with the exclamation sign and the same title, be
// it the loader's own or one of the picture decoder's.
#pragma once

#include <string_view>

#include "platform/Messages.h"

namespace scenara {

inline constexpr std::string_view kCharacterTitle = "Cohortia";

inline constexpr MessageKind kMessageCharacterMissing{"character-missing", Severity::Error};
inline constexpr MessageKind kMessageCharacterPart{"character-file-missing", Severity::Error};
inline constexpr MessageKind kMessageNoWalking{"no-walking", Severity::Error};
inline constexpr MessageKind kMessageNegativeGroup{"negative-group", Severity::Error};
inline constexpr MessageKind kMessageCharacterFailed{"character-unreadable", Severity::Error};
inline constexpr MessageKind kMessageCharacterSprite{"character-sprite", Severity::Warning};
inline constexpr MessageKind kMessageCharacterOverflow{"character-overflow", Severity::Warning};

// Hands everything on with the title and the sign.
class CharacterMessages : public Messages {
public:
    explicit CharacterMessages(Messages& messages) : messages_(messages) {}

    void Show(const Message& message) override {
        Message titled = message;
        titled.title = kCharacterTitle;
        titled.icon = MessageIcon::Exclamation;
        messages_.Show(titled);
    }

private:
    Messages& messages_;
};

}  // namespace scenara
