// SPDX-License-Identifier: MIT
#include "app/SettingsText.h"

#include <algorithm>

namespace scenara {

SettingsText ReadSettingsText(Files& files, const std::string& path) {
    const auto file = files.OpenForReading(path);
    SettingsText settings;
    settings.text.resize(kMaxSettingsSize + 1);
    settings.text.resize(file->ReadAt(0, std::as_writable_bytes(std::span(settings.text))));
    if (settings.text.size() > kMaxSettingsSize) {
        settings.whole = false;
        settings.text.resize(settings.text.find_last_of("\r\n") + 1);  // none: nothing
    }
    return settings;
}

std::size_t TextFile::ReadAt(std::uint64_t position, std::span<std::byte> into) {
    if (position >= text_.size()) {
        return 0;
    }
    const auto rest = std::as_bytes(std::span(text_)).subspan(static_cast<std::size_t>(position));
    const std::size_t count = std::min(rest.size(), into.size());
    std::copy_n(rest.begin(), count, into.begin());
    return count;
}

}  // namespace scenara
