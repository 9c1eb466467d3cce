// SPDX-License-Identifier: MIT
//
// Where a stage's sprite archive may be.
#pragma once

#include <string>
#include <vector>

#include "platform/Files.h"

namespace scenara {

// The paths to try, in order: `spr` as written when it holds ":", else under the engine folder
// `mugeDir`; then beside the definition, as written and with the slashes turned either way.
[[nodiscard]] std::vector<std::string> ArchiveCandidates(const std::string& spr,
                                                         const std::string& mugeDir,
                                                         const std::string& defPath);

// The first of them that is a file; empty when none is.
[[nodiscard]] std::string FindArchive(Files& files, const std::string& spr,
                                      const std::string& mugeDir, const std::string& defPath);

}  // namespace scenara
