// SPDX-License-Identifier: MIT
//
// Monkey: does anything at all to the real program, again and again, and sees to it that the
// program bears it.
//
// After most of what it does, it waits until the program reacts again. The program must not end by
// itself, and not be silent for half a minute. Whenever it was closed, its settings must be whole;
// and now and then the monkey changes a few by keys, closes the program at once, and looks whether
// they were kept. From time to time it looks for pixels of the window that are not painted.
//
// What it chooses depends on the windows that are open, so two runs with one seed begin alike and
// need not go on alike. What it did last stands in its report.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/DesktopProgram.h"
#include "desktop/Hands.h"
#include "desktop/MonkeyFolder.h"
#include "desktop/SettingsFiles.h"

namespace scenara::test {

class Monkey {
public:
    // The scene has its display and its folder, and runs nothing.
    Monkey(DesktopProgram& scene, unsigned seed);

    // Starts the program, as often as it is closed, until so many things have been done. Throws
    // std::runtime_error for what the program must not do.
    void Play(int actions);

    // What was done last, the windows, and what the program has printed.
    [[nodiscard]] std::string Report() const;
    // What took the program longer than a second, a line each. No fault: a machine may be busy.
    [[nodiscard]] const std::vector<std::string>& Slow() const { return slow_; }
    [[nodiscard]] int Starts() const { return starts_; }
    [[nodiscard]] int Looks() const { return looks_; }
    [[nodiscard]] int SettingsCompared() const { return settingsCompared_; }
    // What was dropped, and taken.
    [[nodiscard]] int Dropped() const { return dropped_; }

private:
    struct Deed {
        int weight = 0;
        void (Monkey::*act)() = nullptr;
    };
    static const std::vector<Deed>& Deeds();

    // --- what it chooses (Monkey.cpp) ---
    [[nodiscard]] int Below(int count);
    [[nodiscard]] bool OneIn(int count) { return Below(count) == 0; }
    template <class List>
    [[nodiscard]] const auto& OneOf(const List& list) {
        return *(std::begin(list) + Below(static_cast<int>(std::size(list))));
    }
    void Note(const std::string& what);

    // --- the program's life (MonkeyLife.cpp) ---
    void Live(int actions);
    void Start();
    void End();
    void CompareSettings();
    // Waits, while the program runs, until `condition` is true; false where it has ended.
    bool Wait(const std::string& what, const std::function<bool()>& condition);
    bool WaitForReaction();
    void LookAtWindows();
    // Does what ends it from a window at rest, again where that could not be done yet, as while a
    // stage loads.
    void EndBy(const std::function<void()>& act);
    void WaitForEnd();
    // Openbox itself bears less than the program.
    void KeepManager();
    [[nodiscard]] bool HasEnded();
    // Nothing but the main window is open, with the focus, on the first workspace. False where the
    // program has ended.
    bool ComeToRest();
    // An item of a menu over the picture, by their letters.
    bool ChooseItem(std::string_view menu, std::string_view item);
    void LookForUnpainted();

    // --- what it does (MonkeyDeeds.cpp) ---
    void PressAKey();
    void HoldAnArrow();
    void UseAMenuByKeys();
    void UseAMenuByPointer();
    void ClickSomewhere();
    void Drag();
    void TurnTheWheel();
    void AnswerADialog();
    void Resize();
    void MoveWindow();
    void ChangeWindowState();
    void MinimiseOrBringBack();
    void CloseAWindow();
    void UseWorkspaces();
    void GoToAnotherProgram();
    void StartAgain();
    void DisturbFiles();
    void DropNowAndThen();
    void GoFullScreen();
    void Rest();
    void LetAllGo();
    [[nodiscard]] bool HasFileDialog() const;
    [[nodiscard]] const ProgramWindow* SomeWindow();
    [[nodiscard]] Spot SomeSpot();
    [[nodiscard]] Spot SpotIn(const Place& place);

    DesktopProgram& scene_;
    Hands hands_;
    std::mt19937 random_;
    std::mt19937 drops_;  // for drops alone: without them each seed does the same
    MonkeyFolder folder_;
    std::vector<ProgramWindow> windows_;  // as of the last look
    std::vector<std::string> held_;       // keys
    std::deque<std::string> last_;
    std::vector<std::string> slow_;
    std::string given_;  // QX.CFG, as the monkey made it
    std::optional<SettingsFiles>
        settings_;                         // as the program left them; nothing: as they were given
    xcb_window_t main_ = XCB_WINDOW_NONE;  // the program's main window, once it has been seen
    bool ended_ = true;
    int done_ = 0;
    int starts_ = 0;
    int looks_ = 0;
    int settingsCompared_ = 0;
    int dropped_ = 0;
};

}  // namespace scenara::test
