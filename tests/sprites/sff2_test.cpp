// SPDX-License-Identifier: MIT
#include "sprites/sff2.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "PcxDecoding.h"
#include "sprites/version1/SubfilePicture.h"

namespace scenara {
namespace {

using test::ArchiveLoad;
using test::BrokenPcx;
using test::HandleErrorText;
using test::KeyedByIndex;
using test::Linked;
using test::Opaque;
using test::PaletteOf;
using test::Sff1Options;
using test::Sff1Subfile;
using test::Shown;
using test::StripedPicture;
using test::TrueColorPicture;
using test::WritePcx;
using test::WriteSff1;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

Sff1Subfile Small(std::int16_t group, std::int16_t image, std::uint8_t seed = 1) {
    return Shown(group, image, WritePcx(StripedPicture(4, 3, PaletteOf(seed))));
}

BackgroundElement Element(const char* type, Integer mask, Long group, Integer image) {
    BackgroundElement element;
    element.type = type;
    element.mask = mask;
    element.spriteGroup = group;
    element.spriteImage = image;
    return element;
}

TEST(Sff2, OneEntryPerSubfileInTheOrderOfTheChain) {
    const auto first = StripedPicture(8, 5, PaletteOf(10));
    const auto second = StripedPicture(3, 9, PaletteOf(20));
    Sff1Subfile a = Shown(-1, 32767, WritePcx(first));
    a.axisX = -400;
    a.axisY = 500;
    Sff1Subfile b = Shown(9000, -2, WritePcx(second));
    b.axisX = 3;
    b.axisY = -4;
    Sff1Options options;
    options.fileOrder = {1, 0};
    ArchiveLoad load;
    load.Run(WriteSff1({a, b}, options));

    EXPECT_THAT(load.Texts(), IsEmpty());
    ASSERT_EQ(load.model.Sprites.size(), 2U);
    EXPECT_EQ(load.model.SpriteCount, 2);
    const SpriteEntry& one = load.Sprite(0);
    EXPECT_EQ(one.axisX, -400);
    EXPECT_EQ(one.axisY, 500);
    EXPECT_EQ(one.width, 8);
    EXPECT_EQ(one.height, 5);
    EXPECT_EQ(one.group, -1);
    EXPECT_EQ(one.image, 32767);
    EXPECT_EQ(one.selfIndex, 0);
    EXPECT_EQ(one.reserved, 0);
    EXPECT_EQ(one.masked, 0);
    EXPECT_EQ(one.keyAlpha, 255);
    EXPECT_EQ(one.keyRed, 0);
    EXPECT_EQ(one.keyGreen, 10);
    EXPECT_EQ(one.keyBlue, 255);
    EXPECT_EQ(one.linkedTo, -1);
    EXPECT_EQ(load.Pixels(0), KeyedByIndex(first));
    const SpriteEntry& two = load.Sprite(1);
    EXPECT_EQ(two.axisX, 3);
    EXPECT_EQ(two.axisY, -4);
    EXPECT_EQ(two.width, 3);
    EXPECT_EQ(two.height, 9);
    EXPECT_EQ(two.group, 9000);
    EXPECT_EQ(two.image, -2);
    EXPECT_EQ(two.selfIndex, 1);
    EXPECT_EQ(two.keyGreen, 20);
    EXPECT_EQ(load.Pixels(1), KeyedByIndex(second));

    EXPECT_EQ(load.model.LastImageWidth, 3);
    EXPECT_EQ(load.model.LastImageHeight, 9);
}

TEST(Sff2, MakesOneTexturePerPictureWithItsKey) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0, 1), Linked(0, 1, 0), Small(0, 2, 2)}));
    ASSERT_EQ(load.device.Created().size(), 2U);
    EXPECT_EQ(load.device.Created()[0].width, 4);
    EXPECT_EQ(load.device.Created()[0].height, 3);
    EXPECT_EQ(load.device.Created()[0].colorKey, Opaque({0, 1, 255}));
    EXPECT_EQ(load.device.Created()[1].colorKey, Opaque({0, 2, 255}));
    for (const TextureParameters& made : load.device.Created()) {
        EXPECT_EQ(made.mipLevels, 0xFFFFFFFFU);
        EXPECT_EQ(made.usage, 0U);
        EXPECT_EQ(made.format, 0U);
        EXPECT_EQ(made.pool, 1U);
        EXPECT_EQ(made.filter, 2U);
        EXPECT_EQ(made.mipFilter, 2U);
    }
    EXPECT_EQ(load.device.Counts().locks, load.device.Counts().unlocks);
}

