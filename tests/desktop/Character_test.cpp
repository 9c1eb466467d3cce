// SPDX-License-Identifier: MIT
//
// The character that comes with the program, on a stage in the real window.
#include <filesystem>
#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

using testing::HasSubstr;

class DesktopCharacter : public DesktopProgram {
protected:
    void SetUp() override {
        DesktopProgram::SetUp();
        fs::copy(SCENARA_BUNDLED_DATA "/chars", Folder() / "mugen/chars",
                 fs::copy_options::recursive);
        std::ofstream(StagePath("bar"), std::ios::app) << "[StageInfo]\nzoffset = 210\n";
    }
    [[nodiscard]] std::string Definition() const {
        return display_.Folder() + "mugen/chars/lanternkeeper/lanternkeeper.def";
    }
    void ChooseThirdOption() {
        Key("alt+o");
        Key("Down");
        Key("Down");
        Key("Return");
    }
    // It stands in front of the ground, and covers much more of it than a changed bar would.
    [[nodiscard]] bool Stands(int ground) const { return Count(kGround) < ground - 400; }
};

TEST_F(DesktopCharacter, IsChosenWalksAndIsThereAtTheNextStart) {
    StartWithBar();
    const int ground = Count(kGround);
    Key("alt+o");
    Key("u");
    ExpectWindow("Choose test character.");
    Type(Definition());
    Key("Return");
    EXPECT_TRUE(Eventually([&] { return Stands(ground); }));
    ExpectTitle("bar");

    // It begins in the middle of the view, so the camera goes along at once.
    const int before = BarLeft();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before - 30; }));
    EXPECT_TRUE(Stands(ground));
    display_.Do("keyup Right");

    ChooseThirdOption();  // "Use Lantern Keeper" has no access letter
    EXPECT_TRUE(Eventually([&] { return !Stands(ground); }));
    ChooseThirdOption();
    EXPECT_TRUE(Eventually([&] { return Stands(ground); }));

    Key("alt+s");
    Key("e");
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_THAT(Settings(), HasSubstr("TestChar = " + Definition() + "\r\n"));
    EXPECT_THAT(Settings(), HasSubstr("HCamStep = 1\r\n"));
    EXPECT_THAT(Settings(), HasSubstr("Char = True\r\n"));
    EXPECT_THAT(Settings(), HasSubstr("CharName = Lantern Keeper\r\n"));

    Start();
    ExpectMainWindow(480);
    ClickListItem(0);
    ExpectTitle("bar");
    EXPECT_TRUE(Eventually([&] { return Stands(ground); }));
}

}  // namespace
}  // namespace scenara::test
