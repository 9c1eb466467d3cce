// SPDX-License-Identifier: MIT
#include "show/StageShow.h"

#include <utility>

#include "render/CopyStrip.h"
#include "render/Frame.h"
#include "render/PrepareStage.h"
#include "render/SeenFrom.h"
#include "render/TilePatterns.h"
#include "show/FrameRate.h"
#include "show/LoopKeys.h"
#include "stage/LoadStage.h"
#include "stage/StageSpace.h"

namespace scenara {
namespace {

constexpr Single kFirstStep = 1;

void EnsureStep(Single& step, Single& kept) {
    if (step == 0) {
        step = kFirstStep;
        kept = kFirstStep;
    }
}

}  // namespace

StageShow::StageShow(const ShowMachine& machine, const ViewOptions& options, ShowEvents& events)
    : machine_(machine),
      options_(options),
      events_(events),
      engine_(machine.direct3D, machine.window, machine.messages, model_, view_),
      editor_({model_, camera_, view_, flags_, options_, machine.keyboard, machine.clock},
              {[this](const std::string& caption) { events_.Tell(caption); },
               [this] { events_.WriteDump(); }, [this] { NoteEdit(); }}),
      longPass_(machine.clock, machine.window, [this] { events_.TooHeavy(); }),
      tiles_(engine_, model_, camera_, view_, flags_, options_,
             {machine.keyboard, machine.clock, machine.pointer, machine.window, &editor_},
             &longPass_) {}

ShowState StageShow::State() const {
    if (loop_.LoadingStage != 0) {
        return ShowState::Loading;
    }
    if (loop_.StageRunning == 0) {
        return ShowState::None;
    }
    if (SpriteBrowserMode != 0) {
        return ShowState::Browsing;
    }
    return loop_.Paused != 0 ? ShowState::Paused : ShowState::Running;
}

bool StageShow::Start(const std::string& mugeDir) {
    const std::optional<CameraStand> camera = std::exchange(Which.camera, std::nullopt);
    longPass_.Forget();
    hasStage_ = false;
    view_ = View();
    engine_.Engine_Init();
    DiscardKeyStates(machine_.keyboard);
    if (!engine_.HasDevice()) {
        return false;
    }
    // A step of 0 that something else has set says nothing about the user's own.
    CameraSteps unused;
    CameraSteps& kept = StepsAreOverridden() ? unused : camera_.users;
    EnsureStep(camera_.HCamStep, kept.HCamStep);
    EnsureStep(camera_.VCamStep, kept.VCamStep);

    loop_.LoadingStage = 1;
    loop_.StageRunning = 1;
    events_.StateChanged();
    if (!Load(mugeDir) || events_.LoadGivenUp()) {
        return false;
    }
    view_ = ViewOf(model_, options_);
    engine_.FitView();
    hasStage_ = true;
    events_.StageLoaded();
    DiscardKeyStates(machine_.keyboard);
    Prepare(camera);
    if (events_.LoadGivenUp()) {
        return false;  // while the character was read
    }
    loop_.LoadingStage = 0;
    hasShown_ = true;
    events_.StateChanged();
    return true;
}

bool StageShow::Load(const std::string& mugeDir) {
    const LoadStageContext load{machine_.files,
                                machine_.messages,
                                machine_.window,
                                engine_.Device(),
                                options_,
                                mugeDir,
                                [this](const std::string& path) { events_.MusicNamed(path); },
                                machine_.png,
                                [this] { return events_.LoadGivenUp(); }};
    std::string file = Which.shown;
    return LoadStage(model_, file, load);
}

void StageShow::Prepare(const std::optional<CameraStand>& camera) {
    PlaceCamera(model_, camera_, view_);
    if (camera) {
        model_.CamZoom = ZoomRangeOf(model_).Kept(camera->zoom.value_or(model_.CamZoom));
        PlaceCamera(model_, camera_, view_, camera->place);
    }
    events_.CameraRangeChanged();
    PrepareElements(model_, options_, view_);
    MakeTilePatterns(model_, options_, view_, engine_.Device());
    if (options_.Additions) {
        NoteWhereSeen(model_, view_);
    }
    engine_.MakeStrip(StripLines(model_, options_, view_));
    if (testChar_.UseChar) {
        events_.CharacterFollows();
        LoadTestChar();
    }
}

void StageShow::Release() {
    loop_.LoadingStage = 0;
    loop_.StageRunning = 0;
    hasStage_ = false;
    editor_.Clear();
    ReleaseTestChar();
    for (SpriteEntry& sprite : model_.Sprites) {
        sprite.texture.reset();
    }
    engine_.Engine_Deinit();
    model_.Clear();
    loop_.TotalFrames = 0;
    events_.StateChanged();
}

void StageShow::BeginLoop() {
    ForgetKeys();
    toPresent_ = true;
    loop_.LastFpsTick = kNoFpsTick;
    infoText_.clear();
}

bool StageShow::Draw(bool info) {
    // Without a device nothing is drawn, shown or counted.
    if (!engine_.HasDevice() || SpriteBrowserMode != 0) {
        return false;
    }
    if (loop_.Paused != 0 && !drawsOnce_) {
        // Plain, the keys of the editor and the picture wait until the stage goes on.
        if (options_.Additions) {
            EditWhilePaused();
        }
        return false;
    }
    edited_ = false;  // a key may still act after the drawing
    if (flags_.DebugBG != 0) {
        ForgetWhereSeen(model_);
    }
    longPass_.Begin();
    DrawScene(engine_, tiles_, flags_, this);
    longPass_.End();
    toPresent_ = true;
    const bool secondIsOver = CountAndTell(info);
    // A frame that was given up is drawn whole, though the stage is paused by then.
    drawsOnce_ = options_.Additions && longPass_.GivenUp();
    return secondIsOver;
}

bool StageShow::Tick(bool info) {
    if (!engine_.HasDevice() || SpriteBrowserMode != 0 || loop_.Paused != 0) {
        return false;
    }
    TickScene(tiles_, flags_, this);
    edited_ = true;  // paused by the time that it is seen, it is drawn as it is then
    return CountAndTell(info);
}

bool StageShow::CountAndTell(bool info) {
    const std::optional<Integer> frames = CountFrame(loop_, machine_.clock);
    if (frames) {
        framesTold_ = *frames;
        if (info) {
            TellInfo();
        }
    }
    return frames.has_value();
}

void StageShow::TellInfo() {
    infoText_ = InfoLine(model_.CamX, model_.CamY, framesTold_, ZoomToTell());
}

// Addition: authors pause a stage to place things.
void StageShow::EditWhilePaused() {
    editor_.AtEndOfPass();
    if (edited_) {
        ForgetWhereSeen(model_);
        longPass_.Begin();
        DrawSceneAgain(engine_, tiles_, flags_, this);
        edited_ = longPass_.GivenUp();
        toPresent_ = true;
    }
}

void StageShow::Present(bool info) {
    if (!engine_.HasDevice() || SpriteBrowserMode != 0 || longPass_.GivenUp() ||
        ShowsPictureAlready(info)) {
        return;
    }
    toPresent_ = false;
    // Plain, a line that was checked just now tells what it told before until the second is over.
    if (options_.Additions && info && !toldInfo_) {
        TellInfo();
    }
    toldInfo_ = info;
    if (info) {
        PresentFrame(engine_, infoText_, options_.Additions);
    } else {
        PresentFrame(engine_);
    }
}

void StageShow::Pause(bool paused) {
    loop_.Paused = paused ? kByteTrue : Byte{0};
    if (paused) {
        editor_.ForgetPresses();  // those from before
    } else {
        ForgetKeys();
        // Plain, the frames from before the pause are told as those of the whole time since then.
        if (options_.Additions) {
            BeginSecond(loop_, machine_.clock);
        }
    }
}

void StageShow::ForgetKeys() {
    DiscardKeyStates(machine_.keyboard);
    editor_.ForgetPresses();
}

std::optional<double> StageShow::ZoomToTell() const {
    const bool tells = CanZoom() || model_.CamZoom != 1;
    return tells ? std::optional(model_.CamZoom) : std::nullopt;
}

void StageShow::Zoom(ZoomStep step) {
    ZoomTo(ZoomAfter(model_, step));
}

void StageShow::ZoomTo(double zoom) {
    if (!CanZoom()) {
        return;
    }
    const double before = model_.CamZoom;
    SetZoom(model_, camera_, view_, zoom);
    if (model_.CamZoom != before) {
        NoteEdit();  // to be seen while it is paused, too
        if (!infoText_.empty()) {
            TellInfo();
        }
        events_.CameraRangeChanged();
    }
}

void StageShow::SetMouseScroll(bool on) {
    camera_.users = UsersSteps();
    flags_.MouseScroll = on ? kByteTrue : Byte{0};
    if (!on) {
        camera_.HCamStep = StepOrOne(camera_.users.HCamStep);
        camera_.VCamStep = StepOrOne(camera_.users.VCamStep);
        TakeSteps();
    }
}

}  // namespace scenara
