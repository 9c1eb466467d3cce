// SPDX-License-Identifier: MIT
//
// The list of stages follows what happens in its folders while the program runs.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class Followed : public NewProgram {
protected:
    Followed() { Load(); }
    // The folders tell of a change, and the program looks when it is time to.
    void Change() {
        folders.changed = true;
        LookLater();
    }
    void LookLater() {
        for (int frame = 0; frame < kRestFrames; ++frame) {
            clock.Advance();
            static_cast<void>(program.Form_Idle());
        }
    }
    [[nodiscard]] const std::vector<std::string>& Items() const { return form.lstStages.items; }
};

TEST_F(Followed, WhatComesIsListedAndWhatGoesIsNot) {
    files.Put("/mugen/stages/cave/hall.def", Stage("Great Hall"));
    Change();
    EXPECT_THAT(Items(), ElementsAre("a", "b", "c", "cave/hall"));
    EXPECT_THAT(folders.watched, Contains("/mugen/stages/cave/"));
    files.Delete(kStageB);
    files.Delete("/mugen/stages/cave/hall.def");
    Change();
    EXPECT_THAT(Items(), ElementsAre("a", "c"));
    EXPECT_THAT(folders.watched, Not(Contains("/mugen/stages/cave/")));
}

TEST_F(Followed, NothingIsLookedForBeforeAFolderTells) {
    files.Put("/mugen/stages/d.def", Stage("fourth"));
    LookLater();
    EXPECT_THAT(Items(), ElementsAre("a", "b", "c"));
    Change();
    EXPECT_THAT(Items(), ElementsAre("a", "b", "c", "d"));
}

TEST_F(Followed, WhatCameJustBeforeItWasWatchedIsFoundAllTheSame) {
    folders.tellsOfNew = true;
    files.Put("/mugen/stages/cave/hall.def", Stage("Great Hall"));
    Change();
    files.Put("/mugen/stages/cave/room.def", Stage("Small Room"));
    LookLater();
    EXPECT_THAT(Items(), ElementsAre("a", "b", "c", "cave/hall", "cave/room"));
}

TEST_F(Followed, WhatIsShownStaysSelectedWhileOthersComeAndGoAroundIt) {
    const auto change = [this] { folders.changed = true; };
    const auto isAt = [this](Long index) {
        return [this, index] {
            EXPECT_EQ(form.lstStages.ListIndex, index);
            EXPECT_EQ(Caption(), "third");
        };
    };
    const Act rest = [this] { LookLater(); };
    WhileAIsShown(
        {Select(kItemC), All({[this] { files.Delete(kStageA); }, change, rest}), isAt(1),
         All({[this] { files.Put("/mugen/stages/0.def", Stage("nought")); }, change, rest}),
         isAt(2)});
    EXPECT_EQ(Begun(), 2);
}

TEST_F(Followed, TheFilterHoldsForWhatComes) {
    program.txtFilter_Change("third");
    files.Put("/mugen/stages/d.def", Stage("third again"));
    files.Put("/mugen/stages/e.def", Stage("fifth"));
    Change();
    EXPECT_THAT(Items(), ElementsAre("c", "d"));
    EXPECT_EQ(form.lstStages.total, 5U);
}

TEST_F(Followed, WhatHasBeenWrittenAnewIsReadAnew) {
    files.Put(kStageB, Stage("renamed"));
    Change();
    program.txtFilter_Change("renamed");
    EXPECT_THAT(Items(), ElementsAre("b"));
}

TEST_F(Followed, OnlyWithTheAdditions) {
    Click(Menu::mnuAdditions);
    EXPECT_THAT(folders.watched, ElementsAre());
    files.Put("/mugen/stages/d.def", Stage("fourth"));
    Change();
    EXPECT_THAT(Items(), ElementsAre("a", "b", "c"));
}

}  // namespace
}  // namespace scenara::test
