// SPDX-License-Identifier: MIT
//
// PictureSink: where a soft device presents to.
#pragma once

#include <cstdint>
#include <span>

#include "base/NotCopied.h"
#include "platform/Direct3D8.h"
#include "platform/View.h"

namespace scenara {

class PictureSink : NotCopied {
public:
    virtual ~PictureSink() = default;

    // The pixels of a view, line by line, of which the top byte has no meaning. They are the
    // device's own and hold until this returns, which is what Present answers.
    virtual HRESULT Show(const CanvasSize& size, std::span<const std::uint32_t> pixels) = 0;
};

}  // namespace scenara
