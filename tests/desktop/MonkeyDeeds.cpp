// SPDX-License-Identifier: MIT
//
// What the monkey does with keys, the pointer, the window manager and files.
#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "desktop/Drop.h"
#include "desktop/Monkey.h"

namespace scenara::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* kKeys[] = {
    "z",          "a",        "d",           "q",        "r",           "x",         "Left",
    "Right",      "Up",       "Down",        "Home",     "End",         "Page_Up",   "Page_Down",
    "Tab",        "Pause",    "Escape",      "Escape",   "Return",      "space",     "F1",
    "F3",         "F4",       "F5",          "F6",       "F7",          "F8",        "F9",
    "F10",        "F11",      "F12",         "KP_Add",   "KP_Subtract", "ctrl+plus", "ctrl+minus",
    "ctrl+equal", "ctrl+0",   "ctrl+KP_Add", "ctrl+c",   "ctrl+a",      "alt+p",     "alt+d",
    "ctrl+r",     "ctrl+f",   "ctrl+1",      "ctrl+2",   "ctrl+3",      "ctrl+4",    "alt+l",
    "alt+s",      "alt+o",    "alt+x",       "alt+a",    "alt+q",       "alt",       "shift+Tab",
    "BackSpace",  "KP_Enter", "ctrl+Tab",    "shift+F10"};
// Not where files are listed.
constexpr const char* kOtherKeys[] = {"Insert", "Delete", "Menu", "F2"};
constexpr const char* kArrows[] = {"Left", "Right", "Up", "Down"};
constexpr const char* kMenuLetters[] = {"s", "o", "a", "x"};
constexpr const char* kMenuKeys[] = {
    "Down", "Down", "Down", "Up", "Right", "Left", "Return", "Return", "space", "Escape", "a", "b",
    "c",    "d",    "f",    "i",  "l",     "m",    "o",      "p",      "s",     "u",      "w"};
constexpr const char* kDialogKeys[] = {
    "Return", "Return", "Return", "Escape",    "Escape", "Tab", "shift+Tab", "space", "Down",
    "Up",     "Left",   "Right",  "Page_Down", "Home",   "End", "alt+o",     "alt+c", "ctrl+a"};
constexpr const char* kStates[] = {"MAXIMIZED_VERT", "MAXIMIZED_HORZ", "FULLSCREEN",
                                   "ABOVE",          "BELOW",          "SHADED",
                                   "STICKY",         "SKIP_TASKBAR"};
constexpr int kBarHeight = 20;
constexpr int kBelowHeight = 2 * kBarHeight;  // of a scroll bar and the status line
constexpr int kListWidth = 160;

}  // namespace

// --- where ---

const ProgramWindow* Monkey::SomeWindow() {
    return windows_.empty() ? nullptr : &OneOf(windows_);
}

Spot Monkey::SpotIn(const Place& place) {
    return {place.left + Below(std::max(place.width, 1)),
            place.top + Below(std::max(place.height, 1))};
}

// The bar of menus, the list and what is below are small beside the picture, so they are chosen
// more often.
Spot Monkey::SomeSpot() {
    const ProgramWindow* const window = SomeWindow();
    if (window == nullptr) {
        return SpotIn(hands_.Screen());
    }
    Place place = window->place;
    if (window->kind == ProgramWindow::Kind::Main) {
        switch (Below(5)) {
            case 0: place.height = kBarHeight; break;
            case 1:
                place.left += std::max(place.width - kListWidth, 0);
                place.width = kListWidth;
                break;
            case 2:
                place.top += std::max(place.height - kBelowHeight, 0);
                place.height = kBelowHeight;
                break;
            default: break;
        }
    }
    return SpotIn(place);
}

// There only what chooses a file is done: a dialog may offer to delete and rename what is listed.
// Boxes have the program's own title.
bool Monkey::HasFileDialog() const {
    return std::ranges::any_of(windows_, [](const ProgramWindow& window) {
        return window.kind == ProgramWindow::Kind::Dialog && !window.title.starts_with("Scenara");
    });
}

// --- keys ---

void Monkey::PressAKey() {
    if (!HasFileDialog() && OneIn(10)) {
        const std::string key = OneOf(kOtherKeys);
        Note("press " + key);
        hands_.Press(key);
        return;
    }
    const std::string key = OneOf(kKeys);
    const int times = OneIn(4) ? 1 + Below(12) : 1;
    Note("press " + key + " x " + std::to_string(times));
    for (int i = 0; i < times; ++i) {
        hands_.Press(key);
    }
}

void Monkey::HoldAnArrow() {
    if (!held_.empty() && OneIn(2)) {
        LetAllGo();
        return;
    }
    const std::string key = OneOf(kArrows);
    Note("hold " + key);
    hands_.Hold(key, true);
    held_.push_back(key);
}

void Monkey::LetAllGo() {
    if (!held_.empty()) {
        Note("let all keys go");
    }
    for (const std::string& key : held_) {
        hands_.Hold(key, false);
    }
    held_.clear();
}

