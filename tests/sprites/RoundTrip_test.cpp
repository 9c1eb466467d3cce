// SPDX-License-Identifier: MIT
//
// Random archives from fixed seeds, with everything that the writer can do, read back and compared
// entry by entry and pixel by pixel with what was put in.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "sprites/sff2.h"

namespace scenara::test {
namespace {

using samplemaker::LastNext;
using samplemaker::PcxDepth;
using samplemaker::PcxOptions;
using samplemaker::RunBreaks;
using samplemaker::TrailingPalette;

// What an entry must be when it has been read.
struct Expected {
    Sff1Subfile numbers;  // group, image and axis
    int width = 0;
    int height = 0;
    Words pixels;
    std::optional<Rgb> key;
    Integer linkedTo = -1;
    std::size_t pictureOf = 0;  // the entry whose texture it has
};

struct Archive {
    std::vector<Sff1Subfile> subfiles;
    std::vector<Expected> entries;
    std::size_t yoCount = 0;
};

// Makes subfiles one after the other, and keeps what a reader keeps between them.
class ArchiveMaker {
public:
    explicit ArchiveMaker(Random& random) : random_(random) {}

    Archive Make(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0 && random_.OneIn(5)) {
                AddLinked();
            } else {
                AddPicture(i == 0);
            }
        }
        return std::move(archive_);
    }

private:
    Sff1Subfile Numbers() {
        Sff1Subfile subfile;
        // Small numbers too, so that pairs come up twice.
        subfile.group =
            random_.OneIn(2) ? random_.Number() : static_cast<std::int16_t>(random_.Below(4));
        subfile.image =
            random_.OneIn(2) ? random_.Number() : static_cast<std::int16_t>(random_.Below(4));
        subfile.axisX = random_.Number();
        subfile.axisY = random_.Number();
        subfile.linkIndex = random_.Number();
        subfile.comment = std::string(random_.Below(14), static_cast<char>(random_.Byte()));
        subfile.gapBefore = random_.OneIn(4) ? random_.Below(70) : 0;
        return subfile;
    }

    void AddLinked() {
        Sff1Subfile subfile = Numbers();
        const std::size_t target = random_.Below(static_cast<unsigned>(archive_.entries.size()));
        subfile.linkIndex = static_cast<std::int16_t>(target);
        subfile.samePalette = random_.OneIn(2);
        Expected entry = archive_.entries[target];
        entry.numbers = subfile;
        entry.linkedTo = subfile.linkIndex;
        archive_.subfiles.push_back(std::move(subfile));
        archive_.entries.push_back(std::move(entry));
    }

    void AddPicture(bool first) {
        Sff1Subfile subfile = Numbers();
        Expected entry;
        const unsigned kind = random_.Below(12);
        if (kind < 6) {
            Add256Colors(first, subfile, entry);
        } else if (kind < 10) {
            AddFewColors(subfile, entry);
        } else {
            AddTrueColor(subfile, entry);
        }
        entry.key = key_;
        entry.pictureOf = archive_.entries.size();
        entry.numbers = subfile;
        archive_.subfiles.push_back(std::move(subfile));
        archive_.entries.push_back(std::move(entry));
    }

    void Add256Colors(bool first, Sff1Subfile& subfile, Expected& entry) {
        const IndexedPicture picture = RandomPicture(256);
        PcxOptions options = RandomOptions(picture.width);
        subfile.samePalette = random_.OneIn(2) && (first || havePalette_);
        if (subfile.samePalette && !first) {
            // Its own palette counts for nothing, so it may be left out, in the length or not.
            constexpr std::array kEnds = {TrailingPalette::Whole, TrailingPalette::MarkerOnly,
                                          TrailingPalette::None};
            options.trailingPalette = kEnds.at(random_.Below(3));
            if (options.trailingPalette != TrailingPalette::Whole && random_.OneIn(2)) {
                subfile.lengthSurplus = 768;
            }
        } else {
            palette_ = picture.palette;
            havePalette_ = true;
        }
        subfile.data = WritePcx(picture, options);
        key_ = palette_[0];
        SetSize(picture.width, picture.height, entry);
        entry.pixels = KeyedByIndex(picture, palette_);
    }

