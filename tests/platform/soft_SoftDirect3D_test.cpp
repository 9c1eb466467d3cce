// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "GoodParameters.h"
#include "platform/soft/SoftDirect3D.h"
#include "platform/soft/SoftFont.h"
#include "support/NullDevice.h"

namespace scenara {
namespace {

using test::GoodParameters;

class SizeSink : public PictureSink {
public:
    HRESULT Show(const CanvasSize& /*size*/, std::span<const std::uint32_t> pixels) override {
        shown = pixels.size();
        return D3D_OK;
    }
    std::size_t shown = 0;
};

class SoftDirect3DTest : public testing::Test {
protected:
    // What an engine makes, in its order.
    void Start() {
        root = machine->CreateDirectX8();
        ASSERT_NE(root, nullptr);
        direct3d = root->Direct3DCreate();
        ASSERT_NE(direct3d, nullptr);
        helper = machine->CreateD3DX8();
        ASSERT_NE(helper, nullptr);
    }
    void StartWithDevice() {
        Start();
        ASSERT_EQ(CreateDevice(), D3D_OK);
    }

    HRESULT CreateDevice(const D3DPRESENT_PARAMETERS& parameters = GoodParameters(),
                         std::uint32_t adapter = 0, std::uint32_t type = D3DDEVTYPE_HAL) {
        return direct3d->CreateDevice(adapter, type, 1234, D3DCREATE_SOFTWARE_VERTEXPROCESSING,
                                      parameters, device);
    }

