// SPDX-License-Identifier: MIT
#include "app/GivenPaths.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "app/MugenFolder.h"
#include "base/Path.h"
#include "base/Text.h"

namespace scenara {
namespace {

constexpr std::string_view kExtension = ".def";

std::span<const std::string> Looked(const std::vector<std::string>& paths) {
    return std::span(paths).first(std::min(paths.size(), kMostGivenPaths));
}

bool IsDefinition(std::string_view path) {
    return path.size() > kExtension.size() &&
           EqualsIgnoringCase(path.substr(path.size() - kExtension.size()), kExtension);
}

class Looking {
public:
    Looking(Files& files, GivenPaths& given, const GoesOn& goesOn)
        : files_(files), given_(given), asks_([this, &goesOn] { return AskWhether(goesOn); }) {}

    void AtFolder(const std::string& folder) {
        const std::string mugenFolder = MugenFolderOf(files_, folder);
        if (!mugenFolder.empty()) {
            TakeFirst(given_.mugenFolder, mugenFolder);
        } else if (const std::string stage = FirstIn(folder, IsStage); !stage.empty()) {
            given_.stages.push_back(stage);
        } else if (const std::string hero = FirstIn(folder, IsChar); !hero.empty()) {
            TakeFirst(given_.character, hero);
        } else {
            TakeOther(folder, true);
        }
    }

    void AtFile(const std::string& file, bool isAlone) {
        const bool isLookedInto = isAlone || IsDefinition(file);
        if (isLookedInto && IsStage(files_, file, asks_)) {
            given_.stages.push_back(file);
        } else if (isLookedInto && IsChar(files_, file, asks_)) {
            TakeFirst(given_.character, file);
        } else {
            TakeOther(file, false);
        }
    }

private:
    // The first definition in the folder that is what is wanted; empty: none.
    template <class IsWanted>
    std::string FirstIn(const std::string& folder, const IsWanted& isWanted) {
        for (const std::string& name : files_.List(WithSeparator(folder), kExtension)) {
            std::string path = JoinPath(folder, name);
            if (!asks_() || isWanted(files_, path, asks_)) {
                return given_.givenUp ? std::string() : path;
            }
        }
        return {};
    }

    // Not again once it was given up.
    bool AskWhether(const GoesOn& goesOn) {
        given_.givenUp = given_.givenUp || (goesOn && !goesOn());
        return !given_.givenUp;
    }

    static void TakeFirst(std::string& first, const std::string& path) {
        if (first.empty()) {
            first = path;
        }
    }
    void TakeOther(const std::string& path, bool isFolder) {
        if (given_.other.empty()) {
            given_.other = path;
            given_.otherIsFolder = isFolder;
        }
    }

    Files& files_;
    GivenPaths& given_;
    GoesOn asks_;
};

}  // namespace

GivenPaths LookAt(Files& files, const std::vector<std::string>& paths, const GoesOn& goesOn) {
    GivenPaths given;
    Looking looking(files, given, goesOn);
    for (const std::string& path : Looked(paths)) {
        if (given.givenUp) {
            break;
        }
        if (path.empty()) {
            continue;
        }
        if (files.FolderExists(path)) {
            looking.AtFolder(path);
        } else {
            looking.AtFile(path, paths.size() == 1);
        }
    }
    return given;
}

std::string MugenFolderOf(Files& files, const std::string& folder) {
    if (HasStages(files, folder)) {
        return folder;
    }
    return IsCalledStages(folder) ? FolderAbove(folder) : std::string();
}

std::string MugenFolderAmong(Files& files, const std::vector<std::string>& paths) {
    for (const std::string& path : Looked(paths)) {
        if (!path.empty() && files.FolderExists(path)) {
            if (std::string folder = MugenFolderOf(files, path); !folder.empty()) {
                return folder;
            }
        }
    }
    return {};
}

}  // namespace scenara
