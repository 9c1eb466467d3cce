// SPDX-License-Identifier: MIT
//
// The menus as they are designed, with additions and without.
#include "app/MenuTree.h"

#include <cctype>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MenusDesigned : public testing::Test {
protected:
    MenusDesigned() { DesignMenus(form); }

    void SetAdditions(bool on) {
        form[Menu::mnuAdditions].checked = on;
        EnableMenus(form, ShowState::None, false, false);
    }
    // Those that are seen there, "|" for a line.
    [[nodiscard]] std::vector<std::string> SeenIn(MenuPlace place) const {
        std::vector<std::string> seen;
        for (const MenuItem& item : form.menus) {
            if (item.place == place && item.visible) {
                seen.push_back(item.caption == "-" ? "|" : item.caption);
            }
        }
        return seen;
    }
    // With as many as there may be.
    [[nodiscard]] std::map<std::string, std::vector<std::string>> Shortcuts() const {
        std::map<std::string, std::vector<std::string>> all;
        for (const MenuItem& item : form.menus) {
            if (!item.shortcuts.empty()) {
                all[item.caption] = item.shortcuts;
            }
        }
        return all;
    }

    Form form;
};

TEST_F(MenusDesigned, NoLetterStandsTwiceInAMenuWithAdditions) {
    for (const MenuPlace place : {MenuPlace::Bar, MenuPlace::Stage, MenuPlace::Options,
                                  MenuPlace::About, MenuPlace::Extras}) {
        std::set<char> letters;
        int lettered = 0;
        for (const std::string& caption : SeenIn(place)) {
            const std::size_t at = caption.find('&');
            if (at != std::string::npos) {
                ++lettered;
                const int letter = static_cast<unsigned char>(caption.at(at + 1));
                EXPECT_TRUE(letters.insert(static_cast<char>(std::tolower(letter))).second)
                    << caption;
            }
        }
        EXPECT_GT(lettered, 1);
    }
}

TEST_F(MenusDesigned, NoShortcutStandsTwice) {
    std::set<std::string> seen;
    for (const auto& [caption, shortcuts] : Shortcuts()) {
        for (const std::string& shortcut : shortcuts) {
            EXPECT_TRUE(seen.insert(shortcut).second) << shortcut << ", " << caption;
        }
    }
    EXPECT_GT(seen.size(), 10U);
}

TEST_F(MenusDesigned, HaveShortcutsWithAdditions) {
    const std::map<std::string, std::vector<std::string>> expected = {
        {"&Open", {"Ctrl+O"}},
        {"Re&load Stage", {"Ctrl+R", "F5"}},
        {"&Exit", {"Ctrl+Q"}},
        {"&Full Screen (ESC to exit)", {"F11"}},
        {"&Find a Stage", {"Ctrl+F"}},
        {"Picture at &100 %", {"Ctrl+1"}},
        {"Picture at &200 %", {"Ctrl+2"}},
        {"Picture at &300 %", {"Ctrl+3"}},
        {"Picture at &400 %", {"Ctrl+4"}},
        {"Zoom &In", {"Ctrl++", "Ctrl+="}},
        {"Zoom &Out", {"Ctrl+-"}},
        {"&Zoom as at the Start", {"Ctrl+0"}},
        {"Cam&era to Its Start", {"Home"}},
    };
    EXPECT_EQ(Shortcuts(), expected);
    EXPECT_EQ(form[Menu::mnuPause].tip, "Space");
    SetAdditions(false);
    const std::map<std::string, std::vector<std::string>> plain = {
        {"Zoom &In", {"Ctrl++", "Ctrl+="}},
        {"Zoom &Out", {"Ctrl+-"}},
        {"Zoom as at the &Start", {"Ctrl+0"}},
    };
    EXPECT_EQ(Shortcuts(), plain);
    EXPECT_EQ(form[Menu::mnuPause].tip, "");
    SetAdditions(true);
    EXPECT_EQ(Shortcuts(), expected);
}

