// SPDX-License-Identifier: MIT
#include "scenara-shot/KeyScript.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace scenara {
namespace {

std::string ErrorOf(const std::string& script) {
    try {
        static_cast<void>(KeyScript(script));
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "no error";
}

TEST(KeyScript, HoldsEachStepForItsFramesInTurn) {
    const KeyScript script("right:30,up:10,right+up:20,none:5,z:1");
    const KeySet right{VirtualKey::Right};
    const KeySet up{VirtualKey::Up};
    const KeySet both{VirtualKey::Right, VirtualKey::Up};
    for (int frame = 1; frame <= 66; ++frame) {
        const KeySet expected = frame <= 30   ? right
                                : frame <= 40 ? up
                                : frame <= 60 ? both
                                : frame <= 65 ? KeySet()
                                              : KeySet{VirtualKey::Z};
        EXPECT_EQ(script.KeysOfFrame(frame), expected) << frame;
    }
}

TEST(KeyScript, HoldsNothingBeforeItBeginsAndAfterItsEnd) {
    const KeyScript script("left:2");
    EXPECT_EQ(script.KeysOfFrame(-1), KeySet());
    EXPECT_EQ(script.KeysOfFrame(0), KeySet());
    EXPECT_EQ(script.KeysOfFrame(1), KeySet{VirtualKey::Left});
    EXPECT_EQ(script.KeysOfFrame(2), KeySet{VirtualKey::Left});
    EXPECT_EQ(script.KeysOfFrame(3), KeySet());
    EXPECT_EQ(KeyScript().KeysOfFrame(1), KeySet());
}

TEST(KeyScript, KnowsEveryKeyAndTakesAsManyAsAreNamed) {
    EXPECT_EQ(KeyScript("left+right+up+down+a+z:1").KeysOfFrame(1),
              (KeySet{VirtualKey::Left, VirtualKey::Right, VirtualKey::Up, VirtualKey::Down,
                      VirtualKey::A, VirtualKey::Z}));
    EXPECT_EQ(KeyScript("a+a:1").KeysOfFrame(1), KeySet{VirtualKey::A});
}

TEST(KeyScript, AddsUpTheLongestStepsWithoutOverflow) {
    const KeyScript script("a:2147483647,left:2147483647");
    EXPECT_EQ(script.KeysOfFrame(2147483647), KeySet{VirtualKey::A});
    EXPECT_EQ(script.KeysOfFrame(2147483648), KeySet{VirtualKey::Left});
    EXPECT_EQ(script.KeysOfFrame(4294967294), KeySet{VirtualKey::Left});
    EXPECT_EQ(script.KeysOfFrame(4294967295), KeySet());
}

TEST(KeyScript, SaysWhichStepIsNoneAndWhy) {
    EXPECT_EQ(ErrorOf(""),
              "key script: \"\" is not keys and a number of frames, such as right+up:30");
    EXPECT_EQ(ErrorOf("right:3,"),
              "key script: \"\" is not keys and a number of frames, such as right+up:30");
    EXPECT_EQ(ErrorOf("right:3,up"),
              "key script: \"up\" is not keys and a number of frames, such as right+up:30");
    EXPECT_EQ(ErrorOf("none+up:3"), "key script: \"none+up\" is not possible: none stands alone");
    EXPECT_EQ(ErrorOf("up+none:3"), "key script: \"up+none\" is not possible: none stands alone");
}

TEST(KeyScript, TakesNoKeyThatItDoesNotKnow) {
    const std::string known = " is none of left, right, up, down, a, z and none";
    for (const std::string name : {"Right", "A", "righ", "rights"}) {
        EXPECT_EQ(ErrorOf(name + ":3"), "key script: \"" + name + "\"" + known);
    }
    EXPECT_EQ(ErrorOf("right:3, up:3"), "key script: \" up\"" + known);
    EXPECT_EQ(ErrorOf("right+:3"), "key script: \"\"" + known);
    EXPECT_EQ(ErrorOf("+right:3"), "key script: \"\"" + known);
    EXPECT_EQ(ErrorOf(":3"), "key script: \"\"" + known);
}

TEST(KeyScript, TakesCountsFromOneOn) {
    for (const std::string count :
         {"", "0", "-1", "x", "3x", "1.5", "3:4", " 3", "3 ", "+3", "2147483648"}) {
        EXPECT_EQ(ErrorOf("right:" + count),
                  "key script: \"right:" + count +
                      "\" needs a number of frames from 1 to 2147483647 behind the colon");
    }
}

}  // namespace
}  // namespace scenara
