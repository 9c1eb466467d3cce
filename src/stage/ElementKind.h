// SPDX-License-Identifier: MIT
//
// ElementKind: how an element is drawn. The stage file says it with a word; the stage start-up
// looks at the word once, so that no frame has to.
#pragma once

#include <string_view>

#include "base/Integers.h"

namespace scenara {

enum class ElementKind : Byte {
    Still,     // "normal", and plainly any word that is none of the others
    Parallax,  // "parallax": rows that move at different speeds
    Animated,  // "anim": the frames of an action
    Dummy,     // "dummy": nothing to see. Addition: and any word that is none of the others
};

[[nodiscard]] constexpr bool IsKnownKind(std::string_view type) {
    return type == "normal" || type == "parallax" || type == "anim" || type == "dummy";
}

[[nodiscard]] constexpr ElementKind KindOf(std::string_view type, bool additions) {
    if (type == "anim") {
        return ElementKind::Animated;
    }
    if (type == "parallax") {
        return ElementKind::Parallax;
    }
    const bool dummy = type == "dummy" || (additions && !IsKnownKind(type));
    return dummy ? ElementKind::Dummy : ElementKind::Still;
}

}  // namespace scenara
