// SPDX-License-Identifier: MIT
//
// The keys of elements and the values of frames, one by one.
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "KeyRows.h"
#include "ModelText.h"
#include "platform/headless/HeadlessMessages.h"
#include "stage/StageKeys.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ElementRow = Row<BackgroundElement>;

// Reads the lines into `element` and tells what was said.
std::vector<std::string> ReadLines(BackgroundElement& element,
                                   std::initializer_list<std::string_view> lines) {
    HeadlessMessages messages;
    for (const std::string_view line : lines) {
        const KeyLine keyLine(line);
        KeyOffer offer(keyLine, keyLine.Text(), 1, messages, kPlainView);
        ReadElementKeys(offer, element, messages);
    }
    return Texts(messages);
}

BackgroundElement ElementOf(std::initializer_list<std::string_view> lines) {
    BackgroundElement element;
    EXPECT_THAT(ReadLines(element, lines), IsEmpty());
    return element;
}

class ElementKeys : public testing::TestWithParam<ElementRow> {};

TEST_P(ElementKeys, FillTheirFieldsAndNothingElse) {
    BackgroundElement expected;
    GetParam().change(expected);
    EXPECT_EQ(ModelText(ElementOf({GetParam().line})), ModelText(expected)) << GetParam().line;
}

const ElementRow kElementRows[] = {
    {"TypeNormal", "type = normal", [](BackgroundElement& e) { e.type = "normal"; }},
    {"TypeInAnyCase", "Type = Parallax", [](BackgroundElement& e) { e.type = "parallax"; }},
    {"TypeDummy", "type = dummy", [](BackgroundElement& e) { e.type = "dummy"; }},
    {"TypeThatNobodyKnows", "type = Strange Kind",
     [](BackgroundElement& e) { e.type = "strange kind"; }},
    {"Mask", "mask = 1", [](BackgroundElement& e) { e.mask = 1; }},
    {"Spriteno", "spriteno = 70000, 3",
     [](BackgroundElement& e) {
         e.spriteGroup = 70000;
         e.spriteImage = 3;
     }},
    {"SpritenoOfOneValue", "spriteno = 7", [](BackgroundElement& e) { e.spriteGroup = 7; }},
    {"Start", "start = -70000, 70001",
     [](BackgroundElement& e) {
         e.startX = -70000;
         e.startY = 70001;
     }},
    {"StartRounds", "start = 5.5, 4.5",
     [](BackgroundElement& e) {
         e.startX = 6;
         e.startY = 4;
     }},
    {"ActionnoKeepsTheNumber", "actionno = 12", [](BackgroundElement& e) { e.actionIndex = 12; }},
    {"Delta", "delta = .75, -2.5",
     [](BackgroundElement& e) {
         e.deltaX = 0.75F;
         e.deltaY = -2.5F;
     }},
    {"DeltaOfOneValueLeavesY", "delta = .5",
     [](BackgroundElement& e) { e.deltaX = 0.5F; }},  // y stays at 1
    {"Velocity", "velocity = .25, -1",
     [](BackgroundElement& e) {
         e.velocityX = 0.25F;
         e.velocityY = -1;
     }},
    {"VelocityOfOneValue", "velocity = .5", [](BackgroundElement& e) { e.velocityX = 0.5F; }},
    {"Tile", "tile = 70000, -1",
     [](BackgroundElement& e) {
         e.tileX = 70000;
         e.tileY = -1;
     }},
    {"Id", "id = 70000", [](BackgroundElement& e) { e.id = 70000; }},
    {"Trans", "trans = AddAlpha", [](BackgroundElement& e) { e.trans = "addalpha"; }},
    {"SinY", "sin.y = 1.5, 70, 3",
     [](BackgroundElement& e) {
         e.sinYAmplitude = 1.5F;
         e.sinYPeriod = 70;
         e.sinYPhase = 3;
     }},
    {"SinYWithoutPhase", "sin.y = 1.5, 70",
     [](BackgroundElement& e) {
         e.sinYAmplitude = 1.5F;
         e.sinYPeriod = 70;
     }},
    {"WindowOfFourValuesHolds", "window = 1, 2, 3.5, 4",
     [](BackgroundElement& e) {
         e.windowX1 = 1;
         e.windowY1 = 2;
         e.windowX2 = 3.5F;
         e.windowY2 = 4;
         e.windowActive = 1;
     }},
    {"WindowOfThreeValuesDoesNotHold", "window = 1, 2, 3",
     [](BackgroundElement& e) {
         e.windowX1 = 1;
         e.windowY1 = 2;
         e.windowX2 = 3;
     }},
    {"Positionlink", "positionlink = 1", [](BackgroundElement& e) { e.positionlink = 1; }},
    {"Tilespacing", "tilespacing = 70000, -5",
     [](BackgroundElement& e) {
         e.tileSpacingX = 70000;
         e.tileSpacingY = -5;
     }},
    {"Layerno", "layerno = 1", [](BackgroundElement& e) { e.layerno = 1; }},
    {"Xscale", "xscale = 1.425, .5",
     [](BackgroundElement& e) {
         e.xscaleTop = 1.425F;
         e.xscaleBottom = 0.5F;
     }},
    // Keys of other sections, of no section, and without a field of their own.
    {"ZoffsetIsNoElementKey", "zoffset = 5", Unchanged<BackgroundElement>},
    {"LooptimeIsNoElementKey", "looptime = 5", Unchanged<BackgroundElement>},
    {"NameIsNoElementKey", "name = 5", Unchanged<BackgroundElement>},
    {"SinXIsNotRead", "sin.x = 5, 6, 7", Unchanged<BackgroundElement>},
    {"AlphaIsNotRead", "alpha = 5, 6", Unchanged<BackgroundElement>},
    {"WidthIsNotRead", "width = 5, 6", Unchanged<BackgroundElement>},
    {"YscalestartIsNotRead", "yscalestart = 5", Unchanged<BackgroundElement>},
    {"YscaledeltaIsNotRead", "yscaledelta = 5", Unchanged<BackgroundElement>},
    {"LongerKeyIsNotRead", "tiles = 5", Unchanged<BackgroundElement>},
    {"FrameLineIsNotRead", "0,0, 1,2, 5", Unchanged<BackgroundElement>},
};

