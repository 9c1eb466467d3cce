// SPDX-License-Identifier: MIT
//
// What additions read of an element and of frame lines beyond plain reading. Each definition is
// also read plainly, where the fields stay as they were.
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BothReadings.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// --- kinds ---

struct KindRow {
    const char* written;
    const char* kind;
    const char* plain;
};

class ElementKinds : public testing::TestWithParam<KindRow> {};

TEST_P(ElementKinds, AreDecidedByTheirFirstLetter) {
    const BothReadings read(std::string("[BG]\r\ntype = ") + GetParam().written + "\r\n");
    EXPECT_EQ(read.WithElement().type, GetParam().kind);
    EXPECT_EQ(read.PlainElement().type, GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(
    Words, ElementKinds,
    testing::Values(KindRow{"normal", "normal", "normal"}, KindRow{"norm", "normal", "normal"},
                    KindRow{"Nrm", "normal", "nrm"}, KindRow{"parallax", "parallax", "parallax"},
                    KindRow{"paral", "parallax", "parallax"},
                    KindRow{"parrallax", "parallax", "parrallax"}, KindRow{"anim", "anim", "anim"},
                    KindRow{"ani", "anim", "anim"}, KindRow{"anim loop", "anim", "anim loop"},
                    KindRow{"Animated", "anim", "animated"}, KindRow{"dummy", "dummy", "dummy"},
                    KindRow{"dum", "dummy", "dum"}, KindRow{"bgpalette", "bgpalette", "bgpalette"},
                    KindRow{"1", "1", "1"}, KindRow{"", "", ""}));

struct UnknownKindRow {
    const char* section;
    const char* said;
};

TEST(AdditionsElements, OfNoKnownKindAreDummiesAndReported) {
    for (const UnknownKindRow& row : {
             UnknownKindRow{"[BG a]\r\nspriteno = 1,2\r\n", "BG without a type, line 2"},
             UnknownKindRow{"[BG a]\r\ntype =\r\n", "BG without a type, line 2"},
             UnknownKindRow{"[BG a]\r\ntyep = normal\r\n", "BG without a type, line 2"},
             UnknownKindRow{"[BG a]\r\n\r\ntype = Video\r\n", "BG of unknown type video, line 2"},
         }) {
        for (const char* const behind : {"", "[BG b]\r\ntype = anim\r\n", "[Info]\r\n"}) {
            const BothReadings read(std::string("; comment\r\n") + row.section + behind);
            EXPECT_EQ(KindOf(read.WithElement().type, true), ElementKind::Dummy) << row.section;
            EXPECT_THAT(read.WithTexts(), ElementsAre(row.said)) << row.section << behind;
            EXPECT_EQ(read.WithElement().type, read.PlainElement().type) << "keeps its word";
            EXPECT_THAT(read.PlainTexts(), IsEmpty());
        }
    }
}

TEST(AdditionsElements, OfALaterKnownTypeAreStillWhatTheFirstSays) {
    const BothReadings read("[BG]\r\ntype = video\r\ntype = parallax\r\n");
    EXPECT_EQ(read.WithElement().type, "video");
    EXPECT_THAT(read.WithTexts(), ElementsAre("BG of unknown type video, line 1"));
    EXPECT_EQ(read.PlainElement().type, "parallax");
}

struct PicturesRow {
    const char* keys;
    bool showsFrames;
};

TEST(AdditionsElements, MayShowTheFramesOfAnAction) {
    for (const PicturesRow& row : {
             PicturesRow{"type = normal\r\nactionno = 5\r\n", true},
             PicturesRow{"actionno = 5\r\ntype = normal\r\n", true},
             PicturesRow{"type = normal\r\nactionno = 5\r\nspriteno = 1,2\r\n", false},
             PicturesRow{"type = normal\r\nspriteno = 1,2\r\nactionno = 5\r\n", false},
             PicturesRow{"type = normal\r\n", false},
             PicturesRow{"type = parallax\r\nspriteno = 1,2\r\nactionno = 5\r\n", true},
             PicturesRow{"type = parallax\r\n", false},
             PicturesRow{"type = dummy\r\nactionno = 5\r\n", false},
         }) {
        SCOPED_TRACE(row.keys);
        const BothReadings read(std::string("[Begin Action 5]\r\n1,2, 0,0, 1\r\n[BG]\r\n") +
                                row.keys);
        EXPECT_EQ(ShowsFrames(read.WithElement()), row.showsFrames);
        EXPECT_EQ(read.WithElement().mask, row.showsFrames ? 1 : 0);
        if (row.showsFrames) {
            EXPECT_EQ(read.WithElement().actionIndex, 0) << "its index";
        }
        EXPECT_FALSE(ShowsFrames(read.PlainElement()));
        EXPECT_EQ(read.PlainElement().mask, 0);
    }
}

struct FractionRow {
    const char* start;
    Long whole;
    Single fraction;
};

TEST(AdditionsElements, KeepTheFractionsOfTheirStart) {
    for (const FractionRow& row : {
             FractionRow{"7", 7, 0},
             FractionRow{"7.25", 7, 0.25F},
             FractionRow{"2.5", 2, 0.5F},
             FractionRow{"3.5", 4, -0.5F},
             FractionRow{"-7.75", -8, 0.25F},
             FractionRow{"abc", 0, 0},
             FractionRow{"2147483647", 2147483647, 0},
         }) {
        SCOPED_TRACE(row.start);
        const BothReadings read(std::string("[BG]\r\ntype = normal\r\nstart = ") + row.start +
                                ", " + row.start + "\r\n");
        EXPECT_EQ(read.WithElement().startX, row.whole);
        EXPECT_EQ(read.WithElement().startY, row.whole);
        EXPECT_EQ(read.WithElement().startFraction, (std::array{row.fraction, row.fraction}));
        EXPECT_EQ(read.PlainElement().startX, row.whole);
        EXPECT_EQ(read.PlainElement().startFraction, (std::array{0.0F, 0.0F}));
    }
}

TEST(AdditionsControls, KeepTheFractionsOfTheirSwing) {
    const BothReadings read(
        "[BGCtrlDef]\r\n[BGCtrl]\r\ntype = sinx\r\nvalue = 0.4, 90.5, 3\r\n"
        "[BGCtrl]\r\nvalue = 2.25, 7\r\ntype = siny\r\n");
    const auto& with = read.With().CtrlDefs.at(0).controls;
    EXPECT_EQ(with.at(0).value1, 0);
    EXPECT_EQ(with.at(0).value2, 90);
    EXPECT_EQ(with.at(0).swingFraction, (std::array{0.4F, 0.5F}));
    EXPECT_EQ(with.at(0).value3, 3);
    EXPECT_EQ(with.at(1).swingFraction, (std::array{0.25F, 0.0F}));
    const auto& plain = read.Plain().CtrlDefs.at(0).controls;
    EXPECT_EQ(plain.at(0).value2, 90);
    EXPECT_EQ(plain.at(0).swingFraction, (std::array{0.0F, 0.0F}));
}

TEST(AdditionsFrames, KeepTheFractionsOfTheirOffset) {
    const BothReadings read("[Begin Action 5]\r\n1,2, 3.25,-4.5, 1\r\n");
    const StageFrame& frame = read.With().Actions.at(0).frames.at(0);
    EXPECT_EQ(frame.offsetX, 3);
    EXPECT_EQ(frame.offsetY, -4);
    EXPECT_EQ(frame.offsetFraction, (std::array{0.25F, -0.5F}));
    EXPECT_EQ(read.Plain().Actions.at(0).frames.at(0).offsetFraction, (std::array{0.0F, 0.0F}));
}

struct ClearRow {
    const char* lines;
    Integer debugbg;
    std::array<Integer, 3> color;
};

TEST(AdditionsSettings, OfTheClearedPictureCountInTheirOwnSectionOnly) {
    for (const ClearRow& row : {
             ClearRow{"[BGDef]\r\ndebugbg = 1\r\nbgclearcolor = 1, 2,300\r\n", 1, {1, 2, 300}},
             ClearRow{"[bgdef]\r\nBGClearColor = 7\r\n", 0, {7, 0, 0}},
             ClearRow{"[Info]\r\ndebugbg = 1\r\nbgclearcolor = 1, 2,3\r\n", 0, {}},
             ClearRow{"[BGDef]\r\n[Camera]\r\ndebugbg = 1\r\n", 0, {}},
         }) {
        const BothReadings read(row.lines);
        EXPECT_EQ(read.With().debugbg, row.debugbg) << row.lines;
        EXPECT_EQ(read.With().bgclearcolor, row.color) << row.lines;
        EXPECT_EQ(read.Plain().debugbg, 0) << row.lines;
        EXPECT_EQ(read.Plain().bgclearcolor, (std::array<Integer, 3>{})) << row.lines;
    }
}

TEST(AdditionsSettings, OfTheSizeCountInStageInfoOnly) {
    const char* const keys = "hires = 1\r\nlocalcoord = 640,480\r\n";
    EXPECT_EQ(BothReadings(std::string("[StageInfo]\r\n") + keys).With().hires, 1);
    for (const char* const section : {"[Info]\r\n", "[Shadow]\r\n", "[BGDef]\r\n", ""}) {
        const BothReadings read(std::string(section) + keys);
        EXPECT_EQ(read.With().hires, 0) << section;
        EXPECT_EQ(read.With().localcoordHeight, 0) << section;
    }
}

TEST(AdditionsElements, EachOfNoKnownKindIsReported) {
    const BothReadings read("[BG]\r\n[BG]\r\ntype = null\r\n[BG]\r\ntype = x\r\n[BGCtrlDef]\r\n");
    EXPECT_THAT(read.WithTexts(), ElementsAre("BG without a type, line 1", "NULL BG 1",
                                              "BG of unknown type x, line 4"));
}

TEST(AdditionsElements, AWordThatMeansAnimIsAnAnimationInEveryRespect) {
    const BothReadings read(
        "[BG]\r\ntype = animation\r\nactionno = 7\r\n[Begin Action 7]\r\n0,0, 0,0, 1\r\n");
    EXPECT_EQ(read.WithElement().tileSpacingX, 1);
    EXPECT_EQ(read.WithElement().tileSpacingY, 1);
    EXPECT_EQ(read.WithElement().mask, 1);
    EXPECT_EQ(read.WithElement().actionIndex, 0);
    EXPECT_EQ(read.PlainElement().tileSpacingX, 0);
    EXPECT_EQ(read.PlainElement().mask, 0);
}

struct SpacingRow {
    const char* name;
    const char* version;
    const char* keys;  // of an element that is tiled both ways
    Long x;
    Long y;
    bool tiledX;
    bool tiledY;
};

// The tile distance that an element comes to, and along which axes it is tiled at all.
TEST(AdditionsElements, TakeTheirTileSpacingAsItIsMeant) {
    for (const SpacingRow& row : {
             SpacingRow{"an animation without", "1.0", "type = anim", 1, 1, true, true},
             {"before the type", "1.0", "tilespacing = 5, 6\r\ntype = anim", 5, 6, true, true},
             {"after the type", "1.0", "type = anim\r\ntilespacing = 5, 6", 5, 6, true, true},
             {"one value, of old", "", "type = anim\r\ntilespacing = 5", 5, 5, true, true},
             {"one value", "1.0", "type = anim\r\ntilespacing = 5", 5, 0, true, false},
             {"the second value", "1.1", "type = anim\r\ntilespacing = , 7", 0, 7, false, true},
             {"0, of old", "", "type = anim\r\ntilespacing = 0, 7", 0, 7, true, true},
             {"0", "1.0", "type = anim\r\ntilespacing = 0, 7", 0, 7, false, true},
             {"a still, one value of old", "", "type = normal\r\ntilespacing = 5", 5, 5, true,
              true},
             {"a still, one value", "1.0", "type = normal\r\ntilespacing = 5", 5, 0, true, true},
         }) {
        SCOPED_TRACE(row.name);
        const std::string info =
            *row.version == '\0' ? "" : "[Info]\r\nmugenversion = " + std::string(row.version);
        const BothReadings read(info + "\r\n[BG]\r\ntile = 1, 1\r\n" + row.keys + "\r\n");
        EXPECT_EQ(read.WithElement().tileSpacingX, row.x);
        EXPECT_EQ(read.WithElement().tileSpacingY, row.y);
        EXPECT_EQ(read.WithElement().tileX, row.tiledX ? 1 : 0);
        EXPECT_EQ(read.WithElement().tileY, row.tiledY ? 1 : 0);
        EXPECT_EQ(read.PlainElement().tileX, 1);
        EXPECT_EQ(read.PlainElement().tileY, 1);
    }
}

TEST(AdditionsElements, TileSpacingBeforeTheTypeIsForgottenPlainly) {
    const BothReadings read("[BG]\r\ntilespacing = 5, 6\r\ntype = anim\r\n");
    EXPECT_EQ(read.PlainElement().tileSpacingX, 1);
    EXPECT_EQ(read.PlainElement().tileSpacingY, 1);
}

TEST(AdditionsElements, NullIsStillRemovedAndSaid) {
    const BothReadings read("[BG]\r\ntype = null\r\n");
    EXPECT_EQ(read.With().ElementCount, 0);
    EXPECT_THAT(read.WithTexts(), ElementsAre("NULL BG 0"));
}

// --- keys ---

TEST(AdditionsElements, SinXIsTheSidewaysSwing) {
    const BothReadings read("[BG]\r\nsin.x = 12.5, 40, 7\r\nsin.y = 3, 4, 5\r\n");
    EXPECT_THAT(read.WithElement().sinState, ElementsAre(12.5F, 40, 7));
    EXPECT_EQ(read.WithElement().sinYAmplitude, 3);
    EXPECT_EQ(read.WithElement().sinYPeriod, 4);
    EXPECT_EQ(read.WithElement().sinYPhase, 5);
    EXPECT_THAT(read.PlainElement().sinState, ElementsAre(0, 0, 0));
    EXPECT_EQ(read.PlainElement().sinYAmplitude, 3);
}

TEST(AdditionsElements, ASingleValueOfSinXIsTheAmplitude) {
    EXPECT_THAT(BothReadings("[BG]\r\nsin.x = 12\r\n").WithElement().sinState,
                ElementsAre(12, 0, 0));
}

TEST(AdditionsElements, BlendingIsNoneAndAlpha256And0WithoutKeys) {
    const BothReadings read("[BG]\r\ntype = normal\r\n");
    EXPECT_EQ(read.WithElement().blending.kind, BlendKind::None);
    EXPECT_EQ(read.WithElement().alphaSource, 256);
    EXPECT_EQ(read.WithElement().alphaDestination, 0);
}

TEST(AdditionsElements, TransAndAlphaMayComeInEitherOrder) {
    for (const char* const keys :
         {"trans = AddAlpha\r\nalpha = 80,120\r\n", "alpha = 80,120\r\ntrans = AddAlpha\r\n"}) {
        const BothReadings read(std::string("[BG]\r\n") + keys);
        EXPECT_EQ(read.WithElement().blending.kind, BlendKind::AddAlpha);
        EXPECT_EQ(read.WithElement().blending.source, 80);
        EXPECT_EQ(read.WithElement().blending.destination, 120);
        EXPECT_EQ(read.PlainElement().blending.kind, BlendKind::None);
    }
}

TEST(AdditionsElements, ASingleValueOfAlphaIsTheSource) {
    const BothReadings read("[BG]\r\ntrans = addalpha\r\nalpha = 80\r\n");
    EXPECT_EQ(read.WithElement().blending.source, 80);
    EXPECT_EQ(read.WithElement().blending.destination, 0);
}

TEST(AdditionsElements, AlphaCountsForAddAsWell) {
    const auto read = [](const char* keys) {
        return BothReadings(std::string("[BG]\r\n") + keys).WithElement().blending;
    };
    const Blending both = read("trans = add\r\nalpha = 64, 192\r\n");
    EXPECT_EQ(both.kind, BlendKind::AddAlpha);
    EXPECT_EQ(both.source, 64);
    EXPECT_EQ(both.destination, 192);
    const Blending sourceOnly = read("alpha = 64\r\ntrans = add\r\n");
    EXPECT_EQ(sourceOnly.kind, BlendKind::AddAlpha);
    EXPECT_EQ(sourceOnly.destination, 256);
    const Blending destination0 = read("trans = add\r\nalpha = 256, 0\r\n");
    EXPECT_EQ(destination0.kind, BlendKind::AddAlpha);
    EXPECT_EQ(destination0.destination, 0);
    EXPECT_EQ(read("trans = add\r\nalpha = 256\r\n").kind, BlendKind::Add);
    EXPECT_EQ(read("trans = add1\r\nalpha = 64, 192\r\n").kind, BlendKind::Add1);
}

// --- whose blending counts ---

struct FramesBlendRow {
    const char* version;  // of [Info]
    const char* trans;
    int framesBlend;
};

TEST(AdditionsElements, FramesBlendWhereTheElementLeavesItToThem) {
    for (const FramesBlendRow& row : {
             FramesBlendRow{"", "", 1},
             FramesBlendRow{"", "trans =\r\n", 1},
             FramesBlendRow{"", "trans = Default\r\n", 1},
             FramesBlendRow{"", "trans = None\r\n", 1},
             FramesBlendRow{"mugenversion = 04,14,2002", "trans = none\r\n", 1},
             FramesBlendRow{"mugenversion = 1.0", "", 1},
             FramesBlendRow{"mugenversion = 1.0", "trans = default\r\n", 1},
             FramesBlendRow{"mugenversion = 1.0", "trans = none\r\n", 0},
             FramesBlendRow{"mugenversion = 1.1", "trans = none\r\n", 0},
             FramesBlendRow{"", "trans = add\r\n", 0},
             FramesBlendRow{"", "trans = sub\r\n", 0},
         }) {
        const BothReadings read(std::string("[BG]\r\n") + row.trans + "[Info]\r\n" + row.version +
                                "\r\n");
        EXPECT_EQ(read.WithElement().framesBlend, row.framesBlend) << row.version << row.trans;
        EXPECT_EQ(read.PlainElement().framesBlend, 1);
    }
}

TEST(AdditionsElements, EachWordOfTransIsItsBlending) {
    const auto kindOf = [](const char* trans) {
        const BothReadings read(std::string("[BG]\r\ntrans = ") + trans + "\r\n");
        EXPECT_EQ(read.PlainElement().blending.kind, BlendKind::None);
        return read.WithElement().blending.kind;
    };
    EXPECT_EQ(kindOf("none"), BlendKind::None);
    EXPECT_EQ(kindOf("Add"), BlendKind::Add);
    EXPECT_EQ(kindOf("ADD1"), BlendKind::Add1);
    EXPECT_EQ(kindOf("sub"), BlendKind::Sub);
    EXPECT_EQ(kindOf("addalpha"), BlendKind::AddAlpha);
}

TEST(AdditionsElements, AnAlphaThatDoesNotFitIsSaidAndLeftAlone) {
    const BothReadings read("[BG]\r\ntype = normal\r\ntrans = addalpha\r\nalpha = 99999, 5\r\n");
    EXPECT_THAT(read.WithTexts(), ElementsAre("Overflow: alpha, line 4"));
    EXPECT_EQ(read.WithElement().blending.source, 256);
    EXPECT_EQ(read.WithElement().blending.destination, 5);
    EXPECT_THAT(read.PlainTexts(), IsEmpty());
}

TEST(AdditionsElements, WindowDeltaIsReadWithoutAWord) {
    const BothReadings read("[BG]\r\ntype = normal\r\nwindowdelta = .5, -2\r\n");
    EXPECT_EQ(read.WithElement().windowDeltaX, 0.5F);
    EXPECT_EQ(read.WithElement().windowDeltaY, -2);
    EXPECT_THAT(read.WithTexts(), IsEmpty());
    EXPECT_EQ(read.PlainElement().windowDeltaX, 0);
    EXPECT_THAT(read.PlainTexts(), ElementsAre("Windowdelta not supported just yet.."));
}

TEST(AdditionsElements, AWindowDeltaOf0IsSilentToo) {
    EXPECT_THAT(BothReadings("[BG]\r\ntype = normal\r\nwindowdelta = 0, 0\r\n").WithTexts(),
                IsEmpty());
}

TEST(AdditionsElements, YScalesAre100And0UnlessGiven) {
    const BothReadings without("[BG]\r\ntype = parallax\r\n");
    EXPECT_EQ(without.WithElement().yscaleStart, 100);
    EXPECT_EQ(without.WithElement().yscaleDelta, 0);
    const BothReadings read(
        "[BG]\r\ntype = parallax\r\nyscalestart = 80.5\r\nyscaledelta = -.82\r\n");
    EXPECT_EQ(read.WithElement().yscaleStart, 80.5F);
    EXPECT_EQ(read.WithElement().yscaleDelta, -0.82F);
    EXPECT_EQ(read.PlainElement().yscaleStart, 100);
    EXPECT_EQ(read.PlainElement().yscaleDelta, 0);
}

TEST(AdditionsElements, ScalesAre1And0UnlessGiven) {
    const BothReadings without("[BG]\r\ntype = normal\r\n");
    EXPECT_THAT(without.WithElement().scaleStart, ElementsAre(1, 1));
    EXPECT_THAT(without.WithElement().scaleDelta, ElementsAre(0, 0));
    const BothReadings read("[BG]\r\ntype = normal\r\nscalestart = 2, -.5\r\nscaledelta = .01\r\n");
    EXPECT_THAT(read.WithElement().scaleStart, ElementsAre(2, -0.5F));
    EXPECT_THAT(read.WithElement().scaleDelta, ElementsAre(0.01F, 0));
    EXPECT_THAT(read.WithTexts(), IsEmpty());
    EXPECT_THAT(read.PlainElement().scaleStart, ElementsAre(1, 1));
    EXPECT_THAT(read.PlainElement().scaleDelta, ElementsAre(0, 0));
}

TEST(AdditionsElements, ZoomIsTakenWholeUnlessSaidOtherwise) {
    EXPECT_THAT(BothReadings("[BG]\r\ntype = normal\r\n").WithElement().zoomDelta,
                ElementsAre(1, 1));
    const BothReadings one("[BG]\r\ntype = normal\r\nzoomdelta = .5\r\n");
    EXPECT_THAT(one.WithElement().zoomDelta, ElementsAre(0.5F, 0.5F));
    EXPECT_THAT(one.PlainElement().zoomDelta, ElementsAre(1, 1));
    EXPECT_THAT(
        BothReadings("[BG]\r\ntype = normal\r\nzoomdelta = .5, -2\r\n").WithElement().zoomDelta,
        ElementsAre(0.5F, -2));
}

TEST(AdditionsElements, WidthsOfRowsAreThoseOfTheFile) {
    const BothReadings read("[BG]\r\ntype = parallax\r\nwidth = 100, 250.5\r\n");
    EXPECT_THAT(read.WithElement().rowWidths, ElementsAre(100, 250.5F));
    EXPECT_THAT(read.PlainElement().rowWidths, ElementsAre(0, -1));
}

TEST(AdditionsElements, AMaskWindowTakesAllFourValues) {
    const BothReadings read("[BG]\r\ntype = normal\r\nmaskwindow = -10, 5, 20.5, 100\r\n");
    EXPECT_THAT(read.WithElement().maskWindow, ElementsAre(-10, 5, 20.5F, 100));
    EXPECT_EQ(read.WithElement().maskWindowActive, 1);
    EXPECT_EQ(read.PlainElement().maskWindowActive, 0);
    EXPECT_EQ(BothReadings("[BG]\r\ntype = normal\r\nmaskwindow = -10, 5, 20.5\r\n")
                  .WithElement()
                  .maskWindowActive,
              0);
}

}  // namespace
}  // namespace scenara::test
