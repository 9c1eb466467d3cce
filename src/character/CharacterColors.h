// SPDX-License-Identifier: MIT
//
// CharacterColors, an addition: a character's palette file (.act), 256 times red, green, blue with
// the last colour first. What stands behind them in longer files is not looked at.
#pragma once

#include <optional>
#include <string>

#include "platform/Files.h"
#include "sprites/PaletteBytes.h"

namespace scenara {

// In the order of pictures, colour 0 first. Nothing where the file is not there, cannot be read, or
// is too short.
[[nodiscard]] std::optional<PaletteBytes> ReadActPalette(Files& files, const std::string& path);

}  // namespace scenara