TEST(Sff2, AppendsToTheTable) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0)}));
    load.Run(WriteSff1({Small(5, 5)}));
    ASSERT_EQ(load.model.Sprites.size(), 2U);
    EXPECT_EQ(load.model.SpriteCount, 2);
    EXPECT_EQ(load.Sprite(1).group, 5);
    EXPECT_EQ(load.Sprite(1).selfIndex, 1);
}

TEST(Sff2, OfNoImagesIsEmptyAndSilent) {
    ArchiveLoad load;
    load.Run(WriteSff1({}));
    EXPECT_EQ(load.model.SpriteCount, 0);
    EXPECT_THAT(load.Texts(), IsEmpty());
    EXPECT_THAT(load.window.Captions(), IsEmpty());
}

TEST(Sff2, CaptionsTellHowFarItIs) {
    ArchiveLoad load;
    load.model.StageTitle = "Old Temple";
    load.Run(WriteSff1({Small(0, 0), Linked(0, 1, 0), Shown(0, 2, BrokenPcx()), Small(0, 3)}));
    EXPECT_THAT(load.window.Captions(),
                ElementsAre("Loading Old Temple %", "Loading Old Temple 25%",
                            "Loading Old Temple 50%", "Loading Old Temple 75%"));
}

TEST(Sff2, CaptionsHaveWholePercentTiesToEven) {
    EXPECT_EQ(LoadingCaption("T", 0, 7), "Loading T %");
    EXPECT_EQ(LoadingCaption("T", 1, 1000), "Loading T %");
    EXPECT_EQ(LoadingCaption("T", 1, 100), "Loading T 1%");
    EXPECT_EQ(LoadingCaption("T", 1, 3), "Loading T 33%");
    EXPECT_EQ(LoadingCaption("T", 2, 3), "Loading T 67%");
    EXPECT_EQ(LoadingCaption("T", 1, 8), "Loading T 12%");
    EXPECT_EQ(LoadingCaption("T", 3, 8), "Loading T 38%");
    EXPECT_EQ(LoadingCaption("", 999, 1000), "Loading  100%");
    EXPECT_EQ(LoadingCaption("T", 0xFFFFFFFE, 0xFFFFFFFF), "Loading T 100%");
}

// A title comes out of a file, too, and would be copied for every sprite.
TEST(Sff2, CaptionsCutATitleThatNoTitleBarShows) {
    for (const std::size_t length : {255U, 256U, 1'000'000U}) {
        EXPECT_EQ(LoadingCaption(std::string(length, 'x'), 1, 2),
                  "Loading " + std::string(255, 'x') + " 50%");
    }
    // Not within a character.
    EXPECT_EQ(LoadingCaption(std::string(254, 'x') + "\xC3\xA9", 1, 2),
              "Loading " + std::string(254, 'x') + " 50%");
}

TEST(Sff2, TheWindowSystemRunsAfterEveryImageThatCounts) {
    ArchiveLoad load([&load](HeadlessWindow& window) {
        // The image is in the table when its handlers run.
        EXPECT_EQ(load.model.Sprites.size(), window.DoEventsCount());
        EXPECT_EQ(static_cast<std::size_t>(load.model.SpriteCount), window.DoEventsCount());
    });
    load.Run(WriteSff1({Small(0, 0), Linked(0, 1, 0), Shown(0, 2, BrokenPcx()), Small(0, 3)}));
    EXPECT_EQ(load.window.DoEventsCount(), 3U);
}

TEST(Sff2, AnEndRequestEndsTheLoadAfterTheImage) {
    ArchiveLoad load([](HeadlessWindow& window) {
        if (window.DoEventsCount() == 2) {
            window.RequestEnd();
        }
    });
    load.Run(WriteSff1({Small(0, 0), Small(0, 1), Small(0, 2), Small(0, 3)}));
    EXPECT_EQ(load.model.SpriteCount, 2);
    EXPECT_EQ(load.window.Captions().size(), 2U);
    EXPECT_THAT(load.Texts(), IsEmpty());
}

