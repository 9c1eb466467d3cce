// SPDX-License-Identifier: MIT
//
// The main program of tests that compare pictures: as always, and --update writes the golden ones.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/GoldenPicture.h"

int main(int argc, char** argv) {
    scenara::test::SetGoldenMode(scenara::test::TakeGoldenMode(argc, argv));
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
