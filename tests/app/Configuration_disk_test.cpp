// SPDX-License-Identifier: MIT
//
// The settings on a real disk: what the program, the machine or the disk can do to them.
#include <csignal>
#include <filesystem>
#include <random>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "app/Configured.h"
#include "base/RunTimeError.h"
#include "platform/Disk.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

class ConfigurationOnDisk : public Disk {
protected:
    // Saves settings with these recent files.
    void Save(const std::string& folder, const std::string& path, std::size_t count) {
        Configured saved;
        saved.MugeDir = "/games/mugen/";
        saved.form.recentFiles.assign(count, path);
        PosixFiles files(folder);
        SaveConfig(saved.settings, "1.0", files);
    }

    [[nodiscard]] std::size_t FileCount() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(At(""))) {
            ++count;
        }
        return count;
    }
};

// Saves two kinds of settings in turn for ever; tells `ready` when there is the first.
template <typename SaveOne>
[[noreturn]] void SaveForEver(int ready, SaveOne save) {
    bool told = false;
    while (true) {
        save("/short.def", std::size_t{1});
        if (!told) {
            told = ::write(ready, "x", 1) == 1;
        }
        save("/a/much/longer/path/of/a/stage.def", std::size_t{2000});
    }
}

TEST_F(ConfigurationOnDisk, AreOldOrNewWheneverTheProgramIsKilled) {
    Save(At(""), "/a/much/longer/path/of/a/stage.def", 2000);
    const std::string large = Get("QX.CFG");
    Save(At(""), "/short.def", 1);
    const std::string small = Get("QX.CFG");
    ASSERT_GT(large.size(), 80'000U);
    ASSERT_LT(small.size(), 300U);

    std::mt19937 random(1);
    const int kills = Rounds(250);
    for (int i = 0; i < kills; ++i) {
        int ready[2] = {-1, -1};
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            SaveForEver(ready[1], [&](const std::string& path, std::size_t count) {
                Save(At(""), path, count);
            });
        }
        char byte = 0;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        ::usleep(static_cast<useconds_t>(random() % 3000));
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "it was at work";
        ::close(ready[0]);
        ::close(ready[1]);

        const std::string found = Get("QX.CFG");
        ASSERT_TRUE(found == small || found == large) << i << ": " << found.size() << " bytes";
        ASSERT_LE(FileCount(), 2U) << "what is left behind does not pile up";
    }
    Save(At(""), "/short.def", 1);
    EXPECT_EQ(Get("QX.CFG"), small);
    EXPECT_EQ(FileCount(), 1U) << "and goes with the next save";
}

TEST_F(ConfigurationOnDisk, StayOnAFullDisk) {
    Put("QX.CFG", "MugeDir = /m/\r\n");
    bool failed = false;
    {
        const FullDisk full(1000);
        try {
            Save(At(""), "/a/much/longer/path/of/a/stage.def", 2000);
        } catch (const RunTimeError& error) {
            failed = error.Kind() == RunTimeErrorKind::DiskFull;
        }
    }
    EXPECT_TRUE(failed);
    EXPECT_EQ(Get("QX.CFG"), "MugeDir = /m/\r\n");
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(ConfigurationOnDisk, AreFoundInWhateverCase) {
    Put("qx.cfg", "MugeDir = /m/\r\n");
    Save(At(""), "/a.def", 1);
    EXPECT_THAT(Get("qx.cfg"), testing::HasSubstr("RecentFile = /a.def\r\n"));
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(ConfigurationOnDisk, AFolderOfThatNameIsAnError) {
    PutFolder("QX.CFG");
    EXPECT_THROW(Save(At(""), "/a.def", 1), RunTimeError);
    EXPECT_EQ(FileCount(), 1U);
}

}  // namespace
}  // namespace scenara::test
