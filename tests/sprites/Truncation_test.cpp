// SPDX-License-Identifier: MIT
//
// Files that end anywhere and headers with any wrong byte: the answer is clear messages or whole,
// valid pictures, and never anything in between. The sanitizers watch.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "PcxDecoding.h"
#include "sprites/PcxLines.h"
#include "sprites/modFilePCX.h"
#include "sprites/sff2.h"
#include "sprites/version1/SffArchive.h"
#include "sprites/version1/SubfilePicture.h"

namespace scenara::test {
namespace {

using samplemaker::PcxDepth;
using samplemaker::PcxOptions;
using samplemaker::RunBreaks;
using samplemaker::TrailingPalette;

using File = std::vector<std::byte>;

constexpr std::array<unsigned, 4> kWrongBytes = {0, 0x7F, 0x80, 0xFF};

struct Fixture {
    const char* name;
    File file;
};

void PrintTo(const Fixture& row, std::ostream* out) {
    *out << row.name;
}

// Every pixel was written, and is opaque or transparent.
bool IsWhole(const Words& pixels) {
    return std::all_of(pixels.begin(), pixels.end(), [](std::uint32_t pixel) {
        return pixel >> 24U == 0xFF || pixel >> 24U == 0;
    });
}

// A message that people can read: one of the known ones, and printable.
bool IsClear(const Message& message) {
    static constexpr std::array kKinds = {
        kMessageLoadPcx,    kMessageThreePlanes,    kMessagePcxError,
        kMessageOnlyImage,  kMessageLinkError,      kMessageSffError,
        kMessageSffVersion, kMessageNegativeLength, kMessageMissingPalette};
    const auto printable = [](char c) { return (c >= ' ' && c <= '~') || c == '\r' || c == '\n'; };
    return std::count(kKinds.begin(), kKinds.end(), message.kind) == 1 && !message.text.empty() &&
           std::all_of(message.text.begin(), message.text.end(), printable);
}

PcxOptions Raw() {
    PcxOptions options;
    options.runLengths = false;
    return options;
}

PcxOptions Padded() {
    PcxOptions options;
    options.bytesPerLine = 19;
    options.padding = 0xC7;
    options.runBreaks = RunBreaks::Nowhere;
    return options;
}

std::vector<Fixture> PcxFixtures() {
    const auto indexed = [](unsigned colors) {
        return StripedPicture(13, 9, PaletteOf(4), colors);
    };
    return {{"Bits8", WritePcx(indexed(256))},
            {"Bits8Raw", WritePcx(indexed(256), Raw())},
            {"Bits8Padded", WritePcx(indexed(256), Padded())},
            {"Bits1", WritePcx(indexed(2), PcxOptions{}, PcxDepth::Bits1)},
            {"Bits2Raw", WritePcx(indexed(4), Raw(), PcxDepth::Bits2)},
            {"Bits4Padded", WritePcx(indexed(16), Padded(), PcxDepth::Bits4)},
            {"Bits1Planes4", WritePcx(indexed(16), PcxOptions{}, PcxDepth::Bits1Planes4)},
            {"Planes3", WritePcx(TrueColorPicture(7, 5, 1))},
            {"Planes3Raw", WritePcx(TrueColorPicture(7, 5, 1), Raw())},
            {"Planes4Padded", WritePcx(TrueColorPicture(7, 5, 1), 0xAB, Padded())}};
}

Sff1Subfile Sharing(std::int16_t image, File pcx, std::int32_t surplus) {
    Sff1Subfile subfile = Shown(0, image, std::move(pcx));
    subfile.samePalette = true;
    subfile.lengthSurplus = surplus;
    return subfile;
}

std::vector<Fixture> ArchiveFixtures() {
    PcxOptions bare;
    bare.trailingPalette = TrailingPalette::None;
    const auto picture = StripedPicture(11, 6, PaletteOf(1));
    const auto other = StripedPicture(5, 12, PaletteOf(2));
    Sff1Options mixed;
    mixed.fileOrder = {3, 1, 0, 2};
    mixed.firstGap = 33;
    mixed.gapValue = 0xC2;
    return {
        {"One", WriteSff1({Shown(0, 0, WritePcx(picture))})},
        {"Links", WriteSff1({Shown(0, 0, WritePcx(picture)), Linked(0, 1, 0),
                             Shown(1, 0, WritePcx(other)), Linked(1, 1, 2), Linked(1, 2, 3)})},
        {"SharedPalettes",
         WriteSff1({Shown(0, 0, WritePcx(picture)), Sharing(1, WritePcx(other, bare), 768),
                    Sharing(2, WritePcx(picture, bare), 0)})},
        {"Kinds", WriteSff1({Shown(0, 0, WritePcx(picture)),
                             Shown(0, 1, WritePcx(TrueColorPicture(6, 4, 9))),
                             Shown(0, 2,
                                   WritePcx(StripedPicture(9, 4, PaletteOf(3), 16), PcxOptions{},
                                            PcxDepth::Bits4))})},
        {"Mixed", WriteSff1({Shown(0, 0, WritePcx(picture)), Sharing(1, WritePcx(other, bare), 0),
                             Linked(0, 2, 1), Shown(0, 3, WritePcx(other, Raw()))},
                            mixed)}};
}

std::string NameOf(const testing::TestParamInfo<Fixture>& info) {
    return info.param.name;
}

// Decodes; whole pictures and silence, or nothing and one message.
bool LoadsWhole(PcxDecoding& decoding, std::span<const std::byte> pcx) {
    decoding.SetPalette(PaletteOf(4));
    const bool loaded = decoding.Load(pcx);
    for (const Message& message : decoding.messages.Recorded()) {
        EXPECT_TRUE(IsClear(message)) << message.text;
    }
    EXPECT_EQ(decoding.device.Counts().locks, decoding.device.Counts().unlocks);
    if (!loaded) {
        EXPECT_EQ(decoding.messages.Recorded().size(), 1U);
        EXPECT_EQ(decoding.messages.Recorded().front().kind, kMessageLoadPcx);
        EXPECT_EQ(decoding.picture.texture, nullptr);
        return false;
    }
    EXPECT_EQ(decoding.picture.texture->Width(), decoding.picture.width);
    EXPECT_EQ(decoding.picture.texture->Height(), decoding.picture.height);
    EXPECT_TRUE(IsWhole(decoding.Pixels()));
    return true;
}

// How much of a PCX file holds all of its pixels; what pads the last line is no part of them.
std::size_t SizeOfWhole(const File& file) {
    const auto byte = [&](std::size_t at) { return std::to_integer<std::size_t>(file.at(at)); };
    const auto number = [&](std::size_t at) { return byte(at) + byte(at + 1) * 256; };
    const std::size_t width = number(8) - number(4) + 1;
    const std::size_t height = number(10) - number(6) + 1;
    const std::size_t padding = number(66) - (width * byte(3) + 7) / 8;
    const std::size_t wanted = number(66) * byte(65) * height - padding;
    std::size_t at = kPcxHeaderSize;
    for (std::size_t made = 0; made < wanted; ++at) {
        const bool run = byte(2) != 0 && byte(at) >= 192;
        made += run ? byte(at) - 192 : 1;
        at += run ? 1 : 0;
    }
    return at;
}

class TruncatedPcx : public testing::TestWithParam<Fixture> {};

TEST_P(TruncatedPcx, IsWholeOrAMessage) {
    const File& file = GetParam().file;
    PcxDecoding whole;
    ASSERT_TRUE(LoadsWhole(whole, file));
    const std::size_t needed = SizeOfWhole(file);
    for (std::size_t size = kPcxHeaderSize; size <= file.size(); ++size) {
        for (const DeviceLines lines : {DeviceLines::AsWanted, DeviceLines::Tight}) {
            SCOPED_TRACE(size);
            // A copy of its own size, so that a read behind it is found.
            const File prefix(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
            PcxDecoding cut(lines);
            ASSERT_EQ(LoadsWhole(cut, prefix), size >= needed);
            if (size >= needed) {
                ASSERT_EQ(cut.Pixels(), whole.Pixels());
            }
        }
        ASSERT_FALSE(HasFailure());
    }
}

TEST_P(TruncatedPcx, WithAWrongHeaderByteIsWholeOrAMessage) {
    for (std::size_t at = 0; at < kPcxHeaderSize; ++at) {
        for (const unsigned wrong : kWrongBytes) {
            SCOPED_TRACE(std::to_string(at) + " is " + std::to_string(wrong));
            File file = GetParam().file;
            file[at] = static_cast<std::byte>(wrong);
            PcxDecoding decoding;
            (void)LoadsWhole(decoding, file);
            ASSERT_FALSE(HasFailure());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, TruncatedPcx, testing::ValuesIn(PcxFixtures()), NameOf);

// What holds after every load, whatever was in the file.
void ExpectSound(const ArchiveLoad& load, std::size_t fileSize) {
    EXPECT_EQ(load.model.Sprites.size(), static_cast<std::size_t>(load.model.SpriteCount));
    for (const Message& message : load.messages.Recorded()) {
        EXPECT_TRUE(IsClear(message)) << message.text;
    }
    EXPECT_LE(load.messages.Recorded().size(), 40U);
    EXPECT_EQ(load.device.Counts().locks, load.device.Counts().unlocks);
    EXPECT_LE(load.BytesAskedFor(), 40 * fileSize + 2000);
    for (std::size_t i = 0; i < load.model.Sprites.size(); ++i) {
        const SpriteEntry& entry = load.Sprite(i);
        ASSERT_NE(entry.texture, nullptr);
        EXPECT_EQ(entry.selfIndex, static_cast<Integer>(i));
        EXPECT_EQ(entry.texture->Width(), entry.width);
        EXPECT_EQ(entry.texture->Height(), entry.height);
        EXPECT_TRUE(IsWhole(load.Pixels(i)));
    }
}

bool Said(const ArchiveLoad& load, MessageKind kind) {
    return std::any_of(load.messages.Recorded().begin(), load.messages.Recorded().end(),
                       [kind](const Message& message) { return message.kind == kind; });
}

class TruncatedArchive : public testing::TestWithParam<Fixture> {};

TEST_P(TruncatedArchive, KeepsWholePicturesAndSaysTheRest) {
    const File& file = GetParam().file;
    ArchiveLoad whole;
    whole.Run(file);
    ExpectSound(whole, file.size());
    const std::size_t yo = whole.Texts().size();

    for (std::size_t size = 0; size < file.size(); ++size) {
        SCOPED_TRACE(size);
        const File prefix(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
        ArchiveLoad cut;
        cut.Run(prefix);
        ExpectSound(cut, size);
        // Those that are there are those of the whole archive, but for palettes that are missing.
        std::size_t at = 0;
        for (std::size_t i = 0; i < cut.model.Sprites.size(); ++i) {
            const auto same = [&](std::size_t k) {
                return whole.Sprite(k).group == cut.Sprite(i).group &&
                       whole.Sprite(k).image == cut.Sprite(i).image;
            };
            while (at < whole.model.Sprites.size() && !same(at)) {
                ++at;
            }
            ASSERT_LT(at, whole.model.Sprites.size());
            const bool linked = whole.Sprite(at).linkedTo != -1;
            if (!linked && !Said(cut, kMessageMissingPalette) && !Said(cut, kMessagePcxError)) {
                EXPECT_EQ(cut.Pixels(i), whole.Pixels(at));
            }
            EXPECT_EQ(cut.Sprite(i).axisX, whole.Sprite(at).axisX);
            ++at;
        }
        if (cut.model.Sprites.size() < whole.model.Sprites.size()) {
            EXPECT_TRUE(Said(cut, kMessageSffError) || Said(cut, kMessagePcxError) ||
                        Said(cut, kMessageLinkError));
        } else {
            EXPECT_GE(cut.Texts().size(), yo);
        }
        ASSERT_FALSE(HasFailure());
    }
}

// The header of the file, those of the subfiles, and those of their pictures.
TEST_P(TruncatedArchive, WithAWrongHeaderByteIsSoundToo) {
    const File& file = GetParam().file;
    std::vector<std::size_t> places;
    const auto add = [&](std::size_t start, std::size_t count) {
        for (std::size_t at = start; at < std::min(start + count, file.size()); ++at) {
            places.push_back(at);
        }
    };
    add(0, 32);
    for (const std::size_t at : SubfileOffsets(file, U32At(file, 20))) {
        const bool linked = U32At(file, at + 4) == 0;
        add(at, kSubfileHeaderSize + (linked ? 0 : kPcxHeaderSize));
    }
    for (const std::size_t at : places) {
        for (const unsigned wrong : kWrongBytes) {
            SCOPED_TRACE(std::to_string(at) + " is " + std::to_string(wrong));
            File damaged = file;
            damaged[at] = static_cast<std::byte>(wrong);
            ArchiveLoad load;
            load.Run(damaged);
            ExpectSound(load, damaged.size());
            ASSERT_FALSE(HasFailure());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, TruncatedArchive, testing::ValuesIn(ArchiveFixtures()), NameOf);

}  // namespace
}  // namespace scenara::test
