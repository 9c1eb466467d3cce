// SPDX-License-Identifier: MIT
#include "render/PrepareStage.h"

#include <cmath>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "render/Changes.h"
#include "render/ExpectError.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

// With two sprites, the axes of which are not their corners.
struct PreparedStage {
    // As a stage start does it.
    void Prepare() {
        PlaceCamera(model, camera, View());
        PrepareElements(model, kPlainView, View());
    }
    [[nodiscard]] const BackgroundElement& Element(std::size_t index) const {
        return model.Elements.at(index);
    }

    StageModel model;
    StageBuilder build{model};
    Camera camera;
    const Integer hill = build.Sprite("hill", 64, 32, 20, 30);
    const Integer flag = build.Sprite("flag", 8, 8, 3, 4);
};

class Prepared : public testing::Test, protected PreparedStage {};

// --- where the camera starts ---

using CameraStart = Prepared;

struct CameraBounds {
    Long left;
    Long right;
    Integer high;
    Integer low;
};
struct Start {
    const char* name;
    CameraBounds bounds;
    Single startX;
    Integer startY;
    Single shownX;
    Single shownY;
};

constexpr CameraBounds kBounds{-100, 100, -80, 0};
constexpr CameraBounds kCrossed{50, -50, 10, 0};

TEST_F(CameraStart, IsWithinTheBounds) {
    for (const Start& row : {
             Start{"inside", kBounds, 25.5F, -10, 25.5F, -10},
             {"at the left and upper bound", kBounds, -100, -80, -100, -80},
             {"at the right and lower bound", kBounds, 100, 0, 100, 0},
             {"at 0", kBounds, 0, 0, 0, 0},
             {"beyond the left and upper bound", kBounds, -100.5F, -81, -100, -80},
             {"beyond the right and lower bound", kBounds, 100.5F, 1, 100, 0},
             {"far to the right", kBounds, 3e38F, 32767, 100, 0},
             {"far to the left", kBounds, -3e38F, -32768, -100, -80},
             // Right and lower bound win.
             {"between crossed bounds", kCrossed, 0, 5, -50, 0},
             {"left of crossed bounds", kCrossed, -200, -200, -50, 0},
             {"right of crossed bounds", kCrossed, 200, 200, -50, 0},
         }) {
        SCOPED_TRACE(row.name);
        model.BoundLeft = row.bounds.left;
        model.BoundRight = row.bounds.right;
        model.BoundHigh = row.bounds.high;
        model.BoundLow = row.bounds.low;
        model.CamStartX = row.startX;
        model.CamStartY = row.startY;
        PlaceCamera(model, camera, View());
        EXPECT_EQ(model.CamX, -row.shownX);
        EXPECT_EQ(model.CamY, row.shownY);
        EXPECT_EQ(camera.previousX, model.CamX);
        EXPECT_EQ(camera.previousY, model.CamY);
    }
}

TEST_F(CameraStart, NoStepLeftTheCameraItself) {
    camera.HCamStep = 3;
    camera.VCamStep = 4;
    camera.previousX = 7;
    PlaceCamera(model, camera, View());
    EXPECT_EQ(camera.previousX, 0);
    EXPECT_EQ(camera.HCamStep, 3);
    EXPECT_EQ(camera.VCamStep, 4);
}

// --- where elements start ---

using FirstPosition = Prepared;
using Place = std::pair<Single, Single>;

struct FirstPlaces {
    const char* name;
    void (*make)(PreparedStage& stage);
    std::vector<Place> places;  // of the elements
};

