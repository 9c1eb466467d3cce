// SPDX-License-Identifier: MIT
//
// The window and its controls: the stage list beside the picture, sizes the user gave, and what a
// stage that is opened makes of them.
#include <cstddef>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

constexpr Long kListWidth = 160;

class Layout : public NewProgram {
protected:
    explicit Layout(bool additions = true) : NewProgram(additions) {}

    void Load(bool withList) {
        files.Put(kConfiguration, std::string("MugeDir = /mugen/\r\nStageList = ") +
                                      (withList ? "255" : "0") + "\r\n");
        RunningStage::Load();
    }

    // With the window up.
    void Begin(bool withList) {
        Load(withList);
        window.Size(form.innerWidth, form.innerHeight);  // as a machine does that shows it
        program.Form_Activate();
    }

    void UserSizes(Long width, Long height) {
        LetSizeCome();
        window.MoveTo({0, 0, width * kUnitsPerPixel, height * kUnitsPerPixel});
        LetSizeCome();
    }

    void ClickList() {
        Click(Menu::mnuStageList);
        LetSizeCome();
    }
    void ExpectList(Long left, Long height) {
        EXPECT_TRUE(form.lstStages.visible);
        EXPECT_EQ(form.lstStages.left, left);
        EXPECT_EQ(form.lstStages.top, 0);
        EXPECT_EQ(form.lstStages.width, kListWidth);
        EXPECT_EQ(form.lstStages.height, height);
    }
};

// Sizes are asked for, as the stage and the list want them.
class PlainLayout : public Layout {
protected:
    PlainLayout() : Layout(false) {}
};

TEST_F(PlainLayout, TheListMakesTheWindowWiderAndNarrowerAgain) {
    Begin(false);
    EXPECT_FALSE(form.lstStages.visible);
    Click(Menu::mnuStageList);
    EXPECT_EQ(program.ShowStageList, 255);
    LetSizeCome();
    ExpectSize(320 + kListWidth, 240);
    ExpectPicture(320, 240);
    ExpectList(320, 240);
    ClickList();
    EXPECT_EQ(program.ShowStageList, 0);
    ExpectSize(320, 240);
    ExpectPicture(320, 240);
    EXPECT_FALSE(form.lstStages.visible);
}

TEST_F(PlainLayout, TheListAddsToTheSizeThatTheUserGave) {
    Begin(false);
    UserSizes(800, 600);
    ClickList();
    ExpectSize(800 + kListWidth, 600);
    ExpectPicture(800, 600);
    ExpectList(800, 600);
    ClickList();
    ExpectSize(800, 600);
    ExpectPicture(800, 600);
}

TEST_F(PlainLayout, AWindowNarrowerThanItsListKeepsASize) {
    Begin(true);
    UserSizes(100, 240);
    ExpectPicture(0, 240);
    ClickList();
    ExpectSize(0, 240);
    EXPECT_EQ(form.innerWidth, 0);
    ExpectPicture(0, 240);
    ClickList();
    ExpectSize(kListWidth, 240);
}

TEST_F(PlainLayout, AListThatWasShownComesUpWithTheWindow) {
    Load(true);
    EXPECT_EQ(program.ShowStageList, 255);
    EXPECT_EQ(form.innerWidth, 320 + kListWidth) << "before it is shown";
    ExpectPicture(320, 240);
    ExpectList(320, 240);
    program.Form_Activate();
    EXPECT_EQ(program.ShowStageList, 255);
    LetSizeCome();
    ExpectPlace((1024 - 480) / 2, (768 - 240) / 2, 320 + kListWidth, 240);
    ExpectPicture(320, 240);
    ExpectList(320, 240);
}

TEST_F(PlainLayout, TheWindowComesUpWithTheRoomThatTheViewTakesOnThisScreen) {
    window.SetRoomForView({366, 275});
    Load(true);
    EXPECT_EQ(form.innerWidth, 366 + kListWidth) << "before it is shown";
    EXPECT_EQ(form.innerHeight, 275);
    program.Form_Activate();
    LetSizeCome();
    ExpectSize(366 + kListWidth, 275);
    ExpectPicture(366, 275);
}

TEST_F(PlainLayout, ItsItemsAreTheFilesWithoutTheirEnding) {
    files.Put("/mugen/stages/deep/d.def", "camera");
    files.Put("/mugen/stages/readme.txt", "camera");
    Load(false);
    EXPECT_THAT(form.lstStages.items, testing::ElementsAre("a", "b", "c"));
    EXPECT_EQ(form.lstStages.ListIndex, -1);
}

TEST_F(Layout, AStageOpenedWithoutTheListTakesTheWindowAsItIs) {
    Begin(false);
    UserSizes(800, 600);
    const std::size_t wishes = window.Wishes().size();
    WhileAIsShown({});
    ExpectPicture(800, 600);
    EXPECT_EQ(window.Wishes().size(), wishes);
}

