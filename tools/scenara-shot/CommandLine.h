// SPDX-License-Identifier: MIT
//
// The command line of scenara-shot.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace scenara {

struct ShotOptions {
    std::string mugeDir;                     // --mugen DIR
    std::string stage;                       // STAGE.def
    std::optional<std::string> modelFile;    // --model FILE.json
    std::optional<std::string> spriteDir;    // --sprites DIR
    std::optional<std::string> pictureFile;  // --out FILE.png
    bool plain = false;                      // --plain
    bool help = false;                       // --help
};

// Raises std::invalid_argument, with a sentence for people, for words that do not make sense.
[[nodiscard]] ShotOptions ParseCommandLine(const std::vector<std::string>& words);

[[nodiscard]] std::string UsageText();

}  // namespace scenara