TEST(Sff2, PicturesOfStillElementsWithMask1AreMasked) {
    ArchiveLoad load;
    load.model.Elements = {
        Element("normal", 1, 70, 0),   Element("normal", 1, 60, 0),  Element("normal", 1, 50, 0),
        Element("normal", 1, 40, 0),   Element("normal", 1, 0, 0),   Element("parallax", 1, 0, 1),
        Element("anim", 1, 0, 2),      Element("dummy", 1, 0, 3),    Element("normal", 0, 0, 4),
        Element("parallax", -1, 0, 5), Element("normal", 1, -1, -1), Element("normal", 1, 65535, 6),
        Element("", 1, 0, 7),          Element("normal", 0, 0, 0)};
    std::vector<Sff1Subfile> subfiles;
    for (std::int16_t image = 0; image < 8; ++image) {
        subfiles.push_back(Small(0, image));
    }
    subfiles.push_back(Small(-1, -1));
    subfiles.push_back(Small(-1, 6));  // not the group 65535
    subfiles.push_back(Small(1, 0));
    load.Run(WriteSff1(subfiles));

    std::vector<Integer> masked;
    for (const SpriteEntry& entry : load.model.Sprites) {
        masked.push_back(entry.masked);
    }
    EXPECT_THAT(masked, ElementsAre(1, 1, 0, 0, 0, 0, 0, 0, 1, 0, 0));
}

// Scaled: two opaque stills show it, and something that leaves colour 0 out.
TEST(Sff2, APictureThatIsAlsoShownWithItsColour0LeftOutIsScaledAsSuch) {
    const auto archive =
        WriteSff1({Shown(0, 0, WritePcx(test::IndexedPicture{2, 1, {0, 99}, PaletteOf(1)}))});
    const auto scaled = [&](std::size_t opaqueStills, bool keyed) {
        ArchiveLoad load;
        load.model.Elements.assign(opaqueStills, Element("normal", 0, 0, 0));
        if (keyed) {
            load.model.Elements.push_back(Element("normal", 1, 0, 0));
        }
        test::MemoryFile file(archive);
        LoadSprites(load.model, file, test::kArchiveName, load.device, load.window, load.messages,
                    ViewOptions{}, 0.5);
        return load.Pixels(0);
    };
    EXPECT_NE(scaled(1, false), scaled(1, true)) << "colour 0 counts in one of them";
    EXPECT_EQ(scaled(2, false), scaled(1, false));
    EXPECT_EQ(scaled(2, true), scaled(1, true));
}

TEST(Sff2, LinkedEntriesShareThePictureAndKeepTheirOwnNumbers) {
    ArchiveLoad load;
    load.model.Elements = {Element("normal", 1, 0, 0), Element("parallax", 1, 8, 1)};
    Sff1Subfile first = Small(0, 0, 40);
    first.axisX = 11;
    first.axisY = 12;
    Sff1Subfile linked = Linked(7, 8, 0);
    linked.axisX = -21;
    linked.axisY = -22;
    load.Run(WriteSff1({first, Small(0, 1, 50), linked, Linked(8, 1, 1), Linked(9, 9, 2)}));

    ASSERT_EQ(load.model.Sprites.size(), 5U);
    const SpriteEntry& target = load.Sprite(0);
    const SpriteEntry& entry = load.Sprite(2);
    EXPECT_EQ(entry.texture, target.texture);
    EXPECT_EQ(entry.width, target.width);
    EXPECT_EQ(entry.height, target.height);
    EXPECT_EQ(entry.keyAlpha, 255);
    EXPECT_EQ(entry.keyRed, 0);
    EXPECT_EQ(entry.keyGreen, 40);
    EXPECT_EQ(entry.keyBlue, 255);
    EXPECT_EQ(entry.axisX, -21);
    EXPECT_EQ(entry.axisY, -22);
    EXPECT_EQ(entry.group, 7);
    EXPECT_EQ(entry.image, 8);
    EXPECT_EQ(entry.selfIndex, 2);
    EXPECT_EQ(entry.linkedTo, 0);
    // The flag is that of their own numbers, not the target's.
    EXPECT_EQ(target.masked, 1);
    EXPECT_EQ(entry.masked, 0);
    EXPECT_EQ(load.Sprite(1).masked, 0);
    EXPECT_EQ(load.Sprite(3).masked, 1);
    EXPECT_EQ(load.Sprite(3).texture, load.Sprite(1).texture);
    // A link to a linked entry ends at its picture.
    EXPECT_EQ(load.Sprite(4).texture, target.texture);
    EXPECT_EQ(load.Sprite(4).linkedTo, 2);
    // The target is as it was.
    EXPECT_EQ(target.group, 0);
    EXPECT_EQ(target.axisX, 11);
    EXPECT_EQ(target.linkedTo, -1);
    EXPECT_THAT(load.Texts(), IsEmpty());
    // Each texture goes when the last entry with it goes.
    const std::weak_ptr<Direct3DTexture8> texture = target.texture;
    load.model.Clear();
    EXPECT_TRUE(texture.expired());
}

