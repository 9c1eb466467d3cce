// SPDX-License-Identifier: MIT
//
// Form: the main window's controls as plain state. The program owns it and is always right about
// what is checked, enabled or listed; a machine shows it and sends events back (FormEvents).
//
// Sizes and places are in pixels, from the upper left corner of the window's inner area.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Integers.h"
#include "base/NotCopied.h"
#include "platform/Keyboard.h"
#include "platform/Presentation.h"
#include "platform/ProblemList.h"
#include "platform/View.h"

namespace scenara {

// The items of the menu bar and its submenus, in their order.
enum class Menu : Byte {
    mnuStage,
    mnuOpen,
    mnuClose,
    mnuReset,
    mnuReload,
    MnuRecentFiles,  // a separator; the recent files stand behind it
    mnubla,          // a separator
    mnuExit,
    mnuOptions,
    mnuFS,
    mnuMusic,
    mnuChar,
    mnuChange,
    mnuFPS,
    mnuInfo,
    mnuMScroll,
    mnuDeform,
    mnuDebugBG,
    mnuPause,
    mnuStageList,
    mnuStagePrev,
    mnuStageNext,
    mnuR,
    mnuDebug,
    mnuAbout,
    mnuAboutMenu,  // in its place, with more than it
    mnuKeys,
    mnuAboutBox,
    mnuExtras,  // what has been added since
    mnuAdditions,
    mnuSmooth,
    mnuWholeMultiples,
    mnuExtrasScreen,  // a separator
    mnuMugenFolder,
    mnuFind,
    mnuSwitchMode,
    mnuExtrasProblems,  // a separator
    mnuProblems,
    mnuExtrasPicture,  // a separator
    mnuPicture100,     // so many per cent of its own size
    mnuPicture200,
    mnuPicture300,
    mnuPicture400,
    mnuExtrasZoom,  // a separator
    mnuZoomIn,
    mnuZoomOut,
    mnuZoomStart,
    mnuCameraStart,
};
inline constexpr std::size_t kMenuCount = static_cast<std::size_t>(Menu::mnuCameraStart) + 1;

// Where an item stands: in the bar itself, or in one of the submenus.
enum class MenuPlace : Byte { Bar, Stage, Options, About, Extras };

struct MenuItem {
    std::string caption;  // "&" stands before the access letter; "-" alone is a separator
    std::vector<std::string> shortcuts;  // keys that choose it; the first one is shown with it
    std::string tip;         // shown over an item of the bar while the pointer rests there
    bool isLiteral = false;  // no access letter: every sign of the caption is one that is shown
    MenuPlace place = MenuPlace::Bar;
    bool checked = false;
    bool enabled = true;
    bool visible = true;
    bool leaves = false;        // choosing it may leave the stage that is shown
    bool inFullScreen = false;  // its keys choose it there, too
    bool whileLoading = false;  // its keys choose it although its menu cannot be opened

    // Checks it, or no longer; whether it is checked now.
    bool Flip() { return checked = !checked; }
};

struct PictureBox {
    Long left = 0;
    Long top = 0;
    Long width = 0;
    Long height = 0;
    bool visible = true;
};

// What the keys are for: the picture has them unless the list or its filter does.
enum class KeyOwner : Byte { Picture, List, Filter };

struct ListBox {
    // What is known of an item beside its text.
    struct Detail {
        std::string file;
        std::string tip;
        bool isDimmed = false;  // it cannot be opened; steps pass over it
    };

    std::vector<std::string> items;
    std::vector<Detail> details;  // of each item, or empty
    std::uint32_t filled = 0;     // how often it was filled anew: other items, perhaps as many
    std::uint32_t detailed = 0;   // how often the details were
    Long ListIndex = -1;          // the selected item; -1: none
    bool takesKeys = true;        // else keys pass it by, whatever has the focus
    // Addition: keys step through it, letters select in it, it has a filter above it, a menu for
    // each item, and an edge that can be dragged.
    bool browses = false;
    std::string filter;     // the words in there
    std::size_t total = 0;  // how many items it has without one
    bool isCut = false;     // there are more than can be listed
    std::string note;       // stands in it while it is empty
    // Where the keys went when the program moved them last, and how often it has.
    KeyOwner keysAt = KeyOwner::Picture;
    std::uint32_t keysMoved = 0;
    void MoveKeys(KeyOwner place) {
        keysAt = place;
        ++keysMoved;
    }
    Long left = 0;
    Long top = 0;
    Long width = 0;
    Long height = 0;
    bool visible = false;
};

// Stands outside of the inner area, below it.
struct ScrollBar {
    Long Min = 0;
    Long Max = 0;
    Long Value = 0;
    bool Visible = false;
};

// A line below the inner area, and outside of it, like the bars: what is shown. Each text may be
// empty: there is nothing of it then.
struct StatusBar {
    bool visible = false;
    std::string stages;  // how many there are to choose from; while none is shown, and alone
    std::string name;    // of the stage, as its author has it
    std::string author;
    std::string canvas;       // the picture's own size
    std::string archivePath;  // of its sprites, as it was opened
    std::string archive;      // the same without its folder
    std::string version;      // of its format
    std::string problems;     // how many; choosing it lists them

