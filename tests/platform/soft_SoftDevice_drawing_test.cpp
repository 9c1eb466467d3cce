// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "GoodParameters.h"
#include "SoftQuads.h"
#include "platform/soft/SoftDevice.h"
#include "support/AllocationCount.h"
#include "support/NullDevice.h"

namespace scenara {
namespace {

using test::Blit;
using test::Corner;
using test::Corners;
using test::CornersOf;
using test::GoodParameters;
using test::ScaledCornersOf;

constexpr std::uint32_t kColorMask = 0x00FFFFFF;

// Keeps what it was shown.
class RecordingSink : public PictureSink {
public:
    HRESULT Show(const CanvasSize& /*size*/, std::span<const std::uint32_t> pixels) override {
        shown.emplace_back(pixels.begin(), pixels.end());
        return answer;
    }

    std::vector<std::vector<std::uint32_t>> shown;
    HRESULT answer = D3D_OK;
};

class SoftDeviceDrawing : public testing::Test {
protected:
    using TexturePtr = std::shared_ptr<Direct3DTexture8>;

    void SetUp() override { ASSERT_EQ(device.SetVertexShader(kVertexFormat), D3D_OK); }

    [[nodiscard]] TexturePtr MakeTexture(std::int32_t width, std::int32_t height,
                                         const std::function<std::uint32_t(int, int)>& colorAt) {
        TextureParameters parameters;
        parameters.width = width;
        parameters.height = height;
        parameters.wantedPitch = width + 3;
        TexturePtr texture = device.CreateTexture(parameters);
        const LockedPixels pixels = texture->LockRect();
        for (std::int32_t y = 0; y < height; ++y) {
            for (std::int32_t x = 0; x < width; ++x) {
                pixels.words[static_cast<std::size_t>(y * pixels.pitch + x)] = colorAt(x, y);
            }
        }
        texture->UnlockRect();
        return texture;
    }

    HRESULT DrawQuad(const Corners& corners) {
        return device.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 2, corners, sizeof(Vertex));
    }

    // In a scene of its own.
    void Draw(const Corners& corners) {
        ASSERT_EQ(device.BeginScene(), D3D_OK);
        ASSERT_EQ(DrawQuad(corners), D3D_OK);
        ASSERT_EQ(device.EndScene(), D3D_OK);
    }

    void Fill(std::uint32_t color) {
        ASSERT_EQ(device.SetTexture(0, nullptr), D3D_OK);
        Draw(CornersOf({0, 0, View().width, View().height, 0, 0, false, color}, 1, 1));
    }

    void SetBlending(std::uint32_t source, std::uint32_t destination) {
        ASSERT_EQ(device.SetRenderState(D3DRS_ALPHABLENDENABLE, 1), D3D_OK);
        ASSERT_EQ(device.SetRenderState(D3DRS_SRCBLEND, source), D3D_OK);
        ASSERT_EQ(device.SetRenderState(D3DRS_DESTBLEND, destination), D3D_OK);
    }

    [[nodiscard]] std::uint32_t At(std::int32_t x, std::int32_t y) const {
        return device.BackBuffer()[static_cast<std::size_t>(y * View().width + x)] & kColorMask;
    }
    [[nodiscard]] bool IsAll(std::uint32_t color) const {
        return std::ranges::all_of(device.BackBuffer(), [&](std::uint32_t pixel) {
            return (pixel & kColorMask) == color;
        });
    }

