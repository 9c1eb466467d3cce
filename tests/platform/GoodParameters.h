// SPDX-License-Identifier: MIT
//
// What a soft device takes: a window's back buffer of the view's size, presented by copying.
#pragma once

#include "platform/Direct3D8.h"

namespace scenara::test {

inline D3DPRESENT_PARAMETERS GoodParameters() {
    D3DPRESENT_PARAMETERS parameters;
    parameters.Windowed = 1;
    parameters.SwapEffect = D3DSWAPEFFECT_COPY;
    parameters.BackBufferFormat = D3DFMT_X8R8G8B8;
    return parameters;
}

}  // namespace scenara::test
