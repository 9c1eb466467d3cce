// SPDX-License-Identifier: MIT
//
// ReadKeyValue with the key "!@!": lines of bare values, as the frames of an action are.
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "KeyReading.h"
#include "stage/ReadKeyValue.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Bare(std::string_view line, Integer valueIndex) {
    return TextOf(line, kBareValues, valueIndex);
}

TEST(ReadKeyValue, BareLineGivesItsValues) {
    constexpr std::string_view line = "10,1, -4,8, 6, H";
    EXPECT_EQ(Bare(line, 1), "10");
    EXPECT_EQ(Bare(line, 2), "1");
    EXPECT_EQ(Bare(line, 3), "-4");
    EXPECT_EQ(Bare(line, 4), "8");
    EXPECT_EQ(Bare(line, 5), "6");
    EXPECT_EQ(Bare(line, 6), "h");
    EXPECT_EQ(Bare(line, 7), kAbsent);
}

TEST(ReadKeyValue, BareLineNeedsNoEqualsSign) {
    EXPECT_EQ(Bare("= 3, 4", 1), "0");  // the whole line stays
    EXPECT_EQ(Bare("= 3, 4", 2), "4");
}

TEST(ReadKeyValue, EmptyBareLineIsNotFound) {
    EXPECT_EQ(Bare("", 1), kAbsent);
}

TEST(ReadKeyValue, BareLineWithoutCommaGivesItsWholeText) {
    const TextReading read = ReadText("7 8", kBareValues, 1);
    EXPECT_EQ(read.value, "7");
    EXPECT_EQ(read.found, kTrue);
    EXPECT_EQ(read.valueIndex, 0);
    EXPECT_EQ(Bare("7 8", 2), kAbsent);
}

TEST(ReadKeyValue, CommentBehindBareValuesIsCutOff) {
    EXPECT_EQ(Bare("1, 2 ; 3, 4", 2), "2");
    EXPECT_EQ(Bare("1, 2 ; 3, 4", 3), kAbsent);
}

TEST(ReadKeyValue, CommentBeforeTheFirstCommaOfABareLineSaysPosZero) {
    const TextReading read = ReadText("1 ; 2, 3", kBareValues, 1);
    EXPECT_EQ(read.found, kFalse);
    EXPECT_EQ(read.value, kBefore);
    EXPECT_THAT(read.messages, ElementsAre("pos=0"));
    EXPECT_THAT(ReadText("; 1, 2", kBareValues, 2).messages, ElementsAre("pos=0"));
}

TEST(ReadKeyValue, BareKeyOnTheLineItselfMustStandFirst) {
    EXPECT_EQ(Bare("!@! 1, 2", 2), "2");
    EXPECT_EQ(Bare("1, !@!", 1), kAbsent);
}

TEST(ReadKeyValue, DoomFixStoresZeroWhenFifthValueIsH) {
    const Reading<Integer> read = Read<Integer>("0,0, 0,0, h", kBareValues, 5, 77);
    EXPECT_EQ(read.found, kFalse);
    EXPECT_EQ(read.value, 0);
    EXPECT_THAT(read.messages, ElementsAre("DOOM FIX"));
}

TEST(ReadKeyValue, DoomFixTakesACapitalH) {
    const Reading<Integer> read =
        Read<Integer>("0,0, 0,0,  H  ", kBareValues, 5, 77, {.keepCase = kTrue});
    EXPECT_EQ(read.found, kFalse);
    EXPECT_EQ(read.value, 0);
    EXPECT_THAT(read.messages, ElementsAre("DOOM FIX"));
}

TEST(ReadKeyValue, DoomFixNeedsTheLastValue) {
    const Reading<Integer> read = Read<Integer>("0,0, 0,0, h, 1", kBareValues, 5, 77);
    EXPECT_EQ(read.found, kTrue);
    EXPECT_EQ(read.value, 0);
    EXPECT_THAT(read.messages, IsEmpty());
}

TEST(ReadKeyValue, DoomFixNeedsTheFifthValue) {
    for (const Integer index : {Integer{2}, Integer{4}, Integer{6}}) {
        std::string line = "h";
        for (Integer i = 1; i < index; ++i) {
            line.insert(0, "0,");
        }
        const TextReading read = ReadText(line, kBareValues, index);
        EXPECT_EQ(read.value, "h") << line;
        EXPECT_EQ(read.found, kTrue) << line;
        EXPECT_THAT(read.messages, IsEmpty()) << line;
    }
}

TEST(ReadKeyValue, DoomFixNeedsHAlone) {
    EXPECT_EQ(Bare("0,0, 0,0, hv", 5), "hv");
    EXPECT_EQ(Bare("0,0, 0,0, v", 5), "v");
}

TEST(ReadKeyValue, DoomFixLineHasNoSixthValue) {
    EXPECT_EQ(Bare("0,0, 0,0, h", 6), kAbsent);
}

TEST(ReadKeyValue, MissingTimeIsAbsentAndSilent) {
    for (const std::string_view line : {"0,0, 0,0", "0,0, 0,0,", "0,0, 0,0, ."}) {
        const Reading<Integer> read = Read<Integer>(line, kBareValues, 5, 77);
        EXPECT_EQ(read.found, kFalse) << line;
        EXPECT_EQ(read.value, 77) << line;
        EXPECT_THAT(read.messages, IsEmpty()) << line;
    }
}

TEST(ReadKeyValue, EmptyFlipBetweenCommasIsAnEmptyText) {
    EXPECT_EQ(Bare("0,0, 0,0, 5, , A", 6), "");
}

TEST(ReadKeyValue, BothMessagesArePlainBoxes) {
    HeadlessMessages messages;
    std::string field;
    Integer found = kFalse;
    for (const std::string_view line : {"1 ; 2, 3", "0,0,0,0,h"}) {
        Integer index = 5;
        ReadKeyValue(line, kBareValues, field, index, kFalse, kFalse, found, messages);
    }
    ASSERT_EQ(messages.Recorded().size(), 2U);
    for (const Message& message : messages.Recorded()) {
        EXPECT_EQ(message.title, "");
        EXPECT_EQ(message.icon, MessageIcon::None);
    }
    EXPECT_EQ(messages.Recorded()[0].kind, kMessagePosZero);
    EXPECT_EQ(messages.Recorded()[1].kind, kMessageDoomFix);
}

}  // namespace
}  // namespace scenara::test
