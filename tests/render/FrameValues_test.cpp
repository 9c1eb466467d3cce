// SPDX-License-Identifier: MIT
#include "render/FrameValues.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/StagePlayer.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

constexpr Byte kAll =
    kInterpolatedOffset | kInterpolatedBlend | kInterpolatedScale | kInterpolatedAngle;

StageFrame Frame(Integer time, Integer x, Single scale, Single angle, Byte interpolated = 0) {
    StageFrame frame;
    frame.time = time;
    frame.offsetX = x;
    frame.offsetY = static_cast<Integer>(-x);
    frame.offsetFraction = {0.5F, -0.5F};
    frame.scale = {scale, -scale};
    frame.angle = angle;
    frame.interpolated = interpolated;
    return frame;
}

// An element that shows a frame of which so many ticks are left.
BackgroundElement Showing(Integer frame, Integer left) {
    BackgroundElement element;
    element.frameIndex = frame;
    element.frameTime = left;
    return element;
}

struct ShownValues {
    const char* name;
    std::vector<StageFrame> frames;
    Integer loopstart;
    Integer frame;
    Integer left;  // ticks
    double x;      // the y offset and the y scale are these with the other sign
    double scale;
    double angle;
};

TEST(FrameValues, GoOverIntoTheNextFrameWhereItSaysSo) {
    const StageFrame first = Frame(4, 10, 1, 20);
    const StageFrame held = Frame(-1, 10, 1, 20);
    const auto into = [](Byte interpolated) { return Frame(2, 30, 3, 100, interpolated); };
    for (const ShownValues& row : std::vector<ShownValues>{
             {"nothing goes over", {first, into(0)}, 0, 0, 1, 10.5, 1, 20},
             {"in the first tick", {first, into(kAll)}, 0, 0, 3, 10.5, 1, 20},
             {"a quarter", {first, into(kAll)}, 0, 0, 2, 15.5, 1.5, 40},
             {"half", {first, into(kAll)}, 0, 0, 1, 20.5, 2, 60},
             {"in the last tick", {first, into(kAll)}, 0, 0, 0, 25.5, 2.5, 80},
             {"before the first tick", {first, into(kAll)}, 0, 0, 4, 10.5, 1, 20},
             {"the offset alone", {first, into(kInterpolatedOffset)}, 0, 0, 1, 20.5, 1, 20},
             {"the scale alone", {first, into(kInterpolatedScale)}, 0, 0, 1, 10.5, 2, 20},
             {"the angle alone", {first, into(kInterpolatedAngle)}, 0, 0, 1, 10.5, 1, 60},
             {"the blending alone", {first, into(kInterpolatedBlend)}, 0, 0, 1, 10.5, 1, 20},
             {"from the last frame into the first",
              {Frame(2, 30, 3, 100, kAll), first},
              0,
              1,
              1,
              20.5,
              2,
              60},
             {"from the last frame into the loopstart",
              {first, Frame(2, 30, 3, 100, kAll), first},
              1,
              2,
              1,
              20.5,
              2,
              60},
             {"an odd loopstart is the first frame",
              {Frame(2, 30, 3, 100, kAll), first},
              7,
              1,
              1,
              20.5,
              2,
              60},
             {"the last frame into itself",
              {into(0), Frame(4, 10, 1, 20, kAll)},
              1,
              1,
              1,
              10.5,
              1,
              20},
             {"the only frame", {Frame(4, 10, 1, 20, kAll)}, 0, 0, 1, 10.5, 1, 20},
             {"into a frame that takes no time",
              {first, Frame(0, 30, 3, 100, kAll), first},
              0,
              0,
              1,
              20.5,
              2,
              60},
             {"held for ever", {held, into(kAll)}, 0, 0, -1, 10.5, 1, 20},
             {"one tick", {Frame(1, 10, 1, 20), into(kAll)}, 0, 0, 0, 10.5, 1, 20},
             {"two turns", {Frame(4, 0, 1, 0), Frame(1, 0, 1, 720, kAll)}, 0, 0, 1, 0.5, 1, 360},
             {"backwards", {Frame(4, 0, 1, 0), Frame(1, 0, 1, -360, kAll)}, 0, 0, 2, 0.5, 1, -90},
             {"scales are kept", {Frame(4, 0, 5000, 0), into(0)}, 0, 0, 1, 0.5, 1024, 0},
             {"and what lies between them",
              {Frame(4, 0, 0, 0), Frame(1, 0, -5000, 0, kAll)},
              0,
              0,
              1,
              0.5,
              -1024,
              0},
             {"what is no number is no scale",
              {Frame(4, 0, std::numeric_limits<Single>::quiet_NaN(), 0), into(0)},
              0,
              0,
              1,
              0.5,
              0,
              0},
         }) {
        SCOPED_TRACE(row.name);
        StageAction action;
        action.frames = row.frames;
        action.loopstart = row.loopstart;
        const BackgroundElement element = Showing(row.frame, row.left);
        const FrameValues shown = FrameValuesOf(action, element, true);
        EXPECT_EQ(shown.offsetX, row.x);
        EXPECT_EQ(shown.offsetY, -row.x);
        EXPECT_EQ(shown.scaleX, row.scale);
        EXPECT_EQ(shown.scaleY, -row.scale);
        EXPECT_EQ(shown.angle, row.angle);
        const FrameValues plainly = FrameValuesOf(action, element, false);
        const StageFrame& frame = row.frames[static_cast<std::size_t>(row.frame)];
        EXPECT_EQ(plainly.offsetX, frame.offsetX + 0.5);
        EXPECT_EQ(plainly.scaleX, 1);
        EXPECT_EQ(plainly.angle, 0);
    }
}

