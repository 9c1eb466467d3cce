// SPDX-License-Identifier: MIT
//
// PNG files of 32-bit pictures, as they are: 8 bits for red, green, blue and alpha, not multiplied,
// so that a transparent pixel keeps its colour.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace scenara {

// `pixels`: ARGB words, line y from word y * pitch on. Raises RunTimeError when the file cannot be
// written.
void WritePngFile(const std::string& path, std::span<const std::uint32_t> pixels,
                  std::int32_t width, std::int32_t height, std::int32_t pitch);

}  // namespace scenara
