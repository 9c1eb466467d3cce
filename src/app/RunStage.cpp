// SPDX-License-Identifier: MIT
//
// The loop that shows a stage.
#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <utility>

#include "app/MenuTree.h"
#include "app/RecentFiles.h"
#include "app/frmStage.h"
#include "base/Raised.h"
#include "base/RunTimeError.h"
#include "music/MusicGain.h"

namespace scenara {

void frmStage::RunStage() {
    show_.Which.Request();
    if (loopRuns_) {
        ShowEditing();
        return;
    }
    const Raised runs(loopRuns_);
    while (show_.Which.next && !machine_.window.EndRequested()) {
        show_.Which.Begin();
        if (!Guarded([&] { ShowStage(); })) {
            AbandonStage();
        }
        form_.lstStages.takesKeys = true;
        static_cast<void>(Guarded([&] { OpenFollowing(); }));
    }
    if (machine_.window.EndRequested()) {
        Form_Unload();  // what waited for the load
    }
}

std::optional<std::string> frmStage::FailureOf(const std::function<void()>& work) {
    try {
        try {
            work();
            return std::nullopt;
        } catch (...) {
            return TextOfCurrentError();
        }
    } catch (const std::exception& error) {
        return error.what();  // a mistake of the program's
    }
}

void frmStage::SayRunTimeError(const std::string& reason) {
    loadMessages_.MsgBox(kMessageRunTimeError, "Run-time error: " + reason);
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
        const Raised handles(handles_);
        static_cast<void>(Guarded(work));
        static_cast<void>(Guarded([this] { ShowEditing(); }));
    }
}

void frmStage::ShowStage() {
    startFullScreen_ = FullScreenState == 1;
    LeaveBrowser();
    form_.picLoad.visible = false;
    form_.picLoad.width = 1;
    form_.picLoad.height = 1;
    if (ShowStageList != 0) {
        SizeForPicture();
    }
    keepsSize_ = false;
    machine_.process.YieldToOthers();
    if (!StartLoop()) {
        if (LoadGivenUp()) {
            UnloadStuff();  // the picture of the stage before stays until the next one's comes
        } else {
            AbandonStage();
        }
        return;
    }
    form_.lstStages.takesKeys = false;  // they drive the camera
    ShowEditing();                      // paused, the passes do not
    if (show_.Options().Additions) {
        // While it is paused a stage would open to a black picture and look broken.
        show_.DrawOnce();
        ShowTitle();
    } else {
        SetCaption(show_.Model().StageTitle);
    }
    static_cast<void>(Guarded([&] { OpenFollowing(); }));
    while (!LeavesLoop()) {
        RunPass();
    }
    if (!show_.Which.next) {
        LeaveBrowser();
    }
}

// Whether it can be shown. An error that ends the load is one of its messages.
bool frmStage::LoadStage() {
    bool loaded = false;
    loadMessages_.BeginStage(show_.Which.shown, show_.Options().Additions);
    const bool cameThrough = Guarded([&] { loaded = show_.Start(MugeDir); });
    loadMessages_.End(machine_.window.EndRequested());
    return cameThrough && loaded;
}

bool frmStage::LeavesLoop() const {
    return QuitRequested != kFalse || show_.Which.next || machine_.window.EndRequested();
}

// Whether there is a stage to run the loop with.
bool frmStage::StartLoop() {
    if (!LoadStage()) {
        return false;
    }
    ShowCharacterItem();
    if (show_.Options().Additions) {
        BeginRest();
    } else {
        BeginMusic();
    }
    show_.BeginLoop();
    return true;
}

void frmStage::BeginMusic() {
    SilenceStageBefore();
    TuneMusic();
    if (form_[Menu::mnuMusic].checked && !show_.Model().MusicFile.empty()) {
        music_.Play();
    }
}

// Addition: a newer choice from the list. What is dropped meanwhile may be no stage at all.
bool frmStage::LoadGivenUp() {
    return show_.Options().Additions && !show_.Which.chosen.empty();
}

void frmStage::MusicNamed(const std::string& path) {
    if (show_.Options().Additions) {
        musicNamed_ = path;
    } else {
        music_.SetFileName(path);
    }
}

void frmStage::BeginRest() {
    restsSince_ = machine_.clock.GetTickCount();
}

// It has been left before.
void frmStage::LeaveUnrested() {
    restsSince_.reset();
    isNewest_ = false;
    musicNamed_.clear();
    loadMessages_.ForgetHeld();
}

// What waits until the stage has been shown for a while. True: it waits still.
bool frmStage::Rest() {
    constexpr std::uint32_t kWhile = 500;  // milliseconds
    if (!restsSince_) {
        return false;
    }
    if (TicksSince(*restsSince_, machine_.clock.GetTickCount()) < kWhile) {
        return true;
    }
    restsSince_.reset();
    if (std::exchange(isNewest_, false)) {
        RememberRecentFile(form_, show_.Which.shown);
    }
    if (const std::string music = std::exchange(musicNamed_, {}); !music.empty()) {
        music_.SetFileName(music);
    }
    if (show_.Loop().StageRunning != 0) {
        BeginMusic();
    }
    loadMessages_.ShowHeld();
    return false;
}

void frmStage::StateChanged() {
    panning_.End();  // what was pulled is gone, or has been
    EnableMenus(form_, State(), show_.HasShown(), show_.CanZoom() || browser_.CanZoom());
}

