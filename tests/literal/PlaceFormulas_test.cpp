// SPDX-License-Identifier: MIT
//
// What is worked out by hand is what the program shows, and what the renderer that does everything
// the long way shows.
#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "literal/Comparison.h"
#include "literal/FrameRows.h"
#include "literal/OwnScaleRows.h"
#include "literal/PlaceRows.h"
#include "literal/ProgramCanvas.h"
#include "literal/SolidPictures.h"
#include "literal/WidthRows.h"
#include "literal/ZoomRows.h"

namespace scenara::test {
namespace {

RandomStage StageOf(const PlaceRow& row) {
    RandomStage stage;
    stage.archive = SolidArchive();
    stage.definition = SolidDefinition(row.settings, std::string(row.element) + row.adds);
    LiteralKeys throughout;
    throughout.right = row.held == Held::RightThroughout;
    throughout.left = row.held == Held::LeftThroughout;
    throughout.up = row.held == Held::UpThroughout;
    stage.keys.resize(static_cast<std::size_t>(row.frames), throughout);
    stage.keys[0].right =
        throughout.right || row.held == Held::Right || row.held == Held::RightAndUp;
    stage.keys[0].up = throughout.up || row.held == Held::RightAndUp;
    return stage;
}

class PlaceFormulas : public testing::TestWithParam<PlaceRow> {};

TEST_P(PlaceFormulas, OfTheProgram) {
    const PlaceRow& row = GetParam();
    ShotStage stage = ProgramWith(StageOf(row), ViewOptions{true});
    stage.Run(row.frames);
    EXPECT_EQ(Wrong(CanvasOf(stage), row.canvas, row.covered, row.colour), "");
}

TEST_P(PlaceFormulas, OfTheLongWay) {
    const PlaceRow& row = GetParam();
    const ShownCanvas canvas = LiteralPictureOf(StageOf(row), ViewOptions{true});
    EXPECT_EQ(Wrong(canvas, row.canvas, row.covered, row.colour), "");
}

INSTANTIATE_TEST_SUITE_P(Place, PlaceFormulas, testing::ValuesIn(kPlaceRows));
INSTANTIATE_TEST_SUITE_P(OwnScale, PlaceFormulas, testing::ValuesIn(kOwnScaleRows));
INSTANTIATE_TEST_SUITE_P(Zoom, PlaceFormulas, testing::ValuesIn(kZoomRows));
INSTANTIATE_TEST_SUITE_P(Width, PlaceFormulas, testing::ValuesIn(kWidthRows));
INSTANTIATE_TEST_SUITE_P(Frame, PlaceFormulas, testing::ValuesIn(kFrameRows));

}  // namespace
}  // namespace scenara::test
