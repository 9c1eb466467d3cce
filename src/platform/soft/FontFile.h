// SPDX-License-Identifier: MIT
//
// FontFile: which file of this system holds a font, or the one that stands in for it.
#pragma once

#include <optional>
#include <string>

#include "platform/Direct3D8.h"

namespace scenara::soft {

struct FontFile {
    std::string path;
    long index = 0;  // of the font in the file
};

// None where the system has no fonts, or no way to find them. The first call of a program reads the
// system's list of fonts, which takes some milliseconds.
[[nodiscard]] std::optional<FontFile> FindFontFile(const FontDescription& description);

}  // namespace scenara::soft