TEST_F(MenusDesigned, TheBarHasAboutAsAMenuWithAdditionsAndPlainlyAsAnItem) {
    const std::vector<std::string> extended = {"&Stage", "&Options", "&Pause", "Stage &List",
                                               "<<",     ">>",       "R",      "&Debug",
                                               "&About", "E&xtras"};
    EXPECT_EQ(SeenIn(MenuPlace::Bar), extended);
    EXPECT_TRUE(form[Menu::mnuAboutMenu].visible);
    EXPECT_THAT(SeenIn(MenuPlace::About), ElementsAre("&Keys...", "&About Scenara..."));
    SetAdditions(false);
    EXPECT_THAT(SeenIn(MenuPlace::Bar),
                ElementsAre("&Stage", "&Options", "&Pause", "&Stage List", "<<", ">>", "R",
                            "&Debug", "&About", "E&xtras"));
    EXPECT_TRUE(form[Menu::mnuAbout].visible);
    EXPECT_THAT(SeenIn(MenuPlace::About), IsEmpty());
    EXPECT_FALSE(CanBeChosen(form, Menu::mnuKeys));
    EXPECT_FALSE(CanBeChosen(form, Menu::mnuFind));
}

TEST_F(MenusDesigned, ExtrasAreInGroups) {
    EXPECT_THAT(SeenIn(MenuPlace::Extras),
                ElementsAre("&Additions", "S&mooth", "&Whole Multiples Only", "|",
                            "MUGEN Fo&lder...", "&Find a Stage", "Switch &Display Mode", "|",
                            "&Problems...", "|", "Picture at &100 %", "Picture at &200 %",
                            "Picture at &300 %", "Picture at &400 %", "|", "Zoom &In", "Zoom &Out",
                            "&Zoom as at the Start", "Cam&era to Its Start"));
    SetAdditions(false);
    EXPECT_THAT(SeenIn(MenuPlace::Extras),
                ElementsAre("&Additions", "S&mooth", "&Whole Multiples Only", "|",
                            "MUGEN Fo&lder...", "Switch &Display Mode", "|", "&Problems...", "|",
                            "Zoom &In", "Zoom &Out", "Zoom as at the &Start"));
}

TEST_F(MenusDesigned, ALineStandsAboveExitWithAdditions) {
    EXPECT_THAT(SeenIn(MenuPlace::Stage),
                ElementsAre("&Open", "&Close", "&Reset Stage", "Re&load Stage", "|", "&Exit"));
    form[Menu::MnuRecentFiles].visible = true;  // as the first recent file has it
    SetAdditions(false);
    EXPECT_THAT(SeenIn(MenuPlace::Stage),
                ElementsAre("&Open", "&Close", "&Reset Stage", "Re&load Stage", "|", "&Exit"));
    EXPECT_FALSE(form[Menu::mnubla].visible);
    SetAdditions(true);
    EXPECT_TRUE(form[Menu::MnuRecentFiles].visible);
    EXPECT_TRUE(form[Menu::mnubla].visible);
}

TEST_F(MenusDesigned, CanBeChosenInTheirState) {
    struct Row {
        Menu item;
        std::vector<ShowState> states;
    };
    const std::vector<ShowState> all = {ShowState::None, ShowState::Loading, ShowState::Running,
                                        ShowState::Paused, ShowState::Browsing};
    const Row rows[] = {
        {Menu::mnuExit, all},
        {Menu::mnuKeys, all},
        {Menu::mnuAboutBox, all},
        {Menu::mnuFind, all},
        {Menu::mnuPicture100, {ShowState::Running, ShowState::Paused, ShowState::Browsing}},
        {Menu::mnuPicture400, {ShowState::Running, ShowState::Paused, ShowState::Browsing}},
        {Menu::mnuCameraStart, {ShowState::Running, ShowState::Paused}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(form[row.item].caption);
        std::vector<ShowState> choosable;
        for (const ShowState state : all) {
            EnableMenus(form, state, true, false);
            if (CanBeChosen(form, row.item)) {
                choosable.push_back(state);
            }
        }
        EXPECT_EQ(choosable, row.states);
    }
    form[Menu::mnuAdditions].checked = false;
    EnableMenus(form, ShowState::Loading, true, false);
    EXPECT_FALSE(CanBeChosen(form, Menu::mnuExit)) << "plain, its menu is off";
    EnableMenus(form, ShowState::Running, true, false);
    for (const Menu item :
         {Menu::mnuFind, Menu::mnuPicture100, Menu::mnuCameraStart, Menu::mnuAboutBox}) {
        EXPECT_FALSE(CanBeChosen(form, item));
    }
}

}  // namespace
}  // namespace scenara::test