    RecordingSink sink;
    SoftDevice device{std::make_shared<TextureMemory>(), &sink};
};

constexpr Blit kWholeView{0, 0, View().width, View().height};

Corners SomeQuad() {
    return CornersOf(kWholeView, 1, 1);
}

TEST_F(SoftDeviceDrawing, ANewBackBufferIsOpaqueBlack) {
    EXPECT_EQ(device.BackBuffer().size(), 76800U);
    EXPECT_TRUE(std::ranges::all_of(device.BackBuffer(),
                                    [](std::uint32_t pixel) { return pixel == 0xFF000000; }));
}

TEST_F(SoftDeviceDrawing, ANewDeviceCopiesAndIgnoresAlpha) {
    const auto texture =
        MakeTexture(2, 1, [](int x, int) { return x == 0 ? 0x00FF8040U : 0x80102030U; });
    ASSERT_EQ(device.SetTexture(0, texture), D3D_OK);
    Draw(CornersOf({10, 20, 2, 1}, 2, 1));
    EXPECT_EQ(At(10, 20), 0xFF8040U) << "a keyed pixel keeps its colour";
    EXPECT_EQ(At(11, 20), 0x102030U);
    EXPECT_EQ(At(12, 20), 0U);
}

TEST_F(SoftDeviceDrawing, ANewDevicesAlphaIsTheTexturesAlone) {
    Fill(0xFF406080);
    const auto texture = MakeTexture(1, 1, [](int, int) { return 0x80FFFFFFU; });
    ASSERT_EQ(device.SetTexture(0, texture), D3D_OK);
    SetBlending(D3DBLEND_SRCALPHA, D3DBLEND_INVSRCALPHA);
    Draw(CornersOf({0, 0, 1, 1, 0, 0, false, 0x00FFFFFF}, 1, 1));
    EXPECT_EQ(At(0, 0), 0xA0B0C0U);
    ASSERT_EQ(device.SetTextureStageState(0, D3DTSS_ALPHAOP, D3DTOP_MODULATE), D3D_OK);
    Draw(CornersOf({1, 0, 1, 1, 0, 0, false, 0x00FFFFFF}, 1, 1));
    EXPECT_EQ(At(1, 0), 0x406080U) << "times the vertices'";
    Draw(CornersOf({2, 0, 1, 1, 0, 0, false, 0x64000000}, 1, 1));
    EXPECT_EQ(At(2, 0), 0x334D67U) << "as other devices draw a shadow";
    ASSERT_EQ(device.SetTexture(0, nullptr), D3D_OK);
    Draw(CornersOf({3, 0, 1, 1, 0, 0, false, 0x40FF0000}, 1, 1));
    EXPECT_EQ(At(3, 0), 0x704860U) << "white without a texture";
}

TEST_F(SoftDeviceDrawing, AMaskedDrawLeavesKeyedPixelsOut) {
    const auto texture = MakeTexture(
        40, 10, [](int x, int y) { return ((x + y) % 3 == 0 ? 0U : 0xFF000000U) | 0x00123456U; });
    for (const bool prepared : {false, true}) {
        Fill(0xFF406080);
        if (prepared) {
            texture->PreLoad();
        }
        ASSERT_EQ(device.SetTexture(0, texture), D3D_OK);
        SetBlending(D3DBLEND_SRCALPHA, D3DBLEND_INVSRCALPHA);
        Draw(CornersOf({100, 100, 40, 10}, 40, 10));
        for (std::int32_t y = 0; y < 10; ++y) {
            for (std::int32_t x = 0; x < 40; ++x) {
                EXPECT_EQ(At(100 + x, 100 + y), (x + y) % 3 == 0 ? 0x406080U : 0x123456U);
            }
        }
    }
}

// What was prepared does not outlive the pixels that it was made of.
TEST_F(SoftDeviceDrawing, ATextureThatIsWrittenAnewIsPreparedAnew) {
    const auto texture = MakeTexture(20, 2, [](int, int) { return 0x00FFFFFFU; });
    texture->PreLoad();
    texture->LockRect().words[5] = 0xFF112233;
    texture->UnlockRect();
    ASSERT_EQ(device.SetTexture(0, texture), D3D_OK);
    SetBlending(D3DBLEND_SRCALPHA, D3DBLEND_INVSRCALPHA);
    Draw(CornersOf({0, 0, 20, 2}, 20, 2));
    EXPECT_EQ(At(5, 0), 0x112233U);
    texture->LockRect().words[6] = 0xFF445566;
    texture->UnlockRect();
    texture->PreLoad();
    texture->PreLoad();
    Draw(CornersOf({0, 0, 20, 2}, 20, 2));
    EXPECT_EQ(At(6, 0), 0x445566U);
}

TEST_F(SoftDeviceDrawing, KeepsTheTextureThatIsSetAlive) {
    auto texture = MakeTexture(1, 1, [](int, int) { return 0xFF112233U; });
    const std::weak_ptr<Direct3DTexture8> watched = texture;
    ASSERT_EQ(device.SetTexture(0, texture), D3D_OK);
    texture.reset();
    EXPECT_FALSE(watched.expired());
    Draw(CornersOf({0, 0, 1, 1}, 1, 1));
    EXPECT_EQ(At(0, 0), 0x112233U);
    ASSERT_EQ(device.SetTexture(0, nullptr), D3D_OK);
    EXPECT_TRUE(watched.expired());
}

TEST_F(SoftDeviceDrawing, APolygonOfAnyStripIsDrawn) {
    const std::array<Vertex, 3> triangle{Corner(0, 0, 0xFF00FF00), Corner(8, 0, 0xFF00FF00),
                                         Corner(0, 8, 0xFF00FF00)};
    ASSERT_EQ(device.BeginScene(), D3D_OK);
    EXPECT_EQ(device.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 1, triangle, 32), D3D_OK);
    EXPECT_EQ(At(0, 0), 0x00FF00U);
    EXPECT_EQ(At(7, 7), 0U);

