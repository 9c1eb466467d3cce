// SPDX-License-Identifier: MIT
//
// Which stage is shown, as the user sees it: messages, captions, recent files, and every way from
// one stage to another, from inside of a running loop and from outside.
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kNoStage = "/mugen/stages/notes.def";
constexpr const char* kGoneIsSaid = "Can't find file: \r\n/mugen/stages/gone.def";

auto Said(const std::string& text, MessageIcon icon) {
    return AllOf(Field(&Message::text, text), Field(&Message::icon, icon),
                 Field(&Message::title, ""));
}

using Opening = Program;
using PlainOpening = PlainProgram;

TEST_F(Opening, AMissingFileIsSaidAndTheShownStageGoesOn) {
    WhileAIsShown({Drop(kGone), Wait, Wait, Wait});
    EXPECT_THAT(messages.Recorded(), ElementsAre(Said(kGoneIsSaid, MessageIcon::None)));
    EXPECT_EQ(Caption(), "first");
    EXPECT_EQ(loop.StageRunning, 1);
    EXPECT_EQ(loop.TotalFrames, kRestFrames + 5) << "one before each act, and the last";
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageA));
}

TEST_F(PlainOpening, AMissingFileIsSaidTwice) {
    Show(Drop(kGone));
    EXPECT_THAT(messages.Recorded(), ElementsAre(Said(kGoneIsSaid, MessageIcon::None),
                                                 Said("Not a stage!", MessageIcon::Exclamation)));
}

TEST_F(Opening, AFileWithoutTheWordIsNoStage) {
    files.Put(kNoStage, "[BGdef]\nspr = a.sff\n");
    WhileAIsShown({Drop(kNoStage)});
    EXPECT_THAT(
        messages.Recorded(),
        ElementsAre(
            Said("Not a stage!\r\n\r\n/mugen/stages/notes.def\r\n\r\nIt has no section [Camera].",
                 MessageIcon::Exclamation)));
    EXPECT_EQ(Caption(), "first");
}

TEST_F(PlainOpening, AFileWithoutTheWordIsNotNamed) {
    files.Put(kNoStage, "[BGdef]\nspr = a.sff\n");
    Show(Drop(kNoStage));
    EXPECT_THAT(messages.Recorded(), ElementsAre(Said("Not a stage!", MessageIcon::Exclamation)));
}

TEST_F(Opening, TheWordCountsWhereverItStands) {
    files.Put(kNoStage, "; no CAMera here\n[Info]\nname = fourth\n");
    Show(Drop(kNoStage));
    EXPECT_EQ(Caption(), "fourth");
}

TEST_F(Opening, TheCaptionIsThePathAndThenTheTitle) {
    WhileAIsShown({});
    EXPECT_THAT(window.Captions(), testing::Contains(testing::StrEq(kStageA)));
    EXPECT_EQ(Caption(), "first");
    EXPECT_EQ(show.Which.CurrentStageFile, kStageA);
}

TEST_F(Opening, ARecentFileLeavesTheCaptionAlone) {
    form.recentFiles = {kStageA};
    Show(Recent(1));
    EXPECT_THAT(window.Captions(), Not(testing::Contains(kStageA)));
    EXPECT_EQ(Caption(), "first");
}

TEST_F(Opening, ARecentFileMovesToTheTopEvenWhenItIsGone) {
    form.recentFiles = {kStageA, kStageC, kGone};
    user = InTurn({Recent(3)});
    program.MnuRecentFiles_Click(2);
    EXPECT_THAT(form.recentFiles, ElementsAre(kGone, kStageC, kStageA));
    EXPECT_THAT(messages.Recorded(), ElementsAre(Said(kGoneIsSaid, MessageIcon::None)));
    EXPECT_EQ(Caption(), "third") << "goes on";
    EXPECT_EQ(loop.StageRunning, 1);
}

