// SPDX-License-Identifier: MIT
//
// Drawer: somebody who draws a scene, frame after frame, into a surface of the scene's size and of
// 32 bits that was black at first.
//
// Everything that a program would do once, when it loads its pictures, is done when the drawer is
// made; Draw() is what it does per frame.
#pragma once

#include <cstdint>
#include <vector>

namespace scenara::bench {

class Drawer {
public:
    Drawer() = default;
    Drawer(const Drawer&) = delete;
    Drawer& operator=(const Drawer&) = delete;
    virtual ~Drawer() = default;

    // The whole scene; done when it returns.
    virtual void Draw() = 0;

    // The surface as it stands, line by line without gaps; the top byte is nobody's.
    [[nodiscard]] virtual std::vector<std::uint32_t> Picture() = 0;
};

}  // namespace scenara::bench