// Nothing is laid out for a size that may never come.
TEST_F(PlainLayout, ControlsStandAsTheyDidUntilTheSizeHasCome) {
    Begin(false);
    UserSizes(800, 600);
    Click(Menu::mnuStageList);
    ExpectPicture(800, 600);
    EXPECT_FALSE(form.lstStages.visible);
    LetSizeCome();
    ExpectList(800, 600);
    Click(Menu::mnuStageList);
    ExpectPicture(800, 600);
    EXPECT_TRUE(form.lstStages.visible);
    LetSizeCome();
    EXPECT_FALSE(form.lstStages.visible);
}

TEST_F(PlainLayout, TwoClicksBeforeTheSizeHasComeAreNone) {
    Begin(false);
    UserSizes(800, 600);
    Click(Menu::mnuStageList);
    ClickList();
    ExpectSize(800, 600);
    ExpectPicture(800, 600);
}

struct Deed {
    const char* name;
    std::vector<Act> acts;
    bool listed;
};

// What orders a size, plain; with a list at first.
std::vector<Deed> Deeds(frmStage& program) {
    return {
        {"a stage from the list", {Wait}, true},
        {"the list hidden", {Choose(Menu::mnuStageList), Wait}, false},
        {"the list hidden and shown",
         {Choose(Menu::mnuStageList), Wait, Choose(Menu::mnuStageList), Wait},
         true},
        {"the editor's bar", {Choose(Menu::mnuDebugBG), Wait}, true},
        {"the sprite browser", {Choose(Menu::mnuDebug), Wait, Wait}, true},
        {"... and back", {Choose(Menu::mnuDebug), Wait, Choose(Menu::mnuDebug), Wait}, true},
        {"the full screen and back",
         {Choose(Menu::mnuFS), Wait, Choose(Menu::mnuFS), [&] { program.Form_Activate(); }, Wait},
         true},
    };
}

// Each asks for a size, and is given none.
TEST_F(PlainLayout, AMaximisedWindowIsLaidOutAsItIs) {
    Begin(true);
    LetSizeCome();
    window.Maximise();
    LetSizeCome();
    for (const Deed& row : Deeds(program)) {
        SCOPED_TRACE(row.name);
        WhileAIsShown(row.acts);
        ExpectPlace(0, 0, 1024, 768);
        if (row.listed) {
            ExpectPicture(1024 - kListWidth, 768);
            ExpectList(1024 - kListWidth, 768);
        } else {
            ExpectPicture(1024, 768);
            EXPECT_FALSE(form.lstStages.visible);
            program.mnuStageList_Click();
        }
        user = {};
        LetSizeCome();
    }
    EXPECT_TRUE(MessageTexts().empty());
}

TEST_F(PlainLayout, TheListMayBeShownAndHiddenWhileAStageRunsOrLoads) {
    Begin(false);
    const Act click = Choose(Menu::mnuStageList);
    // The load of three images: shown, hidden, shown.
    WhileAIsShown({[&] {
                       ExpectSize(320 + kListWidth, 240);
                       ExpectPicture(320, 240);
                       ExpectList(320, 240);
                   },
                   click,
                   [&] {
                       ExpectPicture(320, 240);
                       ExpectSize(320, 240);
                   }},
                  click);
    EXPECT_EQ(program.ShowStageList, 0);
    EXPECT_TRUE(MessageTexts().empty());
}

// --- with additions ---

TEST_F(Layout, NothingOfTheProgramsChangesTheSizeOrThePlace) {
    Begin(true);
    LetSizeCome();
    window.MoveTo({150, 300, 900 * kUnitsPerPixel, 700 * kUnitsPerPixel});
    LetSizeCome();
    const std::size_t wishes = window.Wishes().size();
    for (const Deed& row : Deeds(program)) {
        SCOPED_TRACE(row.name);
        WhileAIsShown(row.acts);
        ExpectPlace(10, 20, 900, 700);
        EXPECT_EQ(window.Wishes().size(), wishes) << "none is even asked for";
        ExpectPicture(900 - (row.listed ? kListWidth : 0), 700);
        EXPECT_EQ(form.lstStages.visible, row.listed);
        if (row.listed) {
            ExpectList(900 - kListWidth, 700);
        } else {
            program.mnuStageList_Click();
        }
        user = {};
    }
    EXPECT_TRUE(MessageTexts().empty());
}

