// SPDX-License-Identifier: MIT
//
// Random stages full of absurd numbers: drawing them neither crashes nor hangs, raises nothing, and
// never asks the device for more than a bounded number of quads.
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "render/StagePlayer.h"
#include "render/Tiling.h"

namespace scenara {
namespace {

using test::AddControl;
using test::StagePlayer;

constexpr Long kMostLong = std::numeric_limits<Long>::max();
constexpr Long kLeastLong = std::numeric_limits<Long>::min();

// Numbers of all sizes, and more often than not small ones, so that something is seen.
class Absurd {
public:
    explicit Absurd(unsigned seed) : random_(seed) {}

    // From 0 up to, not including, `end`.
    int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
    bool Often() { return Below(4) != 0; }

    Long AnyLong() {
        constexpr std::array<Long, 12> kOdd{
            0, 1, -1, 2, -320, 32767, -32768, 999999, 65536, 1073741824, kLeastLong, kMostLong};
        return Often() ? Long{Below(1001)} - 500 : kOdd.at(static_cast<std::size_t>(Below(12)));
    }
    Integer AnyInteger() {
        constexpr std::array<Integer, 7> kOdd{0, 1, -1, 255, -256, 32767, -32768};
        return Often() ? static_cast<Integer>(Below(201) - 100)
                       : kOdd.at(static_cast<std::size_t>(Below(7)));
    }
    Single AnySingle() {
        constexpr std::array<Single, 12> kOdd{0.0F,   -0.0F, 0.5F,  -0.5F, 1e-45F, 3e38F,
                                              -3e38F, 1e9F,  -1e9F, 3e9F,  -3e9F,  16777217.0F};
        return Often() ? static_cast<Single>(Below(2001) - 1000) / 8
                       : kOdd.at(static_cast<std::size_t>(Below(12)));
    }
    Integer Size() {
        constexpr std::array<Integer, 6> kOdd{1, 2, 319, 321, 1024, 32767};
        return Often() ? static_cast<Integer>(Below(200) + 1)
                       : kOdd.at(static_cast<std::size_t>(Below(6)));
    }
    Byte Flags() { return static_cast<Byte>(Below(256)); }

