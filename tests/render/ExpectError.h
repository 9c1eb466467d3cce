// SPDX-License-Identifier: MIT
//
// ExpectError: that something raises a RunTimeError of a certain kind.
#pragma once

#include <gtest/gtest.h>

#include "base/RunTimeError.h"

namespace scenara::test {

template <typename Act>
void ExpectError(RunTimeErrorKind kind, Act act) {
    try {
        act();
        ADD_FAILURE() << "no error, where this one should be: " << TextOf(kind);
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Kind(), kind) << error.what();
    }
}

}  // namespace scenara::test
