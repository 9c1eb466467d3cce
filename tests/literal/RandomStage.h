// SPDX-License-Identifier: MIT
//
// RandomStage: a definition with random keys, the small archive that it shows, and random keys that
// are held while it runs. The same seed gives the same stage.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "literal/LiteralStage.h"

namespace scenara::test {

// In which mode the stage is going to be shown: some values have no rule in one of them.
enum class RandomFor : std::uint8_t { Plain, Additions };

struct RandomStage {
    std::string definition;  // names the archive "random.sff"
    std::vector<std::byte> archive;
    std::vector<LiteralKeys> keys;  // one per frame
};

[[nodiscard]] RandomStage MakeRandomStage(std::uint32_t seed, RandomFor mode);

}  // namespace scenara::test
