// SPDX-License-Identifier: MIT
//
// frmStage: the main window, and with it the whole of the program's run-time state.
//
// What is shown is a StageShow's affair; this is the window around one: start-up (FormLoad.cpp),
// the sizes of the window and its controls (Layout.cpp), which stage is shown (Opening.cpp), the
// loop that shows it (RunStage.cpp), the engine folder and the list (StageList.cpp), what the user
// does in the list (ListEvents.cpp), the other commands (Commands.cpp), what is dropped or named at
// a start (Given.cpp), the test character (TestChar.cpp), the background editor (Editing.cpp), the
// sprite browser (Browsing.cpp), the full screen (FullScreen.cpp), the mouse over the picture
// (PictureMouse.cpp, Panning.h), what is saved meanwhile (Saving.cpp), what is reported of a load
// (LoadMessages.cpp), what the status line says (Status.cpp), the end (Unload.cpp).
//
// One thread. All that the user does arrives through FormEvents while the loop lets messages
// through, so any handler may run between two frames, and between two images of a load. A run-time
// error ends the handler that it came out of, with one message; the program goes on.
//
// Opening a stage while one is shown does not nest: the request is noted, and the running loop
// begins again with it at the top of its next pass. A second request before that replaces the
// first.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/Configuration.h"
#include "app/Extras.h"
#include "app/FrameWait.h"
#include "app/GivenPaths.h"
#include "app/LoadMessages.h"
#include "app/Panning.h"
#include "app/ScreenModule.h"
#include "app/SettingsKeeper.h"
#include "app/StageCatalog.h"
#include "app/StageSearch.h"
#include "app/Status.h"
#include "editor/ImageSets.h"
#include "editor/SpriteBrowser.h"
#include "music/clsMusic.h"
#include "platform/Background.h"
#include "platform/Dialogs.h"
#include "platform/Direct3D8.h"
#include "platform/DisplayModes.h"
#include "platform/FolderWatch.h"
#include "platform/Form.h"
#include "platform/FullScreenForm.h"
#include "platform/Keyboard.h"
#include "platform/MediaGraph.h"
#include "platform/Messages.h"
#include "platform/Presentation.h"
#include "platform/Process.h"
#include "platform/Window.h"
#include "show/ShowEvents.h"
#include "show/StageShow.h"
#include "stage/ViewOptions.h"

namespace scenara {

inline constexpr MessageKind kMessageRunTimeError{"run-time-error", Severity::Error};
inline constexpr MessageKind kMessageAlreadyRunning = "already-running";
inline constexpr MessageKind kMessageCantFindFile{"file-missing", Severity::Error};
inline constexpr MessageKind kMessageNotAStage{"not-a-stage", Severity::Error};
inline constexpr MessageKind kMessageAbout = "about";
inline constexpr MessageKind kMessageNotACharacter{"not-a-character", Severity::Error};
inline constexpr MessageKind kMessageNoStageInFolder{"no-stage-in-folder", Severity::Error};
inline constexpr MessageKind kMessageCharacterWaits = "character-waits";
inline constexpr MessageKind kMessageCannotOpenFolder{"no-folder-program", Severity::Warning};

// The stage list as the window is designed, in pixels.
inline constexpr Long kStageListWidth = 160;

// All that the program asks of a machine.
struct Machine : ShowMachine {
    Process& process;
    Dialogs& dialogs;
    DisplayModes& display;
    FullScreenForm& fullScreen;
    MediaMachine& media;
    Background* background = nullptr;  // none: what is done beside the program is done at once
    FolderWatch* folders = nullptr;    // none: the list does not follow what happens in its folders
};

class frmStage : public FormEvents, private ShowEvents, private BrowserWindow {
public:
    // `form` is what the machine shows; it and the machine outlive the program.
    frmStage(const Machine& machine, Form& form, const ViewOptions& options = {});

    // --- Start and end -----------------------------------------------------------------------

