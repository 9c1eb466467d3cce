// SPDX-License-Identifier: MIT
//
// Pictures brought to another size, one by one and in archives.
#include "sprites/ScaledPicture.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <set>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "base/RunTimeError.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// --- sizes ---

TEST(ScaledSize, IsRoundedUpButExactWhereTheProductIsWhole) {
    EXPECT_EQ(ScaledSize(10, 0.5), 5);
    EXPECT_EQ(ScaledSize(11, 0.5), 6);
    EXPECT_EQ(ScaledSize(641, 0.5), 321);
    EXPECT_EQ(ScaledSize(301, 0.75), 226);  // 225.75
    EXPECT_EQ(ScaledSize(160, 2), 320);
    for (std::int32_t size = 3; size < 3000; size += 3) {
        EXPECT_EQ(ScaledSize(size, 240.0 / 720), size / 3);
    }
    EXPECT_EQ(ScaledSize(700, 240.0 / 280), 600);
    EXPECT_EQ(ScaledSize(29, 240.0 / 116), 60) << "in doubles a hair more";
    EXPECT_EQ(ScaledSize(1, 0.5), 1) << "at least 1";
    EXPECT_EQ(ScaledSize(1, 1.0 / 32), 1);
    EXPECT_EQ(ScaledSize(32767, 8), 32767) << "at most what a picture may have";
}

// --- pixels ---

constexpr bool kKeyed = true;
constexpr bool kOpaque = false;

// What a scaler makes of a picture with these pixels.
std::shared_ptr<Direct3DTexture8> Through(PictureScaler& scaler, std::int32_t width,
                                          const Words& pixels) {
    const auto columns = static_cast<std::ptrdiff_t>(width);
    scaler.Begin(width, static_cast<std::int32_t>(pixels.size()) / width);
    for (auto line = pixels.begin(); line != pixels.end(); line += columns) {
        std::copy(line, line + columns, scaler.NextLine().begin());
    }
    return scaler.End();
}

Words Scaled(std::int32_t width, const Words& pixels, double scale, bool keyed = kKeyed,
             DeviceLines lines = DeviceLines::AsWanted) {
    RecordingDevice device(lines);
    PictureScaler scaler(device, scale);
    scaler.SetKeyed(keyed);
    const auto scaled = Through(scaler, width, pixels);
    EXPECT_EQ(device.Counts().locks, device.Counts().unlocks);
    return PixelsOf(*scaled);
}

// Two pixels wide and high.
struct HalvedRow {
    const char* name;
    Words pixels;
    std::uint32_t mean;
    bool keyed = kKeyed;
};

TEST(ScaledPicture, HalvedIsTheMeanOfFour) {
    constexpr std::uint32_t kClear = 0x00FF00FF;
    constexpr std::uint32_t kBlue = 0xFF204060;
    for (const HalvedRow& row : {
             // 10 20 30, 20 40 60, 30 60 90, 40 80 120
             HalvedRow{"all visible", {0xFF0A141E, 0xFF14283C, 0xFF1E3C5A, 0xFF285078}, 0xFF19324B},
             // Index 0, whatever its colour, counts as nothing.
             {"a quarter of 255: 63.75", {kBlue, kClear, kClear, kClear}, 0x40204060},
             {"half of it: 127.5", {kBlue, kClear, 0xFF406080, kClear}, 0x80305070},
             {"three quarters: 191.25", {kBlue, kBlue, kBlue, kClear}, 0xBF204060},
             {"the transparent colour stays", {kClear, kClear, kClear, kClear}, kClear},
             // Shown opaque, it is a colour like any other.
             {"a quarter of white", {0xFFFFFFFF, 0, 0, 0}, 0x40404040, kOpaque},
             {"half of it opaque", {kBlue, kBlue, 0x608040, 0x608040}, 0x80406050, kOpaque},
         }) {
        EXPECT_THAT(Scaled(2, row.pixels, 0.5, row.keyed), ElementsAre(row.mean)) << row.name;
    }
}

