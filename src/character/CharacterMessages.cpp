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

}  // namespace scenara
