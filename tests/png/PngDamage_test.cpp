// SPDX-License-Identifier: MIT
//
// PNGs with wrong bytes, checksums and data: errors that people can read, or the lines before the
// damage.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "SmallPngs.h"

namespace scenara::test {
namespace {

constexpr std::size_t kHeaderEnd = 33;

TEST(DamagedPng, AWrongByteOfTheHeaderIsNoticed) {
    std::mt19937 random(2);
    for (const PngShape& shape : SomeShapes()) {
        const RandomPng png(shape, random);
        const PngBytes good = png.File();
        for (std::size_t at = 0; at < kHeaderEnd; ++at) {
            for (const unsigned value : {0U, 0x7FU, 0x80U, 0xFFU}) {
                PngBytes bad = good;
                bad[at] = static_cast<std::byte>(value);
                for (const PngWanted wanted : {PngWanted::Indices, PngWanted::Colours}) {
                    EXPECT_EQ(TryRead(bad, wanted).has_value(), bad == good)
                        << "byte " << at << " as " << value;
                }
            }
        }
    }
}

TEST(DamagedPng, AWrongByteAnywhereElseIsHarmless) {
    std::mt19937 random(3);
    for (const PngShape& shape : SomeShapes()) {
        const RandomPng png(shape, random);
        const PngBytes good = png.File();
        for (std::size_t at = kHeaderEnd; at < good.size(); ++at) {
            for (const unsigned value : {0U, 0x7FU, 0x80U, 0xFFU}) {
                PngBytes bad = good;
                bad[at] = static_cast<std::byte>(value);
                for (const PngWanted wanted : {PngWanted::Indices, PngWanted::Colours}) {
                    const auto read = TryRead(bad, wanted);
                    if (read) {
                        ASSERT_GE(read->lines, 0);
                        ASSERT_LE(read->lines, shape.height);
                    }
                }
            }
        }
    }
}

struct Damage {
    const char* name;
    Chunks chunks;
    std::int32_t lines;  // that are read; below 0: refused
};

template <typename Change>
Chunks Changed(Chunks chunks, Change change) {
    change(chunks);
    return chunks;
}

PngBytes WithByte(PngBytes bytes, std::size_t at, int by) {
    bytes[at] = static_cast<std::byte>(std::to_integer<int>(bytes[at]) ^ by);
    return bytes;
}

// The header of packed bytes says how far back copies reach; here it says 256 bytes at most.
PngBytes WithSmallWindow(PngBytes packed) {
    packed[0] = std::byte{0x08};
    packed[1] = std::byte{31 - 0x0800 % 31};
    return packed;
}

std::vector<Damage> Damages() {
    const RandomPng png = RgbPng();
    const Chunks good = ChunksOf(png);
    const PngBytes lines = PngLines(png.shape, png.samples);
    const PngBytes packed = Deflated(lines);
    const PngBytes cutLines(lines.begin(), lines.begin() + 61 * 7 + 20);
    // More than is read after the last pixel, so that the wrong checksum after it is not found.
    std::mt19937 random(7);
    PngBytes surplus(200'000);
    std::generate(surplus.begin(), surplus.end(), [&] { return static_cast<std::byte>(random()); });
    const PngBytes withSurplus = Deflated(Joined(lines, surplus));
    RandomPng wide = RgbPng();
    wide.shape.width = 200;
    wide.shape.height = 3;
    PngBytes wideLines = PngLines(wide.shape, wide.samples, 0);
    std::copy_n(wideLines.begin(), 601, wideLines.begin() + 601);
    std::vector<Damage> rows = {
        {"nothing is wrong", good, 30},
        {"no end", Changed(good, [](Chunks& chunks) { chunks.pop_back(); }), 30},
        {"a wrong checksum of the end",
         Changed(good, [](Chunks& chunks) { chunks.back().wrongChecksum = true; }), 30},
        {"no pixels", {good.front(), good.back()}, -1},
        {"a wrong checksum of the header",
         Changed(good, [](Chunks& chunks) { chunks.front().wrongChecksum = true; }), -1},
        {"a wrong checksum of the pixels",
         Changed(good, [](Chunks& chunks) { chunks[1].wrongChecksum = true; }), 29},
        {"a wrong checksum of the unpacked pixels",
         ChunksOf(png, WithByte(packed, packed.size() - 1, 1)), 29},
        {"the same in a chunk of its own",
         Changed(good,
                 [](Chunks& chunks) {
                     const PngBytes all = WithByte(chunks[1].data, chunks[1].data.size() - 1, 1);
                     chunks[1].data.resize(all.size() - 4);
                     chunks.insert(chunks.begin() + 2, {"IDAT", {all.end() - 4, all.end()}});
                 }),
         29},
        {"the pixels end in line 7", ChunksOf(png, Deflated(cutLines)), 7},
        {"line 12 has no filter that is known",
         ChunksOf(png, Deflated(WithByte(lines, 61 * 12, 64))), 12},
        {"bytes after the last pixel", ChunksOf(png, Deflated(Joined(lines, PngBytes(1000)))), 30},
        {"very many bytes after the last pixel",
         ChunksOf(png, WithByte(withSurplus, withSurplus.size() - 1, 1)), 30},
        {"bytes after the packed ones", ChunksOf(png, Joined(packed, PngBytes(1000))), 30},
        {"pixels that are stored", ChunksOf(png, Deflated(lines, 0)), 30},
        {"not what the packed bytes should begin with", ChunksOf(png, PngBytes(500)), 0},
        {"no bytes in the only chunk of pixels", ChunksOf(png, {}), 0},
        {"copies from further away than announced",
         ChunksOf(wide, WithSmallWindow(Deflated(wideLines))), 3},
        {"an unknown chunk that must be known",
         Changed(good,
                 [](Chunks& chunks) {
                     chunks.insert(chunks.begin() + 1, {"ABCD", {}});
                 }),
         -1},
        {"an unknown chunk that need not be known",
         Changed(good,
                 [](Chunks& chunks) {
                     chunks.insert(chunks.begin() + 1, {"abCd", {}});
                 }),
         30},
        {"another chunk between those of the pixels",
         Changed(good,
                 [](Chunks& chunks) {
                     const PngBytes all = chunks[1].data;
                     chunks[1].data.resize(all.size() / 2);
                     chunks.insert(
                         chunks.begin() + 2,
                         {{"tEXt", {}},
                          {"IDAT", {all.begin() + std::ptrdiff_t(all.size() / 2), all.end()}}});
                 }),
         -2},
    };
    return rows;
}

TEST(DamagedPng, IsReadAsFarAsItIsWhole) {
    for (const Damage& row : Damages()) {
        SCOPED_TRACE(row.name);
        const auto read = TryRead(PngFileOf(row.chunks), PngWanted::Colours);
        if (row.lines == -2) {  // some of them
            ASSERT_TRUE(read);
            EXPECT_GT(read->lines, 5);
            EXPECT_LT(read->lines, 25);
            continue;
        }
        ASSERT_EQ(read.has_value(), row.lines >= 0);
        if (!read) {
            continue;
        }
        EXPECT_EQ(read->lines, row.lines);
        if (read->width == 20) {
            const PngWords expected = RgbPng().ColourWords();
            EXPECT_TRUE(std::equal(expected.begin(), expected.begin() + 20 * read->lines,
                                   read->pixels.begin()));
        }
    }
}

TEST(DamagedPng, BytesAfterTheEndAreNotLookedAt) {
    const RandomPng png = RgbPng();
    for (const std::size_t more : {std::size_t{1}, std::size_t{100'000}}) {
        PngBytes file = png.File();
        file.insert(file.end(), more, std::byte{0xA5});
        EXPECT_TRUE(Read(file, PngWanted::Colours).pixels == png.ColourWords());
    }
}

}  // namespace
}  // namespace scenara::test
