// SPDX-License-Identifier: MIT
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Disk.h"
#include "base/RunTimeError.h"

namespace scenara {
namespace {

using namespace std::string_literals;
using test::Raises;
using testing::ThrowsMessage;

class ReplaceFile : public test::Disk {
protected:
    [[nodiscard]] std::size_t FileCount() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(At(""))) {
            ++count;
        }
        return count;
    }
    [[nodiscard]] mode_t Permissions(std::string_view name) const {
        struct stat status {};
        EXPECT_EQ(::stat(At(name).c_str(), &status), 0);
        return status.st_mode & 07777U;
    }
};

TEST_F(ReplaceFile, MakesAFileAndReplacesItWhole) {
    files_.ReplaceFile(At("QX.CFG"), "a long first text\r\n");
    EXPECT_EQ(Get("QX.CFG"), "a long first text\r\n");
    files_.ReplaceFile(At("QX.CFG"), "second\0x"s);
    EXPECT_EQ(Get("QX.CFG"), "second\0x"s);
    files_.ReplaceFile(At("QX.CFG"), "");
    EXPECT_EQ(Get("QX.CFG"), "");
    EXPECT_EQ(FileCount(), 1U) << "nothing is left beside it";
}

TEST_F(ReplaceFile, WhoHasTheOldOneOpenKeepsIt) {
    Put("QX.CFG", "old");
    const auto open = files_.OpenForReading(At("QX.CFG"));
    files_.ReplaceFile(At("QX.CFG"), "new");
    std::string read(3, '\0');
    EXPECT_EQ(open->ReadAt(0, std::as_writable_bytes(std::span(read))), 3U);
    EXPECT_EQ(read, "old");
}

TEST_F(ReplaceFile, WritesLargeFiles) {
    const std::string large(3'000'000, 'x');
    files_.ReplaceFile(At("a.bin"), large);
    EXPECT_TRUE(Get("a.bin") == large);
}

TEST_F(ReplaceFile, TakesTheNameThatIsThereInWhateverCaseAndItsPermissions) {
    Put("qx.cfg", "old");
    ASSERT_EQ(::chmod(At("qx.cfg").c_str(), 0640), 0);
    files_.ReplaceFile(At("QX.CFG"), "new");
    EXPECT_EQ(Get("qx.cfg"), "new");
    EXPECT_EQ(Permissions("qx.cfg"), 0640U);
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(ReplaceFile, ALinkStaysALinkUnlessItLeadsNowhere) {
    Put("dotfiles/real.cfg", "old");
    PutLink("QX.CFG", "dotfiles/real.cfg");
    PutLink("dangling.cfg", "nowhere/real.cfg");
    files_.ReplaceFile(At("QX.CFG"), "new");
    files_.ReplaceFile(At("dangling.cfg"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(At("QX.CFG")));
    EXPECT_EQ(Get("dotfiles/real.cfg"), "new");
    EXPECT_EQ(Get("dangling.cfg"), "new");
}

TEST_F(ReplaceFile, TakesOverWhatAStoppedMachineHasLeft) {
    Put("QX.CFG", "old");
    Put("QX.CFG.new", "half of what was to be writ");
    files_.ReplaceFile(At("QX.CFG"), "new");
    EXPECT_EQ(Get("QX.CFG"), "new");
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(ReplaceFile, IsNotLedElsewhereByALinkOfThatName) {
    Put("other.txt", "somebody's");
    PutLink("QX.CFG.new", "other.txt");
    files_.ReplaceFile(At("QX.CFG"), "new");
    EXPECT_EQ(Get("QX.CFG"), "new");
    EXPECT_EQ(Get("other.txt"), "somebody's");
    EXPECT_FALSE(std::filesystem::is_symlink(At("QX.CFG")));
}

TEST_F(ReplaceFile, AFullDiskLeavesTheOldFile) {
    Put("QX.CFG", "old");
    for (const rlim_t room : {rlim_t{0}, rlim_t{1}, rlim_t{5000}}) {
        SCOPED_TRACE(room);
        const std::string error = test::ErrorOnFullDisk(
            room, [&] { files_.ReplaceFile(At("QX.CFG"), std::string(10000, 'n')); });
        EXPECT_EQ(error, "Disk full: " + At("QX.CFG"));
        EXPECT_EQ(Get("QX.CFG"), "old");
        EXPECT_EQ(FileCount(), 1U) << "what was written is removed again";
    }
}

TEST_F(ReplaceFile, AFolderThatTakesNoFilesLeavesTheOldFile) {
    Put("closed/QX.CFG", "old");
    ASSERT_EQ(::chmod(At("closed/QX.CFG").c_str(), 0666), 0);
    Restrict("closed", 0555);
    const test::AsOrdinaryUser user;
    if (!test::AsOrdinaryUser::Works()) {
        GTEST_SKIP() << "runs as a user whom nothing is forbidden";
    }
    EXPECT_THAT([&] { files_.ReplaceFile(At("closed/QX.CFG"), "new"); },
                ThrowsMessage<RunTimeError>("Permission denied: " + At("closed/QX.CFG")));
    EXPECT_EQ(Get("closed/QX.CFG"), "old");
}

TEST_F(ReplaceFile, AProtectedFileIsNotReplaced) {
    Put("QX.CFG", "old");
    Restrict("QX.CFG", 0444);
    ASSERT_EQ(::chmod(At("").c_str(), 0777), 0);
    const test::AsOrdinaryUser user;
    if (!test::AsOrdinaryUser::Works()) {
        GTEST_SKIP() << "runs as a user whom nothing is forbidden";
    }
    EXPECT_THAT([&] { files_.ReplaceFile(At("QX.CFG"), "new"); },
                Raises(RunTimeErrorKind::PermissionDenied));
    EXPECT_EQ(Get("QX.CFG"), "old");
}

TEST_F(ReplaceFile, WhatIsNoFileStays) {
    PutFolder("folder");
    PutPipe("pipe");
    PutLink("circle", "circle");
    EXPECT_THROW(files_.ReplaceFile(At("circle"), "new"), RunTimeError);
    const auto expectRefused = [&](const std::string& path, RunTimeErrorKind kind) {
        EXPECT_THAT([&] { files_.ReplaceFile(path, "new"); }, Raises(kind)) << path;
    };
    expectRefused(At("folder"), RunTimeErrorKind::PathFileAccess);
    expectRefused(At("pipe"), RunTimeErrorKind::PathFileAccess);
    expectRefused("/dev/null", RunTimeErrorKind::PathFileAccess);
    expectRefused(At("none/QX.CFG"), RunTimeErrorKind::FileNotFound);
    expectRefused(At("QX.CFG") + "\0x"s, RunTimeErrorKind::FileNotFound);
    expectRefused("", RunTimeErrorKind::FileNotFound);
    EXPECT_EQ(FileCount(), 3U);
}

}  // namespace
}  // namespace scenara
