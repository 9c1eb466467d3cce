// SPDX-License-Identifier: MIT
#include "stage/ReadKeyValue.h"

#include <limits>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Around.h"
#include "KeyReading.h"
#include "base/RunTimeError.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Whether the key stands on the line

TEST(ReadKeyValue, EmptyLineIsNotFound) {
    const TextReading read = ReadText("", "type", 0);
    EXPECT_EQ(read.found, kFalse);
    EXPECT_EQ(read.value, kBefore);
}

TEST(ReadKeyValue, LineWithoutTheKeyIsNotFound) {
    EXPECT_EQ(TextOf("mask = 1", "type"), kAbsent);
    EXPECT_EQ(TextOf("=", "type"), kAbsent);
    EXPECT_EQ(TextOf("typ", "type"), kAbsent);
}

TEST(ReadKeyValue, FoundIsMinusOneOrZeroWhateverItWas) {
    EXPECT_EQ(ReadText("type = a", "type", 0).found, -1);
    EXPECT_EQ(ReadText("mask = a", "type", 0).found, 0);
}

TEST(ReadKeyValue, KeysMatchWithoutRegardToCase) {
    EXPECT_EQ(TextOf("SPRITENO = 5", "spriteno"), "5");
    EXPECT_EQ(TextOf("SpriteNo = 5", "spriteno"), "5");
    EXPECT_EQ(TextOf("  SpriteNo = 5", "spriteno"), "5");
}

TEST(ReadKeyValue, BlanksMayStandBeforeTheKey) {
    EXPECT_EQ(TextOf(" layerno = 1", "layerno"), "1");
    EXPECT_EQ(TextOf("          layerno = 1", "layerno"), "1");
}

TEST(ReadKeyValue, LetterBeforeTheKeyIsNotFound) {
    EXPECT_EQ(TextOf("xlayerno = 1", "layerno"), kAbsent);
    EXPECT_EQ(TextOf("  x layerno = 1", "layerno"), kAbsent);
    EXPECT_EQ(TextOf("displayname = 1", "name"), kAbsent);
}

TEST(ReadKeyValue, TabBeforeTheKeyIsNotFound) {
    EXPECT_EQ(TextOf("\tlayerno = 1", "layerno"), kAbsent);
    EXPECT_EQ(TextOf(" \tlayerno = 1", "layerno"), kAbsent);
}

TEST(ReadKeyValue, CommentedOutKeyIsNotFoundAndSilent) {
    const TextReading read = ReadText("; layerno = 1", "layerno", 0);
    EXPECT_EQ(read.found, kFalse);
    EXPECT_THAT(read.messages, IsEmpty());
}

TEST(ReadKeyValue, OnlyABlankMayStandBeforeTheKey) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string line = Around("", byte, "k = 5");
        EXPECT_EQ(TextOf(line, "k"), byte == ' ' ? "5" : kAbsent) << "byte " << byte;
    }
}

TEST(ReadKeyValue, KeyInOtherCaseMayFollowAnything) {
    EXPECT_EQ(TextOf("p2StartX = 70", "startx"), "70");
    EXPECT_EQ(TextOf("displayName = abc", "name"), "abc");
    EXPECT_EQ(TextOf("\tLayerNo = 1", "layerno"), "1");
    EXPECT_EQ(TextOf("xLAYERNO = 1", "layerno"), "1");
}

TEST(ReadKeyValue, KeyInOtherCaseWithTheKeyItselfFurtherBehindIsNotFound) {
    EXPECT_EQ(TextOf("Name = my name", "name"), kAbsent);
    EXPECT_EQ(TextOf("LAYERNO layerno = 1", "layerno"), kAbsent);
}

TEST(ReadKeyValue, OnlyTheFirstPlaceOfTheKeyCounts) {
    EXPECT_EQ(TextOf("layernox layerno = 1", "layerno"), kAbsent);
    EXPECT_EQ(TextOf("startx = 1 start = 2", "start"), kAbsent);
}

