// SPDX-License-Identifier: MIT
#include "app/StageCatalog.h"

#include <algorithm>
#include <utility>

#include "base/NaturalOrder.h"
#include "base/Path.h"
#include "base/Text.h"

namespace scenara {
namespace {

char OneSeparator(char c) {
    return c == '\\' ? '/' : LowerCase(c);
}

// Without texts of their own: there may be ten thousand.
bool AreAlike(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::ranges::equal(a, b, {}, OneSeparator, OneSeparator);
}

std::string TipFor(const StageEntry& stage) {
    const std::string& name =
        stage.info.displayName.empty() ? stage.info.name : stage.info.displayName;
    std::string tip = name;
    if (!stage.info.author.empty()) {
        tip.append(tip.empty() ? "by " : ", by ").append(stage.info.author);
    }
    tip.append(tip.empty() ? "" : "\n").append(stage.file);
    return stage.isStage ? tip : tip + "\nNot a stage: it has no section [Camera].";
}

}  // namespace

void StageCatalog::Take(std::vector<StageEntry> stages) {
    const Selection selected = Selected();
    stages_ = std::move(stages);
    list_.total = stages_.size();
    Fill(selected);
}

void StageCatalog::Filter(const std::string& words) {
    const Selection selected = Selected();
    words_ = FoldCase(words);
    Fill(selected);
    passed_.clear();  // steps begin at the first that the filter has left
}

void StageCatalog::Leave() {
    stages_.clear();
    listed_.clear();
    words_.clear();
    passed_.clear();
    list_.items.clear();
    list_.details.clear();
    list_.total = 0;
    list_.note.clear();
    list_.ListIndex = -1;
}

StageCatalog::Selection StageCatalog::Selected() const {
    if (list_.ListIndex < 0 || list_.ListIndex >= CountListed()) {
        return {};
    }
    return {At(list_.ListIndex).file, At(list_.ListIndex).order};
}

void StageCatalog::Fill(const Selection& selected) {
    std::vector<std::string> items;
    listed_.clear();
    for (std::size_t i = 0; i < stages_.size(); ++i) {
        if (HasEveryWord(stages_[i], words_)) {
            listed_.push_back(i);
            items.push_back(stages_[i].text);
        }
    }
    if (items != list_.items || items.size() != list_.details.size()) {
        list_.items = std::move(items);
        ++list_.filled;
    }
    ShowDetails();
    list_.note = listed_.empty() && !stages_.empty() ? "No stage has all these words." : "";
    list_.ListIndex = selected.file.empty() ? -1 : IndexOf(selected.file);
    if (list_.ListIndex < 0 && !selected.file.empty()) {
        passed_ = selected.order;
    }
}

void StageCatalog::ShowDetails() {
    list_.details.clear();
    for (const std::size_t each : listed_) {
        const StageEntry& stage = stages_[each];
        list_.details.push_back({stage.file, TipFor(stage), !stage.isStage});
    }
    ++list_.detailed;
}

Long StageCatalog::IndexOf(std::string_view file) const {
    // Where letter case counts there may be another one that is spelled likewise.
    auto found =
        std::ranges::find_if(listed_, [&](std::size_t each) { return stages_[each].file == file; });
    if (found == listed_.end()) {
        found = std::ranges::find_if(
            listed_, [&](std::size_t each) { return AreAlike(stages_[each].file, file); });
    }
    return found == listed_.end() ? -1 : static_cast<Long>(found - listed_.begin());
}

void StageCatalog::NoteIsNone(std::string_view file) {
    for (StageEntry& stage : stages_) {
        if (stage.isStage && AreAlike(stage.file, file)) {
            stage.isStage = false;
            ShowDetails();
            return;
        }
    }
}

// The item from which the first step is made.
Long StageCatalog::From(bool forwards) const {
    const Long selected = list_.ListIndex;
    if (passed_.empty()) {
        return selected >= 0 || forwards ? selected : CountListed();
    }
    const auto isBefore = [this](std::size_t each, const std::string& order) {
        return IsNaturallyBefore(stages_[each].order, order);
    };
    const auto isAfter = [this](const std::string& order, std::size_t each) {
        return IsNaturallyBefore(order, stages_[each].order);
    };
    if (forwards) {
        const auto next = std::upper_bound(listed_.begin(), listed_.end(), passed_, isAfter);
        return std::max(selected, static_cast<Long>(next - listed_.begin()) - 1);
    }
    const auto same = std::lower_bound(listed_.begin(), listed_.end(), passed_, isBefore);
    const auto passed = static_cast<Long>(same - listed_.begin());
    return selected < 0 ? passed : std::min(selected, passed);
}

Long StageCatalog::FirstStageFrom(Long index, Long step) const {
    while (index >= 0 && index < CountListed()) {
        if (At(index).isStage) {
            return index;
        }
        index += step;
    }
    return -1;
}

Long StageCatalog::After(Long steps) const {
    const bool forwards = steps > 0;
    const std::int64_t wanted = std::int64_t{From(forwards)} + steps;
    const bool isOneStep = steps == 1 || steps == -1;
    if (CountListed() == 0 || (isOneStep && (wanted < 0 || wanted >= CountListed()))) {
        return -1;
    }
    const auto index = static_cast<Long>(std::clamp<std::int64_t>(wanted, 0, CountListed() - 1));
    const Long found = FirstStageFrom(index, forwards ? 1 : -1);
    return found >= 0 || isOneStep ? found : FirstStageFrom(index, forwards ? -1 : 1);
}

Long StageCatalog::NearestStage(Long index) const {
    const Long found = FirstStageFrom(index, 1);
    return found >= 0 ? found : std::max(FirstStageFrom(index, -1), Long{0});
}

}  // namespace scenara