TEST(Sff2, ALinkedEntryIsNotTheLastImageDecoded) {
    ArchiveLoad load;
    load.Run(WriteSff1(
        {Small(0, 0), Shown(0, 1, WritePcx(StripedPicture(9, 8, PaletteOf(1)))), Linked(0, 2, 0)}));
    EXPECT_EQ(load.model.LastImageWidth, 9);
    EXPECT_EQ(load.model.LastImageHeight, 8);
}

// The archive means subfile 2 (group 2) and subfile 1 (group 1); subfile 1 was dropped, so that the
// positions are those of groups 3 and 2.
TEST(Sff2, LinkIndexIsAPositionInSprites) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0), Shown(1, 0, BrokenPcx()), Small(2, 0), Small(3, 0),
                        Linked(50, 0, 2), Linked(51, 0, 1), Linked(52, 0, 0)}));
    ASSERT_EQ(load.model.Sprites.size(), 6U);
    EXPECT_EQ(load.Sprite(1).group, 2);
    EXPECT_EQ(load.Sprite(2).group, 3);
    EXPECT_EQ(load.Sprite(3).group, 50);
    EXPECT_EQ(load.Sprite(3).texture, load.Sprite(2).texture);
    EXPECT_EQ(load.Sprite(3).linkedTo, 2);
    EXPECT_EQ(load.Sprite(3).selfIndex, 3);
    EXPECT_EQ(load.Sprite(4).texture, load.Sprite(1).texture);
    EXPECT_EQ(load.Sprite(4).linkedTo, 1);
    EXPECT_EQ(load.Sprite(5).texture, load.Sprite(0).texture);
}

class BadLink : public testing::TestWithParam<std::int16_t> {};

TEST_P(BadLink, IsSaidAndSkipped) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0), Linked(-6, 7, GetParam()), Small(1, 0, 9)}));
    ASSERT_EQ(load.messages.Recorded().size(), 1U);
    EXPECT_EQ(load.messages.Recorded()[0].kind, kMessageLinkError);
    EXPECT_THAT(load.Texts()[0], StartsWith("Link Error:  Group -6 Image 7\r\n"));
    EXPECT_THAT(load.Texts()[0], HasSubstr(" " + std::to_string(GetParam()) + " "));
    EXPECT_THAT(load.Texts()[0], HasSubstr("Skipping sprite.."));
    ASSERT_EQ(load.model.Sprites.size(), 2U);
    EXPECT_EQ(load.model.SpriteCount, 2);
    EXPECT_EQ(load.Sprite(1).group, 1);
    EXPECT_EQ(load.Sprite(1).selfIndex, 1);
}

// Subfile 1 links to itself, to the one behind it, and to what is not there.
INSTANTIATE_TEST_SUITE_P(, BadLink, testing::Values(1, 2, 3, 32767, -1, -32768));

TEST(Sff2, AFirstSubfileThatIsLinkedHasNothingToLinkTo) {
    ArchiveLoad load;
    load.Run(WriteSff1({Linked(1, 2, 0), Small(3, 4)}));
    EXPECT_THAT(load.Kinds(), ElementsAre(kMessageLinkError));
    ASSERT_EQ(load.model.Sprites.size(), 1U);
    EXPECT_EQ(load.Sprite(0).group, 3);
}

TEST(Sff2, APictureThatFailsIsDroppedAndTheNextIsLoaded) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0), Shown(-12, 345, BrokenPcx()), Small(2, 0)}));
    EXPECT_THAT(load.Kinds(), ElementsAre(kMessageLoadPcx, kMessagePcxError));
    EXPECT_THAT(load.Texts()[0], StartsWith("An ERROR has occurred!!\r\nLoadPCX\r\nHandleError: "));
    EXPECT_EQ(load.Texts()[1], "PCX Error:  Group -12 Image 345\r\nSkipping sprite..");
    ASSERT_EQ(load.model.Sprites.size(), 2U);
    EXPECT_EQ(load.model.SpriteCount, 2);
    EXPECT_EQ(load.Sprite(1).group, 2);
    EXPECT_EQ(load.Sprite(1).selfIndex, 1);
    for (const Message& message : load.messages.Recorded()) {
        EXPECT_EQ(message.title, "");
        EXPECT_EQ(message.icon, MessageIcon::None);
    }
}

