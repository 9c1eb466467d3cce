// SPDX-License-Identifier: MIT
//
// The device's blend states around a draw. Each raises RunTimeError "Direct3D error" on failure.
#pragma once

#include <cstdint>

#include "platform/Direct3D8.h"
#include "render/Require.h"

namespace scenara {

inline void SetBlendState(Direct3DDevice8& device, std::uint32_t state, std::uint32_t value) {
    Require(device.SetRenderState(state, value), "SetRenderState");
}

// By the source's alpha, and this factor for what is there.
inline void BlendByAlpha(Direct3DDevice8& device, std::uint32_t destinationFactor) {
    SetBlendState(device, D3DRS_SRCBLEND, D3DBLEND_SRCALPHA);
    SetBlendState(device, D3DRS_DESTBLEND, destinationFactor);
    SetBlendState(device, D3DRS_ALPHABLENDENABLE, 1);
}

// Back to opaque drawing.
inline void BlendNoMore(Direct3DDevice8& device) {
    SetBlendState(device, D3DRS_ALPHABLENDENABLE, 0);
    SetBlendState(device, D3DRS_SRCBLEND, D3DBLEND_ONE);
    SetBlendState(device, D3DRS_DESTBLEND, D3DBLEND_ZERO);
}

}  // namespace scenara
