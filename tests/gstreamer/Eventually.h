// SPDX-License-Identifier: MIT
//
// Eventually: waits for what happens in another thread. It is no measure of speed: a minute is long
// enough for any machine, and what has not happened by then never will.
#pragma once

#include <chrono>
#include <thread>

namespace scenara::test {

template <typename Condition>
[[nodiscard]] bool Eventually(Condition condition) {
    const auto never = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > never) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

}  // namespace scenara::test
