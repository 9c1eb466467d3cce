// SPDX-License-Identifier: MIT
//
// The command line of scenara-shot.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/View.h"
#include "scenara-shot/KeyScript.h"

namespace scenara {

struct ShotOptions {
    std::string mugeDir;                     // --mugen DIR
    std::string stage;                       // STAGE.def
    std::optional<std::string> modelFile;    // --model FILE.json
    std::optional<std::string> spriteDir;    // --sprites DIR
    std::int32_t frames = 1;                 // --frames N: how many are run, at least 1
    KeyScript keys;                          // --keys SCRIPT
    std::string character;                   // --char CHAR.def; empty: none
    std::optional<std::string> pictureFile;  // --out FILE.png
    std::optional<std::int32_t> every;       // --every K, at least 1; only with --out
    std::optional<CanvasSize> size;          // --size WxH; only with --out
    std::optional<double> zoom;              // --zoom Z, above 0; not with --plain
    bool smooth = false;                     // --smooth
    bool info = false;                       // --info
    bool plain = false;                      // --plain
    bool help = false;                       // --help
    bool version = false;                    // --version
};

// Raises std::invalid_argument, with a sentence for people, for words that do not make sense.
[[nodiscard]] ShotOptions ParseCommandLine(const std::vector<std::string>& words);

[[nodiscard]] std::string UsageText();

}  // namespace scenara
