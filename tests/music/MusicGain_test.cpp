// SPDX-License-Identifier: MIT
#include "music/MusicGain.h"

#include <gtest/gtest.h>

namespace scenara {
namespace {

struct Row {
    Single percent;
    Integer offset;
    double gain;
};

TEST(MusicGain, IsTheProductOfPercentAndOffset) {
    for (const Row& row : {
             Row{100, 0, 1},
             Row{50, 0, 0.5},
             Row{150, 0, 1.5},
             Row{100, -51, 0.8},
             Row{100, 51, 1.2},
             Row{50, 51, 0.6},
             Row{100, -255, 0},
             Row{100, 255, 2},
             Row{50, 255, 1},
             // No less than silence, no more than twice as loud.
             Row{0, 255, 0},
             Row{-20, 0, 0},
             Row{-20, -300, 0},
             Row{201, 0, 2},
             Row{1e30F, 0, 2},
             Row{-1e30F, 0, 0},
             Row{1e30F, -255, 0},
             Row{100, -32768, 0},
             Row{50, 32767, 1},
         }) {
        EXPECT_DOUBLE_EQ(MusicGain(row.percent, row.offset), row.gain)
            << row.percent << ", " << row.offset;
    }
}

}  // namespace
}  // namespace scenara
