// SPDX-License-Identifier: MIT
//
// What additions read of an element and of frame lines beyond plain reading. Each definition is
// also read plainly, where the fields stay as they were.
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BothReadings.h"
#include "stage/StageSpace.h"

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

// --- the camera's zoom ---

TEST(AdditionsZoom, IsReadFromTheCamerasSectionOnly) {
    const char* const keys = "zoomout = .5\r\nzoomin = 2\r\nstartzoom = .75\r\n";
    const BothReadings read(std::string("[Camera]\r\n") + keys);
    EXPECT_EQ(read.With().ZoomOut, 0.5F);
    EXPECT_EQ(read.With().ZoomIn, 2);
    EXPECT_EQ(read.With().StartZoom, 0.75F);
    EXPECT_EQ(read.Plain().ZoomOut, 1);
    EXPECT_EQ(BothReadings(std::string("[StageInfo]\r\n") + keys).With().ZoomOut, 1);
}

// --- frame lines ---

TEST(AdditionsFrames, HaveAScaleAndAnAngle) {
    const BothReadings read(
        "[Begin Action 1]\r\n1,0, 0,0, 5, H, A, 2, -.5, 33.5\r\n1,0, 0,0, 5\r\n"
        "1,0, 0,0, 5,,,, 3\r\n1,0, 0,0, 5,,, big, 3\r\n");
    const std::vector<StageFrame>& frames = read.With().Actions.at(0).frames;
    EXPECT_THAT(frames.at(0).scale, ElementsAre(2, -0.5F));
    EXPECT_EQ(frames.at(0).angle, 33.5F);
    EXPECT_THAT(frames.at(1).scale, ElementsAre(1, 1));
    EXPECT_EQ(frames.at(1).angle, 0);
    EXPECT_THAT(frames.at(2).scale, ElementsAre(1, 3));
    EXPECT_THAT(frames.at(3).scale, ElementsAre(1, 3)) << "no number";
    EXPECT_THAT(read.Plain().Actions.at(0).frames.at(0).scale, ElementsAre(1, 1));
    EXPECT_EQ(read.Plain().Actions.at(0).frames.at(0).angle, 0);
}

TEST(AdditionsFrames, GoOverIntoTheNextAsTheLinesBetweenThemSay) {
    const BothReadings read(
        "[Begin Action 1]\r\n1,0, 0,0, 5\r\nInterpolate Offset\r\ninterpolate  ANGLE\r\n"
        "1,0, 0,0, 5\r\n1,0, 0,0, 5\r\nInterpolate Scale\r\nInterpolate\r\n"
        "Interpolate Blend\r\nInterpolate Colour\r\n1,0, 0,0, 5\r\nInterpolate Scale\r\n"
        "[Begin Action 2]\r\n1,0, 0,0, 5\r\n");
    const std::vector<StageFrame>& frames = read.With().Actions.at(0).frames;
    ASSERT_EQ(frames.size(), 4U);
    EXPECT_EQ(frames[0].interpolated, 0);
    EXPECT_EQ(frames[1].interpolated, kInterpolatedOffset | kInterpolatedAngle);
    EXPECT_EQ(frames[2].interpolated, 0);
    EXPECT_EQ(frames[3].interpolated, kInterpolatedScale | kInterpolatedBlend);
    EXPECT_EQ(read.With().Actions.at(1).frames.at(0).interpolated, 0);
    EXPECT_EQ(read.Plain().Actions.at(0).frames.at(1).interpolated, 0);
}

BothReadings FrameLine(const std::string& line) {
    return BothReadings("[Begin Action 1]\r\n" + line + "\r\n");
}

struct FrameLineRow {
    const char* line;
    int with;  // frames
    int plain;
};

TEST(AdditionsFrames, BeginWithANumber) {
    for (const FrameLineRow& row : {
             FrameLineRow{"0,0, 0,0, 5", 1, 1},
             FrameLineRow{"  7,0, 0,0, 5", 1, 1},
             FrameLineRow{"-1,0, 0,0, 5", 1, 1},
             FrameLineRow{"  -1,0", 1, 1},
             FrameLineRow{"5", 0, 0},
             FrameLineRow{"start = 0,270", 0, 1},
             FrameLineRow{"Clsn2: 1,2", 0, 1},
             FrameLineRow{",1, 0,0, 5", 0, 1},
             FrameLineRow{"-,1, 0,0, 5", 0, 1},
             FrameLineRow{"--1,1", 0, 1},
             FrameLineRow{"- 1,1", 0, 1},
             FrameLineRow{"x1,1", 0, 1},
         }) {
        const BothReadings read(std::string("[Begin Action 1]\r\n") + row.line + "\r\n");
        EXPECT_EQ(read.With().Actions.at(0).frameCount, row.with) << row.line;
        EXPECT_EQ(read.Plain().Actions.at(0).frameCount, row.plain) << row.line;
    }
}

