// SPDX-License-Identifier: MIT
//
// HeadlessMessages: boxes without a window. Each message is recorded and, when an observer is
// given, handed on at once (to print it, or to act on it in a test).
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Messages.h"

namespace scenara {

class HeadlessMessages : public Messages {
public:
    using Observer = std::function<void(const Message&)>;

    HeadlessMessages() = default;
    explicit HeadlessMessages(Observer observer) : observer_(std::move(observer)) {}

    void Show(const Message& message) override {
        recorded_.push_back(message);
        if (observer_) {
            observer_(message);
        }
    }
    bool ShowWithOffer(const Message& message, const std::string& offer) override {
        offers_.push_back(offer);
        Show(message);
        return takesOffers_;
    }

    // Whether offers are taken from now on.
    void TakeOffers(bool takes) { takesOffers_ = takes; }
    // Every offer that was made, oldest first.
    [[nodiscard]] const std::vector<std::string>& Offers() const { return offers_; }

    // All of them, oldest first.
    [[nodiscard]] const std::vector<Message>& Recorded() const { return recorded_; }

private:
    Observer observer_;
    std::vector<Message> recorded_;
    std::vector<std::string> offers_;
    bool takesOffers_ = false;
};

}  // namespace scenara