TEST(ReadKeyValue, EqualsSignOrBlankStandsRightBehindTheKey) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string line = Around("k", byte, "= 5, 6");
        EXPECT_EQ(TextOf(line, "k", 2), byte == ' ' || byte == '=' ? "6" : kAbsent)
            << "byte " << byte;
    }
}

TEST(ReadKeyValue, LongerKeyIsNotFound) {
    EXPECT_EQ(TextOf("layernox = 1", "layerno"), kAbsent);
    EXPECT_EQ(TextOf("startx = 1", "start"), kAbsent);
    EXPECT_EQ(TextOf("windowdelta = 1, 2", "window", 1), kAbsent);
}

TEST(ReadKeyValue, KeyAtTheLineEndIsNotFound) {
    EXPECT_EQ(TextOf("layerno", "layerno"), kAbsent);
    EXPECT_EQ(TextOf("  layerno", "layerno"), kAbsent);
}

TEST(ReadKeyValue, KeyWithoutEqualsSignIsNotFound) {
    EXPECT_EQ(TextOf("layerno 1", "layerno"), kAbsent);
    EXPECT_EQ(TextOf("layerno 1 ; = 2", "layerno"), kAbsent);
}

TEST(ReadKeyValue, FirstEqualsSignAtOrBehindTheKeyCounts) {
    EXPECT_EQ(TextOf("name = a = b", "name"), "a = b");
    EXPECT_EQ(TextOf("name behind = b", "name"), "b");
    EXPECT_EQ(TextOf("a = b NAME = c", "name"), "c");
}

// What the value is taken from

TEST(ReadKeyValue, ValueArrivesInLowerCase) {
    EXPECT_EQ(TextOf("name = My STAGE", "name"), "my stage");
}

TEST(ReadKeyValue, KeepCaseKeepsTheCase) {
    EXPECT_EQ(TextOf("name = My STAGE", "name", 0, {.keepCase = kTrue}), "My STAGE");
    EXPECT_EQ(TextOf("NAME = My STAGE", "name", 0, {.keepCase = kTrue}), "My STAGE");
}

TEST(ReadKeyValue, EveryByteMayStandInAValue) {
    for (int byte = 0; byte < 256; ++byte) {
        const bool ends = byte == ';' || byte == 0x81;
        EXPECT_EQ(TextOf(Around("k = A", byte, "Z"), "k", 0, {.keepCase = kTrue}),
                  ends ? "A" : Around("A", byte, "Z"))
            << "byte " << byte;
    }
}

TEST(ReadKeyValue, OnlyTheLettersAToZChangeCase) {
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != ';' && byte != 0x81) {
            const bool upper = byte >= 'A' && byte <= 'Z';
            EXPECT_EQ(TextOf(Around("k = <", byte, ">"), "k"),
                      Around("<", upper ? byte + 32 : byte, ">"))
                << "byte " << byte;
        }
    }
}

TEST(ReadKeyValue, LineEndsBeforeByte81) {
    EXPECT_EQ(TextOf("name = ab\x81 cd", "name"), "ab");
    EXPECT_EQ(TextOf("start = 12\x81, 5", "start", 1), "12");
    EXPECT_EQ(TextOf("start = 12\x81, 5", "start", 2), kAbsent);
}

TEST(ReadKeyValue, KeyBehindByte81SaysPosZero) {
    const TextReading read = ReadText("\x81NAME = x", "name", 1);
    EXPECT_EQ(read.found, kFalse);
    EXPECT_EQ(read.value, kBefore);
    EXPECT_THAT(read.messages, ElementsAre("pos=0"));
}

TEST(ReadKeyValue, KeyBehindByte81IsSilentForLaterValues) {
    const TextReading read = ReadText("\x81NAME = 1, 2", "name", 2);
    EXPECT_EQ(read.found, kFalse);
    EXPECT_THAT(read.messages, IsEmpty());
}

TEST(ReadKeyValue, CommentBeforeAKeyInOtherCaseSaysPosZero) {
    const TextReading read = ReadText("; START = 5", "start", 0);
    EXPECT_EQ(read.found, kFalse);
    EXPECT_EQ(read.value, kBefore);
    EXPECT_THAT(read.messages, ElementsAre("pos=0"));
}

