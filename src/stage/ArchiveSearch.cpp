// SPDX-License-Identifier: MIT
#include "stage/ArchiveSearch.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/Path.h"
#include "base/Text.h"

namespace scenara {
namespace {

std::string WithSlashes(std::string path, char wanted) {
    std::replace_if(
        path.begin(), path.end(), [](char c) { return c == '/' || c == '\\'; }, wanted);
    return path;
}

std::string FirstThatExists(Files& files, const std::vector<std::string>& candidates) {
    const auto found =
        std::find_if(candidates.begin(), candidates.end(),
                     [&](const std::string& path) { return files.FileExists(path); });
    return found == candidates.end() ? std::string() : *found;
}

// The definition's path with the archive's extension.
std::string BesideAsItIsCalled(const std::string& defPath) {
    const std::string folder = GetPath(defPath);
    const std::string name = defPath.substr(folder.size());
    return folder + name.substr(0, name.rfind('.')) + ".sff";
}

std::string FindUnderAnotherName(Files& files, const std::string& spr, const std::string& mugeDir,
                                 const std::string& defPath) {
    std::vector<std::string> candidates = {BesideAsItIsCalled(defPath)};
    if (const std::string engine = EngineFolderOf(defPath); !engine.empty()) {
        candidates.insert(candidates.begin(), engine + spr);
    }
    std::string found = FirstThatExists(files, candidates);
    for (const std::string& name : files.InOtherLetters(spr)) {
        if (found.empty()) {
            found = FirstThatExists(files, ArchiveCandidates(name, mugeDir, defPath));
        }
    }
    return found;
}

}  // namespace

std::vector<std::string> ArchiveCandidates(const std::string& spr, const std::string& mugeDir,
                                           const std::string& defPath) {
    const std::string folder = GetPath(defPath);
    return {Contains(spr, ":") ? spr : WithSeparator(mugeDir) + spr, folder + spr,
            folder + WithSlashes(spr, '\\'), folder + WithSlashes(spr, '/')};
}

std::string EngineFolderOf(const std::string& defPath) {
    constexpr std::string_view kStages = "stages";
    for (std::string folder = GetPath(defPath); !folder.empty();) {
        folder.pop_back();  // its separator
        std::string above = GetPath(folder);
        if (EqualsIgnoringCase(FileName(folder), kStages)) {
            return above;
        }
        folder = std::move(above);
    }
    return {};
}

std::string FindArchive(Files& files, const std::string& spr, const std::string& mugeDir,
                        const std::string& defPath, const ViewOptions& options) {
    std::string found = FirstThatExists(files, ArchiveCandidates(spr, mugeDir, defPath));
    if (options.Additions && found.empty() && !spr.empty()) {
        found = FindUnderAnotherName(files, spr, mugeDir, defPath);
    }
    return found;
}

}  // namespace scenara
