// SPDX-License-Identifier: MIT
#include "editor/SpriteBrowser.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/EditedStage.h"
#include "render/ExpectError.h"

namespace scenara {
namespace {

using test::ExpectError;
using test::PaintedTexture;
using testing::ElementsAre;
using testing::IsEmpty;

// Writes down what it is asked for.
class RecordedBrowserWindow : public BrowserWindow {
public:
    void MakeRoom(Long width, Long height) override {
        Note("size " + std::to_string(width) + "x" + std::to_string(height));
    }
    void API_doevents() override {
        Note("events");
        if (const auto script = std::exchange(onEvents, nullptr)) {
            script();
        }
    }
    void ShowPicture(const BrowserPicture& picture) override {
        Note("picture " + std::to_string(picture.width) + "x" + std::to_string(picture.height));
        shown = picture;
    }
    void SetCaption(const std::string& caption) override { Note("caption " + caption); }
    [[nodiscard]] InnerSize LargestPicture() override { return largest; }
    [[nodiscard]] InnerSize PictureRoom() override { return room; }
    [[nodiscard]] InnerSize BoxOnScreen() override { return box; }
    void FillBox(const InnerSize& size, const std::vector<std::uint32_t>& pixels,
                 const std::string& text) override {
        Note("fill " + std::to_string(size.width) + "x" + std::to_string(size.height) +
             (text.empty() ? "" : " " + text));
        filled = pixels;
    }
    void CaptionChanged() override { Note("title"); }

    std::vector<std::string> Take() { return std::exchange(calls_, {}); }

    std::function<void()> onEvents;
    BrowserPicture shown;
    InnerSize largest{1024, 700};
    InnerSize room{320, 240};
    InnerSize box{100, 80};
    std::vector<std::uint32_t> filled;

private:
    void Note(std::string call) { calls_.push_back(std::move(call)); }

    std::vector<std::string> calls_;
};

class Browser : public testing::Test {
protected:
    void AddSprite(Integer width, Integer height, Long group, Integer image) {
        SpriteEntry sprite;
        sprite.width = width;
        sprite.height = height;
        sprite.group = group;
        sprite.image = image;
        sprite.texture = PaintedTexture(
            std::vector<std::string>(static_cast<std::size_t>(height),
                                     std::string(static_cast<std::size_t>(width), 'X')),
            0x102030);
        model.Sprites.push_back(sprite);
        ++model.SpriteCount;
    }
    // The browser with these sprites on the screen, the first one shown.
    void OpenWithThree() {
        AddSprite(200, 50, 7, 3);
        AddSprite(180, 20, 100000, -1);
        AddSprite(160, 10, -2, 0);
        browser.mnuDebug_Click();
        window.Take();
    }
    void Value(Long value) {
        bar.Value = value;
        browser.hscSGFX_Change();
    }

