// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <span>
#include <string>

#include <gtest/gtest.h>

#include "RandomQuads.h"
#include "SoftQuads.h"
#include "platform/soft/CopyRows.h"
#include "platform/soft/Triangles.h"
#include "platform/soft/TurnedQuads.h"
#include "support/Rounds.h"

namespace scenara::soft {
namespace {

using test::Corner;
using test::Corners;
using test::kCovering;
using test::PlainTexture;
using test::RandomQuad;
using test::TestView;

// A whole texture, turned about a place of the view, at these scales; below 0 mirrors.
Corners TurnedCorners(double angle, double x, double y, double halfWidth, double halfHeight,
                      std::uint32_t color = kWhite) {
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const auto corner = [&](double across, double down, double tu, double tv) {
        return Corner(x + across * cosine + down * sine, y - across * sine + down * cosine, color,
                      tu, tv);
    };
    const double left = halfWidth < 0 ? 1 : 0;
    const double top = halfHeight < 0 ? 1 : 0;
    const double w = std::abs(halfWidth);
    const double h = std::abs(halfHeight);
    return {corner(-w, h, left, 1 - top), corner(-w, -h, left, top),
            corner(w, h, 1 - left, 1 - top), corner(w, -h, 1 - left, top)};
}

PixelStates Clamped(PixelStates states) {
    states.sampling.clampColumns = true;
    states.sampling.clampLines = true;
    return states;
}

struct OtherStrip {
    std::string what;
    PixelStates states;
    void (*change)(Corners& corners);
    std::size_t count = 4;
};

TEST(TurnedQuads, OthersAreLeftToOthers) {
    if (BestRowPath() < RowPath::Avx2) {
        GTEST_SKIP() << "a processor that draws them by the general path";
    }
    const PlainTexture texture(16, 8, [](std::int32_t, std::int32_t) { return kWhite; });
    const auto nothing = [](Corners&) {};
    PixelStates wrapped = Clamped(kCovering);
    wrapped.sampling.clampLines = false;
    for (const OtherStrip& row : {
             OtherStrip{"that begin anew", kCovering, nothing},
             {"that begin anew down", wrapped, nothing},
             {"of three corners", Clamped(kCovering), nothing, 3},
             {"of two colours", Clamped(kCovering),
              [](Corners& corners) { corners[2].color ^= 1U; }},
             {"at no number", Clamped(kCovering),
              [](Corners& corners) { corners[1].x = std::numeric_limits<float>::quiet_NaN(); }},
             {"without end", Clamped(kCovering),
              [](Corners& corners) { corners[3].tv = std::numeric_limits<float>::infinity(); }},
         }) {
        SCOPED_TRACE(row.what);
        Corners corners = TurnedCorners(0.5, 160, 120, 8, 4);
        row.change(corners);
        TestView view;
        EXPECT_FALSE(DrawTurnedQuad(view.Pixels(), row.states, texture.Pixels(), Coverage(),
                                    std::span(corners).first(row.count)));
        EXPECT_EQ(view, TestView());
    }
}

class RandomTurn {
public:
    RandomTurn(std::mt19937& random, RandomQuad& any) : random_(random), any_(any) {}

    Corners CornersOf(const Texels& texels, const CanvasSize& size) {
        const double quarters = any_.Between(-9, 9) * std::acos(0.0);
        const double angle = any_.Between(0, 3) == 0 ? quarters : Double(-7, 7);
        const double scale = any_.Between(0, 2) == 0 ? 0.5 : std::exp(Double(-4, 2.5));
        Corners corners = TurnedCorners(
            angle, Place(size.width), Place(size.height), Sign() * texels.width * scale,
            Sign() * texels.height * (any_.Between(0, 1) == 0 ? scale : std::exp(Double(-4, 2.5))),
            any_.Between(0, 1) == 0 ? kWhite : static_cast<std::uint32_t>(random_()));
        if (any_.Between(0, 4) == 0) {  // any quad, clockwise or not
            for (Vertex& corner : corners) {
                corner.x += static_cast<float>(Double(-90, 90));
                corner.y += static_cast<float>(Double(-90, 90));
                corner.tu += static_cast<float>(Double(-0.5, 0.5));
            }
        }
        if (any_.Between(0, 30) == 0) {
            corners[1].tu *= 1e10F;
        }
        return corners;
    }

private:
    double Double(double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random_);
    }
    double Sign() { return any_.Between(0, 1) == 0 ? -1 : 1; }
    // In the view or near it; on a pixel's edge, its centre, or anywhere.
    double Place(std::int32_t length) {
        const std::int32_t pixel = any_.Between(-20, length + 20);
        return any_.Between(0, 1) == 0 ? pixel / 2.0 : Double(-20, length + 20);
    }

    std::mt19937& random_;
    RandomQuad& any_;
};

// The proof that this path is the general one, only faster: random quads on both.
TEST(TurnedQuads, DrawWhatTheGeneralPathDraws) {
    if (BestRowPath() < RowPath::Avx2) {
        GTEST_SKIP() << "a processor that draws them by the general path";
    }
    std::mt19937 random(23);
    RandomQuad any(random);
    RandomTurn turn(random, any);
    const int rounds = test::Rounds(1500);
    int leftToOthers = 0;
    int seen = 0;
    for (int round = 0; round < rounds; ++round) {
        const PlainTexture texture = any.Texture();
        const Texels texels = texture.Pixels();
        const Coverage coverage = any.Between(0, 2) > 0 ? Coverage::Of(texels) : Coverage();
        const CanvasSize size = any.Size();
        TestView fast = any.Coloured(size);
        TestView general = fast;
        const TestView ground = fast;
        for (int quad = 0; quad < 4; ++quad) {
            const Corners corners = turn.CornersOf(texels, size);
            PixelStates states = Clamped(any.States());
            states.sampling.linear = any.Between(0, 1) == 0;
            const Target part = any.Clipped(fast.Pixels());
            if (!DrawTurnedQuad(part, states, texels, coverage, corners)) {
                ASSERT_TRUE(states.sampling.linear && states.blending);
                ++leftToOthers;
                continue;
            }
            Target same = part;
            same.pixels = general.Pixels().pixels;
            DrawStrip(same, states, &texels, corners);
            ASSERT_EQ(fast, general) << "round " << round << ", quad " << quad
                                     << (states.sampling.linear ? ", by means" : "");
        }
        seen += fast == ground ? 0 : 1;
    }
    EXPECT_LT(leftToOthers, rounds);
    EXPECT_GT(seen, rounds / 2);
}

}  // namespace
}  // namespace scenara::soft
