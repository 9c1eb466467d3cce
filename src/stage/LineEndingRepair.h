// SPDX-License-Identifier: MIT
//
// LineEndingRepair: stage definitions that were saved with bare line feeds.
//
// A file whose bytes up to the first carriage return are more than 500 is taken to be one. While a
// repair lives, `defPath` names a copy of the whole file, "fix.def" in the program's own folder,
// with every bare line feed turned into CR LF; at its end the copy is deleted and `defPath` names
// the original again. Where no copy can be written, or a file of that name is there already, the
// original is read as it is, for the line reader takes any line end: no file that somebody may
// want is ever written over.
#pragma once

#include <string>

#include "base/NotCopied.h"
#include "platform/Files.h"

namespace scenara {

// How long a first line may be.
inline constexpr std::size_t kLongestFirstLine = 500;

[[nodiscard]] bool NeedsLineEndingRepair(InputFile& file);

class LineEndingRepair : NotCopied {
public:
    // Looks at the file and repairs it when it needs that. Raises RunTimeError when it cannot be
    // opened or read.
    LineEndingRepair(Files& files, std::string& defPath);
    ~LineEndingRepair() { Undo(); }

    // Deletes the copy and restores the path.
    void Undo();

private:
    [[nodiscard]] bool WriteCopy(InputFile& original);
    void DeleteCopy();

    Files& files_;
    std::string& defPath_;
    std::string originalPath_;
    std::string copyPath_;  // empty: no copy
};

}  // namespace scenara
