// SPDX-License-Identifier: MIT
//
// Places from which an element is seen, against the element placed for each of them.
#include "render/SeenFrom.h"

#include <cstddef>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "render/ElementPieces.h"
#include "render/PrepareStage.h"
#include "stage/ModelText.h"
#include "stage/StageSpace.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

// The test is by the element's own place, without what is noted.
bool MayBeSeenWithoutNotes(const StageModel& model, BackgroundElement element,
                           const DrawOptions& options) {
    element.seenFrom = {};
    return MayBeSeen(model, element, options);
}

class RandomStills {
public:
    StageModel Make() {
        StageModel model;
        SpriteEntry sprite;
        sprite.width = static_cast<Integer>(Between(1, 400));
        sprite.height = static_cast<Integer>(Between(1, 300));
        sprite.axisX = static_cast<Integer>(Between(-500, 500));
        sprite.axisY = static_cast<Integer>(Between(-500, 500));
        model.Sprites.assign(1, sprite);
        model.SpriteCount = 1;
        model.hires = static_cast<Integer>(Between(0, 1));
        model.localcoordWidth = Between(80, 1300);
        model.localcoordHeight = Between(60, 800);
        model.StageXScale = static_cast<Single>(Between(-300, 300)) / 100;
        model.StageYScale = static_cast<Single>(Between(-300, 300)) / 100;
        model.ZOffset = static_cast<Integer>(Between(0, 800));
        model.CamZoom = Between(0, 1) == 0 ? 1 : Between(20, 300) / 100.0;
        for (int i = 0; i < 8; ++i) {
            BackgroundElement element;
            if (Between(0, 2) == 0) {
                element.zoomDelta = {static_cast<Single>(Between(-50, 300)) / 100,
                                     static_cast<Single>(Between(-50, 300)) / 100};
            }
            element.type = "normal";
            element.startX = Between(-3000, 3000);
            element.startY = Between(-3000, 3000);
            element.startFraction = {static_cast<Single>(Between(0, 99)) / 100, 0};
            element.deltaX = Delta();
            element.deltaY = Delta();
            element.deltaRead = {element.deltaX, element.deltaY};
            if (i > 0 && Between(0, 2) == 0) {
                element.scaleStart = {static_cast<Single>(Between(-300, 300)) / 100,
                                      static_cast<Single>(Between(-300, 300)) / 100};
            }
            if (i > 0 && Between(0, 9) == 0) {
                element.scaleDelta = {static_cast<Single>(Between(-30, 30)) / 1000, 0};
            }
            model.Elements.push_back(element);
        }
        model.ElementCount = 8;
        return model;
    }

    CameraPlace Camera() {
        return {static_cast<Single>(Between(-400000, 400000)) / 100,
                static_cast<Single>(Between(-400000, 400000)) / 100};
    }

private:
    Long Between(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }
    Single Delta() {
        return Between(0, 3) == 0 ? Single{0} : static_cast<Single>(Between(-200, 200)) / 100;
    }

    std::mt19937 random_{3};
};

TEST(SeenFrom, HasEveryPlaceFromWhichAnElementIsSeen) {
    RandomStills stills;
    int seen = 0;
    int hidden = 0;
    const int rounds = Rounds(2000);
    for (int round = 0; round < rounds; ++round) {
        StageModel model = stills.Make();
        const View view = ViewOf(model, ViewOptions());
        PrepareElements(model, ViewOptions(), view);
        NoteWhereSeen(model, view);
        for (int place = 0; place < 20; ++place) {
            DrawOptions options{true, view, stills.Camera()};
            options.zoom = model.CamZoom;
            options.ground = model.ZOffset;
            for (const BackgroundElement& element : model.Elements) {
                const bool noted = MayBeSeen(model, element, options);
                ASSERT_EQ(noted, MayBeSeenWithoutNotes(model, element, options))
                    << "round " << round << ", camera " << options.camera.x << ","
                    << options.camera.y << ", " << FieldsText(element) << FieldsText(model);
                seen += noted ? 1 : 0;
                hidden += element.seenFrom.Has(options.camera.x, options.camera.y) ? 0 : 1;
            }
        }
    }
    EXPECT_GT(seen, rounds);
    EXPECT_GT(hidden, rounds);
}

struct MovedElement {
    const char* name;
    void (*change)(StageModel& model);
};

const std::vector<MovedElement> kMoved{
    {"Drift", [](StageModel& model) { model.Elements.front().velocityX = 1; }},
    {"SwingAcross",
     [](StageModel& model) {
         model.Elements.front().sinState = {9, 60, 0};
     }},
    {"SwingDown", [](StageModel& model) { model.Elements.front().sinYAmplitude = 9; }},
    {"TilesAcross", [](StageModel& model) { model.Elements.front().tileX = 1; }},
    {"TilesDown", [](StageModel& model) { model.Elements.front().tileY = 7; }},
    {"Frames",
     [](StageModel& model) {
         model.Elements.front().type = "anim";
         StageAction action;
         action.frames.resize(1);
         model.Actions.assign(1, action);
     }},
    {"AScaleThatChanges", [](StageModel& model) { model.Elements.front().scaleDelta[0] = 0.01F; }},
    {"Rows", [](StageModel& model) { model.Elements.front().type = "parallax"; }},
    {"AController",
     [](StageModel& model) {
         BgCtrl control;
         control.type = "posadd";
         control.ctrlIds = {0};
         BgCtrlDef group;
         group.controls.assign(1, control);
         model.CtrlDefs.assign(1, group);
     }},
};

class ElementsThatMove : public testing::TestWithParam<MovedElement> {};

TEST_P(ElementsThatMove, AreLookedAtFromEverywhere) {
    const auto isEverywhere = [](const StageModel& model) {
        return model.Elements.front().seenFrom.Has(1e30F, -1e30F);
    };
    StageModel model = RandomStills().Make();
    model.Elements.resize(1);
    model.ElementCount = 1;
    model.Elements.front().deltaX = 1;
    const View view = ViewOf(model, ViewOptions());
    PrepareElements(model, ViewOptions(), view);
    NoteWhereSeen(model, view);
    EXPECT_FALSE(isEverywhere(model)) << "as it was";
    GetParam().change(model);
    PrepareElements(model, ViewOptions(), view);
    NoteWhereSeen(model, view);
    EXPECT_TRUE(isEverywhere(model));
}

INSTANTIATE_TEST_SUITE_P(, ElementsThatMove, testing::ValuesIn(kMoved),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SeenFrom, IsForgotten) {
    StageModel model = RandomStills().Make();
    const View view = ViewOf(model, ViewOptions());
    PrepareElements(model, ViewOptions(), view);
    NoteWhereSeen(model, view);
    ForgetWhereSeen(model);
    for (const BackgroundElement& element : model.Elements) {
        EXPECT_TRUE(element.seenFrom.Has(1e30F, -1e30F));
    }
}

}  // namespace
}  // namespace scenara::test
