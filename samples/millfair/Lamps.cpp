// SPDX-License-Identifier: MIT
//
// Lamps and what hangs on lines: posts with bulbs between them, paper lanterns, flags.
#include <cmath>
#include <numbers>

#include "millfair/Pictures.h"
#include "millfair/Polygon.h"
#include "millfair/Scene.h"
#include "painting/Strokes.h"

namespace scenara::samples::millfair {
namespace {

constexpr int kPostsWidth = 240;  // tiles sideways
constexpr int kPostsHeight = 190;
constexpr double kPost = 120;
constexpr double kHead = 40;  // room above the lanterns for their light
constexpr double kGround = kHead + 142;
constexpr int kBulbs = 10;  // between two posts

// The line hangs from post to post, past the picture's ends.
double LineAt(double x) {
    const double u = std::abs(x - kPost) / kPost;
    return kHead + 24 + 26 * (1 - (1 - u) * (1 - u));
}

double BulbAt(int bulb) {
    return kPost + (bulb + 0.5) * kPostsWidth / kBulbs;
}

template <typename Paint>
void ForEachBulb(Paint paint) {
    for (int bulb = 0; bulb < kBulbs; ++bulb) {
        const double x = BulbAt(bulb);
        const double inside = x < kPostsWidth ? x : x - kPostsWidth;
        paint(inside, LineAt(inside) + 4, bulb);
    }
}

// Goes on at the other end where it reaches beyond one.
void PaintWrappedGlow(AlphaPainting& painting, const Oval& oval, const Film& film) {
    for (const double shift : {-1.0, 0.0, 1.0}) {
        PaintGlow(painting, {oval.x + shift * kPostsWidth, oval.y, oval.radiusX, oval.radiusY},
                  film);
    }
}

}  // namespace

AlphaPicture DrawPosts() {
    AlphaPainting painting(kPostsWidth, kPostsHeight);
    const Knots line = KnotsAlong(61, [](double u) {
        const double x = -4 + u * (kPostsWidth + 8);
        return Knot{x, LineAt(x < 0 ? -x : x > kPostsWidth ? 2 * kPostsWidth - x : x), 0.5};
    });
    PaintOval(painting, {kPost + 8, kGround, 18, 3}, 2, [](double, double) {
        return Film{{0.10, 0.07, 0.17}, 0.5};
    });
    PaintStroke(painting, line, 0.9, {{0.20, 0.14, 0.22}, 1});
    const auto iron = [](const StrokePlace& at) {
        return Film{Light{0.32, 0.28, 0.36} * LightOn(-at.across) * 1.1, 1};
    };
    // Upwards, so that its left side is lit.
    PaintStroke(painting, Knots{{kPost, kHead + 20, 1.7}, {kPost, kGround, 2.0}}, 1, iron);
    PaintStroke(painting, Knots{{kPost, kGround - 16, 2.4}, {kPost, kGround, 4.4}}, 1, iron);
    PaintStroke(painting, Knots{{kPost, kHead + 60, 2.8}, {kPost, kHead + 63, 2.8}}, 1, iron);
    ForEachBulb([&](double x, double y, int) {
        PaintStroke(painting, Knots{{x, y - 5, 0.9}, {x, y - 2.5, 1.2}}, 0.8, {kDarkWood, 1});
        PaintOval(painting, {x, y, 2.3, 2.9}, 0.9, [](double u, double v) {
            return Film{Mixed(kLampCore, kLampLight, std::hypot(u, v)), 1};
        });
    });
    // The lantern on top of the post.
    PaintPolygon(
        painting,
        {{kPost - 6, kHead + 6},
         {kPost + 6, kHead + 6},
         {kPost + 4, kHead + 20},
         {kPost - 4, kHead + 20}},
        [](double x, double y) {
            return Film{
                Mixed(kLampCore, kLampLight, std::hypot((x - kPost) / 6, (y - kHead - 13) / 8)), 1};
        });
    for (const double side : {-1.0, 0.0, 1.0}) {
        PaintStroke(painting,
                    Knots{{kPost + 6 * side, kHead + 6, 0.7}, {kPost + 4 * side, kHead + 20, 0.7}},
                    0.9, {kDarkWood, 1});
    }
    PaintPolygon(painting, {{kPost - 8, kHead + 7}, {kPost, kHead}, {kPost + 8, kHead + 7}},
                 [](double x, double) {
                     return Film{Light{0.34, 0.30, 0.38} * LightOn((x - kPost) / 6), 1};
                 });
    return painting.ToPicture();
}

AlphaPicture DrawPostsGlow() {
    AlphaPainting painting(kPostsWidth, kPostsHeight);
    ForEachBulb([&](double x, double y, int) {
        PaintWrappedGlow(painting, {x, y, 15, 15}, {{1.0, 0.70, 0.34}, 0.42});
    });
    PaintGlow(painting, {kPost, kHead + 13, 46, 46}, {{1.0, 0.72, 0.38}, 0.5});
    return painting.ToPicture();
}

AlphaPicture DrawLantern(int which) {
    constexpr double kMiddle = 30;
    AlphaPainting painting(60, 72);
    const Light paper = which == 0 ? Light{1.0, 0.50, 0.30} : Light{1.0, 0.80, 0.40};
    PaintGlow(painting, {kMiddle, 36, 29, 32}, {paper, 0.42});
    PaintStroke(painting, Knots{{kMiddle, 1, 0.6}, {kMiddle, 18, 0.6}}, 0.9, {kDarkWood, 1});
    PaintOval(painting, {kMiddle, 35, 14, 17}, 1, [&](double u, double v) {
        const double rib = 0.10 * std::cos(v * 26);
        const double core = Rise(1.0, 0.0, std::hypot(u, v * 0.9 - 0.1));
        return Film{Mixed(paper * (0.86 + rib), kLampCore, 0.75 * core), 1};
    });
    for (const double row : {18.5, 51.5}) {
        PaintStroke(painting, Knots{{kMiddle - 5, row, 1.6}, {kMiddle + 5, row, 1.6}}, 0.9,
                    {kDarkWood * 1.3, 1});
    }
    for (const double side : {-2.0, 0.0, 2.0}) {
        PaintStroke(painting, Knots{{kMiddle + side * 0.6, 53, 0.7}, {kMiddle + side, 64, 0.5}},
                    0.8, {kRed, 0.95});
    }
    return painting.ToPicture();
}

AlphaPicture DrawFlags() {
    constexpr int kWidth = 320;  // tiles sideways
    constexpr int kFlags = 10;
    constexpr Light kColours[] = {kRed, kCream, {0.24, 0.52, 0.52}, kGold, {0.44, 0.30, 0.52}};
    AlphaPainting painting(kWidth, 70);
    const auto line = [](double x) { return 12 + 16 * std::sin(std::numbers::pi * x / kWidth); };
    for (int flag = 0; flag < kFlags; ++flag) {
        const double x = (flag + 0.5) * kWidth / kFlags;
        const double y = line(x);
        const double lean = 2.4 * std::sin(flag * 1.7);
        PaintPolygon(painting, {{x - 12, line(x - 12)}, {x + 12, line(x + 12)}, {x + lean, y + 30}},
                     [&](double px, double py) {
                         const double fold = std::sin((px - x) * 0.35 + flag);
                         const double shade = 1 - 0.014 * (py - y);
                         return Film{kColours[flag % 5] * LightOn(-0.1 - 0.4 * fold) * shade, 1};
                     });
    }
    PaintStroke(painting,
                KnotsAlong(41,
                           [&](double u) {
                               const double x = -2 + u * (kWidth + 4);
                               return Knot{x, line(std::clamp(x, 0.0, kWidth * 1.0)), 0.9};
                           }),
                0.9, {{0.88, 0.78, 0.68}, 1});
    return painting.ToPicture();
}

}  // namespace scenara::samples::millfair
