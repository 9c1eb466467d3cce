// SPDX-License-Identifier: MIT
#include "lanternkeeper/Colours.h"

namespace scenara::samples {

using samplemaker::Ramp;

// Dark ends are cold, light ends warm: what is bright is so by the lantern.
KeeperColours::KeeperColours(int coatNumber)
    : straw(palette.AddRamp(7, {{0, {62, 40, 36}},
                                {0.45, {148, 104, 58}},
                                {0.8, {216, 172, 96}},
                                {1, {255, 230, 160}}})),
      skin(palette.AddRamp(5, {{0, {84, 46, 50}}, {0.5, {176, 106, 78}}, {1, {250, 196, 140}}})),
      coat(coatNumber == 1 ? palette.AddRamp(8, {{0, {18, 20, 46}},
                                                 {0.5, {44, 62, 122}},
                                                 {0.8, {92, 104, 160}},
                                                 {1, {236, 176, 132}}})
                           : palette.AddRamp(8, {{0, {40, 12, 26}},
                                                 {0.5, {124, 34, 46}},
                                                 {0.8, {186, 70, 58}},
                                                 {1, {255, 184, 112}}})),
      sash(palette.AddRamp(4, {{0, {110, 40, 30}}, {0.6, {214, 104, 44}}, {1, {255, 180, 84}}})),
      cloth(palette.AddRamp(
          6,
          {{0, {26, 24, 38}}, {0.5, {70, 68, 88}}, {0.8, {124, 116, 122}}, {1, {214, 184, 152}}})),
      wood(palette.AddRamp(4, {{0, {44, 24, 26}}, {0.6, {110, 66, 42}}, {1, {220, 156, 92}}})),
      paper(palette.AddRamp(7, {{0, {160, 40, 30}},
                                {0.4, {236, 108, 44}},
                                {0.7, {255, 190, 84}},
                                {1, {255, 250, 210}}})),
      outline(palette.AddColour({14, 10, 24})),
      halo(palette.AddColour({255, 186, 96})),
      haloEdge(palette.AddColour({214, 118, 70})) {}

}  // namespace scenara::samples
