// SPDX-License-Identifier: MIT
//
// SoftDirect3D: what a machine offers whose pictures are drawn on the CPU.
//
// Each step from the two objects to a device and a font can be made to fail, so that callers can be
// tested. Otherwise: adapter 0 is the only one (D3DERR_INVALIDCALL for others); a device is created
// under the conditions of CheckPresentParameters; window handles and behaviour flags are taken and
// not needed. A font never fails: where the system has none nothing is drawn. DrawText is
// D3DERR_INVALIDCALL with a font of another origin and D3DERR_DEVICELOST on a lost device.
//
// The machine and the objects that it made may be destroyed in any order, save a font and its
// device.
#pragma once

#include <memory>
#include <optional>

#include "platform/Direct3D8.h"
#include "platform/soft/PictureSink.h"
#include "platform/soft/SoftDevice.h"
#include "platform/soft/TextureMemory.h"

namespace scenara {

// What can fail when an engine starts, in that order.
enum class StartStep { DirectX8, Direct3D8, D3DX8, DisplayMode, Device, Font };

// What a machine and its objects share.
struct SoftDirect3DParts {
    std::shared_ptr<TextureMemory> memory;
    PictureSink* sink = nullptr;
    std::optional<StartStep> failing;
    SoftDevice* device = nullptr;  // while it is alive
};

class SoftDirect3D : public Direct3DMachine {
public:
    // Devices present to `sink`, which must outlive them, or to nobody.
    explicit SoftDirect3D(std::shared_ptr<TextureMemory> memory, PictureSink* sink = nullptr);

    [[nodiscard]] std::unique_ptr<DirectX8> CreateDirectX8() override;
    [[nodiscard]] std::unique_ptr<D3DX8> CreateD3DX8() override;

    // From now on this step fails, with D3DERR_NOTAVAILABLE where it has an answer; none: no more.
    void FailAt(std::optional<StartStep> step) { parts_->failing = step; }

    // The device that was made last, while it is alive; none otherwise.
    [[nodiscard]] SoftDevice* Device() const { return parts_->device; }

private:
    std::shared_ptr<SoftDirect3DParts> parts_;
};

}  // namespace scenara
