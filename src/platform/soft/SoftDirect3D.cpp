// SPDX-License-Identifier: MIT
#include "platform/soft/SoftDirect3D.h"

#include <cstdint>
#include <string_view>
#include <utility>

#include "platform/soft/SoftFont.h"

namespace scenara {
namespace {

using Parts = std::shared_ptr<SoftDirect3DParts>;

constexpr D3DDISPLAYMODE kDisplayMode{1024, 768, 60, D3DFMT_X8R8G8B8};

class MachineDevice final : public SoftDevice {
public:
    MachineDevice(Parts parts, const D3DPRESENT_PARAMETERS& parameters)
        : SoftDevice(parts->memory, parts->sink, parameters), parts_(std::move(parts)) {
        parts_->device = this;
    }
    ~MachineDevice() override {
        if (parts_->device == this) {
            parts_->device = nullptr;
        }
    }

private:
    Parts parts_;
};

class SoftDirect3D8 final : public Direct3D8 {
public:
    explicit SoftDirect3D8(Parts parts) : parts_(std::move(parts)) {}

    HRESULT GetAdapterDisplayMode(std::uint32_t adapter, D3DDISPLAYMODE& mode) override {
        if (parts_->failing == StartStep::DisplayMode) {
            return D3DERR_NOTAVAILABLE;
        }
        if (adapter != 0) {
            return D3DERR_INVALIDCALL;
        }
        mode = kDisplayMode;
        return D3D_OK;
    }

    HRESULT CreateDevice(std::uint32_t adapter, std::uint32_t deviceType, WindowHandle /*window*/,
                         std::uint32_t /*behaviorFlags*/, const D3DPRESENT_PARAMETERS& parameters,
                         std::unique_ptr<Direct3DDevice8>& device) override {
        device.reset();
        if (parts_->failing == StartStep::Device) {
            return D3DERR_NOTAVAILABLE;
        }
        if (adapter != 0 || deviceType != D3DDEVTYPE_HAL) {
            return D3DERR_INVALIDCALL;
        }
        const HRESULT result = CheckPresentParameters(parameters);
        if (!Failed(result)) {
            device = std::make_unique<MachineDevice>(parts_, parameters);
        }
        return result;
    }

private:
    Parts parts_;
};

class SoftDirectX8 final : public DirectX8 {
public:
    explicit SoftDirectX8(Parts parts) : parts_(std::move(parts)) {}

    std::unique_ptr<Direct3D8> Direct3DCreate() override {
        if (parts_->failing == StartStep::Direct3D8) {
            return nullptr;
        }
        return std::make_unique<SoftDirect3D8>(parts_);
    }

private:
    Parts parts_;
};

// A font and the device that it was made for.
class DeviceFont final : public D3DXFont {
public:
    DeviceFont(SoftDevice& device, std::unique_ptr<D3DXFont> font)
        : device_(device), font_(std::move(font)) {}

    [[nodiscard]] SoftDevice& Device() const { return device_; }
    [[nodiscard]] D3DXFont& Font() const { return *font_; }

private:
    SoftDevice& device_;
    std::unique_ptr<D3DXFont> font_;
};

class SoftD3DX8 final : public D3DX8 {
public:
    explicit SoftD3DX8(Parts parts) : parts_(std::move(parts)) {}

    HRESULT CreateFont(Direct3DDevice8& device, const FontDescription& description,
                       std::unique_ptr<D3DXFont>& font) override {
        font.reset();
        if (parts_->failing == StartStep::Font) {
            return D3DERR_NOTAVAILABLE;
        }
        auto* const drawnOn = dynamic_cast<SoftDevice*>(&device);
        if (drawnOn == nullptr) {
            return D3DERR_INVALIDCALL;
        }
        font = std::make_unique<DeviceFont>(*drawnOn, MakeSoftFont(description));
        return D3D_OK;
    }

    HRESULT DrawText(D3DXFont& font, std::uint32_t color, std::string_view text,
                     const RECT& rectangle, std::uint32_t format) override {
        const auto* const deviceFont = dynamic_cast<DeviceFont*>(&font);
        if (deviceFont == nullptr) {
            return D3DERR_INVALIDCALL;
        }
        SoftDevice& device = deviceFont->Device();
        if (device.IsLost()) {
            return D3DERR_DEVICELOST;
        }
        DrawSoftText(deviceFont->Font(), color, text, rectangle, format, device.BackBuffer(),
                     device.Size().width, device.Size().height);
        return D3D_OK;
    }

private:
    Parts parts_;
};

}  // namespace

SoftDirect3D::SoftDirect3D(std::shared_ptr<TextureMemory> memory, PictureSink* sink)
    : parts_(std::make_shared<SoftDirect3DParts>(
          SoftDirect3DParts{std::move(memory), sink, std::nullopt, nullptr})) {}

std::unique_ptr<DirectX8> SoftDirect3D::CreateDirectX8() {
    if (parts_->failing == StartStep::DirectX8) {
        return nullptr;
    }
    return std::make_unique<SoftDirectX8>(parts_);
}

std::unique_ptr<D3DX8> SoftDirect3D::CreateD3DX8() {
    if (parts_->failing == StartStep::D3DX8) {
        return nullptr;
    }
    return std::make_unique<SoftD3DX8>(parts_);
}

}  // namespace scenara
