// SPDX-License-Identifier: MIT
//
// MonkeyFolder: the MUGEN folder that a monkey plays with, and whose files it changes under the
// program. Beside the plain stages it has odd ones, and the bundled ones where they are there.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace scenara::test {

class MonkeyFolder {
public:
    // `mugen` has the plain stages. A copy of all that it is to hold is kept in `kept`.
    MonkeyFolder(std::filesystem::path mugen, std::filesystem::path kept);

    // Every file is as it was at first.
    void Restore() const;

    // Deletes, cuts, overwrites or brings back a file; what was done, in a line.
    [[nodiscard]] std::string Disturb(std::mt19937& random) const;

    // What a user may drop, or type into a dialog, good or not: files, folders, nonsense.
    [[nodiscard]] std::string AnyPath(std::mt19937& random) const;

private:
    void MakeOddStages() const;
    [[nodiscard]] std::vector<std::filesystem::path> Files() const;

    std::filesystem::path mugen_;
    std::filesystem::path kept_;
};

}  // namespace scenara::test
