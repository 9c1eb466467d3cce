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

constexpr const char* kA = kStageA;
constexpr const char* kC = kStageC;

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

constexpr std::array kStates = {State::NoStage,        State::Closed,       State::Loading,
                                State::Running,        State::Paused,       State::FullScreen,
                                State::WithoutDevice,  State::Editing,      State::Browsing,
                                State::CharacterLoads, State::WithCharacter};

const char* NameOf(State state) {
    switch (state) {
        case State::NoStage: return "no stage";
        case State::Closed: return "stage closed";
        case State::Loading: return "loading";
        case State::Running: return "running";
        case State::Paused: return "paused";
        case State::FullScreen: return "full screen";
        case State::WithoutDevice: return "without a device";
        case State::Editing: return "an element is dragged";
        case State::Browsing: return "in the sprite browser";
        case State::CharacterLoads: return "a character loads";
        case State::WithCharacter: return "a character walks";
    }
    return "";
}

constexpr std::array kKeys = {
    VirtualKey::RightButton, VirtualKey::Pause,      VirtualKey::Escape,     VirtualKey::Left,
    VirtualKey::Up,          VirtualKey::Right,      VirtualKey::Down,       VirtualKey::Insert,
    VirtualKey::Delete,      VirtualKey::A,          VirtualKey::D,          VirtualKey::Q,
    VirtualKey::Z,           VirtualKey::NumpadPlus, VirtualKey::NumpadMinus};

// What the user does in the state: once, and what is left over from it.
struct Deed {
    std::string name;
    Act act;
    Act after = Wait;      // in the next pass
    bool mayFail = false;  // with an error that is said
    bool endsLoop = false;
};