TEST_F(Opening, ARecentFileThatTheMenuDoesNotHaveIsAnError) {
    form.recentFiles = {kStageA};
    for (const Long index : {-1, 0, 2}) {
        program.MnuRecentFiles_Click(index);
    }
    EXPECT_THAT(
        MessageTexts(),
        testing::AllOf(testing::SizeIs(3),
                       testing::Each("Run-time error: Subscript out of range: recent file")));
}

TEST_F(Opening, AfterCloseARecentFileIsShown) {
    form.recentFiles = {kStageA};
    WhileAIsShown({Choose(Menu::mnuClose)});
    Show(Recent(1));
    EXPECT_EQ(Caption(), "first");
    EXPECT_EQ(loop.StageRunning, 1);
}

TEST_F(Opening, KeepsTheSixLastStagesNewestFirst) {
    const std::vector<std::string> names = {"1", "2", "3", "4", "5", "6", "7"};
    const auto path = [](const std::string& name) { return "/mugen/stages/n" + name + ".def"; };
    for (const std::string& name : names) {
        files.Put(path(name), Stage(name));
        Show(Drop(path(name)));
    }
    EXPECT_THAT(form.recentFiles,
                ElementsAre(path("7"), path("6"), path("5"), path("4"), path("3"), path("2")));
    EXPECT_TRUE(form[Menu::MnuRecentFiles].visible);
    Show(Drop(path("4")));
    EXPECT_THAT(form.recentFiles,
                ElementsAre(path("4"), path("7"), path("6"), path("5"), path("3"), path("2")));
}

TEST_F(Opening, NextWithoutASelectionOpensTheFirst) {
    Show(Choose(Menu::mnuStageNext));
    EXPECT_EQ(form.lstStages.ListIndex, 0);
    EXPECT_EQ(Caption(), "first");
    EXPECT_EQ(show.Which.CurrentStageFile, kStageA);
}

TEST_F(Opening, NextAndPreviousWalkTheListAndStopAtItsEnds) {
    std::vector<Long> selected;
    const auto click = [&](Menu item) {
        return [&, item] {
            Click(item);
            selected.push_back(form.lstStages.ListIndex);
        };
    };
    WhileAIsShown({click(Menu::mnuStagePrev), click(Menu::mnuStageNext), click(Menu::mnuStageNext),
                   click(Menu::mnuStageNext), click(Menu::mnuStagePrev)});
    EXPECT_THAT(selected, ElementsAre(0, 1, 2, 2, 1));
    EXPECT_EQ(Begun(), 4) << "a, b, c, b: each opened once";
    EXPECT_EQ(Caption(), "second");
}

TEST_F(PlainOpening, PreviousWithoutASelectionIsAnError) {
    Click(Menu::mnuStagePrev);
    EXPECT_THAT(MessageTexts(), ElementsAre("Run-time error: Invalid property value: ListIndex"));
    EXPECT_EQ(form.lstStages.ListIndex, -1);
    EXPECT_EQ(Begun(), 0);
}

TEST_F(Opening, PreviousWithoutASelectionOpensTheLast) {
    user = InTurn({});
    Click(Menu::mnuStagePrev);
    EXPECT_THAT(MessageTexts(), IsEmpty());
    EXPECT_EQ(form.lstStages.ListIndex, kItemC);
    EXPECT_EQ(Caption(), "third");
}

TEST_F(Opening, AnEmptyListHasNoNextPreviousOrRandom) {
    program.txtFilter_Change("nothing is called so");
    for (const Menu item : {Menu::mnuStageNext, Menu::mnuStagePrev, Menu::mnuR}) {
        Click(item);
    }
    EXPECT_THAT(MessageTexts(), IsEmpty());
    EXPECT_EQ(Begun(), 0);
}