TEST(ScaledPicture, EachPixelOfTheResultIsOfItsOwnPlace) {
    // 4 x 4 in squares of 2 x 2.
    const Words pixels = {0xFFFF0000, 0xFFFF0000, 0xFF00FF00, 0xFF00FF00,  //
                          0xFFFF0000, 0xFFFF0000, 0xFF00FF00, 0xFF00FF00,  //
                          0xFF0000FF, 0xFF0000FF, 0xFF101010, 0xFF303030,  //
                          0xFF0000FF, 0xFF0000FF, 0xFF505050, 0xFF707070};
    for (const DeviceLines lines : {DeviceLines::AsWanted, DeviceLines::Tight, DeviceLines::Wide}) {
        EXPECT_THAT(Scaled(4, pixels, 0.5, kKeyed, lines),
                    ElementsAre(0xFFFF0000U, 0xFF00FF00U, 0xFF0000FFU, 0xFF404040U));
    }
}

// The last one has only half of its area in the picture, and is as visible as the others.
TEST(ScaledPicture, OfAnOddWidthEndsInWhatIsThere) {
    for (const std::int32_t width : {3, 1}) {  // across and downwards
        EXPECT_THAT(Scaled(width, {0xFF102030, 0xFF304050, 0xFF708090}, 0.5),
                    ElementsAre(0xFF203040U, 0xFF708090U));
    }
}

TEST(ScaledPicture, OfASinglePixelIsThatPixel) {
    for (const double scale : {0.5, 1.0 / 3, 0.03125}) {
        EXPECT_THAT(Scaled(1, {0xFF123456}, scale), ElementsAre(0xFF123456U)) << scale;
    }
}

TEST(ScaledPicture, TakesPartsOfPixels) {
    // Two thirds: each takes one and a half. (90 + 30 / 2) / 1.5 and (30 / 2 + 60) / 1.5.
    EXPECT_THAT(Scaled(3, {0xFF00005A, 0xFF00001E, 0xFF00003C}, 2.0 / 3),
                ElementsAre(0xFF000046U, 0xFF000032U));
}

TEST(ScaledPicture, DoubledHasEachPixelFourTimes) {
    EXPECT_THAT(Scaled(2, {0xFF112233, 0x00FF00FF}, 2),
                ElementsAre(0xFF112233U, 0xFF112233U, 0x00FF00FFU, 0x00FF00FFU,  //
                            0xFF112233U, 0xFF112233U, 0x00FF00FFU, 0x00FF00FFU));
}

TEST(ScaledPicture, ThatTheDeviceRefusesIsItsError) {
    RecordingDevice device;
    PictureScaler scaler(device, 0.5);
    device.RefuseNext(RunTimeErrorKind::OutOfMemory);
    EXPECT_THROW(scaler.Begin(2, 2), RunTimeError);
    EXPECT_THAT(PixelsOf(*Through(scaler, 1, {0xFF123456})), ElementsAre(0xFF123456U));
}

// As when its data end early.
TEST(ScaledPicture, OneThatIsGivenUpIsUnlockedAndLeavesNothingToTheNext) {
    RecordingDevice device;
    {
        PictureScaler scaler(device, 0.5);
        scaler.Begin(5, 30);
        for (int i = 0; i < 3; ++i) {
            std::ranges::fill(scaler.NextLine(), 0xFFFFFFFF);
        }
        const auto next = Through(scaler, 2, {0xFF112233, 0xFF112233});
        EXPECT_EQ(device.Counts().locks, device.Counts().unlocks);
        EXPECT_THAT(PixelsOf(*next), ElementsAre(0xFF112233U));
        scaler.Begin(1, 4);
    }
    EXPECT_EQ(device.Counts().locks, device.Counts().unlocks);
}

// Halving has a quick way for lines in which alpha is 0 or 255; another alpha at the right end
// makes them go the other way.
TEST(ScaledPicture, HalvedQuicklyIsTheSame) {
    constexpr std::int32_t kWidth = 34;
    constexpr int kLines = 21;
    Random random(7);
    Words quick;
    Words other;
    for (int y = 0; y < kLines; ++y) {
        for (std::int32_t x = 0; x < kWidth; ++x) {
            const std::uint32_t rgb = random.Below(0x1000000);
            quick.push_back(random.OneIn(3) ? rgb : rgb | 0xFF000000U);
            other.push_back(quick.back());
        }
        other.push_back(0x80FFFFFF);
    }
    for (const bool keyed : {kKeyed, kOpaque}) {
        const Words scaled = Scaled(kWidth + 1, other, 0.5, keyed);
        Words expected;
        for (std::size_t i = 0; i < scaled.size(); ++i) {
            if (i % 18 != 17) {  // without the column of its own
                expected.push_back(scaled[i]);
            }
        }
        EXPECT_EQ(Scaled(kWidth, quick, 0.5, keyed), expected);
    }
}