    StageModel model;
    Byte mode = 0;
    ScrollBar bar;
    RecordedBrowserWindow window;
    ViewOptions options = kPlainView;
    SpriteBrowser browser{model, options, mode, bar, window};
};

// --- the menu item ---

using SpriteBrowserMenu = Browser;

TEST_F(SpriteBrowserMenu, OpensAtTheFirstSprite) {
    AddSprite(200, 50, 7, 3);
    AddSprite(180, 20, 8, 0);
    browser.mnuDebug_Click();
    EXPECT_EQ(mode, 255);
    EXPECT_EQ(bar.Min, 0);
    EXPECT_EQ(bar.Max, 1);
    EXPECT_TRUE(bar.Visible);
    EXPECT_THAT(window.Take(), ElementsAre("size 200x50", "events", "picture 200x50",
                                           "caption (1\\2)  Group: 7  Image: 3"));
}

TEST_F(SpriteBrowserMenu, ClosesToTheSizeFromBefore) {
    window.room = {500, 300};
    OpenWithThree();
    window.room = {200, 50};
    browser.mnuDebug_Click();
    EXPECT_EQ(mode, 0);
    EXPECT_FALSE(bar.Visible);
    EXPECT_THAT(window.Take(), ElementsAre("size 500x300"));
}

TEST_F(SpriteBrowserMenu, OpensWhereItWasLeft) {
    OpenWithThree();
    Value(2);
    browser.mnuDebug_Click();
    window.Take();
    browser.mnuDebug_Click();
    EXPECT_EQ(bar.Value, 2);
    EXPECT_EQ(window.Take().back(), "caption (3\\3)  Group: -2  Image: 0");
}

TEST_F(SpriteBrowserMenu, OfAStageWithFewerSpritesOpensAtTheLastOne) {
    AddSprite(200, 50, 7, 3);
    bar.Value = 30;
    browser.mnuDebug_Click();
    EXPECT_EQ(bar.Value, 0);
    EXPECT_EQ(window.Take().back(), "caption (1\\1)  Group: 7  Image: 3");
}

TEST_F(SpriteBrowserMenu, WithoutSpritesShowsNothing) {
    browser.mnuDebug_Click();
    EXPECT_EQ(mode, 255);
    EXPECT_EQ(bar.Max, -1);
    EXPECT_EQ(bar.Value, 0);
    EXPECT_TRUE(bar.Visible);
    EXPECT_THAT(window.Take(), ElementsAre("picture 0x0"));
    browser.mnuDebug_Click();
    EXPECT_THAT(window.Take(), ElementsAre("size 320x240"));
}

// --- the scroll bar ---

using SpriteBrowserBar = Browser;

TEST_F(SpriteBrowserBar, ChangeShowsTheSpriteAtItsValue) {
    OpenWithThree();
    Value(1);
    EXPECT_THAT(window.Take(), ElementsAre("size 180x20", "events", "picture 180x20",
                                           "caption (2\\3)  Group: 100000  Image: -1"));
}

TEST_F(SpriteBrowserBar, ScrollShowsTheCameraInsteadOfTheSprite) {
    OpenWithThree();
    model.CamX = -12.5F;
    bar.Value = 2;
    browser.hscSGFX_Scroll();
    EXPECT_THAT(window.Take(), ElementsAre("size 160x10", "events", "picture 160x10",
                                           "caption (3\\3)  Group: -2  Image: 0", "caption -12.5"));
}

TEST_F(SpriteBrowserBar, CameraTextHasAZeroBeforeTheStop) {
    OpenWithThree();
    model.CamX = 0.5F;
    browser.hscSGFX_Scroll();
    EXPECT_EQ(window.Take().back(), "caption 0.5");
}

TEST_F(SpriteBrowserBar, ValueThatIsNoSpriteIsAnError) {
    OpenWithThree();
    for (const Long value : {Long{3}, Long{-1}}) {
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Value(value); });
    }
    ExpectError(RunTimeErrorKind::Overflow, [&] { Value(32768); });
}

// --- sizes ---

using SpriteBrowserSize = Browser;

TEST_F(SpriteBrowserSize, IsNoNarrowerThan160) {
    AddSprite(1, 1, 0, 0);
    browser.mnuDebug_Click();
    EXPECT_THAT(window.Take(), ElementsAre("size 160x1", "events", "picture 1x1",
                                           "caption (1\\1)  Group: 0  Image: 0"));
}

TEST_F(SpriteBrowserSize, IsNoLargerThanTheScreen) {
    AddSprite(1500, 800, 0, 0);
    browser.mnuDebug_Click();
    EXPECT_THAT(window.Take(), ElementsAre("size 1024x700", "events", "picture 1024x700",
                                           "caption (1\\1)  Group: 0  Image: 0"));
}

TEST_F(SpriteBrowserSize, OfAHugeSpriteTakesNoMoreMemoryThanTheScreen) {
    SpriteEntry sprite;
    sprite.width = 32767;
    sprite.height = 32767;
    sprite.texture = std::make_shared<test::NullTexture>(32767, 32767);
    const BrowserPicture picture = PictureOf(sprite, 1024, 700);
    EXPECT_EQ(picture.pixels.size(), 1024U * 700U);
}

