// SPDX-License-Identifier: MIT
//
// Every pixel of the window, at sizes that the user and the window manager give it: none is left as
// it was on the screen before, none stays from another size.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/WindowPixels.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

struct Case {
    Manager manager;
    const char* scale;    // the screen's pixels to one of the toolkit's, as the user asks for it
    int screenScale = 1;  // and the compositor, times that
    // In long runs these come after it, so that each manager has seen all of them.
    std::vector<const char*> more = {};
};

// Six times the view, so that the full screen has a whole multiple without any rest, and that the
// window has room at every scale.
constexpr int kWidth = 1920;
constexpr int kHeight = 1440;

class WindowPixelsTest : public DesktopProgram, public testing::WithParamInterface<Case> {
protected:
    WindowPixelsTest()
        : DesktopProgram(
              DisplaySetup{GetParam().manager, kWidth, kHeight, 1, GetParam().screenScale}) {
        environment_ = {"QT_WAYLAND_DISABLE_WINDOWDECORATION=1"};
    }

    [[nodiscard]] static std::vector<const char*> Scales() {
        std::vector<const char*> scales = {GetParam().scale};
        if (IsLong()) {
            scales.insert(scales.end(), GetParam().more.begin(), GetParam().more.end());
        }
        return scales;
    }
    [[nodiscard]] static bool IsLong() { return Rounds(1) > 1; }
    [[nodiscard]] double Scale() const {
        return std::strtod(scale_.c_str(), nullptr) * GetParam().screenScale;
    }
    [[nodiscard]] static bool Is(Manager manager) { return GetParam().manager == manager; }

    // All of them in long runs; else one for each row, and for all rows all of them.
    [[nodiscard]] std::vector<SeenSize> Sizes() const {
        std::vector<SeenSize> all = {{701, 533}, {1003, 611}, {770, 911}, {1801, 1102}};
        std::erase_if(all, [this](const SeenSize& size) { return size.width < MenusWidth(); });
        if (IsLong()) {
            return all;
        }
        return {all[static_cast<std::size_t>(Scale() * 100) % all.size()]};
    }

    // The window is no narrower than its menus, which are not wider than that.
    [[nodiscard]] double MenusWidth() const { return 450 * Scale(); }

    void StartBar(const char* scale) {
        scale_ = scale;
        std::filesystem::remove(Folder() / "bin/Scenara.ini");
        display_.FillBackground();
        WriteSettings("StageList = 255\r\n");
        Start({}, StagePath("bar"));
        ASSERT_TRUE(Eventually([&] { return PictureSize().width > 0; })) << display_.AllWindows();
    }

    // The window is there, so large, and each of its pixels is right.
    void ExpectPixels(const std::string& what, const std::optional<SeenSize>& size = {},
                      bool hasMenus = true) {
        std::string wrong;
        EXPECT_TRUE(Eventually([&] {
            const std::optional<Place> place =
                hasMenus ? MainPlace() : Place{0, 0, kWidth, kHeight};
            if (!place) {
                wrong = "no window";
            } else if (size && (IsOther(place->width, size->width) ||
                                IsOther(place->height, size->height))) {
                wrong =
                    "it is " + std::to_string(place->width) + " x " + std::to_string(place->height);
            } else {
                wrong = WrongPixels(Look(), {*place, Scale(), hasMenus, true});
            }
            return wrong.empty();
        })) << what
            << ": " << wrong << display_.AllWindows();
    }

    // The toolkit wants sizes of whole pixels of its own.
    [[nodiscard]] bool IsOther(int length, int wanted) const {
        return std::abs(length - wanted) >
               (Is(Manager::Sway) ? GetParam().screenScale - 1 : std::ceil(Scale() - 1));
    }

    void Resize(const SeenSize& size) {
        const std::string width = std::to_string(size.width / GetParam().screenScale);
        const std::string height = std::to_string(size.height / GetParam().screenScale);
        if (Is(Manager::Openbox)) {
            display_.Do("windowmove " + MainWindow() + " 0 0 windowsize " + MainWindow() + " " +
                        width + " " + height);
        } else {
            const std::string unit = Is(Manager::Sway) ? " px" : "";
            display_.Tell("'border none, floating enable, resize set " + width + unit + " " +
                          height + unit + ", move position center'");
        }
    }

    // As large as the screen lets it; and back.
    void Maximise(bool does) {
        switch (GetParam().manager) {
            case Manager::Openbox:
                display_.ChangeState(does, MainWindow(), "_NET_WM_STATE_MAXIMIZED_VERT",
                                     "_NET_WM_STATE_MAXIMIZED_HORZ");
                break;
            case Manager::Weston: Key("super+shift+m"); break;
            case Manager::I3:
            case Manager::Sway: display_.Tell(does ? "floating disable" : "floating enable"); break;
        }
    }

    void ExpectAllPainted();
};

void WindowPixelsTest::ExpectAllPainted() {
    ExpectPixels("at first");
    if (!Is(Manager::Weston)) {
        for (const SeenSize& size : Sizes()) {
            Resize(size);
            ExpectPixels(std::to_string(size.width) + " x " + std::to_string(size.height), size);
        }
    }
    Maximise(true);
    EXPECT_TRUE(Eventually([&] {
        const Place place = MainPlace().value_or(Place());
        return place.width >= kWidth - 10 && place.height >= kHeight - 40;
    })) << "maximised"
        << display_.AllWindows();
    ExpectPixels("maximised");
    Maximise(false);
    ExpectPixels("restored");
    GoFullScreen({0, 0});
    ExpectPixels("full screen", {}, false);
    Key("Escape");
    ExpectPixels("after the full screen");
}

TEST_P(WindowPixelsTest, AreAllPainted) {
    for (const char* const scale : Scales()) {
        SCOPED_TRACE(scale);
        StartBar(scale);
        ExpectAllPainted();
        program_.reset();  // ends it
        if (HasFailure()) {
            return;
        }
    }
}

std::string NameOfCase(const testing::TestParamInfo<Case>& row) {
    std::string scale = row.param.scale;
    std::replace(scale.begin(), scale.end(), '.', '_');
    return NameOf(row.param.manager) + scale +
           (row.param.screenScale == 1 ? "" : "Times" + std::to_string(row.param.screenScale));
}

const Case kCases[] = {
    {Manager::Openbox, "1.25", 1, {"1", "1.354", "1.5", "1.75"}},
    {Manager::Openbox, "3", 1, {"2"}},
    {Manager::I3, "1", 1, {"1.25", "1.354", "1.5"}},
    {Manager::I3, "1.75", 1, {"2", "3"}},
    {Manager::Weston, "1", 1, {"1.25", "1.354"}},
    {Manager::Weston, "1.5", 1, {"1.75", "2", "3"}},
    {Manager::Weston, "1", 2},
    {Manager::Sway, "1.354", 1, {"1", "1.25", "1.5", "1.75"}},
    {Manager::Sway, "2"},
    {Manager::Sway, "1", 2},
    // The toolkit's own factor of 3 leaves up to a pixel at an edge to the desktop there.
    {Manager::Sway, "1", 3},
};

INSTANTIATE_TEST_SUITE_P(On, WindowPixelsTest, testing::ValuesIn(kCases), NameOfCase);

}  // namespace
}  // namespace scenara::test
