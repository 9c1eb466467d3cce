// SPDX-License-Identifier: MIT
#include "render/TurnedQuad.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace scenara::test {
namespace {

struct TurnBy {
    double angle;
    double cosine;
    double sine;
};

TEST(Turn, ByQuartersIsExact) {
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    for (const TurnBy& row : {
             TurnBy{0, 1, 0},
             {90, 0, 1},
             {180, -1, 0},
             {270, 0, -1},
             {360, 1, 0},
             {-90, 0, -1},
             {-180, -1, 0},
             {-270, 0, 1},
             {-360, 1, 0},
             {450, 0, 1},
             {-36000, 1, 0},
             {36000090, 0, 1},
             {-0.0, 1, 0},
             {kInfinite, 1, 0},
             {-kInfinite, 1, 0},
             {std::numeric_limits<double>::quiet_NaN(), 1, 0},
         }) {
        SCOPED_TRACE(row.angle);
        const Turn turn = Turn::By(row.angle);
        EXPECT_EQ(turn.cosine, row.cosine);
        EXPECT_EQ(turn.sine, row.sine);
        EXPECT_EQ(turn.Turns(), row.cosine != 1);
    }
}

TEST(Turn, ByAnyAngleIsThatOfACircle) {
    for (int angle = -1080; angle <= 1080; ++angle) {
        const Turn turn = Turn::By(angle);
        const double radians = angle * std::acos(-1.0) / 180;
        EXPECT_NEAR(turn.cosine, std::cos(radians), 1e-12) << angle;
        EXPECT_NEAR(turn.sine, std::sin(radians), 1e-12) << angle;
        EXPECT_EQ(turn.Turns(), angle % 360 != 0) << angle;
    }
    EXPECT_TRUE(Turn::By(1e-9).Turns()) << "however little";
}

TEST(Turn, IsCounterClockwiseOnTheScreen) {
    const Turn quarter = Turn::By(90);
    // What was to the right is above, what was above is to the left.
    EXPECT_EQ(quarter.X(3, 0), 0);
    EXPECT_EQ(quarter.Y(3, 0), -3);
    EXPECT_EQ(quarter.X(0, -3), -3);
    EXPECT_EQ(quarter.Y(0, -3), 0);
}

using Grid = std::vector<std::string>;

// The pixels of a view of 6 x 6, by the letters that a picture of 3 x 2 shows there:
//   abc
//   def
Grid Seen(const TurnedQuad& quad, const BlitStyle& style = {}) {
    Grid seen;
    for (int y = 0; y < 6; ++y) {
        std::string& line = seen.emplace_back();
        for (int x = 0; x < 6; ++x) {
            const auto texel = TexelAt(quad, 3, 2, style, x, y);
            line += texel ? static_cast<char>('a' + texel->y * 3 + texel->x) : '.';
        }
    }
    return seen;
}

// The picture turned about its upper left corner, which stands at this place.
TurnedQuad Turned(double angle, Single x, Single y, double scale = 1) {
    const Turn turn = Turn::By(angle);
    TurnedQuad quad;
    const double xs[] = {0, 0, 3 * scale, 3 * scale};
    const double ys[] = {2 * scale, 0, 2 * scale, 0};
    for (std::size_t i = 0; i < 4; ++i) {
        quad.corners[i] = {x + static_cast<Single>(turn.X(xs[i], ys[i])),
                           y + static_cast<Single>(turn.Y(xs[i], ys[i]))};
    }
    return quad;
}

struct SeenTurned {
    const char* name;
    double angle;
    Single x;
    Single y;
    Grid seen;
    BlitStyle style = {};
    double scale = 1;
};

TEST(TexelAt, IsThePixelUnderThatOfTheCanvas) {
    BlitStyle mirrored;
    mirrored.mirrored = true;
    BlitStyle flipped;
    flipped.flipped = true;
    for (const SeenTurned& row : std::vector<SeenTurned>{
             // clang-format off
             {"a quarter", 90, 1, 5, {"......",
                                      "......",
                                      ".cf...",
                                      ".be...",
                                      ".ad...",
                                      "......"}},
             {"half a turn", 180, 5, 4, {"......",
                                         "......",
                                         "..fed.",
                                         "..cba.",
                                         "......",
                                         "......"}},
             {"three quarters", 270, 4, 1, {"......",
                                            "..da..",
                                            "..eb..",
                                            "..fc..",
                                            "......",
                                            "......"}},
             // It is mirrored before, so it turns to the same side.
             {"a quarter, mirrored", 90, 1, 5, {"......",
                                                "......",
                                                ".ad...",
                                                ".be...",
                                                ".cf...",
                                                "......"}, mirrored},
             {"a quarter, upside down", 90, 1, 5, {"......",
                                                   "......",
                                                   ".fc...",
                                                   ".eb...",
                                                   ".da...",
                                                   "......"}, flipped},
             {"between pixels", 90, 1.25F, 4.75F, {"......",
                                                   "......",
                                                   ".cf...",
                                                   ".be...",
                                                   ".ad...",
                                                   "......"}},
             // Centres on the left and the upper edge belong to it, those on the others do not; and
             // a centre on a border shows what follows to the right or below.
             {"through the centres of pixels", 90, 0.5F, 5.5F, {"......",
                                                                "......",
                                                                "cf....",
                                                                "be....",
                                                                "ad....",
                                                                "......"}},
             {"twice as large", 90, 0, 6, {"ccff..",
                                           "ccff..",
                                           "bbee..",
                                           "bbee..",
                                           "aadd..",
                                           "aadd.."}, {}, 2},
             // The lines of the picture go up to the right.
             {"an eighth", 45, 1, 2.75F, {"......",
                                          "..bc..",
                                          ".abe..",
                                          "..d...",
                                          "......",
                                          "......"}},
             // clang-format on
         }) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Seen(Turned(row.angle, row.x, row.y, row.scale), row.style), row.seen);
    }
}

TEST(TexelAt, OfAQuadWithoutAnyPixelIsNone) {
    const Grid nothing(6, "......");
    EXPECT_EQ(Seen(TurnedQuad()), nothing);
    EXPECT_EQ(Seen(Turned(30, 3.6F, 3.6F, 0.05)), nothing);
    EXPECT_EQ(Seen(Turned(30, 1e9F, -1e9F)), nothing);
}

}  // namespace
}  // namespace scenara::test