// Plainly a line with brackets is a header and ends the action.
TEST(AdditionsFrames, BoxesAndSettingsDoNotShiftTheStartOfTheLoop) {
    const BothReadings read(
        "[Begin Action 1]\r\nClsn2: 1\r\n  Clsn2[0] = -10,-20,10,20\r\nstart = 0,270\r\n"
        "0,0, 0,0, 5\r\nClsn1[0] = 1,2,3,4\r\nLoopstart\r\n0,1, 0,0, 5\r\n");
    EXPECT_EQ(read.With().Actions.at(0).frameCount, 2);
    EXPECT_EQ(read.With().Actions.at(0).loopstart, 1);
    EXPECT_EQ(read.With().Actions.at(0).frames.at(1).image, 1);
    EXPECT_EQ(read.Plain().Actions.at(0).frameCount, 0);
}

TEST(AdditionsFrames, BehindTheFlipStandsAFramesOwnBlending) {
    const BothReadings read = FrameLine("4,1, -2,3, 5, H, AS100D200");
    EXPECT_EQ(read.WithFrame().flip, "h");
    EXPECT_EQ(read.WithFrame().time, 5);
    EXPECT_EQ(read.WithFrame().blending.kind, BlendKind::AddAlpha);
    EXPECT_EQ(read.WithFrame().blending.source, 100);
    EXPECT_EQ(read.WithFrame().blending.destination, 200);
    EXPECT_EQ(read.PlainFrame().blending.kind, BlendKind::None);
    EXPECT_EQ(read.PlainFrame().flip, "h");
    EXPECT_THAT(read.WithTexts(), IsEmpty());
}

TEST(AdditionsFrames, AnEmptyFlipIsNone) {
    for (const char* const line : {"0,0, 0,0, 5, , A", "0,0, 0,0, 5,,a", "0,0,0,0,5,,A,"}) {
        const BothReadings read = FrameLine(line);
        EXPECT_EQ(read.WithFrame().flip, "") << line;
        EXPECT_EQ(read.WithFrame().blending.kind, BlendKind::Add) << line;
        EXPECT_THAT(read.WithTexts(), IsEmpty()) << line;
        EXPECT_THAT(read.PlainTexts(), IsEmpty()) << line;
    }
}

TEST(AdditionsFrames, EachLetterIsItsBlending) {
    const auto kindOf = [](const char* letters) {
        return FrameLine(std::string("0,0, 0,0, 5, , ") + letters).WithFrame().blending.kind;
    };
    EXPECT_EQ(kindOf("A"), BlendKind::Add);
    EXPECT_EQ(kindOf("a1"), BlendKind::Add1);
    EXPECT_EQ(kindOf("S"), BlendKind::Sub);
    EXPECT_EQ(kindOf("As256d256"), BlendKind::AddAlpha);
    EXPECT_EQ(kindOf("Add"), BlendKind::Add);
    EXPECT_EQ(kindOf("ADD1"), BlendKind::Add1);
    EXPECT_EQ(kindOf("sub"), BlendKind::Sub);
    EXPECT_EQ(kindOf("Z"), BlendKind::None);
    EXPECT_EQ(kindOf(""), BlendKind::None);
}

TEST(AdditionsFrames, BlanksWithinABlendingDoNotCount) {
    for (const char* const letters : {"AS128D64", "AS128 D64", "as 128 d 64", " A S128D 6 4"}) {
        const BothReadings read = FrameLine(std::string("0,0, 0,0, 5, , ") + letters + ", 2, 2");
        const Blending& blending = read.WithFrame().blending;
        EXPECT_EQ(blending.kind, BlendKind::AddAlpha) << letters;
        EXPECT_EQ(blending.source, 128) << letters;
        EXPECT_EQ(blending.destination, 64) << letters;
        EXPECT_EQ(read.PlainFrame().blending.kind, BlendKind::None) << letters;
    }
}

