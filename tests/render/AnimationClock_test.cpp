// SPDX-License-Identifier: MIT
#include "render/AnimationClock.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/PrepareStage.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

// An action whose frames have these times, in an element that has just been prepared.
class Clocked {
public:
    explicit Clocked(const std::vector<Integer>& times, Integer loopstart = 0) {
        std::vector<FrameLine> frames;
        for (const Integer time : times) {
            frames.push_back({-1, time});
        }
        build.Animation(build.Action(frames, loopstart));
        PrepareElements(model, kPlainView, View());
    }

    void Tick() { TickAnimation(model, Element()); }

    // The frames on screen in the next frames drawn: the clock ticks before each.
    std::vector<Integer> Shown(int count) {
        std::vector<Integer> shown;
        for (int i = 0; i < count; ++i) {
            Tick();
            shown.push_back(Element().frameIndex);
        }
        return shown;
    }

    BackgroundElement& Element() { return model.Elements.front(); }

    StageModel model;
    StageBuilder build{model};
};

using Frames = std::vector<Integer>;

struct ShownFrames {
    const char* name;
    Frames times;
    Integer loopstart;
    Frames shown;
    Integer timeLeft;  // of the last one
};

TEST(AnimationClock, ShowsEachFrameForItsTime) {
    for (const ShownFrames& row : std::vector<ShownFrames>{
             {"for its ticks", {3, 1, 2}, 0, {0, 0, 0, 1, 2, 2, 0, 0, 0, 1, 2, 2, 0}, 2},
             {"then the loopstart", {1, 1, 1}, 1, {0, 1, 2, 1, 2, 1, 2, 1}, 0},
             {"then the last frame again", {1, 2}, 1, {0, 1, 1, 1, 1, 1}, 1},
             {"the loopstart is one too many", {1, 1, 1}, 3, {0, 1, 2, 0, 1, 2, 0}, 0},
             {"the loopstart is far too many", {1, 1, 1}, 32767, {0, 1, 2, 0, 1, 2, 0}, 0},
             {"the loopstart is -1", {1, 1, 1}, -1, {0, 1, 2, 0, 1, 2, 0}, 0},
             {"the loopstart is the least", {1, 1, 1}, -32768, {0, 1, 2, 0, 1, 2, 0}, 0},
             {"-1 holds for ever", {2, -1, 5}, 0, {0, 0, 1, 1, 1, 1, 1, 1}, -1},
             {"so does any other", {2, -32768, 5}, 0, {0, 0, 1, 1, 1, 1, 1, 1}, -32768},
             {"-1 holds the first", {-1, 5}, 0, {0, 0, 0, 0}, -1},
             {"0 is passed over", {1, 0, 0, 2, 0}, 0, {0, 3, 3, 0, 3, 3, 0, 3}, 1},
             {"0 is passed over at the start", {0, 2}, 0, {1, 1, 1, 1, 1}, 1},
             {"0 at the end leads to the loopstart", {1, 1, 0}, 1, {0, 1, 1, 1, 1}, 0},
             {"0 is passed over to one that holds", {1, 0, -1}, 0, {0, 2, 2, 2}, -1},
             {"of 0 alone the search ends once round", {0, 0, 0}, 0, {0, 0, 0, 0}, -1},
             {"without frames", {}, 0, {0, 0, 0}, 0},
         }) {
        SCOPED_TRACE(row.name);
        Clocked clock(row.times, row.loopstart);
        EXPECT_EQ(clock.Shown(static_cast<int>(row.shown.size())), row.shown);
        EXPECT_EQ(clock.Element().frameTime, row.timeLeft);
    }
}

TEST(AnimationClock, FrameTimeCountsTheTicksThatAreLeft) {
    Clocked clock({3, 2});
    EXPECT_EQ(clock.Element().frameTime, 3);
    std::vector<Integer> left;
    for (int i = 0; i < 6; ++i) {
        clock.Tick();
        left.push_back(clock.Element().frameTime);
    }
    EXPECT_EQ(left, (std::vector<Integer>{2, 1, 0, 1, 0, 2}));
}

