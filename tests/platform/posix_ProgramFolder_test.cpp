// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Disk.h"
#include "base/RunTimeError.h"
#include "platform/posix/ProgramFolder.h"

namespace scenara {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::StartsWith;

// A variable of the environment while it lives; without a value it is taken away.
class Environment {
public:
    Environment(std::string name, const std::optional<std::string>& value)
        : name_(std::move(name)) {
        if (const char* old = std::getenv(name_.c_str())) {  // NOLINT(concurrency-mt-unsafe)
            old_ = old;
        }
        Set(value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() { Set(old_); }

private:
    void Set(const std::optional<std::string>& value) const {
        // Tests run in one thread.
        if (value) {
            ::setenv(name_.c_str(), value->c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
        } else {
            ::unsetenv(name_.c_str());  // NOLINT(concurrency-mt-unsafe)
        }
    }

    std::string name_;
    std::optional<std::string> old_;
};

class WritableFolder : public test::Disk {};

TEST_F(WritableFolder, AWholePathLeadsToTheSamePlace) {
    fs::create_directories(At("sub/stages"));
    fs::create_symlink(At("sub"), At("link"));
    const fs::path before = fs::current_path();
    fs::current_path(At("sub"));
    const std::string here = fs::current_path().string();
    const std::string above = fs::current_path().parent_path().string();
    const struct {
        std::string path;
        std::string whole;
    } rows[] = {
        {"a.def", here + "/a.def"},
        {"./a.def", here + "/a.def"},
        {"stages/", here + "/stages/"},
        {"/a.def", "/a.def"},
        {".", here + "/"},
        {"./", here + "/"},
        {"././stages//x", here + "/stages/x"},
        {"..", above},
        {"stages/..", here},
        {"../link", above + "/link"},
        {"../link/.", here},
        {"../link/../a.def", above + "/a.def"},
        {"../sub/stages/", here + "/stages"},
        {"missing/..", "missing/.."},
        {"\xFF\n", here + "/\xFF\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(WholePath(row.path), row.whole);
    }
    fs::current_path(before);
}

TEST(ExecutableFolder, HoldsTheRunningProgram) {
    const std::string folder = ExecutableFolder();
    EXPECT_THAT(folder, EndsWith("/"));
    EXPECT_TRUE(fs::equivalent(fs::path(folder) / fs::read_symlink("/proc/self/exe").filename(),
                               "/proc/self/exe"));
}

TEST_F(WritableFolder, IsTheExecutablesFolderWhereFilesCanBeMade) {
    PutFolder("program");
    const Environment config("XDG_CONFIG_HOME", At("config"));
    EXPECT_EQ(WritableProgramFolder(At("program/")), At("program/"));
    EXPECT_EQ(WritableProgramFolder(At("program")), At("program/"));
    EXPECT_FALSE(Has("config")) << "nothing is made that is not needed";
}

TEST_F(WritableFolder, IsTheConfigurationFolderElseAndIsMade) {
    const Environment config("XDG_CONFIG_HOME", At("deep/config"));
    EXPECT_EQ(WritableProgramFolder(At("none/")), At("deep/config/scenara/"));
    EXPECT_TRUE(fs::is_directory(At("deep/config/scenara")));
    EXPECT_EQ(WritableProgramFolder(""), At("deep/config/scenara/")) << "and found again";
}

TEST_F(WritableFolder, IsInTheHomeFolderWithoutAConfigurationFolder) {
    const Environment home("HOME", At("home"));
    for (const std::optional<std::string>& value :
         {std::optional<std::string>(), std::optional<std::string>(""),
          std::optional<std::string>("relative/config")}) {
        const Environment config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(WritableProgramFolder(""), At("home/.config/scenara/"));
    }
    EXPECT_TRUE(fs::is_directory(At("home/.config/scenara")));
}

TEST_F(WritableFolder, IsTheCurrentFolderAtLast) {
    {
        const Environment config("XDG_CONFIG_HOME", std::nullopt);
        for (const std::optional<std::string>& value :
             {std::optional<std::string>(), std::optional<std::string>(""),
              std::optional<std::string>("relative")}) {
            const Environment home("HOME", value);
            EXPECT_EQ(WritableProgramFolder(""), "./");
        }
    }
    Put("file", "");
    const Environment config("XDG_CONFIG_HOME", At("file"));
    EXPECT_EQ(WritableProgramFolder(""), "./") << "a file is in the way";
}

TEST_F(WritableFolder, IsNeverAFile) {
    Put("program", "");
    Put("config/scenara", "");
    ASSERT_EQ(::chmod(At("program").c_str(), 0777), 0);
    ASSERT_EQ(::chmod(At("config/scenara").c_str(), 0777), 0);
    const Environment config("XDG_CONFIG_HOME", At("config"));
    EXPECT_EQ(WritableProgramFolder(At("program")), "./");
}

TEST_F(WritableFolder, IsNotAFolderThatMayNotBeWrittenTo) {
    PutFolder("program");
    PutFolder("config");
    Restrict("program", 0555);
    ASSERT_EQ(::chmod(At("config").c_str(), 0777), 0);
    const Environment config("XDG_CONFIG_HOME", At("config"));
    const test::AsOrdinaryUser user;
    if (!test::AsOrdinaryUser::Works()) {
        GTEST_SKIP() << "root, and not able to become another user";
    }
    EXPECT_EQ(WritableProgramFolder(At("program/")), At("config/scenara/"));
}

TEST(TemporaryFolder, IsNewEmptyAndOurOwn) {
    const TemporaryFolder folder;
    EXPECT_THAT(folder.Path(), EndsWith("/"));
    EXPECT_TRUE(fs::is_directory(folder.Path()));
    EXPECT_TRUE(fs::is_empty(folder.Path()));
    EXPECT_EQ(fs::status(folder.Path()).permissions(), fs::perms::owner_all);
    EXPECT_NE(TemporaryFolder().Path(), folder.Path());
}

TEST(TemporaryFolder, GoesWithAllThatIsInIt) {
    std::string path;
    {
        const TemporaryFolder folder;
        path = folder.Path();
        fs::create_directories(path + "a/b/c");
        std::ofstream(path + "a/b/file") << "x";
        fs::create_symlink("nowhere", path + "a/link");
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST(TemporaryFolder, LeavesWhatItsLinksLeadTo) {
    const TemporaryFolder outer;
    std::ofstream(outer.Path() + "kept") << "x";
    {
        const TemporaryFolder folder;
        fs::create_directory_symlink(outer.Path(), folder.Path() + "link");
    }
    EXPECT_TRUE(fs::exists(outer.Path() + "kept"));
}

TEST(TemporaryFolder, MayBeGoneAlreadyAtTheEnd) {
    const TemporaryFolder folder;
    fs::remove_all(folder.Path());
    EXPECT_FALSE(fs::exists(folder.Path()));
}

TEST(TemporaryFolder, IsWhereTheUserWantsSuchFolders) {
    const TemporaryFolder outer;
    const Environment tmp("TMPDIR", outer.Path());
    const TemporaryFolder inner;
    EXPECT_THAT(inner.Path(), StartsWith(outer.Path()));
}

TEST(TemporaryFolder, RaisesWhenNoneCanBeMade) {
    if (!fs::is_directory("/proc/self")) {
        GTEST_SKIP() << "this machine has no folder in which nobody can make one";
    }
    const Environment tmp("TMPDIR", "/proc/self");
    EXPECT_THAT([] { const TemporaryFolder folder; },
                test::Raises(RunTimeErrorKind::PathFileAccess));
}

}  // namespace
}  // namespace scenara
