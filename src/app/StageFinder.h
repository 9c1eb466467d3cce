// SPDX-License-Identifier: MIT
//
// StageFinder: the stages below a MUGEN folder's folder "stages", those in folders of their own
// included.
//
// It is not known of a definition that it is a stage before it has been read, and there may be ten
// thousand of them on a slow disk. So the names come first, and what the files say comes after
// them. Both may be done on another thread, as far as the Files may be asked from there.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Files.h"
#include "stage/StageInfo.h"

namespace scenara {

struct StageEntry {
    std::string file;  // the whole path of the definition
    // Its path below "stages", without ".def": what the list shows. One that has a folder of its
    // own name is called as that: "cave/cave.def" is "cave", where no other one is called so.
    std::string text;
    std::string order;  // `text` as it is sorted
    StageInfo info;
    bool isRead = false;   // what the file says is known
    bool isStage = true;   // false: it has been read, and is none
    std::string searched;  // all that a filter looks in, folded (FoldCase): the path below "stages"
    std::size_t ownPath = 0;  // ... so long, and then what the file says
};

struct FoundStages {
    std::vector<StageEntry> stages;    // in natural order
    std::vector<std::string> folders;  // the folders that were looked into
    bool isCut = false;                // there are more than it takes
};

// Asked again and again; false: it is given up, and what there is so far is returned. May be empty.
using SearchGoesOn = std::function<bool()>;

// What it takes at most. Folders that are reached twice, through a link, are looked into once.
inline constexpr std::size_t kMostListedStages = 100'000;
inline constexpr std::size_t kMostListedFolders = 20'000;
inline constexpr std::size_t kDeepestListedFolder = 16;

// All definitions below "stages". A folder that cannot be read has none.
[[nodiscard]] FoundStages FindStages(Files& files, const std::string& MugeDir,
                                     const SearchGoesOn& goesOn = {});

// What was read of files before, by path; a file that has changed since is read again.
class KnownStages {
public:
    // Reads what the stage's file says, or remembers it. A file that cannot be read stays one that
    // may be a stage: whoever opens it learns why.
    void Tell(Files& files, StageEntry& stage);
    // What it said when it was read last, whether or not it has changed since.
    void Recall(StageEntry& stage) const;

private:
    struct Known {
        FileStamp stamp;
        StageInfo info;
        bool isStage = true;
    };
    std::map<std::string, Known, std::less<>> known_;
};

// Whether the stage has every word of `folded` in its name, folder or author. Words stand between
// blanks; `folded` comes from FoldCase.
[[nodiscard]] bool HasEveryWord(const StageEntry& stage, std::string_view folded);

}  // namespace scenara