// However it was opened.
TEST_F(Opening, TheListSelectsWhatIsShown) {
    const auto selected = [&](Long index) {
        return Act([this, index] { EXPECT_EQ(form.lstStages.ListIndex, index); });
    };
    files.Put("/elsewhere/own.def", Stage("own"));
    files.Put(kStageB, Stage("second"));
    WhileAIsShown({selected(kItemA), Drop("/mugen/stages/c.def"), selected(kItemC),
                   Drop("/mugen/stages/b.DEF"), selected(1), Choose(Menu::mnuStagePrev),
                   selected(kItemA), Drop("/elsewhere/own.def"), selected(-1), Recent(2),
                   selected(kItemA), Recent(2), selected(-1)});
    EXPECT_EQ(Caption(), "own");
    Drop("/mugen/stages/none.def")(*this);
    EXPECT_EQ(form.lstStages.ListIndex, -1) << "the one that is shown";
}

class Refused : public Opening {
protected:
    static constexpr const char* kNoStage = "/mugen/stages/aa.def";

    // One entry is no stage any more since it was listed: the list is a, aa, b, c, and aa is the
    // one.
    Refused() {
        files.Put(kNoStage, Stage("notes"));
        Load();
        files.Put(kNoStage, "notes");
        files.Put(kStageB, Stage("second"));
    }
    Act Expect(Long index, const char* title) {
        return [this, index, title] {
            EXPECT_EQ(form.lstStages.ListIndex, index);
            EXPECT_EQ(Caption(), title);
        };
    }
};

TEST_F(Refused, TheListGoesBackToWhatIsShown) {
    WhileAIsShown({Select(1), Expect(0, "first"), Select(3), Expect(3, "third"), Select(1),
                   Expect(3, "third"), All({Select(2), Select(1)}), Expect(2, "second")});
    EXPECT_THAT(MessageTexts(), testing::Each(testing::StartsWith("Not a stage!")));
    Click(Menu::mnuClose);
    program.lstStages_Click(1);
    EXPECT_EQ(form.lstStages.ListIndex, -1) << "none is shown";
}

TEST_F(Refused, NextAndPreviousGoOnBeyondIt) {
    constexpr const char* kNoStageEither = "/mugen/stages/ab.def";
    files.Put(kNoStage, Stage("notes"));
    files.Put(kNoStageEither, Stage("more notes"));
    Load();  // a, aa, ab, b, c
    files.Put(kNoStage, "notes");
    files.Put(kNoStageEither, "more notes");
    files.Put(kStageB, Stage("second"));
    const Act next = Choose(Menu::mnuStageNext);
    const Act previous = Choose(Menu::mnuStagePrev);
    WhileAIsShown({next, Expect(0, "first"), next, Expect(0, "first"), next, Expect(3, "second"),
                   previous, Expect(0, "first"), next, Expect(3, "second")});
    EXPECT_EQ(MessageTexts().size(), 2U) << "then it is known that they are none";
    EXPECT_EQ(Begun(), 4);
}

TEST_F(Refused, AnAbandonedLoadLeavesNothingSelectedAndNextGoesOnBeyondIt) {
    direct3D.FailAt(StartStep::Device);
    Show(Select(2));
    EXPECT_EQ(form.lstStages.ListIndex, -1);
    direct3D.FailAt(std::nullopt);
    Show(Choose(Menu::mnuStageNext));
    EXPECT_EQ(form.lstStages.ListIndex, 3);
    EXPECT_EQ(Caption(), "third");
}

TEST_F(PlainOpening, AnEntryThatIsNoStageStaysSelected) {
    files.Put(kStageB, "notes");
    WhileAIsShown({Select(1), [&] { EXPECT_EQ(form.lstStages.ListIndex, 1); }});
    EXPECT_EQ(Caption(), "first");
}

TEST_F(PlainOpening, TheListKeepsItsSelection) {
    WhileAIsShown({Drop("/mugen/stages/c.def")});
    EXPECT_EQ(Caption(), "third");
    EXPECT_EQ(form.lstStages.ListIndex, kItemA);
}

