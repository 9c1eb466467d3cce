// SPDX-License-Identifier: MIT
//
// ElementKind: how an element is drawn. The stage file says it with a word; the stage start-up
// looks at the word once, so that no frame has to.
#pragma once

#include <string_view>

#include "base/Integers.h"

namespace scenara {

enum class ElementKind : Byte {
    Still,     // "normal", and any word that is none of the others
    Parallax,  // "parallax": rows that move at different speeds
    Animated,  // "anim": the frames of an action
    Dummy,     // "dummy": nothing to see
};

[[nodiscard]] constexpr ElementKind KindOf(std::string_view type) {
    if (type == "anim") {
        return ElementKind::Animated;
    }
    if (type == "parallax") {
        return ElementKind::Parallax;
    }
    return type == "dummy" ? ElementKind::Dummy : ElementKind::Still;
}

}  // namespace scenara