    // Of more vertices than it needs a draw takes the first ones.
    Corners corners = CornersOf({100, 100, 8, 8}, 1, 1);
    EXPECT_EQ(device.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 1, corners, 32), D3D_OK);
    EXPECT_EQ(At(100, 107), 0xFFFFFFU);
    EXPECT_EQ(At(107, 107), 0U);
}

// States

TEST_F(SoftDeviceDrawing, RefusesWhatItDoesNotKnow) {
    EXPECT_EQ(device.SetVertexShader(0x144), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.SetRenderState(22, 1), D3DERR_INVALIDCALL) << "cull mode";
    EXPECT_EQ(device.SetRenderState(D3DRS_SRCBLEND, 3), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.SetRenderState(D3DRS_SRCBLEND, 0), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.SetRenderState(D3DRS_DESTBLEND, 4), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.SetRenderState(D3DRS_BLENDOP, 0), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.SetRenderState(D3DRS_BLENDOP, 4), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.SetTextureStageState(1, D3DTSS_ALPHAOP, D3DTOP_MODULATE), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.SetTextureStageState(0, 1, D3DTOP_MODULATE), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.SetTextureStageState(0, D3DTSS_ALPHAOP, 3), D3DERR_INVALIDCALL);
    for (const std::uint32_t type : {D3DTSS_ADDRESSU, D3DTSS_ADDRESSV}) {
        EXPECT_EQ(device.SetTextureStageState(0, type, 0), D3DERR_INVALIDCALL);
        EXPECT_EQ(device.SetTextureStageState(0, type, 2), D3DERR_INVALIDCALL) << "mirroring";
        EXPECT_EQ(device.SetTextureStageState(1, type, D3DTADDRESS_WRAP), D3DERR_INVALIDCALL);
    }
    for (const std::uint32_t type : {D3DTSS_MAGFILTER, D3DTSS_MINFILTER}) {
        EXPECT_EQ(device.SetTextureStageState(0, type, 0), D3DERR_INVALIDCALL);
        EXPECT_EQ(device.SetTextureStageState(0, type, 3), D3DERR_INVALIDCALL) << "anisotropic";
    }
    EXPECT_EQ(device.SetTexture(1, nullptr), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.SetTexture(0, std::make_shared<test::NullTexture>(4, 4)), D3DERR_INVALIDCALL);

    // None of it has changed anything: still a plain copy, without a texture.
    Fill(0x80123456);
    EXPECT_TRUE(IsAll(0x123456));
}

TEST_F(SoftDeviceDrawing, TakesEveryStateThatItKnows) {
    for (const std::uint32_t value : {0U, 1U, 0xFFFFFFFFU}) {
        EXPECT_EQ(device.SetRenderState(D3DRS_LIGHTING, value), D3D_OK);
        EXPECT_EQ(device.SetRenderState(D3DRS_ALPHABLENDENABLE, value), D3D_OK);
    }
    for (const std::uint32_t factor :
         {D3DBLEND_ZERO, D3DBLEND_ONE, D3DBLEND_SRCALPHA, D3DBLEND_INVSRCALPHA}) {
        EXPECT_EQ(device.SetRenderState(D3DRS_SRCBLEND, factor), D3D_OK);
        EXPECT_EQ(device.SetRenderState(D3DRS_DESTBLEND, factor), D3D_OK);
    }
    for (const std::uint32_t operation :
         {D3DBLENDOP_ADD, D3DBLENDOP_SUBTRACT, D3DBLENDOP_REVSUBTRACT}) {
        EXPECT_EQ(device.SetRenderState(D3DRS_BLENDOP, operation), D3D_OK);
    }
    EXPECT_EQ(device.SetTextureStageState(0, D3DTSS_ALPHAOP, D3DTOP_SELECTARG1), D3D_OK);
    EXPECT_EQ(device.SetTextureStageState(0, D3DTSS_ALPHAOP, D3DTOP_MODULATE), D3D_OK);
    for (const std::uint32_t type : {D3DTSS_ADDRESSU, D3DTSS_ADDRESSV}) {
        EXPECT_EQ(device.SetTextureStageState(0, type, D3DTADDRESS_CLAMP), D3D_OK);
        EXPECT_EQ(device.SetTextureStageState(0, type, D3DTADDRESS_WRAP), D3D_OK);
    }
    for (const std::uint32_t type : {D3DTSS_MAGFILTER, D3DTSS_MINFILTER}) {
        EXPECT_EQ(device.SetTextureStageState(0, type, D3DTEXF_LINEAR), D3D_OK);
        EXPECT_EQ(device.SetTextureStageState(0, type, D3DTEXF_POINT), D3D_OK);
    }
}

