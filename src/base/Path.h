// SPDX-License-Identifier: MIT
//
// Paths as the program keeps them: text in the machine's own style, built by joining.
//
// PathSeparator stands between folders ("\" on Windows, "/" elsewhere). Content files were made
// on a system that takes "\" and "/" alike, so cutting a path looks for either.
#pragma once

#include <string>
#include <string_view>

namespace scenara {

#ifdef _WIN32
inline constexpr char PathSeparator = '\\';
#else
inline constexpr char PathSeparator = '/';
#endif

// The text up to and including the last separator of either kind; empty when there is none.
[[nodiscard]] std::string GetPath(std::string_view FullFilePath);

// The text behind the last separator of either kind.
[[nodiscard]] std::string_view FileName(std::string_view path);

// `folder` with a separator at its end; as it is when it has one, or is empty.
[[nodiscard]] std::string WithSeparator(std::string_view folder);

// `folder` + separator (where it lacks one) + `name`.
[[nodiscard]] std::string JoinPath(std::string_view folder, std::string_view name);

}  // namespace scenara
