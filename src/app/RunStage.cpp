// SPDX-License-Identifier: MIT
//
// The loop that shows a stage.
#include <exception>
#include <new>
#include <utility>

#include "app/KeyStates.h"
#include "app/LoadMessages.h"
#include "app/MenuTree.h"
#include "app/StagePass.h"
#include "app/frmStage.h"
#include "base/Raised.h"
#include "base/RunTimeError.h"

namespace scenara {

void frmStage::RunStage() {
    // What is chosen behind this and turns out to be no stage changes CurrentStageFile, but not
    // what was asked for here.
    requestedFile_ = CurrentStageFile;
    restart_ = true;
    if (loopRuns_) {
        ShowEditing();
        return;
    }
    const Raised runs(loopRuns_);
    while (restart_ && !machine_.window.EndRequested()) {
        restart_ = false;
        if (!Guarded([&] { ShowStage(); })) {
            AbandonStage();
        }
        form_.lstStages.takesKeys = true;
        static_cast<void>(Guarded([&] { OpenDropped(); }));
    }
    if (machine_.window.EndRequested()) {
        Form_Unload();  // what waited for the load
    }
}

std::optional<std::string> frmStage::FailureOf(const std::function<void()>& work) {
    try {
        work();
        return std::nullopt;
    } catch (const std::bad_alloc&) {
        return std::string(TextOf(RunTimeErrorKind::OutOfMemory));
    } catch (const std::length_error&) {
        return std::string(TextOf(RunTimeErrorKind::OutOfMemory));
    } catch (const std::exception& error) {
        return error.what();
    }
}

void frmStage::SayRunTimeError(const std::string& reason) {
    machine_.messages.MsgBox(kMessageRunTimeError, "Run-time error: " + reason);
}

bool frmStage::Guarded(const std::function<void()>& work) {
    const std::optional<std::string> failure = FailureOf(work);
    if (failure) {
        SayRunTimeError(*failure);
    }
    return !failure;
}

void frmStage::Handle(const std::function<void()>& work) {
    if (!machine_.window.EndRequested()) {
        static_cast<void>(Guarded(work));
    }
}

void frmStage::ShowStage() {
    shownFile_ = requestedFile_;
    longPass_.Forget();
    startFullScreen_ = FullScreenState == 1;
    LeaveBrowser();
    form_.picLoad.visible = false;
    form_.picLoad.width = 1;
    form_.picLoad.height = 1;
    if (ShowStageList != 0) {
        SizeForPicture();
    }
    engine_.Engine_Init();
    DiscardKeyStates(machine_.keyboard);
    machine_.process.YieldToOthers();
    if (!engine_.HasDevice()) {
        AbandonStage();
        return;
    }
    StartLoop();
    if (loop_.StageRunning == 0) {
        return;
    }
    ForgetKeys();  // those that chose the stage, and those of the time in which it loaded
    form_.lstStages.takesKeys = false;  // they drive the camera
    ShowEditing();                      // paused, the passes do not
    if (options_.Additions) {
        // While it is paused a stage would open to a black picture and look broken.
        drawsOnce_ = true;
        ShowTitle();
    } else {
        SetCaption(model_.StageTitle);
    }
    loop_.LastFpsTick = kNoFpsTick;
    infoText_.clear();
    textSurface_.Create(kTextSurfaceWidth, kTextSurfaceHeight);
    form_[Menu::mnuDebug].enabled = true;
    static_cast<void>(Guarded([&] { OpenDropped(); }));
    while (QuitRequested == kFalse && !restart_ && !machine_.window.EndRequested()) {
        RunPass();
    }
    form_[Menu::mnuDebug].enabled = false;
    if (!restart_) {
        LeaveBrowser();
    }
    textSurface_.Release();
}

// Loads the stage with the menus off that would open another one.
void frmStage::StartLoop() {
    EnableLoadingMenus(form_, false);
    LoadMessages messages(machine_.messages, options_.Additions);
    const LoadStageContext load{machine_.files,
                                messages,
                                machine_.window,
                                engine_.Device(),
                                options_,
                                MugeDir,
                                [this](const std::string& path) { music_.SetFileName(path); }};
    const TestCharContext character = CharacterPieces(messages);
    std::string file = shownFile_;
    const auto fullScreenAgain = [this] {
        if (std::exchange(startFullScreen_, false)) {
            MenuItem& item = form_[Menu::mnuFS];
            item.checked = !item.checked;
            mnuFS_Click();
        }
    };
    // A step of 0 that something else has set says nothing about the user's own.
    SavedSteps unused;
    SavedSteps& saved = StepsAreOverridden(testChar_, flags_) ? unused : savedSteps_;
    StartStage(file, {model_, camera_, saved, loop_, form_.hscHScroll, machine_.keyboard, load,
                      std::exchange(keptCamera_, std::nullopt), fullScreenAgain, &character});
    if (loop_.StageRunning == 0) {
        AbandonStage();
        return;
    }
    viewSurface_.Create(kViewWidth, kViewHeight);
    EnableStageOptions();
    SilenceStageBefore();
    if (form_[Menu::mnuMusic].checked && !model_.MusicFile.empty()) {
        music_.Play();
    }
    EnableLoadingMenus(form_, true);
}

// Plain, the player keeps the file of the last stage that had one, and checking Music plays it.
// Addition: nothing of another stage is heard in one without music.
void frmStage::SilenceStageBefore() {
    if (options_.Additions && model_.MusicFile.empty() && !music_.FileName().empty()) {
        music_.SetFileName({});
    }
}

void frmStage::EnableStageOptions() {
    for (const Menu item : {Menu::mnuFS, Menu::mnuChar, Menu::mnuChange, Menu::mnuMScroll,
                            Menu::mnuDeform, Menu::mnuDebugBG}) {
        form_[item].enabled = true;
    }
}

// A start that did not come through, or a pass that ended with an error: the window goes on without
// a stage.
void frmStage::AbandonStage() {
    loop_.LoadingStage = 0;
    EnableLoadingMenus(form_, true);
    form_[Menu::mnuDebug].enabled = false;
    UnloadStuff();
    LeaveBrowser();
    static_cast<void>(Guarded([&] { ResetRes(); }));  // no loop would look who is in front
}

void frmStage::RunPass() {
    const CharacterPass character{testChar_, camera_, machine_.keyboard, flags_, options_};
    const StagePass pass{
        engine_,   tiles_,   flags_, loop_, machine_.clock, model_, form_[Menu::mnuInfo].checked,
        infoText_, character};
    flags_.Deform = form_[Menu::mnuDeform].checked ? kByteTrue : Byte{0};
    // Without a device nothing is drawn, shown or counted; the window keeps its last picture.
    const bool draws = engine_.HasDevice();
    if (!draws || SpriteBrowserMode == kByteTrue) {
        // The picture stays as it is.
    } else if (Paused != kByteTrue || drawsOnce_) {
        edited_ = false;  // a key may still act behind the drawing
        longPass_.Begin();
        if (DrawAndCount(pass)) {
            OncePerSecond();
        }
        // A frame that was given up is drawn whole, though the stage is paused by then.
        drawsOnce_ = options_.Additions && longPass_.GivenUp();
        ShowEditing();
    } else if (options_.Additions) {
        EditWhilePaused(pass);
    }
    if (SpriteBrowserMode == 0) {
        if (draws && !longPass_.GivenUp()) {
            ShowPicture(pass);
        }
        PollPauseKey();
        if (machine_.keyboard.IsDown(VirtualKey::Escape)) {
            ResetRes();
        }
    }
    static_cast<void>(Form_Idle());
    if (loop_.FpsLimit == 0) {
        API_doevents();
    } else {
        WaitForFrame(times_, machine_.clock, loop_.FpsLimit, [&] { API_doevents(); });
    }
}

// Plain, the keys of the editor and the picture wait until the stage goes on. Addition: authors
// pause it to place things.
void frmStage::EditWhilePaused(const StagePass& pass) {
    editor_.AtEndOfPass();
    if (edited_) {
        longPass_.Begin();
        DrawAgain(pass);
        edited_ = longPass_.GivenUp();
        ShowEditing();
    }
}

void frmStage::OncePerSecond() {
    LeaveFullScreenWithFocus();
    if (longPass_.BecameLight()) {
        ShowTitle();
    }
    if (!model_.MusicFile.empty()) {
        RestartAtEnd(music_);
    }
}

// Plain: every pass in which the key is or was down. Addition: once per press, and a key that is up
// again was pressed in between.
void frmStage::PollPauseKey() {
    const Integer state = machine_.keyboard.GetAsyncKeyState(VirtualKey::Pause);
    const bool down = state < 0;
    if (state != 0 && !(options_.Additions && down && pauseWasDown_)) {
        mnuPause_Click();
    }
    pauseWasDown_ = down;
}

void frmStage::API_doevents() {
    if (machine_.window.MessageWaiting()) {
        machine_.window.DoEvents();
    }
}

void frmStage::LimitFrames(Integer limit) {
    WaitForFrame(times_, machine_.clock, limit, [&] { machine_.window.DoEvents(); });
}

}  // namespace scenara
