// SPDX-License-Identifier: MIT
#include "stage/Blending.h"

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

std::string OfElement(std::string_view trans, Integer source = 256, Integer destination = 0) {
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

TEST(ElementBlending, OnlyAddalphaTakesTheValuesOfAlpha) {
    EXPECT_EQ(OfElement("addalpha", 100, 200), "addalpha 100,200");
    for (const char* const word : {"add", "add1", "sub", "none"}) {
        EXPECT_EQ(OfElement(word, 100, 200), word);
    }
}

TEST(ElementBlending, PartsAreKeptWithin0And256) {
    EXPECT_EQ(OfElement("addalpha", 0, 256), "addalpha 0,256");
    EXPECT_EQ(OfElement("addalpha", 257, -1), "addalpha 256,0");
    EXPECT_EQ(OfElement("addalpha", 32767, -32768), "addalpha 256,0");
    EXPECT_EQ(OfElement("addalpha", -32768, 32767), "addalpha 0,256");
}

TEST(FrameBlending, IsALetterOrTwo) {
    EXPECT_EQ(OfFrame("a"), "add");
    EXPECT_EQ(OfFrame("a1"), "add1");
    EXPECT_EQ(OfFrame("s"), "sub");
}

TEST(FrameBlending, AsWithNumbersAreThePartsOfSourceAndDestination) {
    EXPECT_EQ(OfFrame("as128d128"), "addalpha 128,128");
    EXPECT_EQ(OfFrame("as256d0"), "addalpha 256,0");
    EXPECT_EQ(OfFrame("as0d256"), "addalpha 0,256");
    EXPECT_EQ(OfFrame("as020d100"), "addalpha 20,100");
}

TEST(FrameBlending, PartsAreKeptWithin0And256) {
    EXPECT_EQ(OfFrame("as300d999"), "addalpha 256,256");
    EXPECT_EQ(OfFrame("as-5d-0"), "addalpha 0,0");
    EXPECT_EQ(OfFrame("as99999999999999999999d1e400"), "addalpha 256,256");
}

TEST(FrameBlending, OfAnythingElseIsNone) {
    for (const char* const text :
         {"", "h", "v", "hv", "0", "1", "b", "a2", "as", "as128", "d128", "s1", "sub", "add"}) {
        EXPECT_EQ(OfFrame(text), "none") << text;
    }
}

}  // namespace
}  // namespace scenara