TEST(Sff2, TheOnlyImageThatFailsHasItsOwnMessage) {
    ArchiveLoad load;
    load.Run(WriteSff1({Shown(1, 2, BrokenPcx())}));
    EXPECT_EQ(load.model.SpriteCount, 0);
    EXPECT_TRUE(load.model.Sprites.empty());
    EXPECT_THAT(load.Kinds(), ElementsAre(kMessageLoadPcx, kMessagePcxError, kMessageOnlyImage));
    EXPECT_EQ(load.Texts()[1], "PCX Error:  Group 1 Image 2\r\nSkipping sprite..");
    EXPECT_EQ(load.Texts()[2], "Oh, and that was the only image!  Just pretend it's really dark!");
}

TEST(Sff2, TheOnlyImageOfAnArchiveOfTwoIsNotTheOnlyOne) {
    ArchiveLoad load;
    load.Run(WriteSff1({Shown(1, 2, BrokenPcx()), Shown(1, 3, BrokenPcx())}));
    EXPECT_EQ(load.model.SpriteCount, 0);
    EXPECT_THAT(load.Kinds(),
                ElementsAre(kMessageLoadPcx, kMessagePcxError, kMessageLoadPcx, kMessagePcxError));
}

TEST(Sff2, ATextureThatTheDeviceRefusesDropsItsImage) {
    ArchiveLoad load;
    load.device.RefuseNext(RunTimeErrorKind::OutOfMemory);
    load.Run(WriteSff1({Small(0, 0), Small(0, 1)}));
    EXPECT_THAT(load.Texts(), ElementsAre(HandleErrorText("Out of memory: the device has no room"),
                                          "PCX Error:  Group 0 Image 0\r\nSkipping sprite.."));
    ASSERT_EQ(load.model.SpriteCount, 1);
    EXPECT_EQ(load.Sprite(0).image, 1);
}

TEST(Sff2, PicturesOfThreePlanesLoadSayYoAndKeepTheKey) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0, 33), Shown(0, 1, WritePcx(TrueColorPicture(5, 6, 1))),
                        Shown(0, 2, WritePcx(TrueColorPicture(2, 2, 1))), Linked(0, 3, 1)}));
    EXPECT_THAT(load.Texts(), ElementsAre("yo...", "yo..."));
    ASSERT_EQ(load.model.SpriteCount, 4);
    for (const SpriteEntry& entry : load.model.Sprites) {
        EXPECT_EQ(entry.keyAlpha, 255);
        EXPECT_EQ(entry.keyRed, 0);
        EXPECT_EQ(entry.keyGreen, 33);
        EXPECT_EQ(entry.keyBlue, 255);
    }
    EXPECT_EQ(load.Sprite(1).width, 5);
    EXPECT_EQ(load.Sprite(1).height, 6);
    EXPECT_EQ(load.device.Created()[1].colorKey, Opaque({0, 33, 255}));
}

TEST(Sff2, SecondImageWithTheFlagUsesTheFirstOnesPalette) {
    const auto a = StripedPicture(8, 8, PaletteOf(1));
    const auto b = StripedPicture(9, 9, PaletteOf(2));
    Sff1Subfile first = Shown(0, 0, WritePcx(a));
    first.samePalette = true;  // and the first one reads its own all the same
    Sff1Subfile second = Shown(0, 1, WritePcx(b));
    second.samePalette = true;
    ArchiveLoad load;
    load.Run(WriteSff1({first, second}));
    EXPECT_EQ(load.Pixels(0), KeyedByIndex(a));
    EXPECT_EQ(load.Pixels(1), KeyedByIndex(b, a.palette));
    EXPECT_EQ(load.Sprite(1).keyGreen, 1);
}

TEST(Sff2, LinkedSubfilesBetweenLeaveThePalette) {
    const auto a = StripedPicture(8, 8, PaletteOf(1));
    Sff1Subfile sharing = Shown(0, 2, WritePcx(StripedPicture(8, 8, PaletteOf(2))));
    sharing.samePalette = true;
    ArchiveLoad load;
    load.Run(WriteSff1({Shown(0, 0, WritePcx(a)), Linked(0, 1, 0), sharing}));
    EXPECT_EQ(load.Pixels(2), KeyedByIndex(a));
}

TEST(Sff2, ANegativeLengthIsReported) {
    Sff1Subfile negative = Small(3, 4);
    negative.lengthSurplus = -2 * static_cast<std::int32_t>(negative.data.size());
    negative.samePalette = true;
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0), negative, Small(0, 1)}));
    EXPECT_THAT(load.Kinds(), ElementsAre(kMessageNegativeLength));
    EXPECT_EQ(load.model.SpriteCount, 3);
    EXPECT_EQ(load.Sprite(1).group, 3);
}

}  // namespace
}  // namespace scenara
