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

// An object that shares the machine's parts.
template <typename Interface>
class OfMachine : public Interface {
public:
    explicit OfMachine(Parts parts) : parts_(std::move(parts)) {}

protected:
    [[nodiscard]] bool Fails(StartStep step) const { return parts_->failing == step; }

    Parts parts_;
};

class SoftDirect3D8 final : public OfMachine<Direct3D8> {
public:
    using OfMachine::OfMachine;

    HRESULT GetAdapterDisplayMode(std::uint32_t adapter, D3DDISPLAYMODE& mode) override {
        if (Fails(StartStep::DisplayMode)) {
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
        if (Fails(StartStep::Device)) {
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
};

class SoftDirectX8 final : public OfMachine<DirectX8> {
public:
    using OfMachine::OfMachine;

    std::unique_ptr<Direct3D8> Direct3DCreate() override {
        return Fails(StartStep::Direct3D8) ? nullptr : std::make_unique<SoftDirect3D8>(parts_);
    }
};

// A font and the device that it was made for.
struct DeviceFont final : D3DXFont {
    DeviceFont(SoftDevice& itsDevice, std::unique_ptr<soft::GlyphCache> itsGlyphs)
        : device(itsDevice), glyphs(std::move(itsGlyphs)) {}

    SoftDevice& device;
    std::unique_ptr<soft::GlyphCache> glyphs;  // none: nothing is drawn
};

class SoftD3DX8 final : public OfMachine<D3DX8> {
public:
    using OfMachine::OfMachine;

    HRESULT CreateFont(Direct3DDevice8& device, const FontDescription& description,
                       std::unique_ptr<D3DXFont>& font) override {
        font.reset();
        if (Fails(StartStep::Font)) {
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
        SoftDevice& device = deviceFont->device;
        if (device.IsLost()) {
            return D3DERR_DEVICELOST;
        }
        DrawSoftText(deviceFont->glyphs.get(), color, text, rectangle, format, device.BackBuffer(),
                     device.Size().width, device.Size().height);
        return D3D_OK;
    }
};

}  // namespace

SoftDirect3D::SoftDirect3D(std::shared_ptr<TextureMemory> memory, PictureSink* sink)
    : parts_(std::make_shared<SoftDirect3DParts>(
          SoftDirect3DParts{std::move(memory), sink, std::nullopt, nullptr})) {}

std::unique_ptr<DirectX8> SoftDirect3D::CreateDirectX8() {
    return parts_->failing == StartStep::DirectX8 ? nullptr
                                                  : std::make_unique<SoftDirectX8>(parts_);
}

std::unique_ptr<D3DX8> SoftDirect3D::CreateD3DX8() {
    return parts_->failing == StartStep::D3DX8 ? nullptr : std::make_unique<SoftD3DX8>(parts_);
}

}  // namespace scenara