INSTANTIATE_TEST_SUITE_P(Each, ElementKeys, testing::ValuesIn(kElementRows), RowName());

TEST(StageKeys, ShortFormsOfTypesBecomeTheLongOnes) {
    EXPECT_EQ(ElementOf({"type = ani"}).type, "anim");
    EXPECT_EQ(ElementOf({"type = PARAL"}).type, "parallax");
    EXPECT_EQ(ElementOf({"type = norm"}).type, "normal");
}

TEST(StageKeys, TypesAreComparedAsAWhole) {
    EXPECT_EQ(ElementOf({"type = anima"}).type, "anima");
    EXPECT_EQ(ElementOf({"type = parall"}).type, "parall");
    EXPECT_EQ(ElementOf({"type = normally"}).type, "normally");
    EXPECT_EQ(ElementOf({"type = nor"}).type, "nor");
}

TEST(StageKeys, AnimatedElementsHaveATileSpacingOfOne) {
    for (const std::string_view line : {"type = anim", "type = ani"}) {
        const BackgroundElement element = ElementOf({line});
        EXPECT_EQ(element.tileSpacingX, 1) << line;
        EXPECT_EQ(element.tileSpacingY, 1) << line;
    }
    EXPECT_EQ(ElementOf({"type = normal"}).tileSpacingX, 0);
}

TEST(StageKeys, TypeAnimSetsTheSpacingAtThatPoint) {
    const BackgroundElement before = ElementOf({"tilespacing = 40, 50", "type = anim"});
    EXPECT_EQ(before.tileSpacingX, 1);
    EXPECT_EQ(before.tileSpacingY, 1);
    const BackgroundElement behind = ElementOf({"type = anim", "tilespacing = 40, 50"});
    EXPECT_EQ(behind.tileSpacingX, 40);
    EXPECT_EQ(behind.tileSpacingY, 50);
    // Another key of an element that is animated already leaves it alone.
    EXPECT_EQ(ElementOf({"type = anim", "tilespacing = 40", "mask = 1"}).tileSpacingX, 40);
}

TEST(StageKeys, LaterLineOfTheSameKeyWins) {
    EXPECT_EQ(ElementOf({"id = 5", "id = 6"}).id, 6);
    EXPECT_EQ(ElementOf({"start = 5, 6", "start = 7"}).startY, 6);
}

TEST(StageKeys, WindowWithAValueThatDoesNotFitIsNoWindow) {
    BackgroundElement element;
    EXPECT_THAT(ReadLines(element, {"window = 1, 2, 1e39, 4"}),
                ElementsAre("Overflow: window, line 1"));
    EXPECT_EQ(element.windowActive, 0);
}

TEST(StageKeys, WindowDeltaIsSaidAndIgnored) {
    BackgroundElement element;
    EXPECT_THAT(ReadLines(element, {"windowdelta = 1, 2"}),
                ElementsAre("Windowdelta not supported just yet.."));
    EXPECT_EQ(ModelText(element), ModelText(BackgroundElement()));
}

TEST(StageKeys, WindowDeltaIsSaidForEveryLine) {
    BackgroundElement element;
    EXPECT_EQ(ReadLines(element, {"windowdelta = 0", "windowdelta = 0,0", "windowdelta ="}).size(),
              3U);
}