TEST_F(Layout, SwitchingTheAdditionsChangesNeither) {
    Begin(true);
    LetSizeCome();
    window.MoveTo({150, 300, 900 * kUnitsPerPixel, 700 * kUnitsPerPixel});
    LetSizeCome();
    const std::size_t wishes = window.Wishes().size();
    const Act flip = Choose(Menu::mnuAdditions);
    const Act expect = [&] {
        ExpectPlace(10, 20, 900, 700);
        EXPECT_EQ(window.Wishes().size(), wishes);
        ExpectPicture(900 - kListWidth, 700);
        ExpectList(900 - kListWidth, 700);
    };
    const Act browse = Choose(Menu::mnuDebug);
    WhileAIsShown({flip, Wait, expect, flip, Wait, expect, browse, flip, Wait, expect});
    EXPECT_FALSE(show.Options().Additions);
    EXPECT_EQ(Begun(), 4);
    Show(flip);
    user = {};
    LetSizeCome();
    expect(*this);
}

TEST_F(PlainLayout, TheStageAfterTheOneThatTheAdditionsWereSwitchedOffForSizesTheWindow) {
    Load(true);
    UserSizes(900, 700);
    const Act flip = Choose(Menu::mnuAdditions);
    WhileAIsShown({flip, Wait, [&] { UserSizes(900, 700); }, flip, Wait,
                   [&] { ExpectSize(900, 700); }, Drop(kStageC), Wait,
                   [&] { ExpectSize(320 + kListWidth, 240); }});
}

TEST_F(Layout, WhatAStageMadeOfTheWindowWithoutTheAdditionsGoesWithThem) {
    Begin(true);
    LetSizeCome();
    window.MoveTo({150, 300, 900 * kUnitsPerPixel, 700 * kUnitsPerPixel});
    LetSizeCome();
    const Act flip = Choose(Menu::mnuAdditions);
    WhileAIsShown({flip, Wait, Drop(kStageC), Wait, [&] { ExpectSize(320 + kListWidth, 240); },
                   flip, Wait, [&] { ExpectPlace(10, 20, 900, 700); }, Drop(kStageA), Wait,
                   [&] { ExpectPlace(10, 20, 900, 700); }});
}

TEST_F(Layout, TheListSharesTheWindowAtOnce) {
    Begin(false);
    UserSizes(800, 600);
    Click(Menu::mnuStageList);
    ExpectPicture(800 - kListWidth, 600);
    ExpectList(800 - kListWidth, 600);
    Click(Menu::mnuStageList);
    ExpectPicture(800, 600);
    EXPECT_FALSE(form.lstStages.visible);
    ExpectSize(800, 600);
}

// The first start on screens of many sizes: what their systems leave to windows, and what menus
// and bars take.
struct FirstSize {
    InnerSize workArea;
    InnerSize around;
    bool withList;
    InnerSize picture;
};

const FirstSize kFirstSizes[] = {
    {{1920, 1080}, {0, 22}, false, {1280, 720}}, {{1920, 1080}, {0, 22}, true, {1280, 720}},
    {{1920, 928}, {0, 22}, false, {1280, 720}},   // 742 of 742
    {{1920, 927}, {0, 22}, false, {640, 480}},    // 741: not the next larger one, either
    {{1600, 1080}, {0, 22}, false, {1280, 720}},  // exactly
    {{1599, 1080}, {0, 22}, false, {960, 720}},  {{1799, 1080}, {0, 22}, true, {960, 720}},
    {{1800, 1080}, {0, 22}, true, {1280, 720}},  {{3840, 2160}, {0, 22}, true, {1280, 720}},
    {{1366, 728}, {0, 22}, true, {640, 480}},    {{1024, 768}, {0, 22}, true, {640, 480}},
    {{999, 768}, {0, 22}, true, {320, 240}},     {{1280, 627}, {0, 22}, true, {320, 240}},
    {{1280, 628}, {0, 22}, true, {640, 480}},    {{320, 240}, {0, 22}, true, {320, 240}},
    {{0, 0}, {0, 22}, true, {320, 240}},
};

TEST_F(Layout, TheFirstStartTakesFourFifthsOfTheScreenAtMost) {
    for (const FirstSize& row : kFirstSizes) {
        SCOPED_TRACE(testing::Message() << row.workArea.width << " x " << row.workArea.height);
        window.SetWorkArea(row.workArea);
        window.SetFrame(row.around);
        program.ShowStageList = 0;
        Load(row.withList);
        EXPECT_EQ(form.innerWidth, row.picture.width + (row.withList ? kListWidth : 0));
        EXPECT_EQ(form.innerHeight, row.picture.height);
        ExpectPicture(row.picture.width, row.picture.height);
        EXPECT_TRUE(window.Wishes().empty());
    }
}

TEST_F(Layout, TheFirstStartAsksOverAWindowWithTheList) {
    files.Delete(kConfiguration);
    dialogs.Answer("/mugen");
    int asked = 0;
    dialogs.Observe([&](const DialogQuestion&) {
        ++asked;
        EXPECT_EQ(window.ShowCount(), 1U);
        ExpectPicture(640, 480);
        ExpectList(640, 480);
    });
    RunningStage::Load();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(form.lstStages.items.size(), 3U);
    ExpectPicture(640, 480);
}

