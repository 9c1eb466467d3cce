// SPDX-License-Identifier: MIT
//
// The test character, the background editor and the sprite browser, as the window drives them.
#include <algorithm>
#include <utility>

#include "app/KeyStates.h"
#include "app/LoadMessages.h"
#include "app/StageFiles.h"
#include "app/frmStage.h"
#include "editor/CameraScroll.h"

namespace scenara {

TestCharContext frmStage::CharacterPieces(Messages& messages) {
    return {testChar_,
            model_,
            camera_,
            savedSteps_,
            loop_,
            form_,
            flags_,
            engine_,
            machine_.files,
            messages,
            options_,
            {[this](const std::string& caption) { SetCaption(caption); },
             [this] { API_doevents(); }, [this] { return machine_.window.EndRequested(); }}};
}

ChooseCharContext frmStage::CharacterChoice() {
    return {machine_.dialogs, MugeDir,
            [this](const std::string& path) { return IsChar(machine_.files, path); }};
}

void frmStage::mnuChar_Click() {
    const Byte paused = Paused;
    LoadMessages messages(machine_.messages, options_.Additions);
    scenara::mnuChar_Click(CharacterPieces(messages), CharacterChoice());
    AfterCharacter(paused);
}

void frmStage::mnuChange_Click() {
    const Byte paused = Paused;
    LoadMessages messages(machine_.messages, options_.Additions);
    scenara::mnuChange_Click(CharacterPieces(messages), CharacterChoice());
    AfterCharacter(paused);
}

// While a character loads the window is in use: the stage may have been paused, keys tapped and a
// file dropped. The caption is the one from before the load, which may be a sprite's.
void frmStage::AfterCharacter(Byte pausedBefore) {
    ForgetKeys();
    if (Paused != pausedBefore && SpriteBrowserMode == 0) {
        ShowTitle();
    }
    OpenDropped();
}

void frmStage::mnuDebugBG_Click() {
    MenuItem& item = form_[Menu::mnuDebugBG];
    item.checked = !item.checked;
    if (!item.checked) {
        editor_.Clear();
    }
    ShowEditing();
}

// What the machine shows of the editing: the camera's bar, and a frame around what is selected.
// Between two stages the bar stays, with nowhere to go: the window would shrink and grow again.
void frmStage::ShowEditing() {
    const bool edits = form_[Menu::mnuDebugBG].checked;
    ScrollBar& bar = form_.hscHScroll;
    if (loop_.StageRunning == 0) {
        bar.Min = 0;
        bar.Max = 0;
        bar.Value = 0;
    }
    const bool visible = edits && (loop_.StageRunning != 0 || restart_) && SpriteBrowserMode == 0;
    if (std::exchange(bar.Visible, visible) != visible) {
        Size(wishedSize_.width, wishedSize_.height);  // the bar takes nothing of the picture
    }
    form_.selection.reset();
    if (!edits || !CanBeEdited()) {
        return;
    }
    bar.Value = ScrollValueOf(model_, bar);
    form_.selection = editor_.Outline();
}

bool frmStage::CanBeEdited() const {
    return loop_.StageRunning != 0 && loop_.LoadingStage == 0 && SpriteBrowserMode == 0;
}

void frmStage::Form_MouseDown(Long x, Long y) {
    Handle([&] {
        if (CanBeEdited()) {
            editor_.MouseDown({x, y});
            ShowEditing();  // a pass may not do so: it may be paused
        }
    });
}

void frmStage::Form_MouseMove(Long x, Long y) {
    Handle([&] {
        if (CanBeEdited()) {
            editor_.MouseMove({x, y});
            ShowEditing();
        }
    });
}

void frmStage::Form_MouseUp() {
    Handle([&] { editor_.MouseUp(); });
}

void frmStage::hscHScroll_Change(Long value) {
    Handle([&] {
        if (form_[Menu::mnuDebugBG].checked && CanBeEdited()) {
            // A value beyond the bar's is one of the stage before.
            form_.hscHScroll.Value = ValueWithin(form_.hscHScroll, value);
            scenara::hscHScroll_Change(model_, camera_, form_.hscHScroll);
            edited_ = true;
            ShowEditing();
        }
    });
}

void frmStage::mnuDebug_Click() {
    if (loop_.LoadingStage != 0) {
        return;  // a character loads, which has the caption and the messages
    }
    if (SpriteBrowserMode != 0) {
        LeaveBrowser();
        ShowTitle();
    } else {
        ResetRes();  // what covers the window would show the last picture for ever
        browser_.mnuDebug_Click();
    }
    ShowEditing();
}

void frmStage::LeaveBrowser() {
    if (SpriteBrowserMode != 0) {
        browser_.mnuDebug_Click();
        ForgetKeys();
    }
}

// Nobody has looked at the keys for a while, and a press is remembered until somebody does. What
// was tapped meanwhile must not delete an element now, or write a dump.
void frmStage::ForgetKeys() {
    DiscardKeyStates(machine_.keyboard);
    editor_.ForgetPresses();
}

void frmStage::hscSGFX_Change(Long value) {
    MoveSpriteBar(value, [this] { browser_.hscSGFX_Change(); });
}

void frmStage::hscSGFX_Scroll(Long value) {
    MoveSpriteBar(value, [this] { browser_.hscSGFX_Scroll(); });
}

void frmStage::MoveSpriteBar(Long value, const std::function<void()>& show) {
    Handle([&] {
        if (SpriteBrowserMode != 0 && loop_.LoadingStage == 0) {
            form_.hscSGFX.Value = value;
            show();
        }
    });
}

// The list beside the picture keeps its room.
void frmStage::BrowserView::Size(Long width, Long height) {
    program_.Size(width + program_.ListWidth(), height);
}

void frmStage::BrowserView::ShowPicture(const BrowserPicture& picture) {
    program_.machine_.window.ShowPicture(picture.width, picture.height, picture.pixels);
}

// The camera's bar goes first: it would count as something around the picture.
BrowserWindow::Extent frmStage::BrowserView::LargestPicture() const {
    program_.ShowEditing();
    const InnerSize most = program_.machine_.window.LargestInnerSize();
    return {most.width - program_.ListWidth(), most.height};
}

}  // namespace scenara
