// SPDX-License-Identifier: MIT
#include "render/Masking.h"

#include "render/Engine.h"

namespace scenara {
namespace {

void SetState(Direct3DDevice8& device, std::uint32_t state, std::uint32_t value) {
    Require(device.SetRenderState(state, value), "SetRenderState");
}

}  // namespace

void BeginMasking(Direct3DDevice8& device) {
    SetState(device, D3DRS_SRCBLEND, D3DBLEND_SRCALPHA);
    SetState(device, D3DRS_DESTBLEND, D3DBLEND_INVSRCALPHA);
    SetState(device, D3DRS_ALPHABLENDENABLE, 1);
}

void EndMasking(Direct3DDevice8& device) {
    SetState(device, D3DRS_ALPHABLENDENABLE, 0);
    SetState(device, D3DRS_SRCBLEND, D3DBLEND_ONE);
    SetState(device, D3DRS_DESTBLEND, D3DBLEND_ZERO);
}

}  // namespace scenara