// --- what happens in between ---

using SpriteBrowserEvents = Browser;

TEST_F(SpriteBrowserEvents, ClosingItShowsNoMore) {
    OpenWithThree();
    window.onEvents = [&] { browser.mnuDebug_Click(); };
    Value(1);
    EXPECT_THAT(window.Take(), ElementsAre("size 180x20", "events", "size 320x240"));
}

TEST_F(SpriteBrowserEvents, AnotherValueIsTheOneThatStays) {
    OpenWithThree();
    window.onEvents = [&] { Value(2); };
    Value(1);
    EXPECT_EQ(window.Take().back(), "caption (3\\3)  Group: -2  Image: 0");
    EXPECT_EQ(window.shown.width, 160);
}

TEST_F(SpriteBrowserEvents, AStageThatGoesShowsNoMore) {
    OpenWithThree();
    window.onEvents = [&] { model.Clear(); };
    Value(1);
    EXPECT_THAT(window.Take(), ElementsAre("size 180x20", "events"));
}

TEST_F(SpriteBrowserEvents, AStageThatIsReplacedShowsItsOwnSprite) {
    OpenWithThree();
    window.onEvents = [&] {
        model.Clear();
        AddSprite(170, 5, 50, 60);
        AddSprite(171, 6, 51, 61);
    };
    Value(1);
    EXPECT_THAT(window.Take(), ElementsAre("size 180x20", "events", "picture 171x6",
                                           "caption (2\\3)  Group: 51  Image: 61"));
}

TEST_F(SpriteBrowserEvents, TheSameValueAgainShowsItOnceMore) {
    OpenWithThree();
    window.onEvents = [&] {  // off and on again
        browser.mnuDebug_Click();
        browser.mnuDebug_Click();
    };
    Value(1);
    EXPECT_THAT(window.Take(),
                ElementsAre("size 180x20", "events", "size 320x240", "size 180x20", "events",
                            "picture 180x20", "caption (2\\3)  Group: 100000  Image: -1"));
}

TEST_F(SpriteBrowserEvents, AThousandValuesNestNoDeeper) {
    OpenWithThree();
    int depth = 0;
    int deepest = 0;
    int left = 1000;
    std::function<void()> drag = [&] {
        deepest = std::max(deepest, ++depth);
        if (left > 0) {
            --left;
            window.onEvents = drag;
            bar.Value = left % 2;
            browser.hscSGFX_Scroll();
        }
        --depth;
    };
    window.onEvents = drag;
    Value(2);
    EXPECT_EQ(left, 0);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(window.shown.width, 200);
}

TEST_F(SpriteBrowserEvents, ScrollThatClosesItLeavesTheCaption) {
    OpenWithThree();
    window.onEvents = [&] { browser.mnuDebug_Click(); };
    bar.Value = 1;
    browser.hscSGFX_Scroll();
    EXPECT_THAT(window.Take(), ElementsAre("size 180x20", "events", "size 320x240"));
}

TEST_F(SpriteBrowserEvents, ScrollThatLosesItsStageLeavesTheCaption) {
    OpenWithThree();
    window.onEvents = [&] { model.Clear(); };
    bar.Value = 1;
    browser.hscSGFX_Scroll();
    EXPECT_THAT(window.Take(), ElementsAre("size 180x20", "events"));
}

TEST_F(SpriteBrowserEvents, LettingGoOfTheThumbMeanwhileShowsTheSpritesCaption) {
    OpenWithThree();
    window.onEvents = [&] { Value(2); };
    bar.Value = 1;
    browser.hscSGFX_Scroll();
    EXPECT_EQ(window.Take().back(), "caption (3\\3)  Group: -2  Image: 0");
}