TEST_F(Layout, TheFirstStartIsCentredOnTheScreenOfTheWindow) {
    window.SetScreenLeft(2000);
    Load(true);
    window.Size(form.innerWidth, form.innerHeight);  // as a machine does that shows it
    program.Form_Activate();
    LetSizeCome();
    ExpectPlace(2000 + (1024 - 800) / 2, (768 - 480) / 2, 800, 480);
    window.MoveTo({150, 300, 9600, 7200});
    program.Form_Activate();
    LetSizeCome();
    ExpectPlace(10, 20, 640, 480);
}

constexpr const char* kExtras = "/program/Scenara.ini";

TEST_F(Layout, ALaterStartComesUpAsTheUserLeftIt) {
    files.Put(kExtras,
              "WindowLeft = -30\nWindowTop = 40\nWindowWidth = 900\nWindowHeight = 722\n"
              "ListWidth = 200\n");
    window.SetFrame({0, 22});
    Load(true);
    EXPECT_EQ(form.innerWidth, 900);
    EXPECT_EQ(form.innerHeight, 700);
    ExpectPicture(700, 700);
    program.Form_Activate();
    LetSizeCome();
    ExpectPlace(-30, 40, 900, 722);
    EXPECT_EQ(form.lstStages.width, 200);
    EXPECT_TRUE(window.Wishes().empty());
    EXPECT_FALSE(window.Stand().maximised);
}

TEST_F(Layout, ALaterStartIsMaximisedAgainAndKeepsTheSizeBeforeThat) {
    files.Put(kExtras,
              "WindowLeft = 30\nWindowTop = 40\nWindowWidth = 900\nWindowHeight = 700\n"
              "Maximised = True\n");
    Begin(false);
    LetSizeCome();
    EXPECT_EQ(window.Stand(), (WindowStand{WindowStand::Spot{30, 40}, {900, 700}, true}));
    program.Form_Unload();
    EXPECT_THAT(files.Get(kExtras), testing::HasSubstr("WindowWidth = 900\n"));
}

TEST_F(Layout, ASizeThatIsNoneIsTheFirstStart) {
    for (const char* const text :
         {"WindowWidth = 900\n", "WindowWidth = 0\nWindowHeight = 700\n",
          "WindowWidth = 900\nWindowHeight = -700\n", "WindowWidth = wide\nWindowHeight = 700\n",
          "WindowWidth = 99999999999\nWindowHeight = 700\n", "Maximised = True\n"}) {
        SCOPED_TRACE(text);
        files.Put(kExtras, text);
        Load(false);
        ExpectPicture(640, 480);
    }
}

TEST_F(Layout, WhatTheUserDoesToTheWindowIsSavedWhenItHasRested) {
    constexpr int kMoreThanASecond = 75;
    Begin(false);
    LetSizeCome();
    const auto pass = [&] {
        for (int i = 0; i < kMoreThanASecond; ++i) {
            clock.Advance();
            static_cast<void>(program.Form_Idle());
        }
    };
    pass();
    EXPECT_EQ(files.Get(kExtras),
              "WindowLeft = 192\r\nWindowTop = 144\r\nWindowWidth = 640\r\n"
              "WindowHeight = 480\r\n");
    window.MoveTo({150, 300, 9000, 7200});
    pass();
    const std::string moved =
        "WindowLeft = 10\r\nWindowTop = 20\r\nWindowWidth = 600\r\nWindowHeight = 480\r\n";
    EXPECT_EQ(files.Get(kExtras), moved);
    window.Maximise();
    pass();
    EXPECT_EQ(files.Get(kExtras), moved + "Maximised = True\r\n");
}

TEST_F(Layout, WhatCoversTheWindowIsNotItsSize) {
    Begin(false);
    UserSizes(800, 600);
    WhileAIsShown({Choose(Menu::mnuFS), [&] {
                       window.MoveTo({0, 0, 320 * 15, 240 * 15});
                       program.SaveNow();
                   }});
    EXPECT_THAT(files.Get(kExtras), testing::Not(testing::HasSubstr("WindowWidth = 320")));
}

TEST_F(PlainLayout, TheWindowIsNotSaved) {
    Begin(false);
    UserSizes(800, 600);
    program.Form_Unload();
    EXPECT_THAT(files.Get(kExtras), testing::Not(testing::HasSubstr("Window")));
}

TEST_F(Layout, ResizingWhileAStageLoadsHoldsBehindIt) {
    Begin(false);
    WhileAIsShown({}, [&] { program.Form_Resize(640, 480); });
    ExpectPicture(640, 480);
}

}  // namespace
}  // namespace scenara::test