TEST(AdditionsFrames, WithoutASeventhValueThereIsNone) {
    for (const char* const line : {"0,0, 0,0, 5", "0,0, 0,0, 5, H", "0,0, 0,0, 5, H,"}) {
        EXPECT_EQ(FrameLine(line).WithFrame().blending.kind, BlendKind::None) << line;
    }
}

TEST(AdditionsFrames, AFlipToTheSideOrOverIsNotReported) {
    for (const char* const flip : {"V", "hv", "HV", "h"}) {
        const BothReadings read = FrameLine(std::string("0,0, 0,0, 5, ") + flip);
        EXPECT_THAT(read.WithTexts(), IsEmpty()) << flip;
    }
    EXPECT_THAT(FrameLine("0,0, 0,0, 5, v").PlainTexts(),
                ElementsAre("vertical flip not coded yet dude.."));
}

TEST(AdditionsFrames, AFlipThatNobodyKnowsIsReportedAsEver) {
    for (const char* const flip : {"x", "a", "hh"}) {
        const BothReadings read = FrameLine(std::string("0,0, 0,0, 5, ") + flip);
        EXPECT_THAT(read.WithTexts(), ElementsAre("vertical flip not coded yet dude..")) << flip;
        EXPECT_THAT(read.PlainTexts(), ElementsAre("vertical flip not coded yet dude..")) << flip;
    }
}

// --- settings ---

struct VersionRow {
    const char* lines;
    Single version;
};

TEST(AdditionsSettings, TheVersionIsOneNumberFrom1ToBelow100OfTheInfoSection) {
    for (const VersionRow& row : {
             VersionRow{"[Info]\r\nmugenversion = 1.0\r\n", 1},
             VersionRow{"[ info ]\r\nMugenVersion = 1.1 ; and a comment, this\r\n", 1.1F},
             VersionRow{"[INFO]\r\nmugenversion = 99.9\r\n", 99.9F},
             VersionRow{"[Info]\r\nmugenversion = 100\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = 2002\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = .9\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = 04,14,2002\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = 04 , 14 , 2002\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = x\r\n", 0},
             VersionRow{"[Info]\r\n", 0},
             VersionRow{"mugenversion = 1.0\r\n", 0},
             VersionRow{"[StageInfo]\r\nmugenversion = 1.0\r\n", 0},
             VersionRow{"[Info]\r\n[Camera]\r\nmugenversion = 1.0\r\n", 0},
         }) {
        const BothReadings read(row.lines);
        EXPECT_EQ(read.With().MugenVersion, row.version) << row.lines;
        EXPECT_EQ(read.Plain().MugenVersion, 0) << row.lines;
    }
}

struct MusicRow {
    const char* lines;
    Single volume = 100;
    Integer offset = 0;
    Long loopStart = 0;
    Long loopEnd = -1;
};

TEST(AdditionsSettings, LoudnessAndLoopOfTheMusicAreRead) {
    for (const MusicRow& row : {
             MusicRow{"[Music]\r\n"},
             MusicRow{"[Music]\r\nbgmvolume = 85.5\r\n", 85.5F},
             MusicRow{"[ MUSIC ]\r\nBGMVolume = 250 ; percent\r\n", 250},
             MusicRow{"[Music]\r\nbgmvolume =\r\n"},
             MusicRow{"[Music]\r\nbgmvolume = loud\r\n"},
             MusicRow{"[Music]\r\nbgmvolume = 0\r\n", 0},
             MusicRow{"[Music]\r\nbgmvolume = -5\r\n", -5},
             MusicRow{"[Music]\r\nbgmvolume = nan\r\n"},
             MusicRow{"[Music]\r\nbgvolume = -100\r\n", 100, -100},
             MusicRow{"[Music]\r\nbgmloopstart = 44100\r\nbgmloopend = 882000.4\r\n", 100, 0, 44100,
                      882000},
             MusicRow{"[Music]\r\nbgmloopend = 5\r\nbgmloopend = 6\r\n", 100, 0, 0, 5},
             MusicRow{"[Music]\r\nbgmvolume = 40\r\nbgmvolume = 60\r\n", 40},
             MusicRow{"[Music]\r\nbgmloopstart = nan\r\nbgmloopend = none\r\n", 100, 0, 0, 0},
             // In another section.
             MusicRow{"bgmvolume = 50\r\n"},
             MusicRow{"[Sound]\r\nbgmvolume = 50\r\nbgmloopstart = 1\r\n"},
             MusicRow{"[Music]\r\n[Camera]\r\nbgvolume = 50\r\nbgmloopend = 9\r\n"},
         }) {
        const BothReadings read(row.lines);
        const auto expect = [&row](const StageModel& model, const MusicRow& expected) {
            EXPECT_EQ(model.MusicVolume, expected.volume) << row.lines;
            EXPECT_EQ(model.MusicVolumeOffset, expected.offset) << row.lines;
            EXPECT_EQ(model.MusicLoopStart, expected.loopStart) << row.lines;
            EXPECT_EQ(model.MusicLoopEnd, expected.loopEnd) << row.lines;
        };
        expect(read.With(), row);
        expect(read.Plain(), MusicRow{});
        EXPECT_THAT(read.WithTexts(), IsEmpty()) << row.lines;
    }
}

