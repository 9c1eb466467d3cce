// SPDX-License-Identifier: MIT
#include "editor/SpriteStand.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/EditedStage.h"
#include "support/AllocationCount.h"
#include "support/Rounds.h"

namespace scenara {
namespace {

using test::PaintedTexture;
using test::Rounds;

struct Fitted {
    const char* name;
    InnerSize box;
    InnerSize sprite;
    const char* times;
    Long left;
    Long top;
    Long most = SpriteStand::kAnyTimes;
};

void PrintTo(const Fitted& row, std::ostream* out) {
    *out << row.name;
}

class FittedSprite : public testing::TestWithParam<Fitted> {};

TEST_P(FittedSprite, StandsInTheMiddleAsLargeAsFits) {
    SpriteStand stand;
    stand.Fit(GetParam().box, GetParam().sprite, GetParam().most);
    EXPECT_EQ(stand.TimesText(), GetParam().times);
    EXPECT_EQ(stand.Left(), GetParam().left);
    EXPECT_EQ(stand.Top(), GetParam().top);
}

INSTANTIATE_TEST_SUITE_P(
    Of, FittedSprite,
    testing::Values(Fitted{"ItsOwnSize", {100, 80}, {100, 80}, "1x", 0, 0},
                    Fitted{"LessThanTwice", {100, 80}, {51, 10}, "1x", 24, 35},
                    Fitted{"ThreeTimes", {100, 80}, {30, 20}, "3x", 5, 10},
                    Fitted{"APixel", {100, 80}, {1, 1}, "80x", 10, 0},
                    Fitted{"APixelTooWide", {100, 80}, {101, 80}, "1/2", 24, 20},
                    Fitted{"AThirdByHeight", {100, 80}, {100, 200}, "1/3", 33, 6},
                    Fitted{"Huge", {100, 80}, {32767, 32767}, "1/410", 10, 0},
                    Fitted{"NoLargerThanWanted", {100, 80}, {10, 10}, "2x", 40, 30, 2},
                    Fitted{"SmallerThanWanted", {100, 80}, {60, 60}, "1x", 20, 10, 5},
                    Fitted{"ABoxOfNothing", {0, -3}, {2, 1}, "1/2", 0, 0},
                    Fitted{"ASpriteOfNothing", {10, 10}, {0, 0}, "10x", 0, 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SpriteStandSteps, GoThroughWholeMultiplesAndParts) {
    SpriteStand stand;
    stand.Fit({50, 50}, {120, 120});
    std::string seen = stand.TimesText();
    while (stand.Step(true, 0, 0)) {
        seen += " " + stand.TimesText();
    }
    EXPECT_EQ(seen, "1/3 1/2 1x 2x 3x 4x 5x 6x 8x 10x 12x 16x 20x 24x 32x 48x 64x");
    seen.clear();
    while (stand.Step(false, 0, 0)) {
        seen += " " + stand.TimesText();
    }
    EXPECT_EQ(seen, " 48x 32x 24x 20x 16x 12x 10x 8x 6x 5x 4x 3x 2x 1x 1/2 1/3");
}

TEST(SpriteStandSteps, EndAtWhatFitsAndAtItsOwnSize) {
    SpriteStand stand;
    stand.Fit({700, 700}, {7, 7});
    EXPECT_EQ(stand.TimesText(), "100x");
    EXPECT_FALSE(stand.Step(true, 0, 0));
    ASSERT_TRUE(stand.Step(false, 0, 0));
    EXPECT_EQ(stand.TimesText(), "64x");
    ASSERT_TRUE(stand.Step(true, 0, 0));
    EXPECT_EQ(stand.TimesText(), "100x");
    while (stand.Step(false, 0, 0)) {
    }
    EXPECT_EQ(stand.TimesText(), "1x") << "smaller shows no more of it";
}

TEST(SpriteStandSteps, AnotherBoxKeepsWhatWasChosenAndFitsAnewWhatWasNot) {
    SpriteStand stand;
    stand.Fit({100, 100}, {10, 10});
    stand.FitAgain({57, 90});
    EXPECT_EQ(stand.TimesText(), "5x");
    ASSERT_TRUE(stand.Step(true, 0, 0));
    stand.FitAgain({100, 100});
    EXPECT_EQ(stand.TimesText(), "6x");
    EXPECT_EQ(stand.Left(), 20);
}

// Whatever is done: either all of it is seen, in the middle, or none of the box is left empty; and
// the point under the pointer stays, where the edges let it.
TEST(SpriteStandSteps, LeaveNoRoomBesideWhatIsCut) {
    std::mt19937 random(41);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same each time
    const auto upTo = [&](Long most) {
        return static_cast<Long>(random() % static_cast<unsigned>(most)) + 1;
    };
    for (int round = 0; round < Rounds(3000); ++round) {
        SpriteStand stand;
        const InnerSize box{upTo(900), upTo(700)};
        const InnerSize sprite{upTo(round % 3 == 0 ? 32767 : 300), upTo(300)};
        stand.Fit(box, sprite);
        for (int i = 0; i < 12; ++i) {
            const Long x = upTo(box.width) - 1;
            const Long y = upTo(box.height) - 1;
            const auto scale = [&] {
                return stand.Times() > 0 ? static_cast<double>(stand.Times())
                                         : -1.0 / static_cast<double>(stand.Times());
            };
            const double before = (x + 0.5 - stand.Left()) / scale();
            if (random() % 2 == 0) {
                stand.Move(upTo(4000) - 2000, upTo(4000) - 2000);
            } else if (stand.Step(random() % 2 == 0, x, y) && stand.Left() < 0 &&
                       stand.Left() > box.width - stand.Width()) {
                const double after = (x + 0.5 - stand.Left()) / scale();
                ASSERT_NEAR(after, before, 0.5 / scale() + 1e-6) << round;
            }
            ASSERT_LE(stand.Times(), std::max<Long>(64, stand.Times() > 64 ? box.width : 0));
            for (const auto& [begin, length, room] :
                 {std::array<Long, 3>{stand.Left(), stand.Width(), box.width},
                  std::array<Long, 3>{stand.Top(), stand.Height(), box.height}}) {
                if (length <= room) {
                    ASSERT_EQ(begin, (room - length) / 2) << round;
                } else {
                    ASSERT_LE(begin, 0) << round;
                    ASSERT_GE(begin + length, room) << round;
                }
            }
        }
    }
}

// --- the picture ---

SpriteEntry Painted(const std::vector<std::string>& rows) {
    SpriteEntry sprite;
    sprite.width = static_cast<Integer>(rows.front().size());
    sprite.height = static_cast<Integer>(rows.size());
    sprite.texture = PaintedTexture(rows, 0x123456);
    return sprite;
}

// Of random pixels, of any alpha.
SpriteEntry Random(std::mt19937& random, Long width, Long height) {
    SpriteEntry sprite = Painted(std::vector<std::string>(
        static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), 'X')));
    const LockedPixels pixels = sprite.texture->LockRect();
    for (std::uint32_t& word : pixels.words) {
        const auto pixel = static_cast<std::uint32_t>(random());
        word = random() % 3 == 0   ? pixel | 0xFF000000
               : random() % 2 == 0 ? pixel
                                   : pixel & 0xFFFFFF;
    }
    sprite.texture->UnlockRect();
    return sprite;
}

TEST(PaintedSprite, IsAtAWholeMultipleOverACheckerboardWithBlackAround) {
    SpriteStand stand;
    stand.Fit({22, 13}, {2, 1});  // 11 times, from 0, 1 on
    std::vector<std::uint32_t> pixels;
    PaintSprite(Painted({"X."}), stand, pixels);
    ASSERT_EQ(pixels.size(), 22U * 13U);
    const auto at = [&](std::size_t x, std::size_t y) { return pixels.at(y * 22 + x); };
    EXPECT_EQ(at(0, 0), 0xFF000000);
    EXPECT_EQ(at(0, 12), 0xFF000000);
    EXPECT_EQ(at(0, 1), 0xFF123456);
    EXPECT_EQ(at(10, 11), 0xFF123456);
    EXPECT_EQ(at(11, 1), kDarkCheck) << "the second square of eight pixels";
    EXPECT_EQ(at(15, 8), kDarkCheck);
    EXPECT_EQ(at(16, 8), kLightCheck);
    EXPECT_EQ(at(15, 9), kLightCheck);
}

TEST(PaintedSprite, WithoutAPictureIsBlack) {
    SpriteStand stand;
    stand.Fit({3, 2}, {2, 1});
    std::vector<std::uint32_t> pixels;
    PaintSprite({}, stand, pixels);
    EXPECT_EQ(pixels, std::vector<std::uint32_t>(6, 0xFF000000));
}

// Pixel by pixel, by what stands under it: a copy, or the mean of all pixels of the part. (Of more
// than four each way some are left out; these are looked at only for being within the part's
// range.)
TEST(PaintedSprite, ShowsUnderEachPixelWhatStandsThere) {
    std::mt19937 random(8);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same each time
    const auto upTo = [&](Long most) {
        return static_cast<Long>(random() % static_cast<unsigned>(most)) + 1;
    };
    std::vector<std::uint32_t> pixels;
    int smaller = 0;
    int larger = 0;
    for (int round = 0; round < Rounds(300); ++round) {
        const Long width = upTo(60);
        const Long height = upTo(60);
        const InnerSize box{upTo(80), upTo(80)};
        const SpriteEntry sprite = Random(random, width, height);
        SpriteStand stand;
        stand.Fit(box, {width, height});
        for (Long i = upTo(4); i > 1; --i) {
            static_cast<void>(stand.Step(random() % 3 != 0, upTo(80), upTo(80)));
        }
        PaintSprite(sprite, stand, pixels);
        ASSERT_EQ(static_cast<Long>(pixels.size()), box.width * box.height);
        const LockedPixels texels = sprite.texture->LockRectToRead();
        const auto texelAt = [&](Long x, Long y) {
            return texels.words[static_cast<std::size_t>(y * texels.pitch + x)];
        };
        for (Long y = 0; y < box.height; ++y) {
            for (Long x = 0; x < box.width; ++x) {
                const std::uint32_t seen = pixels[static_cast<std::size_t>(y * box.width + x)];
                const Long shownX = x - stand.Left();
                const Long shownY = y - stand.Top();
                if (shownX < 0 || shownY < 0 || shownX >= stand.Width() ||
                    shownY >= stand.Height()) {
                    ASSERT_EQ(seen, 0xFF000000);
                    continue;
                }
                const std::uint32_t check =
                    (shownX / 8 + shownY / 8) % 2 == 0 ? 0xFFCCCCCC : 0xFF999999;
                if (stand.Times() > 0) {
                    ++larger;
                    ASSERT_EQ(seen,
                              Over(texelAt(shownX / stand.Times(), shownY / stand.Times()), check));
                    continue;
                }
                const Long part = -stand.Times();
                if (part > 4) {
                    continue;
                }
                ++smaller;
                for (const unsigned shift : {0U, 8U, 16U}) {
                    double sum = 0;
                    int count = 0;
                    for (Long v = shownY * part; v < std::min((shownY + 1) * part, height); ++v) {
                        for (Long u = shownX * part; u < std::min((shownX + 1) * part, width);
                             ++u) {
                            const std::uint32_t texel = texelAt(u, v);
                            const double alpha = (texel >> 24U) / 255.0;
                            sum += (texel >> shift & 0xFFU) * alpha +
                                   (check >> shift & 0xFFU) * (1 - alpha);
                            ++count;
                        }
                    }
                    ASSERT_NEAR(seen >> shift & 0xFFU, sum / count, 2.0) << round;
                }
            }
        }
        sprite.texture->UnlockRect();
    }
    EXPECT_GT(smaller, 0);
    EXPECT_GT(larger, 0);
}

TEST(PaintedSprite, AsksForNoMemoryWhenTheSpriteChanges) {
    SpriteStand stand;
    stand.Fit({300, 200}, {2, 1});
    const SpriteEntry sprite = Painted({"X."});
    std::vector<std::uint32_t> pixels;
    PaintSprite(sprite, stand, pixels);
    const std::size_t before = test::AllocationCount();
    for (int i = 0; i < 10; ++i) {
        stand.Fit({300, 200}, {2, 1});
        static_cast<void>(stand.Step(true, 3, 3));
        PaintSprite(sprite, stand, pixels);
    }
    EXPECT_EQ(test::AllocationCount(), before);
}

}  // namespace
}  // namespace scenara
