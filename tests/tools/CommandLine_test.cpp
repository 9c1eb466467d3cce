// SPDX-License-Identifier: MIT
#include "scenara-shot/CommandLine.h"

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace scenara {
namespace {

std::string ErrorOf(const std::vector<std::string>& words) {
    try {
        static_cast<void>(ParseCommandLine(words));
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "no error";
}

TEST(CommandLine, TakesEveryOption) {
    const ShotOptions options = ParseCommandLine(
        {"--mugen", "/m",      "a.def",    "--model", "a.json", "--sprites",    "dir",     "--out",
         "a.png",   "--plain", "--frames", "90",      "--keys", "right:1,up:2", "--every", "30",
         "--info",  "--char",  "c.def",    "--size",  "64x48",  "--smooth"});
    EXPECT_EQ(options.size, (CanvasSize{64, 48}));
    EXPECT_TRUE(options.smooth);
    EXPECT_EQ(options.character, "c.def");
    EXPECT_EQ(options.mugeDir, "/m");
    EXPECT_EQ(options.stage, "a.def");
    EXPECT_EQ(options.modelFile, "a.json");
    EXPECT_EQ(options.spriteDir, "dir");
    EXPECT_EQ(options.pictureFile, "a.png");
    EXPECT_TRUE(options.plain);
    EXPECT_EQ(options.frames, 90);
    EXPECT_EQ(options.keys.KeysOfFrame(1), KeySet{VirtualKey::Right});
    EXPECT_EQ(options.keys.KeysOfFrame(3), KeySet{VirtualKey::Up});
    EXPECT_EQ(options.every, 30);
    EXPECT_TRUE(options.info);
    EXPECT_FALSE(options.help);
}

TEST(CommandLine, AZoomIsANumberAbove0AndAnAddition) {
    EXPECT_EQ(ParseCommandLine({"--mugen", "/m", "a.def"}).zoom, std::nullopt);
    EXPECT_EQ(ParseCommandLine({"--mugen", "/m", "a.def", "--zoom", "0.8"}).zoom, 0.8);
    for (const char* const text : {"0", "-1", "", "1x", "nan", "zoom"}) {
        EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--zoom", text}),
                  std::string("--zoom needs a number above 0, such as 0.8, not \"") + text + "\"");
    }
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--zoom", "2", "--plain"}),
              "--zoom is an addition, which --plain leaves out");
}

TEST(CommandLine, AdditionsAreOnUnlessPlain) {
    EXPECT_FALSE(ParseCommandLine({"--mugen", "/m", "a.def"}).plain);
}

TEST(CommandLine, RunsOneFrameWithNoKeyHeldUnlessToldOtherwise) {
    const ShotOptions options = ParseCommandLine({"--mugen", "/m", "a.def"});
    EXPECT_EQ(options.frames, 1);
    EXPECT_EQ(options.keys.KeysOfFrame(1), KeySet());
    EXPECT_EQ(options.every, std::nullopt);
    EXPECT_EQ(options.pictureFile, std::nullopt);
    EXPECT_EQ(options.size, std::nullopt);
    EXPECT_FALSE(options.smooth);
    EXPECT_FALSE(options.info);
}

TEST(CommandLine, CountsAreWholeNumbersFromOneOn) {
    for (const std::string option : {"--frames", "--every"}) {
        for (const std::string count :
             {"0", "-1", "", "x", "1x", " 1", "+1", "1.5", "2147483648"}) {
            EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--out", "a.png", option, count}),
                      option + " needs a whole number from 1 to 2147483647, not \"" + count + "\"");
        }
        EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", option}), option + " needs an argument");
    }
    EXPECT_EQ(ParseCommandLine({"--mugen", "/m", "a.def", "--frames", "2147483647"}).frames,
              2147483647);
}

TEST(CommandLine, ASizeIsAWidthAndAHeight) {
    const auto error = [](const std::string& size) {
        return ErrorOf({"--mugen", "/m", "a.def", "--out", "a.png", "--size", size});
    };
    for (const std::string size :
         {"640", "x480", "640x", "640x480x", "640 x 480", "0x480", "640x-1", "8193x1", "1x8193",
          "640X480", "x", "", "99999999999x1"}) {
        EXPECT_EQ(error(size),
                  "--size needs a width and a height from 1 to 8192, such as "
                  "640x480, not \"" +
                      size + "\"");
    }
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--size"}), "--size needs an argument");
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--size", "640x480"}),
              "--size needs --out, which names the picture");
    for (const CanvasSize& size :
         {CanvasSize{1, 1}, CanvasSize{8192, 8192}, CanvasSize{640, 480}}) {
        EXPECT_EQ(ParseCommandLine({"--mugen", "/m", "a.def", "--out", "a.png", "--size",
                                    std::to_string(size.width) + "x" + std::to_string(size.height)})
                      .size,
                  size);
    }
}

TEST(CommandLine, SaysWhatIsWrongWithAKeyScript) {
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--keys", "jump:3"}),
              "key script: \"jump\" is none of left, right, up, down, a, z and none");
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--keys"}), "--keys needs an argument");
}

TEST(CommandLine, EveryNeedsTheNameOfAPictureWhereverThatStands) {
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--every", "2"}),
              "--every needs --out, which names the pictures");
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--every", "2", "--out", "a.png"}), "no error");
}

TEST(CommandLine, HelpNeedsNothingElse) {
    EXPECT_TRUE(ParseCommandLine({"--help"}).help);
    EXPECT_TRUE(ParseCommandLine({"--every", "2", "--help"}).help);
    EXPECT_TRUE(ParseCommandLine({"--version"}).version);
}

TEST(CommandLine, SaysWhatIsMissingOrUnknown) {
    EXPECT_EQ(ErrorOf({"a.def"}), "--mugen DIR is missing");
    EXPECT_EQ(ErrorOf({"--mugen", "/m"}), "the stage is missing");
    EXPECT_EQ(ErrorOf({"a.def", "--mugen"}), "--mugen needs an argument");
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--sound"}), "there is no option --sound");
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "b.def"}), "one stage at a time: a.def or b.def");
}

TEST(UsageText, NamesEveryOptionInLinesThatFitATerminal) {
    const std::string usage = UsageText();
    for (const char* option : {"--mugen", "--frames", "--keys", "--info", "--out", "--every",
                               "--size", "--smooth", "--model", "--sprites", "--plain"}) {
        EXPECT_NE(usage.find("\n  " + std::string(option) + " "), std::string::npos) << option;
    }
    std::istringstream lines(usage);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(line.size(), 80U) << line;
    }
}

}  // namespace
}  // namespace scenara
