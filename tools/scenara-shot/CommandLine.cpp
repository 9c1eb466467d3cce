// SPDX-License-Identifier: MIT
#include "scenara-shot/CommandLine.h"

#include <stdexcept>

namespace scenara {
namespace {

// The word behind an option.
std::string Argument(const std::vector<std::string>& words, std::size_t& at) {
    if (at + 1 >= words.size()) {
        throw std::invalid_argument(words[at] + " needs an argument");
    }
    return words[++at];
}

}  // namespace

ShotOptions ParseCommandLine(const std::vector<std::string>& words) {
    ShotOptions options;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const std::string& word = words[at];
        if (word == "--mugen") {
            options.mugeDir = Argument(words, at);
        } else if (word == "--model") {
            options.modelFile = Argument(words, at);
        } else if (word == "--sprites") {
            options.spriteDir = Argument(words, at);
        } else if (word == "--out") {
            options.pictureFile = Argument(words, at);
        } else if (word == "--plain") {
            options.plain = true;
        } else if (word == "--help") {
            options.help = true;
        } else if (word.starts_with("--")) {
            throw std::invalid_argument("there is no option " + word);
        } else if (options.stage.empty()) {
            options.stage = word;
        } else {
            throw std::invalid_argument("one stage at a time: " + options.stage + " or " + word);
        }
    }
    if (!options.help && options.mugeDir.empty()) {
        throw std::invalid_argument("--mugen DIR is missing");
    }
    if (!options.help && options.stage.empty()) {
        throw std::invalid_argument("the stage is missing");
    }
    return options;
}

std::string UsageText() {
    return "Usage: scenara-shot --mugen DIR STAGE.def [--model FILE.json] [--sprites DIR] "
           "[--plain]\n"
           "\n"
           "Loads a stage without a window.\n"
           "\n"
           "  --mugen DIR        the MUGEN folder\n"
           "  STAGE.def          a path, or a name under stages/ of the folder\n"
           "  --model FILE.json  write the stage in memory as JSON\n"
           "  --sprites DIR      write every sprite as NNNN_group_image.png\n"
           "  --plain            plain reading, without additions\n"
           "\n"
           "Messages go to standard error, one line each. Exit status: 0 shown, 1 the stage\n"
           "could not be shown, 2 wrong use.\n";
}

}  // namespace scenara
