// SPDX-License-Identifier: MIT
//
// Which pictures of an archive are decoded, and in which colours.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "character/CharacterMachine.h"
#include "character/CharacterMessages.h"
#include "sprites/HugeTextures.h"
#include "sprites/TextureBudget.h"

namespace scenara::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

std::vector<std::byte> ActBytes(const Palette& palette, std::size_t surplus = 0) {
    std::vector<std::byte> bytes;
    for (std::size_t i = palette.size(); i-- > 0;) {
        for (const std::uint8_t part : {palette[i].red, palette[i].green, palette[i].blue}) {
            bytes.push_back(static_cast<std::byte>(part));
        }
    }
    bytes.resize(bytes.size() + surplus, std::byte{0x77});
    return bytes;
}

IndexedPicture HeroPicture(std::size_t subfile) {
    return StripedPicture(4 + static_cast<int>(subfile), 6,
                          PaletteOf(static_cast<std::uint8_t>(subfile + 1)));
}

// A square of one colour, in three planes.
std::vector<std::byte> PcxOf24Bits(int side) {
    TrueColourPicture picture;
    picture.width = side;
    picture.height = side;
    picture.pixels.assign(static_cast<std::size_t>(side) * static_cast<std::size_t>(side),
                          {200, 100, 50});
    return WritePcx(picture);
}

// The pictures that the machine's character shows, out of another archive.
std::vector<CharSprite> SpritesOf(CharacterMachine& machine, MemoryFile& archive,
                                  TextureMaker& device) {
    const ViewOptions options;
    CharacterMessages messages(machine.messages);
    const CharacterProgress progress;
    TestCharacter character = machine.character;
    character.Sprites.clear();
    LoadCharacterSprites(character, {archive, "other.sff", device, messages, options}, std::nullopt,
                         progress);
    return character.Sprites;
}
std::vector<CharSprite> SpritesOf(CharacterMachine& machine, MemoryFile& archive) {
    return SpritesOf(machine, archive, machine.device);
}

// How much was asked of a file.
std::uint64_t BytesWanted(const MemoryFile& file) {
    std::uint64_t wanted = 0;
    for (const MemoryFile::Read& read : file.Reads()) {
        wanted += read.wanted;
    }
    return wanted;
}

// Frames of walking that show the images 0 to `count` - 1 of a group.
std::string WalkThrough(int group, std::size_t count) {
    std::string animation = "[Begin Action 20]\n";
    for (std::size_t i = 0; i < count; ++i) {
        animation += std::to_string(group) + "," + std::to_string(i) + ",0,0,1\n";
    }
    return animation;
}

TEST(CharacterSprites, OnlyPicturesOfKeptFramesAreDecoded) {
    CharacterMachine machine;
    EXPECT_TRUE(machine.Load());
    std::vector<std::int32_t> widths;
    for (const TextureParameters& texture : machine.device.Created()) {
        widths.push_back(texture.width);
    }
    EXPECT_THAT(widths, ElementsAre(4, 5, 6, 7, 8)) << "9,9 is 9 wide, and 5,0 is shown twice";
    EXPECT_THAT(machine.Texts(), IsEmpty());
    EXPECT_EQ(machine.Pixels(kWalking, 1), KeyedByIndex(HeroPicture(4)));
    EXPECT_EQ(machine.character.ColorKey, 0xFF0100) << "0, 1, 255, red lowest";
    EXPECT_EQ(machine.turns, 5);
}

TEST(CharacterSprites, FramesKnowTheirPictureAndItsAxis) {
    CharacterMachine machine;
    EXPECT_TRUE(machine.Load());
    const auto& turning = machine.character.ActionIn(kTurning).frames;
    EXPECT_EQ(turning[0].texture, turning[1].texture);
    const Integer walking = machine.character.ActionIn(kWalking).frames[1].texture;
    const CharSprite& sprite = machine.character.Sprites.at(static_cast<std::size_t>(walking));
    EXPECT_EQ(sprite.axisX, 9);  // the fifth
    EXPECT_EQ(sprite.axisY, 10);
    EXPECT_EQ(sprite.texture->Width(), 8);
}