TEST(ReadKeyValue, CommentIsCutOff) {
    EXPECT_EQ(TextOf("  layerno=1 ; front", "layerno"), "1");
    EXPECT_EQ(TextOf("name = a ; b ; c", "name"), "a");
    EXPECT_EQ(TextOf("name = ; nothing", "name"), "");
}

TEST(ReadKeyValue, CommentBehindAKeyBehindManyBlanksIsCutOff) {
    EXPECT_EQ(TextOf("                    id=5 ; its name", "id"), "5");
}

// Value 0, the whole one

TEST(ReadKeyValue, WholeValueIsTrimmed) {
    EXPECT_EQ(TextOf("name=abc", "name"), "abc");
    EXPECT_EQ(TextOf("name =    abc   ", "name"), "abc");
}

TEST(ReadKeyValue, WholeValueEndsAtABlankBehindADigit) {
    EXPECT_EQ(TextOf("layerno = 1 2", "layerno"), "1");
    EXPECT_EQ(TextOf("layerno = 5 10", "layerno"), "5");
    EXPECT_EQ(TextOf("name = stage2 by night", "name"), "stage2");
}

TEST(ReadKeyValue, WholeValueKeepsABlankBehindALetter) {
    EXPECT_EQ(TextOf("name = my stage", "name"), "my stage");
}

TEST(ReadKeyValue, OnlyTheFirstBlankOfAWholeValueIsLookedAt) {
    EXPECT_EQ(TextOf("name = my stage 2 by night", "name"), "my stage 2 by night");
}

TEST(ReadKeyValue, WholeValueMayHoldCommas) {
    EXPECT_EQ(TextOf("versiondate = 09,30,2009", "versiondate"), "09,30,2009");
    EXPECT_EQ(TextOf("name = a, b", "name"), "a, b");
}

TEST(ReadKeyValue, EmptyWholeValueIsFound) {
    EXPECT_EQ(TextOf("name =", "name"), "");
    EXPECT_EQ(TextOf("name =    ", "name"), "");
}

// Value 1, a number

TEST(ReadKeyValue, FirstAndLaterValues) {
    EXPECT_EQ(NumberOf("spriteno = 10, 3", "spriteno", 1), 10.0F);
    EXPECT_EQ(NumberOf("spriteno = 10, 3", "spriteno", 2), 3.0F);
    EXPECT_EQ(NumberOf("spriteno = 10, 3", "spriteno", 3), kNoNumber);
}

TEST(ReadKeyValue, FirstValueIsReadLeniently) {
    EXPECT_EQ(NumberOf("start = 12abc, 1", "start", 1), 12.0F);
    EXPECT_EQ(NumberOf("start = -.5, 1", "start", 1), -0.5F);
    EXPECT_EQ(NumberOf("start = abc, 1", "start", 1), 0.0F);
    EXPECT_EQ(NumberOf("start =   7  , 1", "start", 1), 7.0F);
    EXPECT_EQ(NumberOf("start = 1 2, 3", "start", 1), 1.0F);
}

TEST(ReadKeyValue, EmptyFirstValueIsZero) {
    EXPECT_EQ(NumberOf("start = ,5", "start", 1), 0.0F);
    EXPECT_EQ(TextOf("start = ,5", "start", 2), "5");
}

TEST(ReadKeyValue, FirstValueArrivesAsANumberInATextField) {
    EXPECT_EQ(TextOf("start = 007.50, 1", "start", 1), "7.5");
    EXPECT_EQ(TextOf("start = x, 1", "start", 1), "0");
}

TEST(ReadKeyValue, IndexOneBecomesZeroOnALineWithoutComma) {
    const TextReading read = ReadText("start = 12 13", "start", 1);
    EXPECT_EQ(read.valueIndex, 0);
    EXPECT_EQ(read.value, "12");
    EXPECT_EQ(read.found, kTrue);
}

TEST(ReadKeyValue, IndexOneStaysOnALineWithComma) {
    EXPECT_EQ(ReadText("start = 12, 13", "start", 1).valueIndex, 1);
}

