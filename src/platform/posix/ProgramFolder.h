// SPDX-License-Identifier: MIT
//
// Where a program on this machine keeps its own files.
#pragma once

#include <string>

#include "base/NotCopied.h"

namespace scenara {

// The folder of the running program, with a separator at its end.
[[nodiscard]] std::string ExecutableFolder();

// `executableFolder` where files can be made in it, else the user's configuration folder for this
// program (made when missing), else the current folder. With a separator at its end.
[[nodiscard]] std::string WritableProgramFolder(const std::string& executableFolder);

// The path from the root, without "." and ".."; for a program that changes its folder, and shows
// the path to its user. Links are followed only where ".." makes it necessary. As it is where a
// folder on the way is gone.
[[nodiscard]] std::string WholePath(const std::string& path);

// A new, empty folder of this run's own, removed with all that is in it at the end. For programs
// that may run many at a time and leave nothing behind.
class TemporaryFolder : NotCopied {
public:
    // Raises RunTimeError when none can be made.
    TemporaryFolder();
    ~TemporaryFolder();

    // With a separator at its end.
    [[nodiscard]] const std::string& Path() const { return path_; }

private:
    std::string path_;
};

}  // namespace scenara