using Change = std::function<void(std::vector<Sff1Subfile>&)>;

// A picture, and the seed of the palette (PaletteOf) that a frame shows it in; 0 for black.
struct ShownIn {
    Integer slot;
    std::size_t frame;
    IndexedPicture picture;
    std::uint8_t palette;
};

// Of the archive as it has been changed.
void ExpectColours(const char* name, bool additions, const Change& change,
                   const std::vector<ShownIn>& shownIn, const std::vector<std::string>& said) {
    SCOPED_TRACE(name);
    CharacterMachine machine;
    machine.view.Additions = additions;
    auto subfiles = HeroSubfiles();
    change(subfiles);
    machine.PutArchive(subfiles);
    EXPECT_TRUE(machine.Load());
    for (const ShownIn& shown : shownIn) {
        EXPECT_EQ(
            machine.Pixels(shown.slot, shown.frame),
            KeyedByIndex(shown.picture, shown.palette == 0 ? Palette() : PaletteOf(shown.palette)));
    }
    EXPECT_EQ(machine.Texts(), said);
}

TEST(CharacterSprites, EachIsInItsColours) {
    const auto unchanged = [](std::vector<Sff1Subfile>&) {};
    const auto linkedFirst = [](std::vector<Sff1Subfile>& subfiles) {
        subfiles.insert(subfiles.begin(), Linked(7, 7, 0));
    };
    const IndexedPicture large = StripedPicture(50, 30, PaletteOf(4));
    const std::string notWhole =
        "SFF Error:  /mugen/chars/hero/hero.sff\r\nThe palette of its first image is not whole, "
        "the rest is black..";
    ExpectColours("plain: all in those of the first", false, unchanged,
                  {{kStanding, 0, HeroPicture(0), 1}, {kWalking, 1, HeroPicture(4), 1}}, {});
    ExpectColours("plain: a first palette that is not there is black and said", false, linkedFirst,
                  {{kWalking, 1, HeroPicture(4), 0}}, {notWhole});
    ExpectColours("a first palette that no picture needs is not missed", true, linkedFirst,
                  {{kWalking, 1, HeroPicture(4), 5}}, {});
    ExpectColours("each in the palette that is in force for it", true,
                  [](std::vector<Sff1Subfile>& subfiles) {
                      subfiles[1].samePalette = true;  // of 0
                      subfiles[2] = Linked(5, 0, 0);
                      subfiles[2].samePalette = true;
                      // The linked one before it has none, so of 0 again.
                      subfiles[3].samePalette = true;
                  },
                  {{kStanding, 1, HeroPicture(1), 1},
                   {kWalking, 0, HeroPicture(3), 1},
                   {kWalking, 1, HeroPicture(4), 5}},
                  {});
    // Where 24 bits lie no palette can lie as well.
    ExpectColours("a picture of 24 bits lends none, and says what it always says", true,
                  [](std::vector<Sff1Subfile>& subfiles) {
                      subfiles[3].data = PcxOf24Bits(20);
                      subfiles[4].samePalette = true;
                  },
                  {{kWalking, 1, HeroPicture(4), 3}}, {"yo..."});
    ExpectColours("nor does a first one of 24 bits", true,
                  [](std::vector<Sff1Subfile>& subfiles) {
                      subfiles[0] = Shown(9, 8, PcxOf24Bits(20));
                      subfiles[1].samePalette = true;
                  },
                  {{kStanding, 1, HeroPicture(1), 0}}, {notWhole});
    // The last bytes of such a picture are pixels.
    ExpectColours("nor does one that has nothing after its pixels", true,
                  [&](std::vector<Sff1Subfile>& subfiles) {
                      samplemaker::PcxOptions bare;
                      bare.trailingPalette = samplemaker::TrailingPalette::None;
                      bare.runLengths = false;
                      subfiles[3].data = WritePcx(large, bare);
                      subfiles[4].samePalette = true;
                  },
                  {{kWalking, 0, large, 3}, {kWalking, 1, HeroPicture(4), 3}}, {});
    ExpectColours("one that is not whole gives way to the one before", true,
                  [](std::vector<Sff1Subfile>& subfiles) {
                      subfiles[4].data.resize(subfiles[4].data.size() - 700);
                      subfiles.pop_back();  // so that it is the last one of the file
                  },
                  {{kWalking, 1, HeroPicture(4), 4}}, {});
}