TEST_F(PlainOpening, AnEmptyListHasNoNextAndErrorsOtherwise) {
    form.lstStages.items.clear();
    Click(Menu::mnuStageNext);
    EXPECT_THAT(MessageTexts(), IsEmpty());
    Click(Menu::mnuStagePrev);
    Click(Menu::mnuR);
    EXPECT_THAT(MessageTexts(), ElementsAre("Run-time error: Invalid property value: ListIndex",
                                            "Run-time error: Invalid property value: ListIndex"));
    EXPECT_EQ(Begun(), 0);
}

TEST_F(Opening, RandomReachesEveryStageAndNothingElse) {
    std::set<Long> reached;
    for (int i = 0; i < 100; ++i) {
        clock.Advance();
        Show(Choose(Menu::mnuR));
        reached.insert(form.lstStages.ListIndex);
        ASSERT_EQ(show.Which.CurrentStageFile,
                  "/mugen/stages/" +
                      form.lstStages.items.at(static_cast<std::size_t>(form.lstStages.ListIndex)) +
                      ".def");
    }
    EXPECT_THAT(reached, ElementsAre(0, 1, 2));
    EXPECT_EQ(Begun(), 100);
}

TEST_F(Opening, RandomWithOneStageOpensIt) {
    program.txtFilter_Change("third");
    Show(Choose(Menu::mnuR));
    EXPECT_EQ(form.lstStages.ListIndex, 0);
    EXPECT_EQ(Caption(), "third");
}

TEST_F(Opening, AnItemThatTheListDoesNotHaveIsAnError) {
    program.lstStages_Click(3);
    program.lstStages_Click(-2);
    EXPECT_EQ(MessageTexts().size(), 2U);
    program.lstStages_Click(-1);  // nothing is selected any more
    EXPECT_EQ(MessageTexts().size(), 2U);
    EXPECT_EQ(Begun(), 0);
}

TEST_F(Opening, WhatTheListSelectsWhileAStageLoadsIsOpenedWhenThatIsDone) {
    WhileAIsShown({}, Once(All({Select(1), Select(kItemC)})));
    EXPECT_EQ(Caption(), "third");
    EXPECT_EQ(form.lstStages.ListIndex, kItemC);
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageC)) << "nobody has seen the first one";
    EXPECT_EQ(Begun(), 2);
}

// The second click of two may come then.
TEST_F(Opening, WhatLoadsIsNotOpenedAgainForASecondClick) {
    WhileAIsShown({Wait}, All({Select(kItemC), Select(kItemA)}));
    EXPECT_EQ(Caption(), "first");
    EXPECT_EQ(Begun(), 1);
}

TEST_F(Opening, OfADropAndAChoiceWhileAStageLoadsTheLaterOneIsOpened) {
    files.Put("/elsewhere/own.def", Stage("own"));
    const Act drop = Drop("/elsewhere/own.def");
    WhileAIsShown({[&] { EXPECT_EQ(Caption(), "third"); }}, Once(All({drop, Select(kItemC)})));
    WhileAIsShown({[&] { EXPECT_EQ(Caption(), "own"); }}, Once(All({Select(kItemC), drop})));
    EXPECT_EQ(Begun(), 4);
}

TEST_F(PlainOpening, WhileAStageLoadsTheListSelectsAndOpensNothing) {
    WhileAIsShown({}, Select(kItemC));
    EXPECT_EQ(Caption(), "first");
    EXPECT_EQ(show.Which.CurrentStageFile, kStageA);
    EXPECT_EQ(form.lstStages.ListIndex, kItemC);
    EXPECT_EQ(Begun(), 1);
}

