// SPDX-License-Identifier: MIT
//
// From the program's start to its end: whether it reacts, and what it leaves.
#include <algorithm>
#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

#include "desktop/Monkey.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kPatience = 30s;
constexpr auto kSlow = 1s;
constexpr auto kLookEvery = 2ms;
constexpr auto kAskEvery = 200ms;

// A setting that keys change for certain.
struct SureSetting {
    const char* menu;
    const char* item;
    SettingsFiles::Lines SettingsFiles::*file;
    const char* name;
    const char* unsaid;  // its value where no line says it
    bool isAddition;
};

constexpr SureSetting kSure[] = {
    {"o", "m", &SettingsFiles::program, "BGMusic", "", false},
    {"o", "i", &SettingsFiles::program, "Info", "", false},
    {"x", "m", &SettingsFiles::extras, "Smooth", "False", true},
    {"x", "w", &SettingsFiles::extras, "WholeMultiplesOnly", "False", true},
    {"x", "d", &SettingsFiles::extras, "SwitchDisplayMode", "False", true},
};

// A character that cannot be read any more is none.
void LeaveOutTheCharacter(SettingsFiles::Lines& lines) {
    std::erase_if(lines, [](const auto& line) {
        return line.first == "TestChar" || line.first == "Char" || line.first == "CharName" ||
               line.first == "Deform";
    });
}

std::string AsText(const SettingsFiles::Lines& lines) {
    std::string text;
    for (const auto& [name, value] : lines) {
        text.append(name).append(" = ").append(value).append("\n");
    }
    return text;
}

bool HasMagenta(const Screenshot& shot) {
    return std::ranges::find(shot.rgb, kBackground) != shot.rgb.end();
}

// What of a window is on the screen.
Place Shared(const Place& a, const Place& b) {
    const int left = std::max(a.left, b.left);
    const int top = std::max(a.top, b.top);
    const int right = std::min(a.left + a.width, b.left + b.width);
    const int bottom = std::min(a.top + a.height, b.top + b.height);
    return {left, top, right - left, bottom - top};
}

}  // namespace

// --- waiting ---

bool Monkey::HasEnded() {
    if (ended_) {
        return true;
    }
    const std::optional<int> status = scene_.program_->StatusNow();
    if (!status) {
        return false;
    }
    ended_ = true;
    if (*status != 0) {
        throw std::runtime_error("the program ended with " +
                                 (*status < 0 ? "a signal" : "status " + std::to_string(*status)));
    }
    settings_ = SettingsFiles::In(scene_.Folder() / "bin");
    for (const char* const file : {"QX.CFG.new", "Scenara.ini.new"}) {
        if (fs::exists(scene_.Folder() / "bin" / file)) {
            throw std::runtime_error(std::string("the program left ") + file);
        }
    }
    return true;
}

bool Monkey::Wait(const std::string& what, const std::function<bool()>& condition) {
    const Clock::time_point begin = Clock::now();
    while (!HasEnded()) {
        KeepManager();
        if (condition()) {
            const auto taken =
                std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
            if (taken > kSlow) {
                slow_.push_back(std::to_string(taken.count()) + " ms: " + what + "; after " +
                                (last_.empty() ? "" : last_.back()));
            }
            return true;
        }
        if (Clock::now() - begin > kPatience) {
            throw std::runtime_error("for half a minute there was not: " + what);
        }
        std::this_thread::sleep_for(kLookEvery);
    }
    return false;
}

void Monkey::KeepManager() {
    if (scene_.display_.KeepManager()) {
        Note("the window manager ended; another one");
        hands_.MakeWorkspaces(2);
    }
}

void Monkey::LookAtWindows() {
    windows_ = hands_.WindowsOf(scene_.program_->Number());
    if (main_ == XCB_WINDOW_NONE && !windows_.empty() &&
        windows_[0].kind == ProgramWindow::Kind::Main) {
        main_ = windows_[0].id;
    }
}