// Texels 100 and 200 over four pixels: each state on its own, as the last one set.
TEST_F(SoftDeviceDrawing, LooksTexelsUpByFilterAndAddress) {
    using Line = std::array<std::uint32_t, 4>;
    const auto texture = MakeTexture(2, 2, [](int x, int y) {
        return 0xFF000000U + static_cast<std::uint32_t>(100 * (x + y + 1));
    });
    ASSERT_EQ(device.SetTexture(0, texture), D3D_OK);
    const auto lineOf = [&](const Corners& corners) {
        Draw(corners);
        return Line{At(10, 20), At(11, 20), At(12, 20), At(13, 20)};
    };
    const auto set = [&](std::uint32_t type, std::uint32_t value) {
        ASSERT_EQ(device.SetTextureStageState(0, type, value), D3D_OK);
    };
    const Corners twice = ScaledCornersOf({10, 20, 4, 1, 0, 0, 2, 1}, 2, 2);
    const Corners beyond = ScaledCornersOf({10, 20, 4, 1, -1, 0, 4, 1}, 2, 2);
    const Corners above = ScaledCornersOf({10, 20, 4, 1, 0, -1, 4, 1}, 2, 2);
    EXPECT_EQ(lineOf(twice), (Line{100, 100, 200, 200}));
    EXPECT_EQ(lineOf(beyond), (Line{200, 100, 200, 100}));
    EXPECT_EQ(lineOf(above), (Line{200, 300, 200, 300}));
    set(D3DTSS_ADDRESSV, D3DTADDRESS_CLAMP);
    EXPECT_EQ(lineOf(above), (Line{100, 200, 100, 200}));
    EXPECT_EQ(lineOf(beyond), (Line{200, 100, 200, 100}));
    set(D3DTSS_ADDRESSU, D3DTADDRESS_CLAMP);
    EXPECT_EQ(lineOf(beyond), (Line{100, 100, 200, 200}));
    set(D3DTSS_MAGFILTER, D3DTEXF_LINEAR);
    EXPECT_EQ(lineOf(twice), (Line{100, 100, 200, 200})) << "one of two filters";
    set(D3DTSS_MINFILTER, D3DTEXF_LINEAR);
    EXPECT_EQ(lineOf(twice), (Line{100, 125, 175, 200}));
    set(D3DTSS_ADDRESSU, D3DTADDRESS_WRAP);
    EXPECT_EQ(lineOf(twice), (Line{125, 125, 175, 175}));
    set(D3DTSS_MAGFILTER, D3DTEXF_POINT);
    EXPECT_EQ(lineOf(twice), (Line{100, 100, 200, 200}));
}

TEST_F(SoftDeviceDrawing, BlendsByOperation) {
    Fill(0xFF406080);
    SetBlending(D3DBLEND_ONE, D3DBLEND_ONE);
    Fill(0xFF102030);
    EXPECT_TRUE(IsAll(0x5080B0));
    ASSERT_EQ(device.SetRenderState(D3DRS_BLENDOP, D3DBLENDOP_REVSUBTRACT), D3D_OK);
    Fill(0xFF10A030);
    EXPECT_TRUE(IsAll(0x400080));
    ASSERT_EQ(device.SetRenderState(D3DRS_BLENDOP, D3DBLENDOP_SUBTRACT), D3D_OK);
    Fill(0xFF50FF70);
    EXPECT_TRUE(IsAll(0x10FF00));
}

// Scenes

