// SPDX-License-Identifier: MIT
//
// PictureSink: where a soft device presents to.
#pragma once

#include <cstdint>
#include <span>

#include "platform/Direct3D8.h"

namespace scenara {

class PictureSink {
public:
    PictureSink() = default;
    PictureSink(const PictureSink&) = delete;
    PictureSink& operator=(const PictureSink&) = delete;
    virtual ~PictureSink() = default;

    // kViewWidth x kViewHeight pixels, line by line, of which the top byte is nobody's. They are
    // the device's own and hold until this returns, which is what Present answers.
    virtual HRESULT Show(std::span<const std::uint32_t> pixels) = 0;
};

}  // namespace scenara
