// SPDX-License-Identifier: MIT
//
// Direct3D objects that answer D3D_OK to everything and do nothing: a base for those of tests that
// want to see a call or two.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/Direct3D8.h"

namespace scenara::test {

// Has a size and no pixels.
class NullTexture : public Direct3DTexture8 {
public:
    NullTexture(std::int32_t width, std::int32_t height) : width_(width), height_(height) {}

    [[nodiscard]] std::int32_t Width() const override { return width_; }
    [[nodiscard]] std::int32_t Height() const override { return height_; }
    LockedPixels LockRect() override { return {{}, width_}; }
    void UnlockRect() override {}
    void PreLoad() override {}

private:
    std::int32_t width_;
    std::int32_t height_;
};

class NullSurface : public Direct3DSurface8 {};

class NullDevice : public Direct3DDevice8 {
public:
    std::shared_ptr<Direct3DTexture8> CreateTexture(const TextureParameters& parameters) override {
        return std::make_shared<NullTexture>(parameters.width, parameters.height);
    }
    HRESULT SetVertexShader(std::uint32_t /*format*/) override { return D3D_OK; }
    HRESULT SetRenderState(std::uint32_t /*state*/, std::uint32_t /*value*/) override {
        return D3D_OK;
    }
    HRESULT SetTextureStageState(std::uint32_t /*stage*/, std::uint32_t /*type*/,
                                 std::uint32_t /*value*/) override {
        return D3D_OK;
    }
    HRESULT SetViewport(const D3DVIEWPORT8& /*viewport*/) override { return D3D_OK; }
    HRESULT SetTexture(std::uint32_t /*stage*/,
                       const std::shared_ptr<Direct3DTexture8>& /*texture*/) override {
        return D3D_OK;
    }
    HRESULT BeginScene() override { return D3D_OK; }
    HRESULT EndScene() override { return D3D_OK; }
    HRESULT Clear(std::uint32_t /*flags*/, std::uint32_t /*color*/) override { return D3D_OK; }
    HRESULT DrawPrimitiveUP(std::uint32_t /*primitiveType*/, std::uint32_t /*primitiveCount*/,
                            std::span<const Vertex> /*vertices*/,
                            std::uint32_t /*stride*/) override {
        return D3D_OK;
    }
    HRESULT GetBackBuffer(std::uint32_t /*backBuffer*/, std::uint32_t /*type*/,
                          std::shared_ptr<Direct3DSurface8>& surface) override {
        surface = backBuffer_;
        return D3D_OK;
    }
    HRESULT CreateImageSurface(std::uint32_t /*width*/, std::uint32_t /*height*/,
                               std::uint32_t /*format*/,
                               std::shared_ptr<Direct3DSurface8>& surface) override {
        surface = std::make_shared<NullSurface>();
        return D3D_OK;
    }
    HRESULT CopyRects(Direct3DSurface8& /*source*/, const RECT& /*rectangle*/,
                      Direct3DSurface8& /*destination*/, const POINT& /*place*/) override {
        return D3D_OK;
    }
    HRESULT Present() override { return D3D_OK; }
    HRESULT TestCooperativeLevel() override { return D3D_OK; }
    HRESULT Reset(const D3DPRESENT_PARAMETERS& /*parameters*/) override { return D3D_OK; }

private:
    std::shared_ptr<Direct3DSurface8> backBuffer_ = std::make_shared<NullSurface>();
};

}  // namespace scenara::test