TEST_F(SoftDeviceDrawing, DrawsOnlyInAScene) {
    EXPECT_EQ(device.EndScene(), D3DERR_INVALIDCALL);
    EXPECT_EQ(DrawQuad(SomeQuad()), D3DERR_INVALIDCALL);
    EXPECT_TRUE(IsAll(0));
    EXPECT_EQ(device.BeginScene(), D3D_OK);
    EXPECT_EQ(device.BeginScene(), D3DERR_INVALIDCALL);
    EXPECT_EQ(DrawQuad(SomeQuad()), D3D_OK) << "the first one goes on";
    EXPECT_TRUE(IsAll(0xFFFFFF));
    EXPECT_EQ(device.EndScene(), D3D_OK);
    EXPECT_EQ(device.EndScene(), D3DERR_INVALIDCALL);
    EXPECT_EQ(DrawQuad(SomeQuad()), D3DERR_INVALIDCALL);
}

TEST_F(SoftDeviceDrawing, RefusesWrongDraws) {
    ASSERT_EQ(device.BeginScene(), D3D_OK);
    const Corners corners = SomeQuad();
    const std::span<const Vertex> all(corners);
    constexpr std::uint32_t kStrip = D3DPT_TRIANGLESTRIP;
    EXPECT_EQ(device.DrawPrimitiveUP(4, 1, all, 32), D3DERR_INVALIDCALL) << "triangle list";
    EXPECT_EQ(device.DrawPrimitiveUP(6, 2, all, 32), D3DERR_INVALIDCALL) << "triangle fan";
    EXPECT_EQ(device.DrawPrimitiveUP(kStrip, 2, all, 31), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.DrawPrimitiveUP(kStrip, 2, all, 0), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.DrawPrimitiveUP(kStrip, 0, all, 32), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.DrawPrimitiveUP(kStrip, 3, all, 32), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.DrawPrimitiveUP(kStrip, 0xFFFFFFFF, all, 32), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.DrawPrimitiveUP(kStrip, 2, all.first(3), 32), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.DrawPrimitiveUP(kStrip, 1, all.first(2), 32), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.DrawPrimitiveUP(kStrip, 1, {}, 32), D3DERR_INVALIDCALL);
    EXPECT_TRUE(IsAll(0));
    EXPECT_EQ(device.DrawPrimitiveUP(kStrip, 2, all, 32), D3D_OK);
}

TEST_F(SoftDeviceDrawing, RefusesToDrawWithoutAVertexFormat) {
    SoftDevice fresh;
    ASSERT_EQ(fresh.BeginScene(), D3D_OK);
    EXPECT_EQ(fresh.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 2, SomeQuad(), 32), D3DERR_INVALIDCALL);
    ASSERT_EQ(fresh.SetVertexShader(kVertexFormat), D3D_OK);
    EXPECT_EQ(fresh.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 2, SomeQuad(), 32), D3D_OK);
}

// The viewport

struct ViewportRow {
    const char* what;
    D3DVIEWPORT8 viewport;
    HRESULT expected;
};

TEST_F(SoftDeviceDrawing, AViewportLiesInTheBackBuffer) {
    for (const ViewportRow& row : {
             ViewportRow{"all of it", {0, 0, 320, 240}, D3D_OK},
             {"its last pixel", {319, 239, 1, 1}, D3D_OK},
             {"of no width", {5, 5, 0, 5}, D3DERR_INVALIDCALL},
             {"of no height", {5, 5, 5, 0}, D3DERR_INVALIDCALL},
             {"beyond the right", {1, 0, 320, 240}, D3DERR_INVALIDCALL},
             {"beyond the bottom", {0, 1, 320, 240}, D3DERR_INVALIDCALL},
             {"far off", {0xFFFFFFFF, 0xFFFFFFFF, 2, 2}, D3DERR_INVALIDCALL},
             {"endless", {1, 1, 0xFFFFFFFF, 0xFFFFFFFF}, D3DERR_INVALIDCALL},
         }) {
        ASSERT_EQ(device.SetViewport({0, 0, 320, 240}), D3D_OK);
        Fill(0xFF000000);
        ASSERT_EQ(device.SetViewport({10, 20, 30, 40}), D3D_OK);
        EXPECT_EQ(device.SetViewport(row.viewport), row.expected) << row.what;
        Fill(0xFF112233);
        const D3DVIEWPORT8 drawn =
            row.expected == D3D_OK ? row.viewport : D3DVIEWPORT8{10, 20, 30, 40};
        for (std::uint32_t y = 0; y < 240; ++y) {
            for (std::uint32_t x = 0; x < 320; ++x) {
                const bool within = x >= drawn.X && x - drawn.X < drawn.Width && y >= drawn.Y &&
                                    y - drawn.Y < drawn.Height;
                ASSERT_EQ(At(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)),
                          within ? 0x112233U : 0U)
                    << row.what << " at " << x << "," << y;
            }
        }
    }
}