// The camera's bar goes by whole units, inside of where the camera may be.
void frmStage::CameraRangeChanged() {
    constexpr double kMost = std::numeric_limits<Long>::max();
    const double beyond = BeyondBounds(show_.Model(), show_.Picture());
    const auto whole = [kMost](double place) { return ToLong(std::clamp(place, -kMost, kMost)); };
    form_.hscHScroll.Max = whole(std::floor(show_.Model().BoundRight + beyond));
    form_.hscHScroll.Min = whole(std::ceil(show_.Model().BoundLeft - beyond));
}

// The full screen again, where that was on.
void frmStage::StageLoaded() {
    if (std::exchange(startFullScreen_, false)) {
        form_[Menu::mnuFS].Flip();  // the click flips it back
        mnuFS_Click();
    }
}

// Plain, the player keeps the file of the last stage that had one, and checking Music plays it.
// Addition: nothing of another stage is heard in one without music.
void frmStage::SilenceStageBefore() {
    if (show_.Options().Additions && show_.Model().MusicFile.empty() &&
        !music_.FileName().empty()) {
        music_.SetFileName({});
    }
}

// Addition: as loud as the stage wants it, and over and over without a gap. The gain comes first,
// so that the file is put to its beginning anew with it.
void frmStage::TuneMusic() {
    const StageModel& model = show_.Model();
    if (!show_.Options().Additions || model.MusicFile.empty()) {
        return;
    }
    const Integer offset = model.MugenVersion < 1 ? model.MusicVolumeOffset : Integer{0};
    music_.SetGain(MusicGain(model.MusicVolume, offset));
    music_.SetLoop({model.MusicLoopStart, model.MusicLoopEnd});
}

// What has come to its end all the same begins again.
void frmStage::BeginMusicAgain() {
    if (!show_.Model().MusicFile.empty()) {
        RestartAtEnd(music_);
    }
}

// A start that did not come through, or a pass that ended with an error: the window goes on without
// a stage.
void frmStage::AbandonStage() {
    UnloadStuff();
    ShowCharacterItem();
    LeaveBrowser();
    static_cast<void>(Guarded([&] { ResetRes(); }));  // no loop would look who is in front
    if (show_.Options().Additions) {
        SelectShown();
        BeginRest();
    }
}

void frmStage::RunPass() {
    const bool info = form_[Menu::mnuInfo].checked;
    const bool seen = IsSeen();
    if (seen ? show_.Draw(info) : show_.Tick(info)) {
        OncePerSecond();
    }
    if (show_.Options().Additions) {
        BeginMusicAgain();
        WatchFocusWhilePaused();
    }
    ShowEditing();
    if (seen) {
        show_.Present(info);
    }
    PollKeys();
    static_cast<void>(Form_Idle());
    static_cast<void>(Rest());
    EndNote();
    WaitForNextPass();
}

// Addition: what nobody sees is not drawn.
bool frmStage::IsSeen() const {
    return !show_.Options().Additions || machine_.window.IsSeen();
}

// How the loop waits, in every state that it can be in.
void frmStage::WaitForNextPass() {
    if (show_.Options().Additions) {
        wait_.Wait(times_, machine_.clock,
                   {[this] { LookForMessages(); }, [this] { return PaceOfLoop(); },
                    [this](std::int64_t most) { machine_.window.SleepUntilMessage(most); }});
    } else if (show_.Loop().FpsLimit == 0) {
        API_doevents();
    } else {
        WaitForFrame(times_, machine_.clock, show_.Loop().FpsLimit, [&] { API_doevents(); });
    }
}

// Addition: as often as the stage has frames, but where nothing moves, or nobody sees it, often
// enough to answer.
Pace frmStage::PaceOfLoop() {
    constexpr Integer kLooks = 60;
    const Integer limit = show_.Loop().FpsLimit;
    if (LeavesLoop()) {
        return {};
    }
    const bool runs = show_.State() == ShowState::Running;
    if (runs && IsSeen()) {
        return {limit};
    }
    return {runs && limit > 0 && limit < kLooks ? limit : kLooks, false};
}

// Between two frames that are far apart the keys are not to wait for the next one.
void frmStage::LookForMessages() {
    if (machine_.window.MessageWaiting()) {
        machine_.window.DoEvents();
        if (!LeavesLoop()) {
            PollKeys();
        }
    }
}

void frmStage::PollKeys() {
    if (show_.SpriteBrowserMode == 0) {
        PollPauseKey();
        if (machine_.keyboard.IsDown(VirtualKey::Escape)) {
            ResetRes();
        }
    }
}

void frmStage::OncePerSecond() {
    LeaveFullScreenWithFocus();
    if (show_.BecameLight()) {
        ShowTitle();
    }
    if (!show_.Options().Additions) {
        BeginMusicAgain();
    }
}

// Addition: a paused stage has no frames to count seconds by.
void frmStage::WatchFocusWhilePaused() {
    constexpr std::uint32_t kEvery = 1000;  // milliseconds
    const Long now = machine_.clock.GetTickCount();
    if (show_.State() == ShowState::Paused && TicksSince(lastFocusLook_, now) >= kEvery) {
        lastFocusLook_ = now;
        LeaveFullScreenWithFocus();
    }
}

// Plain: every pass in which the key is or was down. Addition: once per press, and a key that is up
// again was pressed in between.
void frmStage::PollPauseKey() {
    const Integer state = machine_.keyboard.GetAsyncKeyState(VirtualKey::Pause);
    const bool down = state < 0;
    if (state != 0 && !(show_.Options().Additions && down && pauseWasDown_)) {
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
