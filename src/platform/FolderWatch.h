// SPDX-License-Identifier: MIT
//
// FolderWatch: whether files or folders have come, gone, been renamed or been written in folders
// that are watched.
#pragma once

#include <string>
#include <vector>

#include "base/NotCopied.h"

namespace scenara {

class FolderWatch : NotCopied {
public:
    virtual ~FolderWatch() = default;

    // These from now on, in place of those before. Of a folder that is not there it is watched
    // whether it comes. A change wakes the program (Form_Idle is asked). True: something is watched
    // that was not before, so that what has changed there until now is not told of.
    virtual bool Watch(const std::vector<std::string>& folders) = 0;

    // Whether anything has changed since it was asked last. Where the system does not tell, it
    // answers yes from time to time, so that whoever asks looks again.
    [[nodiscard]] virtual bool TakeChange() = 0;

    // Whether the system does not tell of everything: somebody must ask even where nothing happens.
    [[nodiscard]] virtual bool MustBeAsked() const = 0;
};

}  // namespace scenara