TEST_F(Opening, WhileAStageLoadsTheMenusOpenNothing) {
    form.recentFiles = {kStageC};
    WhileAIsShown({}, [&] {
        for (const Menu item : {Menu::mnuOpen, Menu::mnuReload, Menu::mnuClose, Menu::mnuStageNext,
                                Menu::mnuStagePrev, Menu::mnuR, Menu::mnuAdditions}) {
            Click(item);
        }
        program.MnuRecentFiles_Click(1);
    });
    EXPECT_THAT(dialogs.Asked(), IsEmpty());
    EXPECT_THAT(MessageTexts(), IsEmpty());
    EXPECT_EQ(Begun(), 1);
    EXPECT_EQ(Caption(), "first");
    EXPECT_FALSE(program.Ended());
    EXPECT_TRUE(show.Options().Additions);
}

TEST_F(Opening, AFileDroppedWhileAStageLoadsIsOpenedWhenThatIsDone) {
    std::vector<std::string> captions;
    WhileAIsShown({[&] { captions.push_back(Caption()); }}, Once(Drop(kStageC)));
    EXPECT_THAT(captions, ElementsAre("third")) << "no picture of the first one is waited for";
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageC));
    EXPECT_EQ(Begun(), 2);
}

TEST_F(Opening, ADropOntoTheWindowWithoutAStageOpensIt) {
    Show(Drop(kStageC));
    EXPECT_EQ(Caption(), "third");
}

TEST_F(Opening, AChoiceThatIsNoStageLeavesTheOneThatWasAskedForBefore) {
    WhileAIsShown({All({Select(kItemC), Drop(kGone)})});
    EXPECT_THAT(MessageTexts(), ElementsAre(kGoneIsSaid));
    EXPECT_EQ(Caption(), "third");
    EXPECT_EQ(loop.StageRunning, 1);
}

TEST_F(Opening, TheDialogBeginsInTheStagesFolder) {
    dialogs.Answer(kStageC);
    Show(Choose(Menu::mnuOpen));
    EXPECT_THAT(dialogs.Asked(),
                ElementsAre(DialogQuestion{DialogQuestion::Kind::OpenFile, "Choose your stage!",
                                           "/mugen/stages/"}));
    EXPECT_EQ(Caption(), "third");
}

TEST_F(Opening, TheDialogBeginsAnywhereWhenThatFolderIsMissing) {
    program.MugeDir = "/elsewhere/";
    Click(Menu::mnuOpen);
    ASSERT_EQ(dialogs.Asked().size(), 1U);
    EXPECT_EQ(dialogs.Asked()[0].initialFolder, "");
}