// The whole archive of them is looked through once.
TEST(CharacterSprites, PicturesThatAllLendNoneTakeNoTime) {
    CharacterMachine machine;
    std::vector<Sff1Subfile> subfiles;
    constexpr int kSubfiles = 4000;
    for (int i = 0; i < kSubfiles; ++i) {
        subfiles.push_back(Shown(20, static_cast<std::int16_t>(i), PcxOf24Bits(1)));
    }
    machine.Put("hero.air", WalkThrough(20, kSubfiles));
    EXPECT_TRUE(machine.Load()) << "the animation";
    const std::vector<std::byte> archive = WriteSff1(subfiles);
    MemoryFile file(archive);
    EXPECT_EQ(SpritesOf(machine, file).size(), std::size_t{kSubfiles});
    EXPECT_LT(file.Reads().size(), std::size_t{kSubfiles} * 8);
}

TEST(CharacterSprites, TheWalkThroughAHugeArchiveLetsMessagesThroughAndEndsWithTheProgram) {
    CharacterMachine machine;
    std::vector<Sff1Subfile> subfiles;
    for (int i = 0; i < 40000; ++i) {
        subfiles.push_back(Linked(1, static_cast<std::int16_t>(i % 30000), 0));
    }
    machine.PutArchive(subfiles);
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.turns, 2);
    machine.turns = 0;
    machine.endAtTurn = 1;
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.turns, 1);
    EXPECT_THAT(machine.Texts(), IsEmpty());
}

TEST(CharacterSprites, AnActFileColoursAllOfThem) {
    struct Row {
        const char* name;
        std::optional<std::vector<std::byte>> act;
        bool additions;
        std::uint8_t palette;  // of the first picture, and
        std::uint8_t last;
    };
    const Row rows[] = {
        {"whole", ActBytes(PaletteOf(99)), true, 99, 99},
        {"of a longer file the first 768 bytes", ActBytes(PaletteOf(98), 4), true, 98, 98},
        {"plain it is not looked at", ActBytes(PaletteOf(99)), false, 1, 1},
        {"missing", std::nullopt, true, 1, 5},
        {"short", std::vector<std::byte>(767, std::byte{'x'}), true, 1, 5},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CharacterMachine machine;
        machine.view.Additions = row.additions;
        machine.Put("hero.def",
                    std::string("pal.defaults = 2\n") + kHeroFiles + "pal2 = red.act\n");
        if (row.act) {
            machine.files.Put("/mugen/chars/hero/red.act", std::span<const std::byte>(*row.act));
        }
        EXPECT_TRUE(machine.Load());
        EXPECT_EQ(machine.Pixels(kStanding, 0),
                  KeyedByIndex(HeroPicture(0), PaletteOf(row.palette)));
        EXPECT_EQ(machine.Pixels(kWalking, 1), KeyedByIndex(HeroPicture(4), PaletteOf(row.last)));
        EXPECT_EQ(machine.character.ColorKey, 0xFF0000 | row.palette << 8);
        EXPECT_THAT(machine.Texts(), IsEmpty());
    }
}