TEST(ReadKeyValue, IndexOneStaysOnALineOfAnotherKey) {
    EXPECT_EQ(ReadText("delta = 12", "start", 1).valueIndex, 1);
}

TEST(ReadKeyValue, CommaInACommentKeepsIndexOne) {
    const TextReading read = ReadText("start = 12 ; x, y", "start", 1);
    EXPECT_EQ(read.valueIndex, 1);
    EXPECT_EQ(read.value, "12");
}

// Values 2 and up

TEST(ReadKeyValue, LaterValueOnALineWithoutCommaIsNotFound) {
    const TextReading read = ReadText("start = 12", "start", 2);
    EXPECT_EQ(read.found, kFalse);
    EXPECT_EQ(read.valueIndex, 2);
    EXPECT_EQ(read.value, kBefore);
}

TEST(ReadKeyValue, CommaInACommentGivesNoValue) {
    EXPECT_EQ(TextOf("start = 12 ; x, y", "start", 2), kAbsent);
}

TEST(ReadKeyValue, MiddleValueEndsAtABlankBehindItsFirstCharacter) {
    EXPECT_EQ(TextOf("k = 1,   22   , 3", "k", 2), "22");
    EXPECT_EQ(TextOf("k = 1, ab cd, 3", "k", 2), "ab");
}

TEST(ReadKeyValue, EmptyMiddleValueIsFound) {
    EXPECT_EQ(TextOf("k = 1,, 3", "k", 2), "");
    EXPECT_EQ(TextOf("k = 1,   , 3", "k", 2), "");
    EXPECT_EQ(NumberOf("k = 1,   , 3", "k", 2), 0.0F);
}

TEST(ReadKeyValue, LoneStopAsAMiddleValueIsFound) {
    EXPECT_EQ(TextOf("k = 1, ., 3", "k", 2), ".");
}

TEST(ReadKeyValue, LastValueEndsAtABlankBehindItsFirstCharacter) {
    EXPECT_EQ(TextOf("k = 1,   22   ", "k", 2), "22");
    EXPECT_EQ(TextOf("k = 1, ab cd", "k", 2), "ab");
}

TEST(ReadKeyValue, EmptyLastValueIsAbsent) {
    EXPECT_EQ(TextOf("k = 1,", "k", 2), kAbsent);
    EXPECT_EQ(TextOf("k = 1,    ", "k", 2), kAbsent);
    EXPECT_EQ(TextOf("k = 1, ; 5", "k", 2), kAbsent);
}

TEST(ReadKeyValue, LoneStopAsTheLastValueIsAbsent) {
    EXPECT_EQ(TextOf("k = 1, .", "k", 2), kAbsent);
    EXPECT_EQ(TextOf("k = 1,  .  ", "k", 2), kAbsent);
    EXPECT_EQ(TextOf("k = 1, .5", "k", 2), ".5");
}

TEST(ReadKeyValue, TabIsNoBlankInAValue) {
    EXPECT_EQ(TextOf("k = 1,\ta\tb, 3", "k", 2), "\ta\tb");
}

TEST(ReadKeyValue, AnyValueNumberCanBeAskedFor) {
    std::string line = "k = 0";
    for (int i = 1; i < 40'000; ++i) {
        line.append(",").append(std::to_string(i));
    }
    EXPECT_EQ(TextOf(line, "k", 10), "9");
    EXPECT_EQ(TextOf(line, "k", std::numeric_limits<Integer>::max()), "32766");
}

// numericOnly

TEST(ReadKeyValue, NumericOnlyDropsWhatFollowsTheLastDigit) {
    EXPECT_EQ(TextOf("width = 12px", "width", 0, {.numericOnly = kTrue}), "12");
    EXPECT_EQ(TextOf("width = 12.5 px!", "width", 0, {.numericOnly = kTrue}), "12.5");
    EXPECT_EQ(TextOf("width = a1b2c", "width", 0, {.numericOnly = kTrue}), "a1b2");
    EXPECT_EQ(TextOf("width = 10, 3abc", "width", 2, {.numericOnly = kTrue}), "3");
}

