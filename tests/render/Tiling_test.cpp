// SPDX-License-Identifier: MIT
#include "render/Tiling.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace scenara {
namespace {

using Positions = std::vector<std::int64_t>;

constexpr PixelRange kView{0, 320};

// Where the copies stand that touch what is visible. (Which others are named is nobody's concern.)
Positions Seen(Long tiles, std::int64_t step, std::int64_t position, std::int64_t size,
               PixelRange visible = kView, bool animated = false) {
    const Copies copies = CopiesAlong({tiles, step, size, animated}, position, visible);
    Positions seen;
    for (std::int64_t i = 0; i < copies.count; ++i) {
        const std::int64_t at = copies.At(i);
        if (at + size > visible.from && at < visible.to) {
            seen.push_back(at);
        }
    }
    return seen;
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

TEST(NoTiling, IsOneCopyWhereverItStands) {
    EXPECT_EQ(Seen(0, 100, 10, 50), (Positions{10}));
    EXPECT_EQ(Seen(0, 0, 10, 50), (Positions{10}));
    EXPECT_EQ(Seen(0, -5, 10, 50), (Positions{10}));
    const Copies copies = CopiesAlong({0, 100, 50, false}, -5000, kView);
    EXPECT_EQ(copies.count, 1);
    EXPECT_EQ(copies.first, -5000);
}

TEST(CountedTiling, GoesOnFromThePosition) {
    EXPECT_EQ(Seen(2, 100, 10, 50), (Positions{10, 110}));
    EXPECT_EQ(Seen(3, 100, 10, 50), (Positions{10, 110, 210}));
}

TEST(CountedTiling, ShowsNothingBeforeThePosition) {
    EXPECT_EQ(Seen(9, 100, 200, 50), (Positions{200, 300}));
    EXPECT_EQ(Seen(9, 100, 320, 50), (Positions{}));
}

TEST(CountedTiling, ShowsTheCopiesThatAreInTheView) {
    EXPECT_EQ(Seen(5, 100, -360, 50), (Positions{40}));
    EXPECT_EQ(Seen(5, 100, -449, 50), (Positions{-49}));
    EXPECT_EQ(Seen(5, 100, -450, 50), (Positions{}));
    EXPECT_EQ(Seen(999999, 100, -1000000, 50), (Positions{0, 100, 200, 300}));
}

TEST(CountedTiling, CopiesMayOverlap) {
    EXPECT_EQ(Seen(4, 10, 100, 50), (Positions{100, 110, 120, 130}));
}

TEST(CountedTiling, AStepOf0IsJustTheFirst) {
    EXPECT_EQ(Seen(5, 0, 10, 50), (Positions{10}));
    EXPECT_EQ(Seen(5, 0, 10, 50, kView, true), (Positions{10}));
}

TEST(CountedTiling, ANegativeStepIsNone) {
    EXPECT_EQ(Seen(5, -1, 10, 50), (Positions{}));
    EXPECT_EQ(Seen(2, -2147483648LL, 10, 50, kView, true), (Positions{}));
}

// An animation whose file gives no distance has 1, and all copies of a count are shown.
TEST(CountedTiling, SeveralCopiesOnePixelApartAreAllThere) {
    EXPECT_EQ(Seen(2, 1, 10, 64, kView, true), (Positions{10, 11}));
    EXPECT_EQ(Seen(3, 1, 10, 64, kView, true), (Positions{10, 11, 12}));
    EXPECT_EQ(Seen(10, 1, 10, 100), (Positions{10, 11, 12, 13, 14, 15, 16, 17, 18, 19}));
}

TEST(CountedTiling, TheLastCopyOfManyIsThere) {
    // 60 copies, 2 pixels apart: the strip ends at 10 + 59 * 2 + 100.
    const Positions seen = Seen(60, 2, 10, 100);
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.front(), 10);
    EXPECT_EQ(seen.back(), 128);
}

TEST(EndlessTiling, GoesBothWays) {
    EXPECT_EQ(Seen(1, 100, 10, 50), (Positions{10, 110, 210, 310}));
    EXPECT_EQ(Seen(1, 100, 70, 50), (Positions{-30, 70, 170, 270}));
    EXPECT_EQ(Seen(1, 100, 1070, 50), (Positions{-30, 70, 170, 270}));
    EXPECT_EQ(Seen(1, 100, -1030, 50), (Positions{-30, 70, 170, 270}));
}

TEST(EndlessTiling, ShowsCopiesThatTouchTheViewByOnePixel) {
    EXPECT_EQ(Seen(1, 100, 51, 50), (Positions{-49, 51, 151, 251}));
    EXPECT_EQ(Seen(1, 100, 50, 50), (Positions{50, 150, 250}));
    EXPECT_EQ(Seen(1, 100, 19, 50), (Positions{19, 119, 219, 319}));
    EXPECT_EQ(Seen(1, 100, 20, 50), (Positions{20, 120, 220}));
}

TEST(EndlessTiling, ComesInFromFarAway) {
    EXPECT_EQ(Seen(1, 100, -1000000007, 50), (Positions{-7, 93, 193, 293}));
    EXPECT_EQ(Seen(1, 100, 1000000007, 50), (Positions{7, 107, 207, 307}));
}

TEST(EndlessTiling, OfALargerPictureThanTheViewCoversIt) {
    EXPECT_EQ(Seen(1, 1000, 100, 1000), (Positions{-900, 100}));
    EXPECT_EQ(Seen(1, 1000, 0, 1000), (Positions{0}));
}

TEST(EndlessTiling, WithAStepOf0OrLessIsJustOne) {
    EXPECT_EQ(Seen(1, 0, 10, 50), (Positions{10}));
    EXPECT_EQ(Seen(1, -10, 10, 50), (Positions{10}));
    EXPECT_EQ(Seen(1, -2147483648LL, 10, 50), (Positions{10}));
}

TEST(EndlessTiling, OfAnAnimationWithoutADistanceGoesByItsSize) {
    for (const std::int64_t step : {1LL, 0LL, -7LL}) {
        EXPECT_EQ(Seen(1, step, 10, 100, kView, true), (Positions{-90, 10, 110, 210, 310})) << step;
    }
    // Still pictures may stand one pixel apart.
    EXPECT_EQ(Seen(1, 1, 10, 2, {100, 103}), (Positions{99, 100, 101, 102}));
}

TEST(EndlessTiling, OfAnAnimationWithADistanceOf2HasIt) {
    EXPECT_EQ(Seen(1, 2, 10, 4, {100, 104}, true), (Positions{98, 100, 102}));
}

TEST(EndlessTiling, ShowsWhatTouchesTheVisiblePart) {
    EXPECT_EQ(Seen(1, 100, 10, 50, {160, 210}), (Positions{}));
    EXPECT_EQ(Seen(1, 100, 10, 50, {159, 211}), (Positions{110, 210}));
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
        Positions left;
        for (std::int64_t i = 0; i < copies.count; ++i) {
            left.push_back(copies.At(i));
        }
        EXPECT_EQ(left, row.left) << row.what;
    }
}

TEST(ManyCopies, AlongBothAxesShareTheDepth) {
    for (const std::int64_t x : {1, 2, 63, 64, 65, 1000, 4096, 32767}) {
        for (const std::int64_t y : {1, 2, 63, 64, 65, 1000, 4096, 32767}) {
            const Depths allowed = AllowedDepths(x, y);
            EXPECT_LE(std::min(x, allowed.x) * std::min(y, allowed.y), kDeepest) << x << " " << y;
            if (x * y <= kDeepest) {
                EXPECT_GE(allowed.x, x) << y;
                EXPECT_GE(allowed.y, y) << x;
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
}  // namespace scenara
