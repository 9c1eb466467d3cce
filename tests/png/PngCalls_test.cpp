// SPDX-License-Identifier: MIT
//
// What is refused: sizes that cannot be, what is no PNG, and calls that make no sense.
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SmallPngs.h"
#include "support/Raises.h"

namespace scenara::test {
namespace {

struct Lie {
    unsigned width, height;
    RunTimeErrorKind kind;
};

TEST(PngSizes, ThatCannotBeAreRefused) {
    const RandomPng png = RgbPng();
    using enum RunTimeErrorKind;
    const Lie rows[] = {
        {0, 30, Overflow},
        {20, 0, Overflow},
        {32768, 1, Overflow},
        {1, 32768, Overflow},
        {0x7FFFFFFF, 0x7FFFFFFF, Overflow},
        {0x80000000, 1, Overflow},
        {0xFFFFFFFF, 0xFFFFFFFF, Overflow},
        {32767, 32767, InputPastEnd},
        {20, 32767, InputPastEnd},
        {32767, 30, InputPastEnd},
    };
    for (const Lie& row : rows) {
        for (const bool interlaced : {false, true}) {
            Chunks chunks = ChunksOf(png);
            PngShape shape = png.shape;
            shape.width = static_cast<int>(row.width);
            shape.height = static_cast<int>(row.height);
            shape.interlaced = interlaced;
            chunks.front() = PngHeader(shape);
            PngBytes packed = chunks[1].data;
            packed.resize(900);
            chunks[1].data = packed;
            const PngBytes file = PngFileOf(chunks);
            EXPECT_THAT([&] { (void)LibPngPictures().Open(file, PngWanted::Colours); },
                        Raises(row.kind))
                << row.width << " x " << row.height;
        }
    }
}

// What deflate can just make of the bytes is opened.
TEST(PngSizes, OfFlatPicturesAreBelieved) {
    const PngShape shape{8000, 2000, 1, 0, false};
    const PngSamples samples(16'000'000);
    Chunks chunks = {PngHeader(shape)};
    Append(chunks, PngDataChunks(Deflated(PngLines(shape, samples, 0), 9)));
    const PngBytes file = PngFileOf(chunks);
    EXPECT_LT(file.size(), 3000U);
    EXPECT_EQ(Read(file, PngWanted::Indices).lines, 2000);
}

TEST(PngCalls, ThatMakeNoSenseAreRefused) {
    const PngBytes indexed = IndexedPng().File();
    const PngBytes rgb = RgbPng().File();
    const LibPngPictures pictures;
    PngWords words(600);
    const auto colours = [&](const PngBytes& file, PngWanted wanted, std::size_t room,
                             std::int32_t pitch) {
        (void)pictures.Open(file, wanted)->ReadColours(std::span(words).first(room), pitch);
    };
    const auto indices = [&](const PngBytes& file, PngWanted wanted, std::size_t room,
                             std::int32_t pitch) {
        (void)pictures.Open(file, wanted)
            ->ReadIndexed(IndexWords(), std::span(words).first(room), pitch);
    };
    using enum RunTimeErrorKind;
    using enum PngWanted;
    EXPECT_THAT([&] { colours(indexed, Indices, 600, 20); }, Raises(InvalidPropertyValue));
    EXPECT_THAT([&] { indices(indexed, Colours, 600, 20); }, Raises(InvalidPropertyValue));
    EXPECT_THAT([&] { indices(rgb, Indices, 600, 20); }, Raises(InvalidPropertyValue));
    struct Room {
        std::size_t words;
        std::int32_t pitch;
    };
    constexpr Room kRooms[] = {{599, 20}, {600, 19}, {600, 21},        {600, 0},
                               {600, -1}, {0, 20},   {600, 0x7FFFFFFF}};
    for (const Room& room : kRooms) {
        EXPECT_THAT([&] { colours(rgb, Colours, room.words, room.pitch); },
                    Raises(SubscriptOutOfRange));
        EXPECT_THAT([&] { indices(indexed, Indices, room.words, room.pitch); },
                    Raises(SubscriptOutOfRange));
    }
}

TEST(PngCalls, ASecondOneReadsNoLines) {
    const PngBytes file = RgbPng().File();
    const auto picture = LibPngPictures().Open(file, PngWanted::Colours);
    PngWords words(600);
    EXPECT_EQ(picture->ReadColours(words, 20), 30);
    EXPECT_EQ(picture->ReadColours(words, 20), 0);
}

TEST(PngCalls, APictureNeedNotBeRead) {
    const PngBytes file = RgbPng().File();
    const auto picture = LibPngPictures().Open(file, PngWanted::Colours);
    EXPECT_EQ(picture->Width(), 20);
    EXPECT_EQ(picture->Height(), 30);
}

TEST(NoPng, IsSaid) {
    const LibPngPictures pictures;
    const PngBytes good = RgbPng().File();
    const std::pair<PngBytes, RunTimeErrorKind> rows[] = {
        {{}, RunTimeErrorKind::InputPastEnd},
        {PngBytesOf("GIF89a and so on, more than a header has"), RunTimeErrorKind::BadFormat},
        {{good.begin(), good.begin() + 20}, RunTimeErrorKind::InputPastEnd},
        {PngBytes(500), RunTimeErrorKind::BadFormat},
    };
    for (const auto& [file, kind] : rows) {
        EXPECT_THAT(([&, &bytes = file] { (void)pictures.Open(bytes, PngWanted::Colours); }),
                    Raises(kind));
    }
}

}  // namespace
}  // namespace scenara::test
