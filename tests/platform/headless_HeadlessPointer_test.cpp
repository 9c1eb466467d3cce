// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/headless/HeadlessPointer.h"

namespace scenara {
namespace {

TEST(HeadlessPointer, StandsWhereItIsPut) {
    HeadlessPointer pointer;
    EXPECT_EQ(pointer.GetCursorPos().x, 0);
    EXPECT_EQ(pointer.GetCursorPos().y, 0);
    pointer.MoveTo({-5, 700});
    EXPECT_EQ(pointer.GetCursorPos().x, -5);
    EXPECT_EQ(pointer.GetCursorPos().y, 700);
}

}  // namespace
}  // namespace scenara
