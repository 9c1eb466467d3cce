// SPDX-License-Identifier: MIT
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "stage/ViewOptions.h"

namespace scenara {
namespace {

std::string TextOf(const std::string& path) {
    std::ifstream file(std::string(SCENARA_SOURCE_FOLDER) + "/" + path);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

// The first cells of the table behind a heading.
std::multiset<std::string> FirstCells(const std::string& text, const std::string& heading) {
    std::multiset<std::string> cells;
    std::istringstream lines(text.substr(text.find("\n" + heading + "\n") + 1));
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line) && !line.starts_with("## ")) {
        const bool isRow = line.starts_with("| ") && !line.starts_with("| |");
        if (isRow) {
            cells.insert(line.substr(2, line.find(" |") - 2));
        }
    }
    return cells;
}

TEST(Additions, AreThoseThatUsersAreToldOf) {
    std::multiset<std::string> names;
    for (const Addition& addition : kAdditions) {
        names.insert(addition.name);
    }
    EXPECT_EQ(FirstCells(TextOf("docs/stage-authors.md"), "## Additions"), names);
}

TEST(Additions, StandWhereTheTableHasThem) {
    for (const Addition& addition : kAdditions) {
        const std::string text = TextOf(std::string("src/") + addition.file);
        EXPECT_NE(text.find(addition.place), std::string::npos)
            << addition.name << ": " << addition.place << " in " << addition.file;
    }
}

}  // namespace
}  // namespace scenara
