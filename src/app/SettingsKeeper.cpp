// SPDX-License-Identifier: MIT
#include "app/SettingsKeeper.h"

#include "platform/Clock.h"

namespace scenara {

void SettingsKeeper::Hold(std::string_view text) {
    held_ = text;
    waits_ = false;
}

bool SettingsKeeper::IsDue(std::string_view text, Long now) {
    if (!IsNew(text)) {
        waits_ = false;
        return false;
    }
    if (!waits_) {
        waits_ = true;
        first_ = now;
        seen_.clear();
    }
    if (text != seen_) {
        seen_ = text;
        changed_ = now;
    }
    return TicksSince(changed_, now) >= kRest || TicksSince(first_, now) >= kLongest;
}

}  // namespace scenara