TEST_F(Opening, ACancelledDialogChangesNothing) {
    WhileAIsShown({Choose(Menu::mnuOpen), Wait});
    EXPECT_EQ(dialogs.Asked().size(), 1U);
    EXPECT_EQ(show.Which.CurrentStageFile, kStageA);
    EXPECT_EQ(Begun(), 1);
    EXPECT_EQ(loop.TotalFrames, kRestFrames + 3);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(Opening, WhatTheDialogGivesEndsBehindTheEnding) {
    files.Put("/mugen/stages/x.def.d/Y.DEF", Stage("deep"));
    dialogs.Answer("/mugen/stages/x.def.d/Y.DEF~1");
    Show(Choose(Menu::mnuOpen));
    EXPECT_EQ(show.Which.CurrentStageFile, "/mugen/stages/x.def.d/Y.DEF");
    EXPECT_EQ(Caption(), "deep");
}

TEST_F(Opening, CloseReleasesTheStageAndGivesTheTitleBack) {
    WhileAIsShown({Wait, Choose(Menu::mnuClose)});
    EXPECT_EQ(Caption(), "Scenara 1.0 DirectX 8 Experiment");
    EXPECT_EQ(loop.StageRunning, 0);
    EXPECT_EQ(direct3D.Device(), nullptr);
    EXPECT_EQ(model.ElementCount, 0);
    EXPECT_EQ(turn, kRestFrames + 5) << "three images, two acts, and the loop has ended";
    EXPECT_TRUE(form.lstStages.takesKeys);
}

TEST_F(Opening, CloseWithoutAStageJustGivesTheTitle) {
    Click(Menu::mnuClose);
    Click(Menu::mnuClose);
    EXPECT_EQ(Caption(), "Scenara 1.0 DirectX 8 Experiment");
    EXPECT_THAT(MessageTexts(), IsEmpty());
    WhileAIsShown({});
    EXPECT_EQ(sink.shown, kRestFrames + 1) << "a stage shows as ever";
}

TEST_F(Opening, NextBehindAnEndedLoopOpensTheNext) {
    WhileAIsShown({Choose(Menu::mnuClose)});
    Show(Choose(Menu::mnuStageNext));
    EXPECT_EQ(Caption(), "second");
}

TEST_F(Opening, ReloadShowsTheFileAsItIsNow) {
    WhileAIsShown({[&] {
                       files.Put(kStageA, Stage("mended"));
                       Click(Menu::mnuReload);
                   },
                   Wait});
    EXPECT_EQ(Caption(), "mended");
    EXPECT_EQ(Begun(), 2);
    EXPECT_EQ(loop.TotalFrames, kRestFrames + 2);
    EXPECT_THAT(dialogs.Asked(), IsEmpty());
}

TEST_F(Opening, ReloadMeansTheShownStageNotTheOneThatWasRefused) {
    WhileAIsShown({Drop(kGone), Choose(Menu::mnuReload), Wait});
    EXPECT_EQ(Begun(), 2);
    EXPECT_EQ(Caption(), "first");
    EXPECT_EQ(show.Which.CurrentStageFile, kStageA);
}

TEST_F(Opening, ReloadWithoutAStageIsForTheLastOne) {
    EXPECT_FALSE(form[Menu::mnuReload].enabled) << "none yet";
    WhileAIsShown({Choose(Menu::mnuClose)});
    Show(Choose(Menu::mnuReload));
    EXPECT_EQ(Caption(), "first");
    EXPECT_EQ(Begun(), 2);
}

TEST_F(Opening, ReloadIsForTheOneThatCouldNotBeShown) {
    WhileAIsShown({All({Select(kItemC), [&] { files.Delete(kStageC); }})});
    EXPECT_EQ(loop.StageRunning, 0);
    files.Put(kStageC, Stage("mended"));
    Show(Choose(Menu::mnuReload));
    EXPECT_EQ(Caption(), "mended");
}

TEST_F(Opening, PlainReloadWithoutAStageAsksForOne) {
    Click(Menu::mnuAdditions);
    dialogs.Answer(kStageC);
    Show(Choose(Menu::mnuReload));
    EXPECT_EQ(dialogs.Asked().size(), 1U);
    EXPECT_EQ(Caption(), "third");
}

// --- from one stage to another ---

// The user does something while stage a is shown, or again and again while a stage loads. A row has
// the caption after that ("": no stage is shown), the number of stages that were begun, the frames
// of the last one, and all messages.
struct Way {
    const char* name;
    const char* caption;
    int begun;
    Long frames;
    std::vector<Act> acts;
    std::vector<std::string> said = {};
    Act loading = {};
};

void PrintTo(const Way& way, std::ostream* out) {
    *out << way.name;
}

class Ways : public Opening, public testing::WithParamInterface<Way> {};

TEST_P(Ways, OpenWhatWasAskedFor) {
    const Way& way = GetParam();
    pace = UserPace::Leafing;
    WhileAIsShown(way.acts, way.loading);
    const bool shown = *way.caption != '\0';
    EXPECT_EQ(Caption(), shown ? way.caption : program.AppTitle);
    EXPECT_EQ(loop.StageRunning, shown ? 1 : 0);
    EXPECT_EQ(Begun(), way.begun);
    EXPECT_EQ(loop.TotalFrames, way.frames);
    EXPECT_EQ(MessageTexts(), way.said);
    const std::map<std::string, const char*> paths = {{"first", kStageA}, {"third", kStageC}};
    if (shown) {
        EXPECT_EQ(show.Which.shown, paths.at(way.caption));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Of, Ways,
    testing::Values(
        Way{"TheSelectedItem", "first", 2, 1, {Wait, Select(kItemA)}},
        Way{"PreviousOfNone",
            "third",
            2,
            2,
            {[](RunningStage& running) { running.form.lstStages.ListIndex = -1; },
             Choose(Menu::mnuStagePrev), Wait}},
        Way{"NextAndClose", "", 1, 0, {All({Choose(Menu::mnuStageNext), Choose(Menu::mnuClose)})}},
        Way{"CloseAndNextTwice",
            "third",
            2,
            2,
            {All({Choose(Menu::mnuClose), Choose(Menu::mnuStageNext), Choose(Menu::mnuStageNext)}),
             Wait}},
        Way{"ReloadOfAMissingFile",
            "first",
            1,
            4,
            {[](RunningStage& running) { running.files.Delete(kStageA); }, Choose(Menu::mnuReload),
             Wait},
            {"Can't find file: \r\n/mugen/stages/a.def"}},
        Way{"TheLastOfTwoDropped", "third", 2, 1, {}, {}, Once(All({Drop(kGone), Drop(kStageC)}))},
        Way{"AMissingFileWhileOneLoads", "first", 1, 2, {Wait}, {kGoneIsSaid}, Once(Drop(kGone))},
        Way{"CloseAfterADropWhileOneLoaded",
            "",
            2,
            0,
            {Choose(Menu::mnuClose)},
            {},
            Once(Drop(kStageC))}),
    [](const auto& row) { return std::string(row.param.name); });

using PlainReload = PlainProgram;

TEST_F(PlainReload, ReleasesTheStageUnderTheLoopWhichGoesOn) {
    WhileAIsShown({Wait,
                   [&] {
                       Click(Menu::mnuReload);
                       EXPECT_EQ(program.QuitRequested, kFalse);
                   },
                   Wait, Wait});
    EXPECT_EQ(turn, 3 + 4 + 1) << "the loop was not ended by it";
    EXPECT_EQ(sink.shown, 2) << "the window keeps its last picture";
    EXPECT_EQ(loop.StageRunning, 0);
    EXPECT_EQ(Begun(), 1);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(PlainReload, ASecondOneAsksForAStageAndShowsIt) {
    dialogs.Answer(kStageC);
    const Act reload = Choose(Menu::mnuReload);
    WhileAIsShown({reload, reload, Wait});
    EXPECT_EQ(dialogs.Asked().size(), 1U);
    EXPECT_EQ(Caption(), "third");
    EXPECT_EQ(loop.TotalFrames, 2);
    EXPECT_EQ(deepest, 1);
}

using Browsing = NewProgram;

TEST_F(Browsing, ThousandsOfStagesThroughNextUseNoMoreStackThanOne) {
    const int stages = Rounds(3000);
    for (int i = 0; i < stages; ++i) {
        files.Put("/mugen/stages/s" + std::to_string(i) + ".def", "[Camera]\n");
    }
    Load();
    ASSERT_EQ(form.lstStages.items.size(), static_cast<std::size_t>(stages) + 3);
    int inPump = 0;
    user = [&](RunningStage&, int) {
        if (loop.LoadingStage == 0) {
            ++inPump;
            const Long before = form.lstStages.ListIndex;
            Click(Menu::mnuStageNext);
            if (form.lstStages.ListIndex == before) {
                program.QuitRequested = kTrue;  // the last one
            }
        }
    };
    Click(Menu::mnuStageNext);
    EXPECT_EQ(inPump, stages + 3);
    EXPECT_EQ(Begun(), stages + 3);
    EXPECT_EQ(deepest, 1) << "no pump inside of a pump";
    EXPECT_EQ(form.lstStages.ListIndex, stages + 2);
    EXPECT_TRUE(form.recentFiles.empty()) << "none of them was looked at";
    EXPECT_EQ(loop.StageRunning, 1);
}

}  // namespace
}  // namespace scenara::test
