// SPDX-License-Identifier: MIT
//
// NotifiedFolders: folders watched by the system's own notices (inotify).
//
// There are none of what another machine does on a network's disk, and there is a limit to how many
// folders a user's programs watch together. For those it answers yes every few seconds.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FolderWatch.h"

namespace scenara {

class NotifiedFolders : public FolderWatch {
public:
    NotifiedFolders();
    ~NotifiedFolders() override;

    bool Watch(const std::vector<std::string>& folders) override;
    bool TakeChange() override;
    [[nodiscard]] bool MustBeAsked() const override { return misses_; }

    // Can be read when there is a change; -1: the system has none.
    [[nodiscard]] int Descriptor() const { return notices_; }

private:
    // What is watched for the sake of a folder that was asked for.
    struct Watched {
        int number = -1;       // the system's; -1: none
        bool isThere = false;  // else the nearest folder above it is watched
        bool isMissed = false;
    };

    [[nodiscard]] Watched Begin(const std::string& folder) const;
    [[nodiscard]] bool TakeNotices(std::string_view notices);
    [[nodiscard]] bool IsTimeToLook();

    int notices_ = -1;
    std::map<std::string, Watched, std::less<>> watched_;
    bool misses_ = false;  // not all of the folders can be watched
    std::chrono::steady_clock::time_point lastLook_;
};

}  // namespace scenara
