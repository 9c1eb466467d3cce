// SPDX-License-Identifier: MIT
//
// HeadlessMessages: boxes without a window. Each message is recorded and, when an observer is
// given, handed on at once (to print it, or to act on it in a test).
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/Messages.h"

namespace scenara {

class HeadlessMessages : public Messages {
public:
    using Observer = std::function<void(const Message&)>;

    HeadlessMessages() = default;
    explicit HeadlessMessages(Observer observer) : observer_(std::move(observer)) {}

    void Show(const Message& message) override;

    // All of them, oldest first.
    [[nodiscard]] const std::vector<Message>& Recorded() const { return recorded_; }

private:
    Observer observer_;
    std::vector<Message> recorded_;
};

}  // namespace scenara
