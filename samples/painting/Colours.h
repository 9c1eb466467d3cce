// SPDX-License-Identifier: MIT
//
// ColourChoice: the few colours that stand for the many of a painting.
//
// Lights are counted on a grid of 64 steps per channel; the boxes that hold them are halved where
// they are most uneven until there are enough, and each box's mean becomes a colour.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "painting/Light.h"
#include "samplemaker/Picture.h"

namespace scenara::samples {

class ColourChoice {
public:
    static constexpr std::size_t kMostColours = 190;

    ColourChoice();

    void Count(const Light& light);

    // Between counting, of one light at least, and asking.
    void Choose();

    // The palette entry, 1 and above, for a light at this pixel, which decides how ties fall.
    [[nodiscard]] std::uint8_t IndexOf(const Light& light, int x, int y);
    [[nodiscard]] const samplemaker::Palette& Colours() const { return palette_; }

private:
    [[nodiscard]] std::uint8_t Nearest(std::size_t cell) const;

    std::vector<double> counts_;         // per cell of the grid
    std::vector<std::uint8_t> nearest_;  // per cell; 0 is not known yet
    samplemaker::Palette palette_{};
    std::size_t colours_ = 0;
};

}  // namespace scenara::samples
