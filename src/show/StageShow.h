// SPDX-License-Identifier: MIT
//
// StageShow: a stage being shown, whole, without a window. It owns the stage in memory, its camera,
// the engine and the tiles, the test character, the debug editor, and the counters and flags of the
// loop.
//
// It knows no menu and no form. Whoever shows it runs the loop: Start, then Draw and Present for
// each pass, Release at the end.
#pragma once

#include <optional>
#include <string>

#include "character/TestCharState.h"
#include "editor/DebugEditor.h"
#include "platform/Clock.h"
#include "platform/Direct3D8.h"
#include "platform/Files.h"
#include "platform/Keyboard.h"
#include "platform/Messages.h"
#include "platform/Pointer.h"
#include "platform/View.h"
#include "platform/Window.h"
#include "render/Engine.h"
#include "render/Figure.h"
#include "render/TileEngine.h"
#include "render/ViewFlags.h"
#include "render/ZoomControl.h"
#include "show/LongPass.h"
#include "show/LoopState.h"
#include "show/ShowEvents.h"
#include "show/WhichStage.h"
#include "stage/Camera.h"
#include "stage/CameraZoom.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

class PngPictures;

// All that a show asks of a machine.
struct ShowMachine {
    Files& files;
    Messages& messages;
    Window& window;
    Keyboard& keyboard;
    Clock& clock;
    Pointer& pointer;
    Direct3DMachine& direct3D;
    const PngPictures* png = nullptr;  // none: the machine reads no PNG
};

enum class ShowState : Byte {
    None,     // no stage
    Loading,  // a stage, or a character, is being loaded
    Running,
    Paused,
    Browsing,  // the stage's sprites are shown one by one
};

class StageShow : public FigureSource {
public:
    // All of it outlives the show.
    StageShow(const ShowMachine& machine, const ViewOptions& options, ShowEvents& events);

    [[nodiscard]] ShowState State() const;
    // A stage has been shown, be it an earlier one.
    [[nodiscard]] bool HasShown() const { return hasShown_; }

    // Whether there is a stage whose files have been read: Model and Picture tell of it, whole.
    [[nodiscard]] bool HasStage() const { return hasStage_; }
    // Its sprites' archive.
    [[nodiscard]] const StageArchive& Archive() const { return model_.Archive; }

    // --- A stage -------------------------------------------------------------------------------

    // Loads the stage that begins (WhichStage) and prepares it: device, elements, camera, the test
    // character where it is on. `mugeDir` has a separator at its end. False when it cannot be
    // shown, which has been reported. Camera steps of 0 become 1. Raises what loading and preparing
    // raise. After a failure of either kind Release is due; until then the state is Loading.
    [[nodiscard]] bool Start(const std::string& mugeDir);

    // Releases everything of the stage; without effect when there is none. The character stays on.
    void Release();

    // --- A pass --------------------------------------------------------------------------------

    // What the pass has to draw: the next frame; while the stage is paused at most what has been
    // edited of it. True once a second, when the information line is made anew if `info` is wanted.
    // Raises what drawing raises, and "Overflow" when a counter runs over.
    bool Draw(bool info);

    // The same without a picture, for a frame that nobody sees. Only with additions, which clear
    // each picture: plainly pictures show what was drawn before.
    bool Tick(bool info);

    // Shows the picture, with the information line over it where that is wanted; not one that was
    // given up. With additions a paused stage is shown once, and again when it has changed.
    void Present(bool info);

    // The picture does not show something yet: an edit, or a stage that opens while it is paused.
    void DrawOnce() { drawsOnce_ = true; }
    void NoteEdit() { edited_ = true; }

    // The loop begins: no frames, no information line, and keys pressed so far do not count.
    void BeginLoop();

    void Pause(bool paused);

    // Keys were not looked at for a while, and a press is remembered until they are: it must not
    // delete an element now, or write a dump.
    void ForgetKeys();

    // Frames take so long that the caption has to say so.
    [[nodiscard]] bool TooHeavy() const { return longPass_.TooHeavy(); }
    // Once a second: whether that is over.
    [[nodiscard]] bool BecameLight() { return longPass_.BecameLight(); }

    // --- The camera's steps --------------------------------------------------------------------
    //
    // While the pointer or the test character sets the steps, the user's own are kept aside;
    // whichever comes first keeps them, and the settings get what is kept.

    [[nodiscard]] CameraSteps UsersSteps() const {
        return StepsAreOverridden() ? camera_.users
                                    : CameraSteps{camera_.HCamStep, camera_.VCamStep};
    }
    void SetMouseScroll(bool on);

    // --- The camera's zoom ---------------------------------------------------------------------

