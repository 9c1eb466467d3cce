// SPDX-License-Identifier: MIT
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/posix/PosixFiles.h"

namespace scenara {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

TEST(InOtherLetters, AreJapaneseAndChineseReadingsOfTheBytes) {
    PosixFiles files("/");
    // The character for "mountain", as both systems write it.
    EXPECT_THAT(files.InOtherLetters("\x8E\x52.sff"), Contains("\xE5\xB1\xB1.sff"));
    EXPECT_THAT(files.InOtherLetters("\xC9\xBD.sff"), Contains("\xE5\xB1\xB1.sff"));
}

// The second byte of such a letter may be the one of a backslash.
TEST(InOtherLetters, TakeNoLetterApart) {
    PosixFiles files("/");
    EXPECT_THAT(files.InOtherLetters("stages\\\x95\x5C.sff"), Contains("stages\\\xE8\xA1\xA8.sff"));
}

TEST(InOtherLetters, AreNoneOfPlainNamesAndOfBytesThatAreNoText) {
    PosixFiles files("/");
    EXPECT_THAT(files.InOtherLetters("stages/kfm.sff"), IsEmpty());
    EXPECT_THAT(files.InOtherLetters(""), IsEmpty());
    EXPECT_THAT(files.InOtherLetters("\x81"), IsEmpty()) << "half a letter";
    EXPECT_THAT(files.InOtherLetters(std::string(100'000, '\x81')), Not(Contains("")));
}

}  // namespace
}  // namespace scenara
