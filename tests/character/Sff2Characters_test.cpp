// SPDX-License-Identifier: MIT
//
// Characters whose archive is of version 2.
#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "character/CharacterMachine.h"
#include "character/CharacterMessages.h"
#include "sprites/Sff2Parts.h"

namespace scenara::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

IndexedPicture HeroStripes(int number) {
    return StripedPicture(4 + number, 6, PaletteOf(1), 32);
}

Sff2Sprite HeroSprite(int number, unsigned group, unsigned image, unsigned palette,
                      Sff2Coding coding) {
    Sff2Sprite sprite = Numbered(Sff2SpriteOf(HeroStripes(number), coding), group, image, palette);
    sprite.axisX = static_cast<std::int16_t>(1 + 2 * number);
    sprite.axisY = static_cast<std::int16_t>(2 + 2 * number);
    return sprite;
}

// What CharacterMachine's animations show, and 9,9, which nothing does: a coding each, two
// palettes.
Sff2Archive HeroArchive() {
    return {{NumberedPalette(1), NumberedPalette(2)},
            {HeroSprite(0, 0, 0, 1, Sff2Coding::Raw), HeroSprite(1, 0, 1, 0, Sff2Coding::Rle8),
             HeroSprite(2, 5, 0, 1, Sff2Coding::Rle5), HeroSprite(3, 20, 0, 0, Sff2Coding::Lz5),
             HeroSprite(4, 20, 1, 1, Sff2Coding::Png8), HeroSprite(5, 9, 9, 0, Sff2Coding::Raw)}};
}

void PutSff2(CharacterMachine& machine, const Sff2Archive& archive,
             const Sff2Options& options = {}) {
    machine.files.Put("/mugen/chars/hero/hero.sff",
                      std::span<const std::byte>(WriteSff2(archive, options)));
}

const CharSprite& SpriteOf(const CharacterMachine& machine, Integer slot, std::size_t frame) {
    const Integer texture = machine.character.ActionIn(slot).frames.at(frame).texture;
    return machine.character.Sprites.at(static_cast<std::size_t>(texture));
}

Integer TextureOf(const CharacterMachine& machine, Integer slot, std::size_t frame) {
    return machine.character.ActionIn(slot).frames.at(frame).texture;
}

TEST(Sff2Characters, ShowEachPictureInItsOwnColours) {
    for (const bool alphaCounts : {false, true}) {
        CharacterMachine machine;
        Sff2Archive archive = HeroArchive();
        for (Sff2Palette& palette : archive.palettes) {
            for (std::size_t i = 0; i < palette.colours.size(); ++i) {
                palette.colours[i].alpha = static_cast<std::uint8_t>(i * 99);
            }
        }
        Sff2Options options;
        options.version = alphaCounts ? kSff201 : kSff200;
        PutSff2(machine, archive, options);
        EXPECT_TRUE(machine.Load());
        EXPECT_THAT(machine.Texts(), IsEmpty());
        std::vector<std::int32_t> widths;
        for (const TextureParameters& texture : machine.device.Created()) {
            widths.push_back(texture.width);
        }
        EXPECT_THAT(widths, ElementsAre(4, 5, 6, 7, 8)) << "9,9 is 9 wide";
        const auto pixels = [&](int number, std::size_t palette) {
            return InColours(HeroStripes(number).pixels, archive.palettes[palette].colours,
                             alphaCounts);
        };
        EXPECT_EQ(machine.Pixels(kStanding, 0), pixels(0, 1));
        EXPECT_EQ(machine.Pixels(kStanding, 1), pixels(1, 0));
        EXPECT_EQ(machine.Pixels(kTurning, 0), pixels(2, 1));
        EXPECT_EQ(machine.Pixels(kTurning, 1), pixels(2, 1));
        EXPECT_EQ(machine.Pixels(kWalking, 0), pixels(3, 0));
        EXPECT_EQ(machine.Pixels(kWalking, 1), pixels(4, 1));
        EXPECT_EQ(SpriteOf(machine, kWalking, 1).axisX, 9);
        EXPECT_EQ(SpriteOf(machine, kWalking, 1).axisY, 10);
        EXPECT_EQ(machine.character.ColorKey, 0xFF0200)
            << "of the first sprite's palette: 0, 2, 255, red lowest";
    }
}

