// SPDX-License-Identifier: MIT
#include "app/GivenPaths.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using Paths = std::vector<std::string>;

// A MUGEN folder, another one whose folder is called in capitals, folders of stages, of a
// character, of both and of nothing, and single files.
class GivenFiles : public testing::Test {
protected:
    GivenFiles() {
        const std::string stage = "[Camera]\n";
        const std::string hero = "stcommon = common1.cns\n";
        files.Put("/mugen/stages/a.def", stage);
        files.Put("/mugen/stages/b.def", stage);
        files.Put("/mugen/chars/hero/hero.def", hero);
        files.Put("/mugen/chars/hero/ending.def", "[SceneDef]\n");
        files.Put("/Old/STAGES/x.def", stage);
        files.Put("/pack/readme.def", "nothing");
        files.Put("/pack/z.DEF", stage);
        files.Put("/pack/y.def", stage);
        files.Put("/pack/y.sff", "camera");
        files.Put("/both/hero.def", hero);
        files.Put("/both/stage.def", stage);
        files.Put("/nothing/readme.txt", "camera");
        files.Put("/zip/mugen/stages/c.def", stage);
        files.Put("/odd", stage);
    }

    // In short words, as they are taken.
    [[nodiscard]] std::string Look(const Paths& paths) {
        const GivenPaths given = LookAt(files, paths);
        std::string text;
        const auto add = [&](const std::string& what, const std::string& path) {
            if (!path.empty()) {
                text += (text.empty() ? "" : ", ") + what + " " + path;
            }
        };
        add("folder", given.mugenFolder);
        add("character", given.character);
        for (const std::string& stage : given.stages) {
            add("stage", stage);
        }
        add(given.otherIsFolder ? "no folder" : "no file", given.other);
        EXPECT_EQ(given.IsNothing(), text.empty() || text.starts_with("no ")) << text;
        return text;
    }

    MemoryFiles files;
};

TEST_F(GivenFiles, AreWhatAUserMeansByThem) {
    const struct {
        Paths paths;
        const char* meaning;
    } rows[] = {
        {{}, ""},
        {{""}, ""},
        // folders
        {{"/mugen"}, "folder /mugen"},
        {{"/mugen/"}, "folder /mugen/"},
        {{"/mugen/stages"}, "folder /mugen"},
        {{"/mugen/stages/"}, "folder /mugen"},
        {{"/Old"}, "folder /Old"},
        {{"/Old/STAGES"}, "folder /Old"},
        {{"/pack"}, "stage /pack/y.def"},
        {{"/mugen/chars/hero"}, "character /mugen/chars/hero/hero.def"},
        {{"/both"}, "stage /both/stage.def"},
        {{"/nothing"}, "no folder /nothing"},
        {{"/zip"}, "no folder /zip"},
        {{"/mugen", "/Old"}, "folder /mugen"},
        // files
        {{"/mugen/stages/a.def"}, "stage /mugen/stages/a.def"},
        {{"/mugen/chars/hero/hero.def"}, "character /mugen/chars/hero/hero.def"},
        {{"/odd"}, "stage /odd"},
        {{"/pack/readme.def"}, "no file /pack/readme.def"},
        {{"/gone.def"}, "no file /gone.def"},
        // several
        {{"/pack/z.DEF", "/mugen/stages/a.def"}, "stage /pack/z.DEF, stage /mugen/stages/a.def"},
        {{"/pack/y.sff", "/pack/y.def"}, "stage /pack/y.def, no file /pack/y.sff"},
        {{"/pack/y.sff", "/nothing/readme.txt"}, "no file /pack/y.sff"},
        {{"/mugen/stages/b.def", "/both/hero.def", "/mugen"},
         "folder /mugen, character /both/hero.def, stage /mugen/stages/b.def"},
        {{"/both/hero.def", "/mugen/chars/hero/hero.def"}, "character /both/hero.def"},
        {{"/nothing", "/gone.def"}, "no folder /nothing"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Look(row.paths), row.meaning);
    }
}

TEST_F(GivenFiles, AreTheFirstOnesOfVeryMany) {
    const Paths many(1000, "/mugen/stages/a.def");
    EXPECT_EQ(LookAt(files, many).stages.size(), kMostGivenPaths);
}

// How often it was asked whether to go on, and how that ended.
struct Asked {
    int times = 0;
    bool givenUp = false;
};

Asked LookUntil(Files& files, const std::string& path, int last) {
    Asked asked;
    asked.givenUp = LookAt(files, {path}, [&] { return ++asked.times < last; }).givenUp;
    return asked;
}

TEST_F(GivenFiles, CanBeGivenUpBetweenTheFilesOfAFolder) {
    constexpr int kFiles = 100;
    for (int i = 0; i < kFiles; ++i) {
        files.Put("/many/" + std::to_string(i) + ".def", "nothing");
    }
    const Asked whole = LookUntil(files, "/many", 1000);
    EXPECT_EQ(whole.times, 2 * kFiles) << "a stage is looked for, and then a character";
    EXPECT_FALSE(whole.givenUp);
    for (const int last : {1, 7, kFiles, 2 * kFiles}) {
        const Asked asked = LookUntil(files, "/many", last);
        EXPECT_EQ(asked.times, last) << "and not again";
        EXPECT_TRUE(asked.givenUp);
    }
    EXPECT_EQ(LookUntil(files, "/odd", 1).times, 0) << "a small file is read at once";
}

TEST_F(GivenFiles, CanBeGivenUpWithinALargeFile) {
    files.Put("/large.def", std::string(1'000'000, 'x') + "camera");
    EXPECT_GT(LookUntil(files, "/large.def", 1000).times, 10);
    EXPECT_FALSE(LookUntil(files, "/large.def", 1000).givenUp);
    EXPECT_EQ(LookUntil(files, "/large.def", 5).times, 5);
    EXPECT_TRUE(LookUntil(files, "/large.def", 5).givenUp);
}

TEST_F(GivenFiles, HaveTheFirstMugenFolderAmongThem) {
    EXPECT_EQ(MugenFolderAmong(files, {"/mugen/stages/a.def", "/pack", "/Old/STAGES", "/mugen"}),
              "/Old");
    EXPECT_EQ(MugenFolderAmong(files, {"/mugen/stages/a.def", "/pack"}), "");
}

}  // namespace
}  // namespace scenara::test
