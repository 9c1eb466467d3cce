// SPDX-License-Identifier: MIT
//
// The table of keys: none stands for two things, each does something, and the page has them all.
#include "app/Keys.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/MenuTree.h"
#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::Contains;

// --- the table ---

TEST(TableOfKeys, NoneStandsTwiceAtAPlace) {
    std::set<std::pair<KeyPlace, std::string>> seen;
    for (const Key& key : AllKeys()) {
        EXPECT_TRUE(seen.insert({key.place, key.name}).second) << key.name;
        EXPECT_STRNE(key.does, "") << key.name;
    }
}

TEST(TableOfKeys, NoneIsBothAShortcutAndPolled) {
    std::set<std::string> shortcuts;
    std::map<std::string, VirtualKey> polled;
    for (const Key& key : AllKeys()) {
        if (key.taker == KeyTaker::Item) {
            EXPECT_TRUE(shortcuts.insert(key.name).second) << key.name;
        } else if (key.taker == KeyTaker::Polled) {
            EXPECT_EQ(polled.try_emplace(key.name, key.key).first->second, key.key) << key.name;
        }
    }
    for (const auto& each : polled) {
        EXPECT_FALSE(shortcuts.contains(each.first)) << each.first;
    }
}

TEST(TableOfKeys, TheMenusHaveTheirShortcutsFromIt) {
    Form form;
    DesignMenus(form);
    std::set<std::string> inMenus;
    for (const MenuItem& item : form.menus) {
        inMenus.insert(item.shortcuts.begin(), item.shortcuts.end());
    }
    std::set<std::string> inTable;
    for (const Key& key : AllKeys()) {
        if (key.taker == KeyTaker::Item) {
            inTable.insert(key.name);
            EXPECT_THAT(form[key.item].shortcuts, Contains(key.name));
        }
    }
    EXPECT_EQ(inMenus, inTable);
}

// --- the page ---

TEST(PageOfKeys, HasEveryKeyAtItsPlaceWithWhatItDoes) {
    const KeyPage page = PageOfKeys();
    std::vector<std::string> titles;
    for (const KeyPageGroup& group : page) {
        titles.push_back(group.title);
    }
    EXPECT_THAT(titles,
                testing::ElementsAre("Anywhere", "Camera and picture", "Stage list and filter",
                                     "Full screen", "Debug BG", "Sprite browser"));
    for (const Key& key : AllKeys()) {
        const KeyPageGroup& group = page.at(static_cast<std::size_t>(key.place));
        const bool isThere = std::ranges::any_of(group.lines, [&](const KeyPageLine& line) {
            const std::string padded = ", " + line.keys + ",";
            return line.does == key.does &&
                   padded.find(", " + std::string(key.name) + ",") != std::string::npos;
        });
        EXPECT_TRUE(isThere) << key.name;
    }
}

TEST(PageOfKeys, WhatDoesTheSameIsOneLine) {
    for (const KeyPageGroup& group : PageOfKeys()) {
        std::set<std::string> does;
        for (const KeyPageLine& line : group.lines) {
            EXPECT_TRUE(does.insert(line.does).second) << line.does;
        }
    }
    EXPECT_EQ(PageOfKeys()[0].lines[1], (KeyPageLine{"Ctrl+R, F5", "loads the stage again"}));
}

// --- what they do ---

// All that a key may change, as text.
std::string StateOf(RunningStage& stage) {
    std::ostringstream text;
    text << stage.Begun() << ' ' << stage.dialogs.Asked().size() << ' '
         << int{stage.program.ShowStageList} << ' ' << int{stage.program.FullScreenState} << ' '
         << stage.window.Place().width << ' ' << stage.window.EndRequested() << ' '
         << int{stage.loop.Paused} << ' ' << stage.model.CamX << ' ' << stage.model.CamY << ' '
         << stage.model.CamZoom << ' ' << stage.show.CameraState().HCamStep << ' '
         << int{stage.show.SpriteBrowserMode} << ' ' << stage.show.Which.shown << ' '
         << stage.show.Editor().SelectedIndex() << ' ' << stage.model.ElementCount << ' '
         << stage.files.Has("/program/chek.txt") << ' ' << stage.Caption();
    for (const BackgroundElement& element : stage.model.Elements) {
        text << ' ' << element.layerno << element.name;
    }
    return text.str();
}

