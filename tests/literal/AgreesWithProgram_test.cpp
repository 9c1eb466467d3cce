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

void CompareRandomStages(int rounds, RandomFor mode) {
    const bool additions = mode == RandomFor::Additions;
    int different = 0;
    for (int round = 0; round < rounds && different < 3; ++round) {
        const auto seed = kFirstSeed + static_cast<std::uint32_t>(round);
        const ViewOptions view{additions};
        const RandomStage stage = MakeRandomStage(seed, mode);
        if (!FirstDifference(stage, view).empty()) {
            ++different;
            ADD_FAILURE() << "seed " << seed << ": "
                          << FirstDifference(Shortest(stage, view), view);
        }
    }
}

TEST(AgreesWithProgram, RandomStagesPlain) {
    CompareRandomStages(Rounds(1500), RandomFor::Plain);
}

TEST(AgreesWithProgram, RandomStagesWithAdditions) {
    CompareRandomStages(Rounds(1500), RandomFor::Additions);
}

// Frames that nobody looks at are not drawn with additions, and what follows is the same.
TEST(PassedFrames, LeadToTheSamePicture) {
    for (int round = 0; round < Rounds(300); ++round) {
        const auto seed = kFirstSeed + static_cast<std::uint32_t>(round);
        for (const bool additions : {true, false}) {
            const RandomStage stage =
                MakeRandomStage(seed, additions ? RandomFor::Additions : RandomFor::Plain);
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