    // Start-up: settings are read, or the engine folder is asked for, and the stages are listed.
    // Afterwards Ended() tells whether there is anything to go on with. `given` are the paths that
    // the program was started with: an engine folder among them is taken in place of the settings'
    // and of the question. They are not opened yet; Form_Given with the same paths does it.
    void Form_Load(const std::vector<std::string>& given = {});

    void Form_Activate() override;
    void Form_Resize(Long innerWidth, Long innerHeight) override;

    // Releases the stage, saves the settings and ends the program: every loop and load returns at
    // its next test. While a stage loads it waits until the image at hand is done.
    void Form_Unload() override;

    [[nodiscard]] bool Ended() const { return ended_; }

    // Addition: that the stage has been shown for a while (half a second), or could not be. Until
    // then it is among no recent files, its music is not heard, and what is wrong with it is not
    // said: the user may be on the way to another one.
    [[nodiscard]] bool HasRested() const { return !restsSince_; }

    // With additions what has changed of the settings is saved when it has rested for a second, and
    // by SaveNow at once; plain, at the end alone. SaveNow asks and tells the user nothing and can
    // be called whenever messages are let through.
    bool Form_Idle() override;
    void SaveNow();

    // Whether the form of that name, frmStage or frmFS, is loaded.
    [[nodiscard]] bool IsFormLoaded(std::string_view name) const;

    // --- The loop ----------------------------------------------------------------------------

    // Shows CurrentStageFile until QuitRequested; from inside of a running loop, see above. Returns
    // early when the stage cannot be shown, which has been said.
    void RunStage();

    // Looks whether a message waits, and only then lets messages through.
    void API_doevents() override;

    // Kept: nothing calls it (LimitFrames.PumpsInEveryPassWithoutALook).
    // The frame wait by itself, letting messages through in each of its passes.
    void LimitFrames(Integer limit);

    // Releases everything of the open stage.
    void UnloadStuff();

    // --- Which stage is shown ----------------------------------------------------------------

    // Shows CurrentStageFile, if it is a stage; the one that is shown goes on otherwise.
    void OpenStage();

    void lstStages_Click(Long index) override {
        Handle([this, index] { SelectStage(index); });
    }
    void lstStages_Step(Long steps) override;
    void lstStages_Mark(Long index) override;
    void lstStages_Leave() override;
    void lstStages_Resize(Long width) override;
    void lstStages_OpenFolder(const std::string& file) override;
    void lstStages_CopyPath(const std::string& file) override;
    void txtFilter_Change(const std::string& words) override;
    void txtFilter_Enter() override;
    void MnuRecentFiles_Click(Long index) override;
    // Takes an engine folder, puts a character on the stage, opens the first stage and has the
    // others among the recent files (GivenPaths.h). While a stage loads, when that is done; what is
    // given meanwhile comes first then.
    void Form_Given(const std::vector<std::string>& paths) override { TakePaths(paths, false); }
    // Addition: the same. Plain, opens the first path as a stage.
    void Form_OLEDragDrop(const std::vector<std::string>& paths) override {
        TakePaths(paths, true);
    }
    void mnuOpen_Click();
    void mnuClose_Click();
    // Plain it releases the stage under the running loop; addition: the stage is loaded again.
    void mnuReload_Click();
    void mnuStagePrev_Click();
    void mnuStageNext_Click();
    void mnuR_Click();

    // --- Commands ----------------------------------------------------------------------------

    void Menu_Click(Menu item) override;
    void Form_KeyDown(VirtualKey key) override;
    void mnuMusic_Click();
    void mnuFPS_Click();
    void mnuPause_Click();
    void mnuMScroll_Click();
    void mnuStageList_Click();
    void mnuAbout_Click();
    // The page of keys.
    void mnuKeys_Click();
    // Addition: the list is there.
    void mnuFind_Click();
    void mnuProblems_Click() { machine_.dialogs.ShowProblems(form_.problems); }
    // The additions on or off; the stage is loaded again with the camera where it is, and the
    // window keeps its size.
    void mnuAdditions_Click();
    // Asks for another engine folder.
    void mnuMugenFolder_Click();

