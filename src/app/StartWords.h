// SPDX-License-Identifier: MIT
//
// StartWords: what the program is told when it is started.
//
//     scenara [FILE.def ... | FOLDER]
//
// Words that begin with "-" are options; after the word "--" none is. Options of the machine's
// toolkit are not among these words any more. Paths are taken to the letter, whatever bytes they
// have; an empty one is none.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace scenara {

// What the words ask for instead of a window: the text that is to be printed. It needs no display.
[[nodiscard]] std::optional<std::string> AnswerInstead(const std::vector<std::string>& words);

// The paths among the words. Raises std::invalid_argument, with a sentence for people, for an
// option that there is not.
[[nodiscard]] std::vector<std::string> StartPaths(const std::vector<std::string>& words);

[[nodiscard]] std::string StartUsage();

}  // namespace scenara
