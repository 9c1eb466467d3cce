// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessDisplayModes.h"

#include <algorithm>
#include <cstddef>

namespace scenara {

HeadlessDisplayModes::HeadlessDisplayModes(std::vector<DisplaySettings> modes)
    : modes_(std::move(modes)) {
    if (!modes_.empty()) {
        current_ = modes_.back();
    }
}

std::optional<DisplaySettings> HeadlessDisplayModes::EnumDisplaySettings(Long index) {
    if (index < 0 || static_cast<std::size_t>(index) >= modes_.size()) {
        return std::nullopt;
    }
    return modes_[static_cast<std::size_t>(index)];
}

bool HeadlessDisplayModes::ChangeDisplaySettings(const DisplaySettings& mode) {
    switches_.push_back(mode);
    if (refuses_ || std::find(modes_.begin(), modes_.end(), mode) == modes_.end()) {
        return false;
    }
    current_ = mode;
    return true;
}

}  // namespace scenara
