// SPDX-License-Identifier: MIT
//
// Every menu item, every key and every other event, in every state that the window can be in. None
// may leave the window dead: behind each of them a stage opens and is drawn, from inside of the
// loop where one runs, and from outside of it.
#include <array>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/HeroStage.h"

namespace scenara::test {
namespace {

enum class State {
    NoStage,
    Closed,
    Loading,
    Running,
    Paused,
    FullScreen,
    WithoutDevice,
    Editing,
    Browsing,
    CharacterLoads,
    WithCharacter
};

struct NamedState {
    State state;
    const char* name;
};

constexpr NamedState kStates[] = {{State::NoStage, "no stage"},
                                  {State::Closed, "stage closed"},
                                  {State::Loading, "loading"},
                                  {State::Running, "running"},
                                  {State::Paused, "paused"},
                                  {State::FullScreen, "full screen"},
                                  {State::WithoutDevice, "without a device"},
                                  {State::Editing, "an element is dragged"},
                                  {State::Browsing, "in the sprite browser"},
                                  {State::CharacterLoads, "a character loads"},
                                  {State::WithCharacter, "a character walks"}};

constexpr std::array kKeys = {
    VirtualKey::RightButton, VirtualKey::Pause,      VirtualKey::Escape,      VirtualKey::Left,
    VirtualKey::Up,          VirtualKey::Right,      VirtualKey::Down,        VirtualKey::Insert,
    VirtualKey::Delete,      VirtualKey::A,          VirtualKey::D,           VirtualKey::Q,
    VirtualKey::Z,           VirtualKey::NumpadPlus, VirtualKey::NumpadMinus, VirtualKey::Space};

// What the user does in the state: once, and what is left over from it.
struct Deed {
    std::string name;
    Act act;
    Act after = Wait;      // in the next pass
    bool mayFail = false;  // with an error that is said
    bool endsLoop = false;
    bool endsProgram = false;
};

// One after which a sprite is shown or a character loaded, which lets messages through.
Act Pumped(const Act& act) {
    return All({act, [](RunningStage& stage) { stage.deepest = stage.depth; }});
}

std::vector<Deed> EveryDeed() {
    std::vector<Deed> deeds;
    for (std::size_t i = 0; i < kMenuCount; ++i) {
        const auto item = static_cast<Menu>(i);
        // Previous may fail where nothing is selected.
        deeds.push_back({"menu item " + std::to_string(i),
                         item == Menu::mnuDebug ? Pumped(Choose(item)) : Choose(item), Wait,
                         item == Menu::mnuStagePrev,
                         item == Menu::mnuClose || item == Menu::mnuExit, item == Menu::mnuExit});
    }
    for (const VirtualKey key : kKeys) {
        deeds.push_back({"key " + std::to_string(static_cast<int>(key)),
                         All({Press(key), KeyDown(key)}), Release(key)});
    }
    const auto add = [&](const char* name, const Act& act, bool mayFail = false) {
        deeds.push_back({name, act, Wait, mayFail});
    };
    add("a click on the list", Select(1));
    add("a click on nothing", Select(-1));
    add("a click behind the list", Select(99), true);
    add("a recent file", Recent(1));
    add("no recent file", Recent(9), true);
    add("a dropped stage", Drop(kStageC));
    add("a dropped file", Drop("/mugen/stages/a.sff"));
    add("nothing dropped", Drop(""));
    const auto addDrop = [&](const char* name, const std::vector<std::string>& paths) {
        add(name, Pumped([paths](RunningStage& stage) { stage.program.Form_OLEDragDrop(paths); }));
    };
    addDrop("an empty list dropped", {});
    addDrop("a MUGEN folder dropped", {"/mugen/stages"});
    addDrop("a folder of nothing dropped", {"/program"});
    addDrop("a character dropped", {kHero});
    addDrop("all of these dropped", {kGone, kHero, "/mugen", kStageC, "/program", kStageB});
    add("another MUGEN folder", [](RunningStage& stage) {
        stage.dialogs.Answer("/mugen");
        stage.Click(Menu::mnuMugenFolder);
    });
    add("an activation", [](RunningStage& stage) { stage.program.Form_Activate(); });
    add("a button pressed", [](RunningStage& stage) { stage.program.Form_MouseDown(162, 3); });
    add("a pointer moved", [](RunningStage& stage) { stage.program.Form_MouseMove(400, -7); });
    add("a button let go", [](RunningStage& stage) { stage.program.Form_MouseUp(); });
    add("a double click", [](RunningStage& stage) { stage.program.Form_DblClick(); });
    add("the wheel", [](RunningStage& stage) { stage.program.Form_MouseScroll(3, -2); });
    add("a pull", [](RunningStage& stage) {
        stage.program.Form_MiddleDown(160, 100);
        stage.program.Form_MiddleMove(-500, 9000);
        stage.program.Form_MiddleUp();
    });
    add("the camera's bar", [](RunningStage& stage) { stage.program.hscHScroll_Change(40); });
    add("the sprites' bar", Pumped([](RunningStage& stage) { stage.program.hscSGFX_Change(1); }));
    add("the sprites' bar dragged",
        Pumped([](RunningStage& stage) { stage.program.hscSGFX_Scroll(2); }));
    add("a size of nothing", [](RunningStage& stage) { stage.program.Form_Resize(0, 0); });
    add("another program in front", [](RunningStage& stage) { stage.window.SetForeground(0); });
    add("leaving the full screen", [](RunningStage& stage) { stage.program.ResetRes(); });
    add("an item that opens a stage and one that is refused", All({Select(2), Drop(kGone)}));
    add("every item of the bar and the menus but the end", [](RunningStage& stage) {
        for (std::size_t i = 0; i < kMenuCount; ++i) {
            if (static_cast<Menu>(i) != Menu::mnuExit &&
                static_cast<Menu>(i) != Menu::mnuStagePrev) {
                stage.Click(static_cast<Menu>(i));
            }
        }
    });
    return deeds;
}

class EveryState : public testing::TestWithParam<bool> {
protected:
    static void Enter(RunningStage& stage, State state) {
        switch (state) {
            case State::Paused: stage.Click(Menu::mnuPause); break;
            case State::FullScreen: stage.Click(Menu::mnuFS); break;
            case State::WithoutDevice:
                stage.program.UnloadStuff();
                ASSERT_EQ(stage.direct3D.Device(), nullptr);
                break;
            case State::Editing:
                stage.Click(Menu::mnuDebugBG);
                stage.program.Form_MouseDown(162, 3);
                ASSERT_NE(stage.show.Editor().FollowedIndex(), -1);
                break;
            case State::Browsing: Pumped(Choose(Menu::mnuDebug))(stage); break;
            case State::WithCharacter:
                stage.keyboard.Press(VirtualKey::Right);
                ASSERT_TRUE(stage.show.TestChar().CharLoaded);
                break;
            default: break;
        }
    }

