// SPDX-License-Identifier: MIT
#include "app/MenuTree.h"

namespace scenara {
namespace {

struct Designed {
    Menu menu = Menu::mnuStage;
    const char* caption = "";
    MenuPlace place = MenuPlace::Bar;
    bool enabled = true;
    bool checked = false;
    bool visible = true;
};

constexpr bool kDisabled = false;
constexpr const char* kUseTestChar = "&Use Test Char";

// In the order of Menu.
constexpr std::array<Designed, kMenuCount> kDesign = {{
    {Menu::mnuStage, "&Stage", MenuPlace::Bar},
    {Menu::mnuOpen, "&Open", MenuPlace::Stage},
    {Menu::mnuClose, "&Close", MenuPlace::Stage},
    {Menu::mnuReset, "&Reset Stage", MenuPlace::Stage, kDisabled},
    {Menu::mnuReload, "Re&load Stage", MenuPlace::Stage},
    {Menu::MnuRecentFiles, "-", MenuPlace::Stage, true, false, false},
    {Menu::mnubla, "-", MenuPlace::Stage, true, false, false},
    {Menu::mnuExit, "&Exit", MenuPlace::Stage},
    {Menu::mnuOptions, "&Options", MenuPlace::Bar},
    {Menu::mnuFS, "&Full Screen (ESC to exit)", MenuPlace::Options, kDisabled},
    {Menu::mnuMusic, "&Music", MenuPlace::Options, true, true},
    {Menu::mnuChar, kUseTestChar, MenuPlace::Options, kDisabled},
    {Menu::mnuChange, "&Change Char", MenuPlace::Options, kDisabled},
    {Menu::mnuFPS, "FPS &Limiter", MenuPlace::Options, true, true},
    {Menu::mnuInfo, "Show &Info", MenuPlace::Options},
    {Menu::mnuMScroll, "Mouse &Scroll", MenuPlace::Options, kDisabled},
    {Menu::mnuDeform, "&Deform", MenuPlace::Options, kDisabled},
    {Menu::mnuDebugBG, "De&bug BG", MenuPlace::Options, kDisabled},
    {Menu::mnuPause, "&Pause", MenuPlace::Bar},
    {Menu::mnuStageList, "&Stage List", MenuPlace::Bar},
    {Menu::mnuStagePrev, "<<", MenuPlace::Bar},
    {Menu::mnuStageNext, ">>", MenuPlace::Bar},
    {Menu::mnuR, "R", MenuPlace::Bar},
    {Menu::mnuDebug, "&Debug", MenuPlace::Bar, kDisabled},
    {Menu::mnuAbout, "&About", MenuPlace::Bar},
    {Menu::mnuExtras, "E&xtras", MenuPlace::Bar},
    {Menu::mnuAdditions, "&Additions", MenuPlace::Extras, true, true},
}};

}  // namespace

void DesignMenus(Form& form) {
    for (const Menu item : {Menu::mnuOpen, Menu::mnuClose, Menu::mnuReload, Menu::mnuExit,
                            Menu::mnuStagePrev, Menu::mnuStageNext, Menu::mnuR}) {
        form[item].leaves = true;
    }
    for (const Designed& designed : kDesign) {
        MenuItem& item = form[designed.menu];
        item.caption = designed.caption;
        item.place = designed.place;
        item.enabled = designed.enabled;
        item.checked = designed.checked;
        item.visible = designed.visible;
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

void EnableLoadingMenus(Form& form, bool enabled) {
    for (const Menu item : {Menu::mnuOptions, Menu::mnuStage, Menu::mnuStagePrev,
                            Menu::mnuStageNext, Menu::mnuR, Menu::mnuExtras}) {
        form[item].enabled = enabled;
    }
}

}  // namespace scenara