// Any of its windows may be the one to answer: the one that was asked may be gone.
bool Monkey::WaitForReaction() {
    std::optional<std::uint32_t> first;
    Clock::time_point asked;
    return Wait("a reaction", [&] {
        if (first && hands_.LastAnswer() >= *first) {
            LookAtWindows();
            return true;
        }
        if (!first || Clock::now() - asked > kAskEvery) {
            asked = Clock::now();
            LookAtWindows();
            for (const ProgramWindow& window : windows_) {
                if (window.kind != ProgramWindow::Kind::Popup) {
                    const std::uint32_t number = hands_.Ping(window.id);
                    first = first.value_or(number);
                }
            }
        }
        return false;
    });
}

bool Monkey::ComeToRest() {
    LetAllGo();
    hands_.GoToWorkspace(0);
    int rounds = 0;
    int calm = 0;
    return Wait("a window without boxes", [&] {
        ++rounds;
        if (!WaitForReaction()) {
            return false;
        }
        const bool isAlone = windows_.size() == 1 && windows_[0].id == main_;
        if (isAlone && windows_[0].isSeen && calm > 0 && hands_.ActiveWindow() == main_) {
            return ++calm > 3;
        }
        if (isAlone) {
            hands_.SendToWorkspace(main_, 0);
            hands_.ChangeState(main_, Hands::Change::Remove, "_NET_WM_STATE_SHADED");
            hands_.Activate(main_);
            hands_.Press("Escape");
            calm = 1;
        } else if (!windows_.empty()) {
            calm = 0;
            const ProgramWindow& window = windows_.back();
            if (window.kind != ProgramWindow::Kind::Popup) {
                hands_.SendToWorkspace(window.id, 0);
                hands_.Activate(window.id);
            }
            if (window.kind == ProgramWindow::Kind::Dialog && rounds % 3 == 0) {
                hands_.Close(window.id);
            } else {
                hands_.Press(rounds % 5 == 4 ? "Return" : "Escape");
            }
        }
        std::this_thread::sleep_for(20ms);
        return false;
    });
}

bool Monkey::ChooseItem(std::string_view menu, std::string_view item) {
    const auto hasMenu = [&] {
        LookAtWindows();
        return std::ranges::any_of(windows_, [](const ProgramWindow& window) {
            return window.kind == ProgramWindow::Kind::Popup;
        });
    };
    Note("choose " + std::string(menu) + ", " + std::string(item));
    hands_.Press("alt+" + std::string(menu));
    if (!Wait("the menu " + std::string(menu), hasMenu)) {
        return false;
    }
    hands_.Press(item);
    return Wait("the menu's end", [&] { return !hasMenu(); }) && WaitForReaction();
}

// --- from start to end ---

void Monkey::Live(int actions) {
    Start();
    if (!WaitForReaction()) {
        return;
    }
    if (settings_ && OneIn(3)) {
        CompareSettings();
        return;
    }
    int weights = 0;
    for (const Deed& deed : Deeds()) {
        weights += deed.weight;
    }
    constexpr int kMeanLife = 100;
    while (done_ < actions && !OneIn(kMeanLife)) {
        ++done_;
        const bool hasBox = std::ranges::any_of(windows_, [](const ProgramWindow& window) {
            return window.kind == ProgramWindow::Kind::Dialog;
        });
        if (hasBox && !OneIn(3)) {
            AnswerADialog();
        } else {
            int chosen = Below(weights);
            const auto deed = std::ranges::find_if(
                Deeds(), [&](const Deed& each) { return (chosen -= each.weight) < 0; });
            (this->*deed->act)();
        }
        DropNowAndThen();
        // Sometimes the next deed comes before the program has seen this one.
        if (HasEnded() || (!OneIn(5) && !WaitForReaction())) {
            return;
        }
    }
    End();
}

void Monkey::Start() {
    ++starts_;
    LetAllGo();
    windows_.clear();
    hands_.GoToWorkspace(0);
    if (!settings_ || OneIn(4)) {
        folder_.Restore();
        fs::remove(scene_.Folder() / "bin/Scenara.ini");
        scene_.WriteSettings("StageList = 255\r\n");
        settings_.reset();
        given_ = scene_.Settings();
    }
    const std::string file = settings_ || OneIn(3) ? std::string() : folder_.AnyPath(random_);
    Note("start " + file);
    main_ = XCB_WINDOW_NONE;
    ended_ = false;
    scene_.Start({}, file);
}

