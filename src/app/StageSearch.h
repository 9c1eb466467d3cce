// SPDX-License-Identifier: MIT
//
// StageSearch: the stages of a MUGEN folder, looked for beside the program.
//
// Their names come first and what their files say later, each as news for the program to take. A
// search that is begun anew takes the place of the one before. What was read of a file is
// remembered as long as the file does not change, so that a later search of the same folder is over
// soon.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "app/StageFinder.h"
#include "base/NotCopied.h"
#include "platform/Background.h"
#include "platform/Files.h"

namespace scenara {

class StageSearch : NotCopied {
public:
    // Both outlive it. Without a background (nullptr) Begin returns when the search is over.
    StageSearch(Files& files, Background* background);
    // Gives up the search that runs.
    ~StageSearch();

    void Begin(const std::string& MugeDir);

    // Waits until there are news, but not longer than that.
    void AwaitNews(std::chrono::milliseconds most);

    // Whether it is looked for still. A search that is given up again and again tells nothing.
    [[nodiscard]] bool Runs() const;

    // What is known by now, if more is known than when it was asked for last.
    [[nodiscard]] std::optional<FoundStages> TakeNews();

private:
    struct Shared;

    static void Search(Files& files, Shared& shared, const std::string& MugeDir, unsigned number);

    Files& files_;
    std::shared_ptr<Shared> shared_;
};

}  // namespace scenara