TEST_F(FirstPosition, IsThatOfTheStartFromTheMiddleOfTheView) {
    for (const FirstPlaces& row : std::vector<FirstPlaces>{
             {"a still picture lays its axis on it",
              [](PreparedStage& s) { StartAt(s.build.Still(s.hill), -40, 100); },
              {{160 - 40 - 20, 100 - 30}}},
             {"an animation keeps the axis for the frame",
              [](PreparedStage& s) {
                  StartAt(s.build.Animation(s.build.Action({{s.hill, 5, 3, 4}})), -40, 100);
              },
              {{120, 100}}},
             {"it contains the camera by delta",
              [](PreparedStage& s) {
                  s.model.CamStartX = 30;
                  s.model.CamStartY = -20;
                  WithDelta(s.build.Still(s.hill), 0.5F, 0.25F);
                  WithDelta(s.build.Animation(s.build.Action({{s.hill, 5}})), 2, -1);
              },
              {{160 - 20 - 15, -30 + 5}, {160 - 60, -20}}},
             {"the camera as it was placed, not as the file asks",
              [](PreparedStage& s) {
                  s.model.CamStartX = 5000;
                  s.model.BoundRight = 10;
                  s.build.Still(-1);
              },
              {{150, 0}}},
             {"without a picture there is no axis",
              [](PreparedStage& s) {
                  StartAt(s.build.Still(-1), 7, 0);
                  StartAt(s.build.Dummy(), 0, 9);
              },
              {{167, 0}, {160, 9}}},
             {"of a kind that is not known as of a still picture",
              [](PreparedStage& s) {
                  s.build.Still(s.hill).type = "Anim";
                  s.build.Still(s.hill).type = "";
                  s.build.Parallax(s.hill);
              },
              {{140, -30}, {140, -30}, {140, -30}}},
             {"linked: from the parent's start, with its deltas and not its axis",
              [](PreparedStage& s) {
                  s.model.CamStartX = 100;
                  s.model.CamStartY = -10;
                  WithDelta(StartAt(s.build.Still(s.hill), 50, 60), 0.5F, 0.25F);
                  Linked(WithDelta(StartAt(s.build.Still(s.flag), -7, -9), 9, 9));
              },
              {{160 + 50 - 20 - 50, 60 - 30 + 2.5F}, {160 + 50 - 7 - 3 - 50, 60 - 9 - 4 + 2.5F}}},
             {"linked in a chain: from its beginning",
              [](PreparedStage& s) {
                  StartAt(s.build.Still(-1), 50, 0);
                  Linked(StartAt(s.build.Still(-1), 10, 0));
                  Linked(StartAt(s.build.Still(-1), 1, 0));
              },
              {{210, 0}, {220, 0}, {211, 0}}},
             {"linked animations alike",
              [](PreparedStage& s) {
                  StartAt(s.build.Animation(s.build.Action({{s.hill, 5, 3, 4}})), 50, 0);
                  Linked(StartAt(s.build.Animation(0), 5, 0));
              },
              {{210, 0}, {215, 0}}},
             {"linked to a dummy",
              [](PreparedStage& s) {
                  StartAt(s.build.Dummy(), 50, 0);
                  Linked(s.build.Still(-1));
              },
              {{210, 0}, {210, 0}}},
             {"linked to nothing",
              [](PreparedStage& s) { Linked(StartAt(s.build.Still(-1), 5, 0)); },
              {{165, 0}}},
         }) {
        PreparedStage stage;
        row.make(stage);
        stage.Prepare();
        std::vector<Place> places;
        for (const BackgroundElement& element : stage.model.Elements) {
            places.emplace_back(element.posX, element.posY);
        }
        EXPECT_EQ(places, row.places) << row.name;
    }
}

TEST_F(FirstPosition, OfAKindThatIsNotKnownKeepsItsPicture) {
    build.Still(hill).type = "Anim";
    build.Still(hill).type = "";
    Prepare();
    EXPECT_EQ(Element(0).spriteIndex, hill);
    EXPECT_EQ(Element(1).spriteIndex, hill);
}

TEST_F(FirstPosition, TakesTheLargestNumbersOfAFile) {
    model.CamStartX = 1000;
    WithDelta(StartAt(build.Still(-1), 2147483647, -2147483647 - 1), -3e38F, 3e38F);
    Prepare();
    EXPECT_TRUE(std::isfinite(Element(0).posX));
    EXPECT_TRUE(std::isfinite(Element(0).posY));
}