// A long thin picture at each of the scales that stages come with.
TEST(ScaledPicture, OfOneColourIsOfThatColourUpToItsEdges) {
    for (const Long height : {30, 120, 200, 270, 400, 480, 540, 600, 720, 768, 1080, 2160, 7680}) {
        const double scale = 240.0 / height;
        for (const std::int32_t width : {1, 2, 3, 7, 31, 97, 320, 1000}) {
            const Words pixels(static_cast<std::size_t>(width), 0xFF8040C0);
            const Words scaled = Scaled(width, pixels, scale);
            EXPECT_THAT(scaled, testing::Each(0xFF8040C0U)) << height << " " << width;
        }
    }
}

// --- memory ---

// A large picture of runs, of which nothing is held but a few lines.
TEST(ScaledPicture, TakesLittleMoreMemoryThanItsTexture) {
    constexpr std::int32_t kWidth = 2000;
    constexpr std::int32_t kHeight = 3000;
    RecordingDevice device;
    PictureScaler scaler(device, 0.25);
    scaler.Begin(kWidth, kHeight);
    std::set<const std::uint32_t*> places;
    for (std::int32_t y = 0; y < kHeight; ++y) {
        places.insert(scaler.NextLine().data());
    }
    EXPECT_LE(places.size(), 5U);
    EXPECT_EQ(scaler.End()->Height(), kHeight / 4);
    EXPECT_THAT(device.Created(), SizeIs(1));
}

// --- archives ---

// Two pictures, 4 x 2 and 3 x 1, and one that is linked to the first.
std::vector<std::byte> Archive() {
    Palette palette{};
    palette[0] = {255, 0, 255};
    palette[1] = {16, 32, 48};
    palette[2] = {48, 64, 80};
    const IndexedPicture first{4, 2, {1, 1, 2, 0, 2, 2, 0, 0}, palette};
    const IndexedPicture second{3, 1, {1, 1, 2}, palette};
    return WriteSff1({{WithAxis(Shown(1, 0, WritePcx(first)), 3, -5),
                       WithAxis(Linked(1, 1, 0), 7, 9), Shown(2, 0, WritePcx(second))}});
}

struct ScaledArchive {
    void Load(double scale) {
        const std::vector<std::byte> archive = Archive();
        load.file = std::make_unique<MemoryFile>(std::span(archive));
        LoadSprites(load.model, *load.file, kArchiveName, load.device, load.window, load.messages,
                    ViewOptions{}, scale);
    }
    // A still element that shows a picture.
    BackgroundElement& Shows(const char* type, Long group, Integer image) {
        BackgroundElement element;
        element.type = type;
        element.spriteGroup = group;
        element.spriteImage = image;
        return load.model.Elements.emplace_back(element);
    }
    ArchiveLoad load;
};

TEST(ScaledArchives, HasEachPictureAtItsNewSizeOnly) {
    ScaledArchive archive;
    archive.Shows("normal", 1, 0).mask = 1;
    archive.Load(0.5);
    const ArchiveLoad& load = archive.load;
    ASSERT_EQ(load.model.SpriteCount, 3);
    // 16 32 48 twice and 48 64 80 twice; one visible of four.
    EXPECT_THAT(load.Pixels(0), ElementsAre(0xFF203040U, 0x40304050U));
    EXPECT_THAT(load.Pixels(2), ElementsAre(0xFF102030U, 0xFF304050U));
    EXPECT_EQ(load.model.LastImageWidth, 2);
    EXPECT_EQ(load.model.LastImageHeight, 1);
    EXPECT_THAT(load.Texts(), IsEmpty());
    // The pictures as they stand in the file take no memory of the device.
    ASSERT_THAT(load.device.Created(), SizeIs(2));
    for (const TextureParameters& made : load.device.Created()) {
        EXPECT_EQ(made.width, 2);
        EXPECT_EQ(made.height, 1);
    }
    const std::pair<Integer, Integer> inFile[] = {{4, 2}, {4, 2}, {3, 1}};
    for (std::size_t i = 0; i < std::size(inFile); ++i) {
        EXPECT_EQ(std::pair(load.Sprite(i).fileWidth, load.Sprite(i).fileHeight), inFile[i]);
    }
}