    // An index into a table of `count`, or -1.
    Integer IndexInto(std::size_t count) {
        return static_cast<Integer>(Below(static_cast<int>(count) + 1) - 1);
    }

private:
    std::mt19937 random_;
};

constexpr int kElements = 6;

void FillTables(Absurd& absurd, StagePlayer& player) {
    for (int i = 0; i < 3; ++i) {
        player.build.Sprite("s" + std::to_string(i), absurd.Size(), absurd.Size(),
                            absurd.AnyInteger(), absurd.AnyInteger());
    }
    for (int i = 0; i < 3; ++i) {
        std::vector<test::FrameLine> frames;
        for (int frame = absurd.Below(4); frame > 0; --frame) {
            frames.push_back({absurd.IndexInto(3), absurd.AnyInteger(), absurd.AnyInteger(),
                              absurd.AnyInteger(), absurd.Below(4) == 0 ? "h" : ""});
        }
        player.build.Action(frames, absurd.AnyInteger(), static_cast<Integer>(i));
    }
}

void AddElement(Absurd& absurd, StagePlayer& player) {
    constexpr std::array<const char*, 6> kTypes{"normal", "normal", "parallax",
                                                "anim",   "dummy",  "???"};
    BackgroundElement& element = player.build.Still(absurd.IndexInto(3));
    element.type = kTypes.at(static_cast<std::size_t>(absurd.Below(6)));
    element.actionIndex = absurd.IndexInto(3);
    element.mask = static_cast<Integer>(absurd.Below(3));
    element.startX = absurd.AnyLong();
    element.startY = absurd.AnyLong();
    element.deltaX = absurd.AnySingle();
    element.deltaY = absurd.AnySingle();
    element.tileX = absurd.Often() ? absurd.Below(3) : absurd.AnyLong();
    element.tileY = absurd.Often() ? absurd.Below(3) : absurd.AnyLong();
    element.tileSpacingX = absurd.AnyLong();
    element.tileSpacingY = absurd.AnyLong();
    element.velocityX = absurd.AnySingle();
    element.velocityY = absurd.AnySingle();
    element.layerno = static_cast<Integer>(absurd.Below(3) - 1);
    element.positionlink = static_cast<Integer>(absurd.Below(2));
    element.sinState = {absurd.AnySingle(), absurd.AnySingle(), absurd.AnySingle()};
    element.sinYAmplitude = absurd.AnySingle();
    element.sinYPeriod = absurd.AnySingle();
    element.sinYPhase = absurd.AnySingle();
    element.id = absurd.Below(3);
    element.windowX1 = absurd.AnySingle();
    element.windowX2 = absurd.AnySingle();
    element.windowY1 = absurd.AnySingle();
    element.windowY2 = absurd.AnySingle();
    element.windowActive = absurd.Below(3) == 0 ? 1 : 0;
    element.xscaleTop = absurd.AnySingle();
    element.xscaleBottom = absurd.AnySingle();
}

void AddControls(Absurd& absurd, StagePlayer& player) {
    constexpr std::array<const char*, 11> kTypes{"null",   "visible", "enable", "velset",
                                                 "veladd", "posset",  "posadd", "anim",
                                                 "sinx",   "siny",    "posset"};
    for (int i = 0; i < 3; ++i) {
        BgCtrlDef& group = player.build.Group(absurd.AnyLong(), {absurd.Below(4) - 1});
        for (int n = 0; n < 3; ++n) {
            BgCtrl& control =
                AddControl(group, kTypes.at(static_cast<std::size_t>(absurd.Below(11))));
            control.startTime = absurd.Often() ? absurd.Below(8) : absurd.AnyLong();
            control.endTime = absurd.Often() ? absurd.Below(50) : absurd.AnyLong();
            control.loopTime = absurd.AnyLong();
            control.ctrlIds = {absurd.Below(4) - 1, absurd.Below(4) - 1};
            control.x = absurd.AnySingle();
            control.y = absurd.AnySingle();
            control.value = absurd.AnyInteger();
            control.value1 = absurd.AnyInteger();
            control.value2 = absurd.AnyInteger();
            control.given = absurd.Flags();
        }
    }
}

// As many as may lie upon one another, and those beside; for every row of a parallax picture.
constexpr std::size_t kMostQuadsOfAnElement = (kDeepest + 320) * 240;

class AbsurdStage : public testing::TestWithParam<unsigned> {};

TEST_P(AbsurdStage, IsDrawnWithinBounds) {
    Absurd absurd(GetParam());
    StagePlayer player;
    player.record.SetWriting(false);
    FillTables(absurd, player);
    for (int i = 0; i < kElements; ++i) {
        AddElement(absurd, player);
    }
    AddControls(absurd, player);
    player.model.CamStartX = absurd.AnySingle();
    player.model.CamStartY = absurd.AnyInteger();
    player.model.BoundLeft = absurd.AnyLong();
    player.model.BoundRight = absurd.AnyLong();
    player.model.BoundHigh = absurd.AnyInteger();
    player.model.BoundLow = absurd.AnyInteger();
    player.Start();
    player.camera.HCamStep = std::fabs(absurd.AnySingle());
    player.camera.VCamStep = std::fabs(absurd.AnySingle());
    constexpr std::array<VirtualKey, 6> kKeys{VirtualKey::Right, VirtualKey::Left, VirtualKey::Up,
                                              VirtualKey::Down,  VirtualKey::A,    VirtualKey::Z};
    for (int frame = 0; frame < 12; ++frame) {
        player.keyboard.Hold({kKeys.at(static_cast<std::size_t>(absurd.Below(6))),
                              kKeys.at(static_cast<std::size_t>(absurd.Below(6)))});
        player.clock.now += 100;
        player.flags.MouseScroll = frame == 6 ? kByteTrue : Byte{0};
        player.pointer.MoveTo({absurd.AnyLong(), absurd.AnyLong()});
        const std::size_t before = player.record.DrawnCount();
        // The camera as far away as it can be.
        if (frame == 9) {
            player.model.CamX = absurd.AnySingle();
            player.model.CamY = absurd.AnySingle();
        }
        DrawScene(player.engine, player.tiles, player.flags);
        ASSERT_LE(player.record.DrawnCount() - before, 2 * kElements * kMostQuadsOfAnElement)
            << "frame " << frame;
    }
    EXPECT_TRUE(player.messages.Recorded().empty());
}

INSTANTIATE_TEST_SUITE_P(Seeds, AbsurdStage, testing::Range(1U, 301U));

// The stages are not all empty or out of sight, so that the test above sees something.
TEST(AbsurdStages, ShowSomethingMoreOftenThanNot) {
    int shown = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Absurd absurd(seed);
        StagePlayer player;
        player.record.SetWriting(false);
        FillTables(absurd, player);
        for (int i = 0; i < kElements; ++i) {
            AddElement(absurd, player);
        }
        player.Start();
        DrawScene(player.engine, player.tiles, player.flags);
        shown += player.record.DrawnCount() > 0 ? 1 : 0;
    }
    EXPECT_GT(shown, 20);
}

// One element that is the worst for a device, of every kind.
TEST(AbsurdStages, TheDensestTilingIsBounded) {
    for (const char* const type : {"normal", "parallax", "anim"}) {
        for (const Integer size : {Integer{1}, Integer{33}, Integer{1025}, Integer{32767}}) {
            for (const Long tiles : {1, 999999}) {
                SCOPED_TRACE(std::string(type) + " " + std::to_string(size));
                StagePlayer player;
                player.record.SetWriting(false);
                const Integer sprite = player.build.Sprite("s", size, size);
                const Integer action = player.build.Action({{sprite, -1}});
                BackgroundElement& element = player.build.Still(sprite);
                element.type = type;
                element.actionIndex = action;
                element.tileX = tiles;
                element.tileY = tiles;
                const bool animated = element.type == "anim";
                element.tileSpacingX = animated ? 2 : 1 - size;
                element.tileSpacingY = animated ? 2 : 1 - size;
                element.startX = -500000;
                element.startY = element.type == "parallax" ? 0 : -500000;
                player.Start();
                DrawScene(player.engine, player.tiles, player.flags);
                EXPECT_LE(player.record.DrawnCount(), kMostQuadsOfAnElement);
                EXPECT_GT(player.record.DrawnCount(), 0U);
            }
        }
    }
}

}  // namespace
}  // namespace scenara