TEST(AnimationClock, OneFrameOfTime0StandsStill) {
    Clocked clock({0});
    EXPECT_EQ(clock.Shown(40000).back(), 0);
    EXPECT_EQ(clock.Element().frameTime, -1);
}

// Frame by frame past those that take no time, once round at most.
Integer NextByWalking(const StageAction& action, std::size_t from) {
    const std::size_t count = action.frames.size();
    const auto loop = static_cast<std::size_t>(action.loopstart);
    std::size_t at = from;
    for (std::size_t steps = 0; steps < count; ++steps) {
        at = at + 1 < count ? at + 1 : (action.loopstart >= 0 && loop < count ? loop : 0);
        if (action.frames[at].time != 0) {
            break;
        }
    }
    return static_cast<Integer>(at);
}

TEST(AnimationClock, TheNextFrameIsThatOfAWalkThroughTheAction) {
    std::mt19937 random(11);
    const auto upTo = [&](int most) {
        return static_cast<int>(random() % (static_cast<unsigned>(most) + 1U));
    };
    for (int round = 0; round < 20000; ++round) {
        StageAction action;
        action.frames.resize(static_cast<std::size_t>(1 + upTo(6)));
        action.loopstart = static_cast<Integer>(upTo(8) - 1);
        const int timed = upTo(3);  // of three frames
        for (StageFrame& frame : action.frames) {
            frame.time = static_cast<Integer>(upTo(2) < timed ? upTo(3) - 1 : 0);
        }
        ResolveFrames(action);
        for (std::size_t i = 0; i < action.frames.size(); ++i) {
            ASSERT_EQ(action.frames[i].next, NextByWalking(action, i)) << round << ", frame " << i;
        }
    }
}

TEST(AnimationClock, TheLongestTimeIsCountedWhole) {
    Clocked clock({32767, 1});
    const Frames shown = clock.Shown(32768);
    EXPECT_EQ(shown[32766], 0);
    EXPECT_EQ(shown[32767], 1);
}

TEST(AnimationClock, DisabledElementsStandStill) {
    Clocked clock({2, 2});
    clock.Element().enabled = 0;
    EXPECT_EQ(clock.Shown(4), (Frames{0, 0, 0, 0}));
    EXPECT_EQ(clock.Element().frameTime, 2);
    clock.Element().enabled = 1;
    EXPECT_EQ(clock.Shown(3), (Frames{0, 0, 1}));
}

TEST(AnimationClock, HiddenElementsRunOn) {
    Clocked clock({1, 1});
    clock.Element().visible = 0;
    EXPECT_EQ(clock.Shown(3), (Frames{0, 1, 0}));
}

TEST(AnimationClock, ElementsThatAreNotAnimatedHaveNone) {
    Clocked clock({1, 1});
    clock.Element().kind = ElementKind::Still;
    clock.Element().spriteIndex = 0;
    EXPECT_EQ(clock.Shown(3), (Frames{0, 0, 0}));
    EXPECT_EQ(clock.Element().frameTime, 1);
}

TEST(AnimationClock, OtherKindsThatShowAnActionHaveOne) {
    Clocked clock({1, 1});
    clock.Element().kind = ElementKind::Parallax;
    EXPECT_EQ(clock.Shown(3), (Frames{0, 1, 0}));
}

TEST(AnimationClock, WithoutAnActionNothingHappens) {
    Clocked clock({1, 1});
    clock.Element().actionIndex = -1;
    EXPECT_EQ(clock.Shown(3), (Frames{0, 0, 0}));
}

TEST(AnimationClock, IndicesOutsideOfTheirTablesAreErrors) {
    for (const Integer index : {Integer{1}, Integer{-2}, Integer{32767}}) {
        Clocked clock({1, 1});
        clock.Element().actionIndex = index;
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { clock.Tick(); });
    }
    for (const Integer index : {Integer{2}, Integer{-1}, Integer{32767}}) {
        Clocked clock({1, 1});
        clock.Element().frameIndex = index;
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { clock.Tick(); });
    }
}

}  // namespace
}  // namespace scenara::test