void Monkey::End() {
    switch (Below(5)) {
        case 0:
            Note("end: close the window");
            EndBy([&] { hands_.Close(main_); });
            return;
        case 1:
            Note("end: Alt+F4");
            EndBy([&] { hands_.Press("alt+F4"); });
            return;
        case 2:
            Note("end: Exit");
            EndBy([&] {
                hands_.Press("alt+s");
                hands_.Press("e");
            });
            return;
        case 3:
            Note("end: a signal, whatever is open");
            scene_.program_->Send(OneOf(std::vector{SIGTERM, SIGINT, SIGHUP}));
            break;
        default: {
            Note("end: a crash");
            scene_.program_->Send(SIGKILL);
            ended_ = true;
            static_cast<void>(scene_.program_->ExitStatus());
            if (settings_ || scene_.Settings() != given_) {
                settings_ = SettingsFiles::In(scene_.Folder() / "bin");
            }
            return;
        }
    }
    WaitForEnd();
}

void Monkey::EndBy(const std::function<void()>& act) {
    constexpr auto kAgain = 5s;
    std::optional<Clock::time_point> last;
    static_cast<void>(Wait("an end", [&] {
        if ((!last || Clock::now() - *last > kAgain) && ComeToRest()) {
            act();
            last = Clock::now();
        }
        return false;
    }));
}

void Monkey::WaitForEnd() {
    static_cast<void>(Wait("an end", [] { return false; }));
}

void Monkey::CompareSettings() {
    SettingsFiles wanted = *settings_;
    if (!ComeToRest()) {
        return;
    }
    const bool additions = ValueOf(wanted.extras, "Additions") != "False";
    for (const SureSetting& sure : kSure) {
        if ((sure.isAddition && !additions) || OneIn(2)) {
            continue;
        }
        if (!ChooseItem(sure.menu, sure.item)) {
            throw std::runtime_error("a menu's item ended the program");
        }
        const std::string before = ValueOf(wanted.*sure.file, sure.name);
        const bool isOn = (before.empty() ? sure.unsaid : before) == std::string("True");
        SetValue(wanted.*sure.file, sure.name, isOn ? "False" : "True");
    }
    Note("end after these settings");
    if (OneIn(2)) {
        hands_.Press("alt+F4");
    } else {
        scene_.program_->Send(SIGTERM);
    }
    WaitForEnd();
    SettingsFiles now = *settings_;
    LeaveOutTheCharacter(now.program);
    LeaveOutTheCharacter(wanted.program);
    if (now.program != wanted.program) {
        throw std::runtime_error("settings that were lost, wanted:\n" + AsText(wanted.program) +
                                 "and there are:\n" + AsText(now.program));
    }
    for (const SureSetting& sure : kSure) {
        const auto in = [&](const SettingsFiles& files) {
            const std::string value = ValueOf(files.*sure.file, sure.name);
            return value.empty() ? std::string(sure.unsaid) : value;
        };
        if (in(now) != in(wanted)) {
            throw std::runtime_error("a setting that was lost: " + std::string(sure.name) +
                                     " should be " + in(wanted));
        }
    }
    ++settingsCompared_;
}

// --- what is seen ---

// The screen under the window is all background. The window must come to show none of it. What
// opens by itself meanwhile ends the look.
void Monkey::LookForUnpainted() {
    const auto alone = [&] {
        return windows_.size() == 1 && windows_[0].kind == ProgramWindow::Kind::Main &&
               windows_[0].isSeen;
    };
    if (!WaitForReaction() || !alone()) {
        return;
    }
    Note("look");
    hands_.CloseOther();  // it may be made to stay above
    hands_.Activate(windows_[0].id);
    bool seen = false;
    static_cast<void>(Wait("a window that is painted", [&] {
        if (!WaitForReaction() || !alone()) {
            return true;
        }
        const Place place = Shared(windows_[0].place, hands_.Screen());
        if (place.width < 1 || place.height < 1) {
            return true;
        }
        if (hands_.TopWindow() != windows_[0].id) {
            return false;
        }
        const Screenshot shot = hands_.Look(place);
        seen = !shot.rgb.empty();
        return !HasMagenta(shot);
    }));
    looks_ += seen ? 1 : 0;
}

}  // namespace scenara::test
