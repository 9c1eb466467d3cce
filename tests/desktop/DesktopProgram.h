// SPDX-License-Identifier: MIT
//
// The real program on a display of the test's own, beside an engine folder of a few plain stages.
//
// Every stage is one picture of one colour with a bar in its middle, so that what is shown, where,
// and how large can be read off the screen. Their archive has two tiles more, each of one colour.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/VirtualDisplay.h"

namespace scenara::test {

inline constexpr std::uint32_t kGround = 0x305070;
inline constexpr std::uint32_t kBar = 0xF0C040;
inline constexpr std::uint32_t kLeaf = 0x40A060;   // the tile 0,1
inline constexpr std::uint32_t kBrick = 0xA04830;  // the tile 0,2
inline constexpr int kTileWidth = 60;
inline constexpr int kTileHeight = 40;

// How high the status line is, in the toolkit's pixels.
inline constexpr int kStatusLine = 21;
// The same of the filter above the list, and of an item in there.
inline constexpr int kFilter = 21;
inline constexpr int kListEdge = 5;  // by which it is dragged, at its left
inline constexpr int kListItem = 14;

// Where the bar is on the screen, in the first row that shows it.
struct Bar {
    int left = 0;
    int width = 0;
};

// A place on the screen.
struct Spot {
    int x = 0;
    int y = 0;
};

// The picture as it is seen: how much of the screen has its colours.
struct SeenSize {
    int width = 0;
    int height = 0;

    friend bool operator==(const SeenSize&, const SeenSize&) = default;
};

// The bar, if it is seen.
[[nodiscard]] std::optional<Bar> BarIn(const Screenshot& shot);
[[nodiscard]] SeenSize PictureSizeIn(const Screenshot& shot);
// Where the list starts, if it is there, in a high window and beside a picture with black around
// it.
[[nodiscard]] std::optional<Spot> ListIn(const Screenshot& shot);

class DesktopProgram : public testing::Test {
public:
    explicit DesktopProgram(Manager manager = Manager::Openbox) : display_({manager}) {}
    explicit DesktopProgram(const DisplaySetup& setup) : display_(setup) {}

    // Stages "bar", "cup" and "dot" under mugen/stages/.
    void SetUp() override;

    // The settings that the program finds: the engine folder, and `more` behind it; and a window
    // that shows the picture one to one, beside the list where `more` has that, and above a bar.
    void WriteSettings(const std::string& more = {}) const;
    [[nodiscard]] std::string Settings() const;
    // A stage has a tile in its upper left corner: kLeaf (image 1) or kBrick (2).
    void AddTile(const std::string& stage, int image) const;

    // Nothing is waited for any more once something has failed.
    [[nodiscard]] static bool Eventually(const std::function<bool()>& condition) {
        return HasFailure() ? condition() : test::Eventually(condition);
    }

    // Of the program: in the session of that address, where there is one.
    [[nodiscard]] std::vector<std::string> ProgramEnvironment(
        const std::string& session = {}) const;
    // With a file, that is named on the command line.
    void Start(const std::string& session = {}, const std::string& file = {});
    // The main window is there, of this width, and has come to rest in the middle of the screen.
    void ExpectMainWindow(int width);
    // Settings, start, the window, and the stage "bar" from the list beside the picture.
    void StartWithBar();
    [[nodiscard]] std::optional<int> WaitForEnd() { return program_->ExitStatus(); }

    [[nodiscard]] std::filesystem::path Folder() const { return display_.Folder(); }
    [[nodiscard]] std::string StagePath(const std::string& name) const {
        return display_.Folder() + "mugen/stages/" + name + ".def";
    }

    // The id of a window with such a title (a regular expression); empty when there is none. Or
    // those of all, a line each.
    [[nodiscard]] std::string Windows(const std::string& title) const;
    [[nodiscard]] std::string Window(const std::string& title) const;
    void ExpectWindow(const std::string& title);
    [[nodiscard]] std::string MainWindow() const;
    // Where the main window stands on the screen, in its pixels and without a frame; with Weston,
    // all that is not background.
    [[nodiscard]] std::optional<Place> MainPlace() const;
    // The boxes and questions that carry the program's title, as the main window may.
    [[nodiscard]] std::string Box() const;
    void ExpectBox();
    void ExpectNoBox();
    [[nodiscard]] std::string Title() const;
    void ExpectTitle(const std::string& title);
    // The stage has been shown for long enough to be the newest of the recent files.
    void ExpectNewest(const std::string& stage);

    void Key(const std::string& keys) { display_.Press(keys); }
    // A menu over the picture, by its letter.
    void OpenMenu(const std::string& letter);
    // Chooses from it, or leaves it, by keys, and waits until it is gone: keys that a compositor
    // has given to a menu are lost with it.
    void InMenu(const std::string& letter, const std::string& keys);
    // By its menu. Sway and Weston shut a menu, now and then, before it has the next key: what was
    // pressed then is pressed again while this spot, which the window leaves free, is as it was.
    void GoFullScreen(const Spot& beside);
    void Type(const std::string& text) { display_.Do("type --delay 5 '" + text + "'"); }
    void ClickAt(int x, int y);  // in the main window, menu bar included
    // The middle of an item of the list, beside a picture of the usual size; in the main window.
    [[nodiscard]] Spot ListItem(int index) const;
    void ClickListItem(int index);

    void MoveTo(const Spot& spot) { display_.Do("mousemove " + Words(spot)); }
    // Where a point of the view is on the screen, while the bar stands where it did at first.
    [[nodiscard]] Spot OfView(int x, int y) const;
    [[nodiscard]] std::uint32_t ColorAt(const Spot& spot) const {
        return display_.Look().At(spot.x, spot.y);
    }
    // How much of the screen has this colour.
    [[nodiscard]] int Count(std::uint32_t color) const;
    // The main window, its menu bar included.
    [[nodiscard]] SeenSize WindowSize() const;

    [[nodiscard]] Screenshot Look() const;
    [[nodiscard]] std::optional<Bar> Seen() const { return BarIn(Look()); }
    [[nodiscard]] int BarLeft() const { return Seen().value_or(Bar()).left; }
    [[nodiscard]] int BarWidth() const { return Seen().value_or(Bar()).width; }
    [[nodiscard]] SeenSize PictureSize() const { return PictureSizeIn(Look()); }

    [[nodiscard]] static std::string Words(const Spot& spot) {
        return std::to_string(spot.x) + " " + std::to_string(spot.y);
    }

    VirtualDisplay display_;
    std::string scale_;  // pixels of the screen to one of the window's; empty: 1
    std::optional<Child> program_;
    // Beside the display's own: NAME=VALUE, or NAME alone for what is not to be set.
    std::vector<std::string> environment_;

private:
    [[nodiscard]] std::string FirstWindow(const std::string& title, bool isDialog) const;
};

}  // namespace scenara::test