    SizeSink sink;
    std::unique_ptr<SoftDirect3D> machine =
        std::make_unique<SoftDirect3D>(std::make_shared<TextureMemory>(), &sink);
    std::unique_ptr<DirectX8> root;
    std::unique_ptr<Direct3D8> direct3d;
    std::unique_ptr<D3DX8> helper;
    std::unique_ptr<Direct3DDevice8> device;
    std::unique_ptr<D3DXFont> font;
};

TEST_F(SoftDirect3DTest, TellsTheDisplayModeOfAdapter0) {
    Start();
    D3DDISPLAYMODE mode;
    EXPECT_EQ(direct3d->GetAdapterDisplayMode(0, mode), D3D_OK);
    EXPECT_EQ(mode.Format, D3DFMT_X8R8G8B8);
    EXPECT_GE(mode.Width, 320U);
    EXPECT_GE(mode.Height, 240U);
    EXPECT_EQ(direct3d->GetAdapterDisplayMode(1, mode), D3DERR_INVALIDCALL);
}

TEST_F(SoftDirect3DTest, MakesADeviceThatPresentsToTheSink) {
    EXPECT_EQ(machine->Device(), nullptr);
    StartWithDevice();
    EXPECT_EQ(machine->Device(), device.get());
    EXPECT_EQ(device->TestCooperativeLevel(), D3D_OK);
    EXPECT_EQ(device->Present(), D3D_OK);
    EXPECT_EQ(sink.shown, 76800U);
}

TEST_F(SoftDirect3DTest, ADeviceIsMadeAsDescribedOrNotAtAll) {
    Start();
    struct Row {
        const char* what;
        D3DPRESENT_PARAMETERS parameters;
        HRESULT expected;
    };
    const auto with = [](auto D3DPRESENT_PARAMETERS::*member, auto value) {
        D3DPRESENT_PARAMETERS parameters = GoodParameters();
        parameters.*member = value;
        return parameters;
    };
    D3DPRESENT_PARAMETERS viewSized = GoodParameters();
    viewSized.BackBufferWidth = 320;
    viewSized.BackBufferHeight = 240;
    using P = D3DPRESENT_PARAMETERS;
    const Row rows[] = {
        {"the window's size", GoodParameters(), D3D_OK},
        {"the view's size", viewSized, D3D_OK},
        {"not windowed", with(&P::Windowed, 0), D3DERR_INVALIDCALL},
        {"by discarding", with(&P::SwapEffect, 1U), D3DERR_INVALIDCALL},
        {"no swap effect", with(&P::SwapEffect, 0U), D3DERR_INVALIDCALL},
        {"another width", with(&P::BackBufferWidth, 640U), D3D_OK},
        {"another height", with(&P::BackBufferHeight, 200U), D3D_OK},
        {"the largest width", with(&P::BackBufferWidth, 7680U), D3D_OK},
        {"a width beyond that", with(&P::BackBufferWidth, 7681U), D3DERR_INVALIDCALL},
        {"the largest height", with(&P::BackBufferHeight, 4320U), D3D_OK},
        {"one line more", with(&P::BackBufferHeight, 4321U), D3DERR_INVALIDCALL},
        {"a height beyond that", with(&P::BackBufferHeight, 0xFFFFFFFFU), D3DERR_INVALIDCALL},
        {"no format", with(&P::BackBufferFormat, D3DFMT_UNKNOWN), D3DERR_INVALIDCALL},
        {"16 bits", with(&P::BackBufferFormat, 23U), D3DERR_INVALIDCALL},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(CreateDevice(row.parameters), row.expected) << row.what;
        EXPECT_EQ(device != nullptr, row.expected == D3D_OK) << row.what;
        EXPECT_EQ(machine->Device(), device.get()) << row.what;
    }
    EXPECT_EQ(CreateDevice(with(&P::BackBufferWidth, 640U)), D3D_OK);
    EXPECT_EQ(machine->Device()->Size(), (CanvasSize{640, 240}));
    EXPECT_EQ(machine->Device()->BackBuffer().size(), 640U * 240);
    EXPECT_EQ(device->Reset(with(&P::BackBufferHeight, 7U)), D3D_OK) << "takes another size";
    EXPECT_EQ(machine->Device()->Size(), (CanvasSize{320, 7}));
    EXPECT_EQ(CreateDevice(GoodParameters(), 1), D3DERR_INVALIDCALL) << "adapter 1";
    EXPECT_EQ(CreateDevice(GoodParameters(), 0, 2), D3DERR_INVALIDCALL) << "reference device";
    EXPECT_EQ(device, nullptr);
}

TEST_F(SoftDirect3DTest, ForgetsADeviceThatIsGone) {
    StartWithDevice();
    machine->Device()->Lose();
    EXPECT_EQ(device->TestCooperativeLevel(), D3DERR_DEVICELOST);
    device.reset();
    EXPECT_EQ(machine->Device(), nullptr);
    ASSERT_EQ(CreateDevice(), D3D_OK);
    EXPECT_EQ(machine->Device(), device.get());
    EXPECT_EQ(device->TestCooperativeLevel(), D3D_OK) << "a new one is not lost";
}

TEST_F(SoftDirect3DTest, OfTwoDevicesTheLastCountsAlsoAfterTheEndOfTheOther) {
    StartWithDevice();
    std::unique_ptr<Direct3DDevice8> first = std::move(device);
    ASSERT_EQ(CreateDevice(), D3D_OK);
    EXPECT_EQ(machine->Device(), device.get());
    EXPECT_NE(machine->Device(), first.get());
    first.reset();
    EXPECT_EQ(machine->Device(), device.get());
}

TEST_F(SoftDirect3DTest, ObjectsMayGoInAnyOrder) {
    StartWithDevice();
    SoftDevice* const soft = machine->Device();
    machine.reset();
    ASSERT_EQ(helper->CreateFont(*device, {}, font), D3D_OK);
    root.reset();
    EXPECT_EQ(soft->Present(), D3D_OK);
    D3DDISPLAYMODE mode;
    EXPECT_EQ(direct3d->GetAdapterDisplayMode(0, mode), D3D_OK);
    direct3d.reset();
    font.reset();
    helper.reset();
    TextureParameters parameters;
    parameters.width = 3;
    parameters.height = 3;
    const auto texture = device->CreateTexture(parameters);
    device.reset();
    EXPECT_EQ(texture->Width(), 3);
}

TEST_F(SoftDirect3DTest, EveryStepCanFail) {
    machine->FailAt(StartStep::DirectX8);
    EXPECT_EQ(machine->CreateDirectX8(), nullptr);
    EXPECT_NE(machine->CreateD3DX8(), nullptr) << "that step alone";
    machine->FailAt(StartStep::D3DX8);
    EXPECT_EQ(machine->CreateD3DX8(), nullptr);
    machine->FailAt(std::nullopt);
    Start();

    machine->FailAt(StartStep::Direct3D8);
    EXPECT_EQ(root->Direct3DCreate(), nullptr);

    machine->FailAt(StartStep::DisplayMode);
    D3DDISPLAYMODE mode;
    EXPECT_EQ(direct3d->GetAdapterDisplayMode(0, mode), D3DERR_NOTAVAILABLE);
    EXPECT_EQ(mode.Format, D3DFMT_UNKNOWN);
    EXPECT_EQ(CreateDevice(), D3D_OK);

    machine->FailAt(StartStep::Device);
    EXPECT_EQ(CreateDevice(), D3DERR_NOTAVAILABLE);
    EXPECT_EQ(device, nullptr);
    EXPECT_EQ(machine->Device(), nullptr);

    machine->FailAt(StartStep::Font);
    EXPECT_EQ(CreateDevice(), D3D_OK);
    EXPECT_EQ(helper->CreateFont(*device, {}, font), D3DERR_NOTAVAILABLE);
    EXPECT_EQ(font, nullptr);
    EXPECT_EQ(helper->CreateFont(*device, {}, font), D3DERR_NOTAVAILABLE) << "from then on";

    machine->FailAt(std::nullopt);
    EXPECT_EQ(helper->CreateFont(*device, {}, font), D3D_OK);
    EXPECT_EQ(direct3d->GetAdapterDisplayMode(0, mode), D3D_OK);
    EXPECT_NE(root->Direct3DCreate(), nullptr);
}

// Text

constexpr RECT kPlace{5, 5, 205, 25};

TEST_F(SoftDirect3DTest, DrawsTextIntoTheBackBuffer) {
    StartWithDevice();
    ASSERT_EQ(helper->CreateFont(*device, {"Times New Roman", 12, true, false}, font), D3D_OK);
    EXPECT_EQ(helper->DrawText(*font, 0xFFFF8000, "Cam 0,0", kPlace, DT_RIGHT), D3D_OK);
    ASSERT_EQ(device->BeginScene(), D3D_OK);
    EXPECT_EQ(helper->DrawText(*font, 0xFFFFFFFF, "60 FPS", {5, 100, 205, 120}, 0), D3D_OK)
        << "in a scene, too";

    std::vector<std::uint32_t> expected(machine->Device()->BackBuffer().size(), 0xFF000000);
    const auto plainFont = MakeSoftFont({"Times New Roman", 12, true, false});
    DrawSoftText(plainFont.get(), 0xFFFF8000, "Cam 0,0", kPlace, DT_RIGHT, expected, 320, 240);
    DrawSoftText(plainFont.get(), 0xFFFFFFFF, "60 FPS", {5, 100, 205, 120}, 0, expected, 320, 240);
    EXPECT_TRUE(std::ranges::equal(machine->Device()->BackBuffer(), expected));
}

TEST_F(SoftDirect3DTest, DrawsNoTextOnALostDevice) {
    StartWithDevice();
    ASSERT_EQ(helper->CreateFont(*device, {}, font), D3D_OK);
    machine->Device()->Lose();
    EXPECT_EQ(helper->DrawText(*font, 0xFFFFFFFF, "Cam 0,0", kPlace, 0), D3DERR_DEVICELOST);
    EXPECT_TRUE(std::ranges::all_of(machine->Device()->BackBuffer(),
                                    [](std::uint32_t pixel) { return pixel == 0xFF000000; }));
}

TEST_F(SoftDirect3DTest, RefusesFontsAndDevicesOfAnotherKind) {
    StartWithDevice();
    test::NullDevice other;
    EXPECT_EQ(helper->CreateFont(other, {}, font), D3DERR_INVALIDCALL);
    EXPECT_EQ(font, nullptr);
    class OtherFont : public D3DXFont {};
    OtherFont otherFont;
    EXPECT_EQ(helper->DrawText(otherFont, 0xFFFFFFFF, "x", kPlace, 0), D3DERR_INVALIDCALL);
}

}  // namespace
}  // namespace scenara