    void AddFewColors(Sff1Subfile& subfile, Expected& entry) {
        struct Few {
            PcxDepth depth;
            unsigned bits;
            bool onePlane;
        };
        constexpr std::array kKinds = {
            Few{PcxDepth::Bits1, 1, true},         Few{PcxDepth::Bits2, 2, true},
            Few{PcxDepth::Bits4, 4, true},         Few{PcxDepth::Bits1Planes2, 2, false},
            Few{PcxDepth::Bits1Planes3, 3, false}, Few{PcxDepth::Bits1Planes4, 4, false}};
        const Few& kind = kKinds.at(random_.Below(kKinds.size()));
        const IndexedPicture picture = RandomPicture(1U << kind.bits);
        subfile.data = WritePcx(picture, RandomOptions(picture.width), kind.depth);
        subfile.lengthSurplus = RandomSurplus();
        subfile.samePalette = random_.OneIn(2);
        SetSize(picture.width, picture.height, entry);
        if (kind.onePlane) {
            key_ = picture.palette[0];
            entry.pixels = KeyedByIndex(picture);
        } else {
            entry.pixels = KeyedByColor(ColorsOf(picture), KeyOrNone());
            ++archive_.yoCount;
        }
    }

    void AddTrueColor(Sff1Subfile& subfile, Expected& entry) {
        const IndexedPicture indexed = RandomPicture(256);
        TrueColourPicture picture{indexed.width, indexed.height, ColorsOf(indexed)};
        for (Rgb& pixel : picture.pixels) {
            if (random_.OneIn(5)) {
                pixel = key_.value_or(Rgb{});
            }
        }
        const PcxOptions options = RandomOptions(picture.width);
        subfile.data = random_.OneIn(2) ? WritePcx(picture, options)
                                        : WritePcx(picture, random_.Byte(), options);
        subfile.lengthSurplus = RandomSurplus();
        SetSize(picture.width, picture.height, entry);
        entry.pixels = KeyedByColor(picture.pixels, KeyOrNone());
        ++archive_.yoCount;
    }

    // The length of a picture without a palette may say more than there is.
    std::int32_t RandomSurplus() {
        return random_.OneIn(3) ? static_cast<std::int32_t>(random_.Below(3000)) : 0;
    }

    [[nodiscard]] const Rgb* KeyOrNone() const { return key_ ? &*key_ : nullptr; }

    static void SetSize(int width, int height, Expected& entry) {
        entry.width = width;
        entry.height = height;
    }

    IndexedPicture RandomPicture(unsigned colors) {
        IndexedPicture picture;
        const unsigned widest = random_.OneIn(8) ? 300 : 24;
        picture.width = static_cast<int>(1 + random_.Below(widest));
        picture.height = static_cast<int>(1 + random_.Below(14));
        for (Rgb& color : picture.palette) {
            // Few different values, so that colours are equal to the key and to each other.
            color = random_.OneIn(4) ? Rgb{random_.Byte(), random_.Byte(), random_.Byte()}
                                     : Rgb{0, 0, static_cast<std::uint8_t>(random_.Below(3))};
        }
        const unsigned longestRun = random_.OneIn(3) ? 1 : 1 + random_.Below(150);
        const auto count =
            static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
        while (picture.pixels.size() < count) {
            const auto index =
                static_cast<std::uint8_t>(random_.OneIn(3) ? 0 : random_.Below(colors));
            const std::size_t run = 1 + random_.Below(longestRun);
            picture.pixels.insert(picture.pixels.end(),
                                  std::min(run, count - picture.pixels.size()), index);
        }
        return picture;
    }

    PcxOptions RandomOptions(int width) {
        PcxOptions options;
        constexpr std::array kBreaks = {RunBreaks::AtPlaneEnds, RunBreaks::AtLineEnds,
                                        RunBreaks::Nowhere};
        options.version = random_.Byte();
        options.runLengths = !random_.OneIn(4);
        options.runBreaks = kBreaks.at(random_.Below(3));
        if (random_.OneIn(2)) {
            options.bytesPerLine = width + static_cast<int>(random_.Below(4));
        } else if (random_.OneIn(6)) {
            options.bytesPerLine = width + static_cast<int>(random_.Below(120));
        }
        options.padding = random_.Byte();
        options.xMin = static_cast<int>(random_.Below(60000));
        options.yMin = static_cast<int>(random_.Below(60000));
        return options;
    }