void Monkey::UseAMenuByKeys() {
    const std::string letter = OneOf(kMenuLetters);
    std::string keys = "alt+" + letter;
    hands_.Press(keys);
    if (OneIn(2)) {
        std::this_thread::sleep_for(30ms);
    }
    for (int i = Below(8); i >= 0; --i) {
        const std::string key = OneOf(kMenuKeys);
        keys += " " + key;
        hands_.Press(key);
    }
    Note("press " + keys);
}

// Whatever is open, an answer to it.
void Monkey::AnswerADialog() {
    const auto dialog = std::find_if(windows_.rbegin(), windows_.rend(), [](const auto& window) {
        return window.kind == ProgramWindow::Kind::Dialog;
    });
    if (dialog == windows_.rend()) {
        return;
    }
    if (hands_.ActiveWindow() != dialog->id) {
        hands_.Activate(dialog->id);
    }
    switch (Below(6)) {
        case 0:
        case 1: {
            const std::string text = folder_.AnyPath(random_);
            Note("type " + text);
            hands_.Press("ctrl+a");
            hands_.Type(text);
            hands_.Press(OneIn(5) ? "Escape" : "Return");
            return;
        }
        case 2: {
            const Spot spot = SpotIn(dialog->place);
            Note("click in \"" + dialog->title + "\" at " + DesktopProgram::Words(spot));
            hands_.MoveTo(spot);
            hands_.Click(1, 1 + Below(2));
            return;
        }
        default: {
            const std::string key = OneOf(kDialogKeys);
            Note("press " + key + " in \"" + dialog->title + "\"");
            hands_.Press(key);
            return;
        }
    }
}

// --- the pointer ---

void Monkey::UseAMenuByPointer() {
    const auto main = std::ranges::find(windows_, ProgramWindow::Kind::Main, &ProgramWindow::kind);
    if (main == windows_.end()) {
        return;
    }
    constexpr int kMenusWidth = 380;
    const Spot bar{main->place.left + Below(kMenusWidth), main->place.top + kBarHeight / 2};
    const Spot item{bar.x + Below(120) - 20, bar.y + kBarHeight + Below(220)};
    Note("menu at " + DesktopProgram::Words(bar) + ", item at " + DesktopProgram::Words(item));
    hands_.MoveTo(bar);
    if (OneIn(3)) {  // with the button held
        hands_.Button(1, true);
        hands_.MoveTo(item);
        hands_.Button(1, false);
        return;
    }
    hands_.Click(1);
    if (WaitForReaction()) {
        hands_.MoveTo(item);
        hands_.Click(1);
    }
}

void Monkey::ClickSomewhere() {
    const Spot spot = SomeSpot();
    const int button = HasFileDialog() || !OneIn(4) ? 1 : 2 + Below(2);
    const int times = OneIn(4) ? 2 + Below(2) : 1;
    Note("click " + std::to_string(button) + " x " + std::to_string(times) + " at " +
         DesktopProgram::Words(spot));
    hands_.MoveTo(spot);
    hands_.Click(button, times);
}

void Monkey::Drag() {
    if (HasFileDialog()) {
        return;
    }
    const int button = OneIn(5) ? 3 : 1;
    Spot spot = SomeSpot();
    Note("drag " + std::to_string(button) + " from " + DesktopProgram::Words(spot));
    hands_.MoveTo(spot);
    hands_.Button(button, true);
    for (int i = 1 + Below(8); i > 0; --i) {
        spot = OneIn(6) ? SpotIn(hands_.Screen())
                        : Spot{std::max(spot.x + Below(80) - 40, 0),
                               std::max(spot.y + Below(80) - 40, 0)};
        hands_.MoveTo(spot);
        if (OneIn(3)) {
            std::this_thread::sleep_for(10ms);
        }
    }
    if (OneIn(8)) {
        hands_.Press("Escape");
    }
    hands_.Button(button, false);
}

void Monkey::TurnTheWheel() {
    const Spot spot = SomeSpot();
    const bool zooms = OneIn(2);
    const int button = OneIn(6) ? 6 + Below(2) : 4 + Below(2);
    const int times = 1 + Below(10);
    Note(std::string(zooms ? "ctrl and " : "") + "wheel " + std::to_string(button) + " x " +
         std::to_string(times) + " at " + DesktopProgram::Words(spot));
    hands_.MoveTo(spot);
    if (zooms) {
        hands_.Hold("ctrl", true);
    }
    hands_.Click(button, times);
    if (zooms) {
        hands_.Hold("ctrl", false);
    }
}

// --- the window manager ---

void Monkey::Resize() {
    const ProgramWindow* const window = SomeWindow();
    if (window == nullptr) {
        return;
    }
    Place place = window->place;
    for (int i = OneIn(4) ? 6 : 1; i > 0; --i) {
        place.width = 1 + (OneIn(5) ? Below(100) : Below(1300));
        place.height = 1 + (OneIn(5) ? Below(100) : Below(900));
        Note("size " + std::to_string(place.width) + " x " + std::to_string(place.height));
        hands_.MoveAndSize(window->id, place);
    }
}