TEST(ReadKeyValue, NumericOnlyKeepsAWholeNumber) {
    EXPECT_EQ(TextOf("width = -12", "width", 0, {.numericOnly = kTrue}), "-12");
    EXPECT_EQ(TextOf("width = 12.", "width", 0, {.numericOnly = kTrue}), "12.");
}

TEST(ReadKeyValue, WithoutNumericOnlyAllIsKept) {
    EXPECT_EQ(TextOf("width = 12px", "width"), "12px");
}

// Fields

TEST(ReadKeyValue, IntegersRoundToTheNearestTiesToEven) {
    EXPECT_EQ(Read<Integer>("k = 7.6", "k", 0, 9).value, 8);
    EXPECT_EQ(Read<Integer>("k = 2.5", "k", 0, 9).value, 2);
    EXPECT_EQ(Read<Integer>("k = 3.5, 0", "k", 1, 9).value, 4);
    EXPECT_EQ(Read<Long>("k = 0, -0.5", "k", 2, 9).value, 0);
    EXPECT_EQ(Read<Long>("k = -1.5", "k", 0, 9).value, -2);
}

TEST(ReadKeyValue, TextThatIsNoNumberIsZeroInANumber) {
    EXPECT_EQ(Read<Integer>("k = abc", "k", 0, 9).value, 0);
    EXPECT_EQ(Read<Single>("k =", "k", 0, 9.0F).value, 0.0F);
    EXPECT_EQ(Read<Long>("k = 12abc", "k", 0, 9).value, 12);
}

TEST(ReadKeyValue, FieldsTakeTheirWholeRange) {
    EXPECT_EQ(Read<Integer>("k = 32767.4", "k", 0, 9).value, 32767);
    EXPECT_EQ(Read<Integer>("k = -32768.5", "k", 0, 9).value, -32768);
    EXPECT_EQ(Read<Long>("k = 2147483647", "k", 0, 9).value, 2'147'483'647);
    EXPECT_EQ(Read<Long>("k = -2147483648", "k", 0, 9).value, -2'147'483'647 - 1);
    EXPECT_EQ(Read<Single>("k = 3.4e38", "k", 0, 9.0F).value, 3.4E38F);
}

template <typename Field>
void ExpectOverflow(std::string_view line, Integer index, Field before) {
    Reading<Field> read;
    EXPECT_THROW(ReadInto(read, line, "k", index, before), RunTimeError) << line;
    EXPECT_EQ(read.value, before) << line;
    EXPECT_EQ(read.found, kFalse) << line;
}

TEST(ReadKeyValue, NumberBeyondItsFieldLeavesItAsItWas) {
    ExpectOverflow<Integer>("k = 32768", 0, 9);
    ExpectOverflow<Integer>("k = 32767.5", 0, 9);
    ExpectOverflow<Integer>("k = -32769, 1", 1, 9);
    ExpectOverflow<Integer>("k = 1, 40000", 2, 9);
    ExpectOverflow<Long>("k = 2147483648", 0, 9);
    ExpectOverflow<Long>("k = -3e9, 1", 1, 9);
    ExpectOverflow<Single>("k = 1e39", 0, 9.0F);
    ExpectOverflow<Single>("k = 1, -1e999", 2, 9.0F);
}

// Size

TEST(ReadKeyValue, MillionCharacters) {
    constexpr std::size_t million = 1'000'000;
    const std::string letters(million, 'X');
    EXPECT_EQ(TextOf("name = " + letters, "name"), std::string(million, 'x'));
    EXPECT_EQ(TextOf(letters, "name"), kAbsent);
    EXPECT_EQ(TextOf(std::string(million, ' ') + "name = a", "name"), "a");
    EXPECT_EQ(TextOf("k = 1" + std::string(million, ',') + "5", "k", 2), "");
    EXPECT_EQ(NumberOf("k = 1, 0." + std::string(million, '0') + "1", "k", 2), 0.0F);
    ExpectOverflow<Single>("k = " + std::string(million, '9'), 0, 9.0F);
}

}  // namespace
}  // namespace scenara::test
