// SPDX-License-Identifier: MIT
#include "app/LoadMessages.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/NumberText.h"
#include "base/Text.h"

namespace scenara {
namespace {

constexpr const char* kOffer = "Do not show this again for this stage";

std::string MoreProblemsText(std::size_t count) {
    const std::string listed = "listed under Extras, Problems.";
    return count == 1 ? "There is 1 more problem." + std::string(kCrLf) + "It is " + listed
                      : "There are " + NumberText(static_cast<std::int64_t>(count)) +
                            " more problems." + std::string(kCrLf) + "All of them are " + listed;
}

}  // namespace

void LoadMessages::BeginStage(const std::string& file, bool additions) {
    Begin(file, additions);
    isStage_ = true;
    holds_ = additions;
    ForgetHeld();
    list_.Begin();
}

void LoadMessages::CharacterFollows() {
    if (isStage_) {
        list_.Mark();
        isStage_ = false;
    }
}

void LoadMessages::BeginCharacter(const std::string& stageFile, bool additions, bool isLoaded) {
    Begin(stageFile, additions);
    isStage_ = false;
    holds_ = false;
    if (isLoaded) {
        list_.TakeBack();
    } else {
        list_.BackToMark();
    }
}

void LoadMessages::Begin(const std::string& file, bool additions) {
    const auto found = std::ranges::find(known_, file, &Known::file);
    Known known{file, {}, {}};
    if (found != known_.end()) {
        known = std::move(*found);
        known_.erase(found);
    } else if (known_.size() == kMostStages) {
        known_.pop_front();
    }
    known_.push_back(std::move(known));
    loads_ = true;
    ++loadNumber_;
    additions_ = additions;
    boxesShown_ = 0;
    heldBack_ = 0;
}

void LoadMessages::End(bool ends) {
    if (!std::exchange(loads_, false)) {
        return;
    }
    if (isStage_) {
        list_.Mark();
    }
    if (ends) {
        ForgetHeld();
        heldBack_ = 0;
    } else if (!holds_) {
        TellHowManyMore();
    }
}

void LoadMessages::TellHowManyMore() {
    if (const std::size_t count = std::exchange(heldBack_, 0); count > 0) {
        boxes_.MsgBox(kMessageMoreProblems, MoreProblemsText(count));
    }
}

// A box lets messages through, and another stage may be loaded meanwhile: then the rest is of no
// interest any more.
void LoadMessages::ShowHeld() {
    const std::vector<Message> held = std::exchange(held_, {});
    const std::size_t load = loadNumber_;
    for (const Message& message : held) {
        ShowBox(message);
        if (load != loadNumber_) {
            return;
        }
    }
    TellHowManyMore();
}

void LoadMessages::ForgetHeld() {
    held_.clear();
}

void LoadMessages::Show(const Message& message) {
    if (!loads_) {
        boxes_.Show(message);
        return;
    }
    list_.Add(message);
    if (holds_) {
        held_.push_back(message);
    } else if (additions_) {
        ShowBox(message);
    } else {
        boxes_.Show(message);
    }
}

// Addition. Nothing loads while a box is open, so that the stage known last stays that.
void LoadMessages::ShowBox(const Message& message) {
    Known& stage = known_.back();
    if (stage.unwanted.contains(message.kind.code)) {
        return;
    }
    if (boxesShown_ == kMostBoxes) {
        ++heldBack_;
        return;
    }
    ++boxesShown_;
    if (stage.shown.emplace(message.kind.code).second) {
        boxes_.Show(message);
    } else if (boxes_.ShowWithOffer(message, kOffer)) {
        stage.unwanted.emplace(message.kind.code);
    }
}

}  // namespace scenara