TEST(FrameValues, OfAFrameOutsideOfItsActionAreAnError) {
    StageAction action;
    action.frames.assign(2, Frame(4, 10, 1, 20, kAll));
    for (const Integer index : {Integer{2}, Integer{-1}, Integer{32767}}) {
        const BackgroundElement element = Showing(index, 1);
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange,
                    [&] { static_cast<void>(FrameValuesOf(action, element, true)); });
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange,
                    [&] { static_cast<void>(FrameBlendingOf(action, element)); });
    }
}

constexpr Blending kNone;
constexpr Blending kAdd{BlendKind::Add, 256, 0};
constexpr Blending kAdd1{BlendKind::Add1, 256, 0};
constexpr Blending kSub{BlendKind::Sub, 256, 0};
constexpr Blending kHalf{BlendKind::AddAlpha, 128, 101};

struct ShownBlending {
    const char* name;
    Blending from;
    Blending to;
    Integer left;  // of 4 ticks
    Blending shown;
    Byte interpolated = kInterpolatedBlend;
    Integer time = 4;
};

TEST(FrameBlending, GoesOverIntoThatOfTheNextFrame) {
    const auto parts = [](Integer source, Integer destination) {
        return Blending{BlendKind::AddAlpha, source, destination};
    };
    for (const ShownBlending& row : {
             ShownBlending{"not told to", kAdd, kAdd1, 1, kAdd, 0},
             {"told of something else", kAdd, kAdd1, 1, kAdd, kInterpolatedAngle},
             {"in the first tick", kAdd, kHalf, 3, parts(256, 256)},
             {"a quarter", kAdd, kHalf, 2, parts(224, 217)},       // 217.25
             {"half, rounded", kAdd, kHalf, 1, parts(192, 179)},   // 178.5
             {"three quarters", kAdd, kHalf, 0, parts(160, 140)},  // 139.75
             {"into add1", kAdd, kAdd1, 1, parts(256, 192)},
             {"from add1", kAdd1, kAdd, 1, parts(256, 192)},
             {"from none", kNone, kAdd, 1, parts(256, 128)},
             {"into none", kAdd, kNone, 0, parts(256, 64)},
             {"from none in the first tick", kNone, kAdd, 3, parts(256, 0)},
             {"none into parts", kNone, kHalf, 1, parts(192, 51)},  // 50.5
             {"both none", kNone, kNone, 1, kNone},
             {"from sub", kSub, kAdd, 1, kSub},
             {"into sub", kAdd, kSub, 1, kAdd},
             {"none into sub", kNone, kSub, 1, kNone},
             {"held for ever", kNone, kAdd, -1, kNone, kInterpolatedBlend, -1},
             {"of no time", kNone, kAdd, 0, kNone, kInterpolatedBlend, 0},
         }) {
        SCOPED_TRACE(row.name);
        StageAction action;
        action.frames = {Frame(row.time, 0, 1, 0), Frame(1, 0, 1, 0, row.interpolated)};
        action.frames[0].blending = row.from;
        action.frames[1].blending = row.to;
        const Blending shown = FrameBlendingOf(action, Showing(0, row.left));
        EXPECT_EQ(shown.kind, row.shown.kind);
        EXPECT_EQ(shown.source, row.shown.source);
        EXPECT_EQ(shown.destination, row.shown.destination);
    }
}

