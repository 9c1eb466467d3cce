// SPDX-License-Identifier: MIT
#include "editor/ElementPick.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "editor/EditedStage.h"
#include "render/ExpectError.h"

namespace scenara {
namespace {

using test::EditedStage;
using test::ExpectError;
using test::StageBuilder;

class Pick : public testing::Test {
protected:
    explicit Pick(const ViewOptions& options = kPlainView) : stage(options) {}

    // Which pixels of a line of the view the first element covers: the ranges "10-13 20-23".
    std::string Across(Long y) {
        return Ranges(View().width, [&](Long x) { return stage.At(x, y) == 0; });
    }
    std::string Down(Long x) {
        return Ranges(View().height, [&](Long y) { return stage.At(x, y) == 0; });
    }

    template <typename Covered>
    static std::string Ranges(Long end, Covered covered) {
        std::string text;
        for (Long at = 0; at < end; ++at) {
            const Long from = at;
            while (at < end && covered(at)) {
                ++at;
            }
            if (at > from) {
                text +=
                    (text.empty() ? "" : " ") + std::to_string(from) + "-" + std::to_string(at - 1);
            }
        }
        return text;
    }

    BackgroundElement& Still(Integer sprite, Long x, Long y) {
        return StageBuilder::At(stage.build.Still(sprite), x, y);
    }
    // One frame at (50, 60), mirrored like this, with holes.
    BackgroundElement& Flipped(Integer sprite, const char* flip) {
        BackgroundElement& element = StageBuilder::At(
            stage.build.Animation(stage.build.Action({{sprite, 5, 0, 0, flip}})), 50, 60);
        element.mask = 1;
        return element;
    }
    static void Window(BackgroundElement& element, const ViewFrame& inner) {
        element.windowX1 = static_cast<Single>(inner.left);
        element.windowX2 = static_cast<Single>(inner.right);
        element.windowY1 = static_cast<Single>(inner.top);
        element.windowY2 = static_cast<Single>(inner.bottom);
        element.windowActive = 1;
    }
    std::optional<ViewFrame> Outline(Integer index = 0) {
        return OutlineOf(stage.model,
                         DrawOptionsOf(stage.model, stage.camera, stage.picture, stage.view),
                         index);
    }

