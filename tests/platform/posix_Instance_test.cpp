// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/Instance.h"
#include "platform/posix/ProgramFolder.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

class InstanceFolder : public testing::Test {
protected:
    [[nodiscard]] std::string Path() const { return folder_.Path(); }

private:
    TemporaryFolder folder_;
};

TEST_F(InstanceFolder, HasOneThatRunsOnEachDisplay) {
    Instance first(":0", Path());
    EXPECT_FALSE(first.AnotherRuns());
    Instance second(":0", Path());
    EXPECT_TRUE(second.AnotherRuns());
    Instance elsewhere(":1", Path());
    EXPECT_FALSE(elsewhere.AnotherRuns());
    EXPECT_EQ(first.Socket(), second.Socket());
    EXPECT_NE(first.Socket(), elsewhere.Socket());
    EXPECT_FALSE(first.AnotherRuns()) << "it keeps its place";
}

TEST_F(InstanceFolder, GivesThePlaceToTheNextOne) {
    Instance second(":0", Path());
    {
        Instance first(":0", Path());
        EXPECT_FALSE(first.AnotherRuns());
        EXPECT_TRUE(second.AnotherRuns());
    }
    EXPECT_FALSE(second.AnotherRuns()) << "the file that is left is no instance";
}

TEST_F(InstanceFolder, HasNamesForAllDisplays) {
    const Instance ordinary(":0", Path());
    const Instance path("wayland/run/user/1000/" + std::string(300, 'w'), Path());
    EXPECT_EQ(fs::path(path.Socket()).parent_path(), fs::path(ordinary.Socket()).parent_path());
    EXPECT_LT(path.Socket().size(), 100U);
    EXPECT_NE(Instance("a/b", Path()).Socket(), Instance("a%2Fb", Path()).Socket());
    EXPECT_NE(Instance("", Path()).Socket(), "");
}

TEST_F(InstanceFolder, WithoutAFolderEveryProgramIsTheFirst) {
    for (const std::string& folder : {std::string(), Path() + "missing/"}) {
        Instance first(":0", folder);
        Instance second(":0", folder);
        EXPECT_FALSE(first.AnotherRuns());
        EXPECT_FALSE(second.AnotherRuns());
    }
}

TEST_F(InstanceFolder, IsTheRunTimeFolderWhereNobodyElseCanWriteToIt) {
    const std::string own = "/tmp/scenara-" + std::to_string(::geteuid()) + "/";
    fs::create_directory(Path() + "run");
    fs::create_symlink(Path() + "run", Path() + "link");
    const struct {
        const char* what;
        std::string variable;
        mode_t mode;
        std::string folder;
    } rows[] = {
        {"as it should be", Path() + "run", 0700, Path() + "run/"},
        {"others may look", Path() + "run", 0755, Path() + "run/"},
        {"others may write", Path() + "run", 0777, own},
        {"the group may write", Path() + "run", 0770, own},
        {"a link", Path() + "link", 0700, own},
        {"a relative path", "run", 0700, own},
        {"not there", Path() + "missing", 0700, own},
        {"none", "", 0700, own},
        {"longer than a socket's address", "/" + std::string(120, 'x'), 0700, own},
    };
    const char* const before = std::getenv("XDG_RUNTIME_DIR");
    const std::string kept = before != nullptr ? before : "";
    for (const auto& row : rows) {
        ASSERT_EQ(::chmod((Path() + "run").c_str(), row.mode), 0);
        ::setenv("XDG_RUNTIME_DIR", row.variable.c_str(), 1);
        EXPECT_EQ(Instance::UsersFolder(), row.folder) << row.what;
    }
    if (before != nullptr) {
        ::setenv("XDG_RUNTIME_DIR", kept.c_str(), 1);
    } else {
        ::unsetenv("XDG_RUNTIME_DIR");
    }
}

}  // namespace
}  // namespace scenara::test
