// SPDX-License-Identifier: MIT
#include "render/Tiling.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace scenara::test {
namespace {

using Positions = std::vector<std::int64_t>;

constexpr PixelRange kView{0, 320};

Positions All(const Copies& copies) {
    Positions all;
    for (std::int64_t i = 0; i < copies.count; ++i) {
        all.push_back(copies.At(i));
    }
    return all;
}

TEST(TileStep, IsTheGapForStillPicturesAndTheDistanceForAnimations) {
    EXPECT_EQ(TileStep(5, 64, false), 69);
    EXPECT_EQ(TileStep(5, 64, true), 5);
    EXPECT_EQ(TileStep(-64, 64, false), 0);
    EXPECT_EQ(TileStep(-100, 64, false), -36);
    EXPECT_EQ(TileStep(0, 64, true), 0);
}

TEST(TileStep, OfTheLargestSpacingDoesNotRunOver) {
    EXPECT_EQ(TileStep(2147483647, 32767, false), 2147516414);
    EXPECT_EQ(TileStep(-2147483647 - 1, 0, true), -2147483648LL);
}

struct SeenCopies {
    const char* name;
    Long tiles;
    std::int64_t step;
    std::int64_t position;
    std::int64_t size;
    Positions seen;
    PixelRange visible = kView;
    bool animated = false;
};

const SeenCopies kSeen[] = {
    {"one", 0, 100, 10, 50, {10}},
    {"one with a step of 0", 0, 0, 10, 50, {10}},
    {"one with a negative step", 0, -5, 10, 50, {10}},

    {"two from the position on", 2, 100, 10, 50, {10, 110}},
    {"three from the position on", 3, 100, 10, 50, {10, 110, 210}},
    {"none before the position", 9, 100, 200, 50, {200, 300}},
    {"none where the position is out of view", 9, 100, 320, 50, {}},
    {"one of several in view", 5, 100, -360, 50, {40}},
    {"the last in view by a pixel", 5, 100, -449, 50, {-49}},
    {"none in view", 5, 100, -450, 50, {}},
    {"the middle of very many", 999999, 100, -1000000, 50, {0, 100, 200, 300}},
    {"they overlap", 4, 10, 100, 50, {100, 110, 120, 130}},
    {"a step of 0", 5, 0, 10, 50, {10}},
    {"a step of 0 of an animation", 5, 0, 10, 50, {10}, kView, true},
    {"a negative step", 5, -1, 10, 50, {}},
    {"the least step of an animation", 2, -2147483648LL, 10, 50, {}, kView, true},
    // An animation whose file gives no distance has 1, and all copies of a count are shown.
    {"two one pixel apart", 2, 1, 10, 64, {10, 11}, kView, true},
    {"three one pixel apart", 3, 1, 10, 64, {10, 11, 12}, kView, true},
    {"ten one pixel apart", 10, 1, 10, 100, {10, 11, 12, 13, 14, 15, 16, 17, 18, 19}},

    {"endless both ways", 1, 100, 10, 50, {10, 110, 210, 310}},
    {"endless, one cut by the left edge", 1, 100, 70, 50, {-30, 70, 170, 270}},
    {"endless from the right", 1, 100, 1070, 50, {-30, 70, 170, 270}},
    {"endless from the left", 1, 100, -1030, 50, {-30, 70, 170, 270}},
    {"endless, touching the left edge", 1, 100, 51, 50, {-49, 51, 151, 251}},
    {"endless, beside the left edge", 1, 100, 50, 50, {50, 150, 250}},
    {"endless, touching the right edge", 1, 100, 19, 50, {19, 119, 219, 319}},
    {"endless, beside the right edge", 1, 100, 20, 50, {20, 120, 220}},
    {"endless from far left", 1, 100, -1000000007, 50, {-7, 93, 193, 293}},
    {"endless from far right", 1, 100, 1000000007, 50, {7, 107, 207, 307}},
    {"endless and larger than the view", 1, 1000, 100, 1000, {-900, 100}},
    {"endless, one covers the view", 1, 1000, 0, 1000, {0}},
    {"endless with a step of 0", 1, 0, 10, 50, {10}},
    {"endless with a negative step", 1, -10, 10, 50, {10}},
    {"endless with the least step", 1, -2147483648LL, 10, 50, {10}},
    // Of an animation without a distance they go by its size.
    {"endless animation, 1", 1, 1, 10, 100, {-90, 10, 110, 210, 310}, kView, true},
    {"endless animation, 0", 1, 0, 10, 100, {-90, 10, 110, 210, 310}, kView, true},
    {"endless animation, -7", 1, -7, 10, 100, {-90, 10, 110, 210, 310}, kView, true},
    {"endless animation, 2", 1, 2, 10, 4, {98, 100, 102}, {100, 104}, true},
    {"endless stills, 1", 1, 1, 10, 2, {99, 100, 101, 102}, {100, 103}},
    {"endless, all beside what is visible", 1, 100, 10, 50, {}, {160, 210}},
    {"endless, touching what is visible", 1, 100, 10, 50, {110, 210}, {159, 211}},
};

// Which others are named does not matter.
TEST(Copies, AreSeenWhereTheyTouchWhatIsVisible) {
    for (const SeenCopies& row : kSeen) {
        const Copies copies =
            CopiesAlong({row.tiles, row.step, row.size, row.animated}, row.position, row.visible);
        Positions seen;
        for (const std::int64_t at : All(copies)) {
            if (at + row.size > row.visible.from && at < row.visible.to) {
                seen.push_back(at);
            }
        }
        EXPECT_EQ(seen, row.seen) << row.name;
    }
}

TEST(Copies, OfAPictureThatIsNotTiledAreOneHoweverFarAway) {
    const Copies copies = CopiesAlong({0, 100, 50, false}, -5000, kView);
    EXPECT_EQ(copies.first, -5000);
    EXPECT_EQ(All(copies), (Positions{-5000}));
}

TEST(Copies, HaveTheLastOfMany) {
    // 60 copies, 2 pixels apart: the strip ends at 10 + 59 * 2 + 100.
    const Positions seen = All(CopiesAlong({60, 2, 100, false}, 10, kView));
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.front(), 10);
    EXPECT_EQ(seen.back(), 128);
}

