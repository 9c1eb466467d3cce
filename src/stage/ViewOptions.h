// SPDX-License-Identifier: MIT
//
// ViewOptions: how stages are read and shown, as the user wants it.
//
// Plain reading and drawing take just the keys and steps that have always been there; the additions
// are what newer stages expect, and what users do, beyond that. Each addition has one place, a step
// of its own beside the plain one, marked "Addition" where it stands. This is the table of them;
// docs/stage-authors.md tells users of the same ones (Additions.AreThoseThatUsersAreToldOf).
#pragma once

#include <array>

namespace scenara {

struct ViewOptions {
    bool Additions = true;
    // With additions: scaled pictures are mixed from neighbouring pixels.
    bool Smooth = false;
};

inline constexpr ViewOptions kPlainView{false};

struct Addition {
    const char* name;   // as users are told of it
    const char* file;   // where its step stands, in src/
    const char* place;  // and by which name in there
};

inline constexpr std::array kAdditions = {
    Addition{"Section headers", "stage/SectionHeader.cpp", "BeginsWithBracket"},
    Addition{"Names of sections", "stage/SectionHeader.cpp", "KindByFirstWord"},
    Addition{"Keys in odd case", "stage/KeyOffer.cpp", "MayStandHere"},
    Addition{"An archive under another name", "stage/ArchiveSearch.cpp", "FindUnderAnotherName"},
    Addition{"A stage of another MUGEN folder", "stage/ArchiveSearch.cpp", "EngineFolderOf"},
    Addition{"A key given twice", "stage/KeyOffer.cpp", "CountsHere"},
    Addition{"A key without a value", "stage/KeyOffer.cpp", "HasValue"},
    Addition{"Full-width blanks", "stage/DefinitionReader.cpp", "BlankFullWidth"},
    Addition{"`name`, `bgmusic`, `spr`", "stage/KeyOffer.cpp", "Text"},
    Addition{"Settings of one section", "stage/StageKeys.cpp", "ReadKeysOfSection"},
    Addition{"What newer engines alone read", "stage/DefinitionReader.cpp", "newer_"},
    Addition{"Unknown kinds of element", "stage/ElementKind.h", "KindOf"},
    Addition{"`actionno`", "stage/FinishElements.cpp", "TakesAction"},
    Addition{"Fractions", "stage/StageKeys.cpp", "ReadFraction"},
    Addition{"`tilespacing`", "stage/FinishElements.cpp", "FinishSpacing"},
    Addition{"Frame lines", "stage/DefinitionReader.cpp", "IsFrame"},
    Addition{"A frame's blending", "stage/KeyOffer.cpp", "BareValue"},
    Addition{"Swings", "render/Motion.cpp", "SwingWhole"},
    Addition{"Hidden elements", "render/TileEngine.cpp", "DriftOn"},
    Addition{"`layerno` below 0", "render/TileEngine.cpp", "PassOnCanvas"},
    Addition{"`enabled`", "stage/ControlKind.h", "ControlKindOf"},
    Addition{"`windowdelta`", "render/ElementWindow.cpp", "windowDelta"},
    Addition{"`parallax`", "render/ElementPieces.cpp", "RowAt"},
    Addition{"`yscalestart`, `yscaledelta`", "render/ParallaxRows.cpp", "RowStretch"},
    Addition{"`scalestart`, `scaledelta`", "render/ElementScale.cpp", "ScaleOf"},
    Addition{"`width`", "render/ParallaxRows.h", "HasRowWidths"},
    Addition{"`maskwindow`", "render/ElementWindow.cpp", "CutToMaskWindow"},
    Addition{"Zoom", "stage/CameraZoom.cpp", "ZoomRangeOf"},
    Addition{"`zoomdelta`", "render/ElementScale.cpp", "ZoomOf"},
    Addition{"Deform", "app/MenuTree.cpp", "Plainly"},
    Addition{"Where no element is", "render/TileEngine.cpp", "ClearPicture"},
    Addition{"`hires`, `localcoord`, scale", "stage/StageSpace.cpp", "ViewOf"},
    Addition{"Places", "render/ElementPlacement.cpp", "PlaceOnCanvas"},
    Addition{"A frame's camera", "render/DrawOptions.cpp", "DrawOptionsOf"},
    Addition{"Blending", "render/ElementDrawing.cpp", "BlendingInForce"},
    Addition{"A frame's scale and angle", "render/FrameValues.cpp", "FrameValuesOf"},
    Addition{"`Interpolate` lines", "render/FrameValues.cpp", "Passage"},
    Addition{"Mirrored frames", "render/ElementPlacement.cpp", "AxisOf"},
    Addition{"Mirrored tiles", "render/ElementTiles.cpp", "mirroredOnce"},
    Addition{"n tiles with a distance below 0", "render/Tiling.cpp", "additions"},
    Addition{"`boundhigh`", "render/PrepareStage.cpp", "RaiseUpperBound"},
    Addition{"`dummy`", "render/PrepareStage.cpp", "SetRuntimeValues"},
    Addition{"Archives of version 2", "sprites/SpriteArchive.cpp", "MayRead"},
    Addition{"A picture's colours", "sprites/version1/SubfilePalette.cpp", "Palette"},
    Addition{"The test character", "show/CharacterFigure.cpp", "Next"},
    Addition{"A character's start", "character/PlaceCharacter.cpp", "WithinReach"},
    Addition{"A character's ground", "character/PlaceCharacter.cpp", "FollowGround"},
    Addition{"A character's frames", "character/CharacterAnimation.cpp", "options"},
    Addition{"A character's colours", "character/CharacterColors.cpp", "act"},
    Addition{"A heavy stage", "app/Commands.cpp", "ShowTitle"},
    Addition{"Between two frames", "app/RunStage.cpp", "WaitForNextPass"},
    Addition{"A stage that nobody sees", "app/RunStage.cpp", "IsSeen"},
    Addition{"Escape and Q", "app/Commands.cpp", "Form_KeyDown"},
    Addition{"Reload Stage", "app/Opening.cpp", "mnuReload_Click"},
    Addition{"The Pause key", "app/RunStage.cpp", "PollPauseKey"},
    Addition{"Space", "app/Commands.cpp", "PauseByKey"},
    Addition{"Shortcuts", "app/MenuTree.cpp", "ShortcutsOf"},
    Addition{"A key with Ctrl or Alt", "platform/qt/KeyTracker.cpp", "RepeatsModified"},
    Addition{"Access letters", "app/MenuTree.cpp", "captionWithAdditions"},
    Addition{"About", "app/MenuTree.cpp", "mnuAboutMenu"},
    Addition{"Exit and Find a Stage while a stage loads", "app/MenuTree.cpp", "whileLoading"},
    Addition{"A double click on the picture", "app/PictureMouse.cpp", "Form_DblClick"},
    Addition{"The wheel over the picture", "app/PictureMouse.cpp", "Form_MouseScroll"},
    Addition{"The middle button over the picture", "app/Panning.cpp", "Move"},
    Addition{"Camera to Its Start", "show/CameraMoves.cpp", "CameraToStart"},
    Addition{"Picture at 100 % to 400 %", "app/Layout.cpp", "ShowPictureTimes"},
    Addition{"A stage that opens while paused", "app/RunStage.cpp", "DrawOnce"},
    Addition{"A paused stage", "show/StageShow.cpp", "EditWhilePaused"},
    Addition{"A file that is no stage", "app/Opening.cpp", "IsStageAskedFor"},
    Addition{"The information line", "show/StageShow.cpp", "TellInfo"},
    Addition{"Music", "app/RunStage.cpp", "SilenceStageBefore"},
    Addition{"The dump", "editor/DataCheck.cpp", "WriteElement"},
    Addition{"The end of the music", "app/RunStage.cpp", "TuneMusic"},
    Addition{"`bgmloopstart`, `bgmloopend`, `bgmvolume`, `bgvolume`", "stage/StageKeys.cpp",
             "ReadMusicKeys"},
    Addition{"The camera's steps", "render/CameraControl.cpp", "StepUnitsOf"},
    Addition{"Many messages", "app/LoadMessages.cpp", "ShowBox"},
    Addition{"The sprite browser", "editor/SpriteBrowser.cpp", "ShowInBox"},
    Addition{"What the caption tells", "app/Commands.cpp", "EndNote"},
    Addition{"The title without a stage", "app/RunStage.cpp", "picLoad"},
    Addition{"The picture's size", "app/Commands.cpp", "PresentationWanted"},
    Addition{"The window's size and place", "app/Layout.cpp", "ComeUp"},
    Addition{"The window's least width", "platform/qt/MainWindow.cpp", "LeastWidth"},
    Addition{"The full screen", "app/FullScreen.cpp", "ModeOfFullScreen"},
    Addition{"Another program in front of the full screen", "app/RunStage.cpp",
             "WatchFocusWhilePaused"},
    Addition{"Full Screen without a stage", "app/MenuTree.cpp", "ToCover"},
    Addition{"Page Up, Page Down in the full screen", "app/Commands.cpp", "PageDown"},
    Addition{"A choice from the list while a stage loads", "app/Opening.cpp", "NoteChosen"},
    Addition{"Max FPS", "app/Commands.cpp", "AskForLimit"},
    Addition{"A stage that is left at once", "app/RunStage.cpp", "Rest"},
    Addition{"The list's stages", "app/StageFinder.cpp", "LookInto"},
    Addition{"The filter above the list", "app/ListEvents.cpp", "txtFilter_Change"},
    Addition{"Keys in the list", "app/ListEvents.cpp", "lstStages_Step"},
    Addition{"The mouse in the list", "app/ListEvents.cpp", "lstStages_Resize"},
    Addition{"The list's selection", "app/Opening.cpp", "SelectAskedFor"},
    Addition{"`<<` and `R` without a stage to go to", "app/Opening.cpp", "mnuStagePrev_Click"},
    Addition{"The status line", "app/Status.cpp", "StatusOf"},
    Addition{"Settings", "app/Saving.cpp", "SavesMeanwhile"},
    Addition{"The MUGEN folder", "app/StageList.cpp", "AskAtFirstStart"},
    Addition{"A list without stages", "app/StageList.cpp", "NoteEmptyList"},
    Addition{"What is dropped onto the window", "app/Given.cpp", "OpenGiven"},
    Addition{"A later start without a file", "main.cpp", "BringsTheFirstToTheFront"},
};

}  // namespace scenara
