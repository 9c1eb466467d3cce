// SPDX-License-Identifier: MIT
#include "app/ConfigurationLine.h"

#include <string>

#include <gtest/gtest.h>

#include "platform/headless/HeadlessMessages.h"

namespace scenara {
namespace {

using namespace std::string_literals;

std::string LineValue(std::string_view text) {
    std::string line;
    AppendLineValue(text, line);
    return line;
}

TEST(LineValue, MarksWhatALineWouldLose) {
    EXPECT_EQ(LineValue("/a b/c.def"), "/a b/c.def");
    EXPECT_EQ(LineValue(" a b "), "\0ba b\0b"s);
    EXPECT_EQ(LineValue("a\r\nb"), "a\0r\0nb"s);
    EXPECT_EQ(LineValue(" "), "\0b"s);
    EXPECT_EQ(LineValue(""), "");
}

TEST(LineValue, TakesMarksForWhatTheyStandFor) {
    EXPECT_EQ(FromLineValue("\0ba b\0b"s), " a b ");
    EXPECT_EQ(FromLineValue("a\0r\0nb"s), "a\r\nb");
    EXPECT_EQ(FromLineValue("\0"s), "\0"s) << "a zero byte that marks nothing stays";
    EXPECT_EQ(FromLineValue("\0x\0\0n"s), "\0x\0\n"s);
}

struct Found {
    bool path = false;
    bool word = false;
    std::string value;
};

Found Read(const std::string& line, const std::string& key) {
    HeadlessMessages messages;
    ConfigurationLine read(line, 1, messages);
    Found found;
    std::string word;
    found.path = read.Path(key, found.value);
    found.word = read.Word(key, word);
    EXPECT_TRUE(messages.Recorded().empty());
    return found;
}

TEST(ConfigurationLine, APathIsEverythingBehindItsEqualsSign) {
    EXPECT_EQ(Read("MugeDir = /a = b; c 1 2, D/", "mugedir").value, "/a = b; c 1 2, D/");
    EXPECT_EQ(Read("  MUGEDIR=  x  ", "mugedir").value, "x");
    EXPECT_TRUE(Read("MugeDir =", "mugedir").path);
    EXPECT_EQ(Read("MugeDir =", "mugedir").value, "");
    EXPECT_FALSE(Read("MugeDir", "mugedir").path);
    EXPECT_FALSE(Read("MugeDirs = x", "mugedir").path);
}

TEST(ConfigurationLine, NoKeyStandsInsideOfAPath) {
    for (const std::string key : {"info", "deform", "hcamstep", "stagelist", "testchar"}) {
        const std::string line =
            "RecentFile = /x/ INFO = DEFORM = HCAMSTEP = STAGELIST = TESTCHAR =";
        EXPECT_FALSE(Read(line, key).word) << key;
        EXPECT_FALSE(Read(line, key).path) << key;
    }
    EXPECT_TRUE(Read("RecentFile = /recentfile = x", "recentfile").path) << "its own aside";
}

TEST(ConfigurationLine, OnOtherLinesTheReaderDecides) {
    EXPECT_TRUE(Read("Info = x DEFORM = y", "deform").word);
    EXPECT_FALSE(Read("Info = x deform = y", "deform").word) << "in the reader's own case";
    EXPECT_EQ(Read("Info = x TESTCHAR = /y z", "testchar").value, "/y z");
}

// The key stands in the name of the line's own.
TEST(ConfigurationLine, CharIsFoundOnTheLineOfTestChar) {
    EXPECT_TRUE(Read("TestChar = /kfm.def", "char").word);
    EXPECT_FALSE(Read("testchar = /kfm.def", "char").word);
    EXPECT_FALSE(Read("CharName = KFM", "char").word);
}

}  // namespace
}  // namespace scenara
