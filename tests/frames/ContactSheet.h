// SPDX-License-Identifier: MIT
//
// Every kind of element, in every way that it can be blended, mirrored, tiled and cut: one stage of
// a view's size per kind and flip. Columns are the blendings, rows what is cut and tiled.
#pragma once

#include <array>
#include <string>

#include "frames/PaintedStage.h"

namespace scenara::test {

struct SheetStage {
    const char* name;
    const char* type;  // keys of each element
    const char* flip;  // of its frames
};

inline constexpr std::array<SheetStage, 16> kSheetStages = {{
    {"normal", "type = normal\nspriteno = 4,2\n", ""},
    {"normal, masked", "type = normal\nspriteno = 4,2\nmask = 1\n", ""},
    {"normal with an action", "type = normal\nactionno = 1\n", ""},
    {"normal, mirrored", "type = normal\nactionno = 1\n", "H"},
    {"normal, upside down", "type = normal\nactionno = 1\n", "V"},
    {"normal, both", "type = normal\nactionno = 1\n", "HV"},
    {"parallax", "type = parallax\nspriteno = 4,2\nxscale = 1,1.1\n", ""},
    {"parallax, masked", "type = parallax\nspriteno = 4,2\nxscale = 1,1.1\nmask = 1\n", ""},
    {"parallax, mirrored", "type = parallax\nactionno = 1\nxscale = 1,1.1\n", "H"},
    {"parallax, upside down", "type = parallax\nactionno = 1\nxscale = 1,1.1\n", "V"},
    {"parallax, both", "type = parallax\nactionno = 1\nxscale = 1,1.1\n", "HV"},
    {"anim", "type = anim\nactionno = 1\n", ""},
    {"anim, mirrored", "type = anim\nactionno = 1\n", "H"},
    {"anim, upside down", "type = anim\nactionno = 1\n", "V"},
    {"anim, both", "type = anim\nactionno = 1\n", "HV"},
    {"dummy", "type = dummy\nspriteno = 4,2\n", ""},
}};

// Its definition, but for the archive's name. The bars are 32 x 32 with the axis in the middle.
inline std::string SheetDefinition(const SheetStage& stage) {
    constexpr int kCellWidth = 64;
    constexpr int kCellHeight = 60;
    constexpr int kDistance = 26;  // of tiles
    constexpr int kSize = 32;
    constexpr std::array<const char*, 5> kBlendings = {"", "trans = add\n", "trans = add1\n",
                                                       "trans = sub\n",
                                                       "trans = addalpha\nalpha = 128,160\n"};
    std::string text = kBackdrop;
    text += std::string("[Begin Action 1]\n4,2, 0,0, -1, ") + stage.flip + "\n";
    const bool whole = std::string(stage.type).find("anim") != std::string::npos;
    const std::string spacing = std::to_string(whole ? kDistance : kDistance - kSize);
    for (int row = 0; row < 4; ++row) {
        const bool tiled = row % 2 == 1;
        const bool cut = row >= 2;
        for (int column = 0; column < static_cast<int>(kBlendings.size()); ++column) {
            const int x = column * kCellWidth;
            const int y = row * kCellHeight;
            text +=
                std::string("[BG]\n") + stage.type + kBlendings[static_cast<std::size_t>(column)];
            text += "start = " + std::to_string(x + 18 - 160) + "," + std::to_string(y + 17) + "\n";
            if (tiled) {
                text += "tile = 2,2\ntilespacing = " + spacing + "," + spacing + "\n";
            }
            if (cut) {
                text += "window = " + std::to_string(x + 8) + "," + std::to_string(y + 10) + "," +
                        std::to_string(x + 39) + "," + std::to_string(y + 37) + "\n";
            }
        }
    }
    return text;
}

}  // namespace scenara::test
