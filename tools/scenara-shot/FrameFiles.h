// SPDX-License-Identifier: MIT
//
// Frames as PNG files: the view as it is shown, every pixel opaque.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/Direct3D8.h"
#include "platform/View.h"

namespace scenara {

// The name of one frame of many: "a.png" and 12 become "a-00012.png". The number has at least five
// digits; it stands behind names that do not end in ".png" (in either case).
[[nodiscard]] std::string FrameFileName(const std::string& file, std::int32_t frame);

// `pixels`: the view's lines, one after the other, whose top bytes have no meaning. Raises
// RunTimeError when the file cannot be written, "Subscript out of range" when pixels are missing.
void WriteFrameFile(const std::string& path, const CanvasSize& size,
                    std::span<const std::uint32_t> pixels);

}  // namespace scenara
