// SPDX-License-Identifier: MIT
//
// ControlKind: what a background control does. The stage file says it with a word; the stage
// start-up looks at the word once, so that no frame has to.
#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "base/Integers.h"

namespace scenara {

enum class ControlKind : Byte {
    None,  // "null", and any word that is none of the others
    Visible,
    Enable,
    VelSet,
    VelAdd,
    PosSet,
    PosAdd,
    Anim,
    SinX,
    SinY,
};

// Addition: "enabled" is what "enable" is.
[[nodiscard]] constexpr ControlKind ControlKindOf(std::string_view type, bool additions) {
    if (additions && type == "enabled") {
        return ControlKind::Enable;
    }
    constexpr std::array<std::pair<std::string_view, ControlKind>, 9> kWords = {
        {{"visible", ControlKind::Visible},
         {"enable", ControlKind::Enable},
         {"velset", ControlKind::VelSet},
         {"veladd", ControlKind::VelAdd},
         {"posset", ControlKind::PosSet},
         {"posadd", ControlKind::PosAdd},
         {"anim", ControlKind::Anim},
         {"sinx", ControlKind::SinX},
         {"siny", ControlKind::SinY}}};
    for (const auto& [word, kind] : kWords) {
        if (type == word) {
            return kind;
        }
    }
    return ControlKind::None;
}

}  // namespace scenara