TEST_F(FirstPosition, OfASpriteOrActionOutsideOfItsTableIsAnError) {
    for (const Integer index : {model.SpriteCount, Integer{-2}}) {
        model.Elements.clear();
        build.Still(index);
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Prepare(); });
    }
    for (const Integer index : {model.ActionCount, Integer{-2}}) {
        model.Elements.clear();
        build.Animation(index);
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Prepare(); });
    }
}

TEST_F(FirstPosition, AStageWithoutElementsIsNoError) {
    Prepare();
    EXPECT_TRUE(model.Elements.empty());
    EXPECT_EQ(model.ZOffsetLink, -1);
    EXPECT_EQ(model.BoundHigh, -1000);
}

// --- first values ---

using FirstValues = Prepared;

TEST_F(FirstValues, AreThoseOfTheBeginning) {
    // The swing's values are the file's.
    BackgroundElement& element = Swinging(build.Still(build.Sprite("hill", 64, 32)), 11, 12, 13);
    element.lastTileIndex = 5;
    element.frameIndex = 6;
    element.frameTime = 7;
    element.ctrlOffset = {1, 2};
    element.ctrlPos = {3, 4, 5, 6};
    element.sinOffset = {7, 8};
    element.linkSin = {9, 9};
    BgCtrlDef& group = build.Group();
    group.timer = 9;
    AddControl(group, "visible").timer = 10;
    const BackgroundElement before = element;
    Prepare();
    EXPECT_EQ(Changes(before, element),
              "posX=160, lastTileIndex=-1, frameIndex=0, frameTime=0, linkParent=-1, "
              "ctrlOffset=0 0, visible=1, enabled=1, ctrlPos=0 0 0 0, sinOffset=0 0, "
              "linkSin=0 0");
    EXPECT_EQ(model.CtrlDefs[0].timer, 0);
    EXPECT_EQ(model.CtrlDefs[0].controls[0].timer, 0);
}

TEST_F(FirstValues, EverythingIsVisibleAndEnabledButPlainDummies) {
    build.Still(build.Sprite("hill", 64, 32));
    build.Parallax(0);
    build.Animation(-1);
    build.Dummy();
    build.Still(0).type = "whatever";
    Prepare();
    for (const BackgroundElement& element : model.Elements) {
        EXPECT_EQ(element.visible, 1) << element.type;
        EXPECT_EQ(element.enabled, element.type == "dummy" ? 0 : 1) << element.type;
    }
    PrepareElements(model, ViewOptions(), View());
    EXPECT_THAT(model.Elements, testing::Each(testing::Field(&BackgroundElement::enabled, 1)));
}

TEST_F(FirstValues, AnimationsShowPicturesOfTheirActionFromItsFirstFrameOn) {
    build.Animation(build.Action({{-1, 12}, {-1, 3}}));
    build.Animation(build.Action({{-1, -1}}));
    build.Animation(-1);
    build.Animation(build.Action({}));
    Prepare();
    EXPECT_EQ(Element(0).frameTime, 12);
    EXPECT_EQ(Element(1).frameTime, -1);
    EXPECT_EQ(Element(2).frameTime, 0);
    EXPECT_EQ(Element(3).frameTime, 0);
    for (const BackgroundElement& element : model.Elements) {
        EXPECT_EQ(element.spriteIndex, -2);
        EXPECT_EQ(element.frameIndex, 0);
    }
}

TEST_F(FirstValues, ElementsAreInOrderOfTheirIdsThenOfTheList) {
    for (const Long id : {7, 0, 7, -3, 0, 2000000000}) {
        build.Still(-1).id = id;
    }
    Prepare();
    EXPECT_EQ(model.ElementsById, (std::vector<Integer>{3, 1, 4, 0, 2, 5}));
}

