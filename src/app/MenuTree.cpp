// SPDX-License-Identifier: MIT
#include "app/MenuTree.h"

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
    OnceLoaded,  // with additions, from the first one on, even if it could not be shown
    WithStage,   // while one is there and nothing loads
    ToReload,    // once loaded; plain, always
    ToCover,     // with a stage; plain, from the first stage on
    WithZoom,    // while one is there whose camera zooms, or sprites that are
};

constexpr bool kChecked = true;
constexpr bool kUnchecked = false;
constexpr bool kShown = true;
constexpr bool kHidden = false;
constexpr const char* kUseTestChar = "&Use Test Char";

// The whole menu, in the order of Menu: "&" stands before the access letter.
struct Designed {
    Menu menu = Menu::mnuStage;
    MenuPlace place = MenuPlace::Bar;
    const char* caption = "";
    When when = When::Always;
    bool leaves = false;  // choosing it may leave the stage that is shown
    bool checked = false;
    bool visible = true;
    std::array<const char*, 2> shortcuts = {};
};

constexpr bool kLeaves = true;
constexpr bool kStays = false;

constexpr std::array<Designed, kMenuCount> kDesign = {{
    {Menu::mnuStage, MenuPlace::Bar, "&Stage", When::NotLoading},
    {Menu::mnuOpen, MenuPlace::Stage, "&Open", When::Always, kLeaves},
    {Menu::mnuClose, MenuPlace::Stage, "&Close", When::Always, kLeaves},
    {Menu::mnuReset, MenuPlace::Stage, "&Reset Stage", When::Never},
    {Menu::mnuReload, MenuPlace::Stage, "Re&load Stage", When::ToReload, kLeaves},
    {Menu::MnuRecentFiles, MenuPlace::Stage, "-", When::Always, kStays, false, kHidden},
    {Menu::mnubla, MenuPlace::Stage, "-", When::Always, kStays, false, kHidden},
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
    {Menu::mnuStageList, MenuPlace::Bar, "&Stage List"},
    {Menu::mnuStagePrev, MenuPlace::Bar, "<<", When::NotLoading, kLeaves},
    {Menu::mnuStageNext, MenuPlace::Bar, ">>", When::NotLoading, kLeaves},
    {Menu::mnuR, MenuPlace::Bar, "R", When::NotLoading, kLeaves},
    {Menu::mnuDebug, MenuPlace::Bar, "&Debug", When::WithStage},
    {Menu::mnuAbout, MenuPlace::Bar, "&About"},
    {Menu::mnuExtras, MenuPlace::Bar, "E&xtras", When::NotLoading},
    {Menu::mnuAdditions, MenuPlace::Extras, "&Additions", When::Always, kStays, kChecked},
    {Menu::mnuSmooth, MenuPlace::Extras, "S&mooth", When::WithAdditions},
    {Menu::mnuWholeMultiples, MenuPlace::Extras, "&Whole Multiples Only", When::WithAdditions},
    {Menu::mnuExtrasScreen, MenuPlace::Extras, "-"},
    {Menu::mnuMugenFolder, MenuPlace::Extras, "MUGEN Fo&lder...", When::WithAdditions},
    {Menu::mnuSwitchMode, MenuPlace::Extras, "Switch &Display Mode", When::WithAdditions},
    {Menu::mnuExtrasProblems, MenuPlace::Extras, "-"},
    {Menu::mnuProblems, MenuPlace::Extras, "&Problems...", When::OnceLoaded},
    {Menu::mnuExtrasZoom, MenuPlace::Extras, "-"},
    {Menu::mnuZoomIn,
     MenuPlace::Extras,
     "Zoom &In",
     When::WithZoom,
     kStays,
     kUnchecked,
     kShown,
     {"Ctrl++", "Ctrl+="}},
    {Menu::mnuZoomOut,
     MenuPlace::Extras,
     "Zoom &Out",
     When::WithZoom,
     kStays,
     kUnchecked,
     kShown,
     {"Ctrl+-"}},
    {Menu::mnuZoomStart,
     MenuPlace::Extras,
     "Zoom as at the &Start",
     When::WithZoom,
     kStays,
     kUnchecked,
     kShown,
     {"Ctrl+0"}},
}};

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
        case When::ToReload: return IsEnabled(now.additions ? When::OnceLoaded : When::Always, now);
        case When::ToCover:
            return IsEnabled(now.additions ? When::WithStage : When::OnceShown, now);
    }
    return false;
}

}  // namespace

void DesignMenus(Form& form) {
    for (const Designed& designed : kDesign) {
        MenuItem& item = form[designed.menu];
        item.caption = designed.caption;
        item.place = designed.place;
        item.leaves = designed.leaves;
        item.checked = designed.checked;
        item.visible = designed.visible;
        for (const char* const shortcut : designed.shortcuts) {
            if (shortcut != nullptr) {
                item.shortcuts.emplace_back(shortcut);
            }
        }
    }
    EnableMenus(form, ShowState::None, false, false);
}

void EnableMenus(Form& form, ShowState state, bool hasShown, bool zooms) {
    const Now now{state, hasShown, form.problems.HasBegun(), form[Menu::mnuAdditions].checked,
                  zooms};
    for (const Designed& designed : kDesign) {
        form[designed.menu].enabled = IsEnabled(designed.when, now);
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
    switch (form[item].place) {
        case MenuPlace::Stage: return form[Menu::mnuStage].enabled;
        case MenuPlace::Options: return form[Menu::mnuOptions].enabled;
        case MenuPlace::Extras: return form[Menu::mnuExtras].enabled;
        case MenuPlace::Bar: break;
    }
    return true;
}

}  // namespace scenara
