// SPDX-License-Identifier: MIT
#include "stage/Blending.h"

#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace scenara {
namespace {

std::string Words(const Blending& blending) {
    switch (blending.kind) {
        case BlendKind::None: return "none";
        case BlendKind::Add: return "add";
        case BlendKind::Add1: return "add1";
        case BlendKind::Sub: return "sub";
        default: break;
    }
    return "addalpha " + std::to_string(blending.source) + "," +
           std::to_string(blending.destination);
}

std::string OfElement(std::string_view trans, Integer source = 256,
                      std::optional<Integer> destination = std::nullopt) {
    return Words(ElementBlending(trans, source, destination));
}

std::string OfFrame(std::string_view text) {
    return Words(FrameBlending(text));
}

TEST(ElementBlending, IsWhatTransSays) {
    EXPECT_EQ(OfElement("add"), "add");
    EXPECT_EQ(OfElement("add1"), "add1");
    EXPECT_EQ(OfElement("sub"), "sub");
    EXPECT_EQ(OfElement("addalpha"), "addalpha 256,0");
}

TEST(ElementBlending, OfOtherWordsIsNone) {
    for (const char* const word : {"none", "", "default", "normal", "0", "1", "ad", "su", "xadd"}) {
        EXPECT_EQ(OfElement(word), "none") << word;
    }
}

TEST(ElementBlending, AddAndAddalphaTakeTheValuesOfAlpha) {
    EXPECT_EQ(OfElement("addalpha", 100, 200), "addalpha 100,200");
    EXPECT_EQ(OfElement("add", 100, 200), "addalpha 100,200");
    for (const char* const word : {"add1", "sub", "none"}) {
        EXPECT_EQ(OfElement(word, 100, 200), word);
    }
}

TEST(ElementBlending, AddWithTheWholeOfBothIsPlainAdd) {
    EXPECT_EQ(OfElement("add", 256, 256), "add");
    EXPECT_EQ(OfElement("add", 999, 999), "add");
    EXPECT_EQ(OfElement("addalpha", 256, 256), "addalpha 256,256");
}

TEST(ElementBlending, WithoutADestinationItIs256ForAddAnd0ForAddalpha) {
    EXPECT_EQ(OfElement("add", 100), "addalpha 100,256");
    EXPECT_EQ(OfElement("addalpha", 100), "addalpha 100,0");
}

TEST(ElementBlending, PartsAreKeptWithin0And256) {
    EXPECT_EQ(OfElement("add", 257, -1), "addalpha 256,0");
    EXPECT_EQ(OfElement("add", -5, 300), "addalpha 0,256");
    EXPECT_EQ(OfElement("addalpha", 0, 256), "addalpha 0,256");
    EXPECT_EQ(OfElement("addalpha", 257, -1), "addalpha 256,0");
    EXPECT_EQ(OfElement("addalpha", 32767, -32768), "addalpha 256,0");
    EXPECT_EQ(OfElement("addalpha", -32768, 32767), "addalpha 0,256");
}

struct FrameRow {
    const char* text;
    const char* blending;
};

TEST(FrameBlending, IsDecidedByItsBeginning) {
    for (const FrameRow& row : {
             FrameRow{"a", "add"},
             {"add", "add"},
             {"a2", "add"},
             {"alpha", "add"},
             FrameRow{"a1", "add1"},
             {"add1", "add1"},
             {"a128", "add1"},
             FrameRow{"s", "sub"},
             {"sub", "sub"},
             {"s1", "sub"},
             FrameRow{"as128d64", "addalpha 128,64"},
             {"as256d0", "addalpha 256,0"},
             FrameRow{"as0d256", "addalpha 0,256"},
             {"as020d100", "addalpha 20,100"},
             FrameRow{"as128d64x", "addalpha 128,64"},
             // Without a destination, without numbers.
             FrameRow{"as128", "addalpha 128,0"},
             {"as128d", "addalpha 128,0"},
             FrameRow{"as", "add"},
             {"asd128", "add"},
             {"as-5d5", "add"},
         }) {
        EXPECT_EQ(OfFrame(row.text), row.blending) << row.text;
    }
}

TEST(FrameBlending, PartsAreKeptWithin0And256) {
    EXPECT_EQ(OfFrame("as300d999"), "addalpha 256,256");
    EXPECT_EQ(OfFrame("as5d-5"), "addalpha 5,0");
    EXPECT_EQ(OfFrame("as99999999999999999999d1e400"), "addalpha 256,256");
}

TEST(FrameBlending, OfAnythingElseIsNone) {
    for (const char* const text : {"", "h", "v", "hv", "0", "1", "b", "d128", "none", "1a"}) {
        EXPECT_EQ(OfFrame(text), "none") << text;
    }
}

TEST(FramesBlend, WhereTheElementSaysNothingOrBelowVersion1None) {
    for (const bool belowVersion1 : {false, true}) {
        EXPECT_TRUE(FramesBlend("", belowVersion1));
        EXPECT_TRUE(FramesBlend("default", belowVersion1));
        EXPECT_EQ(FramesBlend("none", belowVersion1), belowVersion1);
        for (const char* const trans : {"add", "add1", "sub", "addalpha", "0", "strange"}) {
            EXPECT_FALSE(FramesBlend(trans, belowVersion1)) << trans;
        }
    }
}

}  // namespace
}  // namespace scenara