    EditedStage stage;
};

class PickWithAdditions : public Pick {
protected:
    PickWithAdditions() : Pick(ViewOptions{true}) {}
};

// --- one picture ---

TEST_F(Pick, FindsThePixelsOfAPicture) {
    Still(stage.Picture({"XXXX", "XXXX", "XXXX"}), 10, 20);
    stage.Start();
    EXPECT_EQ(Across(19), "");
    EXPECT_EQ(Across(20), "10-13");
    EXPECT_EQ(Across(22), "10-13");
    EXPECT_EQ(Across(23), "");
    EXPECT_EQ(Outline(), (ViewFrame{10, 20, 14, 23}));
}

TEST_F(Pick, SeesThroughTheHolesOfMaskedElementsOnly) {
    const Integer picture = stage.Picture({"X..X", ".XX."});
    Still(picture, 10, 20).mask = 1;
    stage.Start();
    EXPECT_EQ(Across(20), "10-10 13-13");
    EXPECT_EQ(Across(21), "11-12");
    stage.Element(0).mask = 0;
    EXPECT_EQ(Across(20), "10-13");
    stage.Element(0).mask = 2;
    EXPECT_EQ(Across(20), "10-13");
    EXPECT_EQ(Outline(), (ViewFrame{10, 20, 14, 22})) << "holes are part of the rectangle";
}

TEST_F(Pick, FindsWhatHasAnyAlpha) {
    const Integer picture = stage.Picture({"XXXXX"});
    const LockedPixels pixels = stage.model.Sprites.front().texture->LockRect();
    pixels.words[1] = 0x00FFFFFF;
    pixels.words[2] = 0x01FFFFFF;
    pixels.words[3] = 0x80FFFFFF;
    stage.model.Sprites.front().texture->UnlockRect();
    Still(picture, 10, 20).mask = 1;
    stage.Start();
    EXPECT_EQ(Across(20), "10-10 12-14");
    stage.Element(0).mask = 0;
    EXPECT_EQ(Across(20), "10-14");
    stage.model.Sprites.front().trueColor = 1;
    EXPECT_EQ(Across(20), "10-10 12-14") << "without a palette there is no mask to switch off";
}

TEST_F(Pick, HasAnAxis) {
    Still(stage.Picture({"XX", "XX"}, 5, 1), 10, 20);
    stage.Start();
    EXPECT_EQ(Across(19), "5-6");
    EXPECT_EQ(Across(20), "5-6");
    EXPECT_EQ(Across(21), "");
}

TEST_F(Pick, OutsideOfTheViewFindsNothing) {
    Still(stage.Square(), -5, -5);
    stage.Start();
    EXPECT_EQ(stage.At(0, 0), 0);
    EXPECT_EQ(stage.At(-1, 0), -1);
    EXPECT_EQ(stage.At(0, -1), -1);
    StageBuilder::At(stage.Element(0), 315, 235);
    PrepareElements(stage.model, stage.view, View());
    EXPECT_EQ(stage.At(319, 239), 0);
    EXPECT_EQ(stage.At(320, 239), -1);
    EXPECT_EQ(stage.At(319, 240), -1);
    EXPECT_EQ(stage.At(2147483647, -2147483647), -1);
}

TEST_F(Pick, RoundsPositionsAsTheDrawingDoes) {
    Still(stage.Picture({"XX"}), 10, 20);
    stage.Start();
    stage.Element(0).posX = 10.5F;
    EXPECT_EQ(Across(20), "10-11");
    stage.Element(0).posX = 11.5F;
    EXPECT_EQ(Across(20), "12-13");
}

TEST_F(Pick, FollowsSwingAndLink) {
    Still(stage.Picture({"XX"}), 10, 20);
    stage.Start();
    stage.Element(0).sinOffset = {3, 1};
    EXPECT_EQ(Across(21), "13-14");
    stage.Element(0).ctrlOffset = {2, 0};
    EXPECT_EQ(Across(21), "15-16");
}

TEST_F(Pick, WithoutATextureIsAWhiteRectangle) {
    const Integer picture = stage.Picture({"...."});
    Still(picture, 10, 20).mask = 1;
    stage.model.Sprites[0].texture.reset();
    stage.Start();
    EXPECT_EQ(Across(20), "10-13");
}

TEST_F(Pick, OfAnElementWithoutAPictureFindsNothing) {
    Still(-1, 10, 20);
    stage.build.Dummy();
    stage.build.Animation(-1);
    stage.Start();
    EXPECT_EQ(Across(20), "");
    for (const Integer index : {Integer{0}, Integer{1}, Integer{2}}) {
        EXPECT_EQ(Outline(index), std::nullopt);
    }
}

TEST_F(Pick, OfASpriteOutOfTheTableIsAnError) {
    Still(stage.Square(), 10, 20);
    stage.Start();
    stage.Element(0).spriteIndex = 1;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { static_cast<void>(stage.At(0, 0)); });
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { static_cast<void>(Outline()); });
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { static_cast<void>(Outline(1)); });
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { static_cast<void>(Outline(-1)); });
}

// --- order ---

TEST_F(Pick, FindsTheLaterOfTwo) {
    const Integer square = stage.Square();
    Still(square, 0, 0);
    Still(square, 5, 0);
    stage.Start();
    EXPECT_EQ(stage.At(4, 0), 0);
    EXPECT_EQ(stage.At(5, 0), 1);
}

TEST_F(Pick, FindsTheFrontLayerFirst) {
    const Integer square = stage.Square();
    Still(square, 0, 0).layerno = 1;
    Still(square, 0, 0);
    Still(square, 0, 0).layerno = 0;
    stage.Start();
    EXPECT_EQ(stage.At(0, 0), 0);
    stage.Element(0).layerno = 0;
    EXPECT_EQ(stage.At(0, 0), 2);
    stage.Element(1).layerno = -1;  // drawn in both passes
    EXPECT_EQ(stage.At(0, 0), 1);
}