TEST(ScaledArchives, KeepsAxesNumbersAndKeyColoursAsTheyStandInTheFile) {
    ScaledArchive archive;
    archive.Load(0.5);
    EXPECT_EQ(NumbersOf(archive.load.Sprite(0)),
              "1,0 axis 3,-5 size 2,1 key 255,255,0,255 self,link 0,-1 masked,reserved 0,0");
    EXPECT_EQ(NumbersOf(archive.load.Sprite(1)),
              "1,1 axis 7,9 size 2,1 key 255,255,0,255 self,link 1,0 masked,reserved 0,0");
    EXPECT_EQ(NumbersOf(archive.load.Sprite(2)),
              "2,0 axis 0,0 size 2,1 key 255,255,0,255 self,link 2,-1 masked,reserved 0,0");
    EXPECT_EQ(archive.load.Sprite(1).texture, archive.load.Sprite(0).texture)
        << "they share what is scaled";
}

// The second pixel of the first picture: one of four is visible, 48 64 80, and the others have the
// colour 255 0 255.
TEST(ScaledArchives, OnlyAPictureThatIsAlwaysShownOpaqueHasTheMeanOfAllColours) {
    constexpr std::uint32_t kAsKeyed = 0x40304050;
    constexpr std::uint32_t kAsOpaque = 0x40CB10D3;
    const auto expect = [](const char* name, void (*change)(ScaledArchive&), std::uint32_t pixel) {
        ScaledArchive archive;
        change(archive);
        archive.Load(0.5);
        EXPECT_EQ(archive.load.Pixels(0).at(1), pixel) << name;
    };
    expect(
        "opaque", [](ScaledArchive& archive) { archive.Shows("normal", 1, 0); }, kAsOpaque);
    expect(
        "opaque by two",
        [](ScaledArchive& archive) {
            archive.Shows("normal", 1, 0);
            archive.Shows("normal", 1, 0);
        },
        kAsOpaque);
    expect(
        "opaque by two and keyed",
        [](ScaledArchive& archive) {
            archive.Shows("normal", 1, 0);
            archive.Shows("normal", 1, 0);
            archive.Shows("normal", 1, 0).mask = 1;
        },
        kAsKeyed);
    expect(
        "both ways",
        [](ScaledArchive& archive) {
            archive.Shows("normal", 1, 0);
            archive.Shows("parallax", 1, 0).mask = 1;
        },
        kAsKeyed);
    expect(
        "blended, which keys as a mask does",
        [](ScaledArchive& archive) {
            archive.Shows("normal", 1, 0).blending.kind = BlendKind::Add;
        },
        kAsKeyed);
    expect(
        "in a frame of an action as well",
        [](ScaledArchive& archive) {
            StageFrame frame;
            frame.group = 1;
            archive.load.model.Actions.emplace_back().frames.push_back(frame);
            archive.Shows("normal", 1, 0);
        },
        kAsKeyed);
    expect(
        "masked by an element of no kind, which is drawn like a normal one",
        [](ScaledArchive& archive) { archive.Shows("", 1, 0).mask = 1; }, kAsKeyed);
    expect(
        "masked through a link only",
        [](ScaledArchive& archive) { archive.Shows("normal", 1, 1).mask = 1; }, kAsKeyed);
}

TEST(ScaledArchives, AtScale1IsThePlainOne) {
    ScaledArchive archive;
    archive.Load(1);
    ArchiveLoad plain;
    plain.Run(Archive());
    ASSERT_EQ(archive.load.model.SpriteCount, plain.model.SpriteCount);
    for (std::size_t i = 0; i < plain.model.Sprites.size(); ++i) {
        EXPECT_EQ(archive.load.Sprite(i).width, plain.Sprite(i).width);
        EXPECT_EQ(archive.load.Pixels(i), plain.Pixels(i));
    }
}

TEST(ScaledArchives, APictureThatCannotBeHadIsSaidAndTheLoadGoesOn) {
    for (const bool device : {true, false}) {
        ScaledArchive archive;
        RecordingDevice& refusing = archive.load.device;
        device ? refusing.RefuseNext(RunTimeErrorKind::OutOfMemory) : refusing.FailNextAllocation();
        archive.Load(0.5);
        EXPECT_THAT(archive.load.Texts(),
                    testing::Contains(testing::StartsWith("PCX Error:  Group 1 Image 0\r\n")));
        // The linked one has lost what it is linked to.
        EXPECT_EQ(archive.load.model.Sprites.back().group, 2);
        EXPECT_THAT(archive.load.Pixels(archive.load.model.Sprites.size() - 1),
                    ElementsAre(0xFF102030U, 0xFF304050U));
    }
}

}  // namespace
}  // namespace scenara::test
