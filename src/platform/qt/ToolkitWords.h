// SPDX-License-Identifier: MIT
//
// ToolkitWords: the options of the window toolkit on the command line.
//
// The toolkit takes them out by itself as it starts. Where there is no display it cannot start, and
// what else is on the command line is to be understood all the same.
#pragma once

#include <string>
#include <vector>

namespace scenara {

// The words without the toolkit's options, and without the words that belong to those. An option
// may have one hyphen or two. The toolkit looks for them after the word "--", too.
[[nodiscard]] std::vector<std::string> WithoutToolkitWords(const std::vector<std::string>& words);

}  // namespace scenara