TEST(AdditionsSettings, LoopPointsThatAreTooLargeAreReportedAndNotTaken) {
    const BothReadings read("[Music]\r\nbgmloopstart = 1e30\r\nbgmloopend = 4000000000\r\n");
    EXPECT_EQ(read.With().MusicLoopStart, 0);
    EXPECT_EQ(read.With().MusicLoopEnd, -1);
    EXPECT_THAT(read.WithTexts(),
                ElementsAre("Overflow: bgmloopstart, line 2", "Overflow: bgmloopend, line 3"));
    EXPECT_THAT(read.PlainTexts(), IsEmpty());
}

TEST(AdditionsSettings, HiresAndLocalcoordAreRead) {
    const BothReadings read("[StageInfo]\r\nhires = 1\r\nlocalcoord = 640, 480\r\n");
    EXPECT_EQ(read.With().hires, 1);
    EXPECT_EQ(read.With().localcoordWidth, 640);
    EXPECT_EQ(read.With().localcoordHeight, 480);
    EXPECT_EQ(read.Plain().hires, 0);
    EXPECT_EQ(read.Plain().localcoordWidth, 0);
    EXPECT_EQ(read.Plain().localcoordHeight, 0);
}

struct SpaceRow {
    const char* localcoord;
    Long width;
    Long height;
};

TEST(AdditionsSettings, ANumberOfLocalcoordAloneLeavesTheOtherAsItIsDesigned) {
    for (const SpaceRow& row : {
             SpaceRow{"640, 360", 640, 360},
             SpaceRow{"640", 640, 240},
             SpaceRow{"640 360", 640, 240},
             SpaceRow{"640,", 640, 240},
             SpaceRow{", 480", 320, 480},
             SpaceRow{"", 320, 240},
             SpaceRow{"79, 480", 320, 240},
         }) {
        SCOPED_TRACE(row.localcoord);
        const BothReadings read(std::string("[StageInfo]\r\nlocalcoord = ") + row.localcoord +
                                "\r\n");
        const View view = ViewOf(read.With(), ViewOptions());
        EXPECT_EQ(view.width, row.width);
        EXPECT_EQ(view.height, row.height);
    }
}

TEST(AdditionsSettings, AreForgottenByTheNextStage) {
    StageMachine machine;
    ASSERT_TRUE(
        machine.Load("[StageInfo]\r\nhires = 1\r\nlocalcoord = 640, 480\r\n"
                     "[Info]\r\nmugenversion = 1.1\r\n"
                     "[Music]\r\nbgmvolume = 50\r\nbgmloopend = 9\r\n"));
    EXPECT_EQ(machine.model.MugenVersion, 1.1F);
    EXPECT_EQ(machine.model.MusicLoopEnd, 9);
    ASSERT_TRUE(machine.Load("[StageInfo]\r\n"));
    EXPECT_EQ(machine.model.hires, 0);
    EXPECT_EQ(machine.model.localcoordHeight, 0);
    EXPECT_EQ(machine.model.StageXScale, 1);
    EXPECT_EQ(machine.model.MugenVersion, 0);
    EXPECT_EQ(machine.model.MusicVolume, 100);
    EXPECT_EQ(machine.model.MusicLoopEnd, -1);
}

}  // namespace
}  // namespace scenara::test
