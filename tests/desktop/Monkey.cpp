// SPDX-License-Identifier: MIT
#include "desktop/Monkey.h"

#include <fstream>
#include <iterator>

namespace scenara::test {
namespace {

constexpr std::size_t kKept = 30;       // of what was done last
constexpr std::size_t kTailed = 16000;  // bytes of what the program has printed

}  // namespace

Monkey::Monkey(DesktopProgram& scene, unsigned seed)
    : scene_(scene),
      hands_(scene.display_.Name()),
      random_(seed),
      drops_(seed),
      folder_(scene.Folder() / "mugen", scene.Folder() / "kept") {
    hands_.MakeWorkspaces(2);
    scene.display_.FillBackground();
}

const std::vector<Monkey::Deed>& Monkey::Deeds() {
    static const std::vector<Deed> deeds = {
        {20, &Monkey::PressAKey},          {5, &Monkey::HoldAnArrow},
        {14, &Monkey::UseAMenuByKeys},     {8, &Monkey::UseAMenuByPointer},
        {18, &Monkey::ClickSomewhere},     {6, &Monkey::Drag},
        {5, &Monkey::TurnTheWheel},        {6, &Monkey::Resize},
        {2, &Monkey::MoveWindow},          {4, &Monkey::ChangeWindowState},
        {2, &Monkey::MinimiseOrBringBack}, {1, &Monkey::CloseAWindow},
        {2, &Monkey::UseWorkspaces},       {2, &Monkey::GoToAnotherProgram},
        {1, &Monkey::StartAgain},          {4, &Monkey::DisturbFiles},
        {3, &Monkey::GoFullScreen},        {3, &Monkey::Rest},
        {3, &Monkey::LookForUnpainted},
    };
    return deeds;
}

int Monkey::Below(int count) {
    return std::uniform_int_distribution<int>(0, count - 1)(random_);
}

void Monkey::Note(const std::string& what) {
    last_.push_back(std::to_string(done_) + ": " + what);
    if (last_.size() > kKept) {
        last_.pop_front();
    }
}

void Monkey::Play(int actions) {
    done_ = 0;
    while (done_ < actions) {
        Live(actions);
    }
}

std::string Monkey::Report() const {
    std::string text = "what was done last:\n";
    for (const std::string& line : last_) {
        text += "  " + line + "\n";
    }
    text += "windows:\n";
    for (const ProgramWindow& window : windows_) {
        constexpr const char* kKinds[] = {"main", "dialog", "popup"};
        text += std::string("  ") + kKinds[static_cast<int>(window.kind)] + " \"" + window.title +
                "\" " + std::to_string(window.place.width) + " x " +
                std::to_string(window.place.height) + (window.isSeen ? "\n" : ", not seen\n");
    }
    std::ifstream file(scene_.Folder() / "program.txt", std::ios::binary);
    const std::string printed(std::istreambuf_iterator<char>(file), {});
    return text + "the program has printed:\n" +
           printed.substr(printed.size() - std::min(printed.size(), kTailed)) + "\n";
}

}  // namespace scenara::test