// Whatever draws: quads of whole pixels, others, triangles and Clear.
TEST_F(SoftDeviceDrawing, NothingIsDrawnOutsideOfTheViewport) {
    const auto texture = MakeTexture(400, 300, [](int, int) { return 0xFF445566U; });
    texture->PreLoad();
    const Corners whole = CornersOf({-10, -10, 400, 300}, 400, 300);
    const Corners small = CornersOf({3, 4, 7, 8}, 400, 300);
    const Corners slanted{Corner(-300, 300, 0xFF445566), Corner(-200, -100, 0xFF445566),
                          Corner(900, 400, 0xFF445566), Corner(800, -90, 0xFF445566)};
    for (int way = 0; way < 5; ++way) {
        ASSERT_EQ(device.SetViewport({0, 0, 320, 240}), D3D_OK);
        Fill(0xFF000000);
        ASSERT_EQ(device.SetViewport({50, 60, 70, 80}), D3D_OK);
        ASSERT_EQ(device.SetTexture(0, way < 3 ? texture : nullptr), D3D_OK);
        switch (way) {
            case 0: Draw(whole); break;
            case 1: Draw(ScaledCornersOf({-10, -10, 500, 700, 0, 0, 40, 30}, 400, 300)); break;
            case 2: Draw(small); break;
            case 3: Draw(slanted); break;
            default: ASSERT_EQ(device.Clear(D3DCLEAR_TARGET, 0xFF445566), D3D_OK);
        }
        std::size_t inside = 0;
        std::size_t outside = 0;
        for (std::int32_t y = 0; y < 240; ++y) {
            for (std::int32_t x = 0; x < 320; ++x) {
                const bool within = x >= 50 && x < 120 && y >= 60 && y < 140;
                (within ? inside : outside) += At(x, y) == 0x445566 ? 1U : 0U;
            }
        }
        EXPECT_EQ(inside, way == 2 ? 0U : 70U * 80) << way;
        EXPECT_EQ(outside, 0U) << way;
    }
}

TEST_F(SoftDeviceDrawing, ResetBringsTheWholeViewportBack) {
    ASSERT_EQ(device.SetViewport({50, 60, 70, 80}), D3D_OK);
    ASSERT_EQ(device.Reset(GoodParameters()), D3D_OK);
    ASSERT_EQ(device.SetVertexShader(kVertexFormat), D3D_OK);
    Fill(0xFF112233);
    EXPECT_TRUE(IsAll(0x112233));
}

// Presenting

TEST_F(SoftDeviceDrawing, PresentShowsTheBackBufferAndKeepsIt) {
    Fill(0xFF112233);
    EXPECT_EQ(device.Present(), D3D_OK);
    Draw(CornersOf({0, 0, 10, 10, 0, 0, false, 0xFF445566}, 1, 1));
    EXPECT_EQ(device.Present(), D3D_OK);
    ASSERT_EQ(sink.shown.size(), 2U);
    const auto shown = [&](std::size_t picture, std::size_t pixel) {
        return sink.shown[picture].at(pixel) & kColorMask;
    };
    ASSERT_EQ(sink.shown[0].size(), 76800U);
    EXPECT_EQ(shown(0, 0), 0x112233U);
    EXPECT_EQ(shown(0, 76799), 0x112233U);
    EXPECT_EQ(shown(1, 0), 0x445566U);
    EXPECT_EQ(shown(1, 76799), 0x112233U) << "what no quad covers stays from frame to frame";
    EXPECT_EQ(shown(1, 9), 0x445566U);
    EXPECT_EQ(shown(1, 10), 0x112233U);
    EXPECT_EQ(shown(1, 320), 0x445566U);
}

TEST_F(SoftDeviceDrawing, PresentAnswersWhatTheSinkDoes) {
    sink.answer = D3DERR_NOTAVAILABLE;
    EXPECT_EQ(device.Present(), D3DERR_NOTAVAILABLE);
    SoftDevice unseen;
    EXPECT_EQ(unseen.Present(), D3D_OK);
}

