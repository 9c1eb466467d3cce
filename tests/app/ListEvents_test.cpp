// SPDX-License-Identifier: MIT
//
// What the user does in the list of stages while it browses, and what the list does by itself.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Browsed : public NewProgram {
protected:
    Browsed() {
        Load();
        files.Put(kStageB, Stage("second"));
    }
    Act Expect(Long index, const char* title) {
        return [this, index, title] {
            EXPECT_EQ(form.lstStages.ListIndex, index) << title;
            EXPECT_EQ(Caption(), title);
        };
    }
    static Act Step(Long steps) {
        return [steps](RunningStage& stage) { stage.program.lstStages_Step(steps); };
    }
    static Act Mark(Long index) {
        return [index](RunningStage& stage) { stage.program.lstStages_Mark(index); };
    }
    static Act Filter(const char* words) {
        return [words](RunningStage& stage) { stage.program.txtFilter_Change(words); };
    }
    const Act leave = [](RunningStage& stage) { stage.program.lstStages_Leave(); };
    const Act enter = [](RunningStage& stage) { stage.program.txtFilter_Enter(); };
};

TEST_F(Browsed, StepsOpen) {
    WhileAIsShown({Step(1), Expect(1, "second"), Step(100), Expect(2, "third"), Step(1),
                   Expect(2, "third"), Step(-100), Expect(0, "first"), Step(-1),
                   Expect(0, "first")});
    EXPECT_EQ(Begun(), 4) << "there is nothing beyond the ends";
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(Browsed, StepsInTheSameMomentOpenTheLastOne) {
    WhileAIsShown({All({Step(1), Step(1)}), Expect(2, "third")});
    EXPECT_EQ(Begun(), 2);
}

TEST_F(Browsed, WhatIsMarkedIsNotOpened) {
    WhileAIsShown({Mark(2), Expect(2, "first"), leave, Expect(0, "first"), Mark(1), Step(1),
                   Expect(2, "third")});
    program.lstStages_Mark(7);
    program.lstStages_Mark(-1);
    EXPECT_NE(form.lstStages.ListIndex, 7);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(Browsed, TheFilterLeavesWhatHasItsWords) {
    files.Put("/mugen/stages/cave/hall.def", Stage("Great Hall"));
    Load();
    program.txtFilter_Change("CAVE hall");
    EXPECT_THAT(form.lstStages.items, ElementsAre("cave/hall"));
    program.txtFilter_Change("great");
    EXPECT_THAT(form.lstStages.items, ElementsAre("cave/hall"));
    program.txtFilter_Change("nothing");
    EXPECT_THAT(form.lstStages.items, IsEmpty());
    EXPECT_EQ(form.titleNote, "") << "there are stages";
    program.txtFilter_Change("");
    EXPECT_EQ(form.lstStages.items.size(), 4U);
}

TEST_F(Browsed, WhatIsShownIsSelectedAgainWhenTheFilterHasIt) {
    WhileAIsShown({Filter("third"), Expect(-1, "first"), Filter("th"), Expect(-1, "first"),
                   Filter(""), Expect(0, "first"), Filter("third"), Step(1), Expect(0, "third")});
}

TEST_F(Browsed, EnterInTheFilterOpensTheFirstUnlessOneOfThemIsShown) {
    const std::uint32_t moved = form.lstStages.keysMoved;
    WhileAIsShown({Filter("third"), enter, Expect(0, "third"), Filter("t"), enter,
                   Expect(1, "third"), Filter("nothing"), enter, Expect(-1, "third")});
    EXPECT_EQ(Begun(), 2);
    EXPECT_EQ(form.lstStages.keysMoved, moved + 3);
    EXPECT_EQ(form.lstStages.keysAt, KeyOwner::Picture);
}

TEST_F(Browsed, AnotherFolderHasNoFilterYet) {
    files.Put("/other/stages/x.def", Stage("other"));
    program.txtFilter_Change("third");
    program.Form_OLEDragDrop({"/other"});
    EXPECT_EQ(form.lstStages.filter, "");
    EXPECT_THAT(form.lstStages.items, ElementsAre("x"));
}

TEST_F(Browsed, TheKeysAreTheListsAtFirstAndThePicturesAfterAnythingElseIsOpened) {
    EXPECT_EQ(form.lstStages.keysAt, KeyOwner::List);
    const auto moves = [this](const Act& act) {
        const std::uint32_t before = form.lstStages.keysMoved;
        Show(act);
        return form.lstStages.keysMoved != before && form.lstStages.keysAt == KeyOwner::Picture;
    };
    EXPECT_FALSE(moves(Select(0)));
    EXPECT_FALSE(moves(Step(1)));
    EXPECT_TRUE(moves(Drop(kStageC)));
    EXPECT_TRUE(moves(Recent(1)));
    dialogs.Answer(kStageA);
    EXPECT_TRUE(moves(Choose(Menu::mnuOpen)));
}

TEST_F(Browsed, TheEdgeGoesWhereItIsDraggedAndStaysThere) {
    program.ShowStageList = kByteTrue;
    program.Form_Resize(800, 600);
    program.lstStages_Resize(300);
    EXPECT_EQ(form.lstStages.width, 300);
    EXPECT_EQ(form.picDraw.width, 500);
    program.lstStages_Resize(5);
    EXPECT_EQ(form.lstStages.width, 80);
    program.lstStages_Resize(5000);
    EXPECT_EQ(form.lstStages.width, 640);
    program.SaveNow();
    EXPECT_THAT(files.Get("/program/Scenara.ini"), HasSubstr("ListWidth = 640\r\n"));
    Click(Menu::mnuAdditions);
    EXPECT_EQ(form.lstStages.width, 160) << "plain";
    program.lstStages_Resize(300);
    EXPECT_EQ(form.lstStages.width, 160);
    Click(Menu::mnuAdditions);
    EXPECT_EQ(form.lstStages.width, 640);
}

TEST_F(Browsed, AnItemsMenuShowsItsFolderAndCopiesItsPath) {
    program.lstStages_OpenFolder("/mugen/stages/cave/hall.def");
    EXPECT_THAT(dialogs.OpenedFolders(), ElementsAre("/mugen/stages/cave/"));
    EXPECT_THAT(MessageTexts(), IsEmpty());
    dialogs.RefuseFolders();
    program.lstStages_OpenFolder(kStageA);
    EXPECT_THAT(MessageTexts(),
                ElementsAre("The desktop has no program that shows the folder\r\n/mugen/stages/"));
    program.lstStages_CopyPath(kStageA);
    EXPECT_EQ(dialogs.Copied(), kStageA);
}

TEST_F(Browsed, WithTheAdditionsOffTheListIsAsItWas) {
    files.Put("/mugen/stages/cave/hall.def", Stage("hall"));
    Click(Menu::mnuAdditions);
    EXPECT_FALSE(form.lstStages.browses);
    EXPECT_THAT(form.lstStages.items, ElementsAre("a", "b", "c"));
    EXPECT_THAT(form.lstStages.details, IsEmpty());
    program.txtFilter_Change("third");
    EXPECT_EQ(form.lstStages.items.size(), 3U);
    Click(Menu::mnuAdditions);
    EXPECT_TRUE(form.lstStages.browses);
    EXPECT_EQ(form.lstStages.items.size(), 4U);
}

}  // namespace
}  // namespace scenara::test
