// SPDX-License-Identifier: MIT
//
// The engine on the soft device: what a double can only promise is seen in pixels.
#include <array>
#include <cstdint>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "frames/SoftEngine.h"
#include "render/Frame.h"
#include "render/Require.h"

namespace scenara::test {
namespace {

using testing::Each;
using testing::StartsWith;
using testing::ThrowsMessage;

constexpr std::uint32_t kRgb = 0xFFFFFF;
constexpr std::uint32_t kOrange = 0xFFFF8000;

class EngineOnSoftDevice : public testing::Test, protected SoftEngine {
protected:
    // A sprite of 4 x 2 pixels: orange, but for its first column, which is transparent black.
    void SetUp() override {
        ASSERT_TRUE(engine.HasDevice());
        Sprite(4, 2, [i = 0]() mutable { return i++ % 4 == 0 ? 0x00000000 : kOrange; });
    }

    void Blit(Long x, Long y) { engine.D3DBlt(model.Sprites[0].texture, 0, x, y, 4, 2, 0, 0); }
    // A quad over all of the view, without a texture.
    void FillView(const std::array<std::uint32_t, 4>& colors) {
        ASSERT_EQ(engine.Device().BeginScene(), D3D_OK);
        ASSERT_EQ(engine.Device().SetTexture(0, nullptr), D3D_OK);
        engine.Set_Vertex(0, 0, 320, 240, colors[0], colors[1], colors[2], colors[3]);
        engine.DrawQuad();
    }

    [[nodiscard]] std::uint32_t Pixel(std::size_t x, std::size_t y) {
        return Pixels()[y * View().width + x] & kRgb;
    }
};

TEST_F(EngineOnSoftDevice, ANewDeviceDrawsOpaque) {
    ASSERT_EQ(engine.Device().BeginScene(), D3D_OK);
    Blit(10, 20);
    EXPECT_EQ(Pixel(10, 20), 0U);
    EXPECT_EQ(Pixel(11, 20), kOrange & kRgb);
    Blit(9, 20);  // the black column over an orange one
    EXPECT_EQ(Pixel(13, 20), kOrange & kRgb);
    Blit(12, 20);
    EXPECT_EQ(Pixel(12, 20), 0U) << "colour 0 in its own colour";
}

TEST_F(EngineOnSoftDevice, ALostDeviceFailsToDrawUntilItIsReset) {
    machine.Device()->Lose();
    EXPECT_THAT([&] { Require(engine.Device().BeginScene(), "BeginScene"); },
                ThrowsMessage<RunTimeError>(StartsWith("Direct3D error: BeginScene")));
    EXPECT_THAT([&] { Blit(0, 0); }, ThrowsMessage<RunTimeError>(StartsWith("Direct3D error")));
    PresentFrame(engine);  // ignored

    EXPECT_EQ(engine.Engine_Device_Status(), 0) << "cannot be reset yet: left alone";
    EXPECT_EQ(engine.Device().TestCooperativeLevel(), D3DERR_DEVICELOST);
    EXPECT_EQ(engine.Engine_Device_Reset(), D3DERR_DEVICELOST) << "the number of the error";

    machine.Device()->AllowReset();
    EXPECT_EQ(engine.Device().TestCooperativeLevel(), D3DERR_DEVICENOTRESET);
    EXPECT_EQ(engine.Engine_Device_Status(), 0);
    EXPECT_EQ(engine.Device().TestCooperativeLevel(), D3D_OK);
    ASSERT_EQ(engine.Device().BeginScene(), D3D_OK);
    Blit(10, 20);
    EXPECT_EQ(Pixel(11, 20), kOrange & kRgb) << "textures stay";
}

TEST_F(EngineOnSoftDevice, AResetDeviceBlendsFromThenOn) {
    machine.Device()->Lose();
    machine.Device()->AllowReset();
    ASSERT_EQ(engine.Engine_Device_Reset(), 0);
    ASSERT_EQ(engine.Device().BeginScene(), D3D_OK);
    Blit(9, 20);
    Blit(12, 20);  // its transparent column over an orange one
    EXPECT_EQ(Pixel(12, 20), kOrange & kRgb);
}

TEST_F(EngineOnSoftDevice, TheShadowDarkensASlantedShape) {
    FillView({0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF});
    ASSERT_EQ(engine.Device().SetRenderState(D3DRS_SRCBLEND, D3DBLEND_SRCALPHA), D3D_OK);
    ASSERT_EQ(engine.Device().SetRenderState(D3DRS_DESTBLEND, D3DBLEND_INVSRCALPHA), D3D_OK);
    ASSERT_EQ(engine.Device().SetRenderState(D3DRS_ALPHABLENDENABLE, 1), D3D_OK);
    engine.Set_Shadow(1, 128, 56, 64, 128);
    engine.DrawQuad();
    // Alpha 100 of 255 over white: 255 * 155 / 255.
    EXPECT_EQ(Pixel(160, 183), 0x9B9B9BU) << "above the lower edge, from 128 to 192";
    EXPECT_EQ(Pixel(98, 121), 0x9B9B9BU) << "the upper edge begins half a width further left";
    EXPECT_EQ(Pixel(190, 121), 0xFFFFFFU);
    EXPECT_EQ(Pixel(160, 184), 0xFFFFFFU);
    EXPECT_EQ(Pixel(160, 119), 0xFFFFFFU) << "nothing above half the height";
}

TEST_F(EngineOnSoftDevice, TheGradientHasItsColoursInTheCorners) {
    FillView({0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFE100});
    const auto near = [](std::uint32_t a, std::uint32_t b) {
        for (const unsigned shift : {0U, 8U, 16U}) {
            const int difference =
                static_cast<int>(a >> shift & 0xFFU) - static_cast<int>(b >> shift & 0xFFU);
            if (difference < -2 || difference > 2) {
                return false;
            }
        }
        return true;
    };
    EXPECT_TRUE(near(Pixel(0, 0), 0xFF0000U)) << std::hex << Pixel(0, 0);
    EXPECT_TRUE(near(Pixel(319, 0), 0x00FF00U)) << std::hex << Pixel(319, 0);
    EXPECT_TRUE(near(Pixel(0, 239), 0x0000FFU)) << std::hex << Pixel(0, 239);
    EXPECT_TRUE(near(Pixel(319, 239), 0xFFE100U)) << std::hex << Pixel(319, 239);
}

TEST_F(EngineOnSoftDevice, TextStaysInItsRectangle) {
    engine.Draw_Text(5, 5, 40, 20, "Cam 0,0  60 FPS and more", -1, 0);
    std::size_t inside = 0;
    for (std::size_t y = 0; y < 240; ++y) {
        for (std::size_t x = 0; x < 320; ++x) {
            if (Pixel(x, y) != 0) {
                ASSERT_TRUE(x >= 5 && x < 45 && y >= 5 && y < 25) << x << ',' << y;
                ++inside;
            }
        }
    }
    EXPECT_GT(inside, 20U);
}

}  // namespace
}  // namespace scenara::test
