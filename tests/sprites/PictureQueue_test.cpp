// SPDX-License-Identifier: MIT
//
// Pictures that are decoded ahead by several threads: what comes out is what a load one by one
// gives.
#include "sprites/PictureQueue.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "samplemaker/Noise.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

using samplemaker::PcxOptions;
using samplemaker::Random;
using samplemaker::TrailingPalette;

constexpr unsigned kSeveral = 3;

int Small(Random& random) {
    return random.Whole(1, random.Whole(0, 3) == 0 ? 90 : 12);
}

std::vector<std::byte> RandomPcx(Random& random) {
    const auto seed = static_cast<std::uint8_t>(random.Whole(0, 255));
    const IndexedPicture picture = StripedPicture(Small(random), Small(random), PaletteOf(seed),
                                                  static_cast<unsigned>(random.Whole(1, 200)));
    switch (random.Whole(0, 9)) {
        case 0: {  // no palette, but a colour key by colour
            TrueColourPicture colours{picture.width, picture.height, {}};
            for (const std::uint8_t index : picture.pixels) {
                colours.pixels.push_back(picture.palette[index]);
            }
            return WritePcx(colours);
        }
        case 1: return BrokenPcx(seed);
        case 2: {
            PcxOptions options;
            options.trailingPalette = TrailingPalette::None;
            return WritePcx(picture, options);
        }
        case 3: {
            std::vector<std::byte> pcx = WritePcx(picture);
            pcx.resize(pcx.size() - std::min<std::size_t>(pcx.size(), 800));
            return pcx;
        }
        default: return WritePcx(picture);
    }
}

std::vector<std::byte> RandomArchive(Random& random) {
    std::vector<Sff1Subfile> subfiles;
    const int count = random.Whole(0, 40);
    for (int i = 0; i < count; ++i) {
        const auto image = static_cast<std::int16_t>(i);
        Sff1Subfile subfile =
            random.Whole(0, 4) == 0
                ? Linked(1, image, static_cast<std::int16_t>(random.Whole(-1, count)))
                : Shown(0, image, RandomPcx(random));
        subfile.samePalette = random.Whole(0, 2) == 0;
        subfiles.push_back(std::move(subfile));
    }
    Sff1Options options;
    if (random.Whole(0, 4) == 0) {
        options.images = static_cast<std::uint32_t>(count + random.Whole(-2, 3));
    }
    std::vector<std::byte> bytes = WriteSff1(subfiles, options);
    const std::vector<std::size_t> offsets = SubfileOffsets(bytes, static_cast<std::size_t>(count));
    for (int spoilt = random.Whole(0, 2); count > 0 && spoilt > 0; --spoilt) {
        const std::size_t at = offsets[static_cast<std::size_t>(random.Whole(0, count - 1))];
        switch (random.Whole(0, 3)) {
            case 0: PatchU32(bytes, at + 4, static_cast<std::uint32_t>(-5)); break;
            case 1: PatchU32(bytes, at + 4, 0x7FFFFFFF); break;
            case 2: PatchU32(bytes, at, static_cast<std::uint32_t>(random.Whole(0, 9000))); break;
            default: bytes.resize(bytes.size() - bytes.size() / 7); return bytes;
        }
    }
    return bytes;
}

// All that a load made and said.
std::vector<std::string> WhatCameOf(const ArchiveLoad& load) {
    std::vector<std::string> lines = load.Texts();
    for (const std::string& caption : load.window.Captions()) {
        lines.push_back(caption);
    }
    for (std::size_t i = 0; i < load.model.Sprites.size(); ++i) {
        lines.push_back(NumbersOf(load.Sprite(i)));
        std::uint32_t sum = 0;
        for (const std::uint32_t word : load.Pixels(i)) {
            sum = sum * 31 + word;
        }
        lines.push_back(std::to_string(sum));
    }
    return lines;
}

TEST(PictureQueue, GivesWhatALoadOneByOneGives) {
    Random random(20261);
    for (int round = 0; round < Rounds(1500); ++round) {
        const std::vector<std::byte> archive = RandomArchive(random);
        std::vector<std::string> expected;
        const ViewOptions options{round % 2 == 0};
        for (const unsigned helpers : {0U, 1U, kSeveral}) {
            ArchiveLoad load;
            load.options = options;
            load.helpers = helpers;
            load.Run(archive);
            const std::vector<std::string> made = WhatCameOf(load);
            if (helpers == 0) {
                expected = made;
            }
            ASSERT_EQ(made, expected) << "round " << round << ", helpers " << helpers;
            EXPECT_EQ(load.device.Counts().locks, load.device.Counts().unlocks);
        }
    }
}

TEST(PictureQueue, MayHoldPicturesWhereTheLoadEnds) {
    const auto pcx = WritePcx(StripedPicture(200, 100, PaletteOf(4)));
    const std::vector<std::byte> archive =
        WriteSff1(std::vector<Sff1Subfile>(30, Shown(0, 0, pcx)));
    for (int rounds = 0; rounds < Rounds(100); ++rounds) {
        int events = 0;
        ArchiveLoad load(HeadlessWindow::Script([&](HeadlessWindow& window) {
            if (++events == 5) {
                window.RequestEnd();
            }
        }));
        load.helpers = kSeveral;
        load.Run(archive);
        EXPECT_EQ(load.model.Sprites.size(), 5U);
        EXPECT_TRUE(load.Texts().empty());
        EXPECT_EQ(load.device.Counts().locks, load.device.Counts().unlocks);
    }
}

}  // namespace
}  // namespace scenara::test
