// SPDX-License-Identifier: MIT
#include "samplemaker/Melody.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace scenara::samplemaker {
namespace {

using testing::ElementsAre;

TEST(Melody, NotesHoldsAndRests) {
    const Melody melody = ReadMelody("C4 - . A4| A4 .\n| .");
    EXPECT_EQ(melody.steps, 7U);
    EXPECT_THAT(melody.notes,
                ElementsAre(MelodyNote{0, 2, 60}, MelodyNote{3, 1, 69}, MelodyNote{4, 1, 69}));
}

TEST(Melody, SharpsFlatsAndOctaves) {
    EXPECT_THAT(ReadMelody("C0 F#3 Bb4 B4 G9").notes,
                ElementsAre(MelodyNote{0, 1, 12}, MelodyNote{1, 1, 54}, MelodyNote{2, 1, 70},
                            MelodyNote{3, 1, 71}, MelodyNote{4, 1, 127}));
}

TEST(Melody, NothingIsNoMelody) {
    EXPECT_EQ(ReadMelody("").steps, 0U);
    EXPECT_EQ(ReadMelody(" | ").steps, 0U);
}

TEST(Melody, RefusesOtherWords) {
    for (const char* text : {"H4", "4", "C", "C#", "Cb", "Cx4", "c4", "C44", "C4-", "-", ". -"}) {
        EXPECT_THROW(static_cast<void>(ReadMelody(text)), std::invalid_argument) << text;
    }
}

}  // namespace
}  // namespace scenara::samplemaker
