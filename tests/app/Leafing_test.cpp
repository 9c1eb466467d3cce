// SPDX-License-Identifier: MIT
//
// Leafing through the list: a newer choice ends the load, and what belongs to a stage that somebody
// looks at waits until somebody does.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Leafing : public NewProgram {
protected:
    Leafing() {
        Load();
        // b has three pictures, and c reports that its archive is missing.
        files.Put(kStageB, Stage("second"));
        std::string third = Stage("third");
        files.Put(kStageC, third.replace(third.find("a.sff"), 5, "c.sff"));
    }

    void Leaf(std::vector<Act> acts, Act loading = {}) {
        user = InTurn(std::move(acts), std::move(loading), UserPace::Leafing);
        program.lstStages_Click(kItemA);
    }
    static Act Step(Long steps) {
        return [steps](RunningStage& stage) { stage.program.lstStages_Step(steps); };
    }
    static std::vector<Act> LookOn() { return Times(kRestFrames + 1, Wait); }
    Act Expect(const char* title) {
        return [this, title] { EXPECT_EQ(Caption(), title); };
    }
    [[nodiscard]] std::string ListedProblem() const {
        return form.problems.Count() == 0 ? "" : form.problems.Kept().front().text;
    }
};

TEST_F(Leafing, RecentFilesHaveWhatWasLookedAt) {
    Leaf(Then(Step(1)) + Then(Step(-1)) + LookOn() +
         Then([&] { EXPECT_THAT(form.recentFiles, ElementsAre(kStageA)); }) + Then(Step(1)) +
         LookOn());
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageB, kStageA));
}

TEST_F(Leafing, BoxesWaitAndGoWithTheirStage) {
    const auto none = [&] {
        EXPECT_THAT(MessageTexts(), IsEmpty());
        EXPECT_EQ(ListedProblem().substr(0, 9), "SFF FILE:") << "at once";
    };
    Leaf(Then(Step(2)) + Then(none) + Then(Step(-1)) + LookOn() +
         Then([&] { EXPECT_THAT(MessageTexts(), IsEmpty()); }) + Then(Step(1)) + LookOn());
    EXPECT_EQ(MessageTexts().size(), 1U);
}

TEST_F(Leafing, BoxesOfAStageThatIsClosedDoNotCome) {
    Leaf(Then(Step(2)) + Then(Choose(Menu::mnuClose)));
    EXPECT_TRUE(program.HasRested());
    LetRest();
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

// What could not be opened leaves those of the stage that stays.
TEST_F(Leafing, ARefusedChoiceTakesNoBoxes) {
    files.Put(kStageB, "notes");
    Leaf(Then(Step(2)) + Then(Select(1)) + LookOn());
    ASSERT_EQ(MessageTexts().size(), 2U);
    EXPECT_EQ(MessageTexts()[0].substr(0, 12), "Not a stage!");
    EXPECT_EQ(MessageTexts()[1].substr(0, 9), "SFF FILE:");
}

TEST_F(Leafing, AStageThatCannotBeShownSaysSoAfterAWhile) {
    direct3D.FailAt(StartStep::Device);
    Leaf({});
    EXPECT_FALSE(program.HasRested());
    const std::size_t before = MessageTexts().size();
    LetRest();
    EXPECT_GT(MessageTexts().size() + form.problems.Count(), before);
    EXPECT_TRUE(program.HasRested());
}

TEST_F(Leafing, ANewerChoiceEndsTheLoad) {
    int seenLoading = 0;
    const Act next = Once([&] {
        ++seenLoading;
        program.lstStages_Step(1);
    });
    Leaf({Expect("second"), Wait}, next);
    EXPECT_EQ(seenLoading, 1);
    EXPECT_EQ(Begun(), 2);
    EXPECT_EQ(sink.shown, 3) << "nothing of the first one is shown";
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(Leafing, WhatIsLeftHalfLoadedIsForgotten) {
    Leaf(LookOn(), Once([&] { program.lstStages_Step(1); }));
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageB));
}

TEST_F(Leafing, TheSameStageChosenAgainIsLoadedToItsEnd) {
    Leaf({Expect("first")}, Once([&] { program.lstStages_Click(kItemA); }));
    EXPECT_EQ(Begun(), 1);
}

TEST_F(Leafing, WithNothingBehindItTheTitleIsBack) {
    files.Put(kStageB, "notes");
    Leaf({}, Once([&] { program.lstStages_Click(1); }));
    EXPECT_EQ(Caption(), program.AppTitle);
    EXPECT_TRUE(form.picLoad.visible);
    EXPECT_EQ(form.lstStages.ListIndex, -1);
}

// What plain mode does at once is done at once there.
TEST(PlainLeafing, NothingWaits) {
    RunningStage stage({}, false);
    stage.Load();
    std::string broken = RunningStage::Stage("first");
    stage.files.Put(kStageA, broken.replace(broken.find("a.sff"), 5, "c.sff"));
    stage.user = InTurn({}, {}, UserPace::Leafing);
    stage.program.lstStages_Click(kItemA);
    EXPECT_TRUE(stage.program.HasRested());
    EXPECT_EQ(stage.MessageTexts().size(), 1U);
    EXPECT_THAT(stage.form.recentFiles, ElementsAre(kStageA));
}

}  // namespace
}  // namespace scenara::test
