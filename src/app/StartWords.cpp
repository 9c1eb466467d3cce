// SPDX-License-Identifier: MIT
#include "app/StartWords.h"

#include <algorithm>
#include <stdexcept>

#include "base/Version.h"

namespace scenara {
namespace {

constexpr const char* kEndOfOptions = "--";

}  // namespace

std::optional<std::string> AnswerInstead(const std::vector<std::string>& words) {
    const auto end = std::find(words.begin(), words.end(), kEndOfOptions);
    for (auto word = words.begin(); word != end; ++word) {
        if (*word == "--help") {
            return StartUsage();
        }
        if (*word == "--version") {
            return VersionLine();
        }
    }
    return std::nullopt;
}

std::vector<std::string> StartPaths(const std::vector<std::string>& words) {
    std::vector<std::string> paths;
    bool takesOptions = true;
    for (const std::string& word : words) {
        if (takesOptions && word == kEndOfOptions) {
            takesOptions = false;
        } else if (takesOptions && word.starts_with('-')) {
            throw std::invalid_argument("there is no option " + word);
        } else if (!word.empty()) {
            paths.push_back(word);
        }
    }
    return paths;
}

std::string StartUsage() {
    return "Usage: scenara [FILE.def ... | FOLDER]\n"
           "       scenara --help\n"
           "       scenara --version\n"
           "\n"
           "Shows the background stages of the MUGEN 2D fighting-game engine.\n"
           "\n"
           "  FILE.def    open this stage; of several the first, and list the others\n"
           "              among the recent files. A character's definition is put on\n"
           "              the stages\n"
           "  FOLDER      take this MUGEN folder (it has a folder stages) from now on;\n"
           "              or open the first stage in a folder\n"
           "  --          what follows are no options\n"
           "  --help      this text\n"
           "  --version   the program's name and version\n"
           "\n"
           "A program that runs on this display already opens them in its window. Exit\n"
           "status: 0 the window was closed, or the running program has taken the files;\n"
           "1 there is no display, or the running program does not answer; 2 wrong use.\n";
}

}  // namespace scenara