TEST_F(SoftDeviceDrawing, PresentInsideOfASceneIsRefused) {
    ASSERT_EQ(device.BeginScene(), D3D_OK);
    EXPECT_EQ(device.Present(), D3DERR_INVALIDCALL);
    EXPECT_TRUE(sink.shown.empty());
}

// Loss

TEST_F(SoftDeviceDrawing, ALostDeviceAnswersSoUntilItIsReset) {
    EXPECT_EQ(device.TestCooperativeLevel(), D3D_OK);
    const auto lostAnswers = [&] {
        EXPECT_TRUE(device.IsLost());
        EXPECT_EQ(device.BeginScene(), D3DERR_DEVICELOST);
        EXPECT_EQ(DrawQuad(SomeQuad()), D3DERR_DEVICELOST);
        EXPECT_EQ(device.EndScene(), D3DERR_DEVICELOST);
        EXPECT_EQ(device.Present(), D3DERR_DEVICELOST);
        EXPECT_EQ(device.SetRenderState(D3DRS_LIGHTING, 0), D3D_OK);
        EXPECT_EQ(device.SetTexture(0, nullptr), D3D_OK);
        EXPECT_TRUE(IsAll(0));
        EXPECT_TRUE(sink.shown.empty());
    };
    device.Lose();
    EXPECT_EQ(device.TestCooperativeLevel(), D3DERR_DEVICELOST);
    EXPECT_EQ(device.Reset(GoodParameters()), D3DERR_DEVICELOST);
    EXPECT_EQ(device.TestCooperativeLevel(), D3DERR_DEVICELOST);
    lostAnswers();
    device.AllowReset();
    EXPECT_EQ(device.TestCooperativeLevel(), D3DERR_DEVICENOTRESET);
    lostAnswers();
    EXPECT_EQ(device.Reset(GoodParameters()), D3D_OK);
    EXPECT_EQ(device.TestCooperativeLevel(), D3D_OK);
    EXPECT_EQ(device.BeginScene(), D3D_OK);
    EXPECT_EQ(device.EndScene(), D3D_OK);
    EXPECT_EQ(device.Present(), D3D_OK);
    device.AllowReset();
    EXPECT_EQ(device.TestCooperativeLevel(), D3D_OK) << "nothing to reset";
    device.Lose();
    device.AllowReset();
    device.Lose();
    EXPECT_EQ(device.TestCooperativeLevel(), D3DERR_DEVICELOST) << "lost again";
}

TEST_F(SoftDeviceDrawing, ResetMakesItADeviceLikeNew) {
    auto texture = MakeTexture(1, 1, [](int, int) { return 0x80FF0000U; });
    const std::weak_ptr<Direct3DTexture8> watched = texture;
    ASSERT_EQ(device.SetTexture(0, texture), D3D_OK);
    SetBlending(D3DBLEND_SRCALPHA, D3DBLEND_ONE);
    ASSERT_EQ(device.SetRenderState(D3DRS_BLENDOP, D3DBLENDOP_REVSUBTRACT), D3D_OK);
    ASSERT_EQ(device.SetTextureStageState(0, D3DTSS_ALPHAOP, D3DTOP_MODULATE), D3D_OK);
    Fill(0xFF112233);
    ASSERT_EQ(device.SetTexture(0, texture), D3D_OK);
    ASSERT_EQ(device.BeginScene(), D3D_OK);
    device.Lose();
    device.AllowReset();
    ASSERT_EQ(device.Reset(GoodParameters()), D3D_OK);

    EXPECT_TRUE(std::ranges::all_of(device.BackBuffer(),
                                    [](std::uint32_t pixel) { return pixel == 0xFF000000; }));
    EXPECT_EQ(device.EndScene(), D3DERR_INVALIDCALL) << "no scene";
    ASSERT_EQ(device.BeginScene(), D3D_OK);
    EXPECT_EQ(DrawQuad(SomeQuad()), D3DERR_INVALIDCALL) << "no vertex format";
    ASSERT_EQ(device.EndScene(), D3D_OK);
    ASSERT_EQ(device.SetVertexShader(kVertexFormat), D3D_OK);
    Draw(CornersOf({0, 0, 1, 1, 0, 0, false, 0x40445566}, 1, 1));
    EXPECT_EQ(At(0, 0), 0x445566U) << "no texture, no blending";
    texture->LockRect().words[0] = 0xFF665544;
    texture->UnlockRect();
    ASSERT_EQ(device.SetTexture(0, texture), D3D_OK);
    Draw(CornersOf({0, 0, 1, 1}, 1, 1));
    EXPECT_EQ(At(0, 0), 0x665544U) << "textures stay";
    ASSERT_EQ(device.SetTexture(0, nullptr), D3D_OK);
    texture.reset();
    EXPECT_TRUE(watched.expired());
}

