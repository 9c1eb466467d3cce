// SPDX-License-Identifier: MIT
//
// What was said, for comparison: one string or one kind for each message, oldest first.
#pragma once

#include <string>
#include <vector>

#include "platform/headless/HeadlessMessages.h"

namespace scenara::test {

[[nodiscard]] inline std::vector<std::string> TextsOf(const HeadlessMessages& messages) {
    std::vector<std::string> texts;
    for (const Message& message : messages.Recorded()) {
        texts.push_back(message.text);
    }
    return texts;
}

[[nodiscard]] inline std::vector<MessageKind> KindsOf(const HeadlessMessages& messages) {
    std::vector<MessageKind> kinds;
    for (const Message& message : messages.Recorded()) {
        kinds.push_back(message.kind);
    }
    return kinds;
}

}  // namespace scenara::test
