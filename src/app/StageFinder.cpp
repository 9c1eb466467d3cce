// SPDX-License-Identifier: MIT
#include "app/StageFinder.h"

#include <algorithm>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <utility>

#include "app/StageFiles.h"
#include "base/NaturalOrder.h"
#include "base/Path.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace scenara {
namespace {

constexpr std::string_view kExtension = ".def";
constexpr std::size_t kFirstBytes = std::size_t{64} * 1024;
// A file that is larger is a stage until somebody opens it: reading it whole may take long.
constexpr std::uint64_t kLargestLookedThrough = std::uint64_t{1} << 20U;

// Of the folder in which the file is; empty for one in "stages" itself.
std::string_view OwnFolder(std::string_view below) {
    const std::size_t end = below.find_last_of("/\\");
    if (end == std::string_view::npos) {
        return {};
    }
    return FileName(below.substr(0, end));
}

// "cave/cave" as "cave", where a file is called as its folder.
std::string_view ShortText(std::string_view below) {
    const std::string_view folder = OwnFolder(below);
    return !folder.empty() && EqualsIgnoringCase(folder, FileName(below))
               ? below.substr(0, below.find_last_of("/\\"))
               : below;
}

std::string_view WithoutExtension(std::string_view name) {
    return name.size() > kExtension.size() ? name.substr(0, name.size() - kExtension.size()) : name;
}

std::string Folded(std::string_view text) {
    return FoldCase(ToUtf8(text));
}

class Walk {
public:
    Walk(Files& files, std::string stages, const SearchGoesOn& goesOn)
        : files_(files), stages_(std::move(stages)), goesOn_(goesOn) {}

    FoundStages Take() && {
        LookInto(std::string(), 0);
        std::ranges::sort(found_.stages, [](const StageEntry& a, const StageEntry& b) {
            return IsNaturallyBefore(a.order, b.order);
        });
        TellApart();
        return std::move(found_);
    }

private:
    // `below`: what stands between "stages" and the names in there, with a separator at its end.
    void LookInto(const std::string& below, std::size_t depth) {
        const std::string folder = stages_ + below;
        if (!GoesOn() || !seen_.insert(files_.RealPath(folder)).second) {
            return;
        }
        if (found_.folders.size() == kMostListedFolders || depth == kDeepestListedFolder) {
            found_.isCut = true;
            return;
        }
        found_.folders.push_back(folder);
        for (const std::string& name : files_.List(folder, kExtension)) {
            Add(below + name);
        }
        for (const std::string& name : files_.ListFolders(folder)) {
            LookInto(WithSeparator(below + name), depth + 1);
        }
    }

    void Add(const std::string& below) {
        if (found_.stages.size() == kMostListedStages) {
            found_.isCut = true;
            return;
        }
        const std::string_view text = ShortText(WithoutExtension(below));
        StageEntry stage;
        stage.file = stages_ + below;
        stage.text = text;
        stage.order = Folded(text);
        stage.searched = Folded(WithoutExtension(below));
        stage.ownPath = stage.searched.size();
        found_.stages.push_back(std::move(stage));
    }

    // "cave.def" and "cave/cave.def" must not look alike.
    void TellApart() {
        std::vector<StageEntry>& stages = found_.stages;
        for (std::size_t i = 1; i < stages.size(); ++i) {
            if (stages[i].order == stages[i - 1].order) {
                Lengthen(stages[i - 1]);
                Lengthen(stages[i]);
            }
        }
    }
    // It keeps its place: the order is of the short text.
    void Lengthen(StageEntry& stage) const {
        stage.text = WithoutExtension(std::string_view(stage.file).substr(stages_.size()));
    }

    [[nodiscard]] bool GoesOn() const { return !goesOn_ || goesOn_(); }

    Files& files_;
    std::string stages_;
    const SearchGoesOn& goesOn_;
    FoundStages found_;
    std::set<std::string> seen_;
};

struct Contents {
    StageInfo info;
    bool isStage = true;
};

Contents Read(Files& files, const std::string& path) {
    const auto file = files.OpenForReading(path);
    std::string bytes(kFirstBytes, '\0');
    bytes.resize(file->ReadAt(0, std::as_writable_bytes(std::span(bytes))));
    const bool isStage = file->Size() > kLargestLookedThrough || IsStage(files, path);
    return {StageInfoIn(std::move(bytes)), isStage};
}

void Take(Contents contents, StageEntry& stage) {
    stage.info = std::move(contents.info);
    stage.isStage = contents.isStage;
    stage.searched.resize(stage.ownPath);
    for (const std::string* const text :
         {&stage.info.name, &stage.info.displayName, &stage.info.author}) {
        stage.searched.append("\n").append(Folded(*text));
    }
}

}  // namespace

FoundStages FindStages(Files& files, const std::string& MugeDir, const SearchGoesOn& goesOn) {
    return Walk(files, StagesFolder(MugeDir), goesOn).Take();
}

void KnownStages::Tell(Files& files, StageEntry& stage) {
    try {
        const std::optional<FileStamp> stamp = files.Stamp(stage.file);
        const auto found = known_.find(stage.file);
        const bool isKnown = stamp && found != known_.end() && found->second.stamp == *stamp;
        Contents contents;
        if (isKnown) {
            contents = {found->second.info, found->second.isStage};
        } else {
            contents = Read(files, stage.file);
            if (stamp) {
                known_[stage.file] = {*stamp, contents.info, contents.isStage};
            }
        }
        Take(std::move(contents), stage);
        stage.isRead = true;
    } catch (const RunTimeError&) {
        stage.isRead = false;
    }
}

void KnownStages::Recall(StageEntry& stage) const {
    if (const auto found = known_.find(stage.file); found != known_.end()) {
        Take({found->second.info, found->second.isStage}, stage);
    }
}

bool HasEveryWord(const StageEntry& stage, std::string_view folded) {
    while (true) {
        folded.remove_prefix(std::min(folded.find_first_not_of(" \t"), folded.size()));
        if (folded.empty()) {
            return true;
        }
        const std::size_t end = std::min(folded.find_first_of(" \t"), folded.size());
        if (!Contains(stage.searched, folded.substr(0, end))) {
            return false;
        }
        folded.remove_prefix(end);
    }
}

}  // namespace scenara
