// SPDX-License-Identifier: MIT
//
// SettingsKeeper: when settings are written while the program goes on.
//
// A change is written when it has rested for a second; while one change follows another (a drag, a
// key that repeats), five seconds after the first of them. So the file is written at most once a
// second, a drag writes it at its end, and whatever stops the program costs no more than that.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Integers.h"

namespace scenara {

class SettingsKeeper {
public:
    // Milliseconds.
    static constexpr std::uint32_t kRest = 1000;
    static constexpr std::uint32_t kLongest = 5000;

    // The file holds this text, or says the same in other words.
    void Hold(std::string_view text);

    // `text` is what would be written at the tick `now`. Whether it is time to write it.
    [[nodiscard]] bool IsDue(std::string_view text, Long now);

    // Whether `text` is not what the file holds.
    [[nodiscard]] bool IsNew(std::string_view text) const { return text != held_; }

    // Whether the last text that was asked about is yet to be written.
    [[nodiscard]] bool Waits() const { return waits_; }

private:
    std::string held_;
    std::string seen_;  // while one waits: the last one
    Long changed_ = 0;  // the tick at which it was new
    Long first_ = 0;    // the tick at which the first one that waits was new
    bool waits_ = false;
};

}  // namespace scenara
