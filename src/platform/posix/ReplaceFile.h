// SPDX-License-Identifier: MIT
//
// ReplaceFile: a file gets new contents in one step.
//
// The new contents are written to a file beside it (its name and ".new"), brought to the disk, and
// then renamed over the old one. A machine that stops in between leaves at most that file, which
// the next call takes over. So one program at a time may replace a file.
#pragma once

#include <string>
#include <string_view>

namespace scenara {

// As Files::ReplaceFile says. A file that may not be written to is not replaced either.
void ReplaceFileAt(const std::string& path, std::string_view bytes);

}  // namespace scenara
