// SPDX-License-Identifier: MIT
//
// LoadMessages: what becomes of the messages of a load. All of them go to the list of problems.
//
// Plain, each is shown in a box, too. Additions: a damaged file may report the same thing for each
// of its thousand lines or elements, so
// - from the second box of a kind on a box offers to be the last one of its kind for this stage.
//   The wish lasts as long as the program does, however often the stage is loaded again;
// - after kMostBoxes boxes the rest is held back, and one more box says how many that were, and
//   where they are listed. What the user does not want to see is not among them.
//
// Between two loads messages are shown as they come, and listed nowhere.
#pragma once

#include <cstddef>
#include <deque>
#include <set>
#include <string>
#include <vector>

#include "platform/Messages.h"
#include "platform/ProblemList.h"

namespace scenara {

inline constexpr MessageKind kMessageMoreProblems = "more-problems";

class LoadMessages : public Messages {
public:
    static constexpr std::size_t kMostBoxes = 3;
    // Of so many stages it is known what is not wanted of them: the ones that were loaded last.
    static constexpr std::size_t kMostStages = 200;

    // Both outlive it.
    LoadMessages(Messages& boxes, ProblemList& list) : boxes_(boxes), list_(list) {}

    // The stage in this file is loaded, until End. With additions its boxes wait for ShowHeld: who
    // leafs through a collection must not be stopped by each stage that has a problem.
    void BeginStage(const std::string& file, bool additions);
    // What comes from here on is of the character that is loaded with the stage.
    void CharacterFollows();
    // A character is loaded into it, until End. In the list its messages take the place of those of
    // the one before. `isLoaded`: it is the one before, whose messages had gone.
    void BeginCharacter(const std::string& stageFile, bool additions, bool isLoaded = false);
    // What was held back is counted, and said unless the program `ends`. Without effect when
    // nothing is loaded.
    void End(bool ends = false);
    // The boxes that wait, or none of them any more.
    void ShowHeld();
    void ForgetHeld();

    void Show(const Message& message) override;

private:
    // What is known of a stage.
    struct Known {
        std::string file;
        std::set<std::string, std::less<>> shown;     // kinds of which there was a box
        std::set<std::string, std::less<>> unwanted;  // ... and is to be none
    };

    void Begin(const std::string& file, bool additions);
    void ShowBox(const Message& message);
    void TellHowManyMore();

    Messages& boxes_;
    ProblemList& list_;
    std::deque<Known> known_;  // loaded last: the last one
    bool loads_ = false;
    bool holds_ = false;  // boxes wait
    std::size_t loadNumber_ = 0;
    bool isStage_ = false;  // and no character
    bool additions_ = false;
    std::size_t boxesShown_ = 0;  // of this load
    std::size_t heldBack_ = 0;    // ... by their number
    std::vector<Message> held_;   // ... until the stage has been shown for a while
};

}  // namespace scenara