    Random& random_;
    Archive archive_;
    Palette palette_{};
    bool havePalette_ = false;
    std::optional<Rgb> key_;
};

Sff1Options RandomLayout(Random& random, std::size_t count) {
    Sff1Options options;
    options.paletteType = random.Byte();
    options.firstGap = random.Below(100);
    options.gapValue = random.Byte();
    options.lastNext = random.OneIn(2) ? LastNext::Zero : LastNext::EndOfFile;
    if (random.OneIn(3)) {
        options.groups = random.Below(1000);
    }
    if (random.OneIn(2)) {
        options.fileOrder.resize(count);
        std::iota(options.fileOrder.begin(), options.fileOrder.end(), std::size_t{0});
        for (std::size_t i = count; i > 1; --i) {
            std::swap(options.fileOrder[i - 1],
                      options.fileOrder[random.Below(static_cast<unsigned>(i))]);
        }
    }
    return options;
}

void ExpectEntry(const ArchiveLoad& load, std::size_t index, const Expected& expected,
                 const BackgroundElement& still) {
    SCOPED_TRACE("entry " + std::to_string(index));
    const SpriteEntry& entry = load.Sprite(index);
    EXPECT_EQ(entry.axisX, expected.numbers.axisX);
    EXPECT_EQ(entry.axisY, expected.numbers.axisY);
    EXPECT_EQ(entry.group, expected.numbers.group);
    EXPECT_EQ(entry.image, expected.numbers.image);
    EXPECT_EQ(entry.selfIndex, static_cast<Integer>(index));
    EXPECT_EQ(entry.linkedTo, expected.linkedTo);
    EXPECT_EQ(entry.width, expected.width);
    EXPECT_EQ(entry.height, expected.height);
    EXPECT_EQ(entry.texture, load.Sprite(expected.pictureOf).texture);
    EXPECT_EQ(entry.keyAlpha, expected.key ? 255 : 0);
    const Rgb key = expected.key.value_or(Rgb{});
    EXPECT_EQ(entry.keyRed, key.red);
    EXPECT_EQ(entry.keyGreen, key.green);
    EXPECT_EQ(entry.keyBlue, key.blue);
    const bool masked =
        expected.numbers.group == still.spriteGroup && expected.numbers.image == still.spriteImage;
    EXPECT_EQ(entry.masked, masked ? 1 : 0);
    ASSERT_EQ(entry.texture->Width(), expected.width);
    ASSERT_EQ(entry.texture->Height(), expected.height);
    EXPECT_EQ(load.Pixels(index), expected.pixels);
}

class RoundTrip : public testing::TestWithParam<std::uint32_t> {};

TEST_P(RoundTrip, RandomArchives) {
    constexpr std::uint32_t kArchives = 500;
    for (std::uint32_t i = 0; i < kArchives; ++i) {
        const std::uint32_t seed = GetParam() * kArchives + i;
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const std::size_t count = 1 + random.Below(9);
        const Archive archive = ArchiveMaker(random).Make(count);
        constexpr std::array kLines = {DeviceLines::AsWanted, DeviceLines::Tight,
                                       DeviceLines::Wide};
        ArchiveLoad load(kLines.at(random.Below(3)));
        BackgroundElement still;
        still.type = random.OneIn(2) ? "normal" : "parallax";
        still.mask = 1;
        still.spriteGroup = static_cast<Long>(random.Below(4));
        still.spriteImage = static_cast<Integer>(random.Below(4));
        load.model.Elements.push_back(still);
        load.Run(WriteSff1(archive.subfiles, RandomLayout(random, count)));

        ASSERT_EQ(load.Texts(), std::vector<std::string>(archive.yoCount, "yo..."));
        ASSERT_EQ(load.model.Sprites.size(), count);
        ASSERT_EQ(load.model.SpriteCount, static_cast<Integer>(count));
        ASSERT_EQ(load.window.Captions().size(), count);
        ASSERT_EQ(load.window.DoEventsCount(), count);
        for (std::size_t index = 0; index < count; ++index) {
            ExpectEntry(load, index, archive.entries[index], still);
        }
        ASSERT_FALSE(HasFailure());
    }
}

INSTANTIATE_TEST_SUITE_P(, RoundTrip, testing::Range(0U, 8U));

}  // namespace
}  // namespace scenara::test
