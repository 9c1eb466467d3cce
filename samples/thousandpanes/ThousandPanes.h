// SPDX-License-Identifier: MIT
//
// 1001 Panes: a hall of coloured glass at night, made of everything that newer stages expect.
#pragma once

#include <cstddef>
#include <vector>

namespace scenara::samples {

// The stage's sprite archive.
std::vector<std::byte> ThousandPanesArchive();

// The stage's music, a WAV file.
std::vector<std::byte> ThousandPanesMusic();

}  // namespace scenara::samples
