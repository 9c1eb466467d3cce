// SPDX-License-Identifier: MIT
//
// What the pointer finds is what is drawn: made-up stages of all kinds of elements, each in a
// colour of its own, drawn by the soft device and asked for pixel by pixel.
#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "editor/EditedStage.h"
#include "platform/soft/SoftDirect3D.h"
#include "render/Frame.h"

namespace scenara {
namespace {

using test::PaintedTexture;
using test::SetClock;
using test::StageBuilder;

class DrawnStage {
public:
    DrawnStage(unsigned seed, const ViewOptions& options) : options_(options), random_(seed) {
        engine_.Engine_Init();
        for (std::uint32_t number = 1; number <= kElements; ++number) {
            AddElement(number);
        }
        if (options.Additions && Below(2) == 0) {
            model_.ZOffset = Between(0, 240);
            model_.ZoomOut = static_cast<Single>(Between(30, 100)) / 100;
            model_.ZoomIn = static_cast<Single>(Between(100, 250)) / 100;
            model_.StartZoom = static_cast<Single>(Between(30, 250)) / 100;
        }
        PlaceCamera(model_, camera_, View());
        PrepareElements(model_, options_, View());
        for (BackgroundElement& element : model_.Elements) {
            element.visible = Below(8) == 0 ? 0 : 1;
        }
        // As after a walk of the camera's.
        model_.CamX = camera_.previousX = static_cast<Single>(Between(-40, 40));
        model_.CamY = camera_.previousY = static_cast<Single>(Between(-30, 0));
    }

    void Draw() { DrawScene(engine_, tiles_, flags_); }

    // The number of the element that is seen there, 0 for none.
    [[nodiscard]] std::uint32_t Drawn(Long x, Long y) const {
        return machine_.Device()->BackBuffer()[static_cast<std::size_t>(y * View().width + x)] &
               0xFFFFFF;
    }
    [[nodiscard]] std::uint32_t Picked(Long x, Long y) const {
        const Integer index =
            TopmostElementAt(model_, DrawOptionsOf(model_, camera_, picture_, options_), {x, y});
        return static_cast<std::uint32_t>(index + 1);
    }
    // Whether what is seen there lies inside of its element's outline.
    [[nodiscard]] bool IsOutlined(Long x, Long y) const {
        const auto index = static_cast<Integer>(Drawn(x, y) - 1);
        const auto outline =
            OutlineOf(model_, DrawOptionsOf(model_, camera_, picture_, options_), index);
        return outline && x >= outline->left && x < outline->right && y >= outline->top &&
               y < outline->bottom;
    }

private:
    static constexpr std::uint32_t kElements = 12;

    Integer Between(int least, int most) {
        return static_cast<Integer>(std::uniform_int_distribution<int>(least, most)(random_));
    }
    int Below(int end) { return Between(0, end - 1); }

    // A sprite of any size, with holes, in this colour.
    Integer Sprite(std::uint32_t color) {
        const auto width = static_cast<std::size_t>(Between(1, 90));
        std::vector<std::string> rows(static_cast<std::size_t>(Between(1, 60)));
        for (std::string& row : rows) {
            for (std::size_t x = 0; x < width; ++x) {
                row += Below(3) == 0 ? '.' : 'X';
            }
        }
        const Integer index =
            build_.Sprite("", static_cast<Integer>(width), static_cast<Integer>(rows.size()),
                          Between(-5, 40), Between(-5, 40));
        model_.Sprites.back().texture = PaintedTexture(rows, color);
        model_.Sprites.back().trueColor = Below(4) == 0 ? 1 : 0;
        return index;
    }

    BackgroundElement& AnyKind(std::uint32_t color) {
        const Integer sprite = Sprite(color);
        switch (Below(3)) {
            case 0: return build_.Still(sprite);
            case 1: {
                BackgroundElement& element = build_.Parallax(sprite);
                element.xscaleTop = static_cast<Single>(Between(1, 3));
                element.xscaleBottom = static_cast<Single>(Between(1, 3));
                element.yscaleStart = static_cast<Single>(Between(40, 200));
                if (Below(3) == 0) {
                    element.rowWidths = {static_cast<Single>(Between(1, 90)),
                                         static_cast<Single>(Between(0, 90))};
                }
                return element;
            }
            default: {
                const std::vector<std::string> flips = {"", "h", "v", "hv"};
                const Integer action =
                    build_.Action({{sprite, -1, Between(-20, 20), Between(-20, 20),
                                    flips[static_cast<std::size_t>(Below(4))]}});
                if (options_.Additions) {
                    ScaleAndTurn(model_.Actions[static_cast<std::size_t>(action)].frames.front());
                }
                return build_.Animation(action);
            }
        }
    }