    // Whether there is a stage whose camera zooms.
    [[nodiscard]] bool CanZoom() const {
        return options_.Additions && loop_.StageRunning != 0 && loop_.LoadingStage == 0 &&
               SpriteBrowserMode == 0 && !ZoomRangeOf(model_).HasOnlyOne();
    }
    // Without effect where it does not.
    void Zoom(ZoomStep step);
    void ZoomTo(double zoom);

    // --- The camera's place, with additions ----------------------------------------------------
    //
    // Within its bounds, and seen while the stage is paused, too; without effect where no stage is
    // drawn.

    // Whether one is.
    [[nodiscard]] bool CanMoveCamera() const {
        return options_.Additions &&
               (State() == ShowState::Running || State() == ShowState::Paused);
    }
    // So many of its steps to the right and down.
    void StepCamera(Long across, Long down);
    void PutCamera(const CameraPlace& place);
    // Where the stage starts; the zoom stays.
    void CameraToStart();
    // How far the camera goes for what moves with it by a pixel of the canvas, stage units.
    [[nodiscard]] double CameraPerPixel() const;

    // --- The test character --------------------------------------------------------------------
    //
    // While it is on, the camera's horizontal step is the character's walking step. A failed load,
    // which has been reported, leaves no character chosen and the character off. Loading raises
    // what the engine raises without a device.

    // Another one, loaded at once where a stage runs.
    void ChooseCharacter(const std::string& path);
    void UseCharacter(bool use);

    // Its picture for a frame (render/Figure.h).
    [[nodiscard]] Figure Next() override;
    [[nodiscard]] Figure Again() override;

    // --- Pieces --------------------------------------------------------------------------------

    [[nodiscard]] StageModel& Model() { return model_; }
    [[nodiscard]] const StageModel& Model() const { return model_; }
    [[nodiscard]] const View& Picture() const { return view_; }
    [[nodiscard]] Camera& CameraState() { return camera_; }
    [[nodiscard]] ViewFlags& Flags() { return flags_; }
    [[nodiscard]] ViewOptions& Options() { return options_; }
    [[nodiscard]] const ViewOptions& Options() const { return options_; }
    [[nodiscard]] LoopState& Loop() { return loop_; }
    [[nodiscard]] Engine& TheEngine() { return engine_; }
    [[nodiscard]] DebugEditor& Editor() { return editor_; }
    [[nodiscard]] TestCharState& TestChar() { return testChar_; }
    [[nodiscard]] const TestCharState& TestChar() const { return testChar_; }
    [[nodiscard]] const std::string& InfoText() const { return infoText_; }

    WhichStage Which;
    Byte SpriteBrowserMode = 0;  // 255 while sprites are shown

private:
    class Loading;

    [[nodiscard]] Figure CharacterFigure() const;
    [[nodiscard]] CameraPlace DrawnCamera() const;
    [[nodiscard]] bool ShowsCharacter() const {
        return options_.Additions && testChar_.UseChar && testChar_.CharLoaded;
    }

    [[nodiscard]] bool Load(const std::string& mugeDir);
    // For the information line: none where there is only one and nothing is to be told.
    [[nodiscard]] std::optional<double> ZoomToTell() const;
    void Prepare(const std::optional<CameraStand>& camera);
    bool CountAndTell(bool info);
    void TellInfo();
    [[nodiscard]] bool ShowsPictureAlready(bool info) const {
        return options_.Additions && loop_.Paused != 0 && !toPresent_ && info == toldInfo_;
    }
    void EditWhilePaused();
    void PutCameraAt(const CameraPlace& place);
    void CameraMoved(const CameraPlace& from);

    [[nodiscard]] bool StepsAreOverridden() const {
        return testChar_.StepsOverridden || flags_.MouseScroll != 0;
    }
    [[nodiscard]] bool LoadCharacterFile(TestCharacter& character);
    void LoadTestChar();
    void ReleaseTestChar();
    void TakeSteps();
    void GiveStepsBack();

    ShowMachine machine_;
    ViewOptions options_;
    ShowEvents& events_;

    StageModel model_;
    View view_;
    Camera camera_;
    LoopState loop_;
    ViewFlags flags_;
    Engine engine_;
    TestCharState testChar_;
    DebugEditor editor_;
    LongPass longPass_;
    TileEngine tiles_;

    std::string infoText_;
    Integer framesTold_ = 0;  // of the last second
    bool hasShown_ = false;
    bool hasStage_ = false;
    bool drawsOnce_ = false;  // a frame although it is paused
    bool edited_ = false;     // something that the last picture does not show yet
    bool toPresent_ = true;   // a picture that has not been presented
    bool toldInfo_ = false;   // the information line is over the one that was presented last
};

}  // namespace scenara
