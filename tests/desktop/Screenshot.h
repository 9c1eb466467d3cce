// SPDX-License-Identifier: MIT
//
// Screenshot: what can be seen on a display, pixel by pixel.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace scenara::test {

// A part of it, in its pixels.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const Place&, const Place&) = default;
};

struct Screenshot {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> rgb;  // line by line, 0xRRGGBB

    // Throws where there is none.
    [[nodiscard]] std::uint32_t At(int x, int y) const;
};

// Nothing of the program has this colour.
inline constexpr std::uint32_t kBackground = 0xFF00FF;

// What is not background, if there is any: the smallest part that has it. It may be shown with a
// pointer, which is not counted.
[[nodiscard]] std::optional<Place> PaintedIn(const Screenshot& shot);

// Of an X window dump of 24 or 32 bits a pixel: blue, green, red, as a virtual server makes it; and
// of a portable pixel map, in bytes, of 8 bits a colour. Empty where that is cut short.
[[nodiscard]] Screenshot ReadDump(const std::string& dump);
[[nodiscard]] Screenshot ReadPixelMap(const std::string& map);

}  // namespace scenara::test
