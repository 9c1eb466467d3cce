// SPDX-License-Identifier: MIT
//
// ResolvePath: from a path as content files spell it to the name that is on this disk.
//
// The result exists, unless a component is missing: then the path is the found folders followed by
// the rest as it was spelled, with "/" between the components. The search rule stands in
// PosixFiles.h.
#pragma once

#include <string>

namespace scenara {

[[nodiscard]] std::string ResolvePath(const std::string& path);

}  // namespace scenara
