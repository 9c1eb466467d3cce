// SPDX-License-Identifier: MIT
//
// Any bytes as a character's definition file.
#include "fuzz/CharacterChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return scenara::test::FuzzCharacterFile("hero.def", data, size);
}
