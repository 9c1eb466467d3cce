// SPDX-License-Identifier: MIT
//
// PNGs whose pixels are right, and what stands beside them is not.
#include <cstddef>
#include <random>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SmallPngs.h"
#include "support/Raises.h"

namespace scenara::test {
namespace {

TEST(PngPalettes, AreRubbishWhereIndicesAreWanted) {
    const RandomPng png = IndexedPng();
    const Chunks pixels = PngDataChunks(Deflated(PngLines(png.shape, png.samples)));
    const auto sized = [](const char* name, std::size_t size) {
        return PngChunk{name, PngBytes(size, std::byte{7})};
    };
    const std::pair<const char*, Chunks> rows[] = {
        {"all black, transparent", {{"PLTE", PngBytes(768)}, {"tRNS", PngBytes(256)}}},
        {"one colour", {sized("PLTE", 3)}},
        {"none", {}},
        {"no colours", {sized("PLTE", 0)}},
        {"a third of a colour", {sized("PLTE", 7)}},
        {"a byte too much", {sized("PLTE", 769)}},
        {"too many colours", {sized("PLTE", 3000)}},
        {"transparency before the colours", {sized("tRNS", 256), sized("PLTE", 768)}},
        {"too much transparency", {sized("PLTE", 6), sized("tRNS", 100'000)}},
        {"transparency with a wrong checksum", {sized("PLTE", 768), {"tRNS", PngBytes(256), true}}},
    };
    for (const auto& [name, palette] : rows) {
        SCOPED_TRACE(name);
        Chunks chunks = {PngHeader(png.shape)};
        Append(chunks, palette);
        Append(chunks, pixels);
        const ReadPng read = Read(PngFileOf(chunks), PngWanted::Indices);
        EXPECT_EQ(read.lines, 30);
        for (std::size_t i = 0; i < read.pixels.size(); ++i) {
            ASSERT_EQ(read.pixels[i], IndexWords().at(png.samples[i])) << i;
        }
    }
}

TEST(PngPalettes, AreNeededWhereColoursAreWanted) {
    const RandomPng png = IndexedPng();
    for (const std::size_t size : {0U, 7U, 769U, 3000U}) {
        Chunks chunks = ChunksOf(png);
        chunks[1].data.resize(size);
        EXPECT_THAT([&] { (void)Read(PngFileOf(chunks), PngWanted::Colours); },
                    Raises(RunTimeErrorKind::BadFormat))
            << size;
    }
    EXPECT_THAT([&] { (void)Read(PngFileOf(png.shape, {}, png.samples), PngWanted::Colours); },
                Raises(RunTimeErrorKind::BadFormat));
    Chunks wrongChecksum = ChunksOf(png);
    wrongChecksum[1].wrongChecksum = true;
    EXPECT_THAT([&] { (void)Read(PngFileOf(wrongChecksum), PngWanted::Colours); },
                Raises(RunTimeErrorKind::BadFormat));
}

// Of a chunk that need not be there a wrong checksum is no reason to do without it.
TEST(PngPalettes, TransparencyCountsWithAWrongChecksum) {
    std::mt19937 random(6);
    RandomPng png({20, 30, 8, 2, false}, random);
    png.transparent.assign(png.samples.begin(), png.samples.begin() + 3);
    Chunks chunks = ChunksOf(png);
    chunks[1].wrongChecksum = true;
    EXPECT_TRUE(Read(PngFileOf(chunks), PngWanted::Colours).pixels == png.ColourWords());
}

PngBytes Bomb(const char* start) {
    return Joined(Joined(PngBytesOf(start), PngBytes(2)), Deflated(PngBytes(50'000'000), 9));
}

TEST(PngChunks, ThatAreNotNeededAreSkipped) {
    const RandomPng png = RgbPng();
    Chunks texts(10'000, PngChunk{"tEXt", PngBytesOf("Comment one of very many")});
    const std::pair<const char*, Chunks> rows[] = {
        {"a colour profile that unpacks to 50 megabytes", {{"iCCP", Bomb("profile")}}},
        {"a text that unpacks to 50 megabytes", {{"zTXt", Bomb("Comment")}}},
        {"10,000 texts", texts},
        {"a huge text", {{"tEXt", PngBytes(5'000'000, std::byte{'a'})}}},
        {"a huge unknown chunk", {{"abCd", PngBytes(5'000'000)}}},
        {"rubbish in those that are known",
         {{"gAMA", PngBytes(4)},
          {"sRGB", PngBytes(1, std::byte{9})},
          {"cHRM", PngBytes(3)},
          {"sBIT", PngBytes(3)},
          {"bKGD", PngBytes(600)},
          {"pHYs", {}},
          {"tIME", PngBytes(7)},
          {"sPLT", PngBytes(9000)},
          {"hIST", PngBytes(2)},
          {"eXIf", PngBytes(1)}}},
        {"wrong checksums", {{"gAMA", PngBytes(4), true}, {"tEXt", PngBytes(40), true}}},
        {"a palette, as a suggestion", {{"PLTE", PngBytes(300)}}},
        {"a palette that is none", {{"PLTE", PngBytes(301)}}},
        {"transparency of another kind", {{"tRNS", PngBytes(256)}}},
        {"gamma and profile",
         {{"gAMA", {std::byte{0}, std::byte{0}, std::byte{0x20}, std::byte{0}}}}},
    };
    for (const auto& [name, between] : rows) {
        SCOPED_TRACE(name);
        const ReadPng read = Read(PngFileOf(png.shape, between, png.samples), PngWanted::Colours);
        EXPECT_EQ(read.lines, 30);
        EXPECT_TRUE(read.pixels == png.ColourWords());
    }
}

}  // namespace
}  // namespace scenara::test
