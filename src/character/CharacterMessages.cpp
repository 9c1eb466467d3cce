// SPDX-License-Identifier: MIT
#include "character/CharacterMessages.h"

#include <string>

namespace scenara {

void CharacterMessages::Show(const Message& message) {
    Message titled = message;
    titled.title = kCharacterTitle;
    titled.icon = MessageIcon::Exclamation;
    messages_.Show(titled);
}

void CharacterMessages::SayOverflow(std::string_view what, std::int64_t lineNumber) {
    std::string text = "Overflow: ";
    text.append(what).append(", line ").append(std::to_string(lineNumber));
    MsgBox(kMessageCharacterOverflow, std::move(text));
}

}  // namespace scenara