// 59 ticks from 0 on, and one at 354: 6 degrees a tick, all the way round.
TEST(FrameValues, TurnEvenlyWithTheClock) {
    StagePlayer player(ViewOptions{true});
    const Integer action = player.build.Action({{-1, 59}, {-1, 1}});
    std::vector<StageFrame>& frames = player.model.Actions[static_cast<std::size_t>(action)].frames;
    frames[1].angle = 354;
    frames[1].interpolated = kInterpolatedAngle;
    player.build.Animation(action);
    player.Start();
    for (int tick = 0; tick < 180; ++tick) {
        player.Frames(1);
        const FrameValues shown =
            FrameValuesOf(player.model.Actions.front(), player.Element(0), true);
        EXPECT_NEAR(shown.angle, 6 * (tick % 60), 1e-9) << tick;
    }
}

// Beside a film of all ticks, worked out before it is shown.
TEST(FrameValues, AreThoseOfAFilm) {
    std::mt19937 random(21);
    const auto upTo = [&](int most) {
        return static_cast<int>(random() % (static_cast<unsigned>(most) + 1U));
    };
    const int rounds = Rounds(500);
    for (int round = 0; round < rounds; ++round) {
        StagePlayer player(ViewOptions{true});
        const int count = 1 + upTo(4);
        std::vector<FrameLine> lines;
        for (int i = 0; i < count; ++i) {
            lines.push_back({-1, static_cast<Integer>(1 + upTo(5))});
        }
        const auto loopstart = static_cast<Integer>(upTo(count - 1));
        player.build.Animation(player.build.Action(lines, loopstart));
        std::vector<StageFrame>& frames = player.model.Actions.front().frames;
        for (StageFrame& frame : frames) {
            frame.angle = static_cast<Single>(upTo(720) - 360);
            frame.offsetX = static_cast<Integer>(upTo(200) - 100);
            frame.scale[0] = static_cast<Single>(upTo(64) - 32) / 8;
            frame.interpolated = static_cast<Byte>(upTo(15));
        }
        player.Start();
        std::size_t at = 0;
        for (int tick = 0; tick < 40;) {
            const StageFrame& now = frames[at];
            const std::size_t after =
                at + 1 < frames.size() ? at + 1 : static_cast<std::size_t>(loopstart);
            const StageFrame& next = frames[after];
            for (int k = 0; k < now.time; ++k, ++tick) {
                player.Frames(1);
                const FrameValues shown =
                    FrameValuesOf(player.model.Actions.front(), player.Element(0), true);
                const double part = static_cast<double>(k) / now.time;
                const auto between = [&](Byte bit, double from, double to) {
                    return (next.interpolated & bit) != 0 ? from + (to - from) * part : from;
                };
                ASSERT_NEAR(shown.angle,
                            between(kInterpolatedAngle, static_cast<double>(now.angle),
                                    static_cast<double>(next.angle)),
                            1e-9);
                ASSERT_NEAR(shown.offsetX, between(kInterpolatedOffset, now.offsetX, next.offsetX),
                            1e-9);
                ASSERT_NEAR(shown.scaleX,
                            between(kInterpolatedScale, static_cast<double>(now.scale[0]),
                                    static_cast<double>(next.scale[0])),
                            1e-9);
            }
            at = after;
        }
    }
}

}  // namespace
}  // namespace scenara::test
