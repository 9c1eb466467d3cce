// SPDX-License-Identifier: MIT
//
// ExpectRanges: that an element's window has these columns and rows.
#pragma once

#include <gtest/gtest.h>

#include "render/ElementWindow.h"

namespace scenara::test {

inline void ExpectRanges(const ElementWindow& window, PixelRange columns, PixelRange rows) {
    EXPECT_EQ(window.columns.from, columns.from);
    EXPECT_EQ(window.columns.to, columns.to);
    EXPECT_EQ(window.rows.from, rows.from);
    EXPECT_EQ(window.rows.to, rows.to);
}

}  // namespace scenara::test
