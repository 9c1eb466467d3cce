// SPDX-License-Identifier: MIT
#include "stage/ElementKind.h"

#include <gtest/gtest.h>

namespace scenara {
namespace {

TEST(ElementKind, IsWhatTheWordSays) {
    for (const bool additions : {false, true}) {
        EXPECT_EQ(KindOf("normal", additions), ElementKind::Still);
        EXPECT_EQ(KindOf("parallax", additions), ElementKind::Parallax);
        EXPECT_EQ(KindOf("anim", additions), ElementKind::Animated);
        EXPECT_EQ(KindOf("dummy", additions), ElementKind::Dummy);
    }
}

TEST(ElementKind, OfAnotherWordIsAStillPictureAndWithAdditionsADummy) {
    for (const char* const word : {"", "Anim", "anim2", "ani", "null", "parallax "}) {
        EXPECT_EQ(KindOf(word, false), ElementKind::Still) << word;
        EXPECT_EQ(KindOf(word, true), ElementKind::Dummy) << word;
    }
}

}  // namespace
}  // namespace scenara