TEST(CharacterSprites, LinkedOnesShowAnothersPictureAtTheirOwnAxis) {
    CharacterMachine machine;
    auto subfiles = HeroSubfiles();
    subfiles[3] = Linked(20, 0, 5);  // forwards: not allowed
    subfiles[4] = Linked(20, 1, 2);
    subfiles[4].axisX = -7;
    subfiles.push_back(Linked(0, 1, 4));  // the second 0,1 does not count
    machine.PutArchive(subfiles);
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.Pixels(kWalking, 1), KeyedByIndex(HeroPicture(2)));
    const Integer texture = machine.character.ActionIn(kWalking).frames[1].texture;
    EXPECT_EQ(machine.character.Sprites.at(static_cast<std::size_t>(texture)).axisX, -7);
    EXPECT_EQ(machine.device.Created().size(), 3U) << "0,0 0,1 and 5,0, which two show";
    EXPECT_EQ(machine.character.ActionIn(kWalking).frames[0].texture, -1);
    EXPECT_EQ(machine.Pixels(kStanding, 1), KeyedByIndex(HeroPicture(1)));
    EXPECT_THAT(machine.Texts(),
                ElementsAre("Link Error:  Group 20 Image 0\r\nThere is no sprite 5 before it.  "
                            "Skipping sprite.."));
}

TEST(CharacterSprites, AChainOfLinksEndsAtThePicture) {
    CharacterMachine machine;
    auto subfiles = HeroSubfiles();
    subfiles[3] = Linked(20, 0, 1);
    subfiles[4] = Linked(20, 1, 3);
    machine.PutArchive(subfiles);
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.Pixels(kWalking, 1), KeyedByIndex(HeroPicture(1)));
}

TEST(CharacterSprites, FramesWithoutAPictureShowNothing) {
    CharacterMachine machine;
    machine.Put("hero.air", "[Begin Action 20]\n20,7, 0,0, 1\n20,-1, 0,0, 1\n20,0, 0,0, 1\n");
    EXPECT_TRUE(machine.Load());
    const auto& frames = machine.character.ActionIn(kWalking).frames;
    EXPECT_EQ(frames[0].texture, -1);
    EXPECT_EQ(frames[1].texture, -1);
    EXPECT_EQ(frames[2].texture, 0);
    EXPECT_THAT(machine.Texts(), IsEmpty());
}

TEST(CharacterSprites, ADamagedPictureIsSaidOnceAndLeftOut) {
    CharacterMachine machine;
    auto subfiles = HeroSubfiles();
    subfiles[2].data = BrokenPcx();
    machine.PutArchive(subfiles);
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.character.ActionIn(kTurning).frames[0].texture, -1);
    EXPECT_EQ(machine.character.ActionIn(kTurning).frames[1].texture, -1);
    EXPECT_EQ(machine.Pixels(kWalking, 0), KeyedByIndex(HeroPicture(3)));
    EXPECT_THAT(machine.Texts(), ElementsAre(StartsWith("An ERROR has occurred!!"),
                                             "PCX Error:  Group 5 Image 0\r\nSkipping sprite.."));
    for (const Message& message : machine.messages.Recorded()) {
        EXPECT_EQ(message.title, "Cohortia");
        EXPECT_EQ(message.icon, MessageIcon::Exclamation);
    }
}

TEST(CharacterSprites, AChainThatBreaksKeepsWhatCameBefore) {
    CharacterMachine machine;
    Sff1Options options;
    options.images = 100;
    machine.PutArchive(HeroSubfiles(), options);
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.Pixels(kWalking, 1), KeyedByIndex(HeroPicture(4)));
    EXPECT_THAT(
        machine.Texts(),
        ElementsAre(StartsWith("SFF Error:  /mugen/chars/hero/hero.sff\r\nSubfile 7 of 100")));
}

constexpr std::size_t kOverlaid = 400;