TEST(Sff2Characters, TheColorKeyIsThatOfTheFirstSpriteWhateverItsKind) {
    struct Row {
        const char* name;
        Sff2Archive archive;
        Long key;
    };
    Sff2Archive linkedPalette = HeroArchive();
    linkedPalette.palettes.insert(linkedPalette.palettes.begin() + 1, LinkedPalette(7, 0));
    Sff2Archive badPalette = HeroArchive();
    badPalette.sprites[0].palette = 9;
    badPalette.sprites[0].group = 77;  // so that nothing shows it, and it is not missed
    const Row rows[] = {{"linked", linkedPalette, 0xFF0100},
                        {"not there: black", badPalette, 0},
                        {"no sprites", {}, 0}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CharacterMachine machine;
        PutSff2(machine, row.archive);
        EXPECT_TRUE(machine.Load());
        EXPECT_EQ(machine.character.ColorKey, row.key);
        EXPECT_THAT(machine.Texts(), IsEmpty());
    }
}

TEST(Sff2Characters, LinksHaveTheirOwnAxisAndTheirOwnColours) {
    CharacterMachine machine;
    Sff2Archive archive = HeroArchive();
    archive.sprites[1] = LinkedSprite(0, 1, 0, 1);  // the same colours
    archive.sprites[1].axisX = -7;
    archive.sprites[3] = LinkedSprite(20, 0, 1, 0);  // others, by way of another link
    archive.sprites[4] = LinkedSprite(20, 1, 3, 1);  // and back again
    PutSff2(machine, archive);
    EXPECT_TRUE(machine.Load());
    EXPECT_THAT(machine.Texts(), IsEmpty());
    const Words first = KeyedByIndex(HeroStripes(0), PaletteOf(2));
    EXPECT_EQ(machine.Pixels(kStanding, 0), first);
    EXPECT_EQ(machine.Pixels(kStanding, 1), first);
    EXPECT_EQ(machine.Pixels(kWalking, 0), KeyedByIndex(HeroStripes(0), PaletteOf(1)));
    EXPECT_EQ(machine.Pixels(kWalking, 1), first);
    EXPECT_EQ(SpriteOf(machine, kStanding, 0).axisX, 1);
    EXPECT_EQ(SpriteOf(machine, kStanding, 1).axisX, -7);
    EXPECT_EQ(SpriteOf(machine, kStanding, 0).texture, SpriteOf(machine, kStanding, 1).texture);
    EXPECT_EQ(SpriteOf(machine, kStanding, 0).texture, SpriteOf(machine, kWalking, 1).texture);
    EXPECT_EQ(machine.device.Created().size(), 3U);
}

TEST(Sff2Characters, TheFirstOfEqualNumbersCounts) {
    CharacterMachine machine;
    Sff2Archive archive = HeroArchive();
    archive.sprites.push_back(HeroSprite(20, 0, 0, 0, Sff2Coding::Raw));
    PutSff2(machine, archive);
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(SpriteOf(machine, kStanding, 0).texture->Width(), 4);
}

TEST(Sff2Characters, TrueColoursAreTheirOwn) {
    const AlphaPicture sheer = SheerPicture(7, 5);
    for (const Sff2Coding coding : kColourCodings) {
        CharacterMachine machine;
        Sff2Archive archive = HeroArchive();
        archive.sprites[3] = Numbered(Sff2SpriteOf(sheer, coding), 20, 0, 50);
        PutSff2(machine, archive);
        EXPECT_TRUE(machine.Load());
        EXPECT_THAT(machine.Texts(), IsEmpty());
        EXPECT_EQ(machine.Pixels(kWalking, 0), WordsOf(sheer, HasAlpha(coding)));
    }
}

TEST(Sff2Characters, ActFilesAreForArchivesOfVersion1) {
    CharacterMachine machine;
    machine.Put("hero.def", std::string("pal.defaults = 2\n") + kHeroFiles + "pal2 = red.act\n");
    machine.Put("red.act", std::string(768, 'x'));
    PutSff2(machine, HeroArchive());
    EXPECT_TRUE(machine.Load());
    EXPECT_THAT(machine.Texts(), IsEmpty());
    EXPECT_EQ(machine.Pixels(kStanding, 0), KeyedByIndex(HeroStripes(0), PaletteOf(2)));
    EXPECT_EQ(machine.character.ColorKey, 0xFF0200);
}

