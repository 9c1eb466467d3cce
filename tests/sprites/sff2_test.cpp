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

namespace scenara::test {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
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

std::vector<std::string> NumbersOfAll(const ArchiveLoad& load) {
    std::vector<std::string> lines;
    for (const SpriteEntry& entry : load.model.Sprites) {
        lines.push_back(NumbersOf(entry));
    }
    return lines;
}

// Its groups in the order of the table, so that it is seen which subfile is where. Counts, and the
// index that each knows itself by, must agree.
std::vector<Long> GroupsOf(const ArchiveLoad& load) {
    EXPECT_EQ(static_cast<std::size_t>(load.model.SpriteCount), load.model.Sprites.size());
    std::vector<Long> groups;
    for (const SpriteEntry& entry : load.model.Sprites) {
        EXPECT_EQ(entry.selfIndex, static_cast<Integer>(groups.size()));
        groups.push_back(entry.group);
    }
    return groups;
}

TEST(Sff2, OneEntryPerSubfileInTheOrderOfTheChain) {
    const auto first = StripedPicture(8, 5, PaletteOf(10));
    const auto second = StripedPicture(3, 9, PaletteOf(20));
    Sff1Options options;
    options.fileOrder = {1, 0};
    ArchiveLoad load;
    load.Run(WriteSff1({WithAxis(Shown(-1, 32767, WritePcx(first)), -400, 500),
                        WithAxis(Shown(9000, -2, WritePcx(second)), 3, -4)},
                       options));

    EXPECT_THAT(load.Texts(), IsEmpty());
    EXPECT_EQ(load.model.SpriteCount, 2);
    EXPECT_THAT(NumbersOfAll(load),
                ElementsAre("-1,32767 axis -400,500 size 8,5 key 255,0,10,255 self,link 0,-1 "
                            "masked,reserved 0,0",
                            "9000,-2 axis 3,-4 size 3,9 key 255,0,20,255 self,link 1,-1 "
                            "masked,reserved 0,0"));
    EXPECT_EQ(load.Pixels(0), KeyedByIndex(first));
    EXPECT_EQ(load.Pixels(1), KeyedByIndex(second));
    EXPECT_EQ(load.model.LastImageWidth, 3);
    EXPECT_EQ(load.model.LastImageHeight, 9);
}

TEST(Sff2, MakesOneTexturePerPictureWithItsKey) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0, 1), Linked(0, 1, 0), Small(0, 2, 2)}));
    ASSERT_EQ(load.device.Created().size(), 2U);
    ExpectSpriteTexture(load.device.Created()[0], 4, 3, Opaque({0, 1, 255}));
    ExpectSpriteTexture(load.device.Created()[1], 4, 3, Opaque({0, 2, 255}));
    EXPECT_EQ(load.device.Counts().locks, load.device.Counts().unlocks);
}

TEST(Sff2, AppendsToTheTable) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0)}));
    load.Run(WriteSff1({Small(5, 5)}));
    EXPECT_THAT(GroupsOf(load), ElementsAre(0, 5));
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

TEST(Sff2, LinkedEntriesShareThePictureAndKeepTheirOwnNumbers) {
    ArchiveLoad load;
    load.model.Elements = {Element("normal", 1, 0, 0), Element("parallax", 1, 8, 1)};
    load.Run(WriteSff1({WithAxis(Small(0, 0, 40), 11, 12), Small(0, 1, 50),
                        WithAxis(Linked(7, 8, 0), -21, -22), Linked(8, 1, 1), Linked(9, 9, 2)}));

    // The mask is that of their own numbers, not the target's.
    EXPECT_THAT(
        NumbersOfAll(load),
        ElementsAre("0,0 axis 11,12 size 4,3 key 255,0,40,255 self,link 0,-1 masked,reserved 1,0",
                    "0,1 axis 0,0 size 4,3 key 255,0,50,255 self,link 1,-1 masked,reserved 0,0",
                    "7,8 axis -21,-22 size 4,3 key 255,0,40,255 self,link 2,0 masked,reserved 0,0",
                    "8,1 axis 0,0 size 4,3 key 255,0,50,255 self,link 3,1 masked,reserved 1,0",
                    "9,9 axis 0,0 size 4,3 key 255,0,40,255 self,link 4,2 masked,reserved 0,0"));
    EXPECT_EQ(load.Sprite(2).texture, load.Sprite(0).texture);
    EXPECT_EQ(load.Sprite(3).texture, load.Sprite(1).texture);
    EXPECT_EQ(load.Sprite(4).texture, load.Sprite(0).texture) << "a link to a linked entry";
    EXPECT_THAT(load.Texts(), IsEmpty());
    // Each texture goes when the last entry with it goes.
    const std::weak_ptr<Direct3DTexture8> texture = load.Sprite(0).texture;
    load.model.Clear();
    EXPECT_TRUE(texture.expired());
}

// The archive means subfile 2 (group 2) and subfile 1 (group 1); subfile 1 was dropped, so that the
// positions are those of groups 3 and 2.
TEST(Sff2, LinkIndexIsAPositionInSprites) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0), Shown(1, 0, BrokenPcx()), Small(2, 0), Small(3, 0),
                        Linked(50, 0, 2), Linked(51, 0, 1), Linked(52, 0, 0)}));
    EXPECT_THAT(GroupsOf(load), ElementsAre(0, 2, 3, 50, 51, 52));
    for (const auto& [entry, target] : {std::pair{3U, 2U}, {4U, 1U}, {5U, 0U}}) {
        EXPECT_EQ(load.Sprite(entry).texture, load.Sprite(target).texture);
        EXPECT_EQ(load.Sprite(entry).linkedTo, static_cast<Integer>(target));
    }
}

