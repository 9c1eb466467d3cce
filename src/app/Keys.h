// SPDX-License-Identifier: MIT
//
// Keys: every key that does something, in one table. The menus take their shortcuts from it, and
// the page of keys is made of it. It holds with additions.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/Form.h"
#include "platform/KeyPage.h"
#include "platform/Keyboard.h"

namespace scenara {

// Where a key holds; in the order of the page.
enum class KeyPlace : Byte { Anywhere, Picture, List, FullScreen, Editing, Browser };

// Who answers to it.
enum class KeyTaker : Byte {
    Item,    // chooses an item of the menus
    Polled,  // known by the keyboard, unless what has the focus has a use for it
    Widget,  // the part of the window that has the focus, or that the pointer is over
};

struct Key {
    KeyPlace place = KeyPlace::Anywhere;
    // As users are told of it; of an item as the machine takes it, too: "Ctrl+R".
    const char* name = "";
    // Neighbours with the same words are one line of the page.
    const char* does = "";
    KeyTaker taker = KeyTaker::Widget;
    Menu item = Menu::mnuStage;           // of KeyTaker::Item
    VirtualKey key = VirtualKey::Escape;  // of KeyTaker::Polled
    bool plainToo = false;                // of an item: its shortcut without additions as well
};

[[nodiscard]] std::span<const Key> AllKeys();

// The shortcuts of an item, the one to be shown first.
[[nodiscard]] std::vector<std::string> ShortcutsOf(Menu item, bool additions);

// All keys, line by line.
[[nodiscard]] KeyPage PageOfKeys();

}  // namespace scenara
