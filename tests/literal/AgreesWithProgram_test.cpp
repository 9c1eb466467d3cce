// SPDX-License-Identifier: MIT
//
// Random stages, drawn by the program and by a renderer that does it the long way: every frame is
// the same in every pixel.
#include <gtest/gtest.h>

#include "literal/Comparison.h"
#include "literal/RandomStage.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

constexpr std::uint32_t kFirstSeed = 1;

enum class Result : std::uint8_t { Same, InDoubt, Different };

Result Compare(std::uint32_t seed, const RandomStage& stage, const ViewOptions& view) {
    const ComparedStage compared = CompareStage(stage, view);
    if (compared.difference.empty()) {
        return compared.inDoubt ? Result::InDoubt : Result::Same;
    }
    ADD_FAILURE() << "seed " << seed << ": " << FirstDifference(Shortest(stage, view), view);
    return Result::Different;
}

Result CompareRandomStage(std::uint32_t seed, RandomFor mode) {
    return Compare(seed, MakeRandomStage(seed, mode), {mode != RandomFor::Plain});
}

// Stages of which nothing can be said are seldom.
template <typename CompareOne>
void CompareMany(int rounds, CompareOne compare) {
    int different = 0;
    int inDoubt = 0;
    for (int round = 0; round < rounds && different < 3; ++round) {
        const Result result = compare(kFirstSeed + static_cast<std::uint32_t>(round));
        different += result == Result::Different ? 1 : 0;
        inDoubt += result == Result::InDoubt ? 1 : 0;
    }
    EXPECT_LE(inDoubt, rounds / 20);
}

void CompareRandomStages(int rounds, RandomFor mode) {
    CompareMany(rounds, [&](std::uint32_t seed) { return CompareRandomStage(seed, mode); });
}

TEST(AgreesWithProgram, RandomStagesPlain) {
    CompareRandomStages(Rounds(800), RandomFor::Plain);
}

TEST(AgreesWithProgram, RandomStagesWithAdditions) {
    CompareRandomStages(Rounds(400), RandomFor::Additions);
}

TEST(AgreesWithProgram, RandomStagesOfVersion11) {
    CompareRandomStages(Rounds(800), RandomFor::Version11);
}

TEST(AgreesWithProgram, PicturesWithAlphaPlain) {
    CompareMany(Rounds(200), [](std::uint32_t seed) {
        return Compare(seed, MakeRandomAlphaStage(seed, RandomFor::Plain), kPlainView);
    });
}

TEST(AgreesWithProgram, PicturesWithAlpha) {
    CompareMany(Rounds(200), [](std::uint32_t seed) {
        return Compare(seed, MakeRandomAlphaStage(seed, RandomFor::Version11), {true});
    });
}

TEST(AgreesWithProgram, PicturesWithAlphaSmooth) {
    CompareMany(Rounds(130), [](std::uint32_t seed) {
        return Compare(seed, MakeRandomAlphaStage(seed, RandomFor::Version11, true), {true, true});
    });
}

// Few copies, less than a pixel apart by their scale: none of them is left out.
TEST(AgreesWithProgram, CopiesLessThanAPixelApart) {
    for (const std::uint32_t seed : {3695U, 6484U}) {
        CompareRandomStage(seed, RandomFor::Additions);
    }
}

// Rows that stand within a float's rounding of the middle between two pixels: seen where a compiler
// leaves that rounding out. With additions places are not kept as floats.
TEST(AgreesWithProgram, StagesOnTheEdgeOfAPixel) {
    for (const std::uint32_t seed : {7022U, 10541U}) {
        CompareRandomStage(seed, RandomFor::Plain);
    }
}

// Frames that nobody looks at are not drawn with additions, and what follows is the same.
TEST(PassedFrames, LeadToTheSamePicture) {
    for (int round = 0; round < Rounds(150); ++round) {
        const auto seed = kFirstSeed + static_cast<std::uint32_t>(round);
        for (const bool additions : {true, false}) {
            const RandomStage stage =
                MakeRandomStage(seed, additions ? RandomFor::Version11 : RandomFor::Plain);
            const auto passed = static_cast<int>(stage.keys.size());
            ShotStage drawn = ProgramWith(stage, ViewOptions{additions});
            drawn.Run(passed + 1);
            ShotStage ticked = ProgramWith(stage, ViewOptions{additions});
            ticked.Pass(passed);
            ticked.Run(1);
            ASSERT_TRUE(ticked.Picture() == drawn.Picture()) << "seed " << seed;
        }
    }
}

}  // namespace
}  // namespace scenara::test
