// SPDX-License-Identifier: MIT
#include "app/MenuTree.h"

#include <algorithm>
#include <array>

#include "app/Keys.h"

namespace scenara {
namespace {

// When an item can be chosen.
enum class When : Byte {
    Always,
    Never,
    NotLoading,
    OnceShown,  // from the first stage on
    Plainly,    // the same, with additions off
    WithAdditions,
    OnceLoaded,   // with additions, from the first one on, even if it could not be shown
    WithStage,    // while one is there and nothing loads
    ToReload,     // once loaded; plain, always
    ToCover,      // with a stage; plain, from the first stage on
    WithZoom,     // while one is there whose camera zooms, or sprites that are
    WithPicture,  // with additions, with a stage
    WithCamera,   // with additions, while one is drawn
};

// When an item stands in its menu.
enum class Shows : Byte {
    Always,
    Plainly,  // with additions off
    WithAdditions,
    OnceFilesAreKnown,  // from the first recent file on, which shows it (RecentFiles.h)
};

constexpr bool kChecked = true;
constexpr bool kUnchecked = false;
constexpr bool kLeaves = true;
constexpr bool kStays = false;
constexpr const char* kUseTestChar = "&Use Test Char";

// The whole menu, in the order of Menu: "&" stands before the access letter.
struct Designed {
    Menu menu = Menu::mnuStage;
    MenuPlace place = MenuPlace::Bar;
    const char* caption = "";
    When when = When::Always;
    bool leaves = false;  // choosing it may leave the stage that is shown
    bool checked = false;
    Shows shows = Shows::Always;
    const char* captionWithAdditions = nullptr;  // where it is another one
};

// An item that only additions have.
constexpr Designed Added(Menu menu, MenuPlace place, const char* caption,
                         When when = When::WithAdditions) {
    return {menu, place, caption, when, kStays, kUnchecked, Shows::WithAdditions};
}

constexpr std::array<Designed, kMenuCount> kDesign = {{
    {Menu::mnuStage, MenuPlace::Bar, "&Stage", When::NotLoading},
    {Menu::mnuOpen, MenuPlace::Stage, "&Open", When::Always, kLeaves},
    {Menu::mnuClose, MenuPlace::Stage, "&Close", When::Always, kLeaves},
    {Menu::mnuReset, MenuPlace::Stage, "&Reset Stage", When::Never},
    {Menu::mnuReload, MenuPlace::Stage, "Re&load Stage", When::ToReload, kLeaves},
    {Menu::MnuRecentFiles, MenuPlace::Stage, "-", When::Always, kStays, kUnchecked,
     Shows::OnceFilesAreKnown},
    Added(Menu::mnubla, MenuPlace::Stage, "-", When::Always),
    {Menu::mnuExit, MenuPlace::Stage, "&Exit", When::Always, kLeaves},
    {Menu::mnuOptions, MenuPlace::Bar, "&Options", When::NotLoading},
    {Menu::mnuFS, MenuPlace::Options, "&Full Screen (ESC to exit)", When::ToCover},
    {Menu::mnuMusic, MenuPlace::Options, "&Music", When::Always, kStays, kChecked},
    {Menu::mnuChar, MenuPlace::Options, kUseTestChar, When::OnceShown},
    {Menu::mnuChange, MenuPlace::Options, "&Change Char", When::OnceShown},
    {Menu::mnuFPS, MenuPlace::Options, "FPS &Limiter", When::Always, kStays, kChecked},
    {Menu::mnuInfo, MenuPlace::Options, "Show &Info"},
    {Menu::mnuMScroll, MenuPlace::Options, "Mouse &Scroll", When::OnceShown},
    {Menu::mnuDeform, MenuPlace::Options, "&Deform", When::Plainly},
    {Menu::mnuDebugBG, MenuPlace::Options, "De&bug BG", When::OnceShown},
    {Menu::mnuPause, MenuPlace::Bar, "&Pause"},
    {Menu::mnuStageList, MenuPlace::Bar, "&Stage List", When::Always, kStays, kUnchecked,
     Shows::Always, "Stage &List"},
    {Menu::mnuStagePrev, MenuPlace::Bar, "<<", When::NotLoading, kLeaves},
    {Menu::mnuStageNext, MenuPlace::Bar, ">>", When::NotLoading, kLeaves},
    {Menu::mnuR, MenuPlace::Bar, "R", When::NotLoading, kLeaves},
    {Menu::mnuDebug, MenuPlace::Bar, "&Debug", When::WithStage},
    {Menu::mnuAbout, MenuPlace::Bar, "&About", When::Always, kStays, kUnchecked, Shows::Plainly},
    Added(Menu::mnuAboutMenu, MenuPlace::Bar, "&About"),
    Added(Menu::mnuKeys, MenuPlace::About, "&Keys..."),
    Added(Menu::mnuAboutBox, MenuPlace::About, "&About Scenara..."),
    {Menu::mnuExtras, MenuPlace::Bar, "E&xtras", When::NotLoading},
    {Menu::mnuAdditions, MenuPlace::Extras, "&Additions", When::Always, kStays, kChecked},
    {Menu::mnuSmooth, MenuPlace::Extras, "S&mooth", When::WithAdditions},
    {Menu::mnuWholeMultiples, MenuPlace::Extras, "&Whole Multiples Only", When::WithAdditions},
    {Menu::mnuExtrasScreen, MenuPlace::Extras, "-"},
    {Menu::mnuMugenFolder, MenuPlace::Extras, "MUGEN Fo&lder...", When::WithAdditions},
    Added(Menu::mnuFind, MenuPlace::Extras, "&Find a Stage"),
    {Menu::mnuSwitchMode, MenuPlace::Extras, "Switch &Display Mode", When::WithAdditions},
    {Menu::mnuExtrasProblems, MenuPlace::Extras, "-"},
    {Menu::mnuProblems, MenuPlace::Extras, "&Problems...", When::OnceLoaded},
    Added(Menu::mnuExtrasPicture, MenuPlace::Extras, "-"),
    Added(Menu::mnuPicture100, MenuPlace::Extras, "Picture at &100 %", When::WithPicture),
    Added(Menu::mnuPicture200, MenuPlace::Extras, "Picture at &200 %", When::WithPicture),
    Added(Menu::mnuPicture300, MenuPlace::Extras, "Picture at &300 %", When::WithPicture),
    Added(Menu::mnuPicture400, MenuPlace::Extras, "Picture at &400 %", When::WithPicture),
    {Menu::mnuExtrasZoom, MenuPlace::Extras, "-"},
    {Menu::mnuZoomIn, MenuPlace::Extras, "Zoom &In", When::WithZoom},
    {Menu::mnuZoomOut, MenuPlace::Extras, "Zoom &Out", When::WithZoom},
    {Menu::mnuZoomStart, MenuPlace::Extras, "Zoom as at the &Start", When::WithZoom, kStays,
     kUnchecked, Shows::Always, "&Zoom as at the Start"},
    Added(Menu::mnuCameraStart, MenuPlace::Extras, "Cam&era to Its Start", When::WithCamera),
}};

// Those that keys choose in the full screen.
constexpr std::array kInFullScreen = {Menu::mnuReload,     Menu::mnuExit,    Menu::mnuFS,
                                      Menu::mnuZoomIn,     Menu::mnuZoomOut, Menu::mnuZoomStart,
                                      Menu::mnuCameraStart};

// What decides it.
struct Now {
    ShowState state = ShowState::None;
    bool hasShown = false;
    bool hasLoaded = false;
    bool additions = false;
    bool zooms = false;
};

bool IsEnabled(When when, const Now& now) {
    switch (when) {
        case When::Always: return true;
        case When::Never: return false;
        case When::NotLoading: return now.state != ShowState::Loading;
        case When::OnceShown: return now.hasShown;
        case When::Plainly: return now.hasShown && !now.additions;
        case When::WithAdditions: return now.additions;
        case When::OnceLoaded: return now.additions && now.hasLoaded;
        case When::WithZoom: return now.zooms;
        case When::WithStage:
            return now.state != ShowState::Loading && now.state != ShowState::None;
        case When::WithPicture: return now.additions && IsEnabled(When::WithStage, now);
        case When::WithCamera:
            return now.additions &&
                   (now.state == ShowState::Running || now.state == ShowState::Paused);
        case When::ToReload: return IsEnabled(now.additions ? When::OnceLoaded : When::Always, now);
        case When::ToCover:
            return IsEnabled(now.additions ? When::WithStage : When::OnceShown, now);
    }
    return false;
}

bool IsShown(Shows shows, bool additions) {
    return shows == Shows::Always || (shows == Shows::WithAdditions) == additions;
}

// What the additions change of an item beyond its state.
void Dress(MenuItem& item, const Designed& designed, bool additions) {
    if (designed.captionWithAdditions != nullptr) {
        item.caption = additions ? designed.captionWithAdditions : designed.caption;
    }
    if (designed.shows != Shows::OnceFilesAreKnown) {
        item.visible = IsShown(designed.shows, additions);
    }
    item.shortcuts = ShortcutsOf(designed.menu, additions);
    item.inFullScreen = std::ranges::find(kInFullScreen, designed.menu) != kInFullScreen.end();
    item.whileLoading =
        additions && (designed.menu == Menu::mnuExit || designed.menu == Menu::mnuFind);
    item.tip = additions && designed.menu == Menu::mnuPause ? "Space" : "";
}

}  // namespace

void DesignMenus(Form& form) {
    for (const Designed& designed : kDesign) {
        MenuItem& item = form[designed.menu];
        item.caption = designed.caption;
        item.place = designed.place;
        item.leaves = designed.leaves;
        item.checked = designed.checked;
        item.visible = designed.shows != Shows::OnceFilesAreKnown;
    }
    EnableMenus(form, ShowState::None, false, false);
}

void EnableMenus(Form& form, ShowState state, bool hasShown, bool zooms) {
    const Now now{state, hasShown, form.problems.HasBegun(), form[Menu::mnuAdditions].checked,
                  zooms};
    for (const Designed& designed : kDesign) {
        form[designed.menu].enabled = IsEnabled(designed.when, now);
        Dress(form[designed.menu], designed, now.additions);
    }
}

void NameCharacter(Form& form, const std::string& name) {
    form[Menu::mnuChar].caption = "Use " + name;
    form[Menu::mnuChar].isLiteral = true;
}

void UnnameCharacter(Form& form) {
    form[Menu::mnuChar].caption = kUseTestChar;
    form[Menu::mnuChar].isLiteral = false;
}

bool CanBeChosen(const Form& form, Menu item) {
    if (!form[item].enabled || !form[item].visible) {
        return false;
    }
    if (form[item].whileLoading) {
        return true;
    }
    switch (form[item].place) {
        case MenuPlace::Stage: return form[Menu::mnuStage].enabled;
        case MenuPlace::Options: return form[Menu::mnuOptions].enabled;
        case MenuPlace::About: return form[Menu::mnuAboutMenu].enabled;
        case MenuPlace::Extras: return form[Menu::mnuExtras].enabled;
        case MenuPlace::Bar: break;
    }
    return true;
}

}  // namespace scenara