// Subfile 1 links to itself, to the one behind it, and to what is not there.
TEST(Sff2, ABadLinkIsSaidAndSkipped) {
    for (const int link : {1, 2, 3, 32767, -1, -32768}) {
        SCOPED_TRACE(link);
        ArchiveLoad load;
        load.Run(WriteSff1(
            {Small(0, 0), Linked(-6, 7, static_cast<std::int16_t>(link)), Small(1, 0, 9)}));
        EXPECT_THAT(load.Kinds(), ElementsAre(kMessageLinkError));
        EXPECT_THAT(load.Texts(), ElementsAre(AllOf(StartsWith("Link Error:  Group -6 Image 7\r\n"),
                                                    HasSubstr(" " + std::to_string(link) + " "),
                                                    HasSubstr("Skipping sprite.."))));
        EXPECT_THAT(GroupsOf(load), ElementsAre(0, 1));
    }
}

TEST(Sff2, AFirstSubfileThatIsLinkedHasNothingToLinkTo) {
    ArchiveLoad load;
    load.Run(WriteSff1({Linked(1, 2, 0), Small(3, 4)}));
    EXPECT_THAT(load.Kinds(), ElementsAre(kMessageLinkError));
    EXPECT_THAT(GroupsOf(load), ElementsAre(3));
}

TEST(Sff2, APictureThatFailsIsDroppedAndTheNextIsLoaded) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0), Shown(-12, 345, BrokenPcx()), Small(2, 0)}));
    EXPECT_THAT(load.Kinds(), ElementsAre(kMessageLoadPcx, kMessagePcxError));
    EXPECT_THAT(load.Texts(), ElementsAre(StartsWith(HandleErrorText("")),
                                          "PCX Error:  Group -12 Image 345\r\nSkipping sprite.."));
    EXPECT_THAT(GroupsOf(load), ElementsAre(0, 2));
    EXPECT_THAT(load.messages.Recorded(),
                Each(AllOf(Field(&Message::title, ""), Field(&Message::icon, MessageIcon::None))));
}

TEST(Sff2, TheOnlyImageThatFailsHasItsOwnMessage) {
    ArchiveLoad load;
    load.Run(WriteSff1({Shown(1, 2, BrokenPcx())}));
    EXPECT_THAT(GroupsOf(load), IsEmpty());
    EXPECT_THAT(load.Kinds(), ElementsAre(kMessageLoadPcx, kMessagePcxError, kMessageOnlyImage));
    EXPECT_EQ(load.Texts()[1], "PCX Error:  Group 1 Image 2\r\nSkipping sprite..");
    EXPECT_EQ(load.Texts()[2], "Oh, and that was the only image!  Just pretend it's really dark!");

    ArchiveLoad two;
    two.Run(WriteSff1({Shown(1, 2, BrokenPcx()), Shown(1, 3, BrokenPcx())}));
    EXPECT_THAT(GroupsOf(two), IsEmpty());
    EXPECT_THAT(two.Kinds(),
                ElementsAre(kMessageLoadPcx, kMessagePcxError, kMessageLoadPcx, kMessagePcxError));
}

TEST(Sff2, PicturesOfThreePlanesLoadSayYoAndKeepTheKey) {
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0, 33), Shown(0, 1, WritePcx(TrueColorPicture(5, 6, 1))),
                        Shown(0, 2, WritePcx(TrueColorPicture(2, 2, 1))), Linked(0, 3, 1)}));
    EXPECT_THAT(load.Texts(), ElementsAre("yo...", "yo..."));
    EXPECT_THAT(NumbersOfAll(load), ElementsAre(HasSubstr("size 4,3 key 255,0,33,255"),
                                                HasSubstr("size 5,6 key 255,0,33,255"),
                                                HasSubstr("size 2,2 key 255,0,33,255"),
                                                HasSubstr("size 5,6 key 255,0,33,255")));
    EXPECT_EQ(load.device.Created()[1].colorKey, Opaque({0, 33, 255}));
}

TEST(Sff2, LinkedSubfilesLeaveThePaletteAndAreNotTheLastImageDecoded) {
    const auto a = StripedPicture(8, 8, PaletteOf(1));
    ArchiveLoad load;
    load.Run(WriteSff1(
        {Shown(0, 0, WritePcx(a)), Linked(0, 1, 0), Sharing(Small(0, 2, 2)), Linked(0, 3, 0)}));
    EXPECT_EQ(load.Pixels(2), KeyedByIndex(StripedPicture(4, 3, a.palette)));
    EXPECT_EQ(load.model.LastImageWidth, 4);
    EXPECT_EQ(load.model.LastImageHeight, 3);
}

TEST(Sff2, ANegativeLengthIsReported) {
    Sff1Subfile negative = Small(3, 4);
    negative.lengthSurplus = -2 * static_cast<std::int32_t>(negative.data.size());
    negative.samePalette = true;
    ArchiveLoad load;
    load.Run(WriteSff1({Small(0, 0), negative, Small(0, 1)}));
    EXPECT_THAT(load.Kinds(), ElementsAre(kMessageNegativeLength));
    EXPECT_THAT(GroupsOf(load), ElementsAre(0, 3, 0));
}

}  // namespace
}  // namespace scenara::test
