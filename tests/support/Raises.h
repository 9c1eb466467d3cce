// SPDX-License-Identifier: MIT
//
// A matcher for EXPECT_THAT: what is called raises a run-time error of this kind.
#pragma once

#include <gmock/gmock.h>

#include "base/RunTimeError.h"

namespace scenara::test {

[[nodiscard]] inline auto Raises(RunTimeErrorKind kind) {
    return testing::Throws<RunTimeError>(testing::Property(&RunTimeError::Kind, kind));
}

}  // namespace scenara::test