TEST_F(Pick, PassesOverHiddenAndDisabledElements) {
    const Integer square = stage.Square();
    Still(square, 0, 0);
    Still(square, 0, 0);
    Still(square, 0, 0);
    stage.Start();
    stage.Element(2).visible = 0;
    EXPECT_EQ(stage.At(0, 0), 1);
    stage.Element(1).enabled = 0;
    EXPECT_EQ(stage.At(0, 0), 0);
    EXPECT_EQ(Outline(2), (ViewFrame{0, 0, 10, 10})) << "one that blinks keeps its frame";
}

TEST_F(Pick, SeesWhatIsBehindAHole) {
    Still(stage.Square(), 0, 0);
    Still(stage.Picture({"X.X"}), 0, 0).mask = 1;
    stage.Start();
    EXPECT_EQ(stage.At(0, 0), 1);
    EXPECT_EQ(stage.At(1, 0), 0);
    EXPECT_EQ(stage.At(2, 0), 1);
    EXPECT_EQ(stage.At(3, 0), 0);
}

// --- tiling ---

TEST_F(Pick, FindsEveryCopyAcross) {
    BackgroundElement& element = Still(stage.Picture({"X..X"}), 10, 20);
    element.mask = 1;
    element.tileX = 3;
    element.tileSpacingX = 6;  // a copy every 10
    stage.Start();
    EXPECT_EQ(Across(20), "10-10 13-13 20-20 23-23 30-30 33-33");
    EXPECT_EQ(Outline(), (ViewFrame{10, 20, 34, 21}));
}

TEST_F(Pick, FindsEveryCopyDown) {
    BackgroundElement& element = Still(stage.Picture({"X", "X"}), 10, 20);
    element.tileY = 2;
    element.tileSpacingY = 3;  // a copy every 5
    stage.Start();
    EXPECT_EQ(Down(10), "20-21 25-26");
    EXPECT_EQ(Outline(), (ViewFrame{10, 20, 11, 27}));
}

TEST_F(Pick, FindsEndlessCopiesOnBothSides) {
    BackgroundElement& element = Still(stage.Picture({"XX"}), 110, 20);
    element.tileX = 1;
    element.tileSpacingX = 98;  // a copy every 100: 10, 110, 210, 310
    stage.Start();
    EXPECT_EQ(Across(20), "10-11 110-111 210-211 310-311");
    EXPECT_EQ(Outline(), (ViewFrame{10, 20, 312, 21}));
}

// --- windows ---

TEST_F(Pick, FindsWhatIsInsideOfTheWindow) {
    Window(Still(stage.Square(), 10, 20), {12, 22, 14, 23});
    stage.Start();
    EXPECT_EQ(Across(21), "");
    EXPECT_EQ(Across(22), "12-14");
    EXPECT_EQ(Down(12), "22-23");
    EXPECT_EQ(Outline(), (ViewFrame{12, 22, 15, 24}));
}

TEST_F(Pick, SeesThePartOfThePictureThatTheWindowShows) {
    BackgroundElement& element = Still(stage.Picture({"X...X..X"}), 10, 20);
    element.mask = 1;
    Window(element, {12, 0, 15, 239});
    stage.Start();
    EXPECT_EQ(Across(20), "14-14");
}

// --- animations ---

TEST_F(Pick, FindsTheFrameThatIsShown) {
    const Integer small = stage.Picture({"XX"}, 1, 0);
    const Integer large = stage.Picture({"XXXX", "XXXX"});
    StageBuilder::At(
        stage.build.Animation(stage.build.Action({{small, 5, 3, 0}, {large, 5, -4, 1}, {-1, 5}})),
        50, 60);
    stage.Start();
    EXPECT_EQ(Across(60), "52-53");  // 50 + 3, its axis 1 to the left
    stage.Element(0).frameIndex = 1;
    EXPECT_EQ(Across(60), "");
    EXPECT_EQ(Across(61), "46-49");
    EXPECT_EQ(Across(62), "46-49");
    stage.Element(0).frameIndex = 2;
    EXPECT_EQ(Across(61), "");
    EXPECT_EQ(Outline(), std::nullopt);
}

TEST_F(Pick, FindsMirroredFramesAtTheSamePlace) {
    BackgroundElement& element = Flipped(stage.Picture({"X..."}, 1, 0), "h");
    element.tileX = 3;  // without effect
    stage.Start();
    EXPECT_EQ(Across(60), "52-52");  // drawn at 49, its last column there
}

