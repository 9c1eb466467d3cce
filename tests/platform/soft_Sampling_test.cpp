// SPDX-License-Identifier: MIT
//
// Which texels a pixel shows, by whole numbers only, against the general path.
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "SoftQuads.h"
#include "platform/soft/Sampling.h"
#include "platform/soft/Triangles.h"
#include "support/Rounds.h"

namespace scenara::soft {
namespace {

using test::Corner;
using test::Corners;
using test::NearestOf;
using test::PlainTexture;
using test::ScaledBlit;
using test::ScaledCornersOf;
using test::TestView;

constexpr std::uint32_t kGround = 0xFFFFFF;

PixelStates Sampled(const Sampling& sampling, bool blending = false) {
    PixelStates states;
    states.blending = blending;
    states.sampling = sampling;
    return states;
}

// A line of `width` texels, each of which is its own number.
PlainTexture Numbers(std::int32_t width, std::int32_t height = 1) {
    return {width, height, [=](std::int32_t x, std::int32_t y) {
                return 0xFF000000U | static_cast<std::uint32_t>(y * width + x);
            }};
}

struct Stretch {
    std::int32_t texture;  // texels across
    std::int32_t first;
    std::int32_t texels;
    std::int32_t begin;  // pixels
    std::int32_t length;
};

std::int32_t Inside(std::int64_t texel, std::int32_t size, bool clamped) {
    return static_cast<std::int32_t>(clamped ? std::clamp<std::int64_t>(texel, 0, size - 1)
                                             : (texel % size + size) % size);
}

// Along both axes, plain and backwards: what the view shows of it is what the rule says.
void ExpectNearest(const Stretch& stretch, const PlainTexture& across, const PlainTexture& down,
                   bool clamped = false) {
    const auto& [texture, first, texels, begin, length] = stretch;
    const PixelStates states = Sampled({false, clamped, clamped});
    for (const bool backwards : {false, true}) {
        for (const bool vertical : {false, true}) {
            TestView view(kGround);
            const ScaledBlit blit =
                vertical ? ScaledBlit{0, begin, 1, length, 0, first, 1, texels, false, backwards}
                         : ScaledBlit{begin, 0, length, 1, first, 0, texels, 1, backwards};
            const Texels pixels = (vertical ? down : across).Pixels();
            DrawStrip(view.Pixels(), states, &pixels,
                      ScaledCornersOf(blit, pixels.width, pixels.height));
            const std::int32_t end = vertical ? View().height : View().width;
            for (std::int32_t at = 0; at < end; ++at) {
                const bool drawn = at >= begin && at < begin + length;
                const std::int64_t texel = NearestOf(first, texels, length, at - begin, backwards);
                const std::uint32_t expected =
                    drawn ? static_cast<std::uint32_t>(Inside(texel, texture, clamped)) : kGround;
                ASSERT_EQ(vertical ? view.At(0, at) : view.At(at, 0), expected)
                    << texels << " of " << texture << " from " << first << " over " << length
                    << " from " << begin << (backwards ? " backwards" : "")
                    << (vertical ? ", down" : ", across") << " at " << at;
            }
        }
    }
}

void ExpectNearest(const Stretch& stretch) {
    ExpectNearest(stretch, Numbers(stretch.texture),
                  PlainTexture(1, stretch.texture, [](std::int32_t /*x*/, std::int32_t y) {
                      return 0xFF000000U | static_cast<std::uint32_t>(y);
                  }));
}

// All small sizes: half of them have centres on borders.
TEST(Sampling, OfEverySmallSizeFollowsTheRule) {
    for (std::int32_t texels = 1; texels <= 40; ++texels) {
        for (std::int32_t length = 1; length <= 40; ++length) {
            ExpectNearest({texels, 0, texels, 3, length});
        }
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(Sampling, OfPartsAndRepeatsFollowsTheRule) {
    std::mt19937 random(21);
    const auto between = [&](std::int32_t from, std::int32_t to) {
        return std::uniform_int_distribution<std::int32_t>(from, to)(random);
    };
    for (int round = 0; round < test::Rounds(400) && !HasFatalFailure(); ++round) {
        const std::int32_t texture = between(1, 300);
        const std::int32_t texels = between(1, 900);
        // A texel over two pixels, two over one and the like: a centre on a border in each pixel.
        const std::int32_t length = between(0, 1) == 0 ? between(1, 900) : texels * 2;
        const std::int32_t even = between(0, 2) == 0 ? std::max(texels / 2, 1) : length;
        ExpectNearest({texture, between(-500, 500), texels, between(-400, 300), even});
    }
}

// Pictures of the largest width, and quads of which the view shows a small part.
TEST(Sampling, OfLargePicturesAndQuadsFollowsTheRule) {
    const PlainTexture across = Numbers(32767);
    const PlainTexture down(1, 32767, [](std::int32_t /*x*/, std::int32_t y) {
        return 0xFF000000U | static_cast<std::uint32_t>(y);
    });
    for (const std::int32_t length :
         {1, 2, 16383, 16384, 32766, 49149, 65534, 81915, 98301, 100000, 262144}) {
        for (const std::int32_t shift : {0, 1, 7}) {
            for (const std::int32_t begin : {0, -length / 2 - shift, 300 - length - shift}) {
                ExpectNearest({32767, 0, 32767, begin, length}, across, down);
                ExpectNearest({32767, 12345 * shift, 32766 - shift / 7, begin, length}, across,
                              down);
            }
        }
    }
}

TEST(Sampling, BeyondTheEdgesRepeatsTheLastTexelsWhereItIsClamped) {
    const PlainTexture across = Numbers(7);
    const PlainTexture down(1, 7, [](std::int32_t /*x*/, std::int32_t y) {
        return 0xFF000000U | static_cast<std::uint32_t>(y);
    });
    for (const std::int32_t length : {20, 31, 40, 80}) {
        for (const std::int32_t first : {-9, -3, 0, 3, 30}) {
            ExpectNearest({7, first, 20, 5, length}, across, down, true);
        }
    }
}

// The texture coordinates of an axis may be the same: one texel, however many pixels.
TEST(Sampling, OfOneCoordinateShowsOneTexel) {
    const PlainTexture texture = Numbers(5, 7);
    for (std::int32_t line = 0; line < 7; ++line) {
        for (const double within : {0.0, 0.5}) {
            ScaledBlit blit{10, 20, 50, 30, 0, line, 5, 1};
            Corners corners = ScaledCornersOf(blit, 5, 7);
            for (Vertex& corner : corners) {
                corner.tv = static_cast<float>((line + within) / 7);
            }
            TestView view(kGround);
            const Texels texels = texture.Pixels();
            DrawStrip(view.Pixels(), Sampled({}), &texels, corners);
            for (std::int32_t y = 20; y < 50; ++y) {
                for (std::int32_t x = 10; x < 60; ++x) {
                    ASSERT_EQ(view.At(x, y), static_cast<std::uint32_t>(line * 5 + (x - 10) / 10))
                        << x << "," << y;
                }
            }
        }
    }
}

// Turned by a quarter, texels run along the other axis of the screen: ties still go to what
// follows.
TEST(Sampling, OfTurnedPicturesFollowsTheRule) {
    const PlainTexture texture = Numbers(6);
    for (const bool up : {false, true}) {
        // 6 texels over 3 lines: each centre is on a border.
        const double top = up ? 1 : 0;
        const Corners corners{Corner(10, 23, kWhite, 1 - top, 0), Corner(10, 20, kWhite, top, 0),
                              Corner(12, 23, kWhite, 1 - top, 1), Corner(12, 20, kWhite, top, 1)};
        TestView view(kGround);
        const Texels texels = texture.Pixels();
        DrawStrip(view.Pixels(), Sampled({}), &texels, corners);
        for (std::int32_t y = 0; y < 3; ++y) {
            const auto texel = static_cast<std::uint32_t>(up ? 6 - 1 - (2 * y + 1) : 2 * y + 1);
            EXPECT_EQ(view.At(10, 20 + y), texel) << y << (up ? " upwards" : "");
            EXPECT_EQ(view.At(11, 20 + y), texel) << y << (up ? " upwards" : "");
        }
    }
}

// Means

struct MeanRow {
    std::string what;
    std::array<std::uint32_t, 4> texels;
    std::uint32_t right;
    std::uint32_t below;
    bool byAlpha;
    std::uint32_t expected;
};

TEST(Sampling, AMeanIsWeightedByPlaceAndAlpha) {
    for (const MeanRow& row : {
             MeanRow{"one", {0x80123456, 1, 2, 3}, 0, 0, true, 0x80123456},
             {"one that is not there", {0x00123456, ~0U, ~0U, ~0U}, 0, 0, true, 0x00123456},
             {"half of two", {0xFF000000, 0xFF0000FF, 0, 0}, 128, 0, true, 0xFF000080},
             {"a quarter of each",
              {0xFF000004, 0xFF000008, 0xFF000010, 0xFF000020},
              128,
              128,
              true,
              0xFF00000F},
             {"a part of 256", {0xFF000000, 0xFF0000FF, 0, 0}, 1, 0, true, 0xFF000001},
             {"255 parts", {0xFF000000, 0xFF0000FF, 0, 0}, 255, 0, true, 0xFF0000FE},
             {"no colour of what is not there",
              {0xFF0000C8, 0x00FFFFFF, 0, 0},
              128,
              0,
              true,
              0x800000C8},
             {"without blending all count",
              {0x000000C8, 0xFF000064, 0, 0},
              128,
              0,
              false,
              0x80000096},
             {"nothing there", {0x000000C8, 0x00000064, 0, 0}, 128, 0, true, 0x00000096},
             {"little weighs little", {0x01640000, 0x03C80000, 0, 0}, 128, 0, true, 0x02AF0000},
             {"all of the weight", {~0U, ~0U, ~0U, ~0U}, 77, 201, true, 0xFFFFFFFF},
         }) {
        EXPECT_EQ(MeanOf(row.texels, row.right, row.below, row.byAlpha), row.expected) << row.what;
    }
}

// Along one axis by whole numbers, and every pixel of random pictures.
struct Parts {
    std::int64_t first;
    std::uint32_t second;
};
Parts PartsOf(std::int64_t texels, std::int64_t length, std::int64_t pixel) {
    const std::int64_t parts = (256 * (2 * pixel + 1) * texels + length) / (2 * length) - 128;
    return {parts >> 8, static_cast<std::uint32_t>(parts & 255)};
}

TEST(Sampling, MeansAreThoseOfTheFourTexelsAroundTheCenter) {
    std::mt19937 random(22);
    const auto between = [&](std::int32_t from, std::int32_t to) {
        return std::uniform_int_distribution<std::int32_t>(from, to)(random);
    };
    for (int round = 0; round < test::Rounds(300) && !HasFatalFailure(); ++round) {
        const std::int32_t width = between(1, 60);
        const std::int32_t height = between(1, 60);
        const PlainTexture texture(width, height, [&](auto, auto) {
            const std::uint32_t alphas[] = {0, 255, static_cast<std::uint32_t>(random() & 255U)};
            return alphas[random() % 3] << 24U | (static_cast<std::uint32_t>(random()) >> 8U);
        });
        const Texels texels = texture.Pixels();
        ScaledBlit blit{between(-30, 200), between(-30, 150), between(1, 150), between(1, 150),
                        between(-90, 90),  between(-90, 90),  between(1, 120), between(1, 120)};
        if (between(0, 3) == 0) {
            blit.width = blit.columns;
            blit.height = blit.lines;
        }
        blit.mirrored = between(0, 1) == 0;
        blit.flipped = between(0, 1) == 0;
        const bool clamped = between(0, 1) == 0;
        const bool blending = between(0, 1) == 0;
        PixelStates states = Sampled({true, clamped, !clamped}, blending);  // (one, zero)
        TestView view(kGround);
        DrawStrip(view.Pixels(), states, &texels, ScaledCornersOf(blit, width, height));
        const auto texelAt = [&](std::int64_t column, std::int64_t line) {
            const std::int64_t x =
                blit.mirrored ? blit.sourceX + blit.columns - 1 - column : blit.sourceX + column;
            const std::int64_t y =
                blit.flipped ? blit.sourceY + blit.lines - 1 - line : blit.sourceY + line;
            return texture.Texel({Inside(x, width, clamped), Inside(y, height, !clamped)});
        };
        for (std::int32_t y = std::max(blit.y, 0);
             y < std::min(blit.y + blit.height, View().height); ++y) {
            for (std::int32_t x = std::max(blit.x, 0);
                 x < std::min(blit.x + blit.width, View().width); ++x) {
                const Parts across = PartsOf(blit.columns, blit.width, x - blit.x);
                const Parts down = PartsOf(blit.lines, blit.height, y - blit.y);
                const std::uint32_t mean = MeanOf(
                    {texelAt(across.first, down.first), texelAt(across.first + 1, down.first),
                     texelAt(across.first, down.first + 1),
                     texelAt(across.first + 1, down.first + 1)},
                    across.second, down.second, blending);
                ASSERT_EQ(view.At(x, y), mean & kColorMask)
                    << "round " << round << " at " << x << "," << y;
            }
        }
    }
}

}  // namespace
}  // namespace scenara::soft
