// SPDX-License-Identifier: MIT
//
// The two files of settings, QX.CFG and Scenara.ini, as a test reads them: apart from the program,
// and strictly.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace scenara::test {

struct SettingsFiles {
    // Of the file's lines, in their order: what stands before and after " = ".
    using Lines = std::vector<std::pair<std::string, std::string>>;

    Lines program;  // QX.CFG
    Lines extras;   // Scenara.ini

    // As they stand in the program's folder. Throws std::runtime_error, which says what is wrong:
    // a file that is not there or not whole, a line that is none, a value that is none of its key.
    [[nodiscard]] static SettingsFiles In(const std::filesystem::path& folder);
};

// The value of the first line with that key; empty where there is none.
[[nodiscard]] std::string ValueOf(const SettingsFiles::Lines& lines, const std::string& key);
void SetValue(SettingsFiles::Lines& lines, const std::string& key, const std::string& value);

}  // namespace scenara::test