    // A paused stage shows no pictures of its own.
    static void GoOn(RunningStage& stage) {
        if (stage.loop.Paused != 0) {
            stage.Click(Menu::mnuPause);
        }
    }

    // From outside of the loop.
    static void ExpectThatAStageShows(RunningStage& stage) {
        GoOn(stage);
        stage.sink.last.clear();
        const int before = stage.sink.shown;
        stage.user = LeafingInTurn({Wait, Wait});
        stage.program.Form_OLEDragDrop({kStageA});
        EXPECT_EQ(stage.Caption(), "first");
        EXPECT_EQ(stage.sink.shown, before + 3);
        EXPECT_TRUE(stage.ShowsSomething());
        EXPECT_EQ(stage.loop.LoadingStage, 0);
        for (const Menu item : {Menu::mnuStage, Menu::mnuOptions, Menu::mnuExtras,
                                Menu::mnuStagePrev, Menu::mnuStageNext, Menu::mnuR}) {
            EXPECT_TRUE(stage.form[item].enabled);
        }
        EXPECT_TRUE(stage.form.lstStages.takesKeys);
        EXPECT_EQ(stage.deepest, 1) << "no pump inside of a pump";
    }

    // Stage a is shown while the deed is done; what is opened behind it, is, too.
    static void DoWhileAStageIsThere(RunningStage& stage, State state, const Deed& deed) {
        bool did = false;
        int reopened = 0;
        int shownBefore = 0;
        std::vector<Act> acts;
        if (!IsLoading(state)) {
            acts = {Wait, [&](RunningStage& running) { Enter(running, state); }, Wait,
                    [&](RunningStage& running) {
                        did = true;
                        deed.act(running);
                    }};
        }
        acts.insert(acts.end(), {deed.after, Wait, Wait,
                                 [&](RunningStage& running) {
                                     GoOn(running);
                                     shownBefore = running.sink.shown;
                                     running.sink.last.clear();
                                     ++reopened;
                                     running.program.Form_OLEDragDrop({kStageC});
                                 },
                                 Wait, Wait,
                                 [&](RunningStage& running) {
                                     EXPECT_EQ(running.Caption(), "third");
                                     EXPECT_EQ(running.sink.shown, shownBefore + 3);
                                     EXPECT_TRUE(running.ShowsSomething());
                                     ++reopened;
                                 }});
        stage.user = LeafingInTurn(std::move(acts), [&](RunningStage& running) {
            const bool reached =
                state == State::Loading ||
                (state == State::CharacterLoads && running.Caption() == "Loading The Hero");
            if (reached && !did) {
                did = true;
                deed.act(running);
            }
        });
        stage.program.Form_OLEDragDrop({kStageA});
        EXPECT_TRUE(did);
        // While a stage loads its menu is off, but for the end with additions.
        const bool ended = (deed.endsLoop && !IsLoading(state)) || stage.program.Ended();
        EXPECT_EQ(stage.program.Ended(),
                  deed.endsProgram && (!IsLoading(state) || stage.show.Options().Additions));
        EXPECT_EQ(reopened, ended ? 0 : 2);
    }

