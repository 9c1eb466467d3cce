// SPDX-License-Identifier: MIT
//
// Archives of version 2 that end anywhere, with any wrong byte, and with rubbish for pixels: the
// answer is clear messages and whole pictures, and the same with helpers and without. The
// sanitizers watch.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "Sff2Parts.h"
#include "samplemaker/PngWriter.h"
#include "support/PngBytes.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

using Sff2File = std::vector<std::byte>;

constexpr std::size_t kHeaderEnd = 68;
constexpr std::size_t kPaletteNode = 16;
constexpr std::size_t kSpriteNode = 28;

// A sprite of each coding, and links. Images from 0 on.
Sff2Archive SmallArchive() {
    Sff2Archive archive = {{NumberedPalette(1, 32), NumberedPalette(2, 20), LinkedPalette(3, 1)},
                           {}};
    const IndexedPicture indexed = StripedPicture(5, 3, PaletteOf(1), 32);
    const AlphaPicture sheer = SheerPicture(4, 3);
    const auto add = [&](Sff2Sprite sprite, unsigned palette) {
        sprite =
            Numbered(std::move(sprite), 3, static_cast<unsigned>(archive.sprites.size()), palette);
        sprite.flags = static_cast<std::uint16_t>(archive.sprites.size() % 2);
        archive.sprites.push_back(std::move(sprite));
    };
    for (const Sff2Coding coding : kIndexedCodings) {
        Sff2Sprite sprite = Sff2SpriteOf(indexed, coding);
        if (coding == Sff2Coding::Png8) {
            samplemaker::PngOptions options;
            options.palette = samplemaker::PngPalette::None;
            sprite.data = WritePng(indexed, options);
        }
        add(sprite, static_cast<unsigned>(archive.sprites.size() % 3));
    }
    for (const Sff2Coding coding : kColourCodings) {
        add(Sff2SpriteOf(sheer, coding), 0);
    }
    add(LinkedSprite(0, 0, 1, 1), 1);
    add(LinkedSprite(0, 0, 2, 0), 0);  // in other colours
    add(LinkedSprite(0, 0, 8, 0), 0);
    return archive;
}

struct Layout {
    const char* name;
    Sff2Options options;
};

std::vector<Layout> Layouts() {
    Sff2Options tablesLast;
    tablesLast.version = kSff200;
    tablesLast.parts = {Sff2Part::Tdata, Sff2Part::Ldata, Sff2Part::Sprites, Sff2Part::Palettes};
    tablesLast.palettesLast = true;
    return {{"tables first", {}}, {"tables last", tablesLast}};
}

// A message that people can read.
bool IsClearOfSff2(const Message& message) {
    const std::array kinds = {kMessagePcxError, kMessageOnlyImage, kMessageLinkError,
                              kMessageSffError};
    const auto printable = [](char c) { return (c >= ' ' && c <= '~') || c == '\r' || c == '\n'; };
    return std::ranges::count(kinds, message.kind) == 1 && !message.text.empty() &&
           std::ranges::all_of(message.text, printable);
}

struct OutcomeEntry {
    Integer image = 0;
    Integer linkedTo = -1;
    std::string numbers;  // all of them
    Words pixels;

    friend bool operator==(const OutcomeEntry&, const OutcomeEntry&) = default;
};

// What comes of an archive.
struct Outcome {
    std::vector<OutcomeEntry> entries;
    std::vector<std::string> said;

    friend bool operator==(const Outcome&, const Outcome&) = default;

    [[nodiscard]] bool Said(const std::string& part) const {
        return std::ranges::any_of(
            said, [&](const std::string& text) { return text.find(part) != std::string::npos; });
    }
};

void ExpectSoundTextures(const ArchiveLoad& load, std::size_t fileSize) {
    EXPECT_EQ(load.device.Counts().locks, load.device.Counts().unlocks);
    EXPECT_LE(load.device.Created().size(), fileSize / kSpriteNode);
    for (const TextureParameters& texture : load.device.Created()) {
        // The most that deflate makes of a byte, of pixels of one bit.
        EXPECT_LE(std::uint64_t{1} * static_cast<std::uint64_t>(texture.width) *
                      static_cast<std::uint64_t>(texture.height),
                  std::uint64_t{8} * 1032 * fileSize);
    }
}

// Loads, and expects what holds after every load.
Outcome Load(const Sff2File& file, unsigned helpers, DeviceLines lines) {
    ArchiveLoad load(lines);
    load.options.Additions = true;
    load.helpers = helpers;
    load.Run(file);
    EXPECT_EQ(load.model.Sprites.size(), static_cast<std::size_t>(load.model.SpriteCount));
    EXPECT_LE(load.messages.Recorded().size(), file.size() / 8 + 10);
    EXPECT_LE(load.BytesAskedFor(), 300 * file.size() + 2000);
    for (const Message& message : load.messages.Recorded()) {
        EXPECT_TRUE(IsClearOfSff2(message)) << message.text;
    }
    Outcome outcome;
    outcome.said = load.Texts();
    for (std::size_t i = 0; i < load.model.Sprites.size(); ++i) {
        const SpriteEntry& entry = load.Sprite(i);
        EXPECT_NE(entry.texture, nullptr);
        EXPECT_EQ(entry.selfIndex, static_cast<Integer>(i));
        EXPECT_EQ(entry.width, entry.texture->Width());
        EXPECT_EQ(entry.height, entry.texture->Height());
        EXPECT_LT(entry.linkedTo, static_cast<Integer>(i));
        Words pixels = load.Pixels(i);
        EXPECT_EQ(std::ranges::count(pixels, kUnwritten), 0);
        outcome.entries.push_back(
            {entry.image, entry.linkedTo, NumbersOf(entry), std::move(pixels)});
    }
    ExpectSoundTextures(load, file.size());
    return outcome;
}

