// SPDX-License-Identifier: MIT
//
// HeadlessDialogs: questions without a window. Each is recorded, an observer may act while it is
// "open", and it is answered with the next of the scripted answers; when they are used up, as by a
// user who cancels.
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Dialogs.h"

namespace scenara {

struct DialogQuestion {
    enum class Kind { BrowseForFolder, OpenFile, InputBox, ChooseAnswer };

    Kind kind = Kind::InputBox;
    std::string text;           // the prompt or the title
    std::string initialFolder;  // of BrowseForFolder and OpenFile

    friend bool operator==(const DialogQuestion&, const DialogQuestion&) = default;
};

class HeadlessDialogs : public Dialogs {
public:
    using Observer = std::function<void(const DialogQuestion&)>;

    // Answers to the next questions, whatever they are, in order. Empty: cancelled.
    void Answer(std::string answer) { answers_.push_back(std::move(answer)); }
    void Observe(Observer observer) { observer_ = std::move(observer); }

    // All of them, oldest first.
    [[nodiscard]] const std::vector<DialogQuestion>& Asked() const { return asked_; }

    [[nodiscard]] std::string BrowseForFolder(const std::string& prompt,
                                              const std::string& initialFolder) override {
        return Ask({DialogQuestion::Kind::BrowseForFolder, prompt, initialFolder});
    }
    [[nodiscard]] std::string OpenFile(const std::string& title,
                                       const std::string& initialFolder) override {
        return Ask({DialogQuestion::Kind::OpenFile, title, initialFolder});
    }
    [[nodiscard]] std::string InputBox(const std::string& prompt) override {
        return Ask({DialogQuestion::Kind::InputBox, prompt, {}});
    }
    void ShowProblems(const ProblemList& problems) override { shown_ = &problems; }

    [[nodiscard]] bool OpenFolder(const std::string& folder) override {
        opened_.push_back(folder);
        return opensFolders_;
    }
    void CopyText(const std::string& text) override { copied_ = text; }

    // Every folder that was to be shown, oldest first; from now on none can be.
    [[nodiscard]] const std::vector<std::string>& OpenedFolders() const { return opened_; }
    void RefuseFolders() { opensFolders_ = false; }
    // What can be pasted.
    [[nodiscard]] const std::string& Copied() const { return copied_; }

    void ShowKeys(const KeyPage& page) override { keys_ = page; }

    // The page that was shown last; none yet: empty.
    [[nodiscard]] const KeyPage& Keys() const { return keys_; }
    // The list that was shown last; none yet: nullptr.
    [[nodiscard]] const ProblemList* Problems() const { return shown_; }

    // The scripted answer is one of those that there are to choose from.
    [[nodiscard]] std::optional<std::size_t> ChooseAnswer(
        const std::string& text, const std::vector<std::string>& answers) override {
        const std::string answer = Ask({DialogQuestion::Kind::ChooseAnswer, text, {}});
        const auto chosen = std::find(answers.begin(), answers.end(), answer);
        if (chosen == answers.end()) {
            return std::nullopt;
        }
        return static_cast<std::size_t>(chosen - answers.begin());
    }

private:
    std::string Ask(const DialogQuestion& question) {
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

    std::deque<std::string> answers_;
    Observer observer_;
    std::vector<DialogQuestion> asked_;
    const ProblemList* shown_ = nullptr;
    std::vector<std::string> opened_;
    bool opensFolders_ = true;
    std::string copied_;
    KeyPage keys_;
};

}  // namespace scenara