    // --- Test character and debug tools ------------------------------------------------------

    void mnuChar_Click();
    void mnuChange_Click();
    void mnuDebugBG_Click();
    void mnuDebug_Click();
    void Form_MouseDown(Long x, Long y) override;
    void Form_MouseMove(Long x, Long y) override;
    void Form_MouseUp() override;
    void Form_DblClick() override;
    void Form_MouseScroll(Long across, Long down) override;
    void Form_MiddleDown(Long x, Long y) override;
    void Form_MiddleMove(Long x, Long y) override;
    void Form_MiddleUp() override;
    void Form_MouseWheel(Long notches, Long x, Long y) override;
    void hscHScroll_Change(Long value) override;
    void hscSGFX_Change(Long value) override {
        MoveSpriteBar(value, [this] { browser_.hscSGFX_Change(); });
    }
    void hscSGFX_Scroll(Long value) override {
        MoveSpriteBar(value, [this] { browser_.hscSGFX_Scroll(); });
    }

    // --- Full screen -------------------------------------------------------------------------

    void mnuFS_Click();
    // Leaves the full screen, if that is on.
    void ResetRes();

    // Plain: asks for an inner area of this size, in pixels. Nothing else asks for any, and once
    // the window is there controls are laid out only for the size that Form_Resize reports.
    // Addition: without effect, for the size is the user's.
    void Size(Long width, Long height);

    // --- State -------------------------------------------------------------------------------

    Integer QuitRequested = kFalse;
    Byte ShowStageList = 0;
    Byte FullScreenState = 0;  // 1 while the stage is shown full screen
    WindowHandle FullScreenWindow = 0;
    Long ScreenWidth = 0;  // pixels, when the full screen was entered
    Long ScreenHeight = 0;
    std::string MugeDir;      // the engine folder, with a separator at its end
    std::string VersionText;  // minor number, full stop, revision
    std::string AppTitle;

    // What is shown in the window.
    [[nodiscard]] StageShow& Show() { return show_; }
    [[nodiscard]] const FrameTimes& Times() const { return times_; }
    [[nodiscard]] clsMusic& Music() { return music_; }
    // The editor's image surfaces, for whoever loads any; they are released at the end.
    [[nodiscard]] ImageSets& ImageSurfaces() { return imageSets_; }

private:
    class LookingThrough;

    // As it is for the user's choices.
    [[nodiscard]] ShowState State() const { return looks_ ? ShowState::Loading : show_.State(); }
    // Runs `work`; what the error out of it says, if there was one.
    static std::optional<std::string> FailureOf(const std::function<void()>& work);
    void SayRunTimeError(const std::string& reason);
    // Runs `work`; an error out of it is said. Whether it came through.
    bool Guarded(const std::function<void()>& work);
    // The same for what the user does; once the program is to end it comes too late.
    void Handle(const std::function<void()>& work);

    void StateChanged() override;
    void CameraRangeChanged() override;
    [[nodiscard]] bool LoadGivenUp() override;
    void StageLoaded() override;
    void CharacterFollows() override { loadMessages_.CharacterFollows(); }
    void MusicNamed(const std::string& path) override;
    void ShowProgress(const std::string& caption) override { machine_.window.SetCaption(caption); }
    void EndProgress() override { machine_.window.SetCaption(form_.Caption); }
    void SetCaption(const std::string& caption) override;
    // Addition: it goes after a while.
    void Tell(const std::string& caption) override;
    void WriteDump() override;
    void TooHeavy() override { ShowTitle(); }
    // The list beside the picture keeps its room.
    void MakeRoom(Long width, Long height) override { Size(width + ListWidth(), height); }
    void ShowPicture(const BrowserPicture& picture) override {
        machine_.window.ShowPicture(picture.width, picture.height, picture.pixels);
    }
    [[nodiscard]] InnerSize LargestPicture() override;
    [[nodiscard]] InnerSize PictureRoom() override {
        return {wishedSize_.width - ListWidth(), wishedSize_.height};
    }
    [[nodiscard]] InnerSize BoxOnScreen() override { return machine_.window.BoxOnScreen(); }
    void FillBox(const InnerSize& box, const std::vector<std::uint32_t>& pixels,
                 const std::string& text) override {
        machine_.window.FillBox(box, pixels, text);
    }
    void CaptionChanged() override { ShowTitle(); }

