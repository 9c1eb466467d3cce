// SPDX-License-Identifier: MIT
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <poll.h>

#include "platform/Disk.h"
#include "platform/posix/NotifiedFolders.h"

namespace scenara::test {
namespace {

class Watched : public Disk {
protected:
    Watched() { Put("stages/a.def", "a"); }

    [[nodiscard]] static bool IsReadable(int descriptor) {
        pollfd waited{descriptor, POLLIN, 0};
        return ::poll(&waited, 1, 0) > 0;
    }
    // Whether it tells of a change, once, and wakes who waits for it.
    bool Tells() {
        const bool wakes = IsReadable(folders.Descriptor());
        const bool changed = folders.TakeChange();
        EXPECT_EQ(wakes, changed);
        EXPECT_FALSE(folders.TakeChange());
        EXPECT_FALSE(IsReadable(folders.Descriptor()));
        return changed;
    }

    NotifiedFolders folders;
};

TEST_F(Watched, TellsOfWhatComesAndGoes) {
    folders.Watch({At("stages")});
    EXPECT_FALSE(Tells());
    Put("stages/b.def", "b");
    EXPECT_TRUE(Tells());
    Put("stages/b.def", "other");
    EXPECT_TRUE(Tells()) << "written";
    std::filesystem::rename(At("stages/b.def"), At("stages/c.def"));
    EXPECT_TRUE(Tells());
    std::filesystem::remove(At("stages/c.def"));
    EXPECT_TRUE(Tells());
    std::filesystem::create_directory(At("stages/deep"));
    EXPECT_TRUE(Tells());
    Put("stages/deep/d.def", "d");
    EXPECT_FALSE(Tells()) << "not watched yet";
    folders.Watch({At("stages"), At("stages/deep")});
    Put("stages/deep/d.def", "e");
    EXPECT_TRUE(Tells());
}

TEST_F(Watched, TellsOfAFolderThatIsNotThereYet) {
    folders.Watch({At("later/stages")});
    EXPECT_FALSE(Tells());
    PutFolder("later");
    EXPECT_TRUE(Tells());
    folders.Watch({At("later/stages")});
    PutFolder("later/stages");
    EXPECT_TRUE(Tells());
}

TEST_F(Watched, TellsOfAFolderThatGoes) {
    folders.Watch({At("stages")});
    std::filesystem::rename(At("stages"), At("gone"));
    EXPECT_TRUE(Tells());
}

TEST_F(Watched, TellsOfNothingAnyMore) {
    folders.Watch({At("stages")});
    Put("stages/b.def", "b");
    folders.Watch({});
    static_cast<void>(folders.TakeChange());
    Put("stages/c.def", "c");
    EXPECT_FALSE(Tells());
    EXPECT_FALSE(folders.MustBeAsked());
}

TEST_F(Watched, ReadingIsNoChange) {
    folders.Watch({At("stages")});
    EXPECT_EQ(files_.OpenForReading(At("stages/a.def"))->Size(), 1U);
    EXPECT_EQ(files_.List(At("stages"), ".def").size(), 1U);
    EXPECT_FALSE(Tells());
}

}  // namespace
}  // namespace scenara::test
