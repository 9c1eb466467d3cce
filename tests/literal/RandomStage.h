// SPDX-License-Identifier: MIT
//
// RandomStage: a definition with random keys, the small archive that it shows, and random keys that
// are held while it runs. The same seed gives the same stage.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "literal/LiteralStage.h"

namespace scenara::test {

// In which mode the stage is going to be shown: some values have no rule in one of them. Version11
// is with additions, too, and the stage has keys that MUGEN 1.1 brought.
enum class RandomFor : std::uint8_t { Plain, Additions, Version11 };

struct RandomStage {
    std::string definition;  // names the archive "random.sff"
    std::vector<std::byte> archive;
    std::vector<LiteralKeys> keys;        // one per frame
    std::vector<double> zooms;            // set before each frame, 0 = as it is; or none at all
    std::optional<std::uint32_t> alphas;  // its pictures get these (RandomAlpha.h)
};

[[nodiscard]] RandomStage MakeRandomStage(std::uint32_t seed, RandomFor mode);

// One whose pictures have alphas, and often lie upon one another. With `smooth` its copies are not
// so close together that they are too many to be mixed.
[[nodiscard]] RandomStage MakeRandomAlphaStage(std::uint32_t seed, RandomFor mode,
                                               bool smooth = false);

}  // namespace scenara::test