TEST(Sff2Characters, WhatIsDamagedIsNamedAndAllElseIsShown) {
    const std::string name = "/mugen/chars/hero/hero.sff";
    struct Row {
        const char* name;
        Sff2Sprite sprite;  // instead of 20,0
        testing::Matcher<std::string> said;
    };
    Sff2Sprite cut = HeroSprite(3, 20, 0, 0, Sff2Coding::Lz5);
    cut.data.resize(2);
    Sff2Sprite unknown = HeroSprite(3, 20, 0, 0, Sff2Coding::Lz5);
    unknown.format = 99;
    Sff2Sprite noPng = HeroSprite(3, 20, 0, 0, Sff2Coding::Png8);
    noPng.data[0] = std::byte{0};
    const Row rows[] = {
        {"too short", cut, AllOf(HasSubstr("Group 20 Image 0\r\nLZ5"), HasSubstr("end before"))},
        {"no such coding", unknown, HasSubstr("Group 20 Image 0\r\nCoding 99")},
        {"no PNG", noPng, HasSubstr("Group 20 Image 0\r\nPNG8")},
        {"a link forwards", LinkedSprite(20, 0, 4),
         AllOf(HasSubstr("Link Error:  Group 20 Image 0\r\n"), HasSubstr(" 4 "))},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CharacterMachine machine;
        Sff2Archive archive = HeroArchive();
        archive.sprites[3] = row.sprite;
        PutSff2(machine, archive);
        EXPECT_TRUE(machine.Load());
        EXPECT_THAT(machine.Texts(), ElementsAre(row.said));
        EXPECT_THAT(KindsOf(machine.messages), ElementsAre(kMessageCharacterSprite));
        EXPECT_EQ(TextureOf(machine, kWalking, 0), -1);
        EXPECT_EQ(machine.Pixels(kWalking, 1), KeyedByIndex(HeroStripes(4), PaletteOf(2)));
    }
    CharacterMachine machine;
    Sff2Archive archive = HeroArchive();
    archive.sprites[3].palette = 7;
    archive.sprites[4].palette = 7;
    PutSff2(machine, archive);
    EXPECT_TRUE(machine.Load());
    EXPECT_THAT(machine.Texts(), ElementsAre(AllOf(HasSubstr(name), HasSubstr("Palette 7"))));
    EXPECT_EQ(machine.Pixels(kWalking, 0), KeyedByIndex(HeroStripes(3), Palette()));
}

// Damage of what nothing shows is not looked at.
TEST(Sff2Characters, OfPicturesThatNothingShowsNothingIsSaid) {
    CharacterMachine machine;
    Sff2Archive archive = HeroArchive();
    archive.sprites[5].format = 99;
    archive.sprites.push_back(LinkedSprite(9, 10, 50));
    PutSff2(machine, archive);
    EXPECT_TRUE(machine.Load());
    EXPECT_THAT(machine.Texts(), IsEmpty());
}

// The table of sprites breaks off: those before that are shown, and it is said.
TEST(Sff2Characters, AnArchiveThatBreaksOffShowsWhatItHas) {
    CharacterMachine machine;
    Sff2Options options;
    options.parts = {Sff2Part::Palettes, Sff2Part::Ldata, Sff2Part::Tdata, Sff2Part::Sprites};
    std::vector<std::byte> bytes = WriteSff2(HeroArchive(), options);
    bytes.resize(bytes.size() - 2 * 28);  // 20,1 and 9,9
    machine.files.Put("/mugen/chars/hero/hero.sff", std::span<const std::byte>(bytes));
    EXPECT_TRUE(machine.Load());
    EXPECT_THAT(machine.Texts(), ElementsAre(HasSubstr("Sprite 5 of 6: the file ends there.")));
    EXPECT_EQ(machine.Pixels(kWalking, 0), KeyedByIndex(HeroStripes(3), PaletteOf(1)));
    EXPECT_EQ(TextureOf(machine, kWalking, 1), -1);
}

}  // namespace
}  // namespace scenara::test
