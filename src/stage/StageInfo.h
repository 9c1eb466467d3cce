// SPDX-License-Identifier: MIT
//
// StageInfo: what a stage definition says of itself in its section [Info], read without loading the
// stage: for lists of many stages.
#pragma once

#include <string>

namespace scenara {

struct StageInfo {
    std::string name;         // as the file has it, without quotes
    std::string displayName;  // the name that newer engines show
    std::string author;
};

// Of the first section [Info]; of a key that is given twice the first line counts. Only the file's
// first 64 KB are looked at, for that section stands at the top of a definition. `firstBytes` are
// those.
[[nodiscard]] StageInfo StageInfoIn(std::string firstBytes);

}  // namespace scenara
