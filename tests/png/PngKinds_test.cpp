// SPDX-License-Identifier: MIT
//
// Whole PNGs of every kind: what they show, by the letter of the format and by another decoder.
#include <cstddef>
#include <cstdint>
#include <random>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "OtherPngDecoder.h"
#include "RandomPng.h"
#include "ReadPng.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

// Every kind `rounds` times, in sizes from 1 x 1 on: small ones have passes without pixels.
template <typename Check>
void OfEveryKind(std::uint32_t seed, int rounds, Check check) {
    std::mt19937 random(seed);
    for (int round = 0; round < rounds; ++round) {
        const auto most = static_cast<unsigned>(round % 3 == 0 ? 70 : 10);
        for (PngShape shape : PngShapes(1, 1)) {
            for (const bool interlaced : {false, true}) {
                shape.interlaced = interlaced;
                shape.width = 1 + static_cast<int>(random() % most);
                shape.height = 1 + static_cast<int>(random() % most);
                SCOPED_TRACE(TextOf(shape));
                check(RandomPng(shape, random));
                ASSERT_FALSE(testing::Test::HasFailure());
            }
        }
    }
}

TEST(PngKinds, ColoursAreThoseOfTheFormat) {
    OfEveryKind(1, Rounds(60), [](const RandomPng& png) {
        const ReadPng read = Read(png.File(), PngWanted::Colours);
        EXPECT_EQ(read.width, png.shape.width);
        EXPECT_EQ(read.height, png.shape.height);
        EXPECT_EQ(read.lines, png.shape.height);
        EXPECT_TRUE(read.pixels == png.ColourWords());
    });
}

TEST(PngKinds, ColoursAreThoseOfAnotherDecoder) {
    int compared = 0;
    OfEveryKind(2, Rounds(30), [&](RandomPng png) {
        // That one has other colours for indices that the palette lacks, and no transparent grey of
        // few bits.
        if (!png.palette.empty()) {
            png.palette.resize(std::size_t{1} << static_cast<unsigned>(png.shape.bits));
        }
        const bool isSmallGrey = png.shape.colorType == 0 && png.shape.bits < 8;
        if (isSmallGrey && !png.transparent.empty()) {
            return;
        }
        const auto colours = OtherPngDecoder::Colours(png.File());
        ASSERT_TRUE(colours);
        EXPECT_TRUE(Read(png.File(), PngWanted::Colours).pixels == *colours);
        ++compared;
    });
    EXPECT_GT(compared, 24);
}

TEST(PngKinds, IndicesAreTheSamples) {
    OfEveryKind(3, Rounds(60), [](const RandomPng& png) {
        const ReadPng read = Read(png.File(), PngWanted::Indices);
        EXPECT_EQ(read.lines, png.shape.height);
        if (png.shape.colorType == 2 || png.shape.colorType == 6) {
            EXPECT_TRUE(read.pixels == png.ColourWords());
            return;
        }
        PngWords expected;
        for (const std::uint8_t index : png.Indices()) {
            expected.push_back(IndexWords().at(index));
        }
        EXPECT_TRUE(read.pixels == expected);
    });
}

TEST(PngKinds, TrueColourIsTold) {
    OfEveryKind(4, 1, [](const RandomPng& png) {
        const PngBytes file = png.File();
        for (const PngWanted wanted : {PngWanted::Indices, PngWanted::Colours}) {
            const auto picture = LibPngPictures().Open(file, wanted);
            EXPECT_EQ(picture->IsTrueColour(),
                      png.shape.colorType == 2 || png.shape.colorType == 6);
        }
    });
}

// Samples that 8 bits cannot hold are rounded, not cut.
TEST(PngKinds, SixteenBitsAreScaledToTheNearest) {
    std::mt19937 random(5);
    RandomPng png({256, 256, 16, 0, false}, random);
    png.transparent.clear();
    for (std::size_t i = 0; i < png.samples.size(); ++i) {
        png.samples[i] = static_cast<std::uint16_t>(i);
    }
    EXPECT_TRUE(Read(png.File(), PngWanted::Colours).pixels == png.ColourWords());
}

TEST(PngKinds, TheWidestAndTheHighest) {
    std::mt19937 random(6);
    for (const bool interlaced : {false, true}) {
        for (const PngShape& shape : {PngShape{kMostPngPixels, 9, 8, 6, interlaced},
                                      PngShape{5, kMostPngPixels, 8, 2, interlaced}}) {
            const RandomPng png(shape, random);
            EXPECT_TRUE(Read(png.File(), PngWanted::Colours).pixels == png.ColourWords())
                << TextOf(shape);
        }
    }
}

TEST(PngKinds, SeveralThreadsReadAtOnce) {
    std::mt19937 random(7);
    std::vector<RandomPng> pngs;
    for (PngShape shape : PngShapes(40, 30)) {
        for (const bool interlaced : {false, true}) {
            shape.interlaced = interlaced;
            pngs.emplace_back(shape, random);
        }
    }
    constexpr std::size_t kThreads = 2;
    std::vector<int> good(kThreads);
    std::vector<std::thread> threads;
    const LibPngPictures pictures;
    const int rounds = Rounds(12);
    for (std::size_t thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int round = 0; round < rounds; ++round) {
                for (std::size_t i = thread; i < pngs.size(); i += kThreads) {
                    const PngBytes file = pngs[i].File();
                    const auto picture = pictures.Open(file, PngWanted::Colours);
                    PngWords words(static_cast<std::size_t>(40 * 30));
                    const bool isWhole = picture->ReadColours(words, 40) == 30;
                    good[thread] += isWhole && words == pngs[i].ColourWords() ? 1 : 0;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(good[0] + good[1], rounds * static_cast<int>(pngs.size()));
}

}  // namespace
}  // namespace scenara::test
