// SPDX-License-Identifier: MIT
#include "render/ElementPieces.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

class Seen : public testing::Test {
protected:
    Seen() { element.linkParent = -1; }

    StageModel model;
    StageBuilder build{model};
    BackgroundElement& element = build.Still(build.Sprite("picture", 30, 20));
};

TEST_F(Seen, IsEveryStillThatIsInViewAndNoneThatIsFarFromIt) {
    std::mt19937 random(5);
    std::uniform_real_distribution<Single> far(-60, 380);
    std::uniform_real_distribution<Single> near(-3, 3);
    int inView = 0;
    for (int round = 0; round < 20000; ++round) {
        // Half of them stand about an edge.
        const bool edge = round % 2 == 0;
        element.posX = edge ? near(random) + (round % 4 == 0 ? 320.0F : -30.0F) : far(random);
        element.posY = edge ? near(random) + (round % 8 < 4 ? 240.0F : -20.0F) : far(random);
        element.sinOffset = {near(random), near(random)};
        element.ctrlOffset = {near(random), near(random)};
        const auto placed = PlaceElement(model, element, {});
        ASSERT_TRUE(placed.has_value());
        const Long x = WholePixel(placed->x, false);
        const Long y = WholePixel(placed->y, false);
        const auto within = [&](Long border) {
            return x < View().width + border && x + 30 > -border && y < View().height + border &&
                   y + 20 > -border;
        };
        inView += within(0) ? 1 : 0;
        if (within(0)) {
            ASSERT_TRUE(MayBeSeen(model, element, {})) << x << ", " << y;
        } else if (!within(2)) {
            ASSERT_FALSE(MayBeSeen(model, element, {})) << x << ", " << y;
        }
    }
    EXPECT_GT(inView, 2000);
}

TEST_F(Seen, IsWhateverIsNoSinglePicture) {
    element.posX = 5000;
    EXPECT_FALSE(MayBeSeen(model, element, {}));
    element.tileX = 1;
    EXPECT_TRUE(MayBeSeen(model, element, {}));
    element.tileX = 0;
    element.tileY = 3;
    EXPECT_TRUE(MayBeSeen(model, element, {}));
    element.tileY = 0;
    element.kind = ElementKind::Parallax;
    EXPECT_TRUE(MayBeSeen(model, element, {}));
    element.kind = ElementKind::Animated;
    EXPECT_TRUE(MayBeSeen(model, element, {}));
}

TEST_F(Seen, IsNothingWithoutAPlace) {
    element.posX = std::numeric_limits<Single>::quiet_NaN();
    EXPECT_FALSE(MayBeSeen(model, element, {}));
    element.posX = -std::numeric_limits<Single>::infinity();
    EXPECT_FALSE(MayBeSeen(model, element, {}));
}

TEST_F(Seen, WithASpriteOutsideOfTheTableIsAnError) {
    element.spriteIndex = 1;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange,
                [&] { static_cast<void>(MayBeSeen(model, element, {})); });
}

// --- many copies upon one another ---

class PixelCount : public PieceVisitor {
public:
    explicit PixelCount(const CanvasSize& canvas) : canvas_(canvas) {}
    void Show(const SpriteQuad& quad) override {
        pixels +=
            Seen(quad.x, quad.width, canvas_.width) * Seen(quad.y, quad.height, canvas_.height);
    }
    void ShowPattern(const TilePattern& /*pattern*/, const SpriteQuad& quad) override {
        Show(quad);
    }
    void ShowTurned(const TurnedQuad& /*quad*/) override { FAIL() << "of what is not turned"; }

    double pixels = 0;

private:
    static double Seen(std::int64_t from, std::int64_t length, std::int64_t all) {
        const std::int64_t seen = std::min(from + length, all) - std::max(from, std::int64_t{0});
        return static_cast<double>(std::max(seen, std::int64_t{0}));
    }

    CanvasSize canvas_;
};

struct Heap {
    const char* name;
    Long width;  // of the view
    Long height;
    Single scale;
    Mixing mixing;
};

// A frame of them takes about as long on each canvas.
TEST(ManyCopiesOfAPicture, AreAsManyPixelsOnEachCanvas) {
    for (const Heap& row : {
             Heap{"designed", 320, 240, 1, Mixing::Blended},
             {"wide", 1280, 720, 1, Mixing::Blended},
             {"scaled", 1280, 720, 1.01F, Mixing::Blended},
             {"scaled and masked", 1280, 720, 1.5F, Mixing::Masked},
             {"scaled and solid", 1280, 720, 1.01F, Mixing::Solid},
             {"largest", 7680, 4320, 1, Mixing::Blended},
         }) {
        SCOPED_TRACE(row.name);
        StageModel model;
        StageBuilder build(model);
        BackgroundElement& element =
            Tiled(build.Still(build.Sprite("picture", 300, 200)), 1, 1, -299, -199);
        element.linkParent = -1;
        model.StageXScale = model.StageYScale = row.scale;
        const DrawOptions options{.additions = true, .view = {row.width, row.height}};
        const auto placed = PlaceElement(model, element, options);
        ASSERT_TRUE(placed.has_value());
        PixelCount count(options.view.Canvas());
        ForEachPiece(model, element, *placed, options, row.mixing, count);
        EXPECT_GT(count.pixels, double{1} * row.width * row.height);
        EXPECT_LT(count.pixels, 1.5 * 4096 * 320 * 240 + 32.0 * row.width * row.height);
    }
}

}  // namespace
}  // namespace scenara::test