// --- links ---

using Links = Prepared;

TEST_F(Links, GoToTheLastElementBeforeThatHasNone) {
    for (const int link : {1, 0, 1, -1, 0, 32767, 0}) {
        build.Still(-1).positionlink = static_cast<Integer>(link);
    }
    Prepare();
    const std::vector<Integer> parents{-1, -1, 1, 1, -1, 4, -1};
    for (std::size_t i = 0; i < parents.size(); ++i) {
        EXPECT_EQ(Element(i).linkParent, parents[i]) << i;
    }
}

TEST_F(Links, TakeTheDeltasOfTheirParent) {
    WithDelta(build.Animation(-1), 0.5F, 0.25F);
    Linked(WithDelta(build.Animation(-1), 9, 9));
    Prepare();
    EXPECT_EQ(Element(1).deltaX, 0.5F);
    EXPECT_EQ(Element(1).deltaY, 0.25F);
}

TEST_F(Links, WithNothingBeforeKeepTheirOwnDeltas) {
    Linked(WithDelta(build.Still(-1), 0.5F, 1));
    Prepare();
    EXPECT_EQ(Element(0).linkParent, -1);
    EXPECT_EQ(Element(0).deltaX, 0.5F);
}

TEST_F(Links, GoToADummyAsWell) {
    build.Dummy();
    Linked(build.Still(-1));
    Prepare();
    EXPECT_EQ(Element(1).linkParent, 0);
}

// --- the ground line's element ---

struct Ground {
    const char* name;
    std::vector<Long> ids;  // of the elements
    Integer link;
    Integer element;
};

TEST(GroundLine, IsTheFirstElementWithTheId) {
    for (const Ground& row : std::vector<Ground>{
             {"the first of two", {3, 7, 7}, 7, 1},
             {"no element has the id", {3}, 4, -1},
             {"without the key it is not the element with id 0", {0}, -1, -1},
             {"nor that with id -1", {-1}, -1, -1},
             {"of id 0", {1, 0}, 0, 1},
         }) {
        StageModel model;
        StageBuilder build(model);
        for (const Long id : row.ids) {
            build.Still(-1).id = id;
        }
        model.ZOffsetLink = row.link;
        PrepareElements(model, kPlainView, View());
        EXPECT_EQ(model.ZOffsetLink, row.element) << row.name;
    }
}

// --- the raised upper bound ---

struct RaisedStage : PreparedStage {
    // Its upper edge lies at -20.
    BackgroundElement& Hill() { return StartAt(build.Still(hill), 0, 10); }
};

struct Raised {
    const char* name;
    void (*make)(RaisedStage& stage);
    Integer high;
    Integer raised;
};