class EachKey : public Program {
protected:
    EachKey() {
        files.Put(kStageA,
                  "[Info]\nname = first\n[Camera]\nboundleft = -100\nboundright = 100\n"
                  "boundhigh = -50\nboundlow = 50\nzoomout = .5\nzoomin = 2\nstartzoom = 1\n"
                  "[BGdef]\nspr = stages/a.sff\n"
                  "[BG wall]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ntile = 1,1\n"
                  "[BG one]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ntile = 1,1\n"
                  "[BG two]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ntile = 1,1\n");
    }

    // Where the key holds.
    Act Enter(KeyPlace place) {
        return [this, place] {
            show.PutCamera({20, -10});
            window.SetWorkArea({2000, 1500});
            window.MoveTo({0, 0, 500 * kUnitsPerPixel, 400 * kUnitsPerPixel});
            show.ZoomTo(1.5);
            switch (place) {
                case KeyPlace::FullScreen:
                    Click(Menu::mnuFS);
                    program.lstStages_Click(1);  // there are others before and after it
                    break;
                case KeyPlace::Browser: Click(Menu::mnuDebug); break;
                case KeyPlace::Editing:
                    Click(Menu::mnuDebugBG);
                    program.Form_MouseDown(160, 100);
                    program.Form_MouseUp();
                    break;
                default: break;
            }
        };
    }

    void ExpectChange(const Key& key, const std::vector<Act>& deed) {
        SCOPED_TRACE(key.name);
        std::string before;
        std::vector<Act> acts = {Wait, Enter(key.place)};
        acts.resize(acts.size() + 30, Wait);  // the gate of the editor's keys opens
        acts.emplace_back([&] { before = StateOf(*this); });
        acts.insert(acts.end(), deed.begin(), deed.end());
        acts.insert(acts.end(), {Wait, Wait, [&] { EXPECT_NE(StateOf(*this), before); }});
        bool reached = false;
        acts.emplace_back([&] { reached = true; });
        WhileAIsShown(acts);
        EXPECT_TRUE(reached || window.EndRequested());
    }
};

class EachPolledKey : public EachKey, public testing::WithParamInterface<Key> {};

TEST_P(EachPolledKey, DoesSomethingWhereItHolds) {
    const Key& key = GetParam();
    ExpectChange(key, {[&] {
                           keyboard.Press(key.key);
                           program.Form_KeyDown(key.key);
                       },
                       Wait, Release(key.key)});
}

class EachShortcut : public EachKey, public testing::WithParamInterface<Key> {};

TEST_P(EachShortcut, ChoosesWhatDoesSomething) {
    const Key& key = GetParam();
    ExpectChange(key, {Choose(key.item)});
}

std::vector<Key> KeysOf(KeyTaker taker) {
    std::vector<Key> keys;
    for (const Key& key : AllKeys()) {
        // What Escape does in the list is the machine's.
        if (key.taker == taker && !(taker == KeyTaker::Polled && key.place == KeyPlace::List)) {
            keys.push_back(key);
        }
    }
    return keys;
}

std::string NameOf(const testing::TestParamInfo<Key>& row) {
    std::string name = row.param.name + std::to_string(row.index);
    std::ranges::replace(name, '+', 'p');
    std::ranges::replace(name, '-', 'm');
    std::ranges::replace(name, '=', 'e');
    std::erase(name, ' ');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Of, EachPolledKey, testing::ValuesIn(KeysOf(KeyTaker::Polled)), NameOf);
INSTANTIATE_TEST_SUITE_P(Of, EachShortcut, testing::ValuesIn(KeysOf(KeyTaker::Item)), NameOf);

}  // namespace
}  // namespace scenara::test
