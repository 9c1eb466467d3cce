// SPDX-License-Identifier: MIT
//
// ToolStage: the program with a stage of two elements, for the background editor and the sprite
// browser.
#pragma once

#include <optional>

#include "app/RunningStage.h"

namespace scenara::test {

// Two pictures of 9 x 7 pixels, at (160, 0) and at (210, 20) of the view.
inline constexpr const char* kTwoElements =
    "[Info]\nname = tools\n[Camera]\nboundleft = -100\nboundright = 100\n"
    "[BGdef]\nspr = stages/a.sff\n"
    "[BG one]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ndelta = 1,1\n"
    "[BG two]\ntype = normal\nspriteno = 0,0\nstart = 50,20\ndelta = 1,1\n";
inline constexpr ViewFrame kFrameOfOne{160, 0, 169, 7};
inline constexpr ViewFrame kFrameOfTwo{210, 20, 219, 27};

inline Act ClickAt(Long x, Long y) {
    return [x, y](RunningStage& stage) {
        stage.program.Form_MouseDown(x, y);
        stage.program.Form_MouseUp();
    };
}

inline const Act kEdit = Choose(Menu::mnuDebugBG);
// Lets messages through: what is done next, is done inside.
inline const Act kBrowse = Choose(Menu::mnuDebug);
inline const Act kPause = Choose(Menu::mnuPause);
inline const Act kSelectTwo = ClickAt(215, 25);

// A key that is down for a pass.
inline Act Hold(VirtualKey key) {
    return [key](RunningStage& stage) { stage.keyboard.Hold({key}); };
}
inline void LetGo(RunningStage& stage) {
    stage.keyboard.Hold({});
}

class Tools : public NewProgram {
protected:
    explicit Tools(bool additions = true, const char* definition = kTwoElements)
        : NewProgram(additions) {
        files.Put(kStageA, definition);
        Load();
    }

    // Everything that the mouse and the bars tell of.
    void EveryEvent() {
        program.Form_MouseDown(162, 3);
        program.Form_MouseMove(172, 8);
        program.Form_MouseUp();
        program.hscHScroll_Change(40);
        program.hscSGFX_Change(1);
        program.hscSGFX_Scroll(2);
    }

    void ExpectNothingSelected() {
        EXPECT_EQ(show.Editor().SelectedIndex(), -1);
        EXPECT_EQ(form.selection, std::nullopt);
    }
    void ExpectNoBrowser() {
        EXPECT_EQ(show.SpriteBrowserMode, 0);
        EXPECT_FALSE(form.hscSGFX.Visible);
    }
    void ExpectBar(Long min, Long max, Long value) {
        EXPECT_TRUE(form.hscHScroll.Visible);
        EXPECT_EQ(form.hscHScroll.Min, min);
        EXPECT_EQ(form.hscHScroll.Max, max);
        EXPECT_EQ(form.hscHScroll.Value, value);
    }
};

}  // namespace scenara::test