    static bool IsLoading(State state) {
        return state == State::Loading || state == State::CharacterLoads;
    }
    static bool HasCharacter(State state) {
        return state == State::CharacterLoads || state == State::WithCharacter;
    }

    static void Walk(const NamedState& named, const Deed& deed, bool additions) {
        const State state = named.state;
        SCOPED_TRACE(std::string(named.name) + ", " + deed.name +
                     (additions ? ", additions" : ", plain"));
        RunningStage stage({}, additions);
        PutHero(stage);
        if (HasCharacter(state)) {
            stage.files.Put(kConfiguration, "MugeDir = /mugen/\r\n" + Chosen("Char = True\r\n"));
        }
        stage.Load();
        stage.form.recentFiles = {kStageC, kStageA};
        stage.program.Form_Activate();
        if (state == State::NoStage || state == State::Closed) {
            if (state == State::Closed) {
                stage.user = LeafingInTurn({Choose(Menu::mnuClose)});
                stage.program.Form_OLEDragDrop({kStageA});
            }
            stage.user = LeafingInTurn({Wait, deed.after, Wait});
            deed.act(stage);
            deed.after(stage);
        } else {
            DoWhileAStageIsThere(stage, state, deed);
        }
        if (!deed.mayFail) {
            for (const std::string& text : stage.MessageTexts()) {
                EXPECT_FALSE(text.starts_with("Run-time error")) << text;
            }
        }
        if (!stage.program.Ended()) {
            ExpectThatAStageShows(stage);
        }
    }
};

TEST_P(EveryState, TakesEveryDeedAndShowsAStageBehindIt) {
    for (const Deed& deed : EveryDeed()) {
        for (const NamedState& state : kStates) {
            Walk(state, deed, GetParam());
        }
    }
}

TEST_P(EveryState, OnlyExitAndClosingEndTheProgram) {
    RunningStage stage({}, GetParam());
    stage.Load();
    stage.user = LeafingInTurn({Wait, Wait});
    for (std::size_t i = 0; i < kMenuCount; ++i) {
        if (static_cast<Menu>(i) != Menu::mnuExit) {
            stage.Click(static_cast<Menu>(i));
        }
    }
    for (const VirtualKey key : kKeys) {
        stage.program.Form_KeyDown(key);
    }
    EXPECT_FALSE(stage.program.Ended());
    EXPECT_FALSE(stage.window.EndRequested());
    stage.Click(Menu::mnuExit);
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_TRUE(stage.window.EndRequested());
}

INSTANTIATE_TEST_SUITE_P(PlainAndAdditions, EveryState, testing::Bool());

}  // namespace
}  // namespace scenara::test
