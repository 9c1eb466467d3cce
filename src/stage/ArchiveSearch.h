// SPDX-License-Identifier: MIT
//
// Where a stage's sprite archive may be.
#pragma once

#include <string>
#include <vector>

#include "platform/Files.h"
#include "stage/ViewOptions.h"

namespace scenara {

// The paths to try, in order: `spr` as written when it holds ":", else under the engine folder
// `mugeDir`; then beside the definition, as written and with the slashes turned either way.
[[nodiscard]] std::vector<std::string> ArchiveCandidates(const std::string& spr,
                                                         const std::string& mugeDir,
                                                         const std::string& defPath);

// The first of them that is a file; empty when none is.
//
// Addition: where one is named and none of them is there, `spr` under the engine folder that the
// definition is in; the archive that is called as the definition is, beside it; and then all of
// them again with the name in the letters of other systems (Files::InOtherLetters), for a stage
// that was unpacked where its own were unknown.
[[nodiscard]] std::string FindArchive(Files& files, const std::string& spr,
                                      const std::string& mugeDir, const std::string& defPath,
                                      const ViewOptions& options);

// The engine folder that a definition is in, with a separator at its end: the one that has the last
// folder called stages on the way to it. Empty: none.
[[nodiscard]] std::string EngineFolderOf(const std::string& defPath);

}  // namespace scenara