Outcome LoadBothWays(const Sff2File& file, std::size_t round) {
    constexpr std::array kLines = {DeviceLines::AsWanted, DeviceLines::Tight, DeviceLines::Wide};
    const DeviceLines lines = kLines.at(round % kLines.size());
    Outcome alone = Load(file, 0, lines);
    const Outcome helped = Load(file, 3, lines);
    EXPECT_EQ(alone.said, helped.said);
    EXPECT_TRUE(alone == helped);
    return alone;
}

TEST(Sff2Damage, WithoutAnyAllIsShown) {
    for (const Layout& layout : Layouts()) {
        const Outcome whole = LoadBothWays(WriteSff2(SmallArchive(), layout.options), 0);
        EXPECT_EQ(whole.entries.size(), SmallArchive().sprites.size());
        EXPECT_TRUE(whole.said.empty());
    }
}

TEST(Sff2Damage, CutAtEveryLength) {
    for (const Layout& layout : Layouts()) {
        const Sff2File file = WriteSff2(SmallArchive(), layout.options);
        const Outcome whole = Load(file, 0, DeviceLines::AsWanted);
        std::set<std::size_t> counts;
        for (std::size_t size = 0; size < file.size(); ++size) {
            SCOPED_TRACE(layout.name + (" " + std::to_string(size)));
            const Sff2File prefix(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
            if (size < 16) {
                // No version either.
                ArchiveLoad load;
                load.options.Additions = true;
                load.Run(prefix);
                ASSERT_EQ(load.Kinds(), std::vector{kMessageSffError});
                continue;
            }
            const Outcome cut = LoadBothWays(prefix, size);
            counts.insert(cut.entries.size());
            // Those that are there are those of the whole archive, or it is said that they are not.
            for (const OutcomeEntry& entry : cut.entries) {
                const auto same =
                    std::ranges::find(whole.entries, entry.image, &OutcomeEntry::image);
                ASSERT_NE(same, whole.entries.end()) << entry.numbers;
                if (entry.linkedTo < 0 && entry.pixels != same->pixels) {
                    EXPECT_TRUE(cut.Said("Image " + std::to_string(entry.image) + "\r\n") ||
                                cut.Said("Palette "))
                        << entry.numbers;
                }
            }
            EXPECT_TRUE(!cut.said.empty() || cut.entries == whole.entries);
            ASSERT_FALSE(HasFailure());
        }
        EXPECT_GT(counts.size(), 3U) << "some are lost, others kept";
    }
}

TEST(Sff2Damage, WithAWrongByteInAHeader) {
    for (const Layout& layout : Layouts()) {
        const Sff2Archive archive = SmallArchive();
        const Sff2File file = WriteSff2(archive, layout.options);
        std::vector<std::size_t> places;
        const auto add = [&](std::size_t start, std::size_t count) {
            for (std::size_t at = start; at < start + count; ++at) {
                places.push_back(at);
            }
        };
        add(0, kHeaderEnd);
        add(U32At(file, 36), archive.sprites.size() * kSpriteNode);
        add(U32At(file, 44), archive.palettes.size() * kPaletteNode);
        for (const std::size_t at : places) {
            if (at == 15) {
                continue;  // then it is no archive of version 2
            }
            for (const unsigned wrong : {0U, 0x7FU, 0x80U, 0xFFU}) {
                SCOPED_TRACE(layout.name + (" " + std::to_string(at)) + " is " +
                             std::to_string(wrong));
                Sff2File damaged = file;
                damaged[at] = static_cast<std::byte>(wrong);
                static_cast<void>(LoadBothWays(damaged, at + wrong));
                ASSERT_FALSE(HasFailure());
            }
        }
    }
}

// Rubbish in the data of sprites, with checksums set right, so that it comes as far as the pixels;
// and anywhere else.
TEST(Sff2Damage, WithRandomBytes) {
    const int rounds = Rounds(3000);
    std::size_t shown = 0;
    std::size_t dropped = 0;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("seed " + std::to_string(round));
        Random random(static_cast<std::uint32_t>(round));
        const auto number = [&](std::size_t limit) {
            return std::size_t{random.Below(static_cast<unsigned>(limit))};
        };
        Sff2Archive archive = SmallArchive();
        for (Sff2Sprite& sprite : archive.sprites) {
            if (sprite.data.empty() || random.OneIn(2)) {
                continue;
            }
            for (std::size_t left = 1 + number(3); left > 0; --left) {
                sprite.data[number(sprite.data.size())] = static_cast<std::byte>(random.Byte());
            }
            if (sprite.format >= 10) {
                sprite.data = WithRightChecksums(sprite.data);
            }
        }
        Sff2File file = WriteSff2(archive, Layouts()[number(2)].options);
        for (std::size_t left = number(4); left > 0; --left) {
            const std::size_t at = 16 + number(file.size() - 16);
            file[at] = static_cast<std::byte>(random.Byte());
        }
        if (random.OneIn(6)) {
            file.resize(400 + number(file.size() - 400));
        }
        const Outcome outcome = LoadBothWays(file, number(3));
        shown += outcome.entries.size();
        dropped +=
            archive.sprites.size() - std::min(archive.sprites.size(), outcome.entries.size());
        ASSERT_FALSE(HasFailure());
    }
    // Both happen often.
    EXPECT_GT(shown, static_cast<std::size_t>(rounds) * 3);
    EXPECT_GT(dropped, static_cast<std::size_t>(rounds));
}

}  // namespace
}  // namespace scenara::test