    // Any scale and angle, or a whole one.
    void ScaleAndTurn(StageFrame& frame) {
        for (Single& scale : frame.scale) {
            const int parts = Between(4, 24);
            scale = static_cast<Single>(Below(3) == 0 ? -parts : parts) / (Below(2) == 0 ? 8 : 11);
        }
        frame.angle = static_cast<Single>(Below(3) == 0 ? 90 * Between(-4, 4) : Between(-400, 400));
        if (Below(3) == 0) {
            frame.offsetFraction = {static_cast<Single>(Below(4)) / 4,
                                    static_cast<Single>(Below(7)) / 7};
        }
    }

    void AddElement(std::uint32_t number) {
        BackgroundElement& element =
            StageBuilder::At(AnyKind(number), Between(-40, 320), Between(-40, 240));
        element.mask = static_cast<Integer>(Below(3) == 0 ? 0 : 1);
        element.layerno = Between(-1, 2);
        element.tileX = Between(0, 3);
        element.tileY = Between(0, 3);
        element.tileSpacingGiven = Below(2) == 0 ? 0 : 3;
        element.tileSpacingX = Between(-5, 60);
        element.tileSpacingY = Between(-5, 60);
        if (Below(3) == 0) {
            element.windowActive = 1;
            element.windowX1 = static_cast<Single>(Between(-20, 340));
            element.windowX2 = static_cast<Single>(Between(-20, 340));
            element.windowY1 = static_cast<Single>(Between(-20, 260));
            element.windowY2 = static_cast<Single>(Between(-20, 260));
        }
        if (Below(4) == 0) {
            element.maskWindowActive = 1;
            for (Single& edge : element.maskWindow) {
                edge = static_cast<Single>(Between(-200, 260));
            }
        }
        if (Below(3) == 0) {
            element.zoomDelta = {static_cast<Single>(Between(0, 200)) / 100,
                                 static_cast<Single>(Between(0, 200)) / 100};
        }
    }

    ViewOptions options_;
    std::mt19937 random_;
    SoftDirect3D machine_{test::KeptTextureMemory()};
    HeadlessWindow window_;
    HeadlessMessages messages_;
    StageModel model_;
    StageBuilder build_{model_};
    View picture_;
    Engine engine_{machine_, window_, messages_, model_, picture_};
    Camera camera_;
    ViewFlags flags_;
    HeadlessKeyboard keyboard_;
    SetClock clock_;
    HeadlessPointer pointer_;
    TileEngine tiles_{engine_,
                      model_,
                      camera_,
                      picture_,
                      flags_,
                      options_,
                      CameraInput{keyboard_, clock_, pointer_, window_}};
};

class PickedAsDrawn : public testing::TestWithParam<unsigned> {};

TEST_P(PickedAsDrawn, EveryPixel) {
    DrawnStage stage(GetParam(), ViewOptions{GetParam() % 2 == 0});
    stage.Draw();
    int seen = 0;
    // Every third pixel of every line, another third in each.
    for (Long y = 0; y < View().height; ++y) {
        for (Long x = y % 3; x < View().width; x += 3) {
            const std::uint32_t drawn = stage.Drawn(x, y);
            ASSERT_EQ(stage.Picked(x, y), drawn) << x << "," << y;
            if (drawn != 0) {
                ++seen;
                ASSERT_TRUE(stage.IsOutlined(x, y)) << x << "," << y;
            }
        }
    }
    EXPECT_GT(seen, 20) << "a stage with something to see";
    stage.Draw();  // looking for pixels has left the textures as they were
    for (Long y = 0; y < View().height; y += 7) {
        for (Long x = 0; x < View().width; x += 7) {
            ASSERT_EQ(stage.Picked(x, y), stage.Drawn(x, y));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Stages, PickedAsDrawn, testing::Range(1U, 25U));

}  // namespace
}  // namespace scenara