TEST_F(Pick, FindsTheWindowedPartOfMirroredFrames) {
    BackgroundElement& element = Flipped(stage.Picture({"XX.X"}), "h");
    Window(element, {51, 0, 52, 239});
    stage.Start();
    EXPECT_EQ(Across(60), "52-52");  // mirrored X.XX at 50: only 51 and 52 are shown
}

TEST_F(PickWithAdditions, FindsMirroredFramesAboutTheirAxis) {
    Flipped(stage.Picture({"X..."}, 1, 0), "h");
    stage.Start();
    EXPECT_EQ(Across(60), "50-50");  // drawn at 50 - (4 - 1), its last column there
}

TEST_F(PickWithAdditions, FindsFramesUpsideDown) {
    Flipped(stage.Picture({"XX", "..", ".."}, 0, 1), "v");
    stage.Start();
    EXPECT_EQ(Down(50), "60-60");  // drawn at 60 - (3 - 1), its last row there
}

TEST_F(PickWithAdditions, SeesThroughTheHolesOfBlendedElements) {
    Still(stage.Picture({"X..X"}), 10, 20).blending.kind = BlendKind::Add;
    stage.Start();
    EXPECT_EQ(Across(20), "10-10 13-13");
}

// --- parallax ---

TEST_F(Pick, FindsEveryRowOfAParallaxPictureWhereItStands) {
    BackgroundElement& element = StageBuilder::At(
        stage.build.Parallax(stage.Picture({"XXXXXXXXXX", "XXXXXXXXXX", "XXXXXXXXXX"})), 100, 50);
    element.xscaleTop = 1;
    element.xscaleBottom = 3;
    stage.Start();
    stage.model.CamX = -5;
    stage.Element(0).posX = 100;
    EXPECT_EQ(Across(50), "100-109");
    EXPECT_EQ(Across(51), "95-104");  // at twice the speed
    EXPECT_EQ(Across(52), "90-99");   // and at three times
    EXPECT_EQ(Across(53), "");
    EXPECT_EQ(Outline(), (ViewFrame{90, 50, 110, 53}));
}

TEST_F(PickWithAdditions, FindsTheRowsOfAStretchedPicture) {
    BackgroundElement& element =
        StageBuilder::At(stage.build.Parallax(stage.Picture({"X", ".", "X"})), 100, 50);
    element.mask = 1;
    element.yscaleStart = 50;  // twice as tall
    stage.Start();
    EXPECT_EQ(Down(100), "50-51 54-55");
}

// --- scaled stages ---

TEST_F(PickWithAdditions, FindsTheCopiesOfAScaledStage) {
    BackgroundElement& element =
        StageBuilder::At(stage.build.Still(stage.Picture({"X.XX"})), 10, 20);
    element.mask = 1;
    element.tileX = 2;
    element.tileSpacingX = 1;
    stage.model.StageXScale = 1.5F;
    stage.model.StageYScale = 3;
    stage.Start();
    // 160 - 150 * 1.5 = -65; a copy every 7.5, of which each pixel is 1.5 wide.
    EXPECT_EQ(Across(60), "");
    StageBuilder::At(stage.Element(0), 110, 20);  // 160 - 50 * 1.5 = 85
    EXPECT_EQ(Across(60), "85-85 88-90 93-93 96-98");
    EXPECT_EQ(Outline(), (ViewFrame{85, 60, 99, 63}));
}

// --- outlines ---

TEST_F(Pick, OutlinesAreCutAtTheView) {
    BackgroundElement& element = Still(stage.Square(), -4, 235);
    stage.Start();
    EXPECT_EQ(Outline(), (ViewFrame{0, 235, 6, 240}));
    StageBuilder::At(element, 320, 0);
    PrepareElements(stage.model, stage.view, View());
    EXPECT_EQ(Outline(), std::nullopt);
}

TEST_F(Pick, OutlinesLeaveOutCopiesBesideTheView) {
    BackgroundElement& element = Still(stage.Square(), -200, 20);
    element.tileX = 2;
    element.tileSpacingX = 290;  // the other one at 100
    stage.Start();
    EXPECT_EQ(Outline(), (ViewFrame{100, 20, 110, 30}));
}

}  // namespace
}  // namespace scenara
