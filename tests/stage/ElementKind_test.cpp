// SPDX-License-Identifier: MIT
#include "stage/ElementKind.h"

#include <gtest/gtest.h>

namespace scenara {
namespace {

TEST(ElementKind, IsWhatTheWordSaysAndOtherwiseAStillPicture) {
    EXPECT_EQ(KindOf("normal"), ElementKind::Still);
    EXPECT_EQ(KindOf("parallax"), ElementKind::Parallax);
    EXPECT_EQ(KindOf("anim"), ElementKind::Animated);
    EXPECT_EQ(KindOf("dummy"), ElementKind::Dummy);
    for (const char* const word : {"", "Anim", "anim2", "ani", "null", "parallax "}) {
        EXPECT_EQ(KindOf(word), ElementKind::Still) << word;
    }
}

}  // namespace
}  // namespace scenara