    void ShowStage();
    [[nodiscard]] bool StartLoop();
    [[nodiscard]] bool LoadStage();
    [[nodiscard]] bool LeavesLoop() const;
    void RunPass();
    [[nodiscard]] bool IsSeen() const;
    void WaitForNextPass();
    [[nodiscard]] Pace PaceOfLoop();
    void LookForMessages();
    void PollKeys();
    void PollPauseKey();
    void AbandonStage();
    void SilenceStageBefore();
    void BeginRest();
    void LeaveUnrested();
    [[nodiscard]] bool Rest();
    void BeginMusic();
    [[nodiscard]] bool IsStageAskedFor(MessageIcon icon);
    void TuneMusic();
    void BeginMusicAgain();
    void TakePaths(const std::vector<std::string>& paths, bool areDropped);
    void OpenFollowing();
    [[nodiscard]] bool OpenGiven(const std::vector<std::string>& paths);
    void OpenFirstDropped(const std::vector<std::string>& paths);
    [[nodiscard]] GivenPaths LookThrough(const std::vector<std::string>& paths);
    void ReportGiven(const std::string& path, bool isFolder);
    void PutOnStage(const std::string& character, bool opensStage);
    [[nodiscard]] bool ReadSettings(CameraSteps& steps, const std::string& givenFolder);
    [[nodiscard]] bool AskAtFirstStart();
    [[nodiscard]] std::string AskForFolder();
    void TakeMugenFolder(const std::string& folder);
    void ShowFilledList();
    void FillStageList();
    void FillPlainList();
    void NoteEmptyList();
    [[nodiscard]] std::string NoteOfEmptyList() const;
    [[nodiscard]] bool FollowFolder();
    void TakeFoundStages();
    [[nodiscard]] std::string ListedFile(Long index) const;
    [[nodiscard]] Long ListedIndexOf(const std::string& path) const;
    void Step(Long steps);
    [[nodiscard]] bool MayBeStage(const StageEntry& stage);
    void LeaveStage();
    void LoadAgain();
    void SelectStage(Long index);
    void NoteChosen();
    void OpenListed();
    void SelectAskedFor();
    void SelectShown();
    void SelectWhatShows();
    // One of the files that settings are kept in.
    struct KeptFile {
        SettingsKeeper keeper;
        std::string text;           // as it would be written; kept for its room
        bool savingFailed = false;  // when it was saved last while the program went on
    };
    [[nodiscard]] Settings AllSettings(CameraSteps& steps);
    [[nodiscard]] const Extras& AllExtras();
    void NoteStand();
    [[nodiscard]] bool SavesMeanwhile() const { return show_.Options().Additions && !ended_; }
    bool KeepSettings();
    void ShowStatus();
    void SaveChanges(KeptFile& file);
    void SaveNow(KeptFile& file);
    void Write(const KeptFile& file);
    void MakeSettingsText();
    void MakeExtrasText();
    void ShowCharacterItem();
    // `isLoaded`: it is, and has only been off.
    void LoadingCharacter(const std::function<void()>& load, bool isLoaded = false);
    [[nodiscard]] bool CanBeEdited() const;
    void ShowEditing();
    void LeaveBrowser();
    [[nodiscard]] bool Browses() const { return show_.State() == ShowState::Browsing; }
    // Of the camera, or of the sprite that is shown.
    void Zoom(ZoomStep step);
    void MoveSpriteBar(Long value, const std::function<void()>& show);
    void OncePerSecond();
    void LeaveFullScreenWithFocus();
    void WatchFocusWhilePaused();
    [[nodiscard]] Integer ModeOfFullScreen() const;
    void BringModeBack();
    // What the list beside the picture takes of the window.
    [[nodiscard]] Long ListWidth() const { return ShowStageList != 0 ? form_.lstStages.width : 0; }
    [[nodiscard]] Long ListWidthIn(Long innerWidth) const;
    void SizeForPicture();
    void GiveSizeBack();
    void ComeUp();
    void FollowBox();
    // The window for a picture of so many times its own size, where there is room for it.
    void ShowPictureTimes(Long times);
    void LayOutControls(Long innerWidth, Long innerHeight);
    void Centre();
    void ShowTitle();
    [[nodiscard]] std::string Title();
    [[nodiscard]] const char* TitleMark();
    void EndNote();
    void GoThroughStages(VirtualKey key);
    void PauseByKey();
    [[nodiscard]] bool IsFullScreen() const { return FullScreenState == 1; }
    // An item of Extras that has no more to do than to be checked.
    void FlipExtra(Menu item);
    void AskForLimit();
    // What the items of Extras say goes to whom it is for.
    void TakeExtras();
    [[nodiscard]] Presentation PresentationWanted() const;
    void SaveCheckedExtras();

