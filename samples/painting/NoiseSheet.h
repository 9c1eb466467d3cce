// SPDX-License-Identifier: MIT
//
// NoiseSheet: layered noise that is worked out once and then looked up.
//
// A sheet of 256 x 256 values in 0 … 1, which repeats both ways. Looking up is much cheaper than
// working noise out for each pixel, and a picture tiles where its width is a whole number of
// sheets.
#pragma once

#include <cstdint>
#include <vector>

namespace scenara::samples {

class NoiseSheet {
public:
    static constexpr int kSize = 256;

    // `cells` lattice cells across the sheet in the coarsest of `octaves` layers, each twice as
    // fine and `fall` times as strong as the one before. Powers of 2; the finest has 256 at most.
    NoiseSheet(std::uint32_t seed, int cells, int octaves, double fall = 0.5);

    // Between the sheet's values, evenly.
    [[nodiscard]] double At(double x, double y) const;

private:
    std::vector<float> values_;
};

}  // namespace scenara::samples