// However absurd the file: about as many as lie upon one another at each end, and those between.
TEST(ManyCopies, AreBounded) {
    for (const std::int64_t deepest : {std::int64_t{64}, kDeepest}) {
        for (const Long tiles : {1, 2, 999999, 2147483647}) {
            for (const std::int64_t size : {1, 10, 320, 1025, 32767}) {
                for (const std::int64_t step : {1, 2, 33, 1000}) {
                    for (const std::int64_t position : {-1073741824, -20000, 0, 1073741824}) {
                        const Copies copies =
                            CopiesAlong({tiles, step, size, false}, position, kView, deepest);
                        EXPECT_LE(copies.count, 320 + deepest + 1) << tiles << " " << size;
                        EXPECT_GE(copies.count, 0);
                    }
                }
            }
        }
    }
}

TEST(ManyCopies, AsManyAsMayLieUponOneAnotherAreAllThere) {
    EXPECT_EQ(CopiesAlong({4096, 1, 4096, false}, -4000, kView, kDeepest).count, 4096);
    EXPECT_EQ(CopiesAlong({1, 1, 4096, false}, 0, kView, kDeepest).count, 320 + 4095);
    EXPECT_LT(CopiesAlong({5000, 1, 5000, false}, -4000, kView, kDeepest).count, 5000);
}

struct ThinnedOut {
    const char* what;
    Long count;
    std::int64_t position;
    Positions left;
};

// Pictures of 100 pixels, 1 pixel apart, of which no more than 2 are wanted upon one another.
TEST(ManyCopies, ThatAreThinnedOutKeepTheFirstAndTheLastOfACount) {
    for (const ThinnedOut& row : {
             ThinnedOut{"the last is one of them anyway", 3, 10, {10, 12}},
             {"the last stands beside", 4, 10, {10, 12, 13}},
             {"in the distance of the whole", 100, 10, {10, 60, 109}},
             {"the first is not in the view", 100, -100, {-50, -1}},
             {"nor is the last", 1000, -150, {-50, 0, 50, 100, 150, 200, 250, 300}},
         }) {
        const Copies copies = CopiesAlong({row.count, 1, 100, false}, row.position, kView, 2);
        EXPECT_EQ(All(copies), row.left) << row.what;
    }
}

// So that a frame of them takes as long on each.
TEST(ManyCopies, AreFewerOnALargeCanvas) {
    EXPECT_EQ(DeepestOn({320, 240}), 4096);
    EXPECT_EQ(DeepestOn({80, 60}), 4096);
    EXPECT_EQ(DeepestOn({640, 480}), 1024);
    EXPECT_EQ(DeepestOn({1280, 720}), 341);
    EXPECT_EQ(DeepestOn({7680, 4320}), 16);
}

TEST(ManyCopies, AlongBothAxesShareTheDepth) {
    for (const std::int64_t x : {1, 2, 63, 64, 65, 1000, 4096, 32767}) {
        for (const std::int64_t y : {1, 2, 63, 64, 65, 1000, 4096, 32767}) {
            for (const std::int64_t deepest : {std::int64_t{16}, std::int64_t{341}, kDeepest}) {
                const Depths allowed = AllowedDepths(x, y, deepest);
                EXPECT_LE(std::min(x, allowed.x) * std::min(y, allowed.y), deepest)
                    << x << " " << y;
                if (x * y <= deepest) {
                    EXPECT_GE(allowed.x, x) << y;
                    EXPECT_GE(allowed.y, y) << x;
                }
            }
        }
    }
}

TEST(ManyCopies, ThatAreThinnedOutStillCoverTheView) {
    for (const std::int64_t position : {-1000000007LL, -33LL, 0LL, 7LL, 1000000007LL}) {
        const Copies copies = CopiesAlong({1, 1, 100, false}, position, kView, 4);
        ASSERT_GT(copies.count, 0);
        EXPECT_LE(copies.first, 0);
        EXPECT_LE(copies.step, 100);
        EXPECT_GE(copies.last + 100, 320);
    }
}

}  // namespace
}  // namespace scenara::test
