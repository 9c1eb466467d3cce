// SPDX-License-Identifier: MIT
#include "stage/ArchiveSearch.h"

#include <algorithm>

#include "base/Path.h"
#include "base/Text.h"

namespace scenara {
namespace {

std::string WithSlashes(std::string path, char wanted) {
    std::replace_if(
        path.begin(), path.end(), [](char c) { return c == '/' || c == '\\'; }, wanted);
    return path;
}

}  // namespace

std::vector<std::string> ArchiveCandidates(const std::string& spr, const std::string& mugeDir,
                                           const std::string& defPath) {
    const std::string folder = GetPath(defPath);
    return {Contains(spr, ":") ? spr : WithSeparator(mugeDir) + spr, folder + spr,
            folder + WithSlashes(spr, '\\'), folder + WithSlashes(spr, '/')};
}

std::string FindArchive(Files& files, const std::string& spr, const std::string& mugeDir,
                        const std::string& defPath) {
    for (const std::string& candidate : ArchiveCandidates(spr, mugeDir, defPath)) {
        if (files.FileExists(candidate)) {
            return candidate;
        }
    }
    return {};
}

}  // namespace scenara
