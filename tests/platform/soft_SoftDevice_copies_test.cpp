// SPDX-License-Identifier: MIT
//
// Copies between the back buffer and images.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

#include "GoodParameters.h"
#include "platform/soft/SoftDevice.h"
#include "support/AllocationCount.h"
#include "support/NullDevice.h"

namespace scenara {
namespace {

using Surface = std::shared_ptr<Direct3DSurface8>;

class SoftDeviceCopies : public testing::Test {
protected:
    // Every pixel of the back buffer is its own number.
    void SetUp() override {
        ASSERT_EQ(device.GetBackBuffer(0, D3DBACKBUFFER_TYPE_MONO, backBuffer), D3D_OK);
        ASSERT_EQ(device.CreateImageSurface(10, 4, D3DFMT_X8R8G8B8, image), D3D_OK);
        std::iota(device.BackBuffer().begin(), device.BackBuffer().end(), 0U);
    }

    [[nodiscard]] std::uint32_t At(std::int32_t x, std::int32_t y) const {
        return device.BackBuffer()[static_cast<std::size_t>(y * View().width + x)];
    }
    [[nodiscard]] std::vector<std::uint32_t> Pixels() const {
        return {device.BackBuffer().begin(), device.BackBuffer().end()};
    }

    SoftDevice device;
    Surface backBuffer;
    Surface image;
};

TEST_F(SoftDeviceCopies, BringPixelsBackAsTheyWere) {
    const std::vector<std::uint32_t> before = Pixels();
    ASSERT_EQ(device.CopyRects(*backBuffer, {310, 236, 320, 240}, *image, {0, 0}), D3D_OK);
    std::ranges::fill(device.BackBuffer(), 7U);
    ASSERT_EQ(device.CopyRects(*image, {0, 0, 10, 4}, *backBuffer, {310, 236}), D3D_OK);
    for (std::int32_t y = 0; y < View().height; ++y) {
        for (std::int32_t x = 0; x < View().width; ++x) {
            const auto number = static_cast<std::uint32_t>(y * View().width + x);
            ASSERT_EQ(At(x, y), x >= 310 && y >= 236 ? before[number] : 7U) << x << ',' << y;
        }
    }
}

TEST_F(SoftDeviceCopies, TakePartsToOtherPlaces) {
    ASSERT_EQ(device.CopyRects(*backBuffer, {3, 2, 5, 4}, *image, {7, 1}), D3D_OK);
    ASSERT_EQ(device.CopyRects(*image, {8, 2, 9, 3}, *backBuffer, {0, 0}), D3D_OK);
    EXPECT_EQ(At(0, 0), 3U * View().width + 4U);
    EXPECT_EQ(At(1, 0), 1U);
}

struct RefusedCopy {
    const char* name;
    bool fromImage;
    bool toImage;
    RECT rectangle;
    POINT place;
};

TEST_F(SoftDeviceCopies, OutsideOfASurfaceAreRefused) {
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    const std::vector<std::uint32_t> before = Pixels();
    for (const RefusedCopy& copy : {
             RefusedCopy{"of nothing", true, false, {2, 2, 2, 3}, {0, 0}},
             RefusedCopy{"of less than nothing", true, false, {3, 2, 2, 3}, {0, 0}},
             RefusedCopy{"beyond the right", true, false, {0, 0, 11, 4}, {0, 0}},
             RefusedCopy{"beyond the bottom", true, false, {0, 0, 10, 5}, {0, 0}},
             RefusedCopy{"left of it", true, false, {-1, 0, 3, 3}, {0, 0}},
             RefusedCopy{"above it", true, false, {0, -1, 3, 3}, {0, 0}},
             RefusedCopy{"to beyond the right", true, false, {0, 0, 10, 4}, {311, 0}},
             RefusedCopy{"to beyond the bottom", true, false, {0, 0, 10, 4}, {0, 237}},
             RefusedCopy{"to the left", true, false, {0, 0, 10, 4}, {-1, 0}},
             RefusedCopy{"to above", true, false, {0, 0, 10, 4}, {0, -1}},
             RefusedCopy{"to anywhere", true, false, {0, 0, 10, 4}, {kMost, kMost}},
             RefusedCopy{"of more than there are", false, true, {0, 0, 11, 1}, {0, 0}},
             RefusedCopy{"of everything", false, true, {kLeast, kLeast, kMost, kMost}, {0, 0}},
             RefusedCopy{"within the image", true, true, {0, 0, 1, 1}, {1, 1}},
             RefusedCopy{"within the buffer", false, false, {0, 0, 1, 1}, {1, 1}},
         }) {
        EXPECT_EQ(device.CopyRects(copy.fromImage ? *image : *backBuffer, copy.rectangle,
                                   copy.toImage ? *image : *backBuffer, copy.place),
                  D3DERR_INVALIDCALL)
            << copy.name;
        ASSERT_EQ(Pixels(), before) << copy.name;
    }
}

TEST_F(SoftDeviceCopies, InASceneAndWithOthersSurfacesAreRefused) {
    test::NullSurface other;
    EXPECT_EQ(device.CopyRects(other, {0, 0, 1, 1}, *image, {0, 0}), D3DERR_INVALIDCALL);
    EXPECT_EQ(device.CopyRects(*image, {0, 0, 1, 1}, other, {0, 0}), D3DERR_INVALIDCALL);
    ASSERT_EQ(device.BeginScene(), D3D_OK);
    EXPECT_EQ(device.CopyRects(*backBuffer, {0, 0, 1, 1}, *image, {0, 0}), D3DERR_INVALIDCALL);
    ASSERT_EQ(device.EndScene(), D3D_OK);
    EXPECT_EQ(device.CopyRects(*backBuffer, {0, 0, 1, 1}, *image, {0, 0}), D3D_OK);
}

TEST_F(SoftDeviceCopies, OfALostDeviceWaitForItsReset) {
    ASSERT_EQ(device.CopyRects(*backBuffer, {5, 0, 6, 1}, *image, {0, 0}), D3D_OK);
    backBuffer.reset();
    device.Lose();
    ASSERT_EQ(device.GetBackBuffer(0, D3DBACKBUFFER_TYPE_MONO, backBuffer), D3D_OK);
    EXPECT_EQ(device.CopyRects(*backBuffer, {0, 0, 1, 1}, *image, {0, 0}), D3DERR_DEVICELOST);
    EXPECT_EQ(device.CopyRects(*image, {0, 0, 1, 1}, *backBuffer, {0, 0}), D3DERR_DEVICELOST);
    device.AllowReset();
    ASSERT_EQ(device.Reset(test::GoodParameters()), D3D_OK);
    EXPECT_EQ(device.CopyRects(*image, {0, 0, 1, 1}, *backBuffer, {0, 0}), D3D_OK);
    EXPECT_EQ(At(0, 0), 5U) << "an image outlives the loss";
}

TEST_F(SoftDeviceCopies, ThereIsOneBackBufferAndImagesHaveASize) {
    Surface surface = image;
    EXPECT_EQ(device.GetBackBuffer(1, D3DBACKBUFFER_TYPE_MONO, surface), D3DERR_INVALIDCALL);
    EXPECT_EQ(surface, nullptr);
    surface = image;
    EXPECT_EQ(device.GetBackBuffer(0, 1, surface), D3DERR_INVALIDCALL);
    EXPECT_EQ(surface, nullptr);
    struct Image {
        std::uint32_t width;
        std::uint32_t height;
        std::uint32_t format;
    };
    for (const auto& [width, height, format] :
         {Image{0, 4, D3DFMT_X8R8G8B8}, Image{4, 0, D3DFMT_X8R8G8B8},
          Image{32768, 1, D3DFMT_X8R8G8B8}, Image{1, 0xFFFFFFFF, D3DFMT_X8R8G8B8},
          Image{4, 4, D3DFMT_UNKNOWN}}) {
        surface = image;
        EXPECT_EQ(device.CreateImageSurface(width, height, format, surface), D3DERR_INVALIDCALL)
            << width << " x " << height << ", " << format;
        EXPECT_EQ(surface, nullptr);
    }
}

TEST_F(SoftDeviceCopies, AllocateNothing) {
    backBuffer.reset();
    const std::size_t before = test::AllocationCount();
    const HRESULT found = device.GetBackBuffer(0, D3DBACKBUFFER_TYPE_MONO, backBuffer);
    const HRESULT there = device.CopyRects(*backBuffer, {0, 0, 10, 4}, *image, {0, 0});
    const HRESULT back = device.CopyRects(*image, {0, 0, 10, 4}, *backBuffer, {0, 0});
    const std::size_t after = test::AllocationCount();
    EXPECT_EQ(found, D3D_OK);
    EXPECT_EQ(there, D3D_OK);
    EXPECT_EQ(back, D3D_OK);
    EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace scenara
