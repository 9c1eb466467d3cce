// SPDX-License-Identifier: MIT
//
// HeadlessProcess: a program that is alone unless told otherwise, and counts what it is asked for.
#pragma once

#include "platform/Process.h"

namespace scenara {

class HeadlessProcess : public Process {
public:
    [[nodiscard]] bool AnotherInstanceRuns() override { return another_; }
    void YieldToOthers() override { ++yields_; }
    void ChangeToProgramFolder() override { ++folderChanges_; }

    void PretendAnother() { another_ = true; }
    [[nodiscard]] int Yields() const { return yields_; }
    [[nodiscard]] int FolderChanges() const { return folderChanges_; }

private:
    bool another_ = false;
    int yields_ = 0;
    int folderChanges_ = 0;
};

}  // namespace scenara
