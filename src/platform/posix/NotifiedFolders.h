// SPDX-License-Identifier: MIT
//
// NotifiedFolders: folders watched by the system's own notices (inotify).
//
// There are none of what another machine does on a network's disk, and there is a limit to how many
// folders a user's programs watch together. For those it answers yes every few seconds.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "platform/FolderWatch.h"

namespace scenara {

class NotifiedFolders : public FolderWatch {
public:
    NotifiedFolders();
    ~NotifiedFolders() override;

    void Watch(const std::vector<std::string>& folders) override;
    bool TakeChange() override;
    bool MustBeAsked() const override { return misses_; }

    // Can be read when there is a change; -1: the system has none.
    [[nodiscard]] int Descriptor() const { return notices_; }

private:
    void Add(const std::string& folder);
    [[nodiscard]] bool IsTimeToLook();

    int notices_ = -1;
    std::vector<int> watched_;
    bool misses_ = false;  // not all of the folders can be watched
    std::chrono::steady_clock::time_point lastLook_;
};

}  // namespace scenara