// Hundreds of headers of a large picture, all of which claim the same megabyte behind them, in
// which there is not one pixel.
std::vector<std::byte> OverlaidArchive() {
    constexpr std::size_t kMegabyte = 1'000'000;
    std::vector<std::byte> header = WritePcx(StripedPicture(1000, 1000, PaletteOf(1)));
    header.resize(kPcxHeaderSize);
    std::vector<Sff1Subfile> subfiles;
    for (std::size_t i = 0; i < kOverlaid; ++i) {
        subfiles.push_back(Shown(20, static_cast<std::int16_t>(i), header));
        subfiles.back().lengthSurplus = kMegabyte;
    }
    std::vector<std::byte> archive = WriteSff1(subfiles);
    while (archive.size() < kMegabyte + kOverlaid * 200) {
        archive.push_back(std::byte{0xC0});  // no times
        archive.push_back(std::byte{0});
    }
    return archive;
}

TEST(CharacterSprites, SubfilesThatLieOverEachOtherAreNotAllLookedThroughForAPalette) {
    CharacterMachine machine;
    machine.Put("hero.air", "[Begin Action 20]\n20," + std::to_string(kOverlaid - 1) + ",0,0,1\n");
    EXPECT_TRUE(machine.Load()) << "the animation";
    const std::vector<std::byte> archive = OverlaidArchive();
    MemoryFile file(archive);
    EXPECT_THAT(SpritesOf(machine, file), IsEmpty());
    EXPECT_LT(BytesWanted(file), archive.size() * 12);
}

TEST(CharacterSprites, SubfilesThatLieOverEachOtherAreNotAllTried) {
    CharacterMachine machine;
    const std::vector<std::byte> archive = OverlaidArchive();
    machine.files.Put("/mugen/chars/hero/hero.sff", std::span<const std::byte>(archive));
    machine.Put("hero.air", WalkThrough(20, kOverlaid));
    EXPECT_TRUE(machine.Load());
    EXPECT_THAT(machine.character.Sprites, IsEmpty());
    EXPECT_GT(machine.device.Created().size(), 1U);
    EXPECT_LT(machine.device.Created().size(), 20U);
    EXPECT_THAT(machine.Texts(), Contains("SFF Error:  /mugen/chars/hero/hero.sff\r\nThe subfiles "
                                          "lie over each other.  The rest is skipped.."));
}

TEST(CharacterSprites, BeyondTheSumOfAllTexturesAreDropped) {
    constexpr std::size_t kFit = TextureBudget::kMostBytes / kColumnBytes;
    CharacterMachine machine;
    machine.Put("hero.air", WalkThrough(0, kFit + 2));
    EXPECT_TRUE(machine.Load()) << "the animation";
    const std::vector<std::byte> archive = ArchiveOfColumns(kFit + 2);
    MemoryFile file(archive);
    OneLineDevice device;
    EXPECT_EQ(SpritesOf(machine, file, device).size(), kFit);
    EXPECT_THAT(machine.Texts(), Contains("PCX Error:  Group 0 Image " + std::to_string(kFit + 1) +
                                          "\r\nSkipping sprite.."));
}

TEST(CharacterSprites, AnArchiveWithoutSubfilesGivesNoPictures) {
    CharacterMachine machine;
    machine.PutArchive({});
    EXPECT_TRUE(machine.Load());
    EXPECT_TRUE(machine.character.Sprites.empty());
    EXPECT_EQ(machine.character.ColorKey, 0);
}

TEST(CharacterSprites, OfAHugeArchiveOnlyHeadersAndWantedPicturesAreRead) {
    CharacterMachine machine;
    auto subfiles = HeroSubfiles();
    const std::vector<std::byte> large = WritePcx(StripedPicture(200, 200, PaletteOf(1)));
    for (int i = 0; i < 3000; ++i) {
        subfiles.push_back(Shown(1000, static_cast<std::int16_t>(i), large));
    }
    const std::vector<std::byte> archive = WriteSff1(subfiles);
    MemoryFile file(archive);
    EXPECT_TRUE(machine.Load());  // the animations, from the small one
    EXPECT_EQ(SpritesOf(machine, file).size(), 5U);
    EXPECT_LT(BytesWanted(file), 3006U * 32U + 20000U);
    EXPECT_GT(archive.size(), 10'000'000U);
}

}  // namespace
}  // namespace scenara::test
