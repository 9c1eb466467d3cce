// SPDX-License-Identifier: MIT
//
// GivenPaths: what the paths are that a user gives to the program, on the command line or by
// dropping them onto the window.
//
// A folder is a MUGEN folder when it has a folder stages; the folder stages itself stands for the
// one that it is in. Any other folder stands for its first stage, else for its first character.
// Letter case does not count. Of several files only definitions (.def) are looked into: what
// belongs to a stage is often given together with it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/StageFiles.h"
#include "platform/Files.h"

namespace scenara {

inline constexpr std::size_t kMostGivenPaths = 64;

struct GivenPaths {
    std::string mugenFolder;          // the first one; empty: none
    std::string character;            // the first definition of one; empty: none
    std::vector<std::string> stages;  // definitions, in their order
    // The first path that is nothing of these, and whether it is a folder; empty: none.
    std::string other;
    bool otherIsFolder = false;
    bool givenUp = false;  // before all of them were looked at

    [[nodiscard]] bool IsNothing() const {
        return mugenFolder.empty() && character.empty() && stages.empty();
    }
};

// Of more than kMostGivenPaths the first ones; an empty one is none. A folder may have very many
// files, each of them very large: `goesOn` is asked before each file of a folder, and while a large
// one is read. Raises what reading raises.
[[nodiscard]] GivenPaths LookAt(Files& files, const std::vector<std::string>& paths,
                                const GoesOn& goesOn = {});

// The MUGEN folder for which a folder stands; empty when it is none.
[[nodiscard]] std::string MugenFolderOf(Files& files, const std::string& folder);

// The first MUGEN folder for which one of the paths stands; empty: none.
[[nodiscard]] std::string MugenFolderAmong(Files& files, const std::vector<std::string>& paths);

}  // namespace scenara
