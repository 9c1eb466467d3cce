// SPDX-License-Identifier: MIT
//
// How an element is drawn, by the word that the stage file has for it. A word that is none of these
// is a still picture.
#pragma once

#include <string_view>

namespace scenara {

[[nodiscard]] inline bool IsAnimated(std::string_view type) {
    return type == "anim";
}
[[nodiscard]] inline bool IsParallax(std::string_view type) {
    return type == "parallax";
}
[[nodiscard]] inline bool IsDummy(std::string_view type) {
    return type == "dummy";
}

}  // namespace scenara
