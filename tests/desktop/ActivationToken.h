// SPDX-License-Identifier: MIT
//
// ActivationToken: what a Wayland compositor gives to a program that starts another one, for that
// to come to the front with.
#pragma once

#include <string>

namespace scenara::test {

// Asks the compositor that listens at that path, as a program without any window. Empty where it
// gives none, or does not answer within half a minute.
[[nodiscard]] std::string ActivationToken(const std::string& socketPath);

}  // namespace scenara::test
