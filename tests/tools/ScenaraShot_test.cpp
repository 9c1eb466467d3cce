// SPDX-License-Identifier: MIT
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include "ShotProgram.h"
#include "base/Version.h"
#include "support/FuzzChecks.h"

namespace scenara::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ScenaraShotModel : public ScenaraShot {
protected:
    int WriteModel(const std::string& arguments) {
        return RunHere(arguments + " --model " + Path("model.json"));
    }
    void ExpectTitle(const std::string& stage, const char* title) {
        EXPECT_EQ(WriteModel(stage), 0);
        EXPECT_STREQ(Model()["settings"]["StageTitle"].GetString(), title);
    }
    rapidjson::Document Model() {
        rapidjson::Document json;
        json.Parse(Contents(Path("model.json")).c_str());
        return json;
    }
};

TEST_F(ScenaraShotModel, FindsAStageByItsNameInTheFolder) {
    PutStage("a.def", "[Info]\nname = first\n");
    ExpectTitle("A.DEF", "first");
}

TEST_F(ScenaraShotModel, TakesAStageByItsPath) {
    Write(Path("elsewhere/b.def"), "[Info]\nname = second\n");
    ExpectTitle(Path("elsewhere/b.def"), "second");
}

TEST_F(ScenaraShotModel, WritesEverySpriteAndTheModelOfAStage) {
    PutStage("a.def", "[BGdef]\nspr = a.sff\n[BG Wall]\ntype = normal\nspriteno = 1, 0\n");
    Write(Path("mugen/stages/a.sff"), SmallArchiveBytes());
    EXPECT_EQ(WriteModel("a.def --sprites " + Path("sprites")), 0);
    EXPECT_EQ(err_, "");
    EXPECT_EQ(Model()["sprites"].Size(), 3U);
    EXPECT_EQ(Model()["elements"][0]["spriteIndex"].GetInt(), 2);
    EXPECT_TRUE(fs::exists(Path("sprites/0000_0_0.png")));
    EXPECT_TRUE(fs::exists(Path("sprites/0001_0_1.png")));
    EXPECT_TRUE(fs::exists(Path("sprites/0002_1_0.png")));
}

TEST_F(ScenaraShot, SaysEveryMessageOnALineOfItsOwn) {
    PutStage("a.def", "[BGdef]\nspr = gone.sff\n[BG]\ntype = null\n[BG]\ntype = null\n");
    EXPECT_EQ(RunHere("a.def"), 0);
    EXPECT_EQ(err_, "NULL BG 0\nNULL BG 0\nSFF FILE: gone.sff COULD NOT BE FOUND!\n");
}

TEST_F(ScenaraShot, AStageThatIsNotThereCannotBeShown) {
    EXPECT_EQ(RunHere("gone.def"), 1);
    EXPECT_THAT(
        err_, StartsWith("Unable to load " + Path("mugen/stages/gone.def") + " - File not found"));
    EXPECT_EQ(RunHere("no/gone.def"), 1);
    EXPECT_THAT(err_, StartsWith("Unable to load no/gone.def - File not found"));
}

TEST_F(ScenaraShot, AFolderIsNoStage) {
    fs::create_directories(Path("mugen/stages/folder.def"));
    EXPECT_EQ(RunHere(Path("mugen/stages/folder.def")), 1);
    EXPECT_THAT(err_, HasSubstr("folder.def"));
}

TEST_F(ScenaraShot, WrongUseIsExplained) {
    EXPECT_EQ(RunHere(""), 2);
    EXPECT_THAT(err_, HasSubstr("the stage is missing"));
    EXPECT_THAT(err_, HasSubstr("Usage: scenara-shot"));
}

TEST_F(ScenaraShot, HelpGoesToStandardOutput) {
    EXPECT_EQ(Run("--help"), 0);
    EXPECT_THAT(out_, HasSubstr("--sprites DIR"));
    EXPECT_THAT(out_, HasSubstr("two steps a frame")) << "how far keys move the camera";
}

TEST_F(ScenaraShot, TheVersionIsThatOfEveryProgram) {
    EXPECT_EQ(Run("--version"), 0);
    EXPECT_EQ(out_, VersionLine());
}

