// SPDX-License-Identifier: MIT
//
// scenara-shot as its users run it: the program itself, its files, its standard error and its exit
// status.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <sys/wait.h>

#include "platform/posix/ProgramFolder.h"
#include "support/FuzzChecks.h"

namespace scenara {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

std::string Contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const fs::path& path, const std::string& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

class ScenaraShot : public testing::Test {
protected:
    // Runs the program with `arguments` and keeps what it says.
    int Run(const std::string& arguments) {
        const std::string command = std::string(SCENARA_SHOT) + " " + arguments + " >" +
                                    Path("out") + " 2>" + Path("err") + " </dev/null";
        const int status = std::system(command.c_str());
        out_ = Contents(Path("out"));
        err_ = Contents(Path("err"));
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path() + name; }

    void PutStage(const std::string& name, const std::string& definition) {
        Write(Path("mugen/stages/" + name), definition);
    }

    rapidjson::Document Model() {
        rapidjson::Document json;
        json.Parse(Contents(Path("model.json")).c_str());
        return json;
    }

    TemporaryFolder folder_;
    std::string out_;
    std::string err_;
};

TEST_F(ScenaraShot, FindsAStageByItsNameInTheFolder) {
    PutStage("a.def", "[Info]\nname = first\n");
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " A.DEF --model " + Path("model.json")), 0);
    EXPECT_STREQ(Model()["settings"]["StageTitle"].GetString(), "first");
}

TEST_F(ScenaraShot, TakesAStageByItsPath) {
    Write(Path("elsewhere/b.def"), "[Info]\nname = second\n");
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " " + Path("elsewhere/b.def") + " --model " +
                  Path("model.json")),
              0);
    EXPECT_STREQ(Model()["settings"]["StageTitle"].GetString(), "second");
}

TEST_F(ScenaraShot, WritesEverySpriteAndTheModelOfAStage) {
    PutStage("a.def", "[BGdef]\nspr = a.sff\n[BG Wall]\ntype = normal\nspriteno = 1, 0\n");
    Write(Path("mugen/stages/a.sff"), test::SmallArchiveBytes());
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " a.def --model " + Path("model.json") +
                  " --sprites " + Path("sprites")),
              0);
    EXPECT_EQ(err_, "");
    EXPECT_EQ(Model()["sprites"].Size(), 3U);
    EXPECT_EQ(Model()["elements"][0]["spriteIndex"].GetInt(), 2);
    EXPECT_TRUE(fs::exists(Path("sprites/0000_0_0.png")));
    EXPECT_TRUE(fs::exists(Path("sprites/0001_0_1.png")));
    EXPECT_TRUE(fs::exists(Path("sprites/0002_1_0.png")));
}

TEST_F(ScenaraShot, SaysEveryMessageOnALineOfItsOwn) {
    PutStage("a.def", "[BGdef]\nspr = gone.sff\n[BG]\ntype = null\n[BG]\ntype = null\n");
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " a.def"), 0);
    EXPECT_EQ(err_, "NULL BG 0\nNULL BG 0\nSFF FILE: gone.sff COULD NOT BE FOUND!\n");
}

TEST_F(ScenaraShot, AStageThatIsNotThereCannotBeShown) {
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " gone.def"), 1);
    EXPECT_THAT(
        err_, StartsWith("Unable to load " + Path("mugen/stages/gone.def") + " - File not found"));
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " no/gone.def"), 1);
    EXPECT_THAT(err_, StartsWith("Unable to load no/gone.def - File not found"));
}

TEST_F(ScenaraShot, AFolderIsNoStage) {
    fs::create_directories(Path("mugen/stages/folder.def"));
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " " + Path("mugen/stages/folder.def")), 1);
    EXPECT_THAT(err_, HasSubstr("folder.def"));
}

TEST_F(ScenaraShot, WrongUseIsExplained) {
    EXPECT_EQ(Run("--mugen " + Path("mugen")), 2);
    EXPECT_THAT(err_, HasSubstr("the stage is missing"));
    EXPECT_THAT(err_, HasSubstr("Usage: scenara-shot"));
}

TEST_F(ScenaraShot, SaysThatPicturesAreNotToBeHadYet) {
    PutStage("a.def", "");
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " a.def --out " + Path("a.png")), 2);
    EXPECT_THAT(err_, HasSubstr("--out is not available"));
}

TEST_F(ScenaraShot, HelpGoesToStandardOutput) {
    EXPECT_EQ(Run("--help"), 0);
    EXPECT_THAT(out_, HasSubstr("--sprites DIR"));
}

TEST_F(ScenaraShot, AResultThatCannotBeWrittenIsAFailure) {
    PutStage("a.def", "");
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " a.def --model " + Path("no/such/folder/a.json")),
              1);
    EXPECT_THAT(err_, HasSubstr("no/such/folder/a.json"));
}

TEST_F(ScenaraShot, OutputGoesToExactlyTheNameGiven) {
    PutStage("a.def", "");
    Write(Path("other.json"), "mine");
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " a.def --model " + Path("OTHER.json")), 0);
    EXPECT_EQ(Contents(Path("other.json")), "mine");
    EXPECT_THAT(Contents(Path("OTHER.json")), StartsWith("{"));
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " a.def --model /dev/stdout"), 0);
    EXPECT_THAT(out_, StartsWith("{"));
}

TEST_F(ScenaraShot, MessagesDoNotSteerTheTerminal) {
    PutStage("a.def", "[BGdef]\nspr = \x1b[31m\x07.sff\n");
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " a.def"), 0);
    EXPECT_EQ(err_, "SFF FILE: ?[31m?.sff COULD NOT BE FOUND!\n");
}

TEST_F(ScenaraShot, AFileWithBareLineFeedsLeavesNoCopyBehind) {
    std::string definition = "; " + std::string(600, 'x') + "\n[Info]\nname = long\n";
    PutStage("a.def", definition);
    EXPECT_EQ(Run("--mugen " + Path("mugen") + " a.def --model " + Path("model.json")), 0);
    EXPECT_STREQ(Model()["settings"]["StageTitle"].GetString(), "long");
    EXPECT_FALSE(fs::exists(fs::path(SCENARA_SHOT).parent_path() / "fix.def"));
}

TEST_F(ScenaraShot, TheBundledStagesLoadWithoutAWord) {
    for (const char* stage : {"lanternpier.def", "nightexpress.def"}) {
        EXPECT_EQ(Run("--mugen " SCENARA_BUNDLED_DATA " " + std::string(stage) + " --model " +
                      Path("model.json")),
                  0);
        EXPECT_EQ(err_, "") << stage;
        EXPECT_GT(Model()["sprites"].Size(), 0U) << stage;
        EXPECT_GT(Model()["elements"].Size(), 0U) << stage;
    }
}

TEST_F(ScenaraShot, RealStagesLoadWithoutAWord) {
    if (!fs::exists(SCENARA_SAMPLE_DATA)) {
        GTEST_SKIP() << "no real MUGEN folder at " SCENARA_SAMPLE_DATA;
    }
    for (const char* stage : {"kfm.def", "stage0.def"}) {
        EXPECT_EQ(Run("--mugen " SCENARA_SAMPLE_DATA " " + std::string(stage) + " --sprites " +
                      Path("sprites")),
                  0);
        EXPECT_EQ(err_, "") << stage;
    }
}

}  // namespace
}  // namespace scenara
