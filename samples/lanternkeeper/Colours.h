// SPDX-License-Identifier: MIT
//
// The colours of the Lantern Keeper, who has two coats: indigo and madder red.
#pragma once

#include "samplemaker/Ramp.h"

namespace scenara::samples {

struct KeeperColours {
    samplemaker::PaletteBuilder palette;
    samplemaker::Ramp straw;
    samplemaker::Ramp skin;
    samplemaker::Ramp coat;
    samplemaker::Ramp sash;
    samplemaker::Ramp cloth;  // leggings and scarf
    samplemaker::Ramp wood;
    samplemaker::Ramp paper;
    std::uint8_t outline;
    std::uint8_t halo;
    std::uint8_t haloEdge;

    explicit KeeperColours(int coatNumber = 1);
};

}  // namespace scenara::samples