void Monkey::MoveWindow() {
    if (const ProgramWindow* const window = SomeWindow(); window != nullptr) {
        Place place = window->place;
        place.left = Below(1200) - 200;
        place.top = Below(900) - 150;
        Note("move to " + DesktopProgram::Words({place.left, place.top}));
        hands_.MoveAndSize(window->id, place);
    }
}

void Monkey::ChangeWindowState() {
    const ProgramWindow* const window = SomeWindow();
    if (window == nullptr) {
        return;
    }
    const auto change = static_cast<Hands::Change>(Below(3));
    const std::string prefix = "_NET_WM_STATE_";
    if (OneIn(2)) {
        Note("maximise " + std::to_string(static_cast<int>(change)));
        hands_.ChangeState(window->id, change, prefix + kStates[0], prefix + kStates[1]);
        return;
    }
    const std::string state = OneOf(kStates);
    Note("state " + state + " " + std::to_string(static_cast<int>(change)));
    hands_.ChangeState(window->id, change, prefix + state);
}

void Monkey::MinimiseOrBringBack() {
    if (const ProgramWindow* const window = SomeWindow(); window != nullptr) {
        Note("minimise");
        hands_.Minimise(window->id);
        if (!OneIn(3)) {
            std::this_thread::sleep_for(20ms);
            Note("bring back");
            hands_.Activate(window->id);
        }
    }
}

void Monkey::CloseAWindow() {
    if (const ProgramWindow* const window = SomeWindow(); window != nullptr) {
        Note("close \"" + window->title + "\"");
        hands_.Close(window->id);
    }
}

void Monkey::UseWorkspaces() {
    const ProgramWindow* const window = SomeWindow();
    const auto workspace = static_cast<std::uint32_t>(Below(2));
    if (window != nullptr && OneIn(3)) {
        Note("window to workspace " + std::to_string(workspace));
        hands_.SendToWorkspace(window->id, workspace);
    }
    Note("workspace " + std::to_string(workspace));
    hands_.GoToWorkspace(workspace);
}

void Monkey::GoToAnotherProgram() {
    Note("another program");
    hands_.ShowOther({Below(500), Below(400), 500, 400});
    if (const ProgramWindow* const window = SomeWindow(); window != nullptr && !OneIn(3)) {
        std::this_thread::sleep_for(10ms);
        Note("and back");
        hands_.Activate(window->id);
    }
}

void Monkey::GoFullScreen() {
    Note("full screen and out");
    hands_.Press("alt+o");
    hands_.Press("f");
    if (!OneIn(3) && WaitForReaction()) {
        hands_.Press("Escape");
    }
}

// --- files ---

void Monkey::StartAgain() {
    std::vector<std::string> command{(scene_.Folder() / "bin/scenara").string(), "--"};
    for (int i = Below(3); i >= 0; --i) {
        command.push_back(folder_.AnyPath(random_));
    }
    if (std::all_of(command.begin() + 2, command.end(),
                    [](const std::string& path) { return path.empty(); })) {
        return;  // plain, that is a box of its own
    }
    Note("start again with " + command.back());
    Child later(command, scene_.ProgramEnvironment(), scene_.Folder() / "later.txt");
    std::optional<int> status;
    if (!Wait("the end of a later start",
              [&] { return (status = later.StatusNow()).has_value(); })) {
        return;
    }
    if (*status != 0 && *status != 1) {
        std::ifstream file(scene_.Folder() / "later.txt", std::ios::binary);
        throw std::runtime_error("a later start ended with " + std::to_string(*status) + "\n" +
                                 std::string(std::istreambuf_iterator<char>(file), {}));
    }
}

// Not where the window is gone before it answers.
void Monkey::DropNowAndThen() {
    constexpr int kSeldom = 40;
    const auto below = [this](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(drops_);
    };
    if (below(kSeldom) != 0 || windows_.empty() || HasEnded()) {
        return;
    }
    const ProgramWindow window = windows_[below(windows_.size())];
    const auto within = [&](int from, int length) {
        return from + static_cast<int>(below(static_cast<std::size_t>(std::max(length, 1))));
    };
    const Spot spot{within(std::max(window.place.left, 0), window.place.width),
                    within(std::max(window.place.top, 0), window.place.height)};
    std::vector<std::string> uris;
    for (std::size_t i = below(3); i < 3; ++i) {
        uris.push_back(Drop::UriOf(folder_.AnyPath(drops_)));
    }
    Note("drop " + uris.back() + " onto \"" + window.title + "\" at " +
         DesktopProgram::Words(spot));
    Drop drop(scene_.display_.Name(), window.id, spot, uris);
    static_cast<void>(Wait("an answer to a drop", [&] {
        const Drop::State state = drop.Look();
        dropped_ += state == Drop::State::Taken ? 1 : 0;
        LookAtWindows();
        return state == Drop::State::Taken || state == Drop::State::Refused ||
               std::ranges::find(windows_, window.id, &ProgramWindow::id) == windows_.end();
    }));
}

void Monkey::DisturbFiles() {
    Note(folder_.Disturb(random_));
}

// Long enough, at times, for settings to be written.
void Monkey::Rest() {
    Note("rest");
    std::this_thread::sleep_for(OneIn(5) ? 1300ms : 100ms);
}

}  // namespace scenara::test