    Machine machine_;
    Form& form_;
    LoadMessages loadMessages_;
    StageShow show_;

    FrameTimes times_;
    SleepingWait wait_;
    clsMusic music_;
    ImageSets imageSets_;
    SpriteBrowser browser_;
    Panning panning_{show_};

    ScreenModule screen_;
    Integer savedMode_ = kNoMode;    // of the display, before the full screen
    DisplaySettings savedSettings_;  // ... for one that the display does not list
    bool looks_ = false;             // what was given is looked through
    bool givesUp_ = false;           // ... and the user does not want to wait for that
    std::string takenAtStart_;       // the MUGEN folder that was given then, and is given again
    bool startFullScreen_ = false;   // the stage that is opened is to be shown full screen

    bool settingsLoaded_ = false;
    Extras extras_;
    KeptFile settingsFile_;     // QX.CFG
    KeptFile extrasFile_;       // Scenara.ini
    StatusSource statusShown_;  // what the status line was made of
    StageCatalog catalog_;
    StageSearch search_;
    bool searched_ = false;         // the names of all stages are known
    bool showsFilledList_ = false;  // ... is awaited: the list is to be shown then
    bool folderChanged_ = false;    // since the last search began
    Long lastSearch_ = 0;           // the tick when that was
    Long lastLook_ = 0;             // the tick of the last look whether they have changed
    Long lastFocusLook_ = 0;        // the tick of the last look who is in front, while paused
    bool pauseWasDown_ = false;
    std::optional<Long> restsSince_;  // the tick since which it has been shown; none: for a while
    bool isNewest_ = false;           // ... and is to come among the recent files then
    std::string musicNamed_;          // the music that is to be opened then
    bool noted_ = false;              // the caption is one that goes
    Long noteSince_ = 0;              // the tick when it came
    bool loopRuns_ = false;           // RunStage is on the stack
    bool handles_ = false;            // ... something that the user did, or asked for
    InnerSize wishedSize_;            // what was asked for last, or has come since
    bool cameUp_ = false;             // it is known how the window comes up
    bool keepsSize_ = false;          // until the stage is shown again: the additions were switched
    bool hasSized_ = false;           // plain, the window
    bool activated_ = false;          // the window has been sized once
    bool centres_ = false;            // ... and is to be centred when its size has come
    bool ended_ = false;
};

}  // namespace scenara