    friend bool operator==(const StatusBar&, const StatusBar&) = default;
};

struct Form {
    std::string title;    // the program's; boxes that have none of their own carry it
    std::string Caption;  // the window's
    std::array<MenuItem, kMenuCount> menus;
    // Paths behind the item MnuRecentFiles, newest first; menu entry k is recentFiles[k - 1].
    std::vector<std::string> recentFiles;
    Long innerWidth = 0;  // pixels of the window, without its menu bar and borders
    Long innerHeight = 0;
    PictureBox picDraw;         // where the stage is drawn
    Presentation presentation;  // of the canvas, in picDraw and full screen
    PictureBox picLoad;         // the picture that is shown before a stage is open
    std::string titleNote;      // stands in it, in lines broken by CR LF; empty: how to begin
    ListBox lstStages;
    ScrollBar hscHScroll;  // the camera
    ScrollBar hscSGFX;     // the sprite browser
    StatusBar statusBar;
    std::optional<ViewFrame> selection;  // shown over the picture
    ProblemList problems;                // of the stage that was loaded last, or could not be

    [[nodiscard]] MenuItem& operator[](Menu item) { return menus[static_cast<std::size_t>(item)]; }
    [[nodiscard]] const MenuItem& operator[](Menu item) const {
        return menus[static_cast<std::size_t>(item)];
    }
};

// What the user does to the window. A machine notes events as they come and hands them over, one
// by one, when the program lets messages through; never from inside of its own handlers.
class FormEvents : NotCopied {
public:
    virtual ~FormEvents() = default;

    virtual void Form_Activate() = 0;
    // The window's inner area has another size now.
    virtual void Form_Resize(Long innerWidth, Long innerHeight) = 0;
    // The window is to close.
    virtual void Form_Unload() = 0;
    // All that has happened so far is handed over: asked after each time that messages were let
    // through, and a few times a second while a box or a dialog is open. True: to be asked again in
    // a quarter of a second, though nothing happens until then.
    virtual bool Form_Idle() = 0;
    // A key has gone down; once per press.
    virtual void Form_KeyDown(VirtualKey key) = 0;
    // Files and folders have been dropped onto the window.
    virtual void Form_OLEDragDrop(const std::vector<std::string>& paths) = 0;
    // They were named when the program was started, or started again.
    virtual void Form_Given(const std::vector<std::string>& paths) = 0;
    virtual void Menu_Click(Menu item) = 0;
    // One of the recent files, counted from 1.
    virtual void MnuRecentFiles_Click(Long index) = 0;
    // The user has selected an item, perhaps the one that was selected already.
    virtual void lstStages_Click(Long index) = 0;
    // Additions, of the list that browses. So many items on, below 0 back; as far as there are any.
    virtual void lstStages_Step(Long steps) = 0;
    // Letters have found this item: it is selected, and not opened yet.
    virtual void lstStages_Mark(Long index) = 0;
    // The keys have left the list or its filter: what was only marked counts no more.
    virtual void lstStages_Leave() = 0;
    // Its edge has been dragged: so wide, in pixels.
    virtual void lstStages_Resize(Long width) = 0;
    // From an item's menu, by its file.
    virtual void lstStages_OpenFolder(const std::string& file) = 0;
    virtual void lstStages_CopyPath(const std::string& file) = 0;
    // Other words stand in the filter; Enter has been pressed there.
    virtual void txtFilter_Change(const std::string& words) = 0;
    virtual void txtFilter_Enter() = 0;
    // The left button over the stage's picture; pixels of the view, or of what fills the picture's
    // box (Window::FillBox).
    virtual void Form_MouseDown(Long x, Long y) = 0;
    virtual void Form_MouseMove(Long x, Long y) = 0;
    virtual void Form_MouseUp() = 0;
    // The left button twice over the stage's picture, after the second Form_MouseDown.
    virtual void Form_DblClick() = 0;
    // The wheel over the stage's picture, by so many notches to the right and down.
    virtual void Form_MouseScroll(Long across, Long down) = 0;
    // The middle button over the stage's picture; pixels of the view.
    virtual void Form_MiddleDown(Long x, Long y) = 0;
    virtual void Form_MiddleMove(Long x, Long y) = 0;
    virtual void Form_MiddleUp() = 0;
    // The wheel over what fills the picture's box, by so many notches, forwards above 0, with the
    // pointer there.
    virtual void Form_MouseWheel(Long notches, Long x, Long y) = 0;
    // The bar stands at another value; _Scroll while its thumb is dragged.
    virtual void hscHScroll_Change(Long value) = 0;
    virtual void hscSGFX_Change(Long value) = 0;
    virtual void hscSGFX_Scroll(Long value) = 0;
};

}  // namespace scenara