TEST(StageKeys, ElementValueThatDoesNotFitIsReportedOnce) {
    for (const std::string_view key : {"mask", "actionno", "positionlink", "layerno"}) {
        BackgroundElement element;
        EXPECT_THAT(ReadLines(element, {std::string(key) + " = 40000"}),
                    ElementsAre("Overflow: " + std::string(key) + ", line 1"));
        EXPECT_EQ(ModelText(element), ModelText(BackgroundElement())) << key;
    }
    for (const std::string_view key : {"spriteno", "start", "delta", "velocity", "tile", "id",
                                       "sin.y", "tilespacing", "xscale"}) {
        BackgroundElement element;
        EXPECT_THAT(ReadLines(element, {std::string(key) + " = 1e39"}),
                    ElementsAre("Overflow: " + std::string(key) + ", line 1"));
        EXPECT_EQ(ModelText(element), ModelText(BackgroundElement())) << key;
    }
}

// Frames

struct FrameRow {
    const char* name = "";
    std::string_view line;
    void (*change)(StageFrame&) = nullptr;
    std::vector<std::string> said;

    friend std::ostream& operator<<(std::ostream& out, const FrameRow& row) {
        return out << row.name;
    }
};

constexpr std::string_view kNoVerticalFlip = "vertical flip not coded yet dude..";

class FrameLines : public testing::TestWithParam<FrameRow> {};

TEST_P(FrameLines, FillTheirFields) {
    HeadlessMessages messages;
    const KeyLine line(GetParam().line);
    KeyOffer offer(line, line.Text(), 8, messages, kPlainView);
    StageFrame frame;
    ReadFrame(offer, frame, messages);
    StageFrame expected;
    GetParam().change(expected);
    EXPECT_EQ(ModelText(frame), ModelText(expected)) << GetParam().line;
    EXPECT_EQ(Texts(messages), GetParam().said) << GetParam().line;
}

void Frame23(StageFrame& frame) {
    frame.group = 2;
    frame.image = 3;
}

void Frame23OfTime5(StageFrame& frame) {
    Frame23(frame);
    frame.time = 5;
}

const FrameRow kFrameRows[] = {
    {"SixValues",
     "70000,3, -40,50, 7, H",
     [](StageFrame& f) {
         f.group = 70000;
         f.image = 3;
         f.offsetX = -40;
         f.offsetY = 50;
         f.time = 7;
         f.flip = "h";
     },
     {}},
    {"FiveValues", "2,3, 0,0, 5", Frame23OfTime5, {}},
    {"NegativeTime",
     "2,3, 0,0, -1",
     [](StageFrame& f) {
         Frame23(f);
         f.time = -1;
     },
     {}},
    {"NegativeGroup",
     "-1,0, 0,0, 5",
     [](StageFrame& f) {
         f.group = -1;
         f.time = 5;
     },
     {}},
    {"BlanksBeforeIt", "  2,3, 0,0, 5", Frame23OfTime5, {}},
    {"TwoValues", "2,3", Frame23, {}},
    {"FourValues", "2,3, 0,0", Frame23, {}},
    // An empty flip is none, whatever follows; a lone stop or nothing at the end is absent.
    {"EmptyFlipAtTheEnd", "2,3, 0,0, 5, ", Frame23OfTime5, {}},
    {"LoneStopIsNoFlip", "2,3, 0,0, 5, .", Frame23OfTime5, {}},
    {"EmptyFlipBetweenCommasIsNoFlip", "2,3, 0,0, 5, , A", Frame23OfTime5, {}},
    // What stands behind the sixth value is not read.
    {"ValuesBehindTheSixthAreNotRead",
     "2,3, 0,0, 5, h, AS64D128",
     [](StageFrame& f) {
         Frame23OfTime5(f);
         f.flip = "h";
     },
     {}},
    {"VerticalFlipIsSaid",
     "2,3, 0,0, 5, V",
     [](StageFrame& f) {
         Frame23OfTime5(f);
         f.flip = "v";
     },
     {std::string(kNoVerticalFlip)}},
    {"BothFlipsAreSaid",
     "2,3, 0,0, 5, HV",
     [](StageFrame& f) {
         Frame23OfTime5(f);
         f.flip = "hv";
     },
     {std::string(kNoVerticalFlip)}},
    {"MissingTimeBeforeAFlipIsZero", "2,3, 0,0, h", Frame23, {"DOOM FIX"}},
    {"MissingTimeBeforeACapitalFlipIsZero", "2,3, 0,0, H", Frame23, {"DOOM FIX"}},
    {"EachValueThatDoesNotFitIsSaid",
     "2,99999, 0,99999, 5",
     [](StageFrame& f) {
         f.group = 2;
         f.time = 5;
     },
     {"Overflow: frame, line 8", "Overflow: frame, line 8"}},
};

INSTANTIATE_TEST_SUITE_P(Each, FrameLines, testing::ValuesIn(kFrameRows), RowName());

}  // namespace
}  // namespace scenara::test
