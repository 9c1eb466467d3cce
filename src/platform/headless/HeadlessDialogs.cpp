// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessDialogs.h"

namespace scenara {

std::string HeadlessDialogs::BrowseForFolder(const std::string& prompt) {
    return Ask({DialogQuestion::Kind::BrowseForFolder, prompt, {}});
}

std::string HeadlessDialogs::OpenFile(const std::string& title, const std::string& initialFolder) {
    return Ask({DialogQuestion::Kind::OpenFile, title, initialFolder});
}

std::string HeadlessDialogs::InputBox(const std::string& prompt) {
    return Ask({DialogQuestion::Kind::InputBox, prompt, {}});
}

std::string HeadlessDialogs::Ask(const DialogQuestion& question) {
    asked_.push_back(question);
    if (observer_) {
        observer_(question);
    }
    if (answers_.empty()) {
        return {};
    }
    std::string answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
}

}  // namespace scenara