std::vector<Deed> EveryDeed() {
    std::vector<Deed> deeds;
    for (std::size_t i = 0; i < kMenuCount; ++i) {
        const auto item = static_cast<Menu>(i);
        Deed deed;
        deed.name = "menu item " + std::to_string(i);
        deed.act = [item](RunningStage& stage) {
            stage.Click(item);
            if (item == Menu::mnuDebug) {
                stage.deepest = stage.depth;  // a sprite that is shown lets messages through
            }
        };
        deed.mayFail = item == Menu::mnuStagePrev;  // where nothing is selected
        deed.endsLoop = item == Menu::mnuClose || item == Menu::mnuExit;
        deeds.push_back(deed);
    }
    for (const VirtualKey key : kKeys) {
        Deed deed;
        deed.name = "key " + std::to_string(static_cast<int>(key));
        deed.act = [key](RunningStage& stage) {
            stage.keyboard.Press(key);
            stage.program.Form_KeyDown(key);
        };
        deed.after = [key](RunningStage& stage) { stage.keyboard.Release(key); };
        deeds.push_back(deed);
    }
    const auto add = [&](const char* name, Act act, bool mayFail = false) {
        deeds.push_back({name, std::move(act), Wait, mayFail, false});
    };
    add("a click on the list", [](RunningStage& stage) { stage.program.lstStages_Click(1); });
    add("a click on nothing", [](RunningStage& stage) { stage.program.lstStages_Click(-1); });
    add(
        "a click behind the list", [](RunningStage& stage) { stage.program.lstStages_Click(99); },
        true);
    add("a recent file", [](RunningStage& stage) { stage.program.MnuRecentFiles_Click(1); });
    add(
        "no recent file", [](RunningStage& stage) { stage.program.MnuRecentFiles_Click(9); }, true);
    add("a dropped stage", [](RunningStage& stage) { stage.program.Form_OLEDragDrop(kC); });
    add("a dropped file",
        [](RunningStage& stage) { stage.program.Form_OLEDragDrop("/mugen/stages/a.sff"); });
    add("nothing dropped", [](RunningStage& stage) { stage.program.Form_OLEDragDrop(""); });
    add("an activation", [](RunningStage& stage) { stage.program.Form_Activate(); });
    add("a button pressed", [](RunningStage& stage) { stage.program.Form_MouseDown(162, 3); });
    add("a pointer moved", [](RunningStage& stage) { stage.program.Form_MouseMove(400, -7); });
    add("a button let go", [](RunningStage& stage) { stage.program.Form_MouseUp(); });
    add("the camera's bar", [](RunningStage& stage) { stage.program.hscHScroll_Change(40); });
    const auto pumped = [](RunningStage& stage) {
        stage.deepest = stage.depth;  // a sprite that is shown lets messages through
    };
    add("the sprites' bar", [pumped](RunningStage& stage) {
        stage.program.hscSGFX_Change(1);
        pumped(stage);
    });
    add("the sprites' bar dragged", [pumped](RunningStage& stage) {
        stage.program.hscSGFX_Scroll(2);
        pumped(stage);
    });
    add("a size of nothing", [](RunningStage& stage) { stage.program.Form_Resize(0, 0); });
    add("another program in front", [](RunningStage& stage) { stage.window.SetForeground(0); });
    add("leaving the full screen", [](RunningStage& stage) { stage.program.ResetRes(); });
    add("an item that opens a stage and one that is refused", [](RunningStage& stage) {
        stage.program.lstStages_Click(2);
        stage.program.Form_OLEDragDrop("/mugen/stages/gone.def");
    });
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
                ASSERT_NE(stage.program.Show().Editor().FollowedIndex(), -1);
                break;
            case State::Browsing:
                stage.Click(Menu::mnuDebug);
                stage.deepest = stage.depth;  // the sprite lets messages through
                break;
            case State::WithCharacter:
                stage.keyboard.Press(VirtualKey::Right);
                ASSERT_TRUE(stage.program.Show().TestChar().CharLoaded);
                break;
            default: break;
        }
    }

    // A paused stage shows no pictures of its own.
    static void GoOn(RunningStage& stage) {
        if (stage.program.Show().Loop().Paused != 0) {
            stage.Click(Menu::mnuPause);
        }
    }

    // From outside of the loop.
    static void ExpectThatAStageShows(RunningStage& stage) {
        GoOn(stage);
        stage.sink.last.clear();
        const int before = stage.sink.shown;
        stage.user = InTurn({Wait, Wait});
        stage.program.Form_OLEDragDrop(kA);
        EXPECT_EQ(stage.Caption(), "first");
        EXPECT_EQ(stage.sink.shown, before + 3);
        EXPECT_TRUE(stage.ShowsSomething());
        EXPECT_EQ(stage.program.Show().Loop().LoadingStage, 0);
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
                                     running.program.Form_OLEDragDrop(kC);
                                 },
                                 Wait, Wait,
                                 [&](RunningStage& running) {
                                     EXPECT_EQ(running.Caption(), "third");
                                     EXPECT_EQ(running.sink.shown, shownBefore + 3);
                                     EXPECT_TRUE(running.ShowsSomething());
                                     ++reopened;
                                 }});
        stage.user = InTurn(std::move(acts), [&](RunningStage& running) {
            const bool reached =
                state == State::Loading ||
                (state == State::CharacterLoads && running.Caption() == "Loading The Hero");
            if (reached && !did) {
                did = true;
                deed.act(running);
            }
        });
        stage.program.Form_OLEDragDrop(kA);
        EXPECT_TRUE(did);
        // While a stage loads its menu is off.
        const bool ended = deed.endsLoop && !IsLoading(state);
        EXPECT_EQ(reopened, ended ? 0 : 2);
    }

    static bool IsLoading(State state) {
        return state == State::Loading || state == State::CharacterLoads;
    }
    static bool HasCharacter(State state) {
        return state == State::CharacterLoads || state == State::WithCharacter;
    }

    static void Walk(State state, const Deed& deed, bool additions) {
        SCOPED_TRACE(std::string(NameOf(state)) + ", " + deed.name +
                     (additions ? ", additions" : ", plain"));
        RunningStage stage({}, additions);
        PutHero(stage);
        if (HasCharacter(state)) {
            stage.files.Put(kConfiguration, "MugeDir = /mugen/\r\n" + Chosen("Char = True\r\n"));
        }
        stage.Load();
        stage.form.recentFiles = {kC, kA};
        stage.program.Form_Activate();
        if (state == State::NoStage || state == State::Closed) {
            if (state == State::Closed) {
                stage.user = InTurn({[](RunningStage& running) { running.Click(Menu::mnuClose); }});
                stage.program.Form_OLEDragDrop(kA);
            }
            stage.user = InTurn({Wait, deed.after, Wait});
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
        for (const State state : kStates) {
            Walk(state, deed, GetParam());
        }
    }
}

TEST_P(EveryState, OnlyExitAndClosingEndTheProgram) {
    RunningStage stage({}, GetParam());
    stage.Load();
    stage.user = InTurn({Wait, Wait});
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
