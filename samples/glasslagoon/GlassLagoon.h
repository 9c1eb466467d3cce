// SPDX-License-Identifier: MIT
//
// Glass Lagoon: a garden on the bottom of a lagoon, made of pictures of all kinds that an archive
// of version 2 holds.
#pragma once

#include <cstddef>
#include <vector>

namespace scenara::samples {

// The stage's sprite archive, of version 2.01.
std::vector<std::byte> GlassLagoonArchive();

// The stage's music, a MIDI file.
std::vector<std::byte> GlassLagoonMusic();

}  // namespace scenara::samples
