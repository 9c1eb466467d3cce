// SPDX-License-Identifier: MIT
//
// Random stages full of absurd numbers, with additions and plainly: drawing them neither crashes
// nor hangs, raises nothing, and never asks the device for more than a bounded number of quads.
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/StagePlayer.h"
#include "render/Tiling.h"

namespace scenara::test {
namespace {

constexpr Long kMostLong = std::numeric_limits<Long>::max();
constexpr Long kLeastLong = std::numeric_limits<Long>::min();

// Numbers of all sizes, and more often than not small ones, so that something is seen.
class Absurd {
public:
    explicit Absurd(unsigned seed) : random_(seed) {}

    // From 0 up to, not including, `end`.
    int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
    template <typename Value, std::size_t count>
    Value OneOf(const std::array<Value, count>& values) {
        return values.at(static_cast<std::size_t>(Below(static_cast<int>(count))));
    }
    bool Often() { return Below(4) != 0; }

    Long AnyLong() {
        constexpr std::array<Long, 12> kOdd{
            0, 1, -1, 2, -320, 32767, -32768, 999999, 65536, 1073741824, kLeastLong, kMostLong};
        return Often() ? Long{Below(1001)} - 500 : OneOf(kOdd);
    }
    Integer AnyInteger() {
        constexpr std::array<Integer, 7> kOdd{0, 1, -1, 255, -256, 32767, -32768};
        return Often() ? static_cast<Integer>(Below(201) - 100) : OneOf(kOdd);
    }
    Single AnySingle() {
        constexpr std::array<Single, 14> kOdd{0.0F,    -0.0F,       0.5F,   -0.5F, 1e-45F,
                                              3.4e38F, -3.4e38F,    1e9F,   -1e9F, 3e9F,
                                              -3e9F,   16777217.0F, 1e-10F, 100.0F};
        return Often() ? static_cast<Single>(Below(2001) - 1000) / 8 : OneOf(kOdd);
    }
    Integer Size() {
        constexpr std::array<Integer, 6> kOdd{1, 2, 319, 321, 1024, 32767};
        return Often() ? static_cast<Integer>(Below(200) + 1) : OneOf(kOdd);
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

void ScaleAndTurn(Absurd& absurd, StageFrame& frame) {
    if (absurd.Often()) {
        return;
    }
    frame.scale = {absurd.AnySingle(), absurd.AnySingle()};
    frame.angle = absurd.AnySingle();
    frame.interpolated = absurd.Flags();
    frame.offsetFraction = {absurd.AnySingle(), absurd.AnySingle()};
    frame.blending.kind = absurd.Below(2) == 0 ? BlendKind::Add : BlendKind::None;
}

void FillTables(Absurd& absurd, StagePlayer& player) {
    constexpr std::array<const char*, 4> kFlips{"", "h", "v", "hv"};
    for (int i = 0; i < 3; ++i) {
        player.build.Sprite("s" + std::to_string(i), absurd.Size(), absurd.Size(),
                            absurd.AnyInteger(), absurd.AnyInteger());
    }
    for (int i = 0; i < 3; ++i) {
        std::vector<FrameLine> frames;
        for (int frame = absurd.Below(4); frame > 0; --frame) {
            frames.push_back({absurd.IndexInto(3), absurd.AnyInteger(), absurd.AnyInteger(),
                              absurd.AnyInteger(), absurd.OneOf(kFlips)});
        }
        player.build.Action(frames, absurd.AnyInteger(), static_cast<Integer>(i));
        for (StageFrame& frame : player.model.Actions.back().frames) {
            ScaleAndTurn(absurd, frame);
        }
    }
}

void AddElement(Absurd& absurd, StagePlayer& player) {
    constexpr std::array<const char*, 6> kTypes{"normal", "normal", "parallax",
                                                "anim",   "dummy",  "???"};
    constexpr std::array<BlendKind, 6> kBlendKinds{BlendKind::None, BlendKind::None,
                                                   BlendKind::Add,  BlendKind::Add1,
                                                   BlendKind::Sub,  BlendKind::AddAlpha};
    BackgroundElement& element = player.build.Still(absurd.IndexInto(3));
    element.type = absurd.OneOf(kTypes);
    element.actionIndex = absurd.IndexInto(3);
    element.mask = static_cast<Integer>(absurd.Below(3));
    element.startX = absurd.AnyLong();
    element.startY = absurd.AnyLong();
    element.tileX = absurd.Often() ? absurd.Below(4) : absurd.AnyLong();
    element.tileY = absurd.Often() ? absurd.Below(4) : absurd.AnyLong();
    element.tileSpacingGiven = 3;
    element.tileSpacingX = absurd.AnyLong();
    element.tileSpacingY = absurd.AnyLong();
    element.layerno = static_cast<Integer>(absurd.Below(3) - 1);
    element.positionlink = static_cast<Integer>(absurd.Below(2));
    element.id = absurd.Below(3);
    element.windowActive = absurd.Below(3) == 0 ? 1 : 0;
    element.blending = {absurd.OneOf(kBlendKinds), 100, 200};
    element.sinState = {absurd.AnySingle(), absurd.AnySingle(), absurd.AnySingle()};
    for (Single BackgroundElement::*const field :
         {&BackgroundElement::deltaX, &BackgroundElement::deltaY, &BackgroundElement::velocityX,
          &BackgroundElement::velocityY, &BackgroundElement::sinYAmplitude,
          &BackgroundElement::sinYPeriod, &BackgroundElement::sinYPhase,
          &BackgroundElement::windowX1, &BackgroundElement::windowX2, &BackgroundElement::windowY1,
          &BackgroundElement::windowY2, &BackgroundElement::xscaleTop,
          &BackgroundElement::xscaleBottom, &BackgroundElement::windowDeltaX,
          &BackgroundElement::windowDeltaY, &BackgroundElement::yscaleStart,
          &BackgroundElement::yscaleDelta}) {
        element.*field = absurd.AnySingle();
    }
    if (!absurd.Often()) {
        element.scaleStart = {absurd.AnySingle(), absurd.AnySingle()};
        element.scaleDelta = {absurd.AnySingle(), absurd.AnySingle()};
    }
    if (!absurd.Often()) {
        element.zoomDelta = {absurd.AnySingle(), absurd.AnySingle()};
        element.rowWidths = {absurd.AnySingle(), absurd.AnySingle()};
        element.maskWindowActive = static_cast<Byte>(absurd.Below(2));
        for (Single& edge : element.maskWindow) {
            edge = absurd.AnySingle();
        }
    }
}

void AddControls(Absurd& absurd, StagePlayer& player) {
    constexpr std::array<const char*, 11> kTypes{"null",   "visible", "enable", "velset",
                                                 "veladd", "posset",  "posadd", "anim",
                                                 "sinx",   "siny",    "posset"};
    for (int i = 0; i < 3; ++i) {
        BgCtrlDef& group = player.build.Group(absurd.AnyLong(), {absurd.Below(4) - 1});
        for (int n = 0; n < 3; ++n) {
            BgCtrl& control = AddControl(group, absurd.OneOf(kTypes));
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

void SetStage(Absurd& absurd, StageModel& model) {
    constexpr std::array<Long, 6> kHeights{0, 120, 240, 333, 480, 7680};
    model.CamStartX = absurd.AnySingle();
    model.CamStartY = absurd.AnyInteger();
    model.BoundLeft = absurd.AnyLong();
    model.BoundRight = absurd.AnyLong();
    model.BoundHigh = absurd.AnyInteger();
    model.BoundLow = absurd.AnyInteger();
    model.hires = static_cast<Integer>(absurd.Below(2));
    model.localcoordWidth = absurd.AnyLong();
    model.localcoordHeight = absurd.OneOf(kHeights);
    model.StageXScale = absurd.AnySingle();
    model.StageYScale = absurd.AnySingle();
    if (!absurd.Often()) {
        model.ZoomOut = absurd.AnySingle();
        model.ZoomIn = absurd.AnySingle();
        model.StartZoom = absurd.AnySingle();
        model.ZOffset = absurd.AnyInteger();
        model.ZOffsetLink = static_cast<Integer>(absurd.Below(4) - 1);
    }
}

// With everything, under a camera that the user moves.
class StageOfAbsurdNumbers : public Absurd {
public:
    StageOfAbsurdNumbers(unsigned seed, bool additions)
        : Absurd(seed), player(ViewOptions{additions}) {
        player.record.SetWriting(false);
        FillTables(*this, player);
        for (int i = 0; i < kElements; ++i) {
            AddElement(*this, player);
        }
    }
    void Start() { player.Start(); }

    StagePlayer player;
};

// As many as may lie upon one another, and those beside; for every row of a parallax picture.
constexpr std::size_t kMostQuadsOfAnElement = (kDeepest + 320) * 240;

// Of a frame: once for each pass, and with additions two quads for each piece.
std::size_t MostQuads(const StagePlayer& player) {
    std::size_t most = 0;
    for (const BackgroundElement& element : player.model.Elements) {
        most += kMostQuadsOfAnElement * (element.layerno < 0 ? 2U : 1U) *
                (player.view.Additions ? 2U : 1U);
    }
    return most;
}

class AbsurdStage : public testing::TestWithParam<unsigned> {
protected:
    static void DrawWithinBounds(bool additions) {
        StageOfAbsurdNumbers stage(GetParam(), additions);
        StagePlayer& player = stage.player;
        AddControls(stage, player);
        SetStage(stage, player.model);
        stage.Start();
        player.camera.HCamStep = std::fabs(stage.AnySingle());
        player.camera.VCamStep = std::fabs(stage.AnySingle());
        constexpr std::array<VirtualKey, 6> kKeys{VirtualKey::Right, VirtualKey::Left,
                                                  VirtualKey::Up,    VirtualKey::Down,
                                                  VirtualKey::A,     VirtualKey::Z};
        for (int frame = 0; frame < 12; ++frame) {
            player.keyboard.Hold({stage.OneOf(kKeys), stage.OneOf(kKeys)});
            player.clock.now += 100;
            player.flags.MouseScroll = frame == 6 ? kByteTrue : Byte{0};
            player.pointer.MoveTo({stage.AnyLong(), stage.AnyLong()});
            const std::size_t before = player.record.DrawnCount();
            // The camera as far away as it can be.
            if (frame == 9) {
                player.model.CamX = stage.AnySingle();
                player.model.CamY = stage.AnySingle();
            }
            DrawScene(player.engine, player.tiles, player.flags);
            ASSERT_LE(player.record.DrawnCount() - before, MostQuads(player)) << "frame " << frame;
        }
        EXPECT_TRUE(player.messages.Recorded().empty());
    }
};

TEST_P(AbsurdStage, IsDrawnWithinBounds) {
    DrawWithinBounds(false);
}

TEST_P(AbsurdStage, IsDrawnWithinBoundsWithAdditions) {
    DrawWithinBounds(true);
}

INSTANTIATE_TEST_SUITE_P(Seeds, AbsurdStage, testing::Range(1U, 301U));

// The stages are not all empty or out of sight, so that the tests above see something.
// Which of them show something depends on the order in which a compiler asks for their numbers.
TEST(AbsurdStages, ShowSomethingOften) {
    for (const bool additions : {false, true}) {
        int shown = 0;
        for (unsigned seed = 1; seed <= 120; ++seed) {
            StageOfAbsurdNumbers stage(seed, additions);
            stage.Start();
            DrawScene(stage.player.engine, stage.player.tiles, stage.player.flags);
            shown += stage.player.record.DrawnCount() > 0 ? 1 : 0;
        }
        EXPECT_GT(shown, 40) << additions;
    }
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
                const Long spacing = element.type == "anim" ? 2 : 1 - size;
                Tiled(element, tiles, tiles, spacing, spacing);
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
}  // namespace scenara::test
