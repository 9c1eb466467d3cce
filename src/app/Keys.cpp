// SPDX-License-Identifier: MIT
#include "app/Keys.h"

#include <array>

namespace scenara {
namespace {

constexpr Key Chooses(KeyPlace place, const char* name, const char* does, Menu item) {
    return {place, name, does, KeyTaker::Item, item};
}

// They have chosen the items of the zoom always.
constexpr Key Zooms(const char* name, const char* does, Menu item) {
    return {KeyPlace::Picture, name, does, KeyTaker::Item, item, VirtualKey::Escape, true};
}

constexpr Key Polled(KeyPlace place, const char* name, const char* does, VirtualKey key) {
    return {place, name, does, KeyTaker::Polled, Menu::mnuStage, key};
}

constexpr Key Of(KeyPlace place, const char* name, const char* does) {
    return {place, name, does};
}

constexpr KeyPlace kAnywhere = KeyPlace::Anywhere;
constexpr KeyPlace kPicture = KeyPlace::Picture;
constexpr KeyPlace kList = KeyPlace::List;
constexpr KeyPlace kFullScreen = KeyPlace::FullScreen;
constexpr KeyPlace kEditing = KeyPlace::Editing;
constexpr KeyPlace kBrowser = KeyPlace::Browser;

constexpr const char* kReload = "loads the stage again";
constexpr const char* kPause = "stops the stage, and lets it go on (Space: not in list and filter)";
constexpr const char* kCover = "full screen on and off (a double click: not in Debug BG)";
constexpr const char* kSize = "the window for a picture of 100, 200, 300, 400 %";
constexpr const char* kMoveAcross = "moves the camera, or the test character";
constexpr const char* kMoveDown = "moves the camera up and down";
constexpr const char* kIn = "nearer, in stages that zoom";
constexpr const char* kSelect = "selects another stage, and opens it";
constexpr const char* kKeysBack = "gives the keys back to the picture";
constexpr const char* kMoveEdited = "moves the camera, here as well";
constexpr const char* kSprite = "the sprite before, and the next one";
constexpr const char* kTenSprites = "ten sprites back, and on";
constexpr const char* kEnds = "the first sprite, and the last one";

constexpr std::array kKeys = {
    Chooses(kAnywhere, "Ctrl+O", "asks for a stage, and opens it", Menu::mnuOpen),
    Chooses(kAnywhere, "Ctrl+R", kReload, Menu::mnuReload),
    Chooses(kAnywhere, "F5", kReload, Menu::mnuReload),
    Chooses(kAnywhere, "Ctrl+F", "finds a stage in the list", Menu::mnuFind),
    Polled(kAnywhere, "Space", kPause, VirtualKey::Space),
    Polled(kAnywhere, "Pause", kPause, VirtualKey::Pause),
    Chooses(kAnywhere, "F11", kCover, Menu::mnuFS),
    Of(kAnywhere, "Double click", kCover),
    Chooses(kAnywhere, "Ctrl+1", kSize, Menu::mnuPicture100),
    Chooses(kAnywhere, "Ctrl+2", kSize, Menu::mnuPicture200),
    Chooses(kAnywhere, "Ctrl+3", kSize, Menu::mnuPicture300),
    Chooses(kAnywhere, "Ctrl+4", kSize, Menu::mnuPicture400),
    Chooses(kAnywhere, "Ctrl+Q", "ends Scenara", Menu::mnuExit),

    Polled(kPicture, "Left", kMoveAcross, VirtualKey::Left),
    Polled(kPicture, "Right", kMoveAcross, VirtualKey::Right),
    Polled(kPicture, "Up", kMoveDown, VirtualKey::Up),
    Polled(kPicture, "Down", kMoveDown, VirtualKey::Down),
    Of(kPicture, "Wheel", kMoveDown),
    Of(kPicture, "Shift+Wheel", "moves the camera to the left and right"),
    Of(kPicture, "Middle button", "pulls the picture"),
    Polled(kPicture, "Z", "smaller camera steps", VirtualKey::Z),
    Polled(kPicture, "A", "larger camera steps", VirtualKey::A),
    Chooses(kPicture, "Home", "puts the camera where it starts", Menu::mnuCameraStart),
    Zooms("Ctrl++", kIn, Menu::mnuZoomIn),
    Zooms("Ctrl+=", kIn, Menu::mnuZoomIn),
    Zooms("Ctrl+-", "farther", Menu::mnuZoomOut),
    Of(kPicture, "Ctrl+Wheel", "nearer and farther"),
    Zooms("Ctrl+0", "zoom as at the start", Menu::mnuZoomStart),

    Of(kList, "Up", kSelect),
    Of(kList, "Down", kSelect),
    Of(kList, "Page Up", kSelect),
    Of(kList, "Page Down", kSelect),
    Of(kList, "Home", kSelect),
    Of(kList, "End", kSelect),
    Of(kList, "Letters", "select the next stage that begins so"),
    Of(kList, "Enter", "opens what is selected; from the filter, the first that it leaves"),
    Polled(kList, "Escape", kKeysBack, VirtualKey::Escape),

    Polled(kFullScreen, "Escape", "leaves the full screen", VirtualKey::Escape),
    Polled(kFullScreen, "Page Up", "the stage before", VirtualKey::PageUp),
    Polled(kFullScreen, "Page Down", "the next stage", VirtualKey::PageDown),

    Polled(kEditing, "Left", kMoveEdited, VirtualKey::Left),
    Polled(kEditing, "Right", kMoveEdited, VirtualKey::Right),
    Polled(kEditing, "Up", kMoveEdited, VirtualKey::Up),
    Polled(kEditing, "Down", kMoveEdited, VirtualKey::Down),
    Polled(kEditing, "Numpad +", "moves the element up in the list", VirtualKey::NumpadPlus),
    Polled(kEditing, "Numpad -", "moves it down", VirtualKey::NumpadMinus),
    Polled(kEditing, "Insert", "copies it", VirtualKey::Insert),
    Polled(kEditing, "Delete", "takes it out", VirtualKey::Delete),
    Polled(kEditing, "D", "writes the elements down", VirtualKey::D),

    Of(kBrowser, "Left", kSprite),
    Of(kBrowser, "Right", kSprite),
    Of(kBrowser, "Page Up", kTenSprites),
    Of(kBrowser, "Page Down", kTenSprites),
    Of(kBrowser, "Home", kEnds),
    Of(kBrowser, "End", kEnds),
    Of(kBrowser, "Wheel", "nearer and farther"),
    Polled(kBrowser, "Escape", "ends the sprite browser", VirtualKey::Escape),
};

const char* TitleOf(KeyPlace place) {
    switch (place) {
        case KeyPlace::Anywhere: return "Anywhere";
        case KeyPlace::Picture: return "Camera and picture";
        case KeyPlace::List: return "Stage list and filter";
        case KeyPlace::FullScreen: return "Full screen";
        case KeyPlace::Editing: return "Debug BG";
        case KeyPlace::Browser: return "Sprite browser";
    }
    return "";
}

}  // namespace

std::span<const Key> AllKeys() {
    return kKeys;
}

std::vector<std::string> ShortcutsOf(Menu item, bool additions) {
    std::vector<std::string> shortcuts;
    for (const Key& key : kKeys) {
        if (key.taker == KeyTaker::Item && key.item == item && (additions || key.plainToo)) {
            shortcuts.emplace_back(key.name);
        }
    }
    return shortcuts;
}

KeyPage PageOfKeys() {
    KeyPage page;
    const Key* before = nullptr;
    for (const Key& key : kKeys) {
        const bool isNewGroup = before == nullptr || before->place != key.place;
        if (isNewGroup) {
            page.push_back({TitleOf(key.place), {}});
        }
        std::vector<KeyPageLine>& lines = page.back().lines;
        if (!isNewGroup && lines.back().does == key.does) {
            lines.back().keys.append(", ").append(key.name);
        } else {
            lines.push_back({key.name, key.does});
        }
        before = &key;
    }
    return page;
}

}  // namespace scenara