TEST_F(SoftDeviceDrawing, ResetChecksItsParameters) {
    D3DPRESENT_PARAMETERS parameters = GoodParameters();
    parameters.SwapEffect = 1;
    Fill(0xFF112233);
    EXPECT_EQ(device.Reset(parameters), D3DERR_INVALIDCALL);
    EXPECT_TRUE(IsAll(0x112233)) << "nothing happened";
    device.Lose();
    device.AllowReset();
    EXPECT_EQ(device.Reset(parameters), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.TestCooperativeLevel(), D3DERR_DEVICENOTRESET);
    EXPECT_EQ(device.Reset(GoodParameters()), D3D_OK) << "also one that works";
    EXPECT_EQ(device.Reset(GoodParameters()), D3D_OK);
}

// Frames

// Presents to nobody, and asks for no memory to do so.
class CountingSink : public PictureSink {
public:
    HRESULT Show(const CanvasSize& /*size*/, std::span<const std::uint32_t> /*pixels*/) override {
        ++pictures;
        return D3D_OK;
    }
    int pictures = 0;
};

TEST(SoftDeviceFrames, AllocateNothing) {
    CountingSink counter;
    SoftDevice device(std::make_shared<TextureMemory>(), &counter);
    ASSERT_EQ(device.SetVertexShader(kVertexFormat), D3D_OK);
    std::vector<std::shared_ptr<Direct3DTexture8>> textures;
    for (const std::uint32_t alpha : {0x00U, 0x80U, 0xFFU}) {
        for (const bool prepared : {false, true}) {
            TextureParameters parameters;
            parameters.width = 300;
            parameters.height = 200;
            textures.push_back(device.CreateTexture(parameters));
            std::ranges::fill(textures.back()->LockRect().words, alpha << 24U);
            textures.back()->UnlockRect();
            if (prepared) {
                textures.back()->PreLoad();
            }
        }
    }
    const std::size_t before = test::AllocationCount();
    HRESULT worst = D3D_OK;
    const auto check = [&](HRESULT result) { worst = std::min(worst, result); };
    for (int frame = 0; frame < 3; ++frame) {
        check(device.BeginScene());
        for (const std::uint32_t blending : {0U, 1U}) {
            check(device.SetRenderState(D3DRS_ALPHABLENDENABLE, blending));
            check(device.SetRenderState(D3DRS_SRCBLEND, D3DBLEND_SRCALPHA));
            check(device.SetRenderState(D3DRS_DESTBLEND, D3DBLEND_INVSRCALPHA));
            for (const auto& texture : textures) {
                check(device.SetTexture(0, texture));
                for (const Blit& blit :
                     {Blit{frame, 5, 300, 200}, Blit{-20, -30, 300, 200, 0, 0, true},
                      Blit{0, 0, 320, 240, 17, 18}, Blit{9, 9, 50, 50, 0, 0, false, 0x64000000}}) {
                    check(device.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 2, CornersOf(blit, 300, 200),
                                                 32));
                }
                for (const test::ScaledBlit& blit :
                     {test::ScaledBlit{-9, -9, 600, 500, 0, 0, 300, 200, frame == 1},
                      test::ScaledBlit{5, 6, 70, 80, -50, -60, 700, 800}}) {
                    check(device.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 2,
                                                 ScaledCornersOf(blit, 300, 200), 32));
                }
                const Corners gradient{Corner(0.5, 0, 0xFFFF0000), Corner(300, 7, 0xFF00FF00, 1),
                                       Corner(0, 200, 0x400000FF, 0, 1),
                                       Corner(310, 240, 0xFFFFE100, 1, 1)};
                check(device.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 2, gradient, 32));
            }
            check(device.SetTexture(0, nullptr));
            check(device.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 2, SomeQuad(), 32));
        }
        check(device.EndScene());
        check(device.Present());
    }
    const std::size_t after = test::AllocationCount();
    EXPECT_EQ(worst, D3D_OK);
    EXPECT_EQ(counter.pictures, 3);
    EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace scenara