TEST_F(SpriteBrowserEvents, AnErrorLeavesItReadyForTheNextValue) {
    OpenWithThree();
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Value(3); });
    Value(1);
    EXPECT_EQ(window.shown.width, 180);
}

// --- the picture ---

SpriteEntry Painted(const std::vector<std::string>& rows, std::uint32_t color) {
    SpriteEntry sprite;
    sprite.width = static_cast<Integer>(rows.front().size());
    sprite.height = static_cast<Integer>(rows.size());
    sprite.texture = PaintedTexture(rows, color);
    return sprite;
}

TEST(BrowserPicture, IsTheSpriteOverACheckerboard) {
    const BrowserPicture picture = PictureOf(Painted({"X.", ".X"}, 0x123456), 100, 100);
    EXPECT_EQ(picture.width, 2);
    EXPECT_EQ(picture.height, 2);
    EXPECT_THAT(picture.pixels, ElementsAre(0xFF123456, 0xFFCCCCCC, 0xFFCCCCCC, 0xFF123456));
}

TEST(BrowserPicture, HasSquaresOfEightPixels) {
    const BrowserPicture picture =
        PictureOf(Painted(std::vector<std::string>(9, std::string(17, '.')), 0), 100, 100);
    const auto at = [&](std::size_t x, std::size_t y) { return picture.pixels.at(y * 17 + x); };
    EXPECT_EQ(at(7, 0), 0xFFCCCCCC);
    EXPECT_EQ(at(8, 0), 0xFF999999);
    EXPECT_EQ(at(15, 7), 0xFF999999);
    EXPECT_EQ(at(16, 0), 0xFFCCCCCC);
    EXPECT_EQ(at(7, 8), 0xFF999999);
    EXPECT_EQ(at(8, 8), 0xFFCCCCCC);
}

TEST(BrowserPicture, MixesWhatIsHalfTransparent) {
    SpriteEntry sprite = Painted({"X"}, 0);
    const LockedPixels pixels = sprite.texture->LockRect();
    pixels.words[0] = 0x80FF0000;  // 128 of 255
    sprite.texture->UnlockRect();
    // 255 x 128 / 255 + 204 x 127 / 255 = 229.6; 204 x 127 / 255 = 101.6
    EXPECT_THAT(PictureOf(sprite, 100, 100).pixels, ElementsAre(0xFFE66666));
}

TEST(BrowserPicture, IsCutAtTheRightAndBelow) {
    const BrowserPicture picture = PictureOf(Painted({"X.", "..", "XX"}, 0x123456), 1, 2);
    EXPECT_EQ(picture.width, 1);
    EXPECT_EQ(picture.height, 2);
    EXPECT_THAT(picture.pixels, ElementsAre(0xFF123456, 0xFFCCCCCC));
}

TEST(BrowserPicture, WithoutATextureIsNone) {
    SpriteEntry sprite;
    sprite.width = 4;
    sprite.height = 4;
    EXPECT_EQ(PictureOf(sprite, 100, 100).width, 0);
    EXPECT_THAT(PictureOf(sprite, 100, 100).pixels, IsEmpty());
}

TEST(BrowserPicture, OfNoRoomIsNone) {
    EXPECT_THAT(PictureOf(Painted({"X"}, 1), 0, 10).pixels, IsEmpty());
    EXPECT_THAT(PictureOf(Painted({"X"}, 1), 10, -5).pixels, IsEmpty());
}

TEST(BrowserPicture, LeavesTheTextureReadyToBeDrawn) {
    SpriteEntry sprite = Painted({"X.."}, 1);
    sprite.texture->PreLoad();
    static_cast<void>(PictureOf(sprite, 100, 100));
    const auto& soft = dynamic_cast<const SoftTexture&>(*sprite.texture);
    EXPECT_NE(soft.PixelCoverage().WhatKind(), soft::Coverage::Kind::Unknown);
}

}  // namespace
}  // namespace scenara
