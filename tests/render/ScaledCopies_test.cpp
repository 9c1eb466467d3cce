// SPDX-License-Identifier: MIT
#include "render/ScaledCopies.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace scenara::test {
namespace {

struct CloseCopies {
    const char* name;
    Long count;         // 1: without end
    std::int64_t step;  // of pictures of `size` pixels
    std::int64_t size;
    double scale;
};

constexpr CloseCopies kClose[] = {
    {"Touching", 1, 1, 1, 1e-3},
    {"TouchingMuchTooSmallToCount", 1, 1, 1, 1e-30},
    {"TouchingAtTheEdgeOfWhatCounts", 1, 1, 1, 1e-17},
    {"Apart", 1, 9, 2, 1e-9},
    {"UponOneAnother", 1, 1, 32, 0.3},
    {"UponOneAnotherLessThanAPixel", 1, 1, 32, 0.03},
    {"UponOneAnotherMuchTooSmallToCount", 1, 1, 32, 1e-30},
    {"CountedUponOneAnother", 32767, 1, 32, 1e-4},
    {"VeryDeep", 32767, 1, 30000, 0.7},
};

class ScaledCopiesThatAreClose : public testing::TestWithParam<CloseCopies> {};

// However many there are: no file is to make a frame take minutes.
TEST_P(ScaledCopiesThatAreClose, AreAsManyAsThereArePixels) {
    const auto& [name, count, step, size, scale] = GetParam();
    const ScaledCopies copies({count, step, size, false, true}, -17.3, scale);
    constexpr PixelRange kVisible{0, 1000};
    constexpr std::int64_t kMostDeep = 64;
    std::int64_t shown = 0;
    copies.ForEach(kVisible, kMostDeep, [&](const PixelRange& copy) {
        EXPECT_LT(copy.from, kVisible.to);
        EXPECT_GT(copy.to, kVisible.from);
        ++shown;
    });
    EXPECT_LE(shown, 2 * kVisible.to);
}

INSTANTIATE_TEST_SUITE_P(, ScaledCopiesThatAreClose, testing::ValuesIn(kClose),
                         [](const auto& row) { return std::string(row.param.name); });

struct ScaledApart {
    const char* name;
    Tiles tiles;
    double position;
    double scale;
    double stepScale;
    std::vector<std::pair<std::int64_t, std::int64_t>> copies;  // that cover pixels 0 to 39
    bool overlap = false;
};

// Of pictures of 10 pixels; their distance has a scale of its own.
TEST(ScaledCopies, StandAsFarApartAsTheDistancesOwnScaleSays) {
    const auto tiles = [](Long count, std::int64_t step) {
        return Tiles{count, step, 10, true, true};
    };
    for (const ScaledApart& row : std::vector<ScaledApart>{
             {"alike", tiles(3, 10), 0, 1.5, 1.5, {{0, 15}, {15, 30}, {30, 45}}},
             {"larger", tiles(3, 10), 0, 2, 1, {{0, 20}, {10, 30}, {20, 40}}, true},
             {"smaller", tiles(3, 10), 0, 0.5, 1, {{0, 5}, {10, 15}, {20, 25}}},
             {"of a half", tiles(3, 11), 0.5, 1, 0.5, {{1, 11}, {6, 16}, {12, 22}}, true},
             // Those that touch have no seam, wherever they are.
             {"that touch", tiles(4, 20), 0.25, 2, 1, {{0, 20}, {20, 40}}},
             {"that touch at thirds",
              tiles(9, 30),
              0.2,
              1.0 / 3 * 3,
              1.0 / 3,
              {{0, 10}, {10, 20}, {20, 30}, {30, 40}}},
             {"never later than the next",
              tiles(3, 21),
              0.5,
              1,
              0.5,
              {{1, 11}, {11, 21}, {22, 32}}},
             {"without end", tiles(1, 30), 3, 0.5, 1, {{3, 8}, {33, 38}}},
             {"a single one", tiles(0, 10), 3, 0.5, 7, {{3, 8}}},
         }) {
        SCOPED_TRACE(row.name);
        const ScaledCopies copies(row.tiles, row.position, row.scale, row.stepScale);
        EXPECT_EQ(copies.Overlap(), row.overlap);
        std::vector<std::pair<std::int64_t, std::int64_t>> shown;
        copies.ForEach({0, 40}, kAnyDepth,
                       [&](const PixelRange& copy) { shown.emplace_back(copy.from, copy.to); });
        EXPECT_EQ(shown, row.copies);
    }
}

}  // namespace
}  // namespace scenara::test