TEST_F(ScenaraShot, AResultThatCannotBeWrittenIsAFailure) {
    PutStage("a.def", "");
    EXPECT_EQ(RunHere("a.def --model " + Path("no/such/folder/a.json")), 1);
    EXPECT_THAT(err_, HasSubstr("no/such/folder/a.json"));
}

TEST_F(ScenaraShot, OutputGoesToExactlyTheNameGiven) {
    PutStage("a.def", "");
    Write(Path("other.json"), "mine");
    EXPECT_EQ(RunHere("a.def --model " + Path("OTHER.json")), 0);
    EXPECT_EQ(Contents(Path("other.json")), "mine");
    EXPECT_THAT(Contents(Path("OTHER.json")), StartsWith("{"));
    EXPECT_EQ(RunHere("a.def --model /dev/stdout"), 0);
    EXPECT_THAT(out_, StartsWith("{"));
}

TEST_F(ScenaraShot, MessagesDoNotSteerTheTerminal) {
    PutStage("a.def", "[BGdef]\nspr = \x1b[31m\x07.sff\n");
    EXPECT_EQ(RunHere("a.def"), 0);
    EXPECT_EQ(err_, "SFF FILE: ?[31m?.sff COULD NOT BE FOUND!\n");
}

TEST_F(ScenaraShotModel, AFileWithBareLineFeedsLeavesNoCopyBehind) {
    std::string definition = "; " + std::string(600, 'x') + "\n[Info]\nname = long\n";
    PutStage("a.def", definition);
    ExpectTitle("a.def", "long");
    EXPECT_FALSE(fs::exists(fs::path(SCENARA_SHOT).parent_path() / "fix.def"));
}

TEST_F(ScenaraShotModel, TheBundledStagesLoadWithoutAWord) {
    for (const char* stage : {"cloudharbour.def", "glasslagoon.def", "lanternpier.def",
                              "millfair.def", "nightexpress.def", "thousandpanes.def"}) {
        EXPECT_EQ(Run("--mugen " SCENARA_BUNDLED_DATA " " + std::string(stage) + " --model " +
                      Path("model.json")),
                  0);
        EXPECT_EQ(err_, "") << stage;
        EXPECT_GT(Model()["sprites"].Size(), 0U) << stage;
        EXPECT_GT(Model()["elements"].Size(), 0U) << stage;
    }
}

TEST_F(ScenaraShot, ACharacterIsAPathOrAPlaceUnderChars) {
    const std::string shot =
        "--mugen " SCENARA_BUNDLED_DATA " lanternpier.def --out " + Path("a.png") + " --char ";
    EXPECT_EQ(Run(shot + "lanternkeeper/lanternkeeper.def"), 0);
    EXPECT_EQ(err_, "");
    const std::string with = Contents(Path("a.png"));
    EXPECT_EQ(Run(shot + SCENARA_BUNDLED_DATA "/chars/lanternkeeper/lanternkeeper.def"), 0);
    EXPECT_EQ(Contents(Path("a.png")), with);
    EXPECT_EQ(Run("--mugen " SCENARA_BUNDLED_DATA " lanternpier.def --out " + Path("a.png")), 0);
    EXPECT_NE(Contents(Path("a.png")), with);
}

// But the exit status tells.
TEST_F(ScenaraShot, WithoutItsCharacterTheStageIsWrittenAllTheSame) {
    PutStage("a.def", "[Info]\nname = a\n[BGdef]\nspr = a.sff\n");
    Write(Path("mugen/stages/a.sff"), SmallArchiveBytes());
    const std::string shot = "--mugen " + Path("mugen") + " a.def --frames 2 --every 1 --char ";
    for (const std::string plain : {"", " --plain"}) {
        const std::string written = Path("written/");
        fs::remove_all(written);
        fs::create_directories(written);
        EXPECT_EQ(Run(shot + "gone.def --out " + written + "a.png --model " + written +
                      "a.json --sprites " + written + "sprites" + plain),
                  1);
        EXPECT_EQ(err_, "gone.def.def could not be found. Unable to load gone.def.\n");
        for (const char* const file :
             {"a.png", "a-00001.png", "a-00002.png", "a.json", "sprites"}) {
            EXPECT_TRUE(fs::exists(written + file)) << file << plain;
        }
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
}  // namespace scenara::test