TEST(UpperBound, IsRaisedToTheTopmostPicture) {
    const auto twoHills = [](RaisedStage& s) {
        s.Hill();
        StartAt(s.build.Still(s.hill), 0, 90);
    };
    const auto hill = [](RaisedStage& s) { s.Hill(); };
    for (const Raised& row : {
             Raised{"above it by one", twoHills, -21, -19},
             {"far above it", twoHills, -500, -19},
             {"at it", hill, -20, -20},
             {"below it by one", hill, -19, -19},
             {"below it", hill, 0, 0},
             {"below the ground view",
              [](RaisedStage& s) { StartAt(s.build.Still(s.build.Sprite("hill", 64, 32)), 0, 10); },
              0, 11},
             {"of an animation to its first frame's upper edge",
              [](RaisedStage& s) {
                  const Integer fire = s.build.Sprite("fire", 64, 32, 20, 30);
                  const Integer action = s.build.Action({{fire, 5, 0, -6}, {fire, 5, 0, -600}});
                  StartAt(s.build.Animation(action), 0, 10);
              },
              -500, 10 - 6 - 30 + 1},
             {"without a picture to the position",
              [](RaisedStage& s) { StartAt(s.build.Still(-1), 0, -40); }, -500, -39},
             {"of a dummy to the position",
              [](RaisedStage& s) { StartAt(s.build.Dummy(), 0, -50); }, -500, -49},
             {"without an action to the position",
              [](RaisedStage& s) { StartAt(s.build.Animation(-1), 0, -60); }, -500, -59},
             {"of a blank frame to the position",
              [](RaisedStage& s) {
                  StartAt(s.build.Animation(s.build.Action({{-1, 5, 0, -600}})), 0, -70);
              },
              -500, -69},
             {"of a linked element from its parent",
              [](RaisedStage& s) {
                  StartAt(s.build.Still(s.build.Sprite("hill", 64, 32, 0, 100)), 0, 10);
                  const Integer flag = s.build.Sprite("flag", 8, 8, 0, 4);
                  Linked(StartAt(s.build.Still(flag), 0, -150));
              },
              -500, 10 - 150 - 4 + 1},
             {"not where an element is tiled down without end",
              [](RaisedStage& s) {
                  s.Hill();
                  s.build.Still(s.hill).tileY = 1;
              },
              -500, -500},
             {"where it is tiled down by a count", [](RaisedStage& s) { s.Hill().tileY = 2; }, -500,
              -19},
             {"as near as its field comes",
              [](RaisedStage& s) { StartAt(s.build.Still(-1), 0, 2000000000); }, -500, 32767},
             {"not without elements", [](RaisedStage& /*stage*/) {}, -500, -500},
         }) {
        RaisedStage stage;
        row.make(stage);
        stage.model.BoundHigh = row.high;
        PrepareElements(stage.model, kPlainView, View());
        EXPECT_EQ(stage.model.BoundHigh, row.raised) << row.name;
    }
}

using UpperBounds = Prepared;

TEST_F(UpperBounds, LookAtTheStageWithTheCameraAt0) {
    model.CamStartY = -100;
    model.BoundHigh = -200;
    WithDelta(StartAt(build.Still(build.Sprite("hill", 64, 32, 0, 30)), 0, 10), 1, 0.5F);
    Prepare();
    EXPECT_EQ(model.BoundHigh, -19);
    // The camera was placed before and stays.
    EXPECT_EQ(model.CamY, -100);
    EXPECT_EQ(Element(0).posY, -20 + 50);
}

// --- textures ---

using PreparedTextures = Prepared;

TEST_F(PreparedTextures, AreThoseThatMayBeDrawnMasked) {
    const Integer opaque = build.Sprite("opaque", 8, 8);
    const Integer masked = build.Sprite("masked", 8, 8);
    const Integer inAnAction = build.Sprite("in an action", 8, 8);
    build.Sprite("of nobody", 8, 8);
    const Integer withoutAPalette = build.Sprite("without a palette", 8, 8);
    model.Sprites.back().trueColor = 1;
    build.Still(opaque);
    build.Still(masked).mask = 1;
    build.Still(withoutAPalette);
    build.Still(-1).mask = 1;
    // No element shows it; a controller may.
    build.Action({{-1, 5}, {inAnAction, 5}});
    Prepare();
    const auto prepared = [&](Integer sprite) {
        const auto& texture = model.Sprites.at(static_cast<std::size_t>(sprite)).texture;
        return dynamic_cast<const NamedTexture&>(*texture).PreLoads() > 0;
    };
    EXPECT_TRUE(prepared(masked));
    EXPECT_TRUE(prepared(inAnAction));
    EXPECT_TRUE(prepared(withoutAPalette));
    EXPECT_FALSE(prepared(opaque));
    EXPECT_FALSE(prepared(inAnAction + 1));
}

TEST_F(PreparedTextures, AreNotAskedForWhereThereAreNone) {
    build.Still(build.Sprite("released", 8, 8)).mask = 1;
    model.Sprites.back().texture.reset();
    Prepare();
    EXPECT_EQ(Element(0).posX, 160);
}

}  // namespace
}  // namespace scenara::test
